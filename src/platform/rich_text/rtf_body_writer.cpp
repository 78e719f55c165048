#include "platform/rich_text/rtf_body_writer.h"

#include <QTextFrame>
#include <algorithm>

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rtf_picture_words.h"

namespace platform {
namespace {

// The outermost table around a position, null outside of tables.
QTextTable* OuterTable(const QTextDocument& document, int position) {
    if (document.rootFrame()->childFrames().isEmpty())
        return nullptr;
    QTextTable* outer = nullptr;
    for (QTextFrame* frame = document.frameAt(position); frame; frame = frame->parentFrame()) {
        if (auto* const table = qobject_cast<QTextTable*>(frame))
            outer = table;
    }
    return outer;
}

// Raised text stands in a group of its own.
class RaisedGroup {
public:
    RaisedGroup(RtfOutput& out, bool isRaised)
        : m_out(isRaised ? &out : nullptr) {
        if (!m_out)
            return;
        m_out->Raw("{");
        m_out->Words("\\super");
    }
    ~RaisedGroup() {
        if (m_out)
            m_out->Raw("}");
    }
    Q_DISABLE_COPY_MOVE(RaisedGroup)

private:
    RtfOutput* m_out; // null for text that is not raised
};

} // namespace

RtfPart PartAt(const QTextDocument& document, const QTextBlock& block) {
    QTextTable* const table = OuterTable(document, block.position());
    return {table ? document.findBlock(table->firstPosition()) : block, table};
}

QTextBlock BlockAfter(const QTextDocument& document, const RtfPart& part) {
    return part.table ? document.findBlock(part.table->lastPosition() + 1) : part.first.next();
}

RtfBodyWriter::RtfBodyWriter(const QTextDocument& document, bool withFields)
    : m_document(document)
    , m_numbers(document)
    , m_blocks(document, m_numbers)
    , m_chars(document, m_numbers)
    , m_fieldKeys(document)
    , m_hasFields(withFields) {}

bool RtfBodyWriter::HasFields(const QTextDocument& document) {
    const QList<QTextFormat> formats = document.allFormats();
    return std::any_of(formats.begin(), formats.end(), [](const QTextFormat& format) {
        return format.hasProperty(FieldId) || format.hasProperty(QTextFormat::IsAnchor);
    });
}

RtfFieldSequence RtfBodyWriter::FieldsOf(const RtfPart& part) {
    RtfFieldSequence sequence;
    const QTextBlock end = part.table ? BlockAfter(m_document, part) : QTextBlock();
    QTextBlock block = part.first;
    do {
        CollectFields(block, sequence);
        block = block.next();
    } while (part.table && block.isValid() && block != end);
    if (sequence.size() == 1 && sequence.front() == RtfFieldKey())
        sequence.clear();
    return sequence;
}

void RtfBodyWriter::CollectFields(const QTextBlock& block, RtfFieldSequence& sequence) {
    const auto add = [&](int index, auto&& format) {
        const RtfFieldKey key = m_fieldKeys.At(index, format);
        if (sequence.empty() || sequence.back() != key)
            sequence.push_back(key);
    };
    if (IsFiller(block))
        return;
    for (auto run = block.begin(); !run.atEnd(); ++run)
        add(run.fragment().charFormatIndex(), [&run] { return run.fragment().charFormat(); });
    add(block.charFormatIndex(), [&block] { return block.charFormat(); });
}

void RtfBodyWriter::Write(const RtfPart& part, const RtfFieldSteps& fields, RtfOutput& out,
                          RtfNumbers::Uses& uses) {
    m_out = &out;
    m_uses = &uses;
    m_steps = &fields;
    m_nextStep = 0;
    m_key = {0, -1}; // unlike any, so that the first key takes its step
    m_open.assign(static_cast<std::size_t>(fields.openBefore), {RtfCharWords(), true});
    m_restart = false;
    m_endedSection = false;
    if (part.table)
        WriteTable(*part.table, 1);
    else
        WriteBlock(part.first, 0, Ending::Paragraph, false);
    for (int i = 0; i < fields.closeAfter; ++i)
        out.Raw("}}");
}

const RtfCharFormats::Entry& RtfBodyWriter::MarkOf(const QTextBlock& block, bool atCellStart) {
    const auto format = [&block] { return block.charFormat(); };
    return atCellStart ? m_chars.AtCellStart(block.charFormatIndex(), format)
                       : m_chars.At(block.charFormatIndex(), format);
}

void RtfBodyWriter::WriteBlock(const QTextBlock& block, int level, Ending ending, bool atCellStart) {
    const auto& paragraph = m_blocks.At(block.blockFormatIndex(), [&block] { return block.blockFormat(); });
    const bool isEmpty = block.length() <= 1;
    if (paragraph.isFiller && isEmpty && ending == Ending::Paragraph)
        return;
    Note(paragraph.uses);
    for (OpenField& open : m_open)
        open.openedBefore = true;
    const QString text = isEmpty ? QString() : block.text();
    const int start = block.position();
    bool started = false;
    const auto enter = [&](const RtfCharFormats::Entry& chars, RtfFieldKey key) {
        const RtfFieldStep* const step = NextStep(key);
        if (step)
            CloseFields(step->close);
        if (!started || m_restart) {
            WriteStart(paragraph, chars, level);
            if (!started && paragraph.isList)
                RtfBlockFormats::WriteList(paragraph, chars.inSymbols, *m_out);
            else if (paragraph.isList)
                m_out->Raw(chars.inSymbols ? paragraph.oldListInSymbols : paragraph.oldList);
            started = true;
            m_restart = false;
        } else {
            WriteCharsAfter(m_words, chars);
        }
        m_words = chars.words;
        Note(chars.uses);
        if (step)
            OpenFields(*step);
    };
    const auto keyOf = [this](int index, auto&& format) {
        return m_hasFields ? m_fieldKeys.At(index, format) : RtfFieldKey();
    };
    if (!isEmpty) {
        for (auto run = block.begin(); !run.atEnd(); ++run) {
            const QTextFragment fragment = run.fragment();
            const int index = fragment.charFormatIndex();
            const auto format = [&fragment] { return fragment.charFormat(); };
            const RtfCharFormats::Entry& chars = m_chars.At(index, format);
            enter(chars, keyOf(index, format));
            WriteRun(fragment, QStringView(text).mid(fragment.position() - start, fragment.length()), chars);
        }
    }
    const bool staysInField = paragraph.isFiller && isEmpty;
    const RtfCharFormats::Entry& mark = MarkOf(block, atCellStart);
    enter(mark,
          staysInField ? m_key : keyOf(block.charFormatIndex(), [&block] { return block.charFormat(); }));
    const RaisedGroup group(*m_out, mark.isRaised);
    WriteEnding(paragraph, ending);
}

void RtfBodyWriter::WriteCharsAfter(const RtfCharWords& words, const RtfCharFormats::Entry& chars) {
    if (chars.words == words)
        return;
    // these have no word that takes them back
    const bool needsAll =
        (words.language != 0 && chars.words.language == 0) || (words.style != 0 && chars.words.style == 0);
    if (needsAll)
        m_out->Words(chars.full);
    else
        WriteCharChange(words, chars.words, *m_out);
}

void RtfBodyWriter::WriteRun(const QTextFragment& fragment, QStringView text,
                             const RtfCharFormats::Entry& chars) {
    const RaisedGroup group(*m_out, chars.isRaised);
    if (text.front() != QChar::ObjectReplacementCharacter) {
        m_out->Text(text, chars.inSymbols);
        return;
    }
    const QTextCharFormat object = fragment.charFormat();
    for (qsizetype i = 0; i < text.size(); ++i)
        WriteObject(object);
}

void RtfBodyWriter::WriteStart(const RtfBlockFormats::Entry& paragraph, const RtfCharFormats::Entry& chars,
                               int level) {
    m_out->Words(paragraph.words);
    if (level > 0)
        m_out->Words("\\intbl");
    if (level > 1)
        m_out->Word("\\itap", level);
    m_out->Words(chars.full);
}

void RtfBodyWriter::WriteEnding(const RtfBlockFormats::Entry& paragraph, Ending ending) {
    switch (ending) {
    case Ending::Cell:
        m_out->Words("\\cell");
        return;
    case Ending::NestedCell:
        m_out->Words("\\nestcell");
        m_out->Raw("{\\nonesttables\\par}");
        return;
    case Ending::Paragraph:
        break;
    }
    if (paragraph.section.isEmpty()) {
        m_out->Raw("\\par\n");
        return;
    }
    m_endedSection = true;
    if (!paragraph.section.startsWith("\\sectd"))
        m_out->Words("\\sectd");
    m_out->Words(paragraph.section);
    m_out->Raw("\\sect\n");
}

void RtfBodyWriter::WriteObject(const QTextCharFormat& format) {
    const QByteArray source = format.property(EmbeddedObject).toByteArray();
    if (!source.isEmpty())
        m_out->Raw(source);
    else if (format.isImageFormat())
        WriteRtfPicture(m_document, format.toImageFormat(), *m_out);
}

const RtfFieldStep* RtfBodyWriter::NextStep(RtfFieldKey key) {
    if (m_steps->steps.empty() || key == m_key)
        return nullptr;
    m_key = key;
    return m_nextStep < m_steps->steps.size() ? &m_steps->steps[m_nextStep++] : nullptr;
}

void RtfBodyWriter::CloseFields(int count) {
    for (; count > 0 && !m_open.empty(); --count) {
        m_out->Raw("}}");
        m_words = m_open.back().outside;
        m_restart = m_restart || m_open.back().openedBefore;
        m_open.pop_back();
    }
}

void RtfBodyWriter::OpenFields(const RtfFieldStep& step) {
    if (step.openOuter != 0)
        OpenGroup(step.openOuter);
    if (step.open != 0)
        OpenGroup(step.open);
}

void RtfBodyWriter::OpenGroup(int field) {
    m_out->Raw("{");
    m_out->Words("\\field");
    m_out->Raw("{");
    m_out->Words("\\*\\fldinst");
    m_out->Text(m_fieldKeys.Instruction(field), m_numbers.IsSymbolFont(m_words.font));
    m_out->Raw("}{");
    m_out->Words("\\fldrslt");
    m_open.push_back({m_words, false});
}

void RtfBodyWriter::Note(const RtfNumbers::Uses& uses) {
    for (const int use : uses) {
        if (std::find(m_uses->begin(), m_uses->end(), use) == m_uses->end())
            m_uses->push_back(use);
    }
}

} // namespace platform
