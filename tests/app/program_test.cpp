// The start: the splash, the load of the main window behind it, and the hand-over.
#include "accessory/splash_window.h"
#include "app/main_window.h"
#include "app/program.h"
#include "library/category_browser.h"
#include "platform/controls/list_box.h"
#include "platform/desktop/single_instance.h"
#include "tests/support/scripted_services.h"
#include "tests/support/test_library.h"

#include <QtTest>
#include <QtWidgets>
#include <atomic>
#include <functional>
#include <thread>

using namespace quillbrook;

// A question that stands until the main window is on the screen and the event loop has been at rest.
class LastingQuestion final : public platform::MessageBoxService {
public:
    platform::MessageAnswer Show(QWidget* parent, const QString&, platform::MessageButtons,
                                 platform::MessageIcon, const QString&) override {
        ++asked;
        QEventLoop loop;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, &loop, [&] {
            if (parent->isVisible())
                QTimer::singleShot(100, &loop, &QEventLoop::quit);
        });
        QTimer::singleShot(20000, &loop, &QEventLoop::quit);
        watch.start(10);
        loop.exec();
        return platform::MessageAnswer::No;
    }

    int asked = 0;
};

// A start that is the first of its session for real, so that a second one finds it.
struct FirstStart {
    const QString title = u"Quillbrook PRO"_qs;
    TestLibrary library{SomeForms()};
    QTemporaryDir runtime;
    platform::SingleInstance instance{u"test"_qs, title, runtime.path()};
    ScriptedServices scripted;
    platform::Services services{
        scripted.messageBox,    instance,       scripted.commonDialog, scripted.printer,
        scripted.wordProcessor, scripted.sound, scripted.help};
    frmProgram program{services, library.Folder()};
};

class ProgramTest : public QObject {
    Q_OBJECT

    // What a start showed, until the hand-over.
    struct Watched {
        QStringList captions; // of the splash, the first one included
        QStringList captionsWithMainWindow;
        bool loadedBeforeTheDots = false; // the main window, whole
        bool splashHiddenNotGone = false; // when the main window is shown
        qint64 lastCaptionAt = 0;         // ms
        qint64 mainWindowAt = 0;
    };

    class ShowFilter final : public QObject {
    public:
        explicit ShowFilter(std::function<void()> shown)
            : m_shown(std::move(shown)) {}
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::Show)
                m_shown();
            return false;
        }

    private:
        std::function<void()> m_shown;
    };

    static Watched Run(frmProgram& program) {
        Watched watched;
        ShowFilter filter(
            [&] { watched.splashHiddenNotGone = program.Splash() && program.Splash()->isHidden(); });
        QElapsedTimer clock;
        clock.start();
        program.Start();
        frmSplash* splash = program.Splash();
        watched.captions.append(splash->windowTitle());
        QObject::connect(splash, &QWidget::windowTitleChanged, splash, [&](const QString& caption) {
            if (watched.captions.size() == 1 && program.MainWindow()) {
                watched.loadedBeforeTheDots =
                    program.MainWindow()->Windows().IsLoaded(u"frmPageSetup"_qs); // the load's last step
                program.MainWindow()->installEventFilter(&filter);
            }
            watched.captions.append(caption);
            watched.lastCaptionAt = clock.elapsed();
            if (program.MainWindow() && program.MainWindow()->isVisible())
                watched.captionsWithMainWindow.append(caption);
        });
        [&] { QTRY_VERIFY_WITH_TIMEOUT(!program.Splash(), 20000); }();
        watched.mainWindowAt = clock.elapsed();
        return watched;
    }

private Q_SLOTS:
    void TheStartObjectNamesTheHelpFileBesideTheProgram() {
        const TestLibrary library(SomeForms());
        ScriptedServices services;
        const frmProgram program(services.services, library.Folder());
        QCOMPARE(services.help.helpFile, library.Folder() + u"/Help.chm"_qs);
        QVERIFY(!program.MainWindow());
    }

    void TheSplashIsShownFirstAndTheMainWindowIsNotEvenLoaded() {
        const TestLibrary library(SomeForms());
        ScriptedServices services;
        frmProgram program(services.services, library.Folder());
        program.Start();
        QVERIFY(program.Splash()->isVisible());
        QVERIFY(!program.MainWindow());
        QCOMPARE(services.sound.beeps, 1);
    }

    void NeitherTheSplashNorTheMainWindowIsModal() {
        const TestLibrary library(SomeForms());
        ScriptedServices services;
        frmProgram program(services.services, library.Folder());
        program.Start();
        QVERIFY(!program.Splash()->isModal());
        QTRY_VERIFY_WITH_TIMEOUT(!program.Splash(), 20000);
        QVERIFY(program.MainWindow()->isVisible());
        QVERIFY(!program.MainWindow()->isModal());
        program.MainWindow()->Store().CloseLibrary();
    }

    void TheDotsRunThroughTheirTextsAndTheMainWindowFollows() {
        const TestLibrary library(SomeForms());
        ScriptedServices services;
        frmProgram program(services.services, library.Folder());
        const Watched watched = Run(program);
        QStringList texts{QLatin1String(kSplashCaption)};
        for (const SplashStep& step : kSplashSteps)
            texts.append(QLatin1String(step.caption));
        QCOMPARE(watched.captions, texts);
        QVERIFY(watched.loadedBeforeTheDots);
        QVERIFY(watched.captionsWithMainWindow.isEmpty());
        QVERIFY(watched.splashHiddenNotGone);
        QVERIFY2(watched.mainWindowAt - watched.lastCaptionAt >= 45, // a timer of 50 ms, as the clock sees it
                 qPrintable(QString::number(watched.mainWindowAt - watched.lastCaptionAt)));
        QVERIFY(program.MainWindow()->isVisible());
        QCOMPARE(program.MainWindow()->windowTitle(), u"Quillbrook by Atty. Merrow"_qs);
        QCOMPARE(services.sound.beeps, 1);
        program.MainWindow()->Store().CloseLibrary();
    }

    void AfterTheHandOverNoSplashIsLeft() {
        const TestLibrary library(SomeForms());
        ScriptedServices services;
        frmProgram program(services.services, library.Folder());
        program.Start();
        const QPointer<frmSplash> splash = program.Splash();
        QTRY_VERIFY_WITH_TIMEOUT(!program.Splash(), 20000);
        QVERIFY(!splash || !splash->isVisible());
        QTRY_VERIFY(!splash);
        for (const QWidget* window : QApplication::topLevelWidgets())
            QVERIFY2(window->isHidden() || window == program.MainWindow(), qPrintable(window->objectName()));
        // nor does the exit bring one up
        QVERIFY(program.MainWindow()->close());
        QVERIFY(program.MainWindow()->Windows().Loaded().isEmpty());
        QCOMPARE(services.sound.beeps, 1);
    }

    void TheListOfTitlesHasTheKeyboard() {
        const TestLibrary library(SomeForms());
        ScriptedServices services;
        frmProgram program(services.services, library.Folder());
        Run(program);
        QVERIFY(QTest::qWaitForWindowActive(program.MainWindow()));
        QVERIFY(program.MainWindow()->categoryBrowser->lstTitle->hasFocus());
        program.MainWindow()->Store().CloseLibrary();
    }

    void ALoadThatFailsHandsOverAllTheSame_data() {
        QTest::addColumn<QByteArray>("file"); // what the library file holds; empty for an unchanged one
        QTest::addColumn<bool>("isThere");
        QTest::newRow("no library") << QByteArray() << false;
        QTest::newRow("one without forms") << QByteArray() << true;
        QTest::newRow("one that is none") << QByteArray(100000, 'x') << true;
    }
    void ALoadThatFailsHandsOverAllTheSame() {
        QFETCH(QByteArray, file);
        QFETCH(bool, isThere);
        const TestLibrary library(std::vector<TestForm>{});
        if (!file.isEmpty()) {
            QFile damaged(library.Folder() + u"/Data/Forms.dat"_qs);
            QVERIFY(damaged.open(QIODevice::WriteOnly));
            QCOMPARE(damaged.write(file), file.size());
        }
        QTemporaryDir nothing;
        ScriptedServices services;
        frmProgram program(services.services, isThere ? library.Folder() : nothing.path());
        const Watched watched = Run(program);
        QCOMPARE(watched.captions.size(), 10);
        QVERIFY(program.MainWindow()->isVisible());
        QCOMPARE(program.MainWindow()->categoryBrowser->lstSubCategory->ListCount(), 0);
        QVERIFY(services.messageBox.shown.empty());
    }

    // The library has no form of the first category, which the load asks about.
    void AQuestionDuringTheLoadOutlivesTheHandOver() {
        const TestLibrary library({{u"Deed"_qs, u"Sales"_qs, u"Deeds"_qs, u"text"_qs}});
        ScriptedServices scripted;
        LastingQuestion question;
        platform::Services services{question,         scripted.instance,      scripted.commonDialog,
                                    scripted.printer, scripted.wordProcessor, scripted.sound,
                                    scripted.help};
        frmProgram program(services, library.Folder());
        program.Start();
        const QPointer<frmSplash> splash = program.Splash();
        QTRY_VERIFY_WITH_TIMEOUT(question.asked == 1, 20000);
        QTRY_VERIFY_WITH_TIMEOUT(program.MainWindow()->Windows().IsLoaded(u"frmPageSetup"_qs), 20000);
        QTRY_VERIFY(!splash);
        QVERIFY(program.MainWindow()->isVisible());
        QTest::qWait(700); // longer than the chain
        QCOMPARE(question.asked, 1);
        program.MainWindow()->Store().CloseLibrary();
    }

    void ASecondStartWhileTheSplashStandsFindsIt() {
        FirstStart first;
        frmProgram& program = first.program;
        program.Start();
        program.Splash()->Stop(); // it stays
        platform::SingleInstance second(u"test"_qs, first.title, first.runtime.path());
        std::atomic<int> found = -1;
        std::thread asking([&] { found = second.BringForward(first.title) ? 1 : 0; });
        [&] { QTRY_VERIFY(found.load() >= 0); }();
        asking.join();
        QCOMPARE(found.load(), 1);
        QVERIFY(!program.MainWindow());
    }

    void ASecondStartBringsTheMainWindowBackFromItsMinimisedState() {
        FirstStart first;
        frmProgram& program = first.program;
        Run(program);
        frmMain* window = program.MainWindow();
        QVERIFY(QTest::qWaitForWindowActive(window));
        window->showMinimized();
        QTRY_VERIFY(window->isMinimized());
        platform::SingleInstance second(u"test"_qs, first.title, first.runtime.path());
        QVERIFY(second.EarlierInstanceRuns());
        bool found = false;
        // the first answers from its event loop, which has to run meanwhile
        std::thread asking([&] { found = second.BringForward(first.title); });
        QTRY_VERIFY(!window->isMinimized());
        asking.join();
        QVERIFY(found);
        window->Store().CloseLibrary();
    }

    void WhenAnEarlierInstanceTakesOverNoMainWindowComes() {
        const TestLibrary library(SomeForms());
        ScriptedServices services;
        services.instance.earlierInstance = true;
        services.instance.titleOfEarlierWindow = u"Quillbrook PRO"_qs;
        frmProgram program(services.services, library.Folder());
        program.Start();
        QVERIFY(program.Splash()->isVisible());
        QTRY_VERIFY(services.instance.ended);
        QTest::qWait(700); // longer than the chain
        QVERIFY(!program.MainWindow()->isVisible());
        QCOMPARE(program.Splash()->windowTitle(), QLatin1String(kSplashCaption));
    }
};

QTEST_MAIN(ProgramTest)
#include "program_test.moc"
