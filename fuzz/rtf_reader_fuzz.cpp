// Reads any bytes as rich text; whatever they are, a document or none comes out, in time and in memory.
#include <QGuiApplication>
#include <QTextDocument>
#include <cstddef>
#include <cstdint>

#include "platform/rich_text/rtf_reader.h"

namespace {

void EnsureApplication() {
    static int count = 1;
    static char name[] = "rtf_reader_fuzz";
    static char* arguments[] = {name, nullptr};
    static const bool set = qputenv("QT_QPA_PLATFORM", "offscreen");
    Q_UNUSED(set)
    static QGuiApplication application(count, arguments);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    EnsureApplication();
    const QByteArrayView bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    // most mutations break the first bytes, so what is no rich text is read once more behind a header
    auto document = platform::ReadRtf(bytes);
    if (!document)
        document = platform::ReadRtf(QByteArray("{\\rtf1\\ansi ").append(bytes));
    // positions beyond the size of the source would mean that something was made up
    if (!document || document->characterCount() > static_cast<qsizetype>(size) * 130 + 1'000)
        __builtin_trap();
    return 0;
}
