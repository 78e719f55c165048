// The spelling and grammar check with a real LibreOffice and its dictionaries, answered through the dialog.
#include "output/file_commands.h"
#include "output/spelling_command.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/word/proofreading_dialog.h"
#include "platform/word/word_clipboard.h"
#include "tests/support/real_writer.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>
#include <deque>
#include <signal.h>

using namespace quillbrook;
using platform::ProofreadingDialog;

namespace {

const QString kHome = u"Quillbrook by Atty. Merrow"_qs;

// What the dialog shows, and the keys that answer it, one finding after the other.
class Answers {
public:
    explicit Answers(std::deque<std::function<void(ProofreadingDialog&)>> answers)
        : m_answers(std::move(answers)) {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { Answer(); });
        m_timer.start(20);
    }
    QStringList doubted; // as they came up
    QStringList offered;

private:
    void Answer() {
        auto* dialog = dynamic_cast<ProofreadingDialog*>(QApplication::activeModalWidget());
        if (!dialog || !dialog->IsAsking() || !dialog->isActiveWindow())
            return;
        m_timer.stop();
        const QTextCursor end = dialog->txtSentence->textCursor();
        const QString all = dialog->txtSentence->toPlainText();
        int start = end.position();
        QTextCursor at(dialog->txtSentence->document());
        while (start > 0) {
            at.setPosition(start);
            if (!at.charFormat().fontUnderline())
                break;
            --start;
        }
        doubted.append(all.mid(start, end.position() - start));
        QStringList texts;
        for (int i = 0; i < dialog->lstSuggestions->count(); ++i)
            texts.append(dialog->lstSuggestions->item(i)->text());
        offered.append(texts.join(u','));
        if (m_answers.empty()) {
            QTest::keyClick(dialog, Qt::Key_Escape);
            return;
        }
        const auto answer = m_answers.front();
        m_answers.pop_front();
        // the dialog stays from one finding to the next, so the timer goes on before the answer is worked off
        m_timer.start();
        answer(*dialog);
    }

    std::deque<std::function<void(ProofreadingDialog&)>> m_answers;
    QTimer m_timer;
};

void Change(ProofreadingDialog& dialog) {
    QTest::keyClick(dialog.txtChangeTo, Qt::Key_Return);
}
void ChangeAll(ProofreadingDialog& dialog) {
    QTest::mouseClick(dialog.btnChangeAll, Qt::LeftButton);
}
void Ignore(ProofreadingDialog& dialog) {
    QTest::mouseClick(dialog.btnIgnore, Qt::LeftButton);
}
void Add(ProofreadingDialog& dialog) {
    QTest::mouseClick(dialog.btnAddToDictionary, Qt::LeftButton);
}

struct Desk {
    explicit Desk(RealWriter& writer) {
        window.services.wordProcessor.real = &writer.Service();
        shown = window.Show();
        window->SetTab(Tab::EditForm);
    }
    void Load(const char* source) { window->txtContent()->setTextRTF(QByteArray(source)); }
    void Check() { window->spellingCommand->CheckSpelling(); }
    QString Text() { return window->txtContent()->Text(); }
    bool IsAtRest() {
        return window->windowTitle() == kHome && !QGuiApplication::overrideCursor() &&
               !window->Variables().WordApp;
    }
    QString LastMessage() {
        const auto& shown = window.services.messageBox.shown;
        return shown.empty() ? QString() : shown.back().text;
    }

    TestWindow window;
    bool shown = false;
};

const QString kCompleted = u"Spell & Grammar Check completed!   "_qs;

} // namespace

class WriterSpellingTest : public QObject {
    Q_OBJECT

    std::unique_ptr<RealWriter> m_writer;
    QTemporaryDir m_folder;

private Q_SLOTS:
    void initTestCase() {
        if (const QString missing = RealWriter::Missing(); !missing.isEmpty())
            QSKIP(qPrintable(missing));
        m_writer = std::make_unique<RealWriter>();
    }
    void init() {
        QFile::remove(m_folder.filePath(u"words"_qs));
        m_writer->Service().SetWords({u"affiant"_qs}, m_folder.filePath(u"words"_qs));
    }

    void CorrectionsComeBackWithTheirFormats() {
        Desk desk(*m_writer);
        desk.Load("{\\rtf1\\ansi The {\\b affiant hereby dilivers} this {\\i document} to the biuldings.\\par"
                  "\\trowd\\cellx4000\\cellx8000\\pard\\intbl The recieved amount\\cell The "
                  "deed\\cell\\row\\pard end.}");
        Answers answers({Change, Change, Change});
        desk.Check();
        QCOMPARE(answers.doubted, (QStringList{u"dilivers"_qs, u"biuldings"_qs, u"recieved"_qs}));
        QVERIFY2(answers.offered[1].contains(u"buildings"_qs), qPrintable(answers.offered[1]));
        QVERIFY(desk.Text().startsWith(u"The affiant hereby delivers this document to the buildings."_qs));
        QVERIFY(desk.Text().contains(u"The received amount"_qs));
        desk.window->txtContent()->setSelStart(22); // within "delivers"
        desk.window->txtContent()->setSelLength(3);
        QCOMPARE(desk.window->txtContent()->SelBold(), QVariant(true));
        desk.window->txtContent()->setSelStart(29);
        desk.window->txtContent()->setSelLength(3);
        QCOMPARE(desk.window->txtContent()->SelBold(), QVariant(false));
        QCOMPARE(desk.LastMessage(), kCompleted);
        QVERIFY(desk.IsAtRest());
        QVERIFY(m_writer->HasNoProcesses());
    }

    void FormatsOfEachKindSurvive() {
        Desk desk(*m_writer);
        platform::RichTextBox& pane = *desk.window->txtContent();
        const std::vector<std::function<void()>> formats = {
            [] {},
            [&] { pane.setSelColor(QColor(192, 0, 64)); },
            [&] { pane.setSelFontName(u"DejaVu Sans"_qs); },
            [&] { pane.setSelFontSize(18); },
            [&] { pane.setSelBold(true); },
            [&] { pane.setSelItalic(true); },
            [&] { pane.setSelUnderline(true); },
            [&] { pane.setSelStrikeThru(true); },
            [&] { pane.setSelAlignment(1); },
            [&] { pane.setSelAlignment(2); },
            [&] { pane.setSelIndent(720); },
            [&] { pane.setSelHangingIndent(360); },
            [&] { pane.setSelBullet(true); },
        };
        const QString line = u"The deed of the seller"_qs;
        const auto select = [&](std::size_t paragraph) {
            pane.setSelStart(int(paragraph) * int(line.size() + 1));
            pane.setSelLength(int(line.size()));
        };
        const auto told = [](const auto& fact) { return fact ? QVariant(*fact) : QVariant(); };
        const auto facts = [&](std::size_t paragraph) {
            select(paragraph);
            return QVariantList{pane.SelText(),
                                told(pane.SelColor()),
                                told(pane.SelFontName()),
                                told(pane.SelFontSize()),
                                told(pane.SelBold()),
                                told(pane.SelItalic()),
                                told(pane.SelUnderline()),
                                told(pane.SelStrikeThru()),
                                told(pane.SelAlignment()),
                                told(pane.SelIndent()),
                                told(pane.SelHangingIndent()),
                                told(pane.SelBullet())};
        };
        pane.setText(QStringList(qsizetype(formats.size()), line).join(u'\n'));
        std::vector<QVariantList> before;
        for (std::size_t i = 0; i < formats.size(); ++i) {
            select(i);
            formats[i]();
            before.push_back(facts(i));
            QVERIFY(i == 0 || before[i] != before[0]);
        }
        const QString text = pane.Text();
        const Answers answers({});
        desk.Check();
        QCOMPARE(answers.doubted, QStringList{});
        QCOMPARE(desk.LastMessage(), kCompleted);
        QCOMPARE(pane.Text(), text);
        for (std::size_t i = 0; i < formats.size(); ++i)
            QCOMPARE(facts(i), before[i]);
    }

    void ChangeAllAddAndIgnoreDoTheirWork() {
        Desk desk(*m_writer);
        desk.Load("{\\rtf1\\ansi The dilivery and the dilivery in Batangaz, by Batangaz, biulding.\\par}");
        Answers answers({ChangeAll, Add, Ignore});
        desk.Check();
        QCOMPARE(answers.doubted, (QStringList{u"dilivery"_qs, u"Batangaz"_qs, u"biulding"_qs}));
        QCOMPARE(desk.Text().trimmed(),
                 u"The delivery and the delivery in Batangaz, by Batangaz, biulding."_qs);
        desk.Load("{\\rtf1\\ansi In Batangaz.\\par}");
        Answers none({});
        desk.Check();
        QCOMPARE(none.doubted, QStringList{});
        QCOMPARE(desk.LastMessage(), kCompleted);
    }

    void ClosingTheDialogKeepsTheChangesMadeUpToThen() {
        Desk desk(*m_writer);
        desk.Load("{\\rtf1\\ansi The biulding and the dilivery.\\par}");
        Answers answers({Change}); // then Escape
        desk.Check();
        QCOMPARE(desk.Text().trimmed(), u"The building and the dilivery."_qs);
        QCOMPARE(desk.LastMessage(), kCompleted);
        QVERIFY(desk.IsAtRest());
    }

    void AnEmptyPaneComesBackEmpty() {
        Desk desk(*m_writer);
        desk.window->txtContent()->setText(QString());
        desk.Check();
        QCOMPARE(desk.Text(), QString());
        QCOMPARE(desk.LastMessage(), kCompleted);
    }

    // The pane keeps what it had sent, and the program goes on.
    void AWordProcessorThatDiesInTheMiddleTakesNothingAlong() {
        Desk desk(*m_writer);
        desk.Load("{\\rtf1\\ansi The biulding and the dilivery.\\par}");
        {
            Answers answers({[this](ProofreadingDialog& dialog) {
                                 m_writer->Signal(SIGKILL);
                                 Change(dialog);
                             },
                             Change, Change});
            QElapsedTimer timer;
            timer.start();
            desk.Check();
            QCOMPARE(answers.doubted, QStringList{u"biulding"_qs}); // nothing more is asked for nothing
            QCOMPARE(desk.Text().trimmed(), u"The biulding and the dilivery."_qs);
            QVERIFY(desk.IsAtRest());
            QVERIFY(m_writer->HasNoProcesses());
            QVERIFY(m_writer->HasNoLocks());
        }
        Answers second({Change, Change});
        desk.Check();
        QCOMPARE(desk.Text().trimmed(), u"The building and the delivery."_qs);
    }

    void TheWordsOfTheFieldAreKnown() {
        Desk desk(*m_writer);
        m_writer->Service().SetWords(platform::WordsOfFile(u":/words/legal.txt"_qs), QString());
        desk.Load("{\\rtf1\\ansi The affiant, the jurat, certiorari and mandamus; estafa, affreightment and "
                  "notarized jurats; biulding.\\par}");
        Answers answers({});
        desk.Check();
        QCOMPARE(answers.doubted, QStringList{u"biulding"_qs});
    }

    // Piece by piece, as no answer may take long.
    void ALongTextIsGoneThroughToItsEnd() {
        Desk desk(*m_writer);
        QByteArray source = "{\\rtf1\\ansi ";
        for (int i = 0; i < 5000; ++i)
            source += "The deed.\\par ";
        for (int i = 0; i < 600; ++i)
            source += "It is the deed of the seller. ";
        desk.Load((source + "The biulding.\\par}").constData());
        Answers answers({Change});
        desk.Check();
        QCOMPARE(answers.doubted, QStringList{u"biulding"_qs});
        QVERIFY(desk.Text().trimmed().endsWith(u"The building."_qs));
    }

    void GrammarIsCheckedToo() {
        Desk desk(*m_writer);
        desk.Load("{\\rtf1\\ansi The deed is signed , by him.\\par}");
        Answers answers({});
        desk.Check();
        if (answers.doubted.isEmpty())
            QSKIP("LibreOffice has no rules of grammar installed here");
        QCOMPARE(answers.doubted[0], u" ,"_qs);
    }

    void ADocumentOfTheWordProcessorIsOpened() {
        Desk desk(*m_writer);
        QFile source(m_folder.filePath(u"source.rtf"_qs));
        QVERIFY(source.open(QIODevice::WriteOnly));
        source.write("{\\rtf1\\ansi Deed of {\\b Sale}\\par Second\\par}");
        source.close();
        QProcess convert;
        convert.start(u"soffice"_qs, {u"-env:UserInstallation=file://"_qs + m_folder.filePath(u"profile"_qs),
                                      u"--headless"_qs, u"--convert-to"_qs, u"doc"_qs, u"--outdir"_qs,
                                      m_folder.path(), source.fileName()});
        QVERIFY(convert.waitForFinished(60'000));
        desk.window.services.commonDialog.files = {m_folder.filePath(u"source.doc"_qs)};
        desk.window->fileCommands->Open();
        QVERIFY2(desk.Text().startsWith(u"Deed of Sale\nSecond"_qs), qPrintable(desk.Text()));
        QCOMPARE(desk.window->windowTitle(), u"source.doc"_qs);
        desk.window->txtContent()->setSelStart(9);
        desk.window->txtContent()->setSelLength(3);
        QCOMPARE(desk.window->txtContent()->SelBold(), QVariant(true));
        QVERIFY(m_writer->HasNoProcesses());
    }
};

QTEST_MAIN(WriterSpellingTest)
#include "writer_spelling_test.moc"
