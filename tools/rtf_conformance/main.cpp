// quillbrook-rtf-conformance: reads and writes the rich text files of a folder and compares them with
// themselves and with texts that other programs made of them.
#include "rtf_conformance/file_check.h"
#include "rtf_conformance/file_output.h"
#include "rtf_conformance/shown_text.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTextStream>
#include <algorithm>
#include <optional>

namespace {

constexpr int kMostMilliseconds = 30'000; // of one file, then it counts as hanging
constexpr qint64 kMostBytes = 64 * 1024 * 1024;
constexpr double kSlowMilliseconds = 1000.0;

enum ExitCode { Good = 0, ProblemsFound = 1, WrongUsage = 2 };

QTextStream& Out() {
    static QTextStream stream(stdout);
    return stream;
}

std::optional<QByteArray> Content(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > kMostBytes)
        return std::nullopt;
    return file.readAll();
}

// Checks one file in this process and tells what it found as JSON.
ExitCode CheckHere(const QString& path) {
    const quillbrook::FileCheck check = quillbrook::CheckFile(path);
    const QJsonObject found{
        {QStringLiteral("isRead"), check.isRead},         {QStringLiteral("text"), check.textStays},
        {QStringLiteral("formats"), check.formatsStay},   {QStringLiteral("source"), check.sourceStays},
        {QStringLiteral("difference"), check.difference}, {QStringLiteral("read"), check.readMilliseconds},
        {QStringLiteral("all"), check.allMilliseconds},   {QStringLiteral("shown"), check.shown},
    };
    Out() << QJsonDocument(found).toJson(QJsonDocument::Compact);
    return Good;
}

// What the check of one file told; empty when it crashed or hung. A process of its own for each file, so that
// the others are checked all the same.
std::optional<QJsonObject> CheckApart(const QString& path) {
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--one"), path});
    if (!process.waitForFinished(kMostMilliseconds)) {
        process.kill();
        process.waitForFinished();
        return std::nullopt;
    }
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != Good)
        return std::nullopt;
    return QJsonDocument::fromJson(process.readAllStandardOutput()).object();
}

// How many files have a mark, of those that can have it.
struct Score {
    int good = 0;
    int all = 0;

    QString Show(bool isGood) {
        ++all;
        good += isGood ? 1 : 0;
        return isGood ? QStringLiteral("yes") : QStringLiteral("NO");
    }
    bool Whole() const { return good == all; }
    QString Text() const {
        const double percent = all == 0 ? 100.0 : 100.0 * good / all;
        return QStringLiteral("%1 of %2 (%3 %)").arg(good).arg(all).arg(percent, 0, 'f', 1);
    }
};

class Table {
public:
    Table(QString settledFolder, QString otherFolder)
        : m_settledFolder(std::move(settledFolder))
        , m_otherFolder(std::move(otherFolder)) {
        Out() << QStringLiteral("%1 %2 %3 %4 %5 %6 %7\n")
                     .arg(QStringLiteral("file"), -52)
                     .arg(QStringLiteral("text"), -5)
                     .arg(QStringLiteral("runs"), -5)
                     .arg(QStringLiteral("bytes"), -6)
                     .arg(QStringLiteral("settled"), -8)
                     .arg(QStringLiteral("other"), -6)
                     .arg(QStringLiteral("ms"), 7);
    }

    void Add(const QString& path) {
        const QString name = QFileInfo(path).completeBaseName();
        const std::optional<QJsonObject> found = CheckApart(path);
        m_survived.Show(found.has_value());
        if (!found) {
            Row(name, {QStringLiteral("CRASH")}, 0.0);
            return;
        }
        if (!found->value(u"isRead").toBool()) {
            ++m_refused;
            Row(name, {QStringLiteral("refused")}, found->value(u"read").toDouble());
            return;
        }
        QStringList notes;
        const QString shown = found->value(u"shown").toString();
        const std::optional<QString> settled = TextOf(m_settledFolder, name);
        const std::optional<QString> other = settled ? std::nullopt : TextOf(m_otherFolder, name);
        const QStringList marks{
            m_text.Show(found->value(u"text").toBool()),
            m_runs.Show(found->value(u"formats").toBool()),
            m_bytes.Show(found->value(u"source").toBool()),
            Compare(shown, settled, quillbrook::ComputedResults::MustAgree, m_settled, notes),
            Compare(shown, other, quillbrook::ComputedResults::MayDiffer, m_other, notes),
        };
        if (const QString difference = found->value(u"difference").toString(); !difference.isEmpty())
            notes.append(difference);
        const double milliseconds = found->value(u"all").toDouble();
        m_fast.Show(milliseconds <= kSlowMilliseconds);
        m_slowest = std::max(m_slowest, milliseconds);
        m_sum += milliseconds;
        Row(name, marks, milliseconds);
        for (const QString& note : std::as_const(notes))
            Out() << "    " << note << '\n';
    }

    ExitCode Finish() const {
        const std::pair<const char*, QString> lines[] = {
            {"text stays itself", m_text.Text()},
            {"runs and formats stay", m_runs.Text()},
            {"second writing is the first", m_bytes.Text()},
            {"text is the settled one", m_settled.Text()},
            {"text is the other program's", m_other.Text()},
            {"no crash", m_survived.Text()},
            {"not above 1 s", m_fast.Text()},
            {"refused, no text at all", QString::number(m_refused)},
        };
        Out() << '\n';
        for (const auto& [what, score] : lines)
            Out() << QStringLiteral("%1 %2\n").arg(QString::fromLatin1(what), -30).arg(score);
        Out() << QStringLiteral("%1 %2 ms the slowest, %3 ms all\n")
                     .arg(QStringLiteral("reading and writing twice"), -30)
                     .arg(m_slowest, 0, 'f', 1)
                     .arg(m_sum, 0, 'f', 0);
        const bool good = m_text.Whole() && m_runs.Whole() && m_bytes.Whole() && m_settled.Whole() &&
                          m_survived.Whole() && m_fast.Whole() && m_other.good * 10 >= m_other.all * 9;
        return good ? Good : ProblemsFound;
    }

private:
    static std::optional<QString> TextOf(const QString& folder, const QString& name) {
        const std::optional<QByteArray> text =
            folder.isEmpty() ? std::nullopt : Content(QDir(folder).filePath(name + QStringLiteral(".txt")));
        return text ? std::optional(QString::fromUtf8(*text)) : std::nullopt;
    }

    static QString Compare(const QString& shown, const std::optional<QString>& theirs,
                           quillbrook::ComputedResults computed, Score& score, QStringList& notes) {
        if (!theirs)
            return QStringLiteral("-");
        const QString difference = quillbrook::TextDifference(shown, *theirs, computed);
        if (!difference.isEmpty())
            notes.append(difference);
        return score.Show(difference.isEmpty());
    }

    static void Row(const QString& name, const QStringList& marks, double milliseconds) {
        static constexpr int kWidths[] = {-5, -5, -6, -8, -6};
        QString line = QStringLiteral("%1").arg(name.left(52), -52);
        for (qsizetype i = 0; i < qsizetype(std::size(kWidths)); ++i)
            line += QStringLiteral(" %1").arg(marks.value(i), kWidths[i]);
        Out() << line << QStringLiteral(" %1\n").arg(milliseconds, 7, 'f', 1);
        Out().flush();
    }

    QString m_settledFolder;
    QString m_otherFolder;
    Score m_survived;
    Score m_text;
    Score m_runs;
    Score m_bytes;
    Score m_settled;
    Score m_other;
    Score m_fast;
    int m_refused = 0;
    double m_slowest = 0.0;
    double m_sum = 0.0;
};

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption one(QStringLiteral("one"), QStringLiteral("Check one file, tell it as JSON."),
                                 QStringLiteral("file"));
    const QCommandLineOption settled(QStringLiteral("settled"),
                                     QStringLiteral("Folder of texts (NAME.txt) that all must agree with."),
                                     QStringLiteral("folder"));
    const QCommandLineOption other(
        QStringLiteral("other"),
        QStringLiteral("Folder of texts (NAME.txt) of another program; nine of ten "
                       "must agree."),
        QStringLiteral("folder"));
    const QCommandLineOption written(QStringLiteral("written"),
                                     QStringLiteral("Folder that takes each file as it is written."),
                                     QStringLiteral("folder"));
    const QCommandLineOption printed(QStringLiteral("printed"),
                                     QStringLiteral("Folder that takes each file as it is printed, as PDF."),
                                     QStringLiteral("folder"));
    parser.addOptions({one, settled, other, written, printed});
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("folder"), QStringLiteral("Folder of rich text files."));
    parser.process(application);
    if (parser.isSet(one))
        return CheckHere(parser.value(one));
    const QStringList folders = parser.positionalArguments();
    if (folders.size() != 1 || !QDir(folders.first()).exists())
        parser.showHelp(WrongUsage);

    Table table(parser.value(settled), parser.value(other));
    const QFileInfoList files =
        QDir(folders.first()).entryInfoList({QStringLiteral("*.rtf")}, QDir::Files, QDir::Name);
    for (const QFileInfo& file : files) {
        table.Add(file.filePath());
        const QString name = file.completeBaseName();
        if (parser.isSet(written) &&
            !quillbrook::WriteAgain(file.filePath(), QDir(parser.value(written)).filePath(file.fileName())))
            Out() << "    not written\n";
        if (parser.isSet(printed) &&
            !quillbrook::PrintAsPdf(file.filePath(),
                                    QDir(parser.value(printed)).filePath(name + QStringLiteral(".pdf"))))
            Out() << "    not printed\n";
    }
    return table.Finish();
}
