#pragma once

#include <QByteArray>
#include <QColor>
#include <QString>
#include <QTextEdit>
#include <QTextFormat>
#include <functional>
#include <memory>
#include <optional>

#include "platform/rich_text/rtf_writer_cache.h"

class QPainter;

namespace platform {

class RichTextFormatter;

// A box of rich text with the members that programs of forms use: the whole as plain text and as rich text
// source, the selection and its format, files, printing.
//
// Positions are zero-based and count the characters of Text(): UTF-16 units, one for each end of a paragraph.
// Members that read a format give an empty optional when the selection is mixed; with nothing selected they
// read, and set, the format of what is typed next. A setter gives false, and changes nothing, when it
// refuses. The box keeps no history of changes of its own.
class RichTextBox : public QTextEdit {
    Q_OBJECT

public:
    explicit RichTextBox(QWidget* parent = nullptr);
    ~RichTextBox() override;

    // The whole content as plain text: each line end one '\n', no-break spaces as they are. Setting gives all
    // of it one format: in an empty box that of the caret, otherwise the box's own font.
    QString Text() const;
    bool setText(const QString& text);

    // The whole content as rich text source, 7-bit. Setting replaces the whole document and puts the caret at
    // 0; an empty source empties the box; a source that is no rich text is taken as plain text, as the box
    // does with files. False for more than 64 MB (16 MB of plain text).
    QString TextRTF() const;
    bool setTextRTF(const QString& source);
    bool setTextRTF(const QByteArray& source);

    // The source at this moment, sharing what did not change since the last call. Cheap after each keystroke.
    // Setting brings exactly this source back and puts the caret behind what it changed; an empty snapshot is
    // refused.
    RtfSnapshot Snapshot() const;
    bool setSnapshot(const RtfSnapshot& snapshot);

    // Start of the selection, or the caret. Setting collapses the selection; beyond the end is the end;
    // negative is refused.
    int SelStart() const;
    bool setSelStart(int start);
    // Setting keeps the start; beyond the end is up to the end; negative is refused.
    int SelLength() const;
    bool setSelLength(int length);

    // The selected text. Setting replaces the selection, which then is a caret behind the text; the text
    // takes the format of the selection's first character, or that of the caret, each line end starts a
    // paragraph.
    QString SelText() const;
    bool setSelText(const QString& text);

    // Replaces the selected text by what `convert`, which keeps the length, makes of it, as setSelText()
    // does, keeping line breaks inside of paragraphs and the formats of paragraphs; of selected cells each
    // for itself.
    void ConvertSelText(const std::function<QString(const QString&)>& convert);

    // The selection as the source of a document of its own, empty for none. Setting replaces the selection; a
    // source that is no rich text is inserted as SelText.
    QString SelRTF() const;
    bool setSelRTF(const QString& source);

    std::optional<QColor> SelColor() const;
    bool setSelColor(const QColor& color);
    std::optional<QString> SelFontName() const;
    bool setSelFontName(const QString& name);
    // In points; setting takes more than 0 up to 1,638.
    std::optional<double> SelFontSize() const;
    bool setSelFontSize(double points);
    std::optional<bool> SelBold() const;
    bool setSelBold(bool on);
    std::optional<bool> SelItalic() const;
    bool setSelItalic(bool on);
    std::optional<bool> SelStrikeThru() const;
    bool setSelStrikeThru(bool on);
    std::optional<bool> SelUnderline() const;
    bool setSelUnderline(bool on);

    // The paragraphs' alignment: 0 left, 1 right, 2 centre, 3 justified; others are refused.
    std::optional<int> SelAlignment() const;
    bool setSelAlignment(int alignment);
    // Where the first lines start, in twips from the margin; setting moves the whole paragraphs. Refused when
    // any line would stand left of the margin.
    std::optional<int> SelIndent() const;
    bool setSelIndent(int twips);
    // How far the other lines stand right of the first, in twips; setting leaves the first line where it is.
    std::optional<int> SelHangingIndent() const;
    bool setSelHangingIndent(int twips);
    // Whether the paragraphs have a marker, of bullets or of numbers. Setting makes them ones of a list of
    // bullets, or ends any list.
    std::optional<bool> SelBullet() const;
    bool setSelBullet(bool on);

    // Replaces the content by a file's: rich text by its content, otherwise plain text in UTF-8, UTF-16 or
    // Windows 1252. False, with the box as it was, when the file cannot be read or is no text.
    bool LoadFile(const QString& path);
    // Writes the content as rich text, the file replaced wholly or not at all. Gives 0, or the number of the
    // error: 55 open elsewhere, 57 device, 61 full, 68 unavailable, 70 denied, 71 not ready, 75 path or file.
    int SaveFile(const QString& path) const;
    // The path of the file loaded last; a name only, setting it reads nothing.
    QString FileName() const { return m_fileName; }
    void setFileName(const QString& path) { m_fileName = path; }

    // Draws, or only measures, the text from position `first` on in a rectangle of the page, in twips from
    // the painter's origin. Gives the first position that did not fit, the length of Text() when all did;
    // always moves on. Keeps the text laid out until it changes or FormatRangeRelease() is called.
    int FormatRange(QPainter& painter, const QRect& rectangle, int first, bool render);
    void FormatRangeRelease();

    // Shows the text as a page: an inner margin around it, and in a wide window a column of a comfortable
    // width in the middle. Off at first.
    bool PageLike() const { return m_pageLike; }
    void setPageLike(bool on);
    // In pixels; 24 at first.
    int PageMargin() const { return m_pageMargin; }
    void setPageMargin(int pixels);
    // The column's greatest width with its margins, in pixels.
    int PageWidth() const { return m_pageWidth; }
    void setPageWidth(int pixels);

Q_SIGNALS:
    // The content or its format changed, by the user or the program; once for each change. Emptying an empty
    // box and setting a format that is there already are no changes.
    void Change();
    // The selection moved, or its format was set.
    void SelChange();
    // The left button was released over the box.
    void Click();
    // A key that stands for a character was pressed, control characters included.
    void CharacterPressed();
    // Also told, with the right button, when the keyboard asks for a menu. The caret stays where it is for
    // any but the left button.
    void MousePressed(Qt::MouseButton button, const QPoint& globalPosition);

public Q_SLOTS:
    // As QTextEdit's, told by one Change.
    void clear();
    void cut();
    void paste();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    class Edit;

    void OnTextChanged();
    void OnContentsChange(int position, int removed, int added);
    void OnSelectionMoved();
    void TellChange();
    void TellSelection();
    bool IsPristine() const;
    bool ApplyDifference(const RtfSnapshot& snapshot);
    // writer: what knows the document's source already, or none.
    void ReplaceDocument(std::unique_ptr<QTextDocument> document, bool isChange,
                         std::unique_ptr<RtfWriterCache> writer = nullptr);
    void FitPage();
    int VerticalMargin() const; // of the page, in pixels
    int SideMargin() const;
    void FitWrapping(const QString& newText);
    bool SetCharFormat(const QTextCharFormat& change,
                       const std::function<bool(const QTextCharFormat&)>& isThere);
    bool ChangeBlocks(const std::function<std::optional<QTextBlockFormat>(const QTextBlockFormat&)>& change);
    void InsertText(const QString& text);
    void InsertParagraph();
    void InsertForeign(QTextDocument& source);
    void FitCaretForText();
    void KeepFontOfEmptyBox(const QTextCharFormat& format);
    void ShowChangedMarkers(int paragraphsAdded);
    void ScrollToCaret();
    void ShowMarginAtCaret();

    QString m_fileName;
    bool m_pageLike = false;
    int m_pageMargin = 24;
    int m_pageWidth = 720;

    int m_edits = 0;        // Edit guards alive
    int m_signalDepth = 0;  // within a signal of the document
    bool m_touched = false; // the document told of a change since the last Change
    bool m_selTouched = false;
    bool m_listsChanged = false; // paragraphs have come to a list or left one
    bool m_asGiven = false;      // the outermost edit sets what is wanted as it is
    int m_toldAnchor = 0;
    int m_toldPosition = 0;
    int m_changedFrom = -1; // positions changed since markers were last shown, -1 for none
    int m_changedTo = -1;

    mutable QString m_text;
    mutable bool m_textIsValid = false;
    mutable std::unique_ptr<RtfWriterCache> m_writer;
    std::unique_ptr<RichTextFormatter> m_formatter;
};

} // namespace platform
