#include "tests/support/pdf_pages.h"

#include <QProcess>
#include <QXmlStreamReader>

static QByteArray Run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60'000) || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0)
        return {};
    return process.readAllStandardOutput();
}

QStringList PdfPage::Texts() const {
    QStringList texts;
    for (const PdfWord& word : words)
        texts += word.text;
    return texts;
}

PdfPages::PdfPages(const QString& file)
    : m_file(file) {
    const QByteArray places =
        Run(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), file, QStringLiteral("-")});
    QXmlStreamReader xml(places);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const auto number = [&xml](const char* name) {
            return xml.attributes().value(QLatin1String(name)).toDouble();
        };
        if (xml.name() == QLatin1String("page")) {
            m_pages.push_back({QSizeF(number("width"), number("height")), {}});
        } else if (xml.name() == QLatin1String("word") && !m_pages.empty()) {
            const QRectF place(QPointF(number("xMin"), number("yMin")),
                               QPointF(number("xMax"), number("yMax")));
            m_pages.back().words.push_back({xml.readElementText(), place});
        }
    }
    m_read = !m_pages.empty() && !xml.hasError();
}

QStringList PdfPages::Words() const {
    const QByteArray text =
        Run(QStringLiteral("pdftotext"), {QStringLiteral("-raw"), QStringLiteral("-enc"),
                                          QStringLiteral("UTF-8"), m_file, QStringLiteral("-")});
    // fonts draw some letters as one
    const QString plain = QString::fromUtf8(text).normalized(QString::NormalizationForm_KC);
    return plain.simplified().split(u' ', Qt::SkipEmptyParts);
}

QStringList PdfPages::Lines(int index) const {
    QStringList lines;
    double bottom = -1;
    for (const PdfWord& word : Page(index).words) {
        if (lines.isEmpty() || word.place.center().y() > bottom)
            lines += word.text;
        else
            lines.back() += u' ' + word.text;
        bottom = word.place.bottom();
    }
    return lines;
}

QImage PdfPages::Picture(int index, int dotsPerInch) const {
    const QString page = QString::number(index + 1);
    const QByteArray png =
        Run(QStringLiteral("pdftoppm"),
            {QStringLiteral("-gray"), QStringLiteral("-png"), QStringLiteral("-r"),
             QString::number(dotsPerInch), QStringLiteral("-f"), page, QStringLiteral("-l"), page, m_file});
    return QImage::fromData(png);
}

QRectF PdfPages::Ink(int index) const {
    constexpr int kDots = 72;
    const QImage picture = Picture(index, kDots);
    QRect ink;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (qGray(picture.pixel(x, y)) < 200)
                ink |= QRect(x, y, 1, 1);
    return QRectF(ink);
}
