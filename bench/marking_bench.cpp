// Marking, painting and walking the hits of seven terms in a form of 200 pages, 3,000 characters each.
#include "bench/window_main.h"
#include "platform/rich_text/rich_text_box.h"
#include "search/hit_step.h"
#include "search/paint_marks.h"

#include <benchmark/benchmark.h>
#include <random>

using namespace quillbrook;

namespace {

constexpr int kCharacters = 200 * 3000;

SearchTerms TermsOf(const QStringList& list) {
    SearchTerms terms;
    std::copy(list.begin(), list.end(), terms.begin());
    return terms;
}

// Words of a deed, with "Quagga" and six more rare ones at the start, in the middle and near the end.
const QString& Text() {
    static const QString text = [] {
        const QStringList words =
            QStringLiteral("the party of first part hereby sells deed land in this City and "
                           "for value received contract stipulated rights affiant seller")
                .split(u' ');
        const QString rare = QStringLiteral("Quagga quartz quince quorum quiver quoits quilts ");
        std::mt19937 random(17);
        QString made = rare;
        for (const int end : {kCharacters / 2, kCharacters - int(rare.size()) - 1}) {
            while (made.size() < end) {
                made += words[qsizetype(random() % std::size_t(words.size()))];
                made += random() % 40 == 0 ? QStringLiteral(".\n") : QStringLiteral(" ");
            }
            made += rare;
        }
        return made + u'\n';
    }();
    return text;
}

const QStringList kFrequent = QStringLiteral("the,deed,seller,sell,land,first part,a").split(u',');
const QStringList kOrdinary = QStringLiteral("deed,seller,rights,value,contract,first part,city").split(u',');
const QStringList kRare = QStringLiteral("quagga,quartz,quince,quorum,quiver,quoits,quilts").split(u',');
const QStringList kAbsent = QStringLiteral("zebra,zenith,zephyr,zigzag,zinc,zodiac,zoom").split(u',');

void Mark(benchmark::State& state, const QStringList& terms) {
    std::size_t marks = 0;
    for (auto _ : state) {
        const MarkedForm form = MarkForm(Text(), TermsOf(terms));
        marks = form.marks.size();
        benchmark::DoNotOptimize(WithoutOverlaps(form.marks));
    }
    state.counters["marks"] = double(marks);
}
BENCHMARK_CAPTURE(Mark, frequent, kFrequent)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Mark, ordinary, kOrdinary)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Mark, rare, kRare)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Mark, absent, kAbsent)->Unit(benchmark::kMillisecond);

// The same in the pane that a form is prepared in, painting included.
void MarkInPane(benchmark::State& state, const QStringList& terms) {
    platform::RichTextBox pane;
    for (auto _ : state) {
        state.PauseTiming();
        pane.setText(Text());
        state.ResumeTiming();
        PaintMarks(pane, MarkForm(pane.Text(), TermsOf(terms)).marks);
    }
}
BENCHMARK_CAPTURE(MarkInPane, ordinary, kOrdinary)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(MarkInPane, frequent, kFrequent)->Unit(benchmark::kMillisecond);

// Each round a step from hit to hit; after the last one anew.
void NextHit(benchmark::State& state, const QStringList& terms) {
    const MarkedForm form = MarkForm(Text(), TermsOf(terms));
    QString word;
    HitWalk walk;
    walk.Start(form);
    for (auto _ : state) {
        if (!walk.Next(Text(), word))
            walk.Start(form);
    }
}
BENCHMARK_CAPTURE(NextHit, frequent, kFrequent)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(NextHit, rare, kRare)->Unit(benchmark::kMillisecond);

// The walk back from behind the last hit.
void PreviousHit(benchmark::State& state, const QStringList& terms) {
    const MarkedForm form = MarkForm(Text(), TermsOf(terms));
    QString word;
    HitWalk atEnd;
    atEnd.Start(form);
    while (atEnd.Next(Text(), word)) {
    }
    HitWalk walk = atEnd;
    for (auto _ : state) {
        if (!walk.Previous(Text(), word).start)
            walk = atEnd;
    }
}
BENCHMARK_CAPTURE(PreviousHit, rare, kRare)->Unit(benchmark::kMillisecond);

// A step that looks through the whole form for terms it does not hold any more.
void NextHitInVain(benchmark::State& state) {
    MarkedForm form;
    for (const QString& term : kAbsent)
        form.cboDisplayHit.append(term.toUpper());
    QString word;
    HitWalk walk;
    for (auto _ : state) {
        walk.Start(form);
        benchmark::DoNotOptimize(walk.Next(Text(), word));
    }
}
BENCHMARK(NextHitInVain)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    return RunBenchmarksWithWidgets(argc, argv);
}
