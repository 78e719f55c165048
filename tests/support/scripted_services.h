#pragma once

#include "platform/services.h"

#include <QStringList>
#include <vector>

// Message boxes answered by the test and kept for it to read.
class ScriptedMessageBox final : public platform::MessageBoxService {
public:
    struct Shown {
        QString text;
        QString title;
        platform::MessageButtons buttons;
        platform::MessageIcon icon;
    };

    platform::MessageAnswer Show(QWidget*, const QString& text, platform::MessageButtons buttons,
                                 platform::MessageIcon icon, const QString& title) override {
        shown.push_back({text, title, buttons, icon});
        return buttons == platform::MessageButtons::Ok ? platform::MessageAnswer::Ok : answer;
    }

    platform::MessageAnswer answer = platform::MessageAnswer::No; // to every question
    std::vector<Shown> shown;
};

// A session in which an earlier instance runs or not, with a window or not, as the test wants.
class ScriptedInstance final : public platform::InstanceService {
public:
    bool EarlierInstanceRuns() override { return earlierInstance; }
    QString ApplicationTitle() const override { return title; }
    void SetApplicationTitle(const QString& newTitle) override { title = newTitle; }
    bool BringForward(const QString& wanted) override {
        broughtForward.append(wanted);
        return wanted == titleOfEarlierWindow;
    }
    void SetWindow(QWidget*) override {}
    void EndProcess() override { ended = true; }

    bool earlierInstance = false;
    QString titleOfEarlierWindow; // null: no such window
    QString title = QStringLiteral("Quillbrook PRO");
    QStringList broughtForward;
    bool ended = false;
};

// Dialogs confirmed with the test's choice, or cancelled.
class ScriptedCommonDialog final : public platform::CommonDialogService {
public:
    bool ShowFont(QWidget*, platform::FontChoice& choice) override {
        fontsShown.push_back(choice);
        if (confirmed)
            choice = font;
        return confirmed;
    }
    bool ShowColor(QWidget*, QColor& shown) override {
        colorsShown.push_back(shown);
        if (confirmed)
            shown = color;
        return confirmed;
    }

    bool confirmed = true;
    platform::FontChoice font;
    QColor color;
    std::vector<platform::FontChoice> fontsShown; // as they came up
    std::vector<QColor> colorsShown;
};

struct ScriptedServices {
    ScriptedMessageBox messageBox;
    ScriptedInstance instance;
    ScriptedCommonDialog commonDialog;
    platform::Services services{messageBox, instance, commonDialog};
};
