#pragma once

#include <QImage>
#include <QRandomGenerator>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>
#include <memory>

#include "platform/rich_text/document_model.h"

namespace platform {

// Documents and edits of all that rich text holds, the same for the same seed.
class RandomDocument {
public:
    explicit RandomDocument(quint32 seed)
        : m_random(seed) {}

    int Below(int limit) { return static_cast<int>(m_random.bounded(limit)); }
    bool OneIn(int count) { return Below(count) == 0; }

    QString Text() {
        static const QString kPieces[] = {
            QStringLiteral("whereas "),
            QStringLiteral("the party"),
            QStringLiteral(" of the {first} part"),
            QStringLiteral("\\pard "),
            QStringLiteral("\t"),
            QString(QChar::LineSeparator),
            QStringLiteral("\u00e9t\u00e9"),
            QStringLiteral("\u65e5\u672c "),
            QStringLiteral("\U0001F600"),
            QString(QChar::Nbsp),
            QStringLiteral("  two"),
            QStringLiteral("-7"),
        };
        QString text;
        for (int i = Below(6) + 1; i > 0; --i)
            text += kPieces[Below(std::size(kPieces))];
        return text;
    }

    QTextCharFormat Chars() {
        static const QString kFamilies[] = {QStringLiteral("Times New Roman"), QStringLiteral("Arial"),
                                            QStringLiteral("Courier New"), QStringLiteral("Schrift \u00e4")};
        QTextCharFormat format;
        format.setFontFamilies({kFamilies[Below(std::size(kFamilies))]});
        format.setFontPointSize(6 + Below(40) / 2.0);
        if (OneIn(4))
            format.setFontWeight(QFont::Bold);
        if (OneIn(4))
            format.setFontItalic(true);
        if (OneIn(6))
            format.setFontStrikeOut(true);
        if (OneIn(5))
            format.setFontUnderline(true);
        if (OneIn(6))
            format.setForeground(Color());
        if (OneIn(8))
            format.setBackground(Color());
        if (OneIn(8))
            format.setVerticalAlignment(OneIn(2) ? QTextCharFormat::AlignSuperScript
                                                 : QTextCharFormat::AlignSubScript);
        if (OneIn(8))
            format.setFontCapitalization(OneIn(2) ? QFont::AllUppercase : QFont::SmallCaps);
        if (OneIn(8))
            format.setProperty(Language, 1033);
        if (OneIn(9))
            format.setProperty(BaselineOffset, Below(12) - 6 == 0 ? 3 : 6);
        if (OneIn(9))
            format.setProperty(Kerning, 24);
        if (OneIn(9)) {
            format.setProperty(CharacterSpacing, 20);
            format.setFontLetterSpacingType(QFont::AbsoluteSpacing);
            format.setFontLetterSpacing(TwipsToPixels(20));
        }
        if (OneIn(9)) {
            format.setProperty(HiddenText, true);
            format.setProperty(HiddenSize, 24);
        }
        if (OneIn(9)) {
            format.setAnchor(true);
            format.setAnchorHref(OneIn(2) ? QStringLiteral("https://example.org/a\\b?q=\"1\"")
                                          : QStringLiteral("#clause"));
        } else if (OneIn(9)) {
            format.setProperty(FieldId, 1 + Below(2));
        }
        return format;
    }

    QTextBlockFormat Block() {
        static constexpr Qt::AlignmentFlag kAlignments[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter,
                                                            Qt::AlignJustify};
        QTextBlockFormat format;
        format.setAlignment(kAlignments[Below(4)]);
        if (OneIn(3))
            format.setLeftMargin(Below(100));
        if (OneIn(4))
            format.setRightMargin(TwipsToPixels(Below(700)));
        if (OneIn(4))
            format.setTopMargin(Below(20));
        if (OneIn(4))
            format.setBottomMargin(Below(20));
        if (OneIn(5))
            format.setLineHeight(Below(3) * 50 + 100, QTextBlockFormat::ProportionalHeight);
        else if (OneIn(6))
            format.setLineHeight(20,
                                 OneIn(2) ? QTextBlockFormat::FixedHeight : QTextBlockFormat::MinimumHeight);
        if (OneIn(8))
            format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        if (OneIn(8))
            format.setProperty(KeepTogether, true);
        if (OneIn(8))
            format.setProperty(KeepWithNext, true);
        if (OneIn(8))
            format.setProperty(OutlineLevel, Below(9));
        if (OneIn(8))
            format.setBackground(Color());
        if (OneIn(8))
            format.setProperty(ParagraphBorder, QByteArray("\\brdrb\\brdrs\\brdrw10"));
        QList<QTextOption::Tab> tabs;
        if (OneIn(4)) {
            format.setTextIndent(-24);
            format.setLeftMargin(24 + format.leftMargin());
            tabs.append(QTextOption::Tab(24, QTextOption::LeftTab));
            if (OneIn(2))
                List(format);
        }
        if (OneIn(4))
            tabs.append(QTextOption::Tab(200 + Below(100), static_cast<QTextOption::TabType>(Below(4))));
        if (!tabs.isEmpty())
            format.setTabPositions(tabs);
        return format;
    }

    // A few paragraphs, tables and pictures at the cursor.
    void Insert(QTextCursor& cursor) {
        const int kind = Below(10);
        if (kind == 0 && !cursor.currentTable()) {
            QTextTableFormat format;
            format.setBorder(1);
            QTextTable* const table = cursor.insertTable(1 + Below(3), 1 + Below(3), format);
            for (int row = 0; row < table->rows(); ++row) {
                QTextCursor cell = table->cellAt(row, 0).firstCursorPosition();
                cell.setBlockFormat(Block());
                cell.insertText(Text(), Chars());
            }
            if (table->columns() > 1 && OneIn(2))
                table->mergeCells(0, 0, 1, 2);
            cursor.setPosition(table->lastPosition() + 1);
        } else if (kind == 1) {
            QImage image(3, 2, QImage::Format_RGB32);
            image.fill(Color());
            const QString name = QStringLiteral("drawn-%1").arg(++m_pictures);
            cursor.document()->addResource(QTextDocument::ImageResource, QUrl(name), image);
            QTextImageFormat picture;
            picture.merge(Chars());
            picture.setName(name);
            picture.setWidth(30);
            picture.setHeight(20);
            cursor.insertImage(picture);
        } else if (kind < 6) {
            cursor.insertBlock(Block(), Chars());
            cursor.insertText(Text(), Chars());
        } else {
            cursor.insertText(Text(), Chars());
        }
    }

    std::unique_ptr<QTextDocument> Document(int inserts) {
        auto document = std::make_unique<QTextDocument>();
        QTextFrameFormat format = document->rootFrame()->frameFormat();
        format.setProperty(PaperWidth, 12240);
        format.setProperty(PaperHeight, 15840);
        format.setProperty(MarginLeft, 1440);
        format.setProperty(HeadersAndFooters, QVariantList{QByteArray("{\\header\\pard Draft\\par}")});
        format.setProperty(InfoGroup, QByteArray("{\\info{\\title Deed}}"));
        format.setProperty(FieldInstructions,
                           QVariantMap{{QStringLiteral("1"), QStringLiteral("DATE \\@ \"d MMMM\"")},
                                       {QStringLiteral("2"), QStringLiteral("PAGE")}});
        document->rootFrame()->setFrameFormat(format);
        QTextCursor cursor(document.get());
        cursor.setBlockFormat(Block());
        cursor.setBlockCharFormat(Chars());
        for (int i = 0; i < inserts; ++i)
            Insert(cursor);
        return document;
    }

    // One edit somewhere in the document.
    void Edit(QTextDocument& document) {
        QTextCursor cursor(&document);
        cursor.setPosition(Below(document.characterCount()));
        const int kind = Below(8);
        if (kind < 3) {
            Insert(cursor);
            return;
        }
        cursor.setPosition(std::min(cursor.position() + Below(60), document.characterCount() - 1),
                           QTextCursor::KeepAnchor);
        if (kind == 3)
            cursor.removeSelectedText();
        else if (kind == 4)
            cursor.setCharFormat(Chars());
        else if (kind == 5)
            cursor.setBlockFormat(Block());
        else if (kind == 6 && document.isUndoAvailable())
            document.undo();
        else if (kind == 7 && document.isRedoAvailable())
            document.redo();
        else
            cursor.insertText(QStringLiteral("x"));
    }

private:
    QColor Color() {
        static constexpr QRgb kColors[] = {0xFF0000, 0x0000FF, 0x00FF00, 0xFFFF00, 0x123456};
        return QColor::fromRgb(kColors[Below(std::size(kColors))]);
    }

    void List(QTextBlockFormat& format) {
        const bool bullet = OneIn(2);
        format.setProperty(BulletText, bullet ? QStringLiteral("\u2022") : QStringLiteral("3."));
        format.setProperty(ListKind, static_cast<int>(bullet ? ListKinds::Bullet : ListKinds::Decimal));
        format.setProperty(ListStart, bullet ? 1 : 3);
        format.setProperty(ListTextBefore, bullet ? QStringLiteral("\u2022") : QString());
        format.setProperty(ListTextAfter, bullet ? QString() : QStringLiteral("."));
    }

    QRandomGenerator m_random;
    int m_pictures = 0;
};

} // namespace platform
