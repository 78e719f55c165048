// Every form that the program ships with goes the whole way: from the library into the pane, completed with
// clauses, saved, read back and printed.
#include "clauses/clause_entries.h"
#include "library/category_browser.h"
#include "library/category_buttons.h"
#include "library/checker.h"
#include "library/clause_kinds.h"
#include "library/form_texts.h"
#include "library/library_builder.h"
#include "output/print_commands.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/pdf_pages.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;
using platform::RichTextBox;

namespace {

// All words of a text, without blanks, marks and numbers, which a page sets in its own way.
QStringList Words(const FormTexts& texts) {
    QStringList words;
    for (const Word& word : WordsOf(texts))
        words.append(word.text);
    return words;
}

QStringList Words(const QString& text) {
    return Words({{1, text}});
}

// The words of a PDF, those that a line's end divides at their hyphen being two as everywhere.
QStringList Words(const PdfPages& paper) {
    QStringList words;
    for (const PdfPage& page : paper.Pages()) // fonts draw some letters as one
        words += page.Texts().join(u' ').normalized(QString::NormalizationForm_KC);
    return Words(words.join(u' '));
}

// The first place where two lists of words part; empty when they do not.
QString Difference(const QStringList& found, const QStringList& wanted) {
    const auto [a, b] = std::mismatch(found.begin(), found.end(), wanted.begin(), wanted.end());
    if (a == found.end() && b == wanted.end())
        return {};
    const auto from = [](const QStringList& words, auto at) {
        return words.mid(at - words.begin(), 6).join(u' ');
    };
    return QStringLiteral("\"%1\" instead of \"%2\"").arg(from(found, a), from(wanted, b));
}

// Takes a printed word for two of the text when it is these: capitals that lean on one another, as in "WILL
// AND", leave no gap that a reader of the file sees.
bool TakeApart(const QString& word, QMap<QString, int>& counts) {
    for (qsizetype at = 1; at < word.size(); ++at) {
        const auto first = counts.find(word.left(at));
        const auto second = counts.find(word.mid(word[at] == u'\'' ? at + 1 : at));
        if (first != counts.end() && *first > 0 && second != counts.end() && *second > 0) {
            --*first;
            --*second;
            return true;
        }
    }
    return false;
}

// What paper lacks of the words shown, or has beyond them but for the marks of list items. A word that is too
// wide for its column is two on paper, and so found. The cells of a table are drawn in an order of their own,
// so no order is asked for.
QString Missing(const QStringList& printed, const QStringList& shown) {
    static const QRegularExpression mark(QStringLiteral("^([a-z]|[A-Z]|[ivxlc]+|[IVXLC]+)$"));
    QMap<QString, int> counts;
    for (const QString& word : shown)
        ++counts[word];
    QStringList beyond;
    for (const QString& word : printed)
        if (--counts[word] < 0)
            beyond.append(word);
    QStringList faults;
    for (const QString& word : beyond)
        if (!mark.match(word).hasMatch() && !TakeApart(word, counts))
            faults.append(QStringLiteral("\"%1\" too much").arg(word));
    for (auto word = counts.begin(); word != counts.end(); ++word)
        if (word.value() > 0)
            faults.append(QStringLiteral("no \"%1\"").arg(word.key()));
    return faults.join(u", "_qs);
}

// The entry of the menu that serves a marker.
QString EntryFor(QLatin1String marker) {
    for (const ClauseEntry& entry : kClauseEntries)
        if (QLatin1String(entry.marker) == marker)
            return QLatin1String(entry.name);
    return {};
}

const char* ButtonFor(const QString& category) {
    for (const CategoryButton& button : kCategoryButtons)
        if (category == QLatin1String(button.category))
            return button.name;
    return "";
}

} // namespace

class WholeLibraryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void EveryFormIsShownCompletedSavedAndPrinted_data();
    void EveryFormIsShownCompletedSavedAndPrinted();

private:
    void Select(const LibraryForm& form);
    void Complete(const LibraryForm& form);
    void Save(const LibraryForm& form);
    void Print(const LibraryForm& form);
    // Notes what is wrong with a form when it is anything.
    void Note(const LibraryForm& form, const char* step, const QString& fault);

    QTemporaryDir m_folder;
    CheckedLibrary m_library;
    std::unique_ptr<TestWindow> m_window;
    QStringList m_faults;
};

void WholeLibraryTest::initTestCase() {
    m_library = CheckLibrary(QStringLiteral(QUILLBROOK_SOURCE_DIR "/forms"));
    QVERIFY(m_library.problems.empty());
    QVERIFY(QDir(m_folder.path()).mkdir(u"Data"_qs));
    QString reason;
    QVERIFY2(BuildLibrary(m_library.content, m_folder.filePath(u"Data/Forms.dat"_qs), reason),
             qPrintable(reason));
    m_window = std::make_unique<TestWindow>(m_folder.path());
    QVERIFY(m_window->loaded);
    QVERIFY(m_window->Show());
    m_window->services.messageBox.answer = platform::MessageAnswer::Yes;
    m_window->services.printer.SetPaper(QPageSize(QSizeF(8.5, 13), QPageSize::Inch));
}

void WholeLibraryTest::EveryFormIsShownCompletedSavedAndPrinted_data() {
    QTest::addColumn<QString>("category");
    QSet<QString> categories;
    for (const LibraryForm& form : m_library.content.forms)
        if (!categories.contains(form.source.category)) {
            categories.insert(form.source.category);
            QTest::newRow(qPrintable(form.source.category)) << form.source.category;
        }
}

void WholeLibraryTest::EveryFormIsShownCompletedSavedAndPrinted() {
    QFETCH(QString, category);
    m_faults.clear();
    m_window->services.messageBox.shown.clear();
    int forms = 0;
    for (const LibraryForm& form : m_library.content.forms) {
        if (form.source.category != category)
            continue;
        ++forms;
        Select(form);
        Complete(form);
        Save(form);
        Print(form);
    }
    QVERIFY(forms > 0);
    QVERIFY2(m_faults.isEmpty(), qPrintable(m_faults.join(u'\n')));
    // nothing was said but the question before each print
    QCOMPARE(m_window->services.messageBox.shown.size(), std::size_t(forms));
}

void WholeLibraryTest::Note(const LibraryForm& form, const char* step, const QString& fault) {
    if (!fault.isEmpty())
        m_faults.append(QStringLiteral("%1: %2: %3").arg(form.file, QLatin1String(step), fault));
}

// By category, sub-category and title, as the user does; the pane then shows the words of the source.
void WholeLibraryTest::Select(const LibraryForm& form) {
    TestWindow& window = *m_window;
    window->SetTab(Tab::FormsExplorer);
    CategoryBrowser& browser = *window->categoryBrowser;
    platform::MyButton* button = browser.CategoryButton(QLatin1String(ButtonFor(form.source.category)));
    if (!button)
        return Note(form, "category", u"no button"_qs);
    QTest::mouseClick(button, Qt::LeftButton);
    browser.lstSubCategory->setText(form.source.subCategory);
    browser.lstTitle->setText(form.source.title);
    Note(form, "shown", Difference(Words(window->txtContent()->Text()), Words(TextsOf(form.source.blocks))));
}

// Each marker gives way to its clause, and a caption goes on top.
void WholeLibraryTest::Complete(const LibraryForm& form) {
    TestWindow& window = *m_window;
    window->SetTab(Tab::EditForm);
    RichTextBox* pane = window->txtContent();
    for (const QLatin1String marker : kMarkers) {
        while (pane->Text().contains(marker)) {
            const QString before = pane->Text();
            window->Menu(EntryFor(marker))->trigger();
            const QString after = pane->Text();
            if (after.count(marker) != before.count(marker) - 1 || after.size() < before.size() + 100)
                return Note(form, "clause", QStringLiteral("%1 did not give way").arg(marker));
        }
    }
    const QString before = pane->Text();
    window->Menu(u"mnuCaptionSC"_qs)->trigger();
    if (!pane->Text().endsWith(before) || pane->Text().size() < before.size() + 100)
        Note(form, "clause", u"no caption on top"_qs);
}

// What is saved is read as the same text, and written again as the same file.
void WholeLibraryTest::Save(const LibraryForm& form) {
    const RichTextBox* pane = (*m_window)->txtContent();
    const QString path = m_folder.filePath(u"saved.rtf"_qs);
    QFile::remove(path);
    if (pane->SaveFile(path) != 0)
        return Note(form, "saved", u"not written"_qs);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return Note(form, "saved", u"no file"_qs);
    const QByteArray source = file.readAll();
    RichTextBox again;
    if (!source.startsWith("{\\rtf") || !again.setTextRTF(source))
        return Note(form, "saved", u"no rich text"_qs);
    Note(form, "saved", Difference(Words(again.Text()), Words(pane->Text())));
    if (again.Text() != pane->Text())
        Note(form, "saved", u"other blanks or marks"_qs);
}

// Direct printing puts all words on paper.
void WholeLibraryTest::Print(const LibraryForm& form) {
    TestWindow& window = *m_window;
    window.services.printer.file = m_folder.filePath(u"printed.pdf"_qs);
    QFile::remove(window.services.printer.file);
    window->printCommands->PrintPaneDirect();
    const PdfPages paper(window.services.printer.file);
    if (!paper.IsRead() || paper.Count() < 1)
        return Note(form, "printed", u"no paper"_qs);
    Note(form, "printed", Missing(Words(paper), Words(window->txtContent()->Text())));
}

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen"); // hundreds of forms, none of which anybody sees
    QApplication application(argc, argv);
    WholeLibraryTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "whole_library_test.moc"
