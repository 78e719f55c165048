#include "library/form_rules.h"

#include "library/categories.h"
#include "library/clause_kinds.h"

#include <QRegularExpression>
#include <QStringList>

namespace quillbrook {
namespace {

// A name that the program puts into its statements as it is.
void CheckName(const QString& what, const QString& name, int line, SourceProblems& problems) {
    static const QRegularExpression quote(QStringLiteral("['\"\\x{2018}\\x{2019}\\x{201C}\\x{201D}]"));
    if (name.isEmpty())
        return; // told where it was read
    if (name != name.simplified())
        problems.push_back({line, QStringLiteral("blanks at the ends of the %1 or two in a row").arg(what)});
    if (name.size() > kLongestTitle)
        problems.push_back(
            {line, QStringLiteral("%1 of more than %2 characters").arg(what).arg(kLongestTitle)});
    if (const QRegularExpressionMatch match = quote.match(name); match.hasMatch()) {
        const bool isDouble = QStringLiteral("\"\u201C\u201D").contains(match.captured());
        problems.push_back({line, isDouble ? QStringLiteral("double quote in the %1").arg(what)
                                           : QStringLiteral("apostrophe in the %1").arg(what)});
    }
}

void CheckMarker(const QString& text, bool isPlain, int line, SourceProblems& problems) {
    if (!LooksLikeMarker(text))
        return;
    if (std::find(kMarkers.begin(), kMarkers.end(), text) == kMarkers.end())
        problems.push_back({line, QStringLiteral("no clause serves the marker %1").arg(text)});
    else if (!isPlain)
        problems.push_back({line, QStringLiteral("write the marker as <p class=\"plain\">%1</p>").arg(text)});
}

void CheckListMarkers(const List& list, SourceProblems& problems) {
    for (const ListItem& item : list.items) {
        CheckMarker(PlainText(item.runs), false, item.line, problems);
        for (const List& nested : item.nested)
            CheckListMarkers(nested, problems);
    }
}

} // namespace

bool LooksLikeMarker(const QString& text) {
    static const QRegularExpression capitals(QRegularExpression::anchoredPattern(
        QStringLiteral("\\(\\p{Lu}[\\p{Lu} .,;:/&'\\x{2019}-]*\\p{Lu}\\.?\\)")));
    return capitals.match(text.trimmed()).hasMatch();
}

void CheckForm(const FormSource& form, SourceProblems& problems) {
    CheckName(QStringLiteral("title"), form.title, form.titleLine, problems);
    CheckName(QStringLiteral("sub-category"), form.subCategory, form.subCategoryLine, problems);
    if (!form.category.isEmpty() && CategoryIndex(form.category) == kCategories.size())
        problems.push_back({form.categoryLine, QStringLiteral("unknown category \"%1\"").arg(form.category)});
    for (const Block& block : form.blocks) {
        if (const auto* paragraph = std::get_if<Paragraph>(&block.content))
            CheckMarker(PlainText(paragraph->runs), paragraph->kind == ParagraphClass::Plain, block.line,
                        problems);
        else if (const auto* list = std::get_if<List>(&block.content))
            CheckListMarkers(*list, problems);
        else
            for (const auto& row : std::get<Table>(block.content).rows)
                for (const TableCell& cell : row)
                    CheckMarker(PlainText(cell.runs), false, cell.line, problems);
    }
}

void CheckPlace(const FormSource& form, const QString& relativePath, SourceProblems& problems) {
    const QStringList parts = relativePath.split(u'/');
    if (parts.size() != 3) {
        problems.push_back({1, QStringLiteral("a form lies in <Category>/<Sub-Category>/<Title>.html")});
        return;
    }
    const auto compare = [&problems](const QString& what, const QString& name, int line,
                                     const QString& part) {
        if (!name.isEmpty() && PathComponent(name) != part)
            problems.push_back(
                {line, QStringLiteral("%1 \"%2\" does not fit \"%3\" in the path").arg(what, name, part)});
    };
    compare(QStringLiteral("category"), form.category, form.categoryLine, parts[0]);
    compare(QStringLiteral("sub-category"), form.subCategory, form.subCategoryLine, parts[1]);
    compare(QStringLiteral("title"), form.title, form.titleLine, parts[2].chopped(5)); // ".html"
}

} // namespace quillbrook
