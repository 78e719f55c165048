#include "platform/word/office_word_application.h"

#include "platform/word/office_proofreading.h"
#include "platform/word/proofreading_dialog.h"
#include "platform/word/word_clipboard.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QStorageInfo>
#include <thread>

namespace platform {

namespace {

constexpr auto kPollPause = std::chrono::milliseconds(50);
constexpr auto kPreviewPause = std::chrono::milliseconds(100);
constexpr auto kActivationPause = std::chrono::milliseconds(20);
constexpr int kActivationPolls = 10;
constexpr int kActivations = 3;

} // namespace

int WordSaveErrorFor(SaveError error, const QString& path) {
    constexpr int kAnyOther = 1;
    switch (error) {
    case SaveError::None:
        return kWordNoError;
    case SaveError::AlreadyOpen:
        return kWordFileInUse;
    case SaveError::DiskFull:
        return kWordDiskFull;
    case SaveError::DiskNotReady:
    case SaveError::DeviceIo:
    case SaveError::DeviceUnavailable:
        return kWordDiskNotReady;
    case SaveError::PermissionDenied:
    case SaveError::PathOrFile: {
        const QStorageInfo storage(QFileInfo(path).absolutePath());
        if (storage.isValid() && storage.isReadOnly())
            return kWordDiskNotWritable;
        return error == SaveError::PermissionDenied ? kWordPermissionDenied : kAnyOther;
    }
    }
    return kAnyOther;
}

OfficeWordApplication::OfficeWordApplication(std::unique_ptr<OfficeInstance> instance, QWidget* window,
                                             WordList& words, KeepInstance keep)
    : m_instance(std::move(instance))
    , m_window(window)
    , m_words(words)
    , m_keep(std::move(keep)) {}

OfficeWordApplication::~OfficeWordApplication() {
    if (!m_instance || !m_instance->IsAlive())
        return;
    if (m_visible) {
        Does([](WriterSession& session) { return session.LeaveDocument(); });
        if (m_instance->IsAlive())
            m_instance->HandOver();
    } else {
        m_keep(std::move(m_instance));
    }
}

// Any call may have to wait until it is laid out. Four seconds for each million bytes are plenty.
std::chrono::milliseconds OfficeWordApplication::Patience(std::chrono::milliseconds least) const {
    return least + std::chrono::milliseconds(m_documentBytes / 250);
}

// Lets the instance, and our own windows, go on for a while.
void OfficeWordApplication::Wait(std::chrono::milliseconds pause) {
    Does([pause](WriterSession&) {
        std::this_thread::sleep_for(pause);
        return true;
    });
}

bool OfficeWordApplication::SetVisible(bool visible) {
    const bool done = Does([visible](WriterSession& session) { return session.SetVisible(visible); });
    if (done)
        m_visible = visible;
    return done;
}

bool OfficeWordApplication::SetCaption(const QString& caption) {
    return Does([caption](WriterSession& session) { return session.SetCaption(caption); });
}

bool OfficeWordApplication::DocumentsAdd() {
    m_documentBytes = 0;
    return Does([](WriterSession& session) { return session.AddDocument(); });
}

bool OfficeWordApplication::DocumentsOpen(const QString& path) {
    m_documentBytes = QFileInfo(path).size();
    return Does([path](WriterSession& session) { return session.OpenDocument(path); });
}

// Writer is handed what is on the clipboard: were it to ask for it, it would wait for us while we wait for
// it.
bool OfficeWordApplication::SelectionPaste() {
    const QByteArray richText = ClipboardRTF();
    if (richText.isEmpty())
        return false;
    m_documentBytes += richText.size();
    return Does([richText](WriterSession& session) { return session.Paste(richText); });
}

bool OfficeWordApplication::SelectionWholeStory() {
    return Does([](WriterSession& session) { return session.SelectAll(); });
}

bool OfficeWordApplication::SelectionFontColor(int color) {
    return color == wdColorAutomatic &&
           Does([](WriterSession& session) { return session.SetFontColorAutomatic(); });
}

bool OfficeWordApplication::SelectionHomeKey(int unit) {
    return unit == wdStory && Does([](WriterSession& session) { return session.GoToStart(); });
}

bool OfficeWordApplication::SelectionCopy() {
    if (!m_instance)
        return false;
    const auto copied =
        m_instance->Call([](WriterSession& session) { return session.SelectedRichText(); }, Patience());
    if (!copied || !*copied)
        return false;
    SetClipboardRTF(**copied);
    return true;
}

bool OfficeWordApplication::SelectionCut() {
    return SelectionCopy() && Does([](WriterSession& session) { return session.DeleteSelection(); });
}

std::optional<float> OfficeWordApplication::InchesToPoints(float inches) {
    if (!m_instance || !m_instance->IsAlive())
        return std::nullopt;
    return inches * 72;
}

bool OfficeWordApplication::SetPageSetup(PageLength length, float points) {
    return Does([length, points](WriterSession& session) { return session.SetPageLength(length, points); });
}

// A window manager that has just brought our own window to the front may drop the request.
bool OfficeWordApplication::WindowsApplicationActivate() {
    const auto isOursInFront = [] { return QGuiApplication::applicationState() == Qt::ApplicationActive; };
    for (int attempt = 0; attempt < kActivations; ++attempt) {
        if (!Does([](WriterSession& session) { return session.Activate(); }))
            return false;
        for (int poll = 0; poll < kActivationPolls && isOursInFront(); ++poll)
            Wait(kActivationPause);
        if (!isOursInFront())
            break;
    }
    return true;
}

bool OfficeWordApplication::ShowDialog(int dialog) {
    if (dialog != wdDialogFilePrint || !Does([](WriterSession& session) { return session.StartPrinting(); }))
        return false;
    for (;;) {
        const auto progress = m_instance->Call(
            [](WriterSession& session) {
                std::this_thread::sleep_for(kPollPause);
                return session.PrintingProgress();
            },
            Patience(kUserPatience));
        if (progress != PrintProgress::Busy)
            return progress == PrintProgress::Done;
    }
}

bool OfficeWordApplication::ActiveDocumentPrintPreview() {
    return Does([](WriterSession& session) { return session.StartPreview(); });
}

bool OfficeWordApplication::SetPageFit(int fit) {
    return fit == wdPageFitFullPage && Does([](WriterSession& session) { return session.ShowFullPage(); });
}

bool OfficeWordApplication::PrintPreview() {
    return Does(
        [](WriterSession& session) {
            if (session.PreviewingProgress() == PreviewProgress::Closed)
                return false;
            std::this_thread::sleep_for(kPreviewPause);
            return true;
        },
        Patience(kUserPatience));
}

bool OfficeWordApplication::SetCheckGrammarWithSpelling(bool check) {
    m_checksGrammar = check;
    return m_instance && m_instance->IsAlive();
}

// Writer's own check shows nothing for a document that is hidden, so the dialog is ours.
bool OfficeWordApplication::ActiveDocumentCheckGrammar() {
    if (!m_instance || !m_instance->IsAlive())
        return false;
    OfficeProofreading proofreading(*m_instance, m_words, m_checksGrammar, Patience());
    ProofreadingDialog dialog(m_window);
    Proofread(proofreading, proofreading, dialog);
    return m_instance->IsAlive();
}

bool OfficeWordApplication::ActiveDocumentSelect() {
    return SelectionWholeStory();
}

int OfficeWordApplication::ActiveDocumentSaveAs(const QString& path) {
    constexpr int kNotWritten = 1;
    if (!m_instance)
        return kWordServerGone;
    const auto file =
        m_instance->Call([](WriterSession& session) { return session.DocumentFile(); }, Patience());
    if (!file)
        return kWordServerGone;
    return *file ? WordSaveErrorFor(WriteFileWhole(path, **file), path) : kNotWritten;
}

bool OfficeWordApplication::ActiveDocumentClose(int saveChanges) {
    return saveChanges == wdDoNotSaveChanges &&
           Does([](WriterSession& session) { return session.CloseDocument(); });
}

// Its documents are closed by now, so there is nothing to be saved, whatever is asked for.
bool OfficeWordApplication::Quit(std::optional<int>) {
    const std::unique_ptr<OfficeInstance> instance = std::move(m_instance);
    return instance && instance->Quit();
}

} // namespace platform
