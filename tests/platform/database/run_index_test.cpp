// The runs of texts, what a pattern asks of them, and the index as bytes.
#include "platform/database/like_pattern.h"
#include "platform/database/run_index.h"

#include <QTest>
#include <random>

using namespace platform;

namespace {

using Texts = std::vector<std::optional<std::string>>;

QByteArray BytesOf(const Texts& texts) {
    RunIndexBuilder builder;
    for (std::size_t i = 0; i < texts.size(); ++i)
        builder.Add(static_cast<std::int64_t>(10 * i + 1), texts[i]);
    return builder.Write();
}

// The rows found, as "0 2 ".
QString Found(const RunIndex& index, const RunNeedle& needle) {
    QString found;
    index.Find(needle).ForEach([&found](std::size_t row) { found += QString::number(row) + u' '; });
    return found;
}

QString NeedleText(const char* pattern) {
    const std::optional<LikePattern> compiled = LikePattern::Compile(pattern);
    if (!compiled)
        return QStringLiteral("malformed");
    const TextNeedle needle = compiled->Needle();
    QString text;
    for (const RunNeedle& run : needle.runs)
        text += QLatin1String(run.begins ? "<" : "") + QString::fromStdString(run.text) +
                QLatin1String(run.ends ? "> " : " ");
    return text + QLatin1String(needle.exact ? "exact" : "");
}

} // namespace

class RunIndexTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void PatternAsksForRuns_data() {
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QString>("needle");
        const auto row = [](const char* pattern, const char* needle) {
            QTest::newRow(pattern) << QString::fromUtf8(pattern) << QString::fromUtf8(needle);
        };
        row("*deed*", "deed exact");
        row("*Deed2*", "deed2 exact");
        row("**", "exact");
        row("*", "exact");
        row("", "");
        row("deed", "deed ");
        row("deed*", "deed ");
        row("*deed", "deed ");
        row("*deed of sale*", "deed> <of> <sale ");
        row("*deed*sale*", "deed sale ");
        row("*de?d*", "de d ");
        row("*de#d*", "de d ");
        row("*de[aeiou]d*", "de d ");
        row("*de[]d*", "ded exact"); // the empty list stands for nothing
        row("*[*", "malformed");
        row("*.*", "");
        row("*'deed\"*", "<deed> ");
        row("*\xC3\xA9tat*", "<tat ");
        row("*caf\xC3\xA9*", "caf> ");
        row("*\xE2\x84\xAA*", ""); // the Kelvin sign is no k
    }
    void PatternAsksForRuns() {
        QFETCH(QString, pattern);
        QTEST(NeedleText(pattern.toUtf8().constData()), "needle");
    }

    void NeedleLiesWithinARun() {
        const std::optional<RunIndex> index =
            RunIndex::Read(BytesOf({"Deed of Sale", "indeed, a WHOLESALE lease", std::nullopt, "", "sale"}));
        QVERIFY(index);
        QCOMPARE(index->Rows(), (std::vector<std::int64_t>{1, 11, 21, 31, 41}));
        QCOMPARE(Found(*index, {.text = "deed"}), QStringLiteral("0 1 "));
        QCOMPARE(Found(*index, {.text = "deed", .begins = true}), QStringLiteral("0 "));
        QCOMPARE(Found(*index, {.text = "ale"}), QStringLiteral("0 1 4 "));
        QCOMPARE(Found(*index, {.text = "sale", .begins = true, .ends = true}), QStringLiteral("0 4 "));
        QCOMPARE(Found(*index, {.text = "lea", .ends = true}), QString());
        QCOMPARE(Found(*index, {.text = "eedof"}), QString());
        QCOMPARE(index->WithText().Count(), std::size_t{4});
        QVERIFY(!index->WithText().Has(2));
        QCOMPARE(index->Partial().Count(), std::size_t{0});
    }

    void RunTooLongIsLeftOutAndMakesTheTextPartial() {
        const std::string longest(kMaxRunBytes, 'a');
        const std::optional<RunIndex> index = RunIndex::Read(BytesOf({longest, longest + "b", "b"}));
        QVERIFY(index);
        QCOMPARE(Found(*index, {.text = longest}), QStringLiteral("0 "));
        QCOMPARE(Found(*index, {.text = "b"}), QStringLiteral("2 "));
        QVERIFY(!index->Partial().Has(0));
        QVERIFY(index->Partial().Has(1));
    }

    // rare runs are kept as steps from row to row, common ones as a bit for each row
    void EveryRowOfARunIsFound() {
        Texts texts;
        for (int i = 0; i < 1000; ++i)
            texts.push_back((i % 3 == 0 ? "third " : "") + std::string(i % 300 == 7 ? "rare" : "common"));
        const std::optional<RunIndex> index = RunIndex::Read(BytesOf(texts));
        QVERIFY(index);
        const RowSet third = index->Find({.text = "third"});
        const RowSet rare = index->Find({.text = "rar"});
        const RowSet common = index->Find({.text = "o"});
        for (std::size_t i = 0; i < texts.size(); ++i) {
            QCOMPARE(third.Has(i), i % 3 == 0);
            QCOMPARE(rare.Has(i), i % 300 == 7);
            QCOMPARE(common.Has(i), i % 300 != 7);
        }
    }

    void IndexOfNothingIsWhole() {
        const std::optional<RunIndex> index = RunIndex::Read(BytesOf({}));
        QVERIFY(index);
        QCOMPARE(Found(*index, {.text = "a"}), QString());
    }

    void DamagedBytesAreNoIndex() {
        const QByteArray whole = BytesOf({"one two three", "two", "three four five six seven"});
        QVERIFY(RunIndex::Read(whole));
        QVERIFY(!RunIndex::Read(QByteArray()));
        for (qsizetype size = 0; size < whole.size(); ++size)
            QVERIFY(!RunIndex::Read(whole.left(size)));
        QVERIFY(!RunIndex::Read(whole + '\0'));
        std::mt19937 random(5);
        for (qsizetype i = 0; i < whole.size(); ++i) {
            QByteArray damaged = whole;
            damaged[i] = static_cast<char>(damaged[i] ^ (1 << random() % 8));
            QVERIFY2(!RunIndex::Read(damaged), qPrintable(QString::number(i)));
        }
    }
};

QTEST_GUILESS_MAIN(RunIndexTest)
#include "run_index_test.moc"
