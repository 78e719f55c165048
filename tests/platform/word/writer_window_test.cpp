// Which windows a real LibreOffice shows while a command runs, and the page that it is given.
#include "output/print_commands.h"
#include "tests/support/writer_desk.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

namespace {

const QString kWriterWindow = u"from Quillbrook"_qs;

QString Run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(60'000);
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

QString TitleOfFrontWindow() {
    return Run(u"xdotool"_qs, {u"getactivewindow"_qs, u"getwindowname"_qs});
}

// Whether the screen shows one sheet of Long paper, from its top to its foot. Half way down it has no text.
bool ShowsOneWholeSheet() {
    const QImage screen = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
    const auto isPaper = [&screen](int x, int y) {
        return screen.valid(x, y) && screen.pixelColor(x, y) == QColor(Qt::white);
    };
    const int middle = screen.height() / 2;
    int left = 0;
    int width = 0;
    for (int x = 0; x < screen.width(); ++x) {
        int end = x;
        while (isPaper(end, middle))
            ++end;
        if (end - x > 200 && width > 0)
            return false; // a second sheet
        if (end - x > 200) {
            left = x;
            width = end - x;
        }
        x = end;
    }
    int top = middle;
    int foot = middle;
    while (isPaper(left, top))
        --top;
    while (isPaper(left, foot))
        ++foot;
    return width > 0 && std::abs((foot - top - 1) * 8.5 / width - 13) < 0.3;
}

} // namespace

class WriterWindowTest : public QObject {
    Q_OBJECT

    std::unique_ptr<RealWriter> m_writer;

private Q_SLOTS:
    void initTestCase() {
        if (const QString missing = RealWriter::Missing(); !missing.isEmpty())
            QSKIP(qPrintable(missing));
        QVERIFY2(qEnvironmentVariableIsSet("DISPLAY"), "a display is needed");
    }
    void init() { m_writer = std::make_unique<RealWriter>(); }
    void cleanup() { m_writer.reset(); }

    void ItComesInFrontOfOurWindow_data() {
        QTest::addColumn<bool>("preview");
        QTest::newRow("export") << false;
        QTest::newRow("preview") << true;
    }
    void ItComesInFrontOfOurWindow() {
        QFETCH(bool, preview);
        // the new window may be in front by itself: ours comes back before it is brought there
        bool ours = false;
        WriterDesk desk(*m_writer);
        Accident accident(*m_writer, u"Activate"_qs, [&] {
            QVERIFY(person::SeesWindow(kWriterWindow));
            Run(u"xdotool"_qs,
                {u"windowactivate"_qs, u"--sync"_qs, QString::number(desk.window->effectiveWinId())});
            ours = QTest::qWaitFor([&] { return TitleOfFrontWindow() == desk.window->windowTitle(); });
        });
        desk.window.services.wordProcessor.real = &accident;
        QVERIFY(desk.window.Show());
        bool inFront = false;
        const auto look = [&inFront] { return inFront = inFront || TitleOfFrontWindow() == kWriterWindow; };
        if (preview) {
            const Meanwhile person([&, since = QElapsedTimer()]() mutable {
                if (!accident.Happened())
                    return false;
                if (!since.isValid())
                    since.start();
                return (look() || since.elapsed() > 10'000) && person::Close(kWriterWindow);
            });
            desk.window->printCommands->PrintPreview();
        } else {
            desk.Commands().ExportPane();
            (void)QTest::qWaitFor(look, 10'000);
        }
        QVERIFY(ours);
        QVERIFY(inFront);
    }

    void ItStaysHiddenBehindItsPrintDialog() {
        WriterDesk desk(*m_writer);
        QVERIFY(desk.window.Show());
        bool shown = false;
        const Meanwhile person([&shown] {
            if (person::WindowNamed(u"^Print"_qs) == 0)
                return false;
            shown = person::SeesWindow(kWriterWindow, 1000);
            return person::Press(u"^Print"_qs, u"Escape"_qs);
        });
        desk.window->printCommands->Print();
        QVERIFY(person.HasActed());
        QVERIFY(!shown);
    }

    void ThePreviewShowsOneWholePage() {
        bool whole = false;
        Accident look(*m_writer, u"PrintPreview"_qs, [&whole] {
            whole = QTest::qWaitFor(ShowsOneWholeSheet);
            QVERIFY(person::Close(kWriterWindow));
        });
        WriterDesk desk(*m_writer);
        desk.window.services.wordProcessor.real = &look;
        desk.window->txtContent()->setTextRTF(QByteArray("{\\rtf1 one\\page two\\page three\\par}"));
        desk.window->printCommands->PrintPreview();
        QVERIFY(whole);
    }

    void EachLengthOfThePageArrives() {
        const QTemporaryDir folder;
        const QString document = folder.filePath(u"page.doc"_qs);
        WriterDesk desk(*m_writer);
        const std::pair<QString, QString> texts[] = {
            {u"txtWidth"_qs, u"9"_qs},  {u"txtHeight"_qs, u"14"_qs}, {u"txtLeft"_qs, u"1.25"_qs},
            {u"txtRight"_qs, u".5"_qs}, {u"txtTop"_qs, u"2"_qs},     {u"txtBottom"_qs, u".75"_qs}};
        QWidget* setup = desk.window->Windows().Load(u"frmPageSetup"_qs);
        for (const auto& [box, text] : texts)
            setup->findChild<QLineEdit*>(box)->setText(text);
        desk.window.services.commonDialog.files = {document};
        desk.Commands().SaveAsMSDoc();
        // what another LibreOffice reads in it
        Run(u"soffice"_qs,
            {u"-env:UserInstallation=file://"_qs + folder.filePath(u"reader"_qs), u"--headless"_qs,
             u"--convert-to"_qs, u"fodt"_qs, u"--outdir"_qs, folder.path(), document});
        QFile read(folder.filePath(u"page.fodt"_qs));
        QVERIFY(read.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(read.readAll());
        const QString page =
            QRegularExpression(u"<style:page-layout-properties [^>]*fo:page-width=\"9in\"[^>]*>"_qs)
                .match(text)
                .captured();
        for (const QString& length :
             {u"page-height=\"14in\""_qs, u"margin-left=\"1.25in\""_qs, u"margin-right=\"0.5in\""_qs,
              u"margin-top=\"2in\""_qs, u"margin-bottom=\"0.75in\""_qs})
            QVERIFY2(page.contains(u"fo:"_qs + length), qPrintable(length));
    }
};

QTEST_MAIN(WriterWindowTest)
#include "writer_window_test.moc"
