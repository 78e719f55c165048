// A parsed statement as the engine's own, with the values apart from the text.
#pragma once

#include "platform/database/schema.h"
#include "platform/database/statement.h"

namespace platform {

struct Selection {
    std::vector<int> fields;     // of the table, in the order asked for
    QByteArray sql;              // gives the ids of the rows in file order
    QByteArray rowSql;           // the same for one row, whose id is bound last; empty without a condition
    std::vector<Operand> values; // texts and numbers, to be bound in this order
};

// Empty when a field is unknown, or a text is compared with a number.
std::optional<Selection> BuildSelection(const TableInfo& table, const SelectStatement& statement);

} // namespace platform
