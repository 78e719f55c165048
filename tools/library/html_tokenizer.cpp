#include "library/html_tokenizer.h"

#include <algorithm>
#include <array>

namespace quillbrook {
namespace {

constexpr std::size_t kMostProblems = 50; // of one file; the rest would tell nothing new
constexpr qsizetype kLongestEntity = 8;

struct Entity {
    QLatin1String name;
    char16_t character;
};

constexpr std::array<Entity, 5> kEntities = {{
    {QLatin1String("amp"), u'&'},
    {QLatin1String("lt"), u'<'},
    {QLatin1String("gt"), u'>'},
    {QLatin1String("nbsp"), u'\u00A0'},
    {QLatin1String("quot"), u'"'},
}};

bool IsSpace(QChar c) {
    return c == u' ' || c == u'\t' || c == u'\n';
}

bool IsNameCharacter(QChar c) {
    return (c >= u'a' && c <= u'z') || (c >= u'0' && c <= u'9') || c == u'-';
}

class Tokenizer {
public:
    Tokenizer(QStringView source, SourceProblems& problems)
        : m_source(source)
        , m_problems(problems) {}

    std::vector<HtmlToken> Run() {
        while (m_at < m_source.size() && m_problems.size() < kMostProblems) {
            if (Rest().startsWith(u"<!--"))
                SkipComment();
            else if (Here() == u'<')
                ReadTag();
            else
                ReadText();
        }
        return std::move(m_tokens);
    }

private:
    QStringView Rest() const { return m_source.mid(m_at); }
    QChar Here() const { return m_at < m_source.size() ? m_source[m_at] : QChar(); }

    void Report(int line, const QString& text) { m_problems.push_back({line, text}); }

    QChar Take() {
        const QChar c = m_source[m_at++];
        if (c == u'\n')
            ++m_line;
        return c;
    }

    void SkipSpace() {
        while (m_at < m_source.size() && IsSpace(Here()))
            Take();
    }

    void SkipComment() {
        const int line = m_line;
        const qsizetype end = m_source.indexOf(u"-->", m_at + 4);
        if (end < 0)
            Report(line, QStringLiteral("comment without an end"));
        const qsizetype next = end < 0 ? m_source.size() : end + 3;
        while (m_at < next)
            Take();
    }

    void ReadText() {
        HtmlToken token;
        token.line = m_line;
        while (m_at < m_source.size() && Here() != u'<')
            token.text += Here() == u'&' ? ReadEntity() : Take();
        token.endLine = m_line;
        m_tokens.push_back(std::move(token));
    }

    QChar ReadEntity() {
        const QStringView rest = m_source.mid(m_at + 1, kLongestEntity);
        const QStringView name = rest.left(std::max<qsizetype>(rest.indexOf(u';'), 0));
        const auto entity = std::find_if(kEntities.begin(), kEntities.end(),
                                         [name](const Entity& known) { return name == known.name; });
        if (entity == kEntities.end()) {
            Report(m_line, name.isEmpty() ? QStringLiteral("bare &, write &amp;")
                                          : QStringLiteral("unknown entity &%1;").arg(name));
            return Take();
        }
        m_at += name.size() + 2;
        return entity->character;
    }

    QString ReadName() {
        const qsizetype first = m_at;
        while (m_at < m_source.size() && IsNameCharacter(Here()))
            ++m_at;
        return m_source.mid(first, m_at - first).toString();
    }

    void ReadTag() {
        HtmlToken token;
        token.line = m_line;
        token.kind = HtmlToken::Kind::Open;
        Take();
        if (Here() == u'/') {
            token.kind = HtmlToken::Kind::Close;
            Take();
        }
        token.text = ReadName();
        if (token.text.isEmpty())
            return Report(token.line, QStringLiteral("bare <, write &lt;; tags are in small letters"));
        SkipSpace();
        while (token.kind == HtmlToken::Kind::Open && IsNameCharacter(Here())) {
            if (!ReadAttribute(token))
                return SkipTag();
            SkipSpace();
        }
        if (Here() != u'>') {
            Report(m_line, QStringLiteral("tag <%1> without its >").arg(token.text));
            return SkipTag();
        }
        Take();
        token.endLine = m_line;
        m_tokens.push_back(std::move(token));
    }

    bool ReadAttribute(HtmlToken& token) {
        const int line = m_line;
        const QString name = ReadName();
        if (!Rest().startsWith(u"=\"")) {
            Report(line, QStringLiteral("attribute %1 without a quoted value").arg(name));
            return false;
        }
        m_at += 2;
        QString value;
        while (m_at < m_source.size() && Here() != u'"' && Here() != u'<')
            value += Here() == u'&' ? ReadEntity() : Take();
        if (Here() != u'"') {
            Report(line, QStringLiteral("attribute %1 without a closing quote").arg(name));
            return false;
        }
        Take();
        const auto same = [&name](const HtmlAttribute& other) { return other.name == name; };
        if (std::any_of(token.attributes.begin(), token.attributes.end(), same))
            Report(line, QStringLiteral("attribute %1 given twice").arg(name));
        token.attributes.push_back({name, value});
        return true;
    }

    void SkipTag() {
        while (m_at < m_source.size() && Here() != u'<')
            if (Take() == u'>')
                return;
    }

    QStringView m_source;
    SourceProblems& m_problems;
    std::vector<HtmlToken> m_tokens;
    qsizetype m_at = 0;
    int m_line = 1;
};

} // namespace

bool HtmlToken::IsBlank() const {
    return kind == Kind::Text && std::all_of(text.begin(), text.end(), IsSpace);
}

std::optional<QString> HtmlToken::Attribute(QLatin1String name) const {
    for (const HtmlAttribute& attribute : attributes)
        if (attribute.name == name)
            return attribute.value;
    return std::nullopt;
}

std::vector<HtmlToken> TokenizeHtml(QStringView source, SourceProblems& problems) {
    return Tokenizer(source, problems).Run();
}

} // namespace quillbrook
