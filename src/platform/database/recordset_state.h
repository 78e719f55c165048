// The inside of a recordset.
#pragma once

#include "platform/database/connection.h"

namespace platform {

struct Recordset::State {
    // Where the recordset stands: on row `position`, before it where a row was deleted, or behind the last.
    enum class Place { OnRow, AfterDelete, End };
    enum class Staging { None, Edit, Add };

    // Runs a statement; null when it is refused.
    static std::unique_ptr<State> Run(const std::shared_ptr<Connection>& connection,
                                      const SelectStatement& statement);

    // The index in the table of a field of the result, -1 when the result has none of that name.
    int IndexOf(const QString& name) const;
    void MoveTo(std::size_t newPosition);
    void EndStaging();
    bool IsOpen() const;

    std::shared_ptr<Connection> connection;
    int table = 0;
    std::vector<int> fields;
    std::vector<RowId> rows;
    std::size_t position = 0;
    Place place = Place::End;
    Staging staging = Staging::None;
    std::vector<FieldValue> staged;
};

} // namespace platform
