#include "platform/word/word_list.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <iterator>

namespace platform {

namespace {

constexpr qint64 kMostBytes = 4 * 1024 * 1024;

} // namespace

QStringList WordsOfFile(const QString& path) {
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly))
        return {};
    QStringList words;
    for (const QString& line : QString::fromUtf8(file.read(kMostBytes)).split(u'\n'))
        if (const QString word = line.trimmed(); !word.isEmpty() && !word.startsWith(u'#'))
            words.append(word);
    return words;
}

WordList::WordList(const QStringList& shipped, const QString& file)
    : m_file(file) {
    for (const QStringList& words : {shipped, WordsOfFile(file)})
        for (const QString& word : words)
            m_words.insert(word.toLower());
}

bool WordList::Contains(const QString& word) const {
    return m_words.contains(word.toLower());
}

bool WordList::Add(const QString& word) {
    const QString known = word.trimmed();
    if (known.isEmpty() || Contains(known))
        return !known.isEmpty();
    m_words.insert(known.toLower());
    if (m_file.isEmpty())
        return false;
    QDir().mkpath(QFileInfo(m_file).absolutePath());
    QFile file(m_file);
    const QByteArray line = known.toUtf8() + '\n';
    return file.open(QIODevice::WriteOnly | QIODevice::Append) && file.write(line) == line.size() &&
           file.flush();
}

QStringList WordList::Without(const QStringList& words) const {
    QStringList unknown;
    std::copy_if(words.begin(), words.end(), std::back_inserter(unknown),
                 [this](const QString& word) { return !Contains(word); });
    return unknown;
}

} // namespace platform
