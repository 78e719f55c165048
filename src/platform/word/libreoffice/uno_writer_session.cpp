// The instance, its document and its window.
#include "platform/word/libreoffice/uno_writer_session.h"

#include <QUrl>
#include <chrono>
#include <com/sun/star/awt/XTopWindow.hpp>
#include <com/sun/star/bridge/UnoUrlResolver.hpp>
#include <com/sun/star/container/XEnumerationAccess.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/frame/DispatchHelper.hpp>
#include <com/sun/star/frame/XDispatchProvider.hpp>
#include <com/sun/star/frame/XTitle.hpp>
#include <com/sun/star/text/XTextViewCursorSupplier.hpp>
#include <com/sun/star/util/CloseVetoException.hpp>
#include <com/sun/star/util/XCloseable.hpp>
#include <com/sun/star/util/XModifiable2.hpp>
#include <cppuhelper/bootstrap.hxx>
#include <dlfcn.h>
#include <rtl/bootstrap.hxx>
#include <string>
#include <thread>
#include <unistd.h>

namespace platform {

using css::uno::Reference;
using css::uno::UNO_QUERY;
using css::uno::UNO_QUERY_THROW;

namespace {

constexpr int kCloseAttempts = 20; // a document may veto while it is still busy

// The folder of LibreOffice's libraries; empty when it cannot be told.
const std::string& ProgramFolder() {
    static const std::string folder = [] {
        Dl_info where = {};
        if (dladdr(reinterpret_cast<void*>(&rtl_bootstrap_set), &where) == 0 || !where.dli_fname)
            return std::string();
        const std::string library = where.dli_fname;
        const auto slash = library.rfind('/');
        return slash == std::string::npos ? std::string() : library.substr(0, slash);
    }();
    return folder;
}

// Packages without them exist, whose Writer ends when it is to show a dialog.
bool HasDialogs() {
    const std::string dialogs = ProgramFolder() + "/../share/config/soffice.cfg/modules/swriter/ui";
    return !ProgramFolder().empty() && access(dialogs.c_str(), R_OK) == 0;
}

// Our own side of the bridge, made once and kept: it serves all sessions.
const Reference<css::uno::XComponentContext>& LocalContext() {
    static const auto* context = new Reference<css::uno::XComponentContext>([] {
        // without the types of the office its first remote call ends the process
        rtl::Bootstrap::set("URE_MORE_TYPES", "file://" + rtl::OUString::fromUtf8(ProgramFolder().c_str()) +
                                                  "/types/offapi.rdb");
        return cppu::defaultBootstrap_InitialComponentContext();
    }());
    return *context;
}

} // namespace

bool UnoWriterSession::Connect(const QString& pipe) {
    return Succeeds([&] {
        const auto resolver = css::bridge::UnoUrlResolver::create(LocalContext());
        const rtl::OUString address = "uno:pipe,name=" + ToUno(pipe) + ";urp;StarOffice.ComponentContext";
        m_context.set(resolver->resolve(address), UNO_QUERY_THROW);
        m_desktop = css::frame::Desktop::create(m_context);
        return m_desktop.is();
    });
}

bool UnoWriterSession::Load(const rtl::OUString& address,
                            const css::uno::Sequence<css::beans::PropertyValue>& arguments) {
    if (!m_desktop.is())
        return false;
    const Reference<css::text::XTextDocument> document(
        m_desktop->loadComponentFromURL(address, "_blank", 0, arguments), UNO_QUERY);
    if (!document.is())
        return false;
    m_document = document;
    m_frame = Reference<css::frame::XModel>(document, UNO_QUERY_THROW)->getCurrentController()->getFrame();
    return true;
}

// Hidden at first, whatever Visible is to be: showing while loading can hang.
bool UnoWriterSession::AddDocument() {
    return Succeeds([&] {
        if (!Load("private:factory/swriter", SequenceOf(Argument("Hidden", css::uno::Any(true)))))
            return false;
        // The user may close its window at any time, and a question about a copy of the form would stay open
        // behind a command that has ended.
        Reference<css::util::XModifiable2>(m_document, UNO_QUERY_THROW)->disableSetModified();
        return true;
    });
}

bool UnoWriterSession::OpenDocument(const QString& path) {
    const QString address = QString::fromLatin1(QUrl::fromLocalFile(path).toEncoded());
    return Succeeds([&] {
        return Load(ToUno(address), SequenceOf(Argument("Hidden", css::uno::Any(true)),
                                               Argument("ReadOnly", css::uno::Any(true)),
                                               Argument("MacroExecutionMode", css::uno::Any(sal_Int16(0))),
                                               Argument("UpdateDocMode", css::uno::Any(sal_Int16(0)))));
    });
}

bool UnoWriterSession::CloseDocument() {
    for (int attempt = 0; attempt < kCloseAttempts; ++attempt) {
        bool vetoed = false;
        const bool closed = Succeeds([&] {
            try {
                Reference<css::util::XCloseable>(m_document, UNO_QUERY_THROW)->close(false);
                return true;
            } catch (const css::util::CloseVetoException&) {
                vetoed = true;
                return false;
            }
        });
        if (closed) {
            m_frame.clear();
            m_document.clear();
        }
        if (closed || !vetoed)
            return closed;
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return false;
}

bool UnoWriterSession::LeaveDocument() {
    return Succeeds([&] {
        const Reference<css::util::XModifiable2> document(m_document, UNO_QUERY_THROW);
        document->enableSetModified();
        document->setModified(true);
        return true;
    });
}

std::optional<bool> UnoWriterSession::HoldsOtherDocuments() {
    bool others = false;
    const bool known = Succeeds([&] {
        const Reference<css::container::XEnumeration> components =
            m_desktop->getComponents()->createEnumeration();
        while (components->hasMoreElements()) {
            const Reference<css::frame::XModel> model(components->nextElement(), UNO_QUERY);
            if (model.is() && model != Reference<css::frame::XModel>(m_document, UNO_QUERY))
                others = true;
        }
        return true;
    });
    return known || others ? std::optional(others) : std::nullopt;
}

bool UnoWriterSession::Terminate() {
    return Succeeds([&] {
        if (!m_desktop.is() || HoldsOtherDocuments().value_or(true))
            return false;
        return bool(m_desktop->terminate());
    });
}

// Asked for anew each time: the preview has another one.
Reference<css::frame::XController2> UnoWriterSession::Controller() const {
    const Reference<css::frame::XModel> model(m_document, UNO_QUERY);
    return model.is() ? Reference<css::frame::XController2>(model->getCurrentController(), UNO_QUERY)
                      : Reference<css::frame::XController2>();
}

Reference<css::frame::XFrame> UnoWriterSession::Frame() const {
    return m_frame;
}

Reference<css::awt::XWindow> UnoWriterSession::Window() const {
    const auto frame = Frame();
    return frame.is() ? frame->getContainerWindow() : Reference<css::awt::XWindow>();
}

Reference<css::text::XTextViewCursor> UnoWriterSession::ViewCursor() const {
    const Reference<css::text::XTextViewCursorSupplier> supplier(Controller(), UNO_QUERY);
    return supplier.is() ? supplier->getViewCursor() : Reference<css::text::XTextViewCursor>();
}

bool UnoWriterSession::Dispatch(const char* command,
                                const css::uno::Sequence<css::beans::PropertyValue>& arguments) {
    const Reference<css::frame::XDispatchProvider> provider(Frame(), UNO_QUERY);
    if (!provider.is())
        return false;
    css::frame::DispatchHelper::create(m_context)->executeDispatch(
        provider, rtl::OUString::createFromAscii(command), rtl::OUString(), 0, arguments);
    return true;
}

// Before the first document there is no window, and a new instance is not visible anyway.
bool UnoWriterSession::SetVisible(bool visible) {
    return Succeeds([&] {
        const auto window = Window();
        if (!window.is())
            return !visible;
        window->setVisible(visible);
        return true;
    });
}

bool UnoWriterSession::SetCaption(const QString& caption) {
    return Succeeds([&] {
        const Reference<css::frame::XTitle> title(Frame(), UNO_QUERY);
        if (!title.is())
            return false;
        title->setTitle(ToUno(caption));
        return true;
    });
}

bool UnoWriterSession::Activate() {
    return Succeeds([&] {
        const auto frame = Frame();
        const auto window = Window();
        if (!frame.is() || !window.is())
            return false;
        if (const Reference<css::awt::XTopWindow> top(window, UNO_QUERY); top.is())
            top->toFront();
        window->setFocus();
        frame->activate();
        return true;
    });
}

} // namespace platform

extern "C" {

__attribute__((visibility("default"))) platform::WriterSession* QuillbrookCreateWriterSession() {
    return new platform::UnoWriterSession;
}

__attribute__((visibility("default"))) const char* QuillbrookWriterProgram() {
    static const std::string program = platform::ProgramFolder() + "/soffice";
    return platform::HasDialogs() ? program.c_str() : nullptr;
}
}
