#pragma once

#include "search/hit_step.h"
#include "search/parse.h"

#include <QObject>

namespace quillbrook {

struct ResultLayout;
class LibraryStore;
class SearchPage;
class Workbench;
struct PublicVariables;
struct WindowState;

// The search, the display of a form that was found, and the walk over its hits.
class SearchCommands final : public QObject {
    Q_OBJECT

public:
    SearchCommands(SearchPage& page, Workbench& workbench, WindowState& state, PublicVariables& variables,
                   LibraryStore& store, QObject* parent);

    // cmdSearch: lists the titles of the forms that the query finds, and lays the page out by their number.
    void Search();

    // Loads the form selected in lstSearch into the reading pane, with the terms of the last search marked.
    void ShowSearchResult();

    void NextHit();
    void PreviousHit();

    void RemoveDuplicateResults();

Q_SIGNALS:
    void FormOpened(const QString& title); // for the history

private:
    void ResultClick();
    void LayOut(const ResultLayout& layout, const QString& caption);
    void Select(const HitSelection& hit);

    SearchPage& m_page;
    Workbench& m_workbench;
    WindowState& m_state;
    PublicVariables& m_variables;
    LibraryStore& m_store;
    SearchTerms m_terms; // of the last search
    HitWalk m_hits;
};

} // namespace quillbrook
