// quillbrook-library: makes, checks and lists a library.
#include "library/checker.h"
#include "library/library_builder.h"
#include "library/library_list.h"
#include "library/review.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QSet>
#include <QTextStream>

namespace {

using quillbrook::CheckedLibrary;

enum ExitCode { Good = 0, ProblemsFound = 1, WrongUsage = 2 };

QTextStream& Out() {
    static QTextStream stream(stdout);
    return stream;
}

QTextStream& Errors() {
    static QTextStream stream(stderr);
    return stream;
}

void PrintUsage() {
    Errors() << "usage: quillbrook-library build FORMS_DIR OUT_FILE   make the library file\n"
                "       quillbrook-library check FORMS_DIR            report what is wrong in the sources\n"
                "       quillbrook-library list FORMS_DIR             category, sub-category and title of "
                "each form\n"
                "       quillbrook-library list --markdown FORMS_DIR  the same with counts, as a document\n";
}

bool PrintProblems(const std::vector<quillbrook::LibraryProblem>& problems) {
    for (const quillbrook::LibraryProblem& problem : problems)
        Errors() << problem.Message() << '\n';
    if (problems.empty())
        return false;
    Errors() << problems.size() << (problems.size() == 1 ? " problem\n" : " problems\n");
    return true;
}

QString Counts(const quillbrook::LibraryContent& content) {
    QSet<QString> categories;
    QSet<QString> subCategories;
    for (const quillbrook::LibraryForm& form : content.forms) {
        categories.insert(form.source.category);
        subCategories.insert(form.source.category + u'\n' + form.source.subCategory);
    }
    return QStringLiteral("%1 forms in %2 categories and %3 sub-categories, %4 clauses")
        .arg(content.forms.size())
        .arg(categories.size())
        .arg(subCategories.size())
        .arg(content.clauses.size());
}

ExitCode Check(const QString& folder) {
    CheckedLibrary library = quillbrook::CheckLibrary(folder);
    if (library.problems.empty())
        library.problems = quillbrook::ReviewLibrary(
            library.content, quillbrook::SpellingDictionary(quillbrook::LegalWords()));
    if (PrintProblems(library.problems))
        return ProblemsFound;
    Out() << Counts(library.content) << '\n';
    return Good;
}

ExitCode List(const QString& folder) {
    const CheckedLibrary library = quillbrook::CheckLibrary(folder);
    for (const quillbrook::LibraryForm& form : library.content.forms)
        Out() << form.source.category << '\t' << form.source.subCategory << '\t' << form.source.title << '\n';
    Out() << Counts(library.content) << '\n';
    Out().flush();
    return PrintProblems(library.problems) ? ProblemsFound : Good;
}

ExitCode ListAsMarkdown(const QString& folder) {
    const CheckedLibrary library = quillbrook::CheckLibrary(folder);
    Out() << quillbrook::MarkdownList(library.content);
    Out().flush();
    return PrintProblems(library.problems) ? ProblemsFound : Good;
}

ExitCode Build(const QString& folder, const QString& path) {
    const CheckedLibrary library = quillbrook::CheckLibrary(folder);
    if (PrintProblems(library.problems))
        return ProblemsFound;
    QString reason;
    if (!quillbrook::BuildLibrary(library.content, path, reason)) {
        Errors() << "quillbrook-library: " << reason << '\n';
        return ProblemsFound;
    }
    Out() << path << ": " << Counts(library.content) << ", " << QFileInfo(path).size() / 1024 << " KiB\n";
    return Good;
}

} // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen"); // fonts are needed, a display is not
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QGuiApplication::arguments().mid(1);
    if (arguments.size() == 3 && arguments[0] == QLatin1String("build"))
        return Build(arguments[1], arguments[2]);
    if (arguments.size() == 2 && arguments[0] == QLatin1String("check"))
        return Check(arguments[1]);
    if (arguments.size() == 2 && arguments[0] == QLatin1String("list"))
        return List(arguments[1]);
    if (arguments.size() == 3 && arguments[0] == QLatin1String("list") &&
        arguments[1] == QLatin1String("--markdown"))
        return ListAsMarkdown(arguments[2]);
    PrintUsage();
    return WrongUsage;
}
