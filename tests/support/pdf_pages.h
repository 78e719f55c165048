#pragma once

#include <QImage>
#include <QRectF>
#include <QString>
#include <QStringList>
#include <vector>

// A word of a PDF and where it stands on its page, in points from the upper left corner of the paper.
struct PdfWord {
    QString text;
    QRectF place;
};

struct PdfPage {
    QSizeF size; // points
    std::vector<PdfWord> words;
    QStringList Texts() const;
};

// What the pages of a PDF show, read by poppler's programs.
class PdfPages {
public:
    explicit PdfPages(const QString& file);

    // False when the file is no PDF, or poppler is not there.
    bool IsRead() const { return m_read; }
    int Count() const { return int(m_pages.size()); }
    const PdfPage& Page(int index) const { return m_pages[std::size_t(index)]; }
    const std::vector<PdfPage>& Pages() const { return m_pages; }
    // The words of all pages, in the order in which they were drawn.
    QStringList Words() const;
    // The words of a page line by line, each line's joined by a blank.
    QStringList Lines(int index) const;
    // A picture of a page.
    QImage Picture(int index, int dotsPerInch) const;
    // Where a page has ink, in points.
    QRectF Ink(int index) const;

private:
    QString m_file;
    bool m_read = false;
    std::vector<PdfPage> m_pages;
};
