// Reading, writing, showing and editing rich text: forms of 10 pages as lawyers have them open, and documents
// of 200 pages, in a box 900 pixels wide on a display without a screen.
#include <benchmark/benchmark.h>

#include <malloc.h>

#include <QApplication>
#include <QFile>
#include <QImage>
#include <QKeyEvent>
#include <QPainter>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextCursor>
#include <QTextDocument>
#include <memory>

#include "bench/window_main.h"
#include "form_source.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/rich_text/rtf_reader.h"
#include "platform/rich_text/rtf_writer.h"

using namespace platform;

namespace {

QByteArray SourceOfPages(benchmark::State& state) {
    return MakeSource(state.range(0) * kBytesOfPage);
}

QByteArray SourceOfMegabytes(benchmark::State& state) {
    return MakeSource(state.range(0) * 1'000'000);
}

std::unique_ptr<RichTextBox> ShownBox(const QByteArray& source) {
    auto box = std::make_unique<RichTextBox>();
    box->setPageLike(true);
    box->resize(900, 600);
    box->show();
    box->setTextRTF(source);
    QApplication::processEvents();
    box->document()->size(); // all is laid out, as it is a moment after a form was opened
    return box;
}

void ReadSource(benchmark::State& state) {
    const QByteArray source = SourceOfMegabytes(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(ReadRtf(source));
    state.SetBytesProcessed(int64_t(state.iterations()) * source.size());
}
BENCHMARK(ReadSource)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);

void WriteSource(benchmark::State& state) {
    const auto document = ReadRtf(SourceOfMegabytes(state));
    qsizetype size = 0;
    for (auto _ : state)
        size = WriteRtf(*document).size();
    state.SetBytesProcessed(int64_t(state.iterations()) * size);
}
BENCHMARK(WriteSource)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);

void WriteSourceOfPages(benchmark::State& state) {
    const auto document = ReadRtf(SourceOfPages(state));
    for (auto _ : state)
        benchmark::DoNotOptimize(WriteRtf(*document));
}
BENCHMARK(WriteSourceOfPages)->Arg(10)->Arg(200)->Unit(benchmark::kMillisecond);

// The first look at a document: read, laid out as far as it is seen, painted.
void ShowSource(benchmark::State& state) {
    const QByteArray source = SourceOfPages(state);
    const auto box = ShownBox("{\\rtf1 before}");
    for (auto _ : state) {
        box->setTextRTF(source);
        box->viewport()->repaint();
    }
}
BENCHMARK(ShowSource)->Arg(10)->Arg(200)->Arg(244)->Arg(2440)->Unit(benchmark::kMillisecond); // 244 pages: 1
                                                                                              // MB

// A box that nobody sees, in which forms are prepared.
void SetSourceOfHiddenBox(benchmark::State& state) {
    const QByteArray source = SourceOfPages(state);
    RichTextBox box;
    for (auto _ : state)
        box.setTextRTF(source);
}
BENCHMARK(SetSourceOfHiddenBox)->Arg(10)->Arg(200)->Unit(benchmark::kMillisecond);

void TypeAndTakeSnapshot(benchmark::State& state) {
    const auto box = ShownBox(SourceOfPages(state));
    box->setSelStart(int(box->Text().size()) / 2);
    benchmark::DoNotOptimize(box->Snapshot());
    std::vector<RtfSnapshot> history(75);
    std::size_t step = 0;
    for (auto _ : state) {
        box->setSelText(QStringLiteral("x"));
        history[++step % history.size()] = box->Snapshot();
    }
}
BENCHMARK(TypeAndTakeSnapshot)->Arg(10)->Arg(200)->Unit(benchmark::kMillisecond);

void TakeSnapshotAfterTyping(benchmark::State& state) {
    const auto box = ShownBox(SourceOfPages(state));
    box->setSelStart(int(box->Text().size()) / 2);
    benchmark::DoNotOptimize(box->Snapshot());
    for (auto _ : state) {
        state.PauseTiming();
        box->setSelText(QStringLiteral("x"));
        state.ResumeTiming();
        benchmark::DoNotOptimize(box->Snapshot());
    }
}
BENCHMARK(TakeSnapshotAfterTyping)->Arg(10)->Arg(200)->Unit(benchmark::kMillisecond)->Iterations(300);

// Undo: the state before comes back, at the document's beginning or in its middle.
void BringSnapshotBack(benchmark::State& state) {
    const auto box = ShownBox(SourceOfPages(state));
    box->setSelStart(int(box->Text().size() * state.range(1) / 100));
    const RtfSnapshot before = box->Snapshot();
    box->setSelText(QStringLiteral("x"));
    const RtfSnapshot after = box->Snapshot();
    bool undo = true;
    for (auto _ : state) {
        box->setSnapshot(undo ? before : after);
        box->viewport()->repaint();
        undo = !undo;
    }
}
BENCHMARK(BringSnapshotBack)
    ->Args({10, 0})
    ->Args({10, 50})
    ->Args({200, 0})
    ->Args({200, 50})
    ->ArgNames({"pages", "percent"})
    ->Unit(benchmark::kMillisecond);

qint64 HeapInUse() {
    const struct mallinfo2 info = mallinfo2();
    return qint64(info.uordblks) + qint64(info.hblkhd);
}

// What 75 snapshots, each a keystroke farther in a paragraph of its own, hold in memory: counted in sources
// of the document, and in sources beyond the first snapshot.
void HoldSnapshots(benchmark::State& state) {
    constexpr int kSnapshots = 75;
    const auto box = ShownBox(SourceOfPages(state));
    const int length = int(box->Text().size());
    std::vector<RtfSnapshot> history;
    history.reserve(kSnapshots);
    for (auto _ : state) {
        history.clear();
        box->document()->size();
        const qint64 before = HeapInUse();
        history.push_back(box->Snapshot());
        const qint64 first = HeapInUse();
        qint64 typed = 0;
        while (int(history.size()) < kSnapshots) {
            const qint64 begin = HeapInUse();
            box->setSelStart(length / kSnapshots * int(history.size()));
            box->setSelText(QStringLiteral("x"));
            QApplication::processEvents();
            typed += HeapInUse() - begin; // the document's own
            history.push_back(box->Snapshot());
        }
        const double source = double(history.back().Size());
        const double held = double(HeapInUse() - before - typed);
        state.counters["KB"] = held / 1e3;
        state.counters["copies"] = held / source;
        state.counters["first_KB"] = double(first - before) / 1e3;
        state.counters["source_KB"] = source / 1e3;
    }
}
BENCHMARK(HoldSnapshots)->Arg(10)->Arg(200)->Unit(benchmark::kMillisecond)->Iterations(1);

// LibreOffice with a profile of its own, from its start to the end of writing the text of a document of
// state.range(0) megabytes; 0 is a document of a word, which tells what its start costs.
void LoadInLibreOffice(benchmark::State& state) {
    const QString program = QStandardPaths::findExecutable(QStringLiteral("soffice"));
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("form.rtf")));
    if (program.isEmpty() || !file.open(QIODevice::WriteOnly)) {
        state.SkipWithError("LibreOffice is not installed");
        return;
    }
    file.write(state.range(0) == 0 ? QByteArray("{\\rtf1 word}") : SourceOfMegabytes(state));
    file.close();
    const QStringList arguments{QStringLiteral("-env:UserInstallation=file://") +
                                    folder.filePath(QStringLiteral("profile")),
                                QStringLiteral("--headless"),
                                QStringLiteral("--convert-to"),
                                QStringLiteral("txt:Text"),
                                QStringLiteral("--outdir"),
                                folder.filePath(QStringLiteral("text")),
                                file.fileName()};
    const auto convert = [&] {
        QProcess process;
        process.setStandardOutputFile(QProcess::nullDevice());
        process.setStandardErrorFile(QProcess::nullDevice());
        process.start(program, arguments);
        return process.waitForFinished(120'000) && process.exitCode() == 0;
    };
    bool isDone = convert(); // the first start makes the profile
    for (auto _ : state)
        isDone = convert() && isDone;
    if (!isDone || !QFile::exists(folder.filePath(QStringLiteral("text/form.txt"))))
        state.SkipWithError("LibreOffice wrote no text");
}
BENCHMARK(LoadInLibreOffice)
    ->Arg(0)
    ->Arg(1)
    ->Arg(10)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->UseRealTime();

void FormatSelection(benchmark::State& state) {
    const auto box = ShownBox(SourceOfPages(state));
    box->setSelStart(1000);
    box->setSelLength(200);
    bool bold = false;
    for (auto _ : state)
        box->setSelBold(bold = !bold);
}
BENCHMARK(FormatSelection)->Arg(10)->Arg(200)->Unit(benchmark::kMillisecond);

void ReadFormatOfAll(benchmark::State& state) {
    const auto box = ShownBox(SourceOfPages(state));
    box->selectAll();
    for (auto _ : state)
        benchmark::DoNotOptimize(box->SelUnderline()); // the same everywhere
}
BENCHMARK(ReadFormatOfAll)->Arg(10)->Arg(200)->Unit(benchmark::kMillisecond);

// Converts the selection to upper case, the next time to lower case.
void SwitchCase(RichTextBox& box, bool& upper) {
    upper = !upper;
    box.ConvertSelText([upper](const QString& text) { return upper ? text.toUpper() : text.toLower(); });
}

void ConvertAll(benchmark::State& state) {
    const auto box = ShownBox(SourceOfPages(state));
    bool upper = false;
    for (auto _ : state) {
        box->selectAll();
        SwitchCase(*box, upper);
    }
}
BENCHMARK(ConvertAll)->Arg(10)->Arg(200)->Unit(benchmark::kMillisecond);

void ConvertCells(benchmark::State& state) {
    const auto rows = int(state.range(0));
    const auto box =
        ShownBox("{\\rtf1 " +
                 QByteArray("\\trowd\\cellx3000\\cellx6000\\cellx9000\\intbl one\\cell two\\cell "
                            "three\\cell\\row ")
                     .repeated(rows) +
                 "\\pard end}");
    const auto first = int(box->Text().indexOf(u"one"));
    const auto last = int(box->Text().lastIndexOf(u"three")) + 5;
    bool upper = false;
    for (auto _ : state) {
        QTextCursor cells(box->document());
        cells.setPosition(first);
        cells.setPosition(last, QTextCursor::KeepAnchor);
        box->setTextCursor(cells);
        SwitchCase(*box, upper);
    }
}
BENCHMARK(ConvertCells)->Arg(20)->Arg(400)->Unit(benchmark::kMillisecond);

// Enter in the first item of a list and Backspace after it: all the others are counted again.
void PartListItem(benchmark::State& state) {
    QByteArray source("{\\rtf1 ");
    for (int i = 1; i <= state.range(0); ++i)
        source += "\\pard\\fi-360\\li720\\ls1{\\listtext " + QByteArray::number(i) + ".\\tab}item\\par ";
    const auto box = ShownBox(source + '}');
    box->setSelStart(2);
    for (auto _ : state) {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Backspace}) {
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
            QApplication::sendEvent(box.get(), &press);
        }
    }
}
BENCHMARK(PartListItem)->Arg(50)->Arg(1000)->Unit(benchmark::kMillisecond);

void PrintAllPages(benchmark::State& state) {
    const auto box = ShownBox(SourceOfPages(state));
    QImage paper(850, 1100, QImage::Format_RGB32);
    QPainter painter(&paper);
    const auto length = int(box->Text().size());
    for (auto _ : state) {
        int pages = 0;
        for (int first = 0; first < length; ++pages)
            first = box->FormatRange(painter, QRect(0, 0, 9180, 12960), first, true);
        box->FormatRangeRelease();
        state.counters["pages"] = pages;
    }
}
BENCHMARK(PrintAllPages)->Arg(10)->Arg(200)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    return RunBenchmarksWithWidgets(argc, argv);
}
