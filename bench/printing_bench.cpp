// Printing a pane to a PDF file, as the program does it itself: layout for the printer, all pages, the file.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include "bench/window_main.h"
#include "form_source.h"
#include "output/mod_print_rtf.h"
#include "platform/desktop/printer.h"
#include "platform/rich_text/rich_text_box.h"

using namespace quillbrook;

namespace {

constexpr PrintMargins kMargins = {1620, 1440, 1440, 1440};

class FilePrinter final : public platform::Printer {
public:
    FilePrinter()
        : Printer(QStringLiteral("Benchmark")) {
        platform::PrinterSettings settings;
        settings.toPdf = true;
        settings.paper = QPageSize(QPageSize::Letter);
        SetSettings(settings);
    }
    bool NewPage() override {
        ++pages;
        return Printer::NewPage();
    }
    qint64 Bytes() const { return QFile(m_file).size(); }

    int pages = 0;

protected:
    QString AskForFile() override {
        pages = 1;
        return m_file;
    }

private:
    QTemporaryDir m_folder;
    QString m_file = m_folder.filePath(QStringLiteral("pane.pdf"));
};

void Print(benchmark::State& state, const QByteArray& source) {
    platform::RichTextBox pane;
    pane.setPageLike(true);
    pane.resize(900, 600);
    pane.show();
    pane.setTextRTF(source);
    QApplication::processEvents();
    FilePrinter printer;
    for (auto _ : state)
        PrintRTF(pane, printer, kMargins);
    state.counters["pages"] = printer.pages;
    state.counters["kilobytes"] = double(printer.Bytes()) / 1000;
    if (printer.Bytes() == 0)
        state.SkipWithError("nothing was printed");
}

// Text, items and now and then a table, of so many printed pages.
void PrintPages(benchmark::State& state) {
    Print(state, MakeSource(state.range(0) * kBytesOfPage));
}
BENCHMARK(PrintPages)->Arg(1)->Arg(10)->Arg(200)->Unit(benchmark::kMillisecond);

// One table with a row for each property, over all pages.
void PrintTable(benchmark::State& state) {
    QByteArray source("{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Times New Roman;}}\\fs24\n");
    for (int row = 0; row < int(state.range(0)); ++row)
        source.append(
            "\\trowd\\clbrdrt\\brdrs\\clbrdrb\\brdrs\\cellx3000\\clbrdrt\\brdrs\\clbrdrb\\brdrs\\cellx9000"
            "\\pard\\intbl a parcel of land\\line with its improvements\\cell covered by a transfer "
            "certificate of title of the registry of deeds\\cell\\row\n");
    Print(state, source.append('}'));
}
BENCHMARK(PrintTable)->Arg(100)->Arg(2000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    return RunBenchmarksWithWidgets(argc, argv);
}
