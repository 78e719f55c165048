// A real LibreOffice that dies or hangs while it is the user's turn, in its print dialog or its preview.
#include "output/print_commands.h"
#include "tests/support/writer_desk.h"

#include <QtTest>
#include <QtWidgets>
#include <signal.h>

using namespace quillbrook;

class WriterDialogAccidentsTest : public QObject {
    Q_OBJECT

    std::unique_ptr<RealWriter> m_writer;

private Q_SLOTS:
    void initTestCase() {
        if (const QString missing = RealWriter::Missing(); !missing.isEmpty())
            QSKIP(qPrintable(missing));
        QVERIFY2(qEnvironmentVariableIsSet("DISPLAY"), "a display is needed");
        m_writer = std::make_unique<RealWriter>();
    }
    void cleanupTestCase() { m_writer.reset(); }

    // One that hangs has a minute, as it may be busy with what the user wants.
    void TheCommandEnds_data() {
        QTest::addColumn<bool>("preview");
        QTest::addColumn<int>("signal");
        QTest::addColumn<int>("longest"); // seconds
        QTest::newRow("killed in the print dialog") << false << SIGKILL << 5;
        QTest::newRow("killed in the preview") << true << SIGKILL << 5;
        QTest::newRow("hangs in the print dialog") << false << SIGSTOP << 65;
        QTest::newRow("hangs in the preview") << true << SIGSTOP << 65;
    }
    void TheCommandEnds() {
        QFETCH(bool, preview);
        QFETCH(int, signal);
        QFETCH(int, longest);
        WriterDesk desk(*m_writer);
        TestWindow& window = desk.window;
        QVERIFY(window.Show());
        QElapsedTimer open;
        QElapsedTimer since;
        const Meanwhile accident([&] {
            if (person::WindowNamed(preview ? u"from Quillbrook"_qs : u"^Print"_qs) == 0)
                return false;
            if (!open.isValid())
                open.start();
            if (open.elapsed() < 1500) // the preview's window is there before the preview
                return false;
            m_writer->Signal(signal);
            since.start();
            return true;
        });
        if (preview)
            window->printCommands->PrintPreview();
        else
            window->printCommands->Print();
        QVERIFY(accident.HasActed());
        QVERIFY2(since.elapsed() < longest * 1000, qPrintable(QString::number(since.elapsed())));
        QVERIFY(desk.IsAtRest());
        QVERIFY(desk.Messages().empty());
        QVERIFY(m_writer->HasNoProcesses());
        QVERIFY(m_writer->HasNoLocks());
    }
};

QTEST_MAIN(WriterDialogAccidentsTest)
#include "writer_dialog_accidents_test.moc"
