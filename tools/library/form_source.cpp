#include "library/form_source.h"

#include "library/html_subset.h"

#include <QRegularExpression>

namespace quillbrook {
namespace {

// The three elements that a file begins with, in their order, each on a line of its own.
class HeadReader {
public:
    HeadReader(const std::vector<HtmlToken>& tokens, SourceProblems& problems)
        : m_tokens(tokens)
        , m_problems(problems) {}

    // Index of the first token of the body.
    std::size_t Read(FormSource& form) {
        ReadTitle(form);
        ReadMeta(QStringLiteral("category"), form.category, form.categoryLine);
        ReadMeta(QStringLiteral("sub-category"), form.subCategory, form.subCategoryLine);
        SkipBlank();
        CheckOwnLine();
        return m_at;
    }

private:
    void SkipBlank() {
        while (m_at < m_tokens.size() && m_tokens[m_at].IsBlank())
            ++m_at;
    }

    int Line() const {
        if (m_at < m_tokens.size())
            return m_tokens[m_at].line;
        return m_tokens.empty() ? 1 : m_tokens.back().endLine;
    }

    void CheckOwnLine() {
        if (m_at < m_tokens.size() && m_lastLine == Line())
            m_problems.push_back({Line(), QStringLiteral("stands on one line with the element before it")});
        m_lastLine = 0;
    }

    void CheckNotBlank(const QString& what, const QString& value, int line) {
        if (value.trimmed().isEmpty())
            m_problems.push_back({line, QStringLiteral("empty %1").arg(what)});
    }

    void ReadTitle(FormSource& form) {
        SkipBlank();
        form.titleLine = Line();
        if (m_at + 2 >= m_tokens.size() || !m_tokens[m_at].IsOpen(QLatin1String("title")) ||
            m_tokens[m_at + 1].kind != HtmlToken::Kind::Text ||
            !m_tokens[m_at + 2].IsClose(QLatin1String("title"))) {
            m_problems.push_back({Line(), QStringLiteral("<title>...</title> is expected here")});
            return;
        }
        form.title = m_tokens[m_at + 1].text;
        CheckNotBlank(QStringLiteral("title"), form.title, form.titleLine);
        m_lastLine = m_tokens[m_at + 2].line;
        if (m_lastLine != form.titleLine)
            m_problems.push_back({form.titleLine, QStringLiteral("the title goes over several lines")});
        m_at += 3;
    }

    void ReadMeta(const QString& name, QString& value, int& line) {
        SkipBlank();
        CheckOwnLine();
        line = Line();
        const bool isMeta = m_at < m_tokens.size() && m_tokens[m_at].IsOpen(QLatin1String("meta"));
        const std::optional<QString> content =
            isMeta ? m_tokens[m_at].Attribute(QLatin1String("content")) : std::nullopt;
        if (!content || m_tokens[m_at].Attribute(QLatin1String("name")) != name ||
            m_tokens[m_at].attributes.size() != 2) {
            m_problems.push_back(
                {line, QStringLiteral("<meta name=\"%1\" content=\"...\"> is expected here").arg(name)});
            if (isMeta)
                ++m_at;
            return;
        }
        value = *content;
        CheckNotBlank(name, value, line);
        m_lastLine = m_tokens[m_at].endLine;
        ++m_at;
    }

    const std::vector<HtmlToken>& m_tokens;
    SourceProblems& m_problems;
    std::size_t m_at = 0;
    int m_lastLine = 0; // on which the element just read ends
};

} // namespace

FormSource ReadFormSource(QStringView text, SourceProblems& problems) {
    FormSource form;
    const std::vector<HtmlToken> tokens = TokenizeHtml(text, problems);
    const std::size_t body = HeadReader(tokens, problems).Read(form);
    const std::size_t before = problems.size();
    form.blocks = ReadBlocks(tokens, body, problems);
    if (form.blocks.empty() && problems.size() == before)
        problems.push_back({form.titleLine, QStringLiteral("the form has no body")});
    return form;
}

QString PathComponent(const QString& name) {
    static const QRegularExpression slash(QStringLiteral("\\s*/\\s*"));
    return QString(name).replace(slash, QStringLiteral(" - "));
}

} // namespace quillbrook
