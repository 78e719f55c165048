#include "platform/help/help_window.h"

#include "platform/controls/my_button.h"
#include "platform/help/help_browser.h"

#include <QBoxLayout>
#include <QDir>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPrintDialog>
#include <QPrinter>
#include <QRegularExpression>
#include <QScreen>
#include <QSplitter>
#include <QTabWidget>
#include <QTimer>
#include <QTreeWidget>

namespace platform {

namespace {

constexpr int kPageRole = Qt::UserRole;
constexpr int kMargin = 8;
constexpr QSize kWindow(1088, 700);
constexpr QSize kButton(84, 28);
constexpr int kLeastSide = 280;
constexpr double kPageMargin = 24;
constexpr int kMostMarks = 2000;

void OpenItem(HelpBrowser* browser, const QListWidgetItem* item) {
    if (item && item->data(kPageRole).isValid())
        browser->ShowPage(item->data(kPageRole).toString());
}

// A line to type in above a list; Down goes from one to the other.
QWidget* LineAndList(QLineEdit* line, QListWidget* list) {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kMargin);
    layout->addWidget(line);
    layout->addWidget(list);
    return page;
}

} // namespace

HelpWindow::HelpWindow(QWidget* owner)
    : QWidget(owner, Qt::Window)
    , browser(new HelpBrowser(m_book)) {
    setObjectName(QStringLiteral("HelpWindow"));
    setWindowTitle(tr("Help"));
    browser->setObjectName(QStringLiteral("HelpPage"));
    browser->setAccessibleName(tr("Help page"));
    browser->document()->setDocumentMargin(kPageMargin);
    MakeTabs();
    m_sides = new QSplitter;
    m_sides->addWidget(tabs);
    m_sides->addWidget(browser);
    m_sides->setStretchFactor(1, 1);
    m_sides->setChildrenCollapsible(false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    layout->setSpacing(kMargin);
    layout->addWidget(MakeButtons());
    layout->addWidget(m_sides, 1);
    const QRect free = screen()->availableGeometry();
    resize(kWindow.boundedTo(free.size() * 9 / 10));
    move(free.center() - rect().center());
    connect(browser, &QTextBrowser::sourceChanged, this, &HelpWindow::PageShown);
}

QWidget* HelpWindow::MakeButtons() {
    auto* bar = new QWidget;
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kMargin);
    const auto button = [&](const char* name, const QString& text, const QKeySequence& key) {
        auto* made = new MyButton(MyButton::Kind::Plain, bar);
        made->setObjectName(QLatin1String(name));
        made->setCaption(text);
        made->setToolButtonStyle(Qt::ToolButtonTextOnly);
        made->setFixedSize(kButton);
        made->setShortcut(key);
        made->setToolTip(text + QStringLiteral(" (") + key.toString(QKeySequence::NativeText) +
                         QLatin1Char(')'));
        layout->addWidget(made);
        return made;
    };
    back = button("HelpBack", tr("Back"), Qt::ALT | Qt::Key_Left);
    forward = button("HelpForward", tr("Forward"), Qt::ALT | Qt::Key_Right);
    home = button("HelpHome", tr("Home"), Qt::ALT | Qt::Key_Home);
    print = button("HelpPrint", tr("Print..."), Qt::CTRL | Qt::Key_P);
    layout->addStretch(1);
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(back, &MyButton::clicked, browser, &QTextBrowser::backward);
    connect(forward, &MyButton::clicked, browser, &QTextBrowser::forward);
    connect(browser, &QTextBrowser::backwardAvailable, back, &MyButton::setEnabled);
    connect(browser, &QTextBrowser::forwardAvailable, forward, &MyButton::setEnabled);
    connect(home, &MyButton::clicked, this, [this] { browser->ShowPage(m_book.HomePage()); });
    connect(print, &MyButton::clicked, this, &HelpWindow::AskAndPrint);
    return bar;
}

void HelpWindow::MakeTabs() {
    contents = new QTreeWidget;
    contents->setObjectName(QStringLiteral("HelpContents"));
    contents->setAccessibleName(tr("Contents"));
    contents->setHeaderHidden(true);
    contents->setFrameShape(QFrame::NoFrame);
    indexWord = new QLineEdit;
    indexWord->setObjectName(QStringLiteral("HelpIndexWord"));
    indexWord->setPlaceholderText(tr("Word to look up"));
    indexWord->setAccessibleName(tr("Word to look up"));
    indexWord->setClearButtonEnabled(true);
    index = new QListWidget;
    index->setObjectName(QStringLiteral("HelpIndex"));
    index->setAccessibleName(tr("Index"));
    searchWords = new QLineEdit;
    searchWords->setObjectName(QStringLiteral("HelpSearchWords"));
    searchWords->setPlaceholderText(tr("Words to search for"));
    searchWords->setAccessibleName(tr("Words to search for"));
    searchWords->setClearButtonEnabled(true);
    results = new QListWidget;
    results->setObjectName(QStringLiteral("HelpResults"));
    results->setAccessibleName(tr("Pages found"));
    tabs = new QTabWidget;
    tabs->addTab(contents, tr("Contents"));
    tabs->addTab(LineAndList(indexWord, index), tr("Index"));
    tabs->addTab(LineAndList(searchWords, results), tr("Search"));
    connect(tabs, &QTabWidget::tabBarClicked, this, [this](int tab) {
        if (auto* line = tabs->widget(tab)->findChild<QLineEdit*>())
            QTimer::singleShot(0, line, [line] { line->setFocus(); }); // the click itself ends with the tab
    });
    connect(contents, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        if (item && !item->data(0, kPageRole).toString().isEmpty())
            browser->ShowPage(item->data(0, kPageRole).toString());
    });
    connect(indexWord, &QLineEdit::textChanged, this, &HelpWindow::FilterIndex);
    connect(indexWord, &QLineEdit::returnPressed, this, [this] { OpenItem(browser, index->currentItem()); });
    connect(index, &QListWidget::itemClicked, this, [this](auto* item) { OpenItem(browser, item); });
    connect(index, &QListWidget::itemActivated, this, [this](auto* item) { OpenItem(browser, item); });
    connect(searchWords, &QLineEdit::textChanged, this, &HelpWindow::Search);
    connect(results, &QListWidget::currentItemChanged, this, [this](const QListWidgetItem* item) {
        m_marksWords = true;
        OpenItem(browser, item);
        MarkWords();
        m_marksWords = false;
    });
    connect(searchWords, &QLineEdit::returnPressed, this, [this] { results->setCurrentRow(0); });
}

bool HelpWindow::ShowFile(const QString& path) {
    if (!isVisible())
        tabs->setCurrentWidget(contents);
    if (m_book.IsOpen() && path == m_path) {
        browser->ShowPage(m_book.HomePage());
        return true;
    }
    m_path = path;
    const ChmFile::State state = m_book.Open(path);
    for (QWidget* part :
         {static_cast<QWidget*>(tabs), static_cast<QWidget*>(home), static_cast<QWidget*>(print)})
        part->setEnabled(m_book.IsOpen());
    browser->clearHistory();
    FillContents();
    FillIndex();
    results->clear();
    if (!m_book.IsOpen() || !browser->ShowPage(m_book.HomePage())) {
        TellTrouble(state);
        return false;
    }
    contents->setFocus();
    setWindowTitle(m_book.Title().isEmpty() ? tr("Help") : m_book.Title());
    return true;
}

void HelpWindow::TellTrouble(ChmFile::State state) {
    const bool isMissing = state == ChmFile::State::Missing;
    const QString heading = isMissing ? tr("The help file is missing") : tr("The help file is damaged");
    const QString what = isMissing ? tr("The help of this program was looked for here and could not be read:")
                                   : tr("This file does not hold together as a help file:");
    setWindowTitle(tr("Help"));
    browser->setSource(QUrl());
    browser->setHtml(QStringLiteral("<h2>%1</h2><p>%2</p><p><b>%3</b></p><p>%4</p>")
                         .arg(heading, what, QDir::toNativeSeparators(m_path).toHtmlEscaped(),
                              tr("The program itself works without it. Install the program again, or put the "
                                 "file back in its place, and open the help once more.")));
}

void HelpWindow::FillContents() {
    const QSignalBlocker blocker(contents);
    contents->clear();
    std::vector<QTreeWidgetItem*> path{contents->invisibleRootItem()}; // the last entry of each depth
    for (const HelpEntry& entry : m_book.Contents()) {
        const size_t depth = std::min(size_t(entry.depth), path.size() - 1);
        auto* item = new QTreeWidgetItem(path[depth], {entry.name});
        item->setData(0, kPageRole, entry.page);
        path.resize(depth + 1);
        path.push_back(item);
    }
    contents->expandAll();
    // wide enough for the longest entry, but no wider than half the window
    const int frame = 2 * kMargin + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    contents->header()->setStretchLastSection(false);
    contents->resizeColumnToContents(0);
    const int side = std::clamp(contents->columnWidth(0) + frame, kLeastSide, kWindow.width() / 2);
    contents->header()->setStretchLastSection(true);
    m_sides->setSizes({side, kWindow.width() - side});
}

void HelpWindow::FillIndex() {
    index->clear();
    for (const HelpEntry& entry : m_book.Index()) {
        auto* item = new QListWidgetItem(entry.name, index);
        item->setData(kPageRole, entry.page);
    }
    FilterIndex(indexWord->text());
}

void HelpWindow::FilterIndex(const QString& word) {
    QListWidgetItem* first = nullptr;
    for (int row = 0; row < index->count(); ++row) {
        QListWidgetItem* item = index->item(row);
        const bool fits = item->text().contains(word.trimmed(), Qt::CaseInsensitive);
        item->setHidden(!fits);
        if (fits && !first)
            first = item;
    }
    index->setCurrentItem(word.isEmpty() ? nullptr : first);
}

void HelpWindow::Search() {
    const QSignalBlocker blocker(results);
    results->clear();
    for (const QString& page : m_book.Search(searchWords->text())) {
        auto* item = new QListWidgetItem(m_book.PageTitle(page), results);
        item->setData(kPageRole, page);
    }
    if (results->count() == 0 && !searchWords->text().trimmed().isEmpty())
        (new QListWidgetItem(tr("No page has these words."), results))->setFlags(Qt::NoItemFlags);
    browser->setExtraSelections({}); // of the words before
}

// Shows where the words of the search stand on the page.
void HelpWindow::MarkWords() {
    QList<QTextEdit::ExtraSelection> marks;
    const QStringList words =
        searchWords->text().split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts);
    for (const QString& word : words) {
        const QRegularExpression pattern(QStringLiteral("\\b") + QRegularExpression::escape(word),
                                         QRegularExpression::CaseInsensitiveOption |
                                             QRegularExpression::UseUnicodePropertiesOption);
        QTextCursor hit = browser->document()->find(pattern);
        while (!hit.isNull() && hit.hasSelection() && marks.size() < kMostMarks) {
            QTextEdit::ExtraSelection mark;
            mark.cursor = hit;
            mark.format.setBackground(QColor(255, 226, 122));
            mark.format.setForeground(Qt::black);
            marks.append(mark);
            hit = browser->document()->find(pattern, hit);
        }
    }
    browser->setExtraSelections(marks);
    if (!marks.isEmpty()) {
        QTextCursor first = marks.first().cursor;
        first.clearSelection();
        browser->setTextCursor(first);
        browser->ensureCursorVisible();
    }
}

// The contents follow the page, whichever way it was come to.
void HelpWindow::PageShown(const QUrl& address) {
    browser->document()->setDocumentMargin(kPageMargin);
    if (!m_marksWords)
        browser->setExtraSelections({});
    const QSignalBlocker blocker(contents);
    const QString page = HelpBrowser::PageOf(address);
    for (QTreeWidgetItemIterator item(contents); *item; ++item) {
        if ((*item)->data(0, kPageRole).toString() == page) {
            contents->setCurrentItem(*item);
            return;
        }
    }
    contents->setCurrentItem(nullptr);
}

void HelpWindow::AskAndPrint() {
    QPrinter printer;
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted)
        PrintPage(printer);
}

bool HelpWindow::PrintPage(QPrinter& printer) const {
    printer.setDocName(browser->documentTitle());
    browser->document()->print(&printer);
    return printer.printerState() != QPrinter::Error;
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

} // namespace platform
