#pragma once

#include "platform/word/libreoffice/uno_streams.h"
#include "platform/word/libreoffice/writer_session.h"

#include <chrono>
#include <com/sun/star/awt/XWindow.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XEnumeration.hpp>
#include <com/sun/star/frame/XController2.hpp>
#include <com/sun/star/frame/XDesktop2.hpp>
#include <com/sun/star/frame/XFrame.hpp>
#include <com/sun/star/linguistic2/XProofreader.hpp>
#include <com/sun/star/linguistic2/XSpellChecker.hpp>
#include <com/sun/star/text/XTextDocument.hpp>
#include <com/sun/star/text/XTextViewCursor.hpp>
#include <com/sun/star/uno/XComponentContext.hpp>
#include <rtl/ref.hxx>
#include <vector>

namespace platform {

// Writer over UNO. Every reference may turn out to be empty, as the user can close a window at any time.
class UnoWriterSession final : public WriterSession {
public:
    bool Connect(const QString& pipe) override;

    bool SetVisible(bool visible) override;
    bool SetCaption(const QString& caption) override;
    bool Activate() override;

    bool AddDocument() override;
    bool OpenDocument(const QString& path) override;
    bool CloseDocument() override;
    bool LeaveDocument() override;
    bool Terminate() override;
    std::optional<bool> HoldsOtherDocuments() override;

    bool Paste(const QByteArray& richText) override;
    bool SelectAll() override;
    bool SetFontColorAutomatic() override;
    bool GoToStart() override;
    std::optional<QByteArray> SelectedRichText() override;
    bool DeleteSelection() override;

    bool SetPageLength(PageLength length, float points) override;

    bool StartPrinting() override;
    PrintProgress PrintingProgress() override;

    bool StartPreview() override;
    bool ShowFullPage() override;
    PreviewProgress PreviewingProgress() override;

    std::optional<QStringList> NextParagraphs(bool isFirst, int most) override;
    bool ReplaceInParagraph(int index, int start, const QString& old, const QString& text) override;
    std::optional<QStringList> Misspelt(const QStringList& words) override;
    std::optional<QStringList> Suggestions(const QString& word) override;
    std::optional<std::vector<Finding>> CheckGrammar(const QString& sentence) override;

    std::optional<QByteArray> DocumentFile() override;

private:
    using Style = css::uno::Reference<css::beans::XPropertySet>;

    bool Load(const rtl::OUString& address, const css::uno::Sequence<css::beans::PropertyValue>& arguments);
    css::uno::Reference<css::frame::XController2> Controller() const;
    css::uno::Reference<css::frame::XFrame> Frame() const;
    css::uno::Reference<css::awt::XWindow> Window() const;
    css::uno::Reference<css::text::XTextViewCursor> ViewCursor() const;
    css::uno::Reference<css::linguistic2::XSpellChecker> SpellChecker();
    css::uno::Reference<css::linguistic2::XProofreader> Proofreader();
    bool IsInPreview() const;
    void Read(const css::uno::Reference<css::text::XText>& text);
    bool ReadOn();
    bool Dispatch(const char* command, const css::uno::Sequence<css::beans::PropertyValue>& arguments = {});
    bool SetStyleLength(const Style& style, PageLength length, sal_Int32 hundredths) const;

    css::uno::Reference<css::uno::XComponentContext> m_context; // LibreOffice's
    css::uno::Reference<css::frame::XDesktop2> m_desktop;
    css::uno::Reference<css::text::XTextDocument> m_document;             // the active one
    css::uno::Reference<css::frame::XFrame> m_frame;                      // its frame
    std::vector<css::uno::Reference<css::text::XTextRange>> m_paragraphs; // that were given
    // what is left of the text, and of the cells that stand before it; the last one comes first
    std::vector<css::uno::Reference<css::container::XEnumeration>> m_unread;
    css::uno::Reference<css::linguistic2::XSpellChecker> m_spellChecker;
    css::uno::Reference<css::linguistic2::XProofreader> m_proofreader;
    bool m_soughtProofreader = false;
    rtl::Reference<PrintJobWatcher> m_printJob;
    std::optional<std::chrono::steady_clock::time_point> m_drawnSince; // its pages
};

} // namespace platform
