#include "tests/support/recording_word.h"

#include "platform/word/word_clipboard.h"

namespace {

using platform::PageLength;

QString NameOf(PageLength length) {
    constexpr const char* kNames[] = {"PageWidth",   "PageHeight", "LeftMargin",
                                      "RightMargin", "TopMargin",  "BottomMargin"};
    return QLatin1String(kNames[int(length)]);
}

QString Text(bool value) {
    return value ? QStringLiteral(" = True") : QStringLiteral(" = False");
}

class Instance final : public platform::WordApplication {
public:
    explicit Instance(RecordingWord& word)
        : m_word(word) {}
    ~Instance() override { m_word.Record(QStringLiteral("Release")); }

    bool SetVisible(bool visible) override { return Call("Visible", Text(visible)); }
    bool SetCaption(const QString& caption) override {
        return Call("Caption", QStringLiteral(" = ") + caption);
    }
    bool DocumentsAdd() override {
        if (!Call("Documents.Add"))
            return false;
        m_word.content.clear();
        return true;
    }
    bool DocumentsOpen(const QString& path) override { return Call("Documents.Open", u' ' + path); }
    bool SelectionPaste() override {
        if (!Call("Selection.Paste"))
            return false;
        m_word.content = platform::ClipboardRTF();
        return true;
    }
    bool SelectionWholeStory() override { return Call("Selection.WholeStory"); }
    bool SelectionFontColor(int color) override {
        return Call("Selection.Font.Color", QStringLiteral(" = %1").arg(color));
    }
    bool SelectionHomeKey(int unit) override {
        return Call("Selection.HomeKey", QStringLiteral(" %1").arg(unit));
    }
    bool SelectionCopy() override { return PutOnClipboard("Selection.Copy"); }
    bool SelectionCut() override { return PutOnClipboard("Selection.Cut"); }
    std::optional<float> InchesToPoints(float inches) override {
        if (!Call("InchesToPoints", QStringLiteral(" %1").arg(double(inches))))
            return std::nullopt;
        return inches * 72;
    }
    bool SetPageSetup(PageLength length, float points) override {
        const QByteArray member = "PageSetup." + NameOf(length).toLatin1();
        return Call(member.constData(), QStringLiteral(" = %1").arg(double(points)));
    }
    bool WindowsApplicationActivate() override { return Call("Windows.Application.Activate"); }
    bool ShowDialog(int dialog) override { return Call("Dialogs.Show", QStringLiteral(" %1").arg(dialog)); }
    bool ActiveDocumentPrintPreview() override { return Call("ActiveDocument.PrintPreview"); }
    bool SetPageFit(int fit) override { return Call("Zoom.PageFit", QStringLiteral(" = %1").arg(fit)); }
    bool PrintPreview() override { return Call("PrintPreview?") && m_word.previewReads-- > 0; }
    bool SetCheckGrammarWithSpelling(bool check) override {
        return Call("Options.CheckGrammarWithSpelling", Text(check));
    }
    bool ActiveDocumentCheckGrammar() override { return Call("ActiveDocument.CheckGrammar"); }
    bool ActiveDocumentSelect() override { return Call("ActiveDocument.Select"); }
    int ActiveDocumentSaveAs(const QString& path) override {
        if (!Call("ActiveDocument.SaveAs", u' ' + path))
            return platform::kWordServerGone;
        return m_word.saveErrors.isEmpty() ? platform::kWordNoError : m_word.saveErrors.takeFirst();
    }
    bool ActiveDocumentClose(int saveChanges) override {
        return Call("ActiveDocument.Close", QStringLiteral(" %1").arg(saveChanges));
    }
    bool Quit(std::optional<int> saveChanges) override {
        return Call("Quit", saveChanges ? QStringLiteral(" %1").arg(*saveChanges) : QString());
    }

private:
    bool Call(const char* member, const QString& argument = {}) {
        return m_word.Record(QLatin1String(member), argument);
    }
    bool PutOnClipboard(const char* member) {
        if (!Call(member))
            return false;
        platform::SetClipboardRTF(m_word.content);
        return true;
    }

    RecordingWord& m_word;
};

} // namespace

bool RecordingWord::Record(const QString& member, const QString& argument) {
    calls.append(member + argument);
    if (onCall)
        onCall(calls.constLast());
    return !failing.contains(member);
}

std::unique_ptr<platform::WordApplication> RecordingWord::CreateWordApplication(QWidget* window) {
    if (real)
        return real->CreateWordApplication(window);
    if (!Record(QStringLiteral("CreateObject")) || !installed)
        return nullptr;
    return std::make_unique<Instance>(*this);
}
