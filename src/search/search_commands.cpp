#include "search/search_commands.h"

#include "app/public_variables.h"
#include "app/workbench.h"
#include "editor/scratch_pane.h"
#include "library/library_store.h"
#include "library/repeats.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/focus.h"
#include "platform/controls/frame.h"
#include "platform/controls/geometry.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "search/paint_marks.h"
#include "search/prepare_search_string.h"
#include "search/query_box.h"
#include "search/result_blink.h"
#include "search/result_layout.h"
#include "search/search_page.h"

#include <QLabel>
#include <QScrollBar>

namespace quillbrook {

using platform::Height;
using platform::SetHeight;
using platform::SetTop;
using platform::Top;

constexpr int kLinesBelowAHit = 3;

SearchCommands::SearchCommands(SearchPage& page, Workbench& workbench, WindowState& state,
                               PublicVariables& variables, LibraryStore& store, QObject* parent)
    : QObject(parent)
    , m_page(page)
    , m_workbench(workbench)
    , m_state(state)
    , m_variables(variables)
    , m_store(store) {
    using platform::MyButton;
    connect(page.cmdSearch, &MyButton::Click, this, &SearchCommands::Search);
    connect(page.queryBox, &QueryBox::EnterPressed, this, &SearchCommands::Search);
    connect(page.lstSearch, &platform::ListBox::Click, this, &SearchCommands::ResultClick);
    connect(page.btnNextHit, &MyButton::Click, this, &SearchCommands::NextHit);
    connect(page.btnPreviousHit, &MyButton::Click, this, &SearchCommands::PreviousHit);
}

void SearchCommands::Search() {
    m_page.queryBox->UpdateSearchGuide();
    const QString query = m_page.cboQuery->Text();
    if (query.isEmpty()) {
        LayOut(kEmptyQueryLayout, QLatin1String(kEmptyQueryLayout.caption));
        platform::SetFocus(m_page.cboQuery);
        m_page.resultBlink->Start();
        return;
    }
    m_page.queryBox->AddToHistory();
    m_page.lstSearch->Clear();
    const ParsedQuery parsed = Parse(PrepareSearchString(query, m_page.Mode()));
    m_terms = parsed.terms;
    // without a statement, or with a refused one, the rows of the query before are read again
    m_page.lstSearch->AddItems(m_store.SearchForms(parsed.statement.value_or(QString())));
    RemoveDuplicateResults();
    m_page.HideHitControls();

    const int found = m_page.lstSearch->ListCount();
    LayOut(LayoutOf(found), ResultCaption(found));
    const HitControlTops tops =
        PlaceHitControls(Top(m_page.fmeSearchResult), Height(m_page.fmeSearchResult),
                         Height(m_page.btnPreviousHit), Height(m_page.lblDisplayHits));
    SetTop(m_page.btnPreviousHit, tops.buttons);
    SetTop(m_page.lblDisplayHits, tops.label);
    SetTop(m_page.btnNextHit, tops.buttons);
    m_page.resultBlink->Start();
}

void SearchCommands::LayOut(const ResultLayout& layout, const QString& caption) {
    m_page.fmeSearchResult->setCaption(caption);
    SetHeight(m_page.fmeSearchResult, layout.frameHeight);
    m_page.lstSearch->setVisible(layout.listShown);
    if (layout.listHeight)
        SetHeight(m_page.lstSearch, *layout.listHeight);
    SetTop(m_workbench.txtContent(), layout.paneTop);
    m_state.SearchPaneTop = layout.paneTop;
    m_workbench.FitContentPane();
}

void SearchCommands::RemoveDuplicateResults() {
    RemoveRepeats(*m_page.lstSearch);
}

void SearchCommands::ResultClick() {
    m_workbench.UncheckHelpContents();
    ShowSearchResult();
    platform::SetFocus(m_workbench.txtContent());
    m_page.btnPreviousHit->show();
    m_page.btnPreviousHit->setEnabled(false); // nothing lies before the first hit
    m_page.lblDisplayHits->show();
    m_page.btnNextHit->show();
}

void SearchCommands::ShowSearchResult() {
    const QString title = m_page.lstSearch->Text();
    if (title.isEmpty())
        return;
    platform::RichTextBox& scratch = *m_workbench.rtfContent();
    ResetScratchPane(scratch);
    m_store.FindFormByTitle(title);
    if (const std::optional<QString> content = m_store.SearchField(QStringLiteral("Content")))
        scratch.setTextRTF(*content);
    m_store.CloseSearchQuery();
    // with the query gone the form is shown plain
    const bool marks = !m_page.cboQuery->Text().isEmpty();
    const MarkedForm form = marks ? MarkForm(scratch.Text(), m_terms) : MarkedForm{};
    PaintMarks(scratch, form.marks);
    m_workbench.txtContent()->setTextRTF(scratch.TextRTF());
    m_hits.Start(form);
    if (!form.CurrentSearchWord.isEmpty())
        m_variables.CurrentSearchWord = form.CurrentSearchWord;
    Q_EMIT FormOpened(title);
}

void SearchCommands::NextHit() {
    platform::SetFocus(m_workbench.txtContent());
    m_page.btnPreviousHit->setEnabled(true);
    const QString text = m_workbench.txtContent()->Text();
    if (const std::optional<HitSelection> hit = m_hits.Next(text, m_variables.CurrentSearchWord))
        Select(*hit);
}

void SearchCommands::PreviousHit() {
    platform::SetFocus(m_workbench.txtContent());
    Select(m_hits.Previous(m_workbench.txtContent()->Text(), m_variables.CurrentSearchWord));
}

// A hit on the last line that is seen would have nothing below it to read.
static void ShowWithContext(platform::RichTextBox& pane) {
    pane.ensureCursorVisible();
    const QRect hit = pane.cursorRect();
    const int missing = hit.bottom() + kLinesBelowAHit * hit.height() - pane.viewport()->height();
    if (missing > 0) // but the hit itself stays
        pane.verticalScrollBar()->setValue(pane.verticalScrollBar()->value() +
                                           std::min(missing, std::max(hit.top(), 0)));
}

void SearchCommands::Select(const HitSelection& hit) {
    platform::RichTextBox* pane = m_workbench.txtContent();
    if (hit.start)
        pane->setSelStart(*hit.start);
    pane->setSelLength(hit.length);
    ShowWithContext(*pane);
}

} // namespace quillbrook
