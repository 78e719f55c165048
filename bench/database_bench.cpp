// The library's data base with 10,000 forms of about 20 KB each: searching, listing, opening, reading,
// writing. "cold" opens the file anew before each run, so that every page is decrypted; "warm" has them in
// memory.
#include "platform/database/database.h"
#include "platform/database/like_pattern.h"

#include <QDir>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <random>

using namespace platform;

namespace {

constexpr int kForms = 10000;
constexpr int kContentBytes = 20000;
constexpr FileFormat kFormat{.applicationId = 0x42454E43, .version = 1};
const QString kConnect = QStringLiteral(";pwd=benchmark");

// Formatted text of made-up words. "the" stands in every form, "zyzzyva" in one of a hundred, "quagga" in
// none.
QString MakeContent(std::mt19937& random, int form) {
    static const QStringList words = [] {
        QStringList list{QStringLiteral("the"), QStringLiteral("said"), QStringLiteral("party")};
        std::mt19937 wordRandom(7);
        for (int i = 0; i < 3000; ++i) {
            QString word;
            for (auto length = 2 + wordRandom() % 9; length > 0; --length)
                word += QChar(static_cast<char16_t>(u"etaoinsrhldcumfpgwyb"[wordRandom() % 20]));
            list.append(word);
        }
        return list;
    }();
    QString text = QStringLiteral("{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\pard\\f0\\fs24 ");
    while (text.size() < kContentBytes) {
        const auto pick = std::min(random(), random()) % static_cast<std::size_t>(words.size());
        text += words[static_cast<qsizetype>(pick)] +
                (random() % 40 == 0 ? QStringLiteral("\\par\r\n") : QStringLiteral(" "));
        if (form % 100 == 0 && text.size() > kContentBytes / 2 && !text.contains(QStringLiteral("Zyzzyva")))
            text += QStringLiteral("Zyzzyva ");
    }
    return text + QStringLiteral("the end}");
}

class Library {
public:
    Library() {
        std::vector<TableDef> tables{{QStringLiteral("Forms"), {}}};
        using Kind = ColumnDef::Kind;
        tables[0].columns.push_back({.name = QStringLiteral("Title"), .required = true, .unique = true});
        tables[0].columns.push_back({.name = QStringLiteral("Category")});
        tables[0].columns.push_back({.name = QStringLiteral("SubCategory")});
        tables[0].columns.push_back({.name = QStringLiteral("Content"), .kind = Kind::LongText});
        tables[0].columns.push_back({.name = QStringLiteral("Favorites"), .kind = Kind::Number});
        const auto database = Database::CreateDatabase(Path(), kConnect, kFormat, tables);
        const auto rows = database->OpenRecordset(QStringLiteral("Forms"));
        std::mt19937 random(1);
        database->BeginTrans();
        for (int i = 0; i < kForms; ++i) {
            rows->AddNew();
            rows->SetField(QStringLiteral("Title"),
                           QStringLiteral("Form of Something or Other No. %1").arg(i));
            rows->SetField(QStringLiteral("Category"), QStringLiteral("Category %1").arg(i % 16));
            rows->SetField(QStringLiteral("SubCategory"), QStringLiteral("Sub-Category %1").arg(i / 16 % 25));
            rows->SetField(QStringLiteral("Content"), MakeContent(random, i));
            rows->Update();
        }
        database->CommitTrans();
    }
    std::unique_ptr<Database> Open() const {
        return Database::OpenDatabase(Path(), true, false, kConnect, kFormat);
    }

private:
    QString Path() const { return m_folder.filePath(QStringLiteral("library.dat")); }
    QTemporaryDir m_folder;
};

const Library& TheLibrary() {
    static const Library library;
    return library;
}

int Count(Database& database, const QString& statement) {
    const auto query = database.CreateQueryDef();
    query->setSQL(statement);
    const auto rows = query->OpenRecordset();
    return rows ? rows->RecordCount() : -1;
}

const char* const kSearches[] = {
    "Content LIKE '*the*'",
    "Content LIKE '*zyzzyva*'",
    "Content LIKE '*quagga*'",
    "Content LIKE '*the*' AND Content LIKE '*party*' AND Content LIKE '*zyzzyva*'",
    "Content LIKE '*z?zz?va*'",
};

QString Search(const benchmark::State& state) {
    return QStringLiteral("SELECT * FROM Forms WHERE ") + QLatin1String(kSearches[state.range(0)]);
}

void SearchCold(benchmark::State& state) {
    const QString statement = Search(state);
    int count = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const auto database = TheLibrary().Open();
        state.ResumeTiming();
        count = Count(*database, statement);
    }
    state.counters["rows"] = count;
}
BENCHMARK(SearchCold)->DenseRange(0, 4)->Unit(benchmark::kMillisecond);

void SearchWarm(benchmark::State& state) {
    const QString statement = Search(state);
    const auto database = TheLibrary().Open();
    int count = Count(*database, statement); // reads every page once
    for (auto _ : state)
        count = Count(*database, statement);
    state.counters["rows"] = count;
}
BENCHMARK(SearchWarm)->DenseRange(0, 4)->Unit(benchmark::kMillisecond);

void OpenFile(benchmark::State& state) {
    TheLibrary();
    for (auto _ : state) {
        const auto database = TheLibrary().Open();
        benchmark::DoNotOptimize(database);
    }
}
BENCHMARK(OpenFile)->Unit(benchmark::kMillisecond);

// As a list box is filled: the statement, then the title of every row.
void ListTitles(benchmark::State& state) {
    const auto database = TheLibrary().Open();
    int listed = 0;
    for (auto _ : state) {
        const auto query = database->CreateQueryDef();
        query->setSQL(QStringLiteral(
            "SELECT Title FROM Forms WHERE Category = 'Category 3' AND SubCategory = 'Sub-Category 3'"));
        const auto rows = query->OpenRecordset();
        listed = 0;
        for (bool there = rows->MoveFirst(); there; there = rows->MoveNext())
            listed += rows->Field(QStringLiteral("Title")) ? 1 : 0;
    }
    state.counters["rows"] = listed;
}
BENCHMARK(ListTitles)->Unit(benchmark::kMillisecond);

void ListSubCategories(benchmark::State& state) {
    const auto database = TheLibrary().Open();
    for (auto _ : state) {
        const auto query = database->CreateQueryDef();
        query->setSQL(QStringLiteral("SELECT SubCategory FROM Forms WHERE Category = 'Category 3'"));
        const auto rows = query->OpenRecordset();
        for (bool there = rows->MoveFirst(); there; there = rows->MoveNext())
            benchmark::DoNotOptimize(rows->Field(QStringLiteral("SubCategory")));
    }
}
BENCHMARK(ListSubCategories)->Unit(benchmark::kMillisecond);

void ReadOneForm(benchmark::State& state) {
    const auto database = TheLibrary().Open();
    int form = 0;
    for (auto _ : state) {
        const auto query = database->CreateQueryDef();
        query->setSQL(QStringLiteral("SELECT * FROM Forms WHERE Title = 'Form of Something or Other No. %1'")
                          .arg(form = (form + 997) % kForms));
        const auto rows = query->OpenRecordset();
        benchmark::DoNotOptimize(rows->Field(QStringLiteral("Content")));
    }
}
BENCHMARK(ReadOneForm)->Unit(benchmark::kMillisecond);

void WriteOneFlag(benchmark::State& state) {
    const auto database = TheLibrary().Open();
    const auto rows = database->OpenRecordset(QStringLiteral("Forms"));
    int flag = 0;
    for (auto _ : state) {
        flag = 1 - flag;
        if (!rows->Edit() || !rows->SetField(QStringLiteral("Favorites"), flag) || !rows->Update())
            state.SkipWithError("not written");
    }
}
BENCHMARK(WriteOneFlag)->Unit(benchmark::kMillisecond);

// The matcher alone over one form's text.
void MatchText(benchmark::State& state) {
    static const char* const patterns[] = {"*quagga*", "*\xC3\xA9t\xC3\xA9*", "*q?agga*"};
    std::mt19937 random(3);
    const std::string text = MakeContent(random, 1).toStdString();
    const std::optional<LikePattern> pattern = LikePattern::Compile(patterns[state.range(0)]);
    for (auto _ : state)
        benchmark::DoNotOptimize(pattern->Matches(text));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * text.size()));
}
BENCHMARK(MatchText)->DenseRange(0, 2);

} // namespace

BENCHMARK_MAIN();
