#include "platform/word/libreoffice/uno_streams.h"

#include <com/sun/star/datatransfer/UnsupportedFlavorException.hpp>
#include <com/sun/star/io/IOException.hpp>
#include <com/sun/star/view/PrintableState.hpp>

namespace platform {

namespace {

constexpr qsizetype kMostFileBytes = 512 * 1024 * 1024;

} // namespace

css::datatransfer::DataFlavor RichTextFlavor() {
    return {rtl::OUString("text/rtf"), rtl::OUString("Rich Text Format"),
            cppu::UnoType<css::uno::Sequence<sal_Int8>>::get()};
}

css::uno::Any RichTextTransferable::getTransferData(const css::datatransfer::DataFlavor& flavor) {
    if (!isDataFlavorSupported(flavor))
        throw css::datatransfer::UnsupportedFlavorException();
    return css::uno::Any(css::uno::Sequence<sal_Int8>(
        reinterpret_cast<const sal_Int8*>(m_richText.constData()), sal_Int32(m_richText.size())));
}

css::uno::Sequence<css::datatransfer::DataFlavor> RichTextTransferable::getTransferDataFlavors() {
    return SequenceOf(RichTextFlavor());
}

sal_Bool RichTextTransferable::isDataFlavorSupported(const css::datatransfer::DataFlavor& flavor) {
    return flavor.MimeType.startsWith("text/rtf");
}

void ByteOutput::writeBytes(const css::uno::Sequence<sal_Int8>& bytes) {
    const std::lock_guard lock(m_mutex);
    if (m_bytes.size() + bytes.getLength() > kMostFileBytes)
        throw css::io::IOException();
    m_bytes.append(reinterpret_cast<const char*>(bytes.getConstArray()), bytes.getLength());
}

QByteArray ByteOutput::Bytes() const {
    const std::lock_guard lock(m_mutex);
    return m_bytes;
}

void PrintJobWatcher::printJobEvent(const css::view::PrintJobEvent& event) {
    // a job starts, may be told to be completed, and then is spooled; cancelling the dialog aborts it
    if (event.State == css::view::PrintableState_JOB_COMPLETED)
        m_drawn = true;
    else if (event.State != css::view::PrintableState_JOB_STARTED)
        m_ended = true;
}

} // namespace platform
