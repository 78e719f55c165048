#include "library/html_subset.h"
#include "library/library_builder.h"
#include "library/library_format.h"
#include "platform/database/connection.h"

#include <QDir>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QtTest>

using namespace quillbrook;
using platform::Database;
using platform::Recordset;

namespace {

LibraryForm Form(const QString& title, const QString& category, const QString& body) {
    SourceProblems problems;
    LibraryForm form;
    form.file = title + QStringLiteral(".html");
    form.source.title = title;
    form.source.category = category;
    form.source.subCategory = QStringLiteral("Some");
    form.source.blocks = ReadBlocks(body, problems);
    return form;
}

LibraryContent Content() {
    return {{Form(u"First"_qs, u"Lease"_qs, u"<h1>HEADING</h1><p>Of the owner’s <b>house</b>.</p>"_qs),
             Form(u"Second"_qs, u"Sales"_qs, u"<ol type=\"(a)\"><li>item</li></ol>"_qs)},
            {{u"Jurat"_qs, 1, u"SUBSCRIBED\n\n\tNotary"_qs},
             {u"Jurat"_qs, 8, u"BEFORE ME"_qs},
             {u"Caption"_qs, 2, u"COURT"_qs},
             {u"Verification"_qs, 6, u"EXPLANATION"_qs}}};
}

std::unique_ptr<Database> Opened(const QString& path) {
    return Database::OpenDatabase(path, true, true, QStringLiteral(";pwd=") + BuildLibraryPassword(),
                                  LibraryFileFormat());
}

// One field of all rows of a table.
QStringList Fields(Database& database, const QString& table, const QString& field) {
    QStringList values;
    const std::unique_ptr<Recordset> rows = database.OpenRecordset(table);
    if (!rows || !rows->MoveFirst())
        return values;
    for (; !rows->AtEnd(); rows->MoveNext())
        values.append(rows->Field(field).value_or(QVariant()).toString());
    return values;
}

QByteArray BytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class LibraryBuilderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        m_folder = std::make_unique<QTemporaryDir>();
        m_path = m_folder->filePath(QStringLiteral("Data/Forms.dat"));
    }

    void TheBuiltFileHoldsAllRowsInOrder() {
        QString reason;
        QVERIFY2(BuildLibrary(Content(), m_path, reason), qPrintable(reason));
        const auto database = Opened(m_path);
        QVERIFY(database);
        QCOMPARE(Fields(*database, u"Forms"_qs, u"Title"_qs), QStringList({u"First"_qs, u"Second"_qs}));
        QCOMPARE(Fields(*database, u"Forms"_qs, u"Category"_qs), QStringList({u"Lease"_qs, u"Sales"_qs}));
        QCOMPARE(Fields(*database, u"Forms"_qs, u"SubCategory"_qs), QStringList({u"Some"_qs, u"Some"_qs}));
        QCOMPARE(Fields(*database, u"Forms"_qs, u"Favorites"_qs), QStringList({u"0"_qs, u"0"_qs}));
        QCOMPARE(Fields(*database, u"Jurat"_qs, u"JuratNo"_qs), QStringList({u"1"_qs, u"8"_qs}));
        QCOMPARE(Fields(*database, u"Jurat"_qs, u"Content"_qs),
                 QStringList({u"SUBSCRIBED\n\n\tNotary"_qs, u"BEFORE ME"_qs}));
        QCOMPARE(Fields(*database, u"Caption"_qs, u"CaptionNo"_qs), QStringList(u"2"_qs));
        QCOMPARE(Fields(*database, u"Verification"_qs, u"VerificationNo"_qs), QStringList(u"6"_qs));
        QCOMPARE(Fields(*database, u"Theme"_qs, u"Theme"_qs), QStringList(u"1"_qs));
    }

    void TheBuiltFileIsIndexed() {
        QString reason;
        QVERIFY2(BuildLibrary(Content(), m_path, reason), qPrintable(reason));
        const auto connection =
            platform::Connection::Open(m_path, true, true, BuildLibraryPassword(), LibraryFileFormat());
        QVERIFY(connection);
        const auto statement =
            platform::ParseStatement(u"SELECT * FROM Forms WHERE Content LIKE '*heading*'"_qs);
        const int table = connection->FindTable(u"Forms"_qs);
        const auto selection = platform::BuildSelection(connection->Table(table), *statement);
        const auto rows = connection->Select(table, *statement, *selection);
        QVERIFY(rows);
        QCOMPARE(rows->size(), std::size_t{1});
        QVERIFY(connection->LastEffort().byIndex);
        QCOMPARE(connection->LastEffort().looked, std::size_t{0});
    }

    void FormsAreRichText() {
        QString reason;
        QVERIFY2(BuildLibrary(Content(), m_path, reason), qPrintable(reason));
        const auto database = Opened(m_path);
        QVERIFY(database);
        const QStringList contents = Fields(*database, u"Forms"_qs, u"Content"_qs);
        QCOMPARE(contents.size(), 2);
        QVERIFY(contents[0].startsWith(u"{\\rtf1"));
        QVERIFY(contents[0].contains(u"HEADING"));
        QVERIFY(contents[0].contains(u"\\paperh18720"));
        QVERIFY(contents[0].contains(u"Times New Roman"));
        QVERIFY(contents[1].contains(u"\\listtable"));
        QVERIFY(contents[1].contains(u"\\ls1"));
    }

    void TheFileIsEncrypted() {
        QString reason;
        QVERIFY2(BuildLibrary(Content(), m_path, reason), qPrintable(reason));
        const QByteArray bytes = BytesOf(m_path);
        QVERIFY(bytes.size() > 1'000);
        QVERIFY(!bytes.contains("SUBSCRIBED"));
        QVERIFY(!bytes.contains("HEADING"));
        QVERIFY(!Database::OpenDatabase(m_path, true, true, QStringLiteral(";pwd=000000000000"),
                                        LibraryFileFormat()));
    }

    void ThePasswordIsTwelveDigits() {
        const QString password = BuildLibraryPassword();
        QCOMPARE(password.size(), 12);
        QVERIFY(
            std::all_of(password.begin(), password.end(), [](QChar c) { return c >= u'0' && c <= u'9'; }));
        QCOMPARE(BuildLibraryPassword(), password);
    }

    void AnOldLibraryIsReplaced() {
        QString reason;
        QVERIFY2(BuildLibrary(Content(), m_path, reason), qPrintable(reason));
        LibraryContent other = Content();
        other.forms.pop_back();
        QVERIFY2(BuildLibrary(other, m_path, reason), qPrintable(reason));
        const auto database = Opened(m_path);
        QVERIFY(database);
        QCOMPARE(Fields(*database, u"Forms"_qs, u"Title"_qs), QStringList(u"First"_qs));
        QCOMPARE(OtherFiles(), QStringList());
    }

    void AFailedBuildLeavesTheOldLibraryAndNothingElse() {
        QString reason;
        QVERIFY2(BuildLibrary(Content(), m_path, reason), qPrintable(reason));
        const QByteArray before = BytesOf(m_path);
        LibraryContent twice = Content();
        twice.forms[1].source.title = QStringLiteral("FIRST");
        QVERIFY(!BuildLibrary(twice, m_path, reason));
        QVERIFY2(reason.contains(u"Second.html"), qPrintable(reason));
        QCOMPARE(BytesOf(m_path), before);
        QCOMPARE(OtherFiles(), QStringList());
    }

    void AFolderIsNotOverwritten() {
        QVERIFY(QDir().mkpath(m_path));
        QString reason;
        QVERIFY(!BuildLibrary(Content(), m_path, reason));
        QVERIFY(!reason.isEmpty());
        QVERIFY(QDir(m_path).exists());
    }

private:
    // What stands beside the library.
    QStringList OtherFiles() const {
        QStringList files =
            QFileInfo(m_path).dir().entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        files.removeAll(QFileInfo(m_path).fileName());
        return files;
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
};

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    LibraryBuilderTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "library_builder_test.moc"
