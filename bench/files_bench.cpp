// Opening and saving files of rich text and of plain text in a box that is shown: until the file's first page
// stands there and the history has it, and until the file is whole on disk. pause_ms: the longest time in
// which the windows were not painted.
#include <benchmark/benchmark.h>

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QTimer>
#include <algorithm>

#include "bench/window_main.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/rich_text/rich_text_file.h"

using namespace platform;

namespace {

constexpr qint64 kMegabyte = 1024 * 1024;
const char* const kLine =
    "The party of the first part hereby sells, transfers and conveys unto the party of the second "
    "part the property described above, free from all liens and encumbrances.";

const QTemporaryDir& Folder() {
    static const QTemporaryDir folder;
    return folder;
}

// The path of a file of the size and kind, made on first use.
QString File(qint64 megabytes, bool richText) {
    const QString path =
        Folder().filePath(QString::number(megabytes) + QLatin1String(richText ? ".rtf" : ".txt"));
    QFile file(path);
    if (file.exists() || !file.open(QIODevice::WriteOnly))
        return path;
    QByteArray block;
    for (int i = 0; i < 1000; ++i)
        block.append(richText ? "\\pard\\fi720\\qj " : "").append(kLine).append(richText ? "\\par\n" : "\n");
    if (richText)
        file.write("{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}\n");
    while (file.size() < megabytes * kMegabyte - block.size())
        file.write(block);
    if (richText)
        file.write("}");
    return path;
}

void OpenFile(benchmark::State& state) {
    const QString path = File(state.range(0), state.range(1) != 0);
    RichTextBox box;
    box.resize(900, 700);
    box.show();
    QElapsedTimer sinceBeat; // a window is dead between two beats
    qint64 longest = 0;
    const auto tick = [&] { longest = std::max(longest, sinceBeat.restart()); };
    QTimer beat;
    QObject::connect(&beat, &QTimer::timeout, tick);
    beat.start(5);
    for (auto _ : state) {
        sinceBeat.start();
        const bool loaded = box.LoadFile(path);
        benchmark::DoNotOptimize(box.Snapshot()); // as the history of undo takes it
        box.grab();
        tick();
        if (!loaded)
            state.SkipWithError("refused");
        state.PauseTiming();
        box.clear();
        state.ResumeTiming();
    }
    state.counters["pause_ms"] = double(longest);
    state.SetBytesProcessed(state.iterations() * state.range(0) * kMegabyte);
}

// Without the box.
void ReadFile(benchmark::State& state) {
    const QString path = File(state.range(0), state.range(1) != 0);
    for (auto _ : state)
        benchmark::DoNotOptimize(ReadDocumentFile(path));
    state.SetBytesProcessed(state.iterations() * state.range(0) * kMegabyte);
}

void SaveFile(benchmark::State& state) {
    RichTextBox box;
    if (!box.LoadFile(File(state.range(0), true)))
        state.SkipWithError("refused");
    const QString path = Folder().filePath(QStringLiteral("saved.rtf"));
    for (auto _ : state) {
        if (box.SaveFile(path) != 0)
            state.SkipWithError("not saved");
    }
    state.SetBytesProcessed(state.iterations() * state.range(0) * kMegabyte);
}

} // namespace

BENCHMARK(OpenFile)
    ->ArgNames({"MB", "rtf"})
    ->ArgsProduct({{1, 10, 60, 95}, {0, 1}})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ReadFile)->ArgNames({"MB", "rtf"})->ArgsProduct({{95}, {0, 1}})->Unit(benchmark::kMillisecond);
BENCHMARK(SaveFile)->ArgName("MB")->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    return RunBenchmarksWithWidgets(argc, argv);
}
