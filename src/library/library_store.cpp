#include "library/library_store.h"

#include "library/library_format.h"

namespace quillbrook {

static QString Quoted(const QString& text) {
    return QLatin1Char('\'') + text + QLatin1Char('\'');
}

static std::optional<QString> TextOf(const std::unique_ptr<platform::Recordset>& rows, const QString& field) {
    if (!rows)
        return std::nullopt;
    const std::optional<QVariant> value = rows->Field(field);
    if (!value || !value->isValid()) // a missing value is no text
        return std::nullopt;
    return value->toString();
}

// Reads a field of every row, and leaves the recordset at its end. Rows whose field cannot be read or is
// missing give nothing.
static QStringList TextsOf(const std::unique_ptr<platform::Recordset>& rows, const QString& field) {
    QStringList texts;
    if (!rows)
        return texts;
    for (const QVariant& value : rows->ReadAll(field)) {
        if (value.isValid())
            texts.append(value.toString());
    }
    return texts;
}

LibraryStore::LibraryStore(PublicVariables& variables)
    : m_variables(variables)
    , MyFormsCategory(QStringLiteral("'My Forms'")) {}

bool LibraryStore::OpenLibrary(const QString& path, const QString& password) {
    m_variables.FormsDb = platform::Database::OpenDatabase(
        path, true, false, QStringLiteral(";pwd=") + password, LibraryFileFormat());
    return m_variables.FormsDb != nullptr;
}

void LibraryStore::CloseLibrary() {
    if (m_variables.FormsDb)
        m_variables.FormsDb->Close();
}

// Runs a statement. A refused one changes neither the query's recordset nor its position.
bool LibraryStore::Open(Query& query, Rows& rows, const QString& statement) {
    if (!m_variables.FormsDb)
        return false;
    Query opened = m_variables.FormsDb->CreateQueryDef(QString());
    if (!opened)
        return false;
    opened->setSQL(statement);
    Rows found = opened->OpenRecordset();
    query = std::move(opened);
    if (!found)
        return false;
    rows = std::move(found);
    return true;
}

bool LibraryStore::OpenTable(Rows& rows, const QString& table) {
    if (!m_variables.FormsDb)
        return false;
    Rows opened = m_variables.FormsDb->OpenRecordset(table);
    if (!opened)
        return false;
    rows = std::move(opened);
    return true;
}

std::optional<int> LibraryStore::OpenFormsTable() {
    if (!OpenTable(SearchRecordset, QStringLiteral("Forms")))
        return std::nullopt;
    return SearchRecordset->RecordCount();
}

QStringList LibraryStore::ListSubCategories(const QString& category) {
    Open(SearchQueryDef, SearchRecordset,
         QStringLiteral("SELECT SubCategory FROM Forms WHERE Category = ") + Quoted(category));
    return TextsOf(SearchRecordset, QStringLiteral("SubCategory"));
}

static QString TitlesStatement(const QString& category, const QString& subCategory) {
    return QStringLiteral("SELECT Title FROM Forms WHERE Category = ") + Quoted(category) +
           QStringLiteral(" AND SubCategory = ") + Quoted(subCategory);
}

QStringList LibraryStore::ListTitles(const QString& category, const QString& subCategory) {
    Open(SearchQueryDef, SearchRecordset, TitlesStatement(category, subCategory));
    return TextsOf(SearchRecordset, QStringLiteral("Title"));
}

QStringList LibraryStore::ListMyTitles(const QString& subCategory) {
    Open(MyFormsQueryDef, MyFormsRecordset, TitlesStatement(QStringLiteral("My Forms"), subCategory));
    return TextsOf(MyFormsRecordset, QStringLiteral("Title"));
}

QStringList LibraryStore::ListMyForms() {
    Open(MyFormsQueryDef, MyFormsRecordset,
         QStringLiteral("SELECT * FROM Forms WHERE Category = ") + MyFormsCategory);
    CloseMyFormsQuery();
    return TextsOf(MyFormsRecordset, QStringLiteral("SubCategory"));
}

QStringList LibraryStore::ListFavorites() {
    Open(SearchQueryDef, SearchRecordset, QStringLiteral("SELECT Title FROM Forms WHERE Favorites = 1"));
    return TextsOf(SearchRecordset, QStringLiteral("Title"));
}

static QString TitleStatement(const QString& title) {
    return QStringLiteral("SELECT * FROM Forms WHERE Title = ") + Quoted(title);
}

bool LibraryStore::FindFormByTitle(const QString& title) {
    const bool opened = Open(SearchQueryDef, SearchRecordset, TitleStatement(title));
    const bool moved = SearchRecordset && SearchRecordset->MoveFirst();
    return opened && moved;
}

std::optional<QString> LibraryStore::SearchField(const QString& field) const {
    return TextOf(SearchRecordset, field);
}

void LibraryStore::CloseSearchQuery() {
    if (SearchQueryDef)
        SearchQueryDef->Close();
}

bool LibraryStore::FindMyFormByTitle(const QString& title) {
    // a new result stands on its first row; an earlier one that stays in force stays where it stands, so that
    // no edit or deletion falls on a row that is not on display
    return Open(MyFormsQueryDef, MyFormsRecordset, TitleStatement(title)) && !MyFormsRecordset->AtEnd();
}

std::optional<QString> LibraryStore::MyFormsField(const QString& field) const {
    return TextOf(MyFormsRecordset, field);
}

bool LibraryStore::MyFormsAtEnd() const {
    return !MyFormsRecordset || MyFormsRecordset->AtEnd();
}

void LibraryStore::CloseMyFormsQuery() {
    if (MyFormsQueryDef)
        MyFormsQueryDef->Close();
}

std::optional<QString> LibraryStore::ReadClause(const QString& table, const QString& key) {
    Query query;
    Rows rows;
    if (!Open(query, rows,
              QStringLiteral("SELECT * FROM ") + table + QStringLiteral(" WHERE ") + table +
                  QStringLiteral("No = '") + key + QLatin1Char('\'')))
        return std::nullopt;
    rows->MoveFirst();
    const std::optional<QString> content = TextOf(rows, QStringLiteral("Content"));
    query->Close();
    return content;
}

QStringList LibraryStore::SearchForms(const QString& statement) {
    Open(SearchQueryDef, SearchRecordset, statement);
    return TextsOf(SearchRecordset, QStringLiteral("Title"));
}

bool LibraryStore::SetFavorite(const QString& title, int favorite) {
    // a refused statement must not mark the form of an earlier one
    const bool found = FindFormByTitle(title);
    const bool written = found && SearchRecordset->Edit() &&
                         SearchRecordset->SetField(QStringLiteral("Favorites"), favorite) &&
                         SearchRecordset->Update();
    CloseSearchQuery();
    return written;
}

// Begins a row of the user's own forms. A list of titles, which a refused statement leaves in force, has no
// room for a whole form: all forms of the collection come in its place.
bool LibraryStore::BeginMyForm() {
    const auto begin = [this] {
        return MyFormsRecordset && MyFormsRecordset->AddNew() &&
               MyFormsRecordset->SetField(QStringLiteral("Category"), QStringLiteral("My Forms"));
    };
    if (begin())
        return true;
    ListMyForms();
    return begin();
}

bool LibraryStore::AddMyForm(const QString& title, const QString& subCategory, const QString& content) {
    return BeginMyForm() && MyFormsRecordset->SetField(QStringLiteral("Title"), title) &&
           MyFormsRecordset->SetField(QStringLiteral("SubCategory"), subCategory) &&
           MyFormsRecordset->SetField(QStringLiteral("Content"), content) && MyFormsRecordset->Update();
}

bool LibraryStore::UpdateMyForm(const QString& title, const QString& subCategory, const QString& content) {
    return MyFormsRecordset && MyFormsRecordset->Edit() &&
           MyFormsRecordset->SetField(QStringLiteral("Category"), QStringLiteral("My Forms")) &&
           MyFormsRecordset->SetField(QStringLiteral("SubCategory"), subCategory) &&
           MyFormsRecordset->SetField(QStringLiteral("Title"), title) &&
           MyFormsRecordset->SetField(QStringLiteral("Content"), content) && MyFormsRecordset->Update();
}

bool LibraryStore::SaveMyFormText(const QString& title, const QString& content) {
    return MyFormsRecordset && MyFormsRecordset->Edit() &&
           MyFormsRecordset->SetField(QStringLiteral("Title"), title) &&
           MyFormsRecordset->SetField(QStringLiteral("Content"), content) && MyFormsRecordset->Update();
}

bool LibraryStore::DeleteMyForm() {
    return MyFormsRecordset && MyFormsRecordset->Delete();
}

std::optional<int> LibraryStore::ReadThemeNumber() {
    if (!OpenTable(ThemeRecordset, QStringLiteral("Theme")))
        return std::nullopt;
    ThemeRecordset->MoveFirst();
    const std::optional<QVariant> number = ThemeRecordset->Field(QStringLiteral("Theme"));
    if (!number || !number->isValid())
        return std::nullopt;
    return number->toInt();
}

bool LibraryStore::WriteThemeNumber(int number) {
    if (!OpenTable(ThemeRecordset, QStringLiteral("Theme")))
        return false;
    ThemeRecordset->MoveFirst();
    return ThemeRecordset->Edit() && ThemeRecordset->SetField(QStringLiteral("Theme"), number) &&
           ThemeRecordset->Update();
}

} // namespace quillbrook
