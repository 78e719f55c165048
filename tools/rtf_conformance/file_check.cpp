#include "rtf_conformance/file_check.h"

#include <QElapsedTimer>

#include "platform/rich_text/rich_text_file.h"
#include "platform/rich_text/rich_text_plain.h"
#include "platform/rich_text/rtf_reader.h"
#include "platform/rich_text/rtf_writer.h"
#include "rtf_conformance/shown_text.h"
#include "tests/platform/rich_text/document_compare.h"

namespace quillbrook {

FileCheck CheckFile(const QString& path) {
    FileCheck check;
    QElapsedTimer timer;
    const auto milliseconds = [&timer] { return double(timer.nsecsElapsed()) / 1e6; };
    timer.start();
    const auto first = platform::ReadDocumentFile(path);
    check.readMilliseconds = milliseconds();
    if (!first)
        return check;
    check.isRead = true;
    const QByteArray written = platform::WriteRtf(*first);
    const auto second = platform::ReadRtf(written);
    const QByteArray again = second ? platform::WriteRtf(*second) : QByteArray();
    check.allMilliseconds = milliseconds();
    check.shown = ShownText(*first);
    if (!second) {
        check.difference = QStringLiteral("what is written is no rich text");
        return check;
    }
    check.textStays = platform::PlainText(*first) == platform::PlainText(*second);
    check.difference = platform::FirstDifference(*first, *second);
    check.formatsStay = check.difference.isEmpty();
    check.sourceStays = written == again;
    return check;
}

} // namespace quillbrook
