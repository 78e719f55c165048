// A small encrypted database in a temporary folder, for the tests of the database.
#pragma once

#include "platform/database/database.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace platform::test {

constexpr FileFormat kFormat{.applicationId = 0x54455354, .version = 3};
inline const QString kConnect = QStringLiteral(";pwd=open sesame");

inline std::vector<TableDef> Tables() {
    using Kind = ColumnDef::Kind;
    return {
        {QStringLiteral("Forms"),
         {{.name = QStringLiteral("Title"), .kind = Kind::Text, .required = true, .unique = true},
          {.name = QStringLiteral("Category")},
          {.name = QStringLiteral("SubCategory")},
          {.name = QStringLiteral("Content"), .kind = Kind::LongText},
          {.name = QStringLiteral("Favorites"), .kind = Kind::Number}}},
        {QStringLiteral("Theme"),
         {{.name = QStringLiteral("Theme"), .kind = Kind::Number, .defaultNumber = 1}}},
    };
}

struct TestForm {
    QString title;
    QString category;
    QString subCategory;
    QString content;
};

inline bool Add(Recordset& rows, const TestForm& form) {
    return rows.AddNew() && rows.SetField(QStringLiteral("Title"), form.title) &&
           rows.SetField(QStringLiteral("Category"), form.category) &&
           rows.SetField(QStringLiteral("SubCategory"), form.subCategory) &&
           rows.SetField(QStringLiteral("Content"), form.content) && rows.Update();
}

class TemporaryLibrary {
public:
    QString FolderPath() const { return m_folder.path(); }
    QString Path() const { return m_folder.filePath(QStringLiteral("library.dat")); }
    QStringList Files() const {
        return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    std::unique_ptr<Database> Create() const {
        return Database::CreateDatabase(Path(), kConnect, kFormat, Tables());
    }
    std::unique_ptr<Database> Open(bool exclusive = true, bool readOnly = false) const {
        return Database::OpenDatabase(Path(), exclusive, readOnly, kConnect, kFormat);
    }

    static QByteArray Bytes(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QByteArray Bytes() const { return Bytes(Path()); }
    bool SetBytes(const QByteArray& bytes) const {
        QFile file(Path());
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    }

private:
    QTemporaryDir m_folder;
};

inline std::unique_ptr<Recordset> Run(Database& database, const QString& statement) {
    const std::unique_ptr<QueryDef> query = database.CreateQueryDef();
    query->setSQL(statement);
    return query->OpenRecordset();
}

// The texts of a field over all rows; a row whose field cannot be read gives "<none>".
inline QStringList Texts(Recordset& rows, const QString& field = QStringLiteral("Title")) {
    QStringList texts;
    for (bool there = rows.MoveFirst(); there; there = rows.MoveNext())
        texts.append(rows.Field(field).value_or(QStringLiteral("<none>")).toString());
    return texts;
}

} // namespace platform::test
