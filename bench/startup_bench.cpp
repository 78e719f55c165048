// From the start of a process to the main window the user can work in, over libraries of 1,000 and 10,000
// forms of about 20 KB. Each run is a process of its own. "cold" first puts the library out of the system's
// file cache. own_ms leaves out what the splash's row of dots takes by design.
#include "accessory/splash_chain.h"
#include "accessory/splash_window.h"
#include "app/main_window.h"
#include "app/program.h"
#include "appearance/look.h"
#include "library/library_format.h"
#include "platform/database/database.h"
#include "platform/desktop_services.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

using namespace quillbrook;

namespace {

constexpr int kContentBytes = 20000;
constexpr int kLongestStart = 60000;                                                       // ms
constexpr int kDots = int(kSplashSteps.size() + 1) * SplashInterval(kSplashHandOverTimer); // ms
constexpr char kChild[] = "--start";

// As the program's main(), until the main window has been painted and answers.
int Start(int argc, char* argv[], const QString& folder) {
    QApplication application(argc, argv);
    ApplyLook(application);
    platform::DesktopServices desktop(QStringLiteral("quillbrook"), QStringLiteral("Quillbrook PRO"), folder,
                                      folder);
    frmProgram program(desktop.Services(), folder);
    program.Start();

    class Watch final : public QObject {
    public:
        explicit Watch(frmProgram& program)
            : m_program(program) {}
        bool eventFilter(QObject* watched, QEvent* event) override {
            if (event->type() == QEvent::Paint && watched == m_program.MainWindow())
                QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(); });
            return false;
        }

    private:
        frmProgram& m_program;
    } watch(program);
    application.installEventFilter(&watch);
    QApplication::exec();
    std::puts("usable");
    std::fflush(stdout);
    program.MainWindow()->close();
    return 0;
}

class Library {
public:
    explicit Library(int forms) {
        QDir(m_folder.path()).mkdir(QStringLiteral("Data"));
        const auto database = platform::Database::CreateDatabase(
            Path(), QStringLiteral(";pwd=") + BuildLibraryPassword(), LibraryFileFormat(), LibraryTables());
        database->BeginTrans();
        const auto rows = database->OpenRecordset(QStringLiteral("Forms"));
        const QString text =
            QStringLiteral("{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\pard\\f0\\fs24 ") +
            QStringLiteral("the said party of the first part ").repeated(kContentBytes / 33) + u'}';
        for (int i = 0; i < forms; ++i) {
            rows->AddNew();
            rows->SetField(QStringLiteral("Title"), QStringLiteral("Form of Something No. %1").arg(i));
            rows->SetField(QStringLiteral("Category"), i % 16 == 0 ? QStringLiteral("Acknowledgment / Jurat")
                                                                   : QStringLiteral("C%1").arg(i % 16));
            rows->SetField(QStringLiteral("SubCategory"), QStringLiteral("Sub-Category %1").arg(i / 16 % 25));
            rows->SetField(QStringLiteral("Content"), text);
            rows->Update();
        }
        const auto theme = database->OpenRecordset(QStringLiteral("Theme"));
        theme->AddNew();
        theme->SetField(QStringLiteral("Theme"), 1);
        theme->Update();
        database->IndexText(QStringLiteral("Forms"), QStringLiteral("Content"));
        database->CommitTrans();
        database->Close();
    }
    QString Folder() const { return m_folder.path(); }

    void PutOutOfCache() const {
        const int file = ::open(Path().toLocal8Bit().constData(), O_RDONLY);
        ::fdatasync(file);
        ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
        ::close(file);
    }

private:
    QString Path() const { return m_folder.filePath(QStringLiteral("Data/Forms.dat")); }
    QTemporaryDir m_folder;
};

void BM_StartToUsableWindow(benchmark::State& state) {
    const Library library(int(state.range(0)));
    double total = 0;
    for (auto _ : state) {
        if (state.range(1) != 0)
            library.PutOutOfCache();
        QProcess child;
        QElapsedTimer clock;
        clock.start();
        child.start(QCoreApplication::applicationFilePath(), {QLatin1String(kChild), library.Folder()});
        while (!child.canReadLine() && child.waitForReadyRead(kLongestStart)) {
        }
        const double milliseconds = double(clock.nsecsElapsed()) / 1e6;
        if (child.readLine() != "usable\n") {
            state.SkipWithError("the main window did not come");
            break;
        }
        child.waitForFinished(kLongestStart);
        total += milliseconds;
        state.SetIterationTime(milliseconds / 1000);
    }
    state.counters["own_ms"] = total / double(state.iterations()) - kDots;
}
BENCHMARK(BM_StartToUsableWindow)
    ->ArgsProduct({{1000, 10000}, {0, 1}})
    ->ArgNames({"forms", "cold"})
    ->UseManualTime()
    ->Iterations(5)
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[]) {
    if (argc == 3 && QLatin1String(argv[1]) == QLatin1String(kChild))
        return Start(argc, argv, QString::fromLocal8Bit(argv[2]));
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
