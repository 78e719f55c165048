#include "tests/support/test_library.h"

#include "library/library_format.h"
#include "platform/database/database.h"
#include "platform/rich_text/rtf_writer.h"

#include <QDir>
#include <QTextDocument>

static QString RichText(const QString& text) {
    QTextDocument document;
    document.setPlainText(text);
    return QString::fromLatin1(platform::WriteRtf(document));
}

static bool AddRow(platform::Recordset& rows, const std::vector<std::pair<const char*, QVariant>>& fields) {
    if (!rows.AddNew())
        return false;
    for (const auto& [name, value] : fields)
        if (!rows.SetField(QLatin1String(name), value))
            return false;
    return rows.Update();
}

TestLibrary::TestLibrary(const std::vector<TestForm>& forms) {
    if (!QDir(m_folder.path()).mkdir(QStringLiteral("Data")))
        return;
    const auto database = platform::Database::CreateDatabase(
        Path(), QStringLiteral(";pwd=") + quillbrook::BuildLibraryPassword(), quillbrook::LibraryFileFormat(),
        quillbrook::LibraryTables());
    if (!database)
        return;
    m_made = database->BeginTrans();
    const auto table = database->OpenRecordset(QStringLiteral("Forms"));
    for (const TestForm& form : forms)
        m_made = m_made && AddRow(*table, {{"Title", form.title},
                                           {"Category", form.category},
                                           {"SubCategory", form.subCategory},
                                           {"Content", RichText(form.content)},
                                           {"Favorites", form.favorite}});
    m_made = m_made && AddRow(*database->OpenRecordset(QStringLiteral("Jurat")),
                              {{"JuratNo", QStringLiteral("1")}, {"Content", QStringLiteral("SUBSCRIBED")}});
    m_made = m_made && AddRow(*database->OpenRecordset(QStringLiteral("Theme")), {{"Theme", 7}});
    m_made = m_made && database->IndexText(QStringLiteral("Forms"), QStringLiteral("Content")) &&
             database->CommitTrans();
    database->Close();
}

std::vector<TestForm> SomeForms() {
    return {
        {QStringLiteral("Jurat Alone"), QStringLiteral("Acknowledgment / Jurat"), QStringLiteral("Jurats"),
         QStringLiteral("SUBSCRIBED AND SWORN")},
        {QStringLiteral("Acknowledgment Alone"), QStringLiteral("Acknowledgment / Jurat"),
         QStringLiteral("Acknowledgments"), QStringLiteral("BEFORE ME")},
        {QStringLiteral("Second Acknowledgment"), QStringLiteral("Acknowledgment / Jurat"),
         QStringLiteral("Acknowledgments"), QStringLiteral("BEFORE ME, a notary")},
        {QStringLiteral("Affidavit of Loss"), QStringLiteral("Affidavits"), QStringLiteral("Loss"),
         QStringLiteral("I lost it")},
        {QStringLiteral("Heir's Affidavit"), QStringLiteral("Affidavits"), QStringLiteral("Loss"),
         QStringLiteral("We are the heirs")},
        {QStringLiteral("Secretary Certificate"), QStringLiteral("Corporations"), QStringLiteral("Board"),
         QStringLiteral("I, the secretary")},
        {QStringLiteral("Labor Complaint"), QStringLiteral("Labor-Management"), QStringLiteral("Complaints"),
         QStringLiteral("The complainant")},
        {QStringLiteral("Special Power"), QStringLiteral("Power of Attorney"), QStringLiteral("Special"),
         QStringLiteral("KNOW ALL MEN")},
    };
}
