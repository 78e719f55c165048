#include "library/library_format.h"

namespace quillbrook {

using platform::ColumnDef;
using platform::TableDef;

constexpr qint32 kApplicationId = 0x51424C46; // "QBLF"
constexpr int kVersion = 1;

static ColumnDef Key(const QString& name) {
    return {.name = name, .kind = ColumnDef::Kind::Text, .required = true, .unique = true};
}

static ColumnDef Text(const QString& name) {
    return {.name = name, .kind = ColumnDef::Kind::Text};
}

static ColumnDef LongText(const QString& name) {
    return {.name = name, .kind = ColumnDef::Kind::LongText};
}

static ColumnDef Number(const QString& name) {
    return {.name = name, .kind = ColumnDef::Kind::Number};
}

// A table of clauses: plain text under a number that is compared as text.
static TableDef ClauseTable(const QString& name) {
    return {name, {Key(name + QStringLiteral("No")), LongText(QStringLiteral("Content"))}};
}

std::vector<TableDef> LibraryTables() {
    return {
        {QStringLiteral("Forms"),
         {Key(QStringLiteral("Title")), Text(QStringLiteral("Category")), Text(QStringLiteral("SubCategory")),
          LongText(QStringLiteral("Content")), Number(QStringLiteral("Favorites"))}},
        ClauseTable(QStringLiteral("Jurat")),
        ClauseTable(QStringLiteral("Caption")),
        ClauseTable(QStringLiteral("Verification")),
        {QStringLiteral("Theme"), {Number(QStringLiteral("Theme"))}},
    };
}

platform::FileFormat LibraryFileFormat() {
    return {.applicationId = kApplicationId, .version = kVersion};
}

// One digit at a time from its character code, so that the whole value stands nowhere in the program.
QString BuildLibraryPassword() {
    QString password;
    password.append(QChar(55));
    password.append(QChar(50));
    password.append(QChar(57));
    password.append(QChar(52));
    password.append(QChar(48));
    password.append(QChar(54));
    password.append(QChar(49));
    password.append(QChar(56));
    password.append(QChar(53));
    password.append(QChar(51));
    password.append(QChar(54));
    password.append(QChar(57));
    return password;
}

} // namespace quillbrook
