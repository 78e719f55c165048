#pragma once

#include "app/public_variables.h"

#include <QStringList>
#include <optional>

namespace quillbrook {

// Every statement that is run against the library file, by name.
//
// A text goes into a statement between two apostrophes with nothing escaped. A statement that the engine
// refuses leaves the recordset of an earlier one in force, and what is read next is read from that: users see
// this, and it stays.
class LibraryStore {
public:
    explicit LibraryStore(PublicVariables& variables);

    // Opens the file exclusively for writing into FormsDb. On failure FormsDb is empty and false is given.
    bool OpenLibrary(const QString& path, const QString& password);
    void CloseLibrary();

    // Opens table Forms into SearchRecordset and gives its row count; empty when that failed.
    std::optional<int> OpenFormsTable();

    // One field of all rows found, in file order, with repeats; empty when nothing is found or a read fails.
    QStringList ListSubCategories(const QString& category);
    QStringList ListTitles(const QString& category, const QString& subCategory);
    QStringList ListMyTitles(const QString& subCategory);
    QStringList ListMyForms(); // the sub-categories of all the user's own forms
    QStringList ListFavorites();

    // Moves SearchRecordset to the form of this title. False when the statement was refused or nothing was
    // found; SearchField then reads what the earlier recordset still holds.
    bool FindFormByTitle(const QString& title);
    std::optional<QString> SearchField(const QString& field) const;
    void CloseSearchQuery();

    // The same through the objects of the My Forms page, whose current row later edits act on.
    bool FindMyFormByTitle(const QString& title);
    std::optional<QString> MyFormsField(const QString& field) const;
    bool MyFormsAtEnd() const; // no current row behind the last one; true without a recordset
    void CloseMyFormsQuery();

    // Text of a clause: `table` is Jurat, Caption or Verification. Empty when there is no such row.
    std::optional<QString> ReadClause(const QString& table, const QString& key);

    // Runs a search statement and gives the titles found.
    QStringList SearchForms(const QString& statement);

    // Each write is on disk when it returns; false when nothing was written.
    bool SetFavorite(const QString& title, int favorite);
    bool AddMyForm(const QString& title, const QString& subCategory, const QString& content);
    bool UpdateMyForm(const QString& title, const QString& subCategory, const QString& content);
    bool SaveMyFormText(const QString& title, const QString& content);
    bool DeleteMyForm();

    // The number of the colour theme; empty when it cannot be read.
    std::optional<int> ReadThemeNumber();
    bool WriteThemeNumber(int number);

private:
    using Query = std::unique_ptr<platform::QueryDef>;
    using Rows = std::unique_ptr<platform::Recordset>;

    bool Open(Query& query, Rows& rows, const QString& statement);
    bool BeginMyForm();
    bool OpenTable(Rows& rows, const QString& table);

    PublicVariables& m_variables;
    QString MyFormsCategory; // "My Forms" between two apostrophes
    Query SearchQueryDef;
    Rows SearchRecordset;
    Query MyFormsQueryDef;
    Rows MyFormsRecordset;
    Rows ThemeRecordset;
};

} // namespace quillbrook
