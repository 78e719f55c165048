// How tables lie in the file, and what the file itself says about them.
//
// A table "Forms" becomes "Forms" with its texts and numbers and, where it has long texts, "Forms_text" with
// these, so that a list of titles is read without dragging the texts along. Rows of both share their "_id".
// The table "_catalogue" tells the fields of each table in their order.
#pragma once

#include "platform/database/database.h"

#include <sqlcipher/sqlite3.h>

namespace platform {

// The name under which the caseless comparison stands in the file.
constexpr const char* kCollation = "platform_caseless";

struct FieldInfo {
    QString name;
    ColumnDef::Kind kind = ColumnDef::Kind::Text;
    bool IsNumber() const { return kind == ColumnDef::Kind::Number; }
    bool IsLong() const { return kind == ColumnDef::Kind::LongText; }
};

struct TableInfo {
    QString name;
    std::vector<FieldInfo> fields;

    // The index of a field, -1 when there is none of that name.
    int IndexOf(const QString& field) const;
    bool HasLongTexts() const;

    // Texts for the engine. Names are letters and digits only, so quoting them is enough.
    QByteArray MainName() const;
    QByteArray TextName() const;
    QByteArray ColumnName(int field) const;    // within its own table
    QByteArray QualifiedName(int field) const; // within From()
    QByteArray From(bool withLongTexts) const; // the main table as t, the texts as x
};

// Names are 1 to 64 ASCII letters and digits, beginning with a letter; no table or field stands twice.
bool AreValidTables(const std::vector<TableDef>& tables);

// Makes the tables within the running transaction.
bool CreateTables(sqlite3* handle, const std::vector<TableDef>& tables);

// Empty when the file has no catalogue or one that this program did not write.
std::optional<std::vector<TableInfo>> ReadCatalogue(sqlite3* handle);

} // namespace platform
