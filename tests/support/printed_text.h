// Rich text whose every word is another one, so that a test can tell what was printed, where and how often.
#pragma once

#include <QString>
#include <QStringList>

// Gives words w0, w1, w2 and so on, and remembers how many.
class PrintedText {
public:
    QString Source() const {
        return QStringLiteral("{\\rtf1{\\fonttbl{\\f0 Times New Roman;}}\\f0\\fs24 ") + m_source + u'}';
    }
    // The words, with the marks of the items before theirs.
    QStringList Expected() const { return m_expected; }
    // How many words there are, without the marks.
    int Count() const { return m_count; }
    static QString Word(int number) { return QStringLiteral("w%1").arg(number); }

    PrintedText& Paragraph(int words, const QString& format = QStringLiteral("\\qj\\fi720\\sa120")) {
        m_source += QStringLiteral("\\pard") + format + u' ' + Words(words) + QStringLiteral("\\par\n");
        return *this;
    }
    PrintedText& Heading(int words) { return Paragraph(words, QStringLiteral("\\qc\\keepn\\sb240\\sa120")); }
    PrintedText& Bullet(int words) {
        m_expected += QStringLiteral("\u2022");
        return Paragraph(
            words,
            QStringLiteral("\\fi-360\\li720{\\pntext\\u8226?\\tab}{\\*\\pn\\pnlvlblt{\\pntxtb\\u8226?}}"));
    }
    PrintedText& Number(int words, int number) {
        m_expected += QStringLiteral("%1.").arg(number);
        return Paragraph(words, QStringLiteral("\\fi-360\\li720{\\pntext %1.\\tab}{\\*\\pn\\pnlvlbody\\pndec"
                                               "\\pnstart1{\\pntxta.}}")
                                    .arg(number));
    }
    // A row of two cells, the first with a line for each of its words.
    PrintedText& Row(int lines) {
        m_source += QStringLiteral("\\trowd\\cellx3000\\cellx8000\\pard\\intbl ");
        return Cells(lines);
    }
    // The same with lines around its cells.
    PrintedText& RuledRow(int lines) {
        const QString rules =
            QStringLiteral("\\clbrdrt\\brdrs\\clbrdrl\\brdrs\\clbrdrb\\brdrs\\clbrdrr\\brdrs");
        m_source += QStringLiteral("\\trowd") + rules + QStringLiteral("\\cellx3000") + rules +
                    QStringLiteral("\\cellx8000\\pard\\intbl ");
        return Cells(lines);
    }
    // A black square of an inch.
    PrintedText& Picture() {
        m_source += QStringLiteral("\\pard{\\pict\\pngblip\\picwgoal1440\\pichgoal1440 "
                                   "89504e470d0a1a0a0000000d49484452000000010000000108000000003a7e9b55000000"
                                   "0a49444154789c636000000002000148afa4710000000049454e44ae426082}\\par\n");
        return *this;
    }
    PrintedText& Raw(const QString& source) {
        m_source += source;
        return *this;
    }

private:
    PrintedText& Cells(int lines) {
        for (int i = 0; i < lines; ++i)
            m_source += (i ? QStringLiteral("\\line ") : QString()) + Words(1);
        m_source += QStringLiteral("\\cell ") + Words(2) + QStringLiteral("\\cell\\row\n");
        return *this;
    }
    QString Words(int count) {
        QString text;
        for (int i = 0; i < count; ++i) {
            m_expected += Word(m_count++);
            text += (i ? QStringLiteral(" ") : QString()) + m_expected.last();
        }
        return text;
    }

    QString m_source;
    QStringList m_expected;
    int m_count = 0;
};

// A contract: headings, items of each kind, tables, pictures and signature lines.
inline PrintedText Contract(int articles) {
    PrintedText text;
    for (int i = 0; i < articles; ++i) {
        text.Heading(3).Paragraph(130).Paragraph(90);
        text.Bullet(30).Bullet(20).Number(25, 1).Number(35, 2);
        if (i % 3 == 0)
            text.Row(4).Row(2).Row(5);
        if (i % 7 == 0)
            text.Picture();
        text.Paragraph(4, QStringLiteral("\\qr"));
    }
    return text;
}
