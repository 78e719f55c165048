#include "tests/support/test_clauses.h"

#include "platform/database/database.h"

using namespace quillbrook;

QString TestClause(ClauseRoutine routine, const char* number) {
    return QStringLiteral("%1 %2\nof two lines")
        .arg(QLatin1String(TableOf(routine).table), QLatin1String(number));
}

bool AddTestClauses(platform::Database& library) {
    for (const ClauseTable& table : kClauseTables) {
        const auto rows = library.OpenRecordset(QLatin1String(table.table));
        if (!rows)
            return false;
        for (bool there = rows->MoveFirst(); there; there = rows->MoveNext())
            if (!rows->Delete())
                return false;
        for (const ClauseEntry& entry : kClauseEntries) {
            if (entry.routine != table.routine)
                continue;
            if (!rows->AddNew() ||
                !rows->SetField(QLatin1String(table.keyField), QLatin1String(entry.number)) ||
                !rows->SetField(QStringLiteral("Content"), TestClause(entry.routine, entry.number)) ||
                !rows->Update())
                return false;
        }
    }
    return true;
}
