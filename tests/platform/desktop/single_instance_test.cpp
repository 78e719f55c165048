#include "platform/desktop/single_instance.h"

#include <QLocalSocket>
#include <QtTest>
#include <QtWidgets>
#include <atomic>
#include <thread>

using platform::SingleInstance;

class SingleInstanceTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_folder;

    std::unique_ptr<SingleInstance> Start() {
        return std::make_unique<SingleInstance>(u"test"_qs, u"The Title"_qs, m_folder.path());
    }

private Q_SLOTS:
    void TheFirstFindsNobody() {
        const auto first = Start();
        QVERIFY(!first->EarlierInstanceRuns());
    }

    void ALaterOneKnowsOfTheFirst() {
        const auto first = Start();
        const auto second = Start();
        QVERIFY(second->EarlierInstanceRuns());
        QVERIFY(!first->EarlierInstanceRuns());
    }

    void AfterTheFirstEndedTheNextIsTheFirst() {
        Start().reset();
        const auto next = Start();
        QVERIFY(!next->EarlierInstanceRuns());
    }

    void WhatAProcessThatDiedLeftBehindIsTakenOver() {
        QFile lock(m_folder.filePath(u"test.lock"_qs));
        QVERIFY(lock.open(QIODevice::WriteOnly));
        lock.write("999999999\nquillbrook\n" + QSysInfo::machineHostName().toUtf8() + "\n");
        lock.close();
        const auto first = Start();
        QVERIFY(!first->EarlierInstanceRuns());
    }

    void TheWindowOfTheTitleComesBackFromItsMinimisedState() {
        const auto first = Start();
        QWidget window;
        first->SetWindow(&window);
        window.showMinimized();
        const auto second = Start();
        bool found = false;
        // the first answers from its event loop, which has to run meanwhile
        std::thread asking([&] { found = second->BringForward(u"The Title"_qs); });
        QTRY_VERIFY(!window.isMinimized());
        asking.join();
        QVERIFY(found);
        QVERIFY(window.isVisible());
    }

    void AnotherTitleFindsNothing() {
        const auto first = Start();
        QWidget window;
        first->SetWindow(&window);
        const auto second = Start();
        std::atomic<int> found = -1;
        std::thread asking([&] { found = second->BringForward(u"Another"_qs) ? 1 : 0; });
        QTRY_COMPARE(found.load(), 0);
        asking.join();
        QVERIFY(!window.isVisible());
    }

    void AnInstanceWithoutAWindowIsNotFound() {
        const auto first = Start();
        const auto second = Start();
        std::atomic<int> found = -1;
        std::thread asking([&] { found = second->BringForward(u"The Title"_qs) ? 1 : 0; });
        QTRY_COMPARE(found.load(), 0);
        asking.join();
    }

    void AFirstThatChangedItsTitleIsNotFoundByTheOldOne() {
        const auto first = Start();
        QWidget window;
        first->SetWindow(&window);
        first->SetApplicationTitle(u"renamed"_qs);
        const auto second = Start();
        std::atomic<int> found = -1;
        std::thread asking([&] { found = second->BringForward(u"The Title"_qs) ? 1 : 0; });
        QTRY_COMPARE(found.load(), 0);
        asking.join();
    }

    void ATitleWithoutEndIsNotWaitedFor() {
        const auto first = Start();
        QLocalSocket socket;
        socket.connectToServer(m_folder.filePath(u"test.socket"_qs));
        QVERIFY(socket.waitForConnected());
        socket.write(QByteArray(100'000, 'x'));
        QTest::qWait(50);
        const auto second = Start();
        std::atomic<int> found = -1;
        std::thread asking([&] { found = second->BringForward(u"The Title"_qs) ? 1 : 0; });
        QTRY_COMPARE(found.load(), 0);
        asking.join();
    }
};

QTEST_MAIN(SingleInstanceTest)
#include "single_instance_test.moc"
