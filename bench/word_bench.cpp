// How long the word processor takes, from the click to what the user waits for. Needs LibreOffice and a
// display (bench/run.sh gives it one). Cold: with a new profile, as the very first time; the system's file
// cache is warm.
#include "platform/word/word_application.h"
#include "platform/word/word_clipboard.h"
#include "platform/word/word_processor.h"

#include <QApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <benchmark/benchmark.h>
#include <chrono>

namespace {

using platform::PageLength;
using platform::WordApplication;
using Clock = std::chrono::steady_clock;

// Two pages of text.
QByteArray Form() {
    QByteArray form = "{\\rtf1\\ansi{\\fonttbl{\\f0 Times New Roman;}}\\f0\\fs24 ";
    for (int paragraph = 0; paragraph < 20; ++paragraph)
        form += "The \\b seller\\b0  hereby sells, transfers and conveys unto the buyer, his heirs and "
                "assigns, the "
                "property described above, free from all liens and encumbrances whatsoever, and warrants his "
                "title "
                "to it against the lawful claims of all persons.\\par ";
    return form + "}";
}

bool DialogShows() {
    QProcess search;
    search.start(QStringLiteral("xdotool"), {QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                                             QStringLiteral("--name"), QStringLiteral("^Print$")});
    search.waitForFinished();
    return !search.readAllStandardOutput().trimmed().isEmpty();
}

void CloseDialog() {
    QProcess::execute(QStringLiteral("xdotool"), {QStringLiteral("key"), QStringLiteral("Escape")});
}

// The profiles of one run. The first instance is cold; with a warm bench it is not measured.
class Desk {
public:
    explicit Desk(bool warm)
        : m_processor(QApplication::applicationDirPath() + QStringLiteral("/.."), m_folder.path()) {
        if (!warm)
            return;
        if (const auto word = Start())
            word->Quit({});
    }
    std::unique_ptr<WordApplication> Start() { return m_processor.CreateWordApplication(nullptr); }

private:
    QTemporaryDir m_folder;
    platform::WordProcessor m_processor;
};

// What all commands do before they part. Null when there is no word processor.
std::unique_ptr<WordApplication> Transfer(Desk& desk) {
    auto word = desk.Start();
    if (!word || !word->DocumentsAdd())
        return nullptr;
    platform::SetClipboardRTF(Form());
    word->SelectionPaste();
    word->SelectionWholeStory();
    word->SelectionFontColor(platform::wdColorAutomatic);
    word->SelectionHomeKey(platform::wdStory);
    word->SetCaption(QStringLiteral("from Quillbrook"));
    word->SetPageSetup(PageLength::PageWidth, 612);
    word->SetPageSetup(PageLength::PageHeight, 936);
    for (const PageLength margin :
         {PageLength::LeftMargin, PageLength::RightMargin, PageLength::TopMargin, PageLength::BottomMargin})
        word->SetPageSetup(margin, 72);
    return word;
}

// Measures what `command` does after the transfer, with the transfer; it tells by its result when the user
// has what he waits for.
template <typename Command>
void Measure(benchmark::State& state, bool warm, Command command) {
    auto desk = std::make_unique<Desk>(warm);
    for ([[maybe_unused]] auto iteration : state) {
        if (!warm)
            desk = std::make_unique<Desk>(false);
        const auto start = Clock::now();
        const auto word = Transfer(*desk);
        if (!word) {
            state.SkipWithError("no word processor");
            return;
        }
        const Clock::time_point there = command(*word);
        state.SetIterationTime(std::chrono::duration<double>(there - start).count());
        word->SetVisible(false);
        word->ActiveDocumentClose(platform::wdDoNotSaveChanges);
        word->Quit({});
    }
}

Clock::time_point PrintDialog(WordApplication& word) {
    Clock::time_point there;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        if (!DialogShows())
            return;
        if (there == Clock::time_point())
            there = Clock::now();
        CloseDialog();
    });
    look.start(20);
    word.ShowDialog(platform::wdDialogFilePrint);
    return there;
}

Clock::time_point Preview(WordApplication& word) {
    word.SetVisible(true);
    word.WindowsApplicationActivate();
    word.ActiveDocumentPrintPreview();
    word.SetPageFit(platform::wdPageFitFullPage);
    return Clock::now();
}

Clock::time_point Export(WordApplication& word) {
    word.SetVisible(true);
    word.WindowsApplicationActivate();
    return Clock::now();
}

Clock::time_point Save(WordApplication& word) {
    const QTemporaryDir folder;
    word.ActiveDocumentSaveAs(folder.filePath(QStringLiteral("form.doc")));
    return Clock::now();
}

void ClickToPrintDialogCold(benchmark::State& state) {
    Measure(state, false, PrintDialog);
}
void ClickToPrintDialogWarm(benchmark::State& state) {
    Measure(state, true, PrintDialog);
}
void ClickToPreview(benchmark::State& state) {
    Measure(state, true, Preview);
}
void ClickToExport(benchmark::State& state) {
    Measure(state, true, Export);
}
void ClickToSaved(benchmark::State& state) {
    Measure(state, true, Save);
}

constexpr int kTimes = 5;
BENCHMARK(ClickToPrintDialogCold)->UseManualTime()->Iterations(kTimes)->Unit(benchmark::kMillisecond);
BENCHMARK(ClickToPrintDialogWarm)->UseManualTime()->Iterations(kTimes)->Unit(benchmark::kMillisecond);
BENCHMARK(ClickToPreview)->UseManualTime()->Iterations(kTimes)->Unit(benchmark::kMillisecond);
BENCHMARK(ClickToExport)->UseManualTime()->Iterations(kTimes)->Unit(benchmark::kMillisecond);
BENCHMARK(ClickToSaved)->UseManualTime()->Iterations(kTimes)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
