// Two real processes of the program, one after the other, over one library.
#include "tests/support/test_library.h"

#include <QLocalSocket>
#include <QtTest>

class SecondStartTest : public QObject {
    Q_OBJECT

    std::unique_ptr<TestLibrary> m_library;
    QTemporaryDir m_runtime;

    // The program beside the test's library, with a session's folder of its own.
    std::unique_ptr<QProcess> Start() {
        auto process = std::make_unique<QProcess>();
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_RUNTIME_DIR"_qs, m_runtime.path());
        process->setProcessEnvironment(environment);
        process->start(m_library->Folder() + u"/quillbrook"_qs, {});
        return process;
    }

    bool IsUp() const {
        QLocalSocket socket;
        socket.connectToServer(m_runtime.filePath(u"quillbrook.socket"_qs));
        if (!socket.waitForConnected(100))
            return false;
        socket.write("not its title\n");
        return socket.waitForReadyRead(1000);
    }

    // One answer is enough: while it loads the library, it may be busy at the next question.
    bool ComesUp() const {
        return QTest::qWaitFor([this] { return IsUp(); }, 15'000);
    }

private Q_SLOTS:
    void init() {
        m_library = std::make_unique<TestLibrary>(SomeForms());
        QVERIFY(m_library->IsMade());
        QVERIFY(QFile::copy(QStringLiteral(QUILLBROOK_BINARY_DIR "/quillbrook"),
                            m_library->Folder() + u"/quillbrook"_qs));
    }

    void TheSecondStartEndsAndLeavesTheFirstRunning() {
        const auto first = Start();
        QVERIFY(first->waitForStarted());
        QVERIFY(ComesUp());
        const auto second = Start();
        QVERIFY(second->waitForFinished(15000));
        QCOMPARE(second->exitStatus(), QProcess::NormalExit);
        QCOMPARE(second->exitCode(), 0);
        QCOMPARE(first->state(), QProcess::Running);
        first->kill();
        first->waitForFinished();
    }

    void AfterAKilledFirstTheNextStartComesUp() {
        auto first = Start();
        QVERIFY(ComesUp());
        first->kill();
        QVERIFY(first->waitForFinished());
        const auto next = Start();
        QVERIFY(ComesUp());
        QCOMPARE(next->state(), QProcess::Running);
        next->kill();
        next->waitForFinished();
    }
};

QTEST_MAIN(SecondStartTest)
#include "second_start_test.moc"
