#include "platform/help/help_book.h"

#include <QRegularExpression>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <algorithm>
#include <tuple>

namespace platform {

namespace {

constexpr int kDeepest = 16;
constexpr size_t kMostEntries = 10000;
constexpr qsizetype kLongestPage = 2 << 20; // characters

QString Decoded(const QString& text) {
    return text.contains(QLatin1Char('&')) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
}

bool IsPage(const QString& name) {
    return name.endsWith(QLatin1String(".html"), Qt::CaseInsensitive) ||
           name.endsWith(QLatin1String(".htm"), Qt::CaseInsensitive);
}

QRegularExpression WordStart(const QString& word) {
    return QRegularExpression(QStringLiteral("\\b") + QRegularExpression::escape(word),
                              QRegularExpression::CaseInsensitiveOption |
                                  QRegularExpression::UseUnicodePropertiesOption);
}

} // namespace

std::vector<HelpEntry> ReadSiteMap(const QByteArray& source) {
    static const QRegularExpression tag(
        QStringLiteral(R"re(<\s*(/?\s*ul|/?\s*object|param)\b((?:[^>"]|"[^"]*")*)>)re"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression parameter(
        QStringLiteral(R"re(name\s*=\s*"([^"]*)"\s*value\s*=\s*"([^"]*)")re"),
        QRegularExpression::CaseInsensitiveOption);
    std::vector<HelpEntry> entries;
    HelpEntry entry;
    int depth = -1;
    auto tags = tag.globalMatch(QString::fromUtf8(source));
    while (tags.hasNext() && entries.size() < kMostEntries) {
        const QRegularExpressionMatch match = tags.next();
        const QString kind = match.captured(1).toLower().remove(QLatin1Char(' '));
        if (kind == QLatin1String("ul")) {
            ++depth;
        } else if (kind == QLatin1String("/ul")) {
            --depth;
        } else if (kind == QLatin1String("object")) {
            entry = HelpEntry();
        } else if (kind == QLatin1String("/object")) {
            entry.depth = std::clamp(depth, 0, kDeepest);
            if (!entry.name.isEmpty())
                entries.push_back(entry);
        } else {
            const QRegularExpressionMatch pair = parameter.match(match.captured(2));
            const QString value = Decoded(pair.captured(2));
            if (pair.captured(1).compare(QLatin1String("Name"), Qt::CaseInsensitive) == 0 &&
                entry.name.isEmpty())
                entry.name = value;
            else if (pair.captured(1).compare(QLatin1String("Local"), Qt::CaseInsensitive) == 0)
                entry.page = value;
        }
    }
    return entries;
}

ChmFile::State HelpBook::Open(const QString& path) {
    m_contents.clear();
    m_index.clear();
    m_words.clear();
    if (m_file.Open(path) != ChmFile::State::Open)
        return m_file.CurrentState();
    m_contents = ReadSiteMap(m_file.Read(m_file.ContentsFile()));
    m_index = ReadSiteMap(m_file.Read(m_file.IndexFile()));
    std::stable_sort(m_index.begin(), m_index.end(), [](const HelpEntry& a, const HelpEntry& b) {
        return a.name.compare(b.name, Qt::CaseInsensitive) < 0;
    });
    return m_file.CurrentState();
}

QString HelpBook::Title() const {
    return m_file.Title();
}

QString HelpBook::HomePage() const {
    if (!m_file.Read(m_file.DefaultTopic()).isNull())
        return m_file.DefaultTopic();
    const QStringList pages = Pages();
    return pages.isEmpty() ? QString() : pages.first();
}

QStringList HelpBook::Pages() const {
    QStringList pages = m_file.Names();
    pages.removeIf([](const QString& name) { return !IsPage(name); });
    return pages;
}

const HelpBook::PageWords& HelpBook::WordsOf(const QString& page) const {
    const auto known = m_words.constFind(page);
    if (known != m_words.constEnd())
        return *known;
    QTextDocument document;
    document.setHtml(QString::fromUtf8(m_file.Read(page)).left(kLongestPage));
    QString text = document.toPlainText();
    text.remove(QChar::ObjectReplacementCharacter);
    return *m_words.insert(page, {document.metaInformation(QTextDocument::DocumentTitle), text});
}

QString HelpBook::PageTitle(const QString& page) const {
    const QString title = WordsOf(page).title;
    return title.isEmpty() ? page : title;
}

QString HelpBook::PageText(const QString& page) const {
    return WordsOf(page).text;
}

QStringList HelpBook::Search(const QString& query) const {
    std::vector<QRegularExpression> words;
    for (const QString& word : query.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts))
        words.push_back(WordStart(word));
    if (words.empty())
        return {};
    struct Found {
        QString page;
        qsizetype inTitle = 0;
        qsizetype inText = 0;
    };
    std::vector<Found> found;
    for (const QString& page : Pages()) {
        Found entry{page};
        const bool hasAll = std::all_of(words.begin(), words.end(), [&](const QRegularExpression& word) {
            const qsizetype count = PageText(page).count(word);
            entry.inText += count;
            entry.inTitle += PageTitle(page).count(word);
            return count > 0;
        });
        if (hasAll)
            found.push_back(entry);
    }
    std::stable_sort(found.begin(), found.end(), [](const Found& a, const Found& b) {
        return std::tie(b.inTitle, b.inText) < std::tie(a.inTitle, a.inText);
    });
    QStringList pages;
    for (const Found& entry : found)
        pages.append(entry.page);
    return pages;
}

} // namespace platform
