#include "platform/rich_text/rtf_fields.h"

#include <QTextFrame>
#include <algorithm>

#include "platform/rich_text/document_model.h"

namespace platform {
namespace {

// The words of an instruction, quotes and escapes taken off.
QStringList Arguments(const QString& instruction) {
    QStringList arguments;
    qsizetype at = 0;
    while (at < instruction.size()) {
        if (instruction.at(at).isSpace()) {
            ++at;
            continue;
        }
        const bool quoted = instruction.at(at) == u'"';
        if (quoted)
            ++at;
        QString argument;
        for (; at < instruction.size(); ++at) {
            const QChar character = instruction.at(at);
            if (quoted ? character == u'"' : character.isSpace())
                break;
            const QChar next = at + 1 < instruction.size() ? instruction.at(at + 1) : QChar();
            if (quoted && character == u'\\' && (next == u'\\' || next == u'"'))
                ++at;
            argument.append(instruction.at(at));
        }
        ++at;
        arguments.append(argument);
    }
    return arguments;
}

QString Quoted(QString text) {
    text.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
    return u'"' + text + u'"';
}

// Walks over the keys of all parts and keeps the groups that are open.
class FieldPlanner {
public:
    explicit FieldPlanner(const RtfFieldKeys& keys)
        : m_keys(keys) {}

    // A stretch is text without a gap between its fields; nothing reaches over a gap. First all fields are
    // noted, then, behind Restart(), entered in the same order.
    void EndStretch() { ++m_stretch; }
    void Restart() { m_stretch = 0; }
    void NoteLast(int field, std::size_t position) {
        if (field == 0)
            EndStretch();
        else
            m_last[{field, m_stretch}] = position;
    }

    RtfFieldStep Enter(RtfFieldKey key, std::size_t position) {
        RtfFieldStep step;
        if (key.field == 0)
            EndStretch();
        const auto known = std::find(m_open.begin(), m_open.end(), key.field);
        if (key.field == 0 || known != m_open.end()) {
            const auto keep = key.field == 0 ? 0 : known - m_open.begin() + 1;
            step.close = static_cast<int>(m_open.size()) - static_cast<int>(keep);
            m_open.resize(static_cast<std::size_t>(keep));
            return step;
        }
        while (!m_open.empty() && !GoesOn(m_open.back(), position) &&
               !(key.link != 0 && m_keys.LinkOf(m_open.back()) == key.link)) {
            m_open.pop_back();
            ++step.close;
        }
        const auto isLink = [&](int field) { return m_keys.LinkOf(field) == key.link; };
        if (key.link != 0 && std::none_of(m_open.begin(), m_open.end(), isLink)) {
            step.openOuter = key.link;
            m_open.push_back(key.link);
        }
        step.open = key.field;
        m_open.push_back(key.field);
        return step;
    }

    int OpenCount() const { return static_cast<int>(m_open.size()); }
    void CloseAll() { m_open.clear(); }

private:
    bool GoesOn(int field, std::size_t position) const {
        return field > 0 && m_last.value({field, m_stretch}) > position;
    }

    const RtfFieldKeys& m_keys;
    QHash<std::pair<int, int>, std::size_t> m_last; // by field and stretch
    int m_stretch = 0;
    std::vector<int> m_open;
};

} // namespace

QString HyperlinkTarget(const QString& instruction) {
    const QStringList arguments = Arguments(instruction);
    if (arguments.isEmpty() || arguments.first().compare(u"HYPERLINK", Qt::CaseInsensitive) != 0)
        return {};
    QString address;
    QString bookmark;
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        const QString& argument = arguments.at(i);
        if (argument == u"\\l")
            bookmark = arguments.value(++i);
        else if (argument == u"\\o" || argument == u"\\t" || argument == u"\\s")
            ++i;
        else if (!argument.startsWith(u'\\') && address.isEmpty())
            address = argument;
    }
    return bookmark.isEmpty() ? address : address + u'#' + bookmark;
}

QString HyperlinkInstruction(const QString& target) {
    if (target.size() > 1 && target.startsWith(u'#'))
        return QStringLiteral("HYPERLINK \\l ") + Quoted(target.mid(1));
    return QStringLiteral("HYPERLINK ") + Quoted(target);
}

RtfFieldKeys::RtfFieldKeys(const QTextDocument& document)
    : m_instructions(document.rootFrame()->frameFormat().property(FieldInstructions).toMap()) {}

QString RtfFieldKeys::Instruction(int field) const {
    if (field < 0)
        return HyperlinkInstruction(m_targets[static_cast<std::size_t>(-field) - 1]);
    return m_instructions.value(QString::number(field)).toString();
}

RtfFieldKey RtfFieldKeys::Make(const QTextCharFormat& format) {
    const QString target = format.isAnchor() ? format.anchorHref() : QString();
    RtfFieldKey key;
    if (!target.isEmpty())
        key.link = LinkNumber(target);
    if (format.intProperty(FieldId) > 0) {
        key.field = format.intProperty(FieldId);
        const auto instruction = m_instructions.constFind(QString::number(key.field));
        if (instruction == m_instructions.constEnd()) {
            key.field = 0;
        } else if (const QString own = HyperlinkTarget(instruction->toString()); !own.isEmpty()) {
            m_linkOfField.insert(key.field, LinkNumber(own));
            // a link that leads elsewhere now, or nowhere
            if (own == target)
                key.link = 0;
            else
                key.field = 0;
        }
    }
    if (key.field == 0)
        key.field = std::exchange(key.link, 0);
    return key;
}

int RtfFieldKeys::LinkNumber(const QString& target) {
    int& number = m_links[target];
    if (number == 0) {
        m_targets.push_back(target);
        number = -static_cast<int>(m_targets.size());
    }
    return number;
}

std::vector<RtfFieldSteps> PlanFields(const std::vector<const RtfFieldSequence*>& parts,
                                      const RtfFieldKeys& keys) {
    std::vector<RtfFieldSteps> plan(parts.size());
    FieldPlanner planner(keys);
    std::size_t position = 0;
    for (const RtfFieldSequence* part : parts) {
        if (!part || part->empty()) {
            planner.EndStretch();
            continue;
        }
        for (const RtfFieldKey& key : *part)
            planner.NoteLast(key.field, position++);
    }
    planner.Restart();
    position = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (!parts[i] || parts[i]->empty()) {
            planner.EndStretch();
            continue;
        }
        plan[i].openBefore = planner.OpenCount();
        for (const RtfFieldKey& key : *parts[i])
            plan[i].steps.push_back(planner.Enter(key, position++));
        const RtfFieldSequence* const next = i + 1 < parts.size() ? parts[i + 1] : nullptr;
        if (!next || next->empty() || next->front().field == 0) {
            plan[i].closeAfter = planner.OpenCount();
            planner.CloseAll();
        }
    }
    return plan;
}

} // namespace platform
