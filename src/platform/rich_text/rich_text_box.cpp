#include "platform/rich_text/rich_text_box.h"

#include <QAbstractTextDocumentLayout>
#include <QFileInfo>
#include <QPainter>
#include <QPointer>
#include <QResizeEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QThread>
#include <algorithm>
#include <cstdlib>
#include <utility>

#include "platform/desktop/background.h"
#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rich_text_box_edit.h"
#include "platform/rich_text/rich_text_file.h"
#include "platform/rich_text/rich_text_markers.h"
#include "platform/rich_text/rich_text_numbering.h"
#include "platform/rich_text/rich_text_plain.h"
#include "platform/rich_text/rich_text_printing.h"
#include "platform/rich_text/rich_text_selection_format.h"
#include "platform/rich_text/rtf_reader.h"

namespace platform {
namespace {

constexpr int kPlainMargin = 4; // pixels around the text of a box that looks like no page

std::unique_ptr<QTextDocument> EmptyDocument() {
    auto document = std::make_unique<QTextDocument>();
    document->setUndoRedoEnabled(false);
    return document;
}

// The document of a source that may be no rich text; null for a plain text that is too large.
std::unique_ptr<QTextDocument> DocumentOf(const QByteArray& source) {
    if (IsRtf(source))
        return source.size() <= kMostSourceBytes ? ReadRtf(source) : nullptr;
    const std::optional<QString> text = source.size() <= kMostTextBytes ? DecodeText(source) : std::nullopt;
    return text ? PlainTextDocument(*text) : nullptr;
}

// Of the page that the box shows, in pixels.
struct PageMargins {
    int vertical;
    int side;
};

void SetPageMargins(QTextDocument& document, PageMargins margins) {
    QTextFrameFormat format = document.rootFrame()->frameFormat();
    if (format.leftMargin() == margins.side && format.topMargin() == margins.vertical)
        return;
    format.setMargin(margins.vertical);
    format.setLeftMargin(margins.side);
    format.setRightMargin(margins.side);
    document.rootFrame()->setFrameFormat(format);
}

// Makes a document as a box shows it. Nothing is laid out before the width is known.
void Prepare(QTextDocument& document, const QFont& font, PageMargins margins) {
    document.setUndoRedoEnabled(false);
    document.setDefaultFont(font);
    ShowMarkers(document, 0, document.characterCount());
    SetPageMargins(document, margins);
    document.setPageSize(QSizeF(0, 0));
}

} // namespace

RichTextBox::Edit::Edit(RichTextBox& box)
    : m_box(box)
    , m_touchedBefore(box.m_touched) {
    if (m_box.m_edits++ > 0)
        return;
    m_blocksBefore = m_box.document()->blockCount();
    m_hadText = !m_box.document()->isEmpty();
    if (m_hadText)
        m_formatBefore = TypingFormat(m_box.textCursor());
}

RichTextBox::Edit::~Edit() {
    if (m_box.m_edits > 1) {
        --m_box.m_edits;
        return;
    }
    if (m_box.m_touched) {
        if (m_hadText && !m_box.m_asGiven && m_box.document()->isEmpty())
            m_box.KeepFontOfEmptyBox(m_formatBefore);
        m_box.ShowChangedMarkers(m_box.document()->blockCount() - m_blocksBefore);
    }
    m_box.m_asGiven = false;
    --m_box.m_edits;
    if (std::exchange(m_box.m_touched, false))
        m_box.TellChange();
    m_box.TellSelection();
}

RichTextBox::RichTextBox(QWidget* parent)
    : QTextEdit(parent) {
    setAcceptRichText(true);
    setTabChangesFocus(false);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    ReplaceDocument(EmptyDocument(), false);
    connect(this, &QTextEdit::textChanged, this, &RichTextBox::OnTextChanged);
    connect(this, &QTextEdit::cursorPositionChanged, this, &RichTextBox::OnSelectionMoved);
    connect(this, &QTextEdit::selectionChanged, this, &RichTextBox::OnSelectionMoved);
}

RichTextBox::~RichTextBox() {
    // what is told while the base classes end would reach members that are gone
    disconnect(this, nullptr, this, nullptr);
    document()->disconnect(this);
}

// ---- signals

void RichTextBox::OnContentsChange(int position, int removed, int added) {
    m_textIsValid = false;
    m_formatter.reset();
    if (m_changedFrom < 0) {
        m_changedFrom = position;
        m_changedTo = position + added;
        return;
    }
    if (m_changedTo > position)
        m_changedTo = std::max(position, m_changedTo - removed) + added;
    m_changedTo = std::max(m_changedTo, position + added);
    m_changedFrom = std::min(m_changedFrom, position);
}

void RichTextBox::OnTextChanged() {
    m_touched = true;
    if (m_edits > 0)
        return;
    m_touched = false;
    ++m_signalDepth;
    TellChange();
    --m_signalDepth;
}

void RichTextBox::OnSelectionMoved() {
    if (m_edits > 0)
        return;
    ++m_signalDepth;
    TellSelection();
    --m_signalDepth;
}

void RichTextBox::TellChange() {
    Q_EMIT Change();
}

void RichTextBox::TellSelection() {
    const QTextCursor cursor = textCursor();
    const bool moved = cursor.anchor() != m_toldAnchor || cursor.position() != m_toldPosition;
    m_toldAnchor = cursor.anchor();
    m_toldPosition = cursor.position();
    if (std::exchange(m_selTouched, false) || moved)
        Q_EMIT SelChange();
}

// ---- the document

// Whether emptying the box would change nothing.
bool RichTextBox::IsPristine() const {
    if (!document()->isEmpty() || document()->blockCount() != 1)
        return false;
    const QTextBlock block = document()->begin();
    return block.blockFormat().propertyCount() == 0 && block.charFormat().propertyCount() == 0 &&
           textCursor().charFormat().propertyCount() == 0;
}

// A new document costs less than changing the one that is laid out.
void RichTextBox::ReplaceDocument(std::unique_ptr<QTextDocument> document, bool isChange,
                                  std::unique_ptr<RtfWriterCache> writer) {
    Edit edit(*this);
    const QPointer<QTextDocument> old = QTextEdit::document(); // QTextEdit itself ends the first one
    QTextDocument* const shown = document.release();
    Prepare(*shown, font(), {VerticalMargin(), SideMargin()});
    old->setPageSize(QSizeF(0, 0)); // not to be laid out again
    setWordWrapMode(HasOverlongWord(shown->toRawText()) ? QTextOption::WrapAnywhere
                                                        : QTextOption::WrapAtWordBoundaryOrAnywhere);
    shown->setParent(this);

    m_writer = std::move(writer);
    m_formatter.reset();
    m_text.clear();
    m_textIsValid = false;
    setDocument(shown);
    if (!isVisible())
        shown->setPageSize(QSizeF(0, 0)); // a box that is not shown is laid out by nobody
    setTextCursor(QTextCursor(shown));    // without the format that the old caret had
    connect(shown, &QTextDocument::contentsChange, this, &RichTextBox::OnContentsChange);
    m_changedFrom = -1;
    if (old) {
        old->disconnect(this);
        if (m_signalDepth > 0)
            old->deleteLater(); // it may be telling of its change just now
        else
            delete old;
    }
    m_selTouched = true;
    edit.TakeAsGiven();
    if (isChange)
        m_touched = true;
    else
        edit.Forget();
}

// Bullets stand where the text they belong to now begins, and numbers count on.
void RichTextBox::ShowChangedMarkers(int paragraphsAdded) {
    const bool listsChanged = std::exchange(m_listsChanged, false);
    if (m_changedFrom < 0)
        return;
    const int from = std::min(m_changedFrom, document()->characterCount() - 1);
    const int to = m_changedTo;
    if (!m_asGiven && paragraphsAdded < 0)
        FreeLooseFillers(*document(), from, to);
    ShowMarkers(*document(), from, to);
    if (!m_asGiven && (paragraphsAdded != 0 || listsChanged)) {
        const int touched =
            document()->findBlock(std::min(to, document()->characterCount() - 1)).blockNumber() -
            document()->findBlock(from).blockNumber() + 1;
        ContinueNumbers(*document(), from, to,
                        std::max(std::abs(paragraphsAdded), listsChanged ? touched : 0));
    }
    m_changedFrom = -1;
}

// A box that was emptied by editing goes on in the font it had.
void RichTextBox::KeepFontOfEmptyBox(const QTextCharFormat& format) {
    Edit edit(*this);
    QTextCursor cursor(document());
    QTextBlockFormat block = cursor.blockFormat();
    block.clearProperty(Filler); // it parts no tables now
    cursor.setBlockFormat(block);
    QTextCharFormat end = format;
    end.clearProperty(FieldId);
    cursor.setBlockCharFormat(end);
}

QString RichTextBox::Text() const {
    if (!m_textIsValid) {
        m_text = PlainText(*document());
        m_textIsValid = true;
    }
    return m_text;
}

bool RichTextBox::setText(const QString& text) {
    if (text.size() > kMostTextBytes)
        return false;
    Edit edit(*this);
    if (text.isEmpty()) {
        clear();
        return true;
    }
    QTextCharFormat format;
    QTextBlockFormat blockFormat;
    if (document()->isEmpty()) {
        format = TypingFormat(textCursor());
        blockFormat = FileBlockFormat(document()->begin().blockFormat());
    }
    std::unique_ptr<QTextDocument> document = EmptyDocument();
    QTextCursor cursor(document.get());
    cursor.beginEditBlock();
    cursor.setBlockFormat(blockFormat);
    cursor.setBlockCharFormat(format);
    cursor.insertText(NormalizedText(text), format);
    cursor.endEditBlock();
    ReplaceDocument(std::move(document), true);
    return true;
}

void RichTextBox::clear() {
    if (IsPristine())
        return;
    ReplaceDocument(EmptyDocument(), !document()->isEmpty());
}

QString RichTextBox::TextRTF() const {
    return QString::fromLatin1(Snapshot().Join());
}

bool RichTextBox::setTextRTF(const QString& source) {
    if (source.size() > kMostSourceBytes)
        return false;
    return setTextRTF(source.toUtf8());
}

bool RichTextBox::setTextRTF(const QByteArray& source) {
    if (source.isEmpty()) {
        clear();
        return true;
    }
    std::unique_ptr<QTextDocument> document = DocumentOf(source);
    if (!document)
        return false;
    ReplaceDocument(std::move(document), true);
    return true;
}

// ---- files and printing

namespace {

struct FileDocument {
    std::unique_ptr<QTextDocument> document;
    std::unique_ptr<RtfWriterCache> writer; // null for a small document
};

// Reading a large file, and writing its source for a first snapshot, take seconds in which the windows are
// not to look dead.
FileDocument ReadForThisThread(const QString& path, const QFont& font, PageMargins margins) {
    constexpr qint64 kNoticedBytes = 2 * 1024 * 1024;
    if (QFileInfo(path).size() < kNoticedBytes)
        return {ReadDocumentFile(path), nullptr};
    QThread* const here = QThread::currentThread();
    return RunInBackground([&]() -> FileDocument {
        std::unique_ptr<QTextDocument> document = ReadDocumentFile(path);
        if (!document)
            return {};
        Prepare(*document, font, margins);
        auto writer = std::make_unique<RtfWriterCache>(*document);
        writer->Snapshot();
        document->moveToThread(here);
        writer->moveToThread(here);
        return {std::move(document), std::move(writer)};
    });
}

} // namespace

bool RichTextBox::LoadFile(const QString& path) {
    FileDocument file = ReadForThisThread(path, font(), {VerticalMargin(), SideMargin()});
    if (!file.document)
        return false;
    ReplaceDocument(std::move(file.document), true, std::move(file.writer));
    m_fileName = path;
    return true;
}

int RichTextBox::SaveFile(const QString& path) const {
    return int(WriteFileWhole(path, Snapshot().Join()));
}

int RichTextBox::FormatRange(QPainter& painter, const QRect& rectangle, int first, bool render) {
    if (!m_formatter)
        m_formatter = std::make_unique<RichTextFormatter>(*document());
    return m_formatter->FormatRange(painter, rectangle, first, render);
}

void RichTextBox::FormatRangeRelease() {
    m_formatter.reset();
}

// ---- the page

void RichTextBox::setPageLike(bool on) {
    m_pageLike = on;
    FitPage();
}

void RichTextBox::setPageMargin(int pixels) {
    m_pageMargin = std::max(pixels, 0);
    FitPage();
}

void RichTextBox::setPageWidth(int pixels) {
    m_pageWidth = std::max(pixels, 1);
    FitPage();
}

void RichTextBox::FitPage() {
    Edit edit(*this);
    const int from = m_changedFrom;
    const int to = m_changedTo;
    SetPageMargins(*document(), {VerticalMargin(), SideMargin()});
    m_changedFrom = from;
    m_changedTo = to;
    edit.Forget();
}

int RichTextBox::VerticalMargin() const {
    return m_pageLike ? m_pageMargin : kPlainMargin;
}

int RichTextBox::SideMargin() const {
    return VerticalMargin() + (m_pageLike ? std::max(0, viewport()->width() - m_pageWidth) / 2 : 0);
}

// Breaking a word of a hundred thousand characters at words takes Qt seconds.
void RichTextBox::FitWrapping(const QString& newText) {
    if (wordWrapMode() != QTextOption::WrapAnywhere && HasOverlongWord(newText))
        setWordWrapMode(QTextOption::WrapAnywhere);
}

void RichTextBox::ScrollToCaret() {
    if (isVisible())
        ensureCursorVisible();
    ShowMarginAtCaret();
}

// The first line is shown with the margin above it, the last one with that below.
void RichTextBox::ShowMarginAtCaret() {
    if (!isVisible())
        return;
    QScrollBar* bar = verticalScrollBar();
    const QRect caret = cursorRect();
    const QTextBlockFormat paragraph = textCursor().blockFormat();
    const int above = bar->value() - bar->minimum();
    const int below = bar->maximum() - bar->value();
    const int bottom = viewport()->height() - caret.bottom();
    const int room = VerticalMargin() + caret.height();
    if (above + caret.top() < room + paragraph.topMargin() && bottom > above)
        bar->setValue(bar->minimum());
    else if (below + bottom < room + paragraph.bottomMargin() && caret.top() >= below)
        bar->setValue(bar->maximum());
}

void RichTextBox::resizeEvent(QResizeEvent* event) {
    Edit edit(*this);
    FitPage();
    QTextEdit::resizeEvent(event);
}

// Draws the markers of the paragraphs that are seen; the layout does not know them.
void RichTextBox::paintEvent(QPaintEvent* event) {
    QTextEdit::paintEvent(event);
    const QPointF offset(horizontalScrollBar()->value(), verticalScrollBar()->value());
    QPainter painter(viewport());
    painter.translate(-offset);
    DrawMarkersInside(painter, *document(), QRectF(event->rect()).translated(offset));
}

} // namespace platform
