#include "library/library_list.h"

#include "library/categories.h"

#include <map>

namespace quillbrook {
namespace {

using Titles = QStringList;
using SubCategories = std::vector<std::pair<QString, Titles>>; // in the library's order

std::map<std::size_t, SubCategories> Sort(const LibraryContent& content) {
    std::map<std::size_t, SubCategories> sorted;
    for (const LibraryForm& form : content.forms) {
        SubCategories& subCategories = sorted[CategoryIndex(form.source.category)];
        if (subCategories.empty() || subCategories.back().first != form.source.subCategory)
            subCategories.emplace_back(form.source.subCategory, Titles());
        subCategories.back().second.append(form.source.title);
    }
    return sorted;
}

qsizetype Count(const SubCategories& subCategories) {
    qsizetype count = 0;
    for (const auto& [name, titles] : subCategories)
        count += titles.size();
    return count;
}

// Characters of titles that markdown would take for its own.
QString Escaped(const QString& text) {
    QString escaped;
    for (const QChar character : text) {
        if (QStringLiteral("\\`*_[]<>#|").contains(character))
            escaped += u'\\';
        escaped += character;
    }
    return escaped;
}

QString CategoryName(std::size_t index) {
    return index < kCategories.size() ? QString(kCategories[index]) : QStringLiteral("Other");
}

} // namespace

QString MarkdownList(const LibraryContent& content) {
    const std::map<std::size_t, SubCategories> sorted = Sort(content);
    QString text = QStringLiteral(
        "# The forms of the library\n\n"
        "Made by `quillbrook-library list --markdown forms`; a test tells when it is out of date.\n\n"
        "| Category | Sub-categories | Forms |\n|---|--:|--:|\n");
    std::size_t subCategoryCount = 0;
    for (const auto& [index, subCategories] : sorted) {
        text += QStringLiteral("| %1 | %2 | %3 |\n")
                    .arg(CategoryName(index))
                    .arg(subCategories.size())
                    .arg(Count(subCategories));
        subCategoryCount += subCategories.size();
    }
    text += QStringLiteral("| **All** | **%1** | **%2** |\n").arg(subCategoryCount).arg(content.forms.size());
    for (const auto& [index, subCategories] : sorted) {
        text += QStringLiteral("\n## %1 (%2)\n").arg(CategoryName(index)).arg(Count(subCategories));
        for (const auto& [name, titles] : subCategories) {
            text += QStringLiteral("\n### %1 (%2)\n\n").arg(Escaped(name)).arg(titles.size());
            for (const QString& title : titles)
                text += QStringLiteral("- %1\n").arg(Escaped(title));
        }
    }
    return text;
}

} // namespace quillbrook
