#include "library/checker.h"

#include "library/categories.h"
#include "library/clause_kinds.h"
#include "library/form_rules.h"
#include "library/source_text.h"

#include <QDir>
#include <QDirIterator>
#include <QHash>
#include <algorithm>
#include <tuple>

namespace quillbrook {
namespace {

constexpr int kMostFiles = 5'000;

class Checker {
public:
    explicit Checker(const QString& folder)
        : m_folder(folder) {}

    CheckedLibrary Run() {
        if (!m_folder.exists()) {
            Report(m_folder.path(), 1, QStringLiteral("there is no such folder"));
            return std::move(m_result);
        }
        for (const QString& path : FormFiles())
            ReadForm(path);
        for (const ClauseKind& kind : kClauseKinds)
            for (int number = 1; number <= kind.count; ++number)
                ReadClause(kind.table, number);
        CheckTitlesUnique();
        Sort();
        return std::move(m_result);
    }

private:
    void Report(const QString& file, int line, const QString& text) {
        m_result.problems.push_back({file, line, text});
    }

    void Report(const QString& file, const SourceProblems& problems) {
        for (const SourceProblem& problem : problems)
            Report(file, problem.line, problem.text);
    }

    // Paths below the folder, in a fixed order. What is neither a form nor a clause is reported.
    QStringList FormFiles() {
        QStringList forms;
        int count = 0;
        QDirIterator files(m_folder.absolutePath(), QDir::Files | QDir::NoSymLinks,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = m_folder.relativeFilePath(files.next());
            if (++count > kMostFiles) {
                Report(m_folder.path(), 1, QStringLiteral("more than %1 files").arg(kMostFiles));
                return {};
            }
            if (path.startsWith(QLatin1String("clauses/")))
                CheckClausePath(path);
            else if (path.endsWith(QLatin1String(".html")))
                forms.append(path);
            else
                Report(m_folder.filePath(path), 1, QStringLiteral("neither a form nor a clause"));
        }
        forms.sort();
        return forms;
    }

    void CheckClausePath(const QString& path) {
        for (const ClauseKind& kind : kClauseKinds)
            for (int number = 1; number <= kind.count; ++number)
                if (path == ClausePath(kind.table, number))
                    return;
        Report(m_folder.filePath(path), 1, QStringLiteral("no command adds this clause"));
    }

    static QString ClausePath(QLatin1String table, int number) {
        return QStringLiteral("clauses/%1/%2.txt").arg(table).arg(number);
    }

    void ReadForm(const QString& path) {
        const QString file = m_folder.filePath(path);
        SourceProblems problems;
        if (const std::optional<QString> text = ReadSourceText(file, kLargestFormFile, problems)) {
            LibraryForm form{file, ReadFormSource(*text, problems)};
            CheckForm(form.source, problems);
            CheckPlace(form.source, path, problems);
            m_result.content.forms.push_back(std::move(form));
        }
        Report(file, problems);
    }

    void ReadClause(QLatin1String table, int number) {
        const QString file = m_folder.filePath(ClausePath(table, number));
        if (!QFile::exists(file))
            return Report(file, 1, QStringLiteral("missing clause %1 of %2").arg(number).arg(table));
        SourceProblems problems;
        if (std::optional<QString> text = ReadSourceText(file, kLargestClauseFile, problems)) {
            if (text->endsWith(u'\n'))
                text->chop(1);
            if (text->trimmed().isEmpty())
                problems.push_back({1, QStringLiteral("empty clause")});
            m_result.content.clauses.push_back({table, number, *text, file});
        }
        Report(file, problems);
    }

    void CheckTitlesUnique() {
        QHash<QString, const LibraryForm*> known;
        for (const LibraryForm& form : m_result.content.forms) {
            if (form.source.title.isEmpty())
                continue;
            const LibraryForm*& first = known[form.source.title.toCaseFolded()];
            if (first)
                Report(form.file, form.source.titleLine,
                       QStringLiteral("title \"%1\" is already that of %2:%3")
                           .arg(form.source.title, first->file, QString::number(first->source.titleLine)));
            else
                first = &form;
        }
    }

    void Sort() {
        std::stable_sort(m_result.problems.begin(), m_result.problems.end(),
                         [](const LibraryProblem& a, const LibraryProblem& b) {
                             return std::tie(a.file, a.line) < std::tie(b.file, b.line);
                         });
        const auto key = [](const LibraryForm& form) {
            return std::tuple(CategoryIndex(form.source.category), form.source.subCategory.toCaseFolded(),
                              form.source.subCategory, form.source.title.toCaseFolded());
        };
        std::stable_sort(m_result.content.forms.begin(), m_result.content.forms.end(),
                         [&key](const LibraryForm& a, const LibraryForm& b) { return key(a) < key(b); });
    }

    QDir m_folder;
    CheckedLibrary m_result;
};

} // namespace

QString LibraryProblem::Message() const {
    return QStringLiteral("%1:%2: error: %3").arg(file, QString::number(line), text);
}

CheckedLibrary CheckLibrary(const QString& folder) {
    return Checker(folder).Run();
}

} // namespace quillbrook
