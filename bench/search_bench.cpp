// search_bench [FORMS...]: searches in generated libraries of so many forms (1,000 and 10,000 by default;
// 50,000 need 5 GB of disk), each beside the ordinary engine's LIKE and ripgrep over the same texts, and
// prints a table. Exit code 1 when they do not find the same, 2 when one of the two is not installed.
#include "bench/generated_forms.h"
#include "bench/stock_engine.h"
#include "library/library_format.h"
#include "library/library_store.h"
#include "library/repeats.h"
#include "platform/controls/list_box.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <cstdio>
#include <fcntl.h>
#include <functional>
#include <unistd.h>

using namespace quillbrook;
using namespace quillbrook::bench;
using platform::Database;

namespace {

struct Case {
    const char* name;
    std::vector<const char*> needles; // all of them
};

const std::vector<Case> kCases{
    {"common word", {"the"}},
    {"rare word", {"zyzzyva"}},
    {"absent word", {"quagga"}},
    {"three words, all", {"party", "contract", "zyzzyva"}},
    {"phrase", {"tolling of the bell"}},
    {"phrase of common words", {"of the"}},
    {"one letter", {"q"}},
};

QString Statement(const Case& searched) {
    QString statement = QStringLiteral("SELECT * FROM Forms WHERE");
    for (const char* needle : searched.needles)
        statement += (statement.endsWith(u'E') ? QStringLiteral("") : QStringLiteral(" AND")) +
                     QStringLiteral(" Content LIKE '*%1*'").arg(QLatin1String(needle));
    return statement;
}

QString Password() {
    return QStringLiteral(";pwd=") + BuildLibraryPassword();
}

// The middle one of several runs, in milliseconds.
double Time(const std::function<void()>& work, double mostMilliseconds = 3000) {
    std::vector<double> times;
    QElapsedTimer all;
    all.start();
    do {
        QElapsedTimer timer;
        timer.start();
        work();
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
    } while (times.size() < 15 && static_cast<double>(all.elapsed()) < mostMilliseconds);
    std::nth_element(times.begin(), times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2),
                     times.end());
    return times[times.size() / 2];
}

// The list of results as the window fills it, painted.
class ResultList {
public:
    ResultList()
        : m_list(true) {
        m_list.resize(408, 84);
        m_list.show();
    }
    int Fill(LibraryStore& store, const QString& statement) {
        m_list.Clear();
        m_list.AddItems(store.SearchForms(statement));
        RemoveRepeats(m_list);
        m_list.viewport()->repaint();
        return m_list.ListCount();
    }

private:
    platform::ListBox m_list;
};

// The same forms three times: as a library, in the ordinary engine's file, and as files.
class Data {
public:
    explicit Data(int forms)
        : m_forms(forms) {}

    QString Library() const { return m_folder.filePath(QStringLiteral("library")); }
    QString StockFile() const { return m_folder.filePath(QStringLiteral("stock")); }
    QString Texts() const { return m_folder.filePath(QStringLiteral("texts")); }

    bool Make() {
        const auto library =
            Database::CreateDatabase(Library(), Password(), LibraryFileFormat(), LibraryTables());
        StockEngine stock;
        if (!library || !stock.IsThere() || !stock.Open(StockFile().toStdString()) ||
            !stock.Run("CREATE TABLE Forms (Title TEXT, Content TEXT); BEGIN") || !library->BeginTrans())
            return false;
        const auto rows = library->OpenRecordset(QStringLiteral("Forms"));
        const FormMaker maker;
        for (int form = 0; form < m_forms; ++form) {
            const std::string title = FormMaker::Title(form);
            const std::string content = maker.Content(form);
            if (!rows->AddNew() || !rows->SetField(QStringLiteral("Title"), QString::fromStdString(title)) ||
                !rows->SetField(QStringLiteral("Category"), QStringLiteral("Sales")) ||
                !rows->SetField(QStringLiteral("SubCategory"), QStringLiteral("Some")) ||
                !rows->SetField(
                    QStringLiteral("Content"),
                    QString::fromLatin1(content.data(), static_cast<qsizetype>(content.size()))) ||
                !rows->Update() || !stock.Add(title, content) || !WriteText(form, content))
                return false;
        }
        if (!library->CommitTrans() || !stock.Run("COMMIT"))
            return false;
        const qint64 before = QFile(Library()).size();
        QElapsedTimer timer;
        timer.start();
        if (!library->IndexText(QStringLiteral("Forms"), QStringLiteral("Content")))
            return false;
        std::printf("The index: made in %.1f s, %.1f MB of %.0f MB\n\n",
                    static_cast<double>(timer.elapsed()) / 1e3,
                    static_cast<double>(QFile(Library()).size() - before) / 1e6,
                    static_cast<double>(QFile(Library()).size()) / 1e6);
        return true;
    }

private:
    bool WriteText(int form, const std::string& content) const {
        const QString folder = Texts() + QStringLiteral("/%1").arg(form / 1000);
        if (form % 1000 == 0 && !QDir().mkpath(folder))
            return false;
        QFile file(folder + QStringLiteral("/%1.rtf").arg(form));
        return file.open(QIODevice::WriteOnly) &&
               file.write(content.data(), static_cast<qint64>(content.size())) ==
                   static_cast<qint64>(content.size());
    }

    QTemporaryDir m_folder;
    int m_forms;
};

// The number of files that ripgrep lists.
int RunRipgrep(const Data& data, const Case& searched) {
    QString command;
    for (const char* needle : searched.needles) {
        const QString search = QStringLiteral("rg -i -l -0 '%1'").arg(QLatin1String(needle));
        command += command.isEmpty() ? search + QStringLiteral(" '%1'").arg(data.Texts())
                                     : QStringLiteral(" | xargs -0 -r ") + search;
    }
    QProcess process;
    process.start(QStringLiteral("sh"), {QStringLiteral("-c"), command});
    return process.waitForFinished(-1) ? static_cast<int>(process.readAllStandardOutput().count('\0')) : -1;
}

int RunStock(StockEngine& stock, const Case& searched) {
    std::string statement = "SELECT Title FROM Forms WHERE";
    for (const char* needle : searched.needles)
        statement +=
            (statement.back() == 'E' ? "" : " AND") + std::string(" Content LIKE '%") + needle + "%'";
    return stock.Count(statement);
}

int CountRows(Database& database, const QString& statement) {
    const auto query = database.CreateQueryDef();
    query->setSQL(statement);
    const auto rows = query->OpenRecordset();
    return rows ? rows->RecordCount() : -1;
}

// Opens the library and searches once; prints the milliseconds of both and the number found.
int SearchFirst(const QString& library, const QString& statement) {
    PublicVariables variables;
    LibraryStore store(variables);
    ResultList list;
    QElapsedTimer timer;
    timer.start();
    if (!store.OpenLibrary(library, BuildLibraryPassword()))
        return 1;
    store.OpenFormsTable();
    const double opened = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    const int found = list.Fill(store, statement);
    std::printf("%f %f %d\n", opened, static_cast<double>(timer.nsecsElapsed()) / 1e6 - opened, found);
    return 0;
}

// Lets the system forget what it has read of a file.
void ForgetFile(const QString& path) {
    const int file = open(QFile::encodeName(path).constData(), O_RDONLY);
    fdatasync(file);
    posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
    close(file);
}

struct First {
    double opening = 0;
    double searching = 0;
};

// The same in a process of its own; the middle one of three.
First TimeFirst(const Data& data, const QString& statement, bool forgetsFile) {
    std::vector<First> runs;
    for (int i = 0; i < 3; ++i) {
        if (forgetsFile)
            ForgetFile(data.Library());
        QProcess process;
        process.start(QCoreApplication::applicationFilePath(),
                      {QStringLiteral("--first"), data.Library(), statement});
        process.waitForFinished(-1);
        const QList<QByteArray> words = process.readAllStandardOutput().simplified().split(' ');
        if (words.size() == 3)
            runs.push_back({words[0].toDouble(), words[1].toDouble()});
    }
    std::sort(runs.begin(), runs.end(),
              [](const First& a, const First& b) { return a.searching < b.searching; });
    return runs.empty() ? First{} : runs[runs.size() / 2];
}

bool Measure(int forms) {
    std::printf("## %d forms\n\n", forms);
    Data data(forms);
    if (!data.Make()) {
        std::fprintf(stderr, "the data could not be made\n");
        return false;
    }
    // first, while nothing else has the library open
    std::vector<First> firsts;
    std::vector<First> uncached;
    for (const Case& searched : kCases) {
        TimeFirst(data, Statement(searched), false);
        firsts.push_back(TimeFirst(data, Statement(searched), false));
        uncached.push_back(TimeFirst(data, Statement(searched), true));
    }
    std::vector<int> scanned;
    std::vector<double> scans;
    { // shared, it looks at every row
        const auto library =
            Database::OpenDatabase(data.Library(), false, true, Password(), LibraryFileFormat());
        for (const Case& searched : kCases) {
            scanned.push_back(CountRows(*library, Statement(searched)));
            scans.push_back(Time([&] { CountRows(*library, Statement(searched)); }));
        }
    }
    PublicVariables variables;
    LibraryStore store(variables);
    StockEngine stock;
    if (!store.OpenLibrary(data.Library(), BuildLibraryPassword()) ||
        !stock.Open(data.StockFile().toStdString()))
        return false;
    std::printf("Milliseconds; opening the file takes %.0f, with nothing of it in memory %.0f.\n\n"
                "| Search | Found | Statement | List filled | First | First, from disk | Scan | LIKE %s | "
                "ripgrep | LIKE / list | ripgrep / list |\n|---|---|---|---|---|---|---|---|---|---|---|\n",
                firsts[0].opening, uncached[0].opening, stock.Version().c_str());
    ResultList list;
    bool same = true;
    for (std::size_t i = 0; i < kCases.size(); ++i) {
        const QString statement = Statement(kCases[i]);
        const int found = list.Fill(store, statement);
        const double engine = Time([&] { CountRows(*variables.FormsDb, statement); });
        const double filled = Time([&] { list.Fill(store, statement); });
        const int stockFound = RunStock(stock, kCases[i]);
        const double stockTime = Time([&] { RunStock(stock, kCases[i]); });
        const int ripgrepFound = RunRipgrep(data, kCases[i]);
        const double ripgrepTime = Time([&] { RunRipgrep(data, kCases[i]); });
        std::printf("| %s | %d | %.2f | %.2f | %.1f | %.1f | %.1f | %.1f | %.1f | %.1f | %.1f |\n",
                    kCases[i].name, found, engine, filled, firsts[i].searching, uncached[i].searching,
                    scans[i], stockTime, ripgrepTime, stockTime / filled, ripgrepTime / filled);
        if (found != scanned[i] || found != stockFound || found != ripgrepFound) {
            std::fprintf(stderr, "%s: index %d, scan %d, LIKE %d, ripgrep %d\n", kCases[i].name, found,
                         scanned[i], stockFound, ripgrepFound);
            same = false;
        }
        std::fflush(stdout);
    }
    std::printf("\n");
    return same;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 4 && arguments[1] == QStringLiteral("--first"))
        return SearchFirst(arguments[2], arguments[3]);
    std::vector<int> sizes;
    for (const QString& argument : arguments.mid(1)) {
        if (argument.toInt() > 0)
            sizes.push_back(argument.toInt());
    }
    if (sizes.empty())
        sizes = {1000, 10000};
    if (!StockEngine().IsThere() || QStandardPaths::findExecutable(QStringLiteral("rg")).isEmpty()) {
        std::fprintf(stderr, "search_bench needs libsqlite3.so.0 and ripgrep\n");
        return 2;
    }
    bool same = true;
    for (const int forms : sizes)
        same = Measure(forms) && same;
    return same ? 0 : 1;
}
