#pragma once

#include "output/word_commands.h"
#include "platform/rich_text/rich_text_box.h"
#include "platform/word/word_application.h"
#include "tests/support/real_writer.h"
#include "tests/support/test_window.h"

#include <QtWidgets>
#include <utility>

// The commands of the word processor over a real LibreOffice, to which something may happen on the way.
namespace quillbrook {

inline const QString kHome = u"Quillbrook by Atty. Merrow"_qs;

// The window over the real word processor.
struct WriterDesk {
    explicit WriterDesk(RealWriter& writer) {
        window.services.wordProcessor.real = &writer.Service();
        window->SetTab(Tab::EditForm);
        window->txtContent()->setTextRTF(QByteArray("{\\rtf1\\ansi{\\colortbl;\\red255\\green0\\blue0;}\\cf1 "
                                                    "Deed of Sale\\par {\\b Know all men}\\par}"));
    }

    std::vector<ScriptedMessageBox::Shown>& Messages() { return window.services.messageBox.shown; }
    WordCommands& Commands() { return *window->wordCommands; }
    bool IsAtRest() {
        return window->windowTitle() == kHome && !QGuiApplication::overrideCursor() &&
               !window->Variables().WordApp;
    }

    TestWindow window;
};

// Tries `act` again and again while a command waits for the word processor, until it does something.
class Meanwhile {
public:
    explicit Meanwhile(std::function<bool()> act) {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this, act] {
            m_timer.stop();
            m_acted = act();
            if (!m_acted)
                m_timer.start();
        });
        m_timer.start(100);
    }
    bool HasActed() const { return m_acted; }

private:
    QTimer m_timer;
    bool m_acted = false;
};

// Does something to the word processor right before one of the calls of a command.
class Accident final : public platform::WordProcessorService {
public:
    Accident(RealWriter& writer, QString call, std::function<void()> happen)
        : m_writer(writer)
        , m_call(std::move(call))
        , m_happen(std::move(happen)) {}

    std::unique_ptr<platform::WordApplication> CreateWordApplication(QWidget* window) override;
    void Before(const char* call) {
        if (m_call == QLatin1String(call) && m_happen) {
            std::exchange(m_happen, nullptr)(); // events may be handled before it is over
            m_happened = true;
        }
    }
    bool Happened() const { return m_happened; } // and is over

private:
    RealWriter& m_writer;
    QString m_call;
    std::function<void()> m_happen;
    bool m_happened = false;
};

class UnluckyApplication final : public platform::WordApplication {
public:
    UnluckyApplication(std::unique_ptr<platform::WordApplication> word, Accident& accident)
        : m_word(std::move(word))
        , m_accident(accident) {}

    bool SetVisible(bool visible) override { return At("Visible")->SetVisible(visible); }
    bool SetCaption(const QString& caption) override { return At("Caption")->SetCaption(caption); }
    bool DocumentsAdd() override { return At("Add")->DocumentsAdd(); }
    bool DocumentsOpen(const QString& path) override { return At("Open")->DocumentsOpen(path); }
    bool SelectionPaste() override { return At("Paste")->SelectionPaste(); }
    bool SelectionWholeStory() override { return At("WholeStory")->SelectionWholeStory(); }
    bool SelectionFontColor(int color) override { return At("Color")->SelectionFontColor(color); }
    bool SelectionHomeKey(int unit) override { return At("HomeKey")->SelectionHomeKey(unit); }
    bool SelectionCopy() override { return At("Copy")->SelectionCopy(); }
    bool SelectionCut() override { return At("Cut")->SelectionCut(); }
    std::optional<float> InchesToPoints(float inches) override {
        return At("InchesToPoints")->InchesToPoints(inches);
    }
    bool SetPageSetup(platform::PageLength length, float points) override {
        return At("PageSetup")->SetPageSetup(length, points);
    }
    bool WindowsApplicationActivate() override { return At("Activate")->WindowsApplicationActivate(); }
    bool ShowDialog(int dialog) override { return At("Dialog")->ShowDialog(dialog); }
    bool ActiveDocumentPrintPreview() override { return At("StartPreview")->ActiveDocumentPrintPreview(); }
    bool SetPageFit(int fit) override { return At("PageFit")->SetPageFit(fit); }
    bool PrintPreview() override { return At("PrintPreview")->PrintPreview(); }
    bool SetCheckGrammarWithSpelling(bool check) override {
        return At("Options")->SetCheckGrammarWithSpelling(check);
    }
    bool ActiveDocumentCheckGrammar() override { return At("CheckGrammar")->ActiveDocumentCheckGrammar(); }
    bool ActiveDocumentSelect() override { return At("Select")->ActiveDocumentSelect(); }
    int ActiveDocumentSaveAs(const QString& path) override {
        return At("SaveAs")->ActiveDocumentSaveAs(path);
    }
    bool ActiveDocumentClose(int saveChanges) override {
        return At("Close")->ActiveDocumentClose(saveChanges);
    }
    bool Quit(std::optional<int> saveChanges) override { return At("Quit")->Quit(saveChanges); }

private:
    platform::WordApplication* At(const char* call) {
        m_accident.Before(call);
        return m_word.get();
    }

    std::unique_ptr<platform::WordApplication> m_word;
    Accident& m_accident;
};

inline std::unique_ptr<platform::WordApplication> Accident::CreateWordApplication(QWidget* window) {
    auto word = m_writer.Service().CreateWordApplication(window);
    return word ? std::make_unique<UnluckyApplication>(std::move(word), *this) : nullptr;
}

} // namespace quillbrook
