// The statements a query definition takes:
//
//   SELECT * | field {, field} FROM table [WHERE condition] [;]
//
//   condition:  conditions joined by AND and OR, NOT before one, parentheses around one;
//               NOT binds tighter than AND, AND tighter than OR
//               operand = | <> | < | <= | > | >= operand
//               operand [NOT] LIKE 'pattern'
//   operand:    a field, a quoted text, a number
//
// A text stands in '...' or "..."; the same quote doubled within it is that quote. Names are letters, digits
// and '_', or anything in [...]. Keywords, tables and fields have no case. Everything else is refused.
#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace platform {

struct Operand {
    enum class Kind { Field, Text, Number };
    Kind kind = Kind::Field;
    QString text = {}; // the field's name or the text
    double number = 0;
};

struct Condition {
    enum class Kind { Equal, NotEqual, Less, LessOrEqual, Greater, GreaterOrEqual, Like, Not, And, Or };
    Kind kind = Kind::Equal;
    Operand left = {};                    // of a comparison or LIKE
    Operand right = {};                   // of a comparison; of LIKE the pattern
    std::vector<Condition> children = {}; // one of Not, two or more of And and Or
};

struct SelectStatement {
    QStringList fields; // as written; empty for '*'
    QString table;
    std::optional<Condition> where;
};

constexpr int kMaxStatementLength = 64 * 1024; // UTF-16 units
constexpr int kMaxStatementDepth = 24;         // NOTs and parentheses within each other
constexpr int kMaxStatementConditions = 400;

// Empty when the statement is refused. Whether its table and fields exist is not looked at.
std::optional<SelectStatement> ParseStatement(const QString& statement);

} // namespace platform
