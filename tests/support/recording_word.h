#pragma once

#include "platform/services.h"
#include "platform/word/word_application.h"

#include <QByteArray>
#include <QList>
#include <QSet>
#include <QStringList>
#include <functional>

// A word processor that writes down what it is told, and fails where the test wants it. Not there until
// `installed` is set.
class RecordingWord final : public platform::WordProcessorService {
public:
    std::unique_ptr<platform::WordApplication> CreateWordApplication(QWidget* window) override;

    // What the calls are written down as: "CreateObject", "Visible = True", "Documents.Add",
    // "Documents.Open PATH", "Selection.HomeKey 6", "PageSetup.PageWidth = 612", "InchesToPoints 8.5",
    // "ActiveDocument.SaveAs PATH", "PrintPreview?", "Quit 0", and "Release" when the reference is dropped.
    QStringList calls;

    bool installed = false;
    // Set: it starts the instances, and nothing is written down.
    platform::WordProcessorService* real = nullptr;
    // Calls that fail, as they are written down but without their argument ("Visible", "Selection.Paste").
    QSet<QString> failing;
    QList<int> saveErrors; // of ActiveDocument.SaveAs, one after the other; then it succeeds
    int previewReads = 0;  // how often PrintPreview is still true

    // The active document: Paste takes it from the clipboard, Copy and Cut put it there.
    QByteArray content;
    // Runs at each call, with what is written down; may change all of the above.
    std::function<void(const QString& call)> onCall;

    // Writes the call down. False when it is to fail.
    bool Record(const QString& member, const QString& argument = {});
};
