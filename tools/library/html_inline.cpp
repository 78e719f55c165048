#include "library/html_inline.h"

#include <QStringList>

namespace quillbrook {
namespace {

bool IsStyle(const QString& name) {
    return name == QLatin1String("b") || name == QLatin1String("i") || name == QLatin1String("u") ||
           name == QLatin1String("sup") || name == QLatin1String("sub");
}

// Collects text under the styles in force, folding white space as it comes.
class RunsBuilder {
public:
    void Open(const QString& style) { m_styles.append(style); }
    void Close() { m_styles.removeLast(); }
    const QStringList& Styles() const { return m_styles; }

    void AddText(const QString& text) {
        for (const QChar c : text) {
            if (c == u' ' || c == u'\t' || c == u'\n') {
                if (!m_atStart && !m_blankWaits)
                    m_blank = Style();
                m_blankWaits = !m_atStart;
                continue;
            }
            if (m_blankWaits)
                Append(m_blank, u' ');
            m_blankWaits = false;
            m_atStart = false;
            Append(Style(), c);
        }
    }

    void AddBreak(QChar c) {
        m_blankWaits = false;
        m_atStart = true;
        Append(Style(), c);
    }

    Runs Take() { return std::move(m_runs); }

private:
    Run Style() const {
        Run run;
        for (const QString& style : m_styles) {
            run.bold |= style == QLatin1String("b");
            run.italic |= style == QLatin1String("i");
            run.underline |= style == QLatin1String("u");
            if (style == QLatin1String("sup"))
                run.position = Run::Position::Superscript;
            if (style == QLatin1String("sub"))
                run.position = Run::Position::Subscript;
        }
        return run;
    }

    void Append(const Run& style, QChar c) {
        if (m_runs.empty() || !m_runs.back().SameKind(style)) {
            m_runs.push_back(style);
            m_runs.back().text.clear();
        }
        m_runs.back().text += c;
    }

    Runs m_runs;
    QStringList m_styles;
    Run m_blank;
    bool m_blankWaits = false;
    bool m_atStart = true;
};

} // namespace

bool IsInlineTag(const HtmlToken& token) {
    return token.kind != HtmlToken::Kind::Text &&
           (IsStyle(token.text) || token.text == QLatin1String("br") || token.text == QLatin1String("tab"));
}

bool ReadRuns(const std::vector<HtmlToken>& tokens, std::size_t& at, Runs& runs, SourceProblems& problems) {
    RunsBuilder builder;
    const auto refuse = [&problems](const HtmlToken& token, const QString& text) {
        problems.push_back({token.line, text});
        return false;
    };
    for (; at < tokens.size(); ++at) {
        const HtmlToken& token = tokens[at];
        if (token.kind == HtmlToken::Kind::Text) {
            builder.AddText(token.text);
            continue;
        }
        if (!IsInlineTag(token))
            break;
        if (!token.attributes.empty())
            return refuse(token, QStringLiteral("<%1> takes no attributes").arg(token.text));
        if (token.kind == HtmlToken::Kind::Close) {
            if (builder.Styles().isEmpty() || builder.Styles().last() != token.text)
                return refuse(token, QStringLiteral("</%1> closes no <%1>").arg(token.text));
            builder.Close();
        } else if (token.text == QLatin1String("br")) {
            builder.AddBreak(QChar::LineSeparator);
        } else if (token.text == QLatin1String("tab")) {
            builder.AddBreak(u'\t');
        } else if (builder.Styles().contains(token.text)) {
            return refuse(token, QStringLiteral("<%1> inside <%1>").arg(token.text));
        } else {
            builder.Open(token.text);
        }
    }
    if (!builder.Styles().isEmpty()) {
        const int line = at < tokens.size() ? tokens[at].line : tokens.back().endLine;
        problems.push_back({line, QStringLiteral("<%1> is not closed").arg(builder.Styles().last())});
        return false;
    }
    runs = builder.Take();
    return true;
}

} // namespace quillbrook
