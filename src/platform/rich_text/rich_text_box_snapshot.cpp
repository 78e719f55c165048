// States of the rich text box that are kept and come back.
#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <algorithm>
#include <vector>

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/rich_text/rich_text_box_edit.h"
#include "platform/rich_text/rtf_reader.h"

namespace platform {
namespace {

constexpr qsizetype kMostParts = 64; // in which two states differ, to change the document in place

// Where two texts begin to differ, and where in the second they are alike again up to the end.
std::pair<qsizetype, qsizetype> Difference(const QString& before, const QString& after) {
    const qsizetype shorter = std::min(before.size(), after.size());
    const auto first = std::mismatch(before.begin(), before.begin() + shorter, after.begin());
    const qsizetype from = first.first - before.begin();
    const auto last = std::mismatch(before.rbegin(), before.rbegin() + (shorter - from), after.rbegin());
    return {from, after.size() - (last.first - before.rbegin())};
}

// A paragraph of text alone: what reaches over paragraphs or has a name in the document is not of that kind.
bool IsSimple(const QTextBlock& block) {
    const QTextDocument& document = *block.document();
    const auto isText = [](const QTextCharFormat& format) {
        return !format.hasProperty(QTextFormat::ObjectType) && !format.hasProperty(EmbeddedObject) &&
               !format.hasProperty(FieldId) && !format.isAnchor();
    };
    if (document.frameAt(block.position()) != document.rootFrame() ||
        block.blockFormat().hasProperty(SectionBreak) || block.blockFormat().boolProperty(Filler) ||
        !isText(block.charFormat()))
        return false;
    for (auto run = block.begin(); !run.atEnd(); ++run) {
        if (!isText(run.fragment().charFormat()))
            return false;
    }
    return true;
}

bool AreSimple(QTextBlock block, int count) {
    for (; count > 0; --count, block = block.next()) {
        if (!block.isValid() || !IsSimple(block))
            return false;
    }
    return true;
}

// Puts all paragraphs of `source` in the place of `count` paragraphs.
void ReplaceParagraphs(QTextDocument& document, const QTextBlock& first, int count,
                       const QTextDocument& source) {
    const QTextBlock last = document.findBlockByNumber(first.blockNumber() + count - 1);
    QTextCursor cursor(first);
    cursor.beginEditBlock();
    cursor.setPosition(last.position() + last.length() - 1, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    for (QTextBlock block = source.begin(); block.isValid(); block = block.next()) {
        if (block != source.begin())
            cursor.insertBlock();
        cursor.setBlockFormat(block.blockFormat());
        cursor.setBlockCharFormat(block.charFormat());
        for (auto run = block.begin(); !run.atEnd(); ++run)
            cursor.insertText(run.fragment().text(), run.fragment().charFormat());
    }
    cursor.endEditBlock();
}

} // namespace

RtfSnapshot RichTextBox::Snapshot() const {
    if (!m_writer)
        m_writer = std::make_unique<RtfWriterCache>(*document());
    return m_writer->Snapshot();
}

// The caret goes behind what the snapshot has otherwise than the text before.
bool RichTextBox::setSnapshot(const RtfSnapshot& snapshot) {
    Edit edit(*this);
    const QString before = Text();
    const int anchor = textCursor().anchor();
    const int position = textCursor().position();
    const int scrolled = verticalScrollBar()->value();
    if (snapshot.IsEmpty())
        return false;
    m_selTouched = true; // its format may be another where it stays
    const bool inPlace = ApplyDifference(snapshot);
    if (!inPlace && !setTextRTF(snapshot.Join()))
        return false;
    QTextCursor cursor = textCursor();
    const int end = document()->characterCount() - 1;
    if (const auto [from, to] = Difference(before, Text()); from < to || before.size() != Text().size()) {
        cursor.setPosition(std::min(int(to), end));
    } else {
        cursor.setPosition(std::min(anchor, end));
        cursor.setPosition(std::min(position, end), QTextCursor::KeepAnchor);
    }
    if (!inPlace && cursor.position() == 0 && !cursor.hasSelection())
        return true;
    if (!inPlace && isVisible() && scrolled > 0) {
        // laid out as far as it was seen, so that the view stays where it was
        document()->documentLayout()->hitTest(QPointF(0, scrolled + viewport()->height()), Qt::FuzzyHit);
        verticalScrollBar()->setValue(scrolled);
    }
    setTextCursor(cursor);
    return true;
}

// Changes only the paragraphs that the snapshot has otherwise, which spares laying out the rest again. False
// when that cannot be done, or has not led to the snapshot's very source: then the whole has to be set.
bool RichTextBox::ApplyDifference(const RtfSnapshot& snapshot) {
    const RtfSnapshot now = Snapshot();
    if (now == snapshot) {
        m_touched = true; // set to what it was, and so told
        return true;
    }
    const std::optional<RtfDifference> difference = snapshot.DifferenceFrom(now, kMostParts);
    if (!difference)
        return false;
    const auto [number, count] = m_writer->BlocksOfParts(difference->first, difference->removed);
    const QTextBlock first = document()->findBlockByNumber(number);
    if (count != difference->removed || !AreSimple(first, count))
        return false;
    const std::unique_ptr<QTextDocument> source = ReadRtf(difference->source);
    if (!source || source->blockCount() != difference->added ||
        !AreSimple(source->begin(), source->blockCount()))
        return false;
    Edit edit(*this);
    edit.TakeAsGiven();
    ReplaceParagraphs(*document(), first, count, *source);
    return Snapshot() == snapshot;
}

} // namespace platform
