// Objects of ours that LibreOffice calls back.
#pragma once

#include "platform/word/libreoffice/uno_call.h"

#include <QByteArray>
#include <atomic>
#include <com/sun/star/datatransfer/XTransferable.hpp>
#include <com/sun/star/io/XOutputStream.hpp>
#include <com/sun/star/view/XPrintJobListener.hpp>
#include <cppuhelper/implbase1.hxx>
#include <mutex>

namespace platform {

// Rich text to be pasted.
class RichTextTransferable final : public cppu::WeakImplHelper1<css::datatransfer::XTransferable> {
public:
    explicit RichTextTransferable(const QByteArray& richText)
        : m_richText(richText) {}

    css::uno::Any SAL_CALL getTransferData(const css::datatransfer::DataFlavor& flavor) override;
    css::uno::Sequence<css::datatransfer::DataFlavor> SAL_CALL getTransferDataFlavors() override;
    sal_Bool SAL_CALL isDataFlavorSupported(const css::datatransfer::DataFlavor& flavor) override;

private:
    QByteArray m_richText;
};

css::datatransfer::DataFlavor RichTextFlavor();

// Takes the bytes of a file up to a limit, and refuses those beyond it.
class ByteOutput final : public cppu::WeakImplHelper1<css::io::XOutputStream> {
public:
    void SAL_CALL writeBytes(const css::uno::Sequence<sal_Int8>& bytes) override;
    void SAL_CALL flush() override {}
    void SAL_CALL closeOutput() override {}

    QByteArray Bytes() const;

private:
    mutable std::mutex m_mutex;
    QByteArray m_bytes;
};

// Follows a print job from the dialog to its end.
class PrintJobWatcher final : public cppu::WeakImplHelper1<css::view::XPrintJobListener> {
public:
    void SAL_CALL printJobEvent(const css::view::PrintJobEvent& event) override;
    void SAL_CALL disposing(const css::lang::EventObject&) override { m_ended = true; }

    bool HasEnded() const { return m_ended; }
    // All pages are drawn; the spooler may still have them to come.
    bool IsDrawn() const { return m_drawn; }

private:
    std::atomic<bool> m_ended = false;
    std::atomic<bool> m_drawn = false;
};

} // namespace platform
