#include "platform/rich_text/rich_text_plain.h"

#include <QStringConverter>
#include <QTextDocument>
#include <algorithm>

#include "platform/rich_text/rtf_code_pages.h"

namespace platform {
namespace {

constexpr qsizetype kLongestWord = 20'000;

constexpr char16_t kFrameStart = u'\uFDD0'; // what Qt puts where a table cell or a table begins and ends
constexpr char16_t kFrameEnd = u'\uFDD1';

bool IsLineEnd(QChar character) {
    return character == QChar::ParagraphSeparator || character == QChar::LineSeparator ||
           character == kFrameStart || character == kFrameEnd;
}

} // namespace

QString PlainText(const QTextDocument& document) {
    return PlainText(document.toRawText());
}

QString PlainText(QString raw) {
    std::replace_if(raw.begin(), raw.end(), IsLineEnd, QChar(u'\n'));
    return raw;
}

QString WithLineBreaks(const QString& text, const QString& raw) {
    if (text.count(u'\n') != std::count_if(raw.begin(), raw.end(), IsLineEnd))
        return text;
    QString broken = text;
    qsizetype end = -1;
    for (const QChar character : raw) {
        if (!IsLineEnd(character))
            continue;
        end = text.indexOf(u'\n', end + 1);
        if (character == QChar::LineSeparator)
            broken[end] = character;
    }
    return broken;
}

QString NormalizedText(const QString& text) {
    QString normal;
    normal.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        switch (const QChar character = text[i]; character.unicode()) {
        case u'\r':
            if (i + 1 < text.size() && text[i + 1] == u'\n')
                ++i;
            [[fallthrough]];
        case u'\f':
        case QChar::ParagraphSeparator:
        case QChar::LineSeparator:
            normal.append(u'\n');
            break;
        case QChar::ObjectReplacementCharacter:
        case kFrameStart:
        case kFrameEnd:
        case u'\0':
            break;
        default:
            normal.append(character);
        }
    }
    return normal;
}

std::optional<QString> DecodeText(QByteArrayView bytes) {
    if (const auto mark = QStringConverter::encodingForData(bytes)) {
        if (*mark == QStringConverter::Utf16LE || *mark == QStringConverter::Utf16BE ||
            *mark == QStringConverter::Utf8) {
            QStringDecoder decoder(*mark);
            QString text = decoder(bytes);
            return text;
        }
    }
    if (bytes.contains('\0'))
        return std::nullopt;
    QStringDecoder utf8(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    QString text = utf8(bytes);
    if (utf8.hasError()) {
        text.clear();
        RtfDecoder::Of(1252).Append(bytes, text);
    }
    return text;
}

bool IsRtf(QByteArrayView source) {
    qsizetype start = 0;
    while (start < source.size() &&
           (source[start] == ' ' || (source[start] >= '\t' && source[start] <= '\r')))
        ++start;
    return source.sliced(start).startsWith("{\\rtf");
}

bool HasOverlongWord(const QString& text) {
    qsizetype length = 0;
    for (const QChar character : text) {
        const bool breaks = character.isSpace() || character == u'-' || character.unicode() == kFrameStart ||
                            character.unicode() == kFrameEnd;
        length = breaks ? 0 : length + 1;
        if (length > kLongestWord)
            return true;
    }
    return false;
}

} // namespace platform
