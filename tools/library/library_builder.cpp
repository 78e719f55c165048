#include "library/library_builder.h"

#include "library/clause_kinds.h"
#include "library/form_document.h"
#include "library/library_format.h"
#include "platform/rich_text/rtf_writer.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUuid>
#include <filesystem>

namespace quillbrook {
namespace {

using platform::Database;
using platform::Recordset;
using Fields = std::vector<std::pair<QString, QVariant>>;

constexpr int kFirstTheme = 1;

bool AddRow(Recordset& rows, const Fields& fields) {
    if (!rows.AddNew())
        return false;
    for (const auto& [name, value] : fields)
        if (!rows.SetField(name, value))
            return false;
    return rows.Update();
}

bool AddForms(Database& database, const std::vector<LibraryForm>& forms, QString& reason) {
    const std::unique_ptr<Recordset> rows = database.OpenRecordset(QStringLiteral("Forms"));
    if (!rows)
        return false;
    for (const LibraryForm& form : forms) {
        const QByteArray content = platform::WriteRtf(*MakeFormDocument(form.source.blocks));
        if (content.isEmpty() || !AddRow(*rows, {{QStringLiteral("Title"), form.source.title},
                                                 {QStringLiteral("Category"), form.source.category},
                                                 {QStringLiteral("SubCategory"), form.source.subCategory},
                                                 {QStringLiteral("Content"), QString::fromLatin1(content)},
                                                 {QStringLiteral("Favorites"), 0}})) {
            reason = QStringLiteral("the form of %1 could not be stored").arg(form.file);
            return false;
        }
    }
    return true;
}

bool AddClauses(Database& database, const std::vector<LibraryClause>& clauses, QString& reason) {
    for (const ClauseKind& kind : kClauseKinds) {
        const std::unique_ptr<Recordset> rows = database.OpenRecordset(kind.table);
        if (!rows)
            return false;
        for (const LibraryClause& clause : clauses) {
            if (clause.table == kind.table &&
                !AddRow(*rows, {{kind.table + QStringLiteral("No"), QString::number(clause.number)},
                                {QStringLiteral("Content"), clause.text}})) {
                reason =
                    QStringLiteral("clause %1 of %2 could not be stored").arg(clause.number).arg(kind.table);
                return false;
            }
        }
    }
    return true;
}

bool AddTheme(Database& database) {
    const std::unique_ptr<Recordset> rows = database.OpenRecordset(QStringLiteral("Theme"));
    return rows && AddRow(*rows, {{QStringLiteral("Theme"), kFirstTheme}});
}

bool WriteLibrary(const LibraryContent& content, const QString& path, QString& reason) {
    const std::unique_ptr<Database> database = Database::CreateDatabase(
        path, QStringLiteral(";pwd=") + BuildLibraryPassword(), LibraryFileFormat(), LibraryTables());
    if (!database) {
        reason = QStringLiteral("%1 could not be made").arg(path);
        return false;
    }
    const bool written = database->BeginTrans() && AddForms(*database, content.forms, reason) &&
                         AddClauses(*database, content.clauses, reason) && AddTheme(*database) &&
                         database->IndexText(QStringLiteral("Forms"), QStringLiteral("Content")) &&
                         database->CommitTrans();
    database->Close();
    if (!written && reason.isEmpty())
        reason = QStringLiteral("%1 could not be written").arg(path);
    return written;
}

// Removes an unfinished library and whatever the engine left beside it.
void RemoveLibrary(const QString& path) {
    for (const QString& ending :
         {QString(), QStringLiteral("-journal"), QStringLiteral("-wal"), QStringLiteral("-shm")})
        QFile::remove(path + ending);
}

} // namespace

bool BuildLibrary(const LibraryContent& content, const QString& path, QString& reason) {
    const QFileInfo target(path);
    if (target.isDir()) {
        reason = QStringLiteral("%1 is a folder").arg(path);
        return false;
    }
    if (!QDir().mkpath(target.absolutePath())) {
        reason = QStringLiteral("the folder of %1 could not be made").arg(path);
        return false;
    }
    const QString making = target.absoluteFilePath() + u'.' + QUuid::createUuid().toString(QUuid::Id128);
    if (!WriteLibrary(content, making, reason)) {
        RemoveLibrary(making);
        return false;
    }
    std::error_code error;
    std::filesystem::rename(making.toStdU16String(), target.absoluteFilePath().toStdU16String(), error);
    if (error) {
        reason = QStringLiteral("%1 could not be put in place").arg(path);
        RemoveLibrary(making);
        return false;
    }
    return true;
}

} // namespace quillbrook
