#pragma once

#include "editor/edit_tool_bar.h"
#include "library/my_forms_page.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/frame.h"
#include "platform/controls/list_box.h"
#include "platform/controls/my_button.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

namespace quillbrook {

inline TestForm Own(const QString& title, const QString& subCategory) {
    return {title, u"My Forms"_qs, subCategory, u"Text of "_qs + title};
}

inline std::vector<TestForm> WithOwnForms() {
    std::vector<TestForm> forms = SomeForms();
    forms.push_back(Own(u"Board Paper"_qs, u"Corporate"_qs));
    forms.push_back(Own(u"Annual Report"_qs, u"Corporate"_qs));
    forms.push_back(Own(u"Zoning Clearance"_qs, u"Land"_qs));
    return forms;
}

// The My Forms page in each of its states, for the test classes that derive from this one.
class MyFormsDesk {
protected:
    std::unique_ptr<TestWindow> m_window;

    frmMain& Main() { return **m_window; }
    MyFormsPage& Page() { return *Main().myFormsPage; }
    platform::RichTextBox& Pane() { return *Main().txtMyContent(); }
    ScriptedMessageBox& Box() { return m_window->services.messageBox; }

    void Open(const std::vector<TestForm>& forms) {
        m_window = std::make_unique<TestWindow>(forms);
        QVERIFY(m_window->loaded);
        QVERIFY(m_window->Show());
        Main().SetTab(Tab::MyForms);
    }

    // Brings the page into a state by what the user does.
    void GoTo(MyFormsMode mode) {
        Open(mode == MyFormsMode::Empty ? SomeForms() : WithOwnForms());
        if (mode == MyFormsMode::Editing)
            Page().btnEdit->click();
        if (mode == MyFormsMode::Composing)
            Page().btnNew->click();
        Verify(mode);
    }

    void Fill(const QString& title, const QString& subCategory, const QString& text) {
        Page().txtMyTitle->setText(title);
        Page().cboMySubCategory->setText(subCategory);
        Pane().setText(text);
    }

    // The flags, and what is seen.
    void Verify(MyFormsMode mode) {
        const bool displayed = mode == MyFormsMode::Browsing || mode == MyFormsMode::Editing;
        QCOMPARE(Main().State().MyFormDisplayed, displayed);
        QCOMPARE(Main().State().NewFormMode, mode == MyFormsMode::Composing);
        struct Seen {
            bool frame, add, edit, update, cancel, remove;
        };
        const Seen seen = mode == MyFormsMode::Browsing    ? Seen{true, false, true, true, false, true}
                          : mode == MyFormsMode::Editing   ? Seen{false, false, false, true, false, true}
                          : mode == MyFormsMode::Composing ? Seen{false, true, false, false, true, false}
                                                           : Seen{false, true, false, false, false, false};
        QCOMPARE(Page().fmeMyTitle->isVisible(), seen.frame);
        QVERIFY(Page().btnNew->isVisible());
        QCOMPARE(Page().btnAddNew->isVisible(), seen.add);
        QCOMPARE(Page().btnEdit->isVisible(), seen.edit);
        QCOMPARE(Page().btnUpdate->isVisible(), seen.update);
        QCOMPARE(Page().btnCancelNew->isVisible(), seen.cancel);
        QCOMPARE(Page().btnDelete->isVisible(), seen.remove);
    }

    void VerifyOneMessage(const QString& text,
                          platform::MessageButtons buttons = platform::MessageButtons::Ok) {
        QCOMPARE(Box().shown.size(), size_t(1));
        QCOMPARE(Box().shown[0].text, text);
        QCOMPARE(Box().shown[0].title, u"My Forms"_qs);
        QCOMPARE(Box().shown[0].buttons, buttons);
        QCOMPARE(Box().shown[0].icon, buttons == platform::MessageButtons::Ok
                                          ? platform::MessageIcon::Information
                                          : platform::MessageIcon::Question);
    }

    static bool HasFocus(const QWidget* control) {
        const QWidget* focused = QApplication::focusWidget();
        return focused && (focused == control || control->isAncestorOf(focused));
    }

    void NothingToUndo() {
        QVERIFY(!Main().editToolBar->btnMyUndo->isEnabled());
        QVERIFY(!Main().editToolBar->btnMyRedo->isEnabled());
        for (const QString& name : {u"mnuUndo"_qs, u"mnuRedo"_qs, u"mnuPopUndo"_qs, u"mnuPopRedo"_qs})
            QVERIFY2(!Main().Menu(name)->isEnabled(), qPrintable(name));
    }
};

} // namespace quillbrook

Q_DECLARE_METATYPE(quillbrook::MyFormsMode)
