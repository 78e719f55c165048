// The text of the document: what is pasted, selected, coloured and taken out.
#include "platform/word/libreoffice/uno_writer_session.h"

#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/datatransfer/XTransferableSupplier.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/text/XTextTable.hpp>
#include <com/sun/star/text/XTextTablesSupplier.hpp>

namespace platform {

using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

constexpr sal_Int32 kAutomatic = -1; // CharColor

void ColorAutomatically(const Reference<css::text::XText>& text) {
    const Reference<css::text::XTextCursor> cursor = text->createTextCursor();
    cursor->gotoStart(false);
    cursor->gotoEnd(true);
    Reference<css::beans::XPropertySet>(cursor, UNO_QUERY_THROW)
        ->setPropertyValue("CharColor", Any(kAutomatic));
}

} // namespace

bool UnoWriterSession::Paste(const QByteArray& richText) {
    return Succeeds([&] {
        const Reference<css::datatransfer::XTransferableSupplier> target(Controller(), UNO_QUERY);
        if (!target.is() || richText.isEmpty())
            return false;
        target->insertTransferable(new RichTextTransferable(richText));
        return true;
    });
}

// Where the document begins with a table, the first time takes only the cell, the second the table.
bool UnoWriterSession::SelectAll() {
    return Succeeds([&] {
        return Controller().is() && Dispatch(".uno:SelectAll") && Dispatch(".uno:SelectAll") &&
               Dispatch(".uno:SelectAll");
    });
}

// A cursor over the whole text passes over tables, so the cells have their own.
bool UnoWriterSession::SetFontColorAutomatic() {
    return Succeeds([&] {
        if (!m_document.is())
            return false;
        ColorAutomatically(m_document->getText());
        const Reference<css::container::XIndexAccess> tables(
            Reference<css::text::XTextTablesSupplier>(m_document, UNO_QUERY_THROW)->getTextTables(),
            UNO_QUERY_THROW);
        for (sal_Int32 i = 0; i < tables->getCount(); ++i) {
            const Reference<css::text::XTextTable> table(tables->getByIndex(i), UNO_QUERY_THROW);
            for (const rtl::OUString& name : table->getCellNames())
                ColorAutomatically(Reference<css::text::XText>(table->getCellByName(name), UNO_QUERY_THROW));
        }
        return true;
    });
}

bool UnoWriterSession::GoToStart() {
    return Succeeds([&] {
        const auto cursor = ViewCursor();
        if (!cursor.is())
            return false;
        cursor->gotoStart(false);
        return true;
    });
}

std::optional<QByteArray> UnoWriterSession::SelectedRichText() {
    QByteArray richText;
    const bool taken = Succeeds([&] {
        const Reference<css::datatransfer::XTransferableSupplier> source(Controller(), UNO_QUERY);
        if (!source.is())
            return false;
        const auto selection = source->getTransferable();
        css::uno::Sequence<sal_Int8> bytes;
        if (!selection.is() || !(selection->getTransferData(RichTextFlavor()) >>= bytes))
            return false;
        richText = QByteArray(reinterpret_cast<const char*>(bytes.getConstArray()), bytes.getLength());
        while (richText.endsWith('\0'))
            richText.chop(1);
        return !richText.isEmpty();
    });
    return taken ? std::optional(richText) : std::nullopt;
}

bool UnoWriterSession::DeleteSelection() {
    return Succeeds([&] { return Controller().is() && Dispatch(".uno:Delete"); });
}

std::optional<QByteArray> UnoWriterSession::DocumentFile() {
    const rtl::Reference<ByteOutput> output(new ByteOutput);
    const bool stored = Succeeds([&] {
        const Reference<css::frame::XStorable> document(m_document, UNO_QUERY);
        if (!document.is())
            return false;
        document->storeToURL(
            "private:stream",
            SequenceOf(Argument("FilterName", Any(rtl::OUString("MS Word 97"))),
                       Argument("OutputStream", Any(Reference<css::io::XOutputStream>(output.get())))));
        return true;
    });
    const QByteArray bytes = output->Bytes();
    return stored && !bytes.isEmpty() ? std::optional(bytes) : std::nullopt;
}

} // namespace platform
