#include "library/form_texts.h"

#include <QRegularExpression>

namespace quillbrook {
namespace {

void AddText(const Runs& runs, int line, FormTexts& texts) {
    if (const QString text = PlainText(runs); !text.trimmed().isEmpty())
        texts.push_back({line, text});
}

void AddList(const List& list, FormTexts& texts) {
    for (const ListItem& item : list.items) {
        AddText(item.runs, item.line, texts);
        for (const List& nested : item.nested)
            AddList(nested, texts);
    }
}

} // namespace

FormTexts TextsOf(const std::vector<Block>& blocks) {
    FormTexts texts;
    for (const Block& block : blocks) {
        if (const auto* paragraph = std::get_if<Paragraph>(&block.content))
            AddText(paragraph->runs, block.line, texts);
        else if (const auto* list = std::get_if<List>(&block.content))
            AddList(*list, texts);
        else
            for (const auto& row : std::get<Table>(block.content).rows)
                for (const TableCell& cell : row)
                    AddText(cell.runs, cell.line, texts);
    }
    return texts;
}

std::vector<Word> WordsOf(const FormTexts& texts) {
    // neither letters that touch a digit, as in "2nd" or "P500", nor an ending in brackets, as in
    // "child[ren]"
    static const QRegularExpression word(
        QStringLiteral("(?<![\\p{L}\\p{N}])(?<!\\p{L}\\[)\\p{L}+(?:['\\x{2019}]\\p{L}+)*(?![\\p{L}\\p{N}])"));
    std::vector<Word> words;
    for (const FormText& text : texts)
        for (const QRegularExpressionMatch& match : word.globalMatch(text.text))
            words.push_back({text.line, match.captured().replace(QChar(0x2019), u'\'')});
    return words;
}

} // namespace quillbrook
