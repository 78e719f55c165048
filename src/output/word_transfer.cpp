#include "output/word_transfer.h"

#include "app/public_variables.h"
#include "app/workbench.h"
#include "output/paper_commands.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/services.h"
#include "platform/word/word_application.h"
#include "platform/word/word_clipboard.h"

#include <array>
#include <cmath>
#include <limits>

namespace quillbrook {

using platform::PageLength;
using platform::WordApplication;

namespace {

struct PageRow {
    PageLength length;
    PageBox box;
};

// In the order in which they are sent.
constexpr std::array<PageRow, 6> kPageRows = {{
    {PageLength::PageWidth, PageBox::Width},
    {PageLength::PageHeight, PageBox::Height},
    {PageLength::LeftMargin, PageBox::Left},
    {PageLength::RightMargin, PageBox::Right},
    {PageLength::TopMargin, PageBox::Top},
    {PageLength::BottomMargin, PageBox::Bottom},
}};

} // namespace

WordTransfer::WordTransfer(Workbench& workbench, PaperCommands& paper, PublicVariables& variables,
                           platform::Services& services)
    : m_workbench(workbench)
    , m_paper(paper)
    , m_variables(variables)
    , m_services(services) {}

bool WordTransfer::CreateObject() {
    Release();
    m_variables.WordApp = m_services.wordProcessor.CreateWordApplication(m_workbench.Window());
    return m_variables.WordApp != nullptr;
}

WordApplication* WordTransfer::WordApp() const {
    return m_variables.WordApp.get();
}

void WordTransfer::PutPaneOnClipboard() {
    platform::SetClipboardRTF(m_workbench.ActivePane()->TextRTF().toLatin1());
}

void WordTransfer::FillDocument() {
    WordApplication* word = WordApp();
    if (!word)
        return;
    word->SelectionPaste();
    word->SelectionWholeStory();
    word->SelectionFontColor(platform::wdColorAutomatic);
    word->SelectionHomeKey(platform::wdStory);
    word->SetCaption(QStringLiteral("from Quillbrook"));
    TransferPage(*word);
}

// The boxes are read one by one, each right before it is sent.
void WordTransfer::TransferPage(WordApplication& word) {
    for (const PageRow& row : kPageRows) {
        const double inches = m_paper.Model().Inches(row.box);
        if (std::abs(inches) > double(std::numeric_limits<float>::max()))
            continue; // the word processor's lengths do not hold it
        if (const auto points = word.InchesToPoints(float(inches)))
            word.SetPageSetup(row.length, *points);
    }
}

void WordTransfer::CloseAndQuit() {
    if (WordApplication* word = WordApp()) {
        word->ActiveDocumentClose(platform::wdDoNotSaveChanges);
        word->Quit(platform::wdDoNotSaveChanges);
    }
    Release();
}

void WordTransfer::Release() {
    m_variables.WordApp.reset();
}

} // namespace quillbrook
