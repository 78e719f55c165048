#include "library/spelling.h"

#include "library/source_text.h"

#include <QFile>
#include <QSet>
#include <QStandardPaths>
#include <hunspell.hxx>

static void InitWords() {
    Q_INIT_RESOURCE(words); // of a static library
}

namespace quillbrook {
namespace {

constexpr char kDictionary[] = "en_US";

// The dictionary's path without extension; empty when there is none.
QString FindDictionary(const QStringList& folders) {
    for (const QString& folder : folders) {
        const QString path = folder + u'/' + QLatin1String(kDictionary);
        if (QFile::exists(path + QStringLiteral(".aff")) && QFile::exists(path + QStringLiteral(".dic")))
            return path;
    }
    return {};
}

} // namespace

QStringList DictionaryFolders() {
    QStringList folders = qEnvironmentVariable("DICPATH").split(u':', Qt::SkipEmptyParts);
    const QStringList data = QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
    for (const QString& folder : data)
        folders << folder + QStringLiteral("/hunspell") << folder + QStringLiteral("/myspell/dicts");
    return folders << QStringLiteral("/usr/share/hunspell") << QStringLiteral("/usr/share/myspell/dicts");
}

SpellingDictionary::SpellingDictionary(const QStringList& ownWords, const QStringList& folders) {
    const QString path = FindDictionary(folders);
    if (path.isEmpty())
        return;
    m_dictionary = std::make_unique<Hunspell>((path + QStringLiteral(".aff")).toLocal8Bit().constData(),
                                              (path + QStringLiteral(".dic")).toLocal8Bit().constData());
    for (const QString& word : ownWords)
        m_dictionary->add(word.toStdString());
}

SpellingDictionary::~SpellingDictionary() = default;

bool SpellingDictionary::Knows(const QString& word) const {
    if (!m_dictionary || m_dictionary->spell(word.toStdString()))
        return true;
    for (const QLatin1String ending : {QLatin1String("'s"), QLatin1String("'S"), QLatin1String("'")})
        if (word.endsWith(ending) && m_dictionary->spell(word.chopped(ending.size()).toStdString()))
            return true;
    return false;
}

QStringList LegalWords() {
    InitWords();
    QFile file(QStringLiteral(":/library/legal.txt"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    SourceProblems problems;
    return ReadWordList(QString::fromUtf8(file.readAll()), problems);
}

QStringList ReadWordList(QStringView text, SourceProblems& problems) {
    QStringList words;
    int line = 0;
    if (!text.isEmpty() && !text.endsWith(u'\n'))
        problems.push_back({1, QStringLiteral("no line feed at the end")});
    for (const QStringView part : text.split(u'\n')) {
        ++line;
        const QString word = part.toString();
        if (word.isEmpty() && line > text.count(u'\n'))
            break; // behind the last line feed
        if (word.isEmpty() || word != word.simplified() || word.contains(u' '))
            problems.push_back({line, QStringLiteral("not one word: \"%1\"").arg(word)});
        else if (!words.isEmpty() && QString::compare(words.back(), word, Qt::CaseInsensitive) >= 0)
            problems.push_back(
                {line, QStringLiteral("\"%1\" does not come behind \"%2\"").arg(word, words.back())});
        words.append(word);
    }
    return words;
}

SourceProblems CheckSpelling(const std::vector<Word>& words, const SpellingDictionary& dictionary) {
    SourceProblems problems;
    QSet<QString> seen;
    for (const Word& word : words) {
        if (seen.contains(word.text))
            continue;
        seen.insert(word.text);
        if (!dictionary.Knows(word.text))
            problems.push_back({word.line, QStringLiteral("unknown word \"%1\"").arg(word.text)});
    }
    return problems;
}

} // namespace quillbrook
