// Statements: whatever comes in, the parser ends; what it takes and whose names exist, the engine runs.
#include "platform/database/database.h"
#include "platform/database/selection.h"

#include <QTemporaryDir>
#include <cstdlib>

using namespace platform;

namespace {

struct Library {
    QTemporaryDir folder;
    TableInfo table{.name = QStringLiteral("Forms"),
                    .fields = {{QStringLiteral("Title"), ColumnDef::Kind::Text},
                               {QStringLiteral("Content"), ColumnDef::Kind::LongText},
                               {QStringLiteral("Favorites"), ColumnDef::Kind::Number}}};
    std::unique_ptr<Database> database;

    Library() {
        TableDef forms{table.name, {}};
        for (const FieldInfo& field : table.fields)
            forms.columns.push_back({.name = field.name, .kind = field.kind});
        database = Database::CreateDatabase(folder.filePath(QStringLiteral("f")), QStringLiteral(";pwd=f"),
                                            {.applicationId = 1, .version = 1}, {forms});
        const auto rows = database->OpenRecordset(table.name);
        for (int i = 0; i < 3; ++i) {
            rows->AddNew();
            rows->SetField(QStringLiteral("Title"), QStringLiteral("title %1").arg(i));
            rows->SetField(QStringLiteral("Content"), QStringLiteral("text of %1").arg(i));
            rows->Update();
        }
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Library library;
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const std::optional<SelectStatement> statement = ParseStatement(text);
    const bool known = statement && statement->table.compare(library.table.name, Qt::CaseInsensitive) == 0 &&
                       BuildSelection(library.table, *statement);
    const auto query = library.database->CreateQueryDef();
    query->setSQL(text);
    const auto rows = query->OpenRecordset();
    if (known != (rows != nullptr))
        std::abort();
    if (library.database->OpenRecordset(library.table.name)->RecordCount() != 3)
        std::abort();
    return 0;
}
