#include "library/source_text.h"

#include <QFile>
#include <QStringDecoder>

namespace quillbrook {

static bool IsForbidden(QChar c) {
    const char16_t code = c.unicode();
    return (code < 0x20 && code != u'\t') || (code >= 0x7F && code < 0xA0) || code == 0x2028 ||
           code == 0x2029 || (code >= 0xFDD0 && code <= 0xFDEF) || code == 0xFEFF || code >= 0xFFFC;
}

static void CheckLine(const QString& line, int number, SourceProblems& problems) {
    for (const QChar c : line) {
        if (c == u'\r')
            problems.push_back({number, QStringLiteral("carriage return; lines end in a line feed alone")});
        else if (IsForbidden(c))
            problems.push_back(
                {number,
                 QStringLiteral("character U+%1 is not allowed")
                     .arg(QString::number(c.unicode(), 16).toUpper().rightJustified(4, QLatin1Char('0')))});
        else
            continue;
        return; // one a line is enough
    }
}

std::optional<QString> DecodeSourceText(const QByteArray& bytes, SourceProblems& problems) {
    const std::size_t before = problems.size();
    if (bytes.startsWith("\xEF\xBB\xBF"))
        problems.push_back({1, QStringLiteral("byte order mark")});
    QString text;
    int number = 0;
    for (const QByteArray& bytesOfLine : bytes.split('\n')) {
        ++number;
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        const QString line = decoder(bytesOfLine);
        if (decoder.hasError())
            problems.push_back({number, QStringLiteral("not UTF-8")});
        else
            CheckLine(line, number, problems);
        text += line + QLatin1Char('\n');
    }
    text.chop(1);
    if (!bytes.isEmpty() && !bytes.endsWith('\n'))
        problems.push_back({number, QStringLiteral("no line feed at the end of the file")});
    if (problems.size() != before)
        return std::nullopt;
    return text;
}

std::optional<QString> ReadSourceText(const QString& path, qint64 largest, SourceProblems& problems) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        problems.push_back({1, QStringLiteral("cannot be read: %1").arg(file.errorString())});
        return std::nullopt;
    }
    const QByteArray bytes = file.read(largest + 1);
    if (bytes.size() > largest) {
        problems.push_back({1, QStringLiteral("larger than %1 KiB").arg(largest / 1024)});
        return std::nullopt;
    }
    return DecodeSourceText(bytes, problems);
}

} // namespace quillbrook
