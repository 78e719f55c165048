// The page of the document, its printing and its preview.
#include "platform/word/libreoffice/uno_writer_session.h"

#include <chrono>
#include <cmath>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/style/XStyle.hpp>
#include <com/sun/star/style/XStyleFamiliesSupplier.hpp>
#include <com/sun/star/view/XPrintJobBroadcaster.hpp>
#include <thread>

namespace platform {

using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

// Hundredths of a millimetre. The paper's bounds are a word processor's own, a tenth of an inch to 22.
constexpr sal_Int32 kLeastPaper = 254;
constexpr sal_Int32 kMostPaper = 55880;
constexpr sal_Int32 kLeastText = 254; // left free by the margins
constexpr auto kPreviewPatience = std::chrono::seconds(8);
constexpr auto kSpoolPatience = std::chrono::seconds(5);

constexpr const char* kStyleNames[] = {"Width",       "Height",    "LeftMargin",
                                       "RightMargin", "TopMargin", "BottomMargin"};

rtl::OUString StyleName(PageLength length) {
    return rtl::OUString::createFromAscii(kStyleNames[int(length)]);
}

} // namespace

bool UnoWriterSession::SetStyleLength(const Style& style, PageLength length, sal_Int32 hundredths) const {
    const auto current = [&](PageLength which) {
        sal_Int32 value = 0;
        style->getPropertyValue(StyleName(which)) >>= value;
        return which == length ? hundredths : value;
    };
    const bool paper = length == PageLength::PageWidth || length == PageLength::PageHeight;
    if (paper ? hundredths < kLeastPaper || hundredths > kMostPaper : hundredths < 0)
        return false;
    const bool across = length == PageLength::PageWidth || length == PageLength::LeftMargin ||
                        length == PageLength::RightMargin;
    const sal_Int32 text = across ? current(PageLength::PageWidth) - current(PageLength::LeftMargin) -
                                        current(PageLength::RightMargin)
                                  : current(PageLength::PageHeight) - current(PageLength::TopMargin) -
                                        current(PageLength::BottomMargin);
    if (text < kLeastText)
        return false;
    style->setPropertyValue(StyleName(length), Any(hundredths));
    if (paper)
        style->setPropertyValue("IsLandscape",
                                Any(current(PageLength::PageWidth) > current(PageLength::PageHeight)));
    return true;
}

// The page of a document with several kinds of pages is that of all of them.
bool UnoWriterSession::SetPageLength(PageLength length, float points) {
    const double hundredths = std::round(double(points) * 2540 / 72);
    if (!(std::abs(hundredths) <= double(kMostPaper)))
        return false;
    return Succeeds([&] {
        const Reference<css::style::XStyleFamiliesSupplier> supplier(m_document, UNO_QUERY);
        const auto cursor = ViewCursor();
        if (!supplier.is() || !cursor.is())
            return false;
        const Reference<css::container::XNameAccess> styles(
            supplier->getStyleFamilies()->getByName("PageStyles"), UNO_QUERY_THROW);
        rtl::OUString first;
        Reference<css::beans::XPropertySet>(cursor, UNO_QUERY_THROW)->getPropertyValue("PageStyleName") >>=
            first;
        if (!SetStyleLength(Style(styles->getByName(first), UNO_QUERY_THROW), length, sal_Int32(hundredths)))
            return false;
        for (const rtl::OUString& name : styles->getElementNames()) {
            const Reference<css::style::XStyle> style(styles->getByName(name), UNO_QUERY_THROW);
            if (name != first && style->isInUse())
                SetStyleLength(Style(style, UNO_QUERY_THROW), length, sal_Int32(hundredths));
        }
        return true;
    });
}

bool UnoWriterSession::StartPrinting() {
    m_printJob.clear();
    m_drawnSince.reset();
    return Succeeds([&] {
        const Reference<css::view::XPrintJobBroadcaster> jobs(m_document, UNO_QUERY);
        if (!jobs.is())
            return false;
        const rtl::Reference<PrintJobWatcher> watcher(new PrintJobWatcher);
        jobs->addPrintJobListener(Reference<css::view::XPrintJobListener>(watcher.get()));
        // it returns before the dialog is there
        if (!Dispatch(".uno:Print"))
            return false;
        m_printJob = watcher;
        return true;
    });
}

PrintProgress UnoWriterSession::PrintingProgress() {
    if (!m_printJob.is())
        return PrintProgress::Gone;
    if (m_printJob->HasEnded())
        return PrintProgress::Done;
    if (m_printJob->IsDrawn()) {
        const auto now = std::chrono::steady_clock::now();
        if (!m_drawnSince)
            m_drawnSince = now;
        if (now - *m_drawnSince > kSpoolPatience)
            return PrintProgress::Done; // it is not told of the spooler
    }
    const bool answers = Succeeds([&] {
        const Reference<css::frame::XModel> model(m_document, UNO_QUERY_THROW);
        model->hasControllersLocked();
        return true;
    });
    return answers ? PrintProgress::Busy : PrintProgress::Gone;
}

bool UnoWriterSession::IsInPreview() const {
    const auto controller = Controller();
    return controller.is() && controller->getViewControllerName() == "PrintPreview";
}

bool UnoWriterSession::StartPreview() {
    return Succeeds([&] {
        if (!Dispatch(".uno:PrintPreview"))
            return false;
        const auto end = std::chrono::steady_clock::now() + kPreviewPatience;
        while (!IsInPreview()) {
            if (std::chrono::steady_clock::now() > end)
                return false;
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
        return true;
    });
}

bool UnoWriterSession::ShowFullPage() {
    // the published values of a zoom dialog's answer: whole page, and all that may be asked for
    constexpr sal_Int16 kWholePage = 2;
    constexpr sal_Int16 kAllKinds = 28703;
    return Succeeds([&] {
        if (!IsInPreview())
            return false;
        return Dispatch(".uno:Zoom", SequenceOf(Argument("Zoom.Value", Any(sal_Int16(100))),
                                                Argument("Zoom.ValueSet", Any(kAllKinds)),
                                                Argument("Zoom.Type", Any(kWholePage))));
    });
}

PreviewProgress UnoWriterSession::PreviewingProgress() {
    const bool open = Succeeds([&] { return IsInPreview(); });
    return open ? PreviewProgress::Open : PreviewProgress::Closed;
}

} // namespace platform
