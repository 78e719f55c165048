#include "rtf_conformance/file_output.h"

#include <QPainter>
#include <QPdfWriter>
#include <QTextDocument>
#include <QTextFrame>

#include "platform/rich_text/document_model.h"
#include "platform/rich_text/rich_text_file.h"
#include "platform/rich_text/rich_text_markers.h"
#include "platform/rich_text/rich_text_plain.h"
#include "platform/rich_text/rich_text_printing.h"
#include "platform/rich_text/rtf_writer.h"

namespace quillbrook {
namespace {

constexpr int kMostPages = 500;
constexpr int kResolution = 300;

} // namespace

bool WriteAgain(const QString& path, const QString& target) {
    const auto document = platform::ReadDocumentFile(path);
    return document &&
           platform::WriteFileWhole(target, platform::WriteRtf(*document)) == platform::SaveError::None;
}

bool PrintAsPdf(const QString& path, const QString& target) {
    const auto document = platform::ReadDocumentFile(path);
    if (!document)
        return false;
    platform::ShowMarkers(*document, 0, document->characterCount()); // as a pane shows them
    const QTextFrameFormat told = document->rootFrame()->frameFormat();
    const auto twips = [&told](int property, int otherwise) {
        return told.hasProperty(property) ? told.intProperty(property) : otherwise;
    };
    const QSize paper(twips(platform::PaperWidth, 12'240), twips(platform::PaperHeight, 15'840));
    const QRect text(QPoint(twips(platform::MarginLeft, 1'440), twips(platform::MarginTop, 1'440)),
                     QPoint(paper.width() - twips(platform::MarginRight, 1'440) - 1,
                            paper.height() - twips(platform::MarginBottom, 1'440) - 1));
    if (text.width() < 720 || text.height() < 720)
        return false;
    QPdfWriter writer(target);
    writer.setResolution(kResolution);
    writer.setPageSize(QPageSize(QSizeF(paper) / 20.0, QPageSize::Point, {}, QPageSize::ExactMatch));
    writer.setPageMargins({});
    QPainter painter;
    if (!painter.begin(&writer))
        return false;
    platform::RichTextFormatter formatter(*document);
    const auto length = int(platform::PlainText(*document).size());
    int first = 0;
    for (int page = 0; page < kMostPages && (first < length || page == 0); ++page) {
        if (page > 0)
            writer.newPage();
        first = formatter.FormatRange(painter, text, first, true);
    }
    return painter.end();
}

} // namespace quillbrook
