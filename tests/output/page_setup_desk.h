#pragma once

#include "output/page_setup.h"
#include "tests/support/test_window.h"

#include <QtTest>
#include <QtWidgets>

Q_DECLARE_METATYPE(quillbrook::Paper)

namespace quillbrook {

// The window with the controls of its page setup dialog, by their names.
struct PageSetupDesk {
    TestWindow window;

    QWidget* Dialog() { return window->Windows().Load(u"frmPageSetup"_qs); }
    template <class Control = QLineEdit>
    Control* Find(const char* name) {
        return Dialog()->findChild<Control*>(QLatin1String(name));
    }
    QString Text(const char* box) { return Find(box)->text(); }
    QString Size() { return Text("txtWidth") + u'|' + Text("txtHeight"); }
    void Click(const char* control) { Find<QAbstractButton>(control)->click(); }
    void Type(const char* box, const QString& text) { Find(box)->setText(text); }
    void Choose(const char* entry) { window->Menu(QLatin1String(entry))->trigger(); }
    QString Caption() { return window->Menu(u"mnuCustomSize"_qs)->text(); }

    QStringList CheckedEntries() {
        QStringList names;
        for (const PaperSize& size : kPaperSizes)
            if (window->Menu(QLatin1String(size.menu))->isChecked())
                names += QLatin1String(size.menu);
        return names;
    }
    QStringList SelectedOptions() {
        QStringList names;
        for (const PaperSize& size : kPaperSizes)
            if (Find<QRadioButton>(size.option)->isChecked())
                names += QLatin1String(size.option);
        return names;
    }
    bool Shows(Paper paper) {
        const PaperSize& size = kPaperSizes[std::size_t(paper)];
        return CheckedEntries() == QStringList{QLatin1String(size.menu)} &&
               SelectedOptions() == QStringList{QLatin1String(size.option)};
    }
    // Chooses an entry that shows the dialog, and does this in it; it is to hide the dialog.
    template <class Action>
    bool InDialog(const char* entry, Action action) {
        bool modal = false;
        QTimer::singleShot(0, Dialog(), [&] {
            if (window->isVisible() &&
                !QTest::qWaitFor([&] { return QApplication::activeWindow() == Dialog(); }))
                qWarning("the dialog did not become active");
            modal =
                Dialog()->isVisible() && Dialog()->isModal() && QApplication::activeModalWidget() == Dialog();
            action();
            Dialog()->hide();
        });
        Choose(entry);
        return modal;
    }
    void ConfirmCustom(const QString& width, const QString& height) {
        InDialog("mnuCustomSize", [&] {
            Type("txtWidth", width);
            Type("txtHeight", height);
            Click("btnOk");
        });
    }
    bool SizeIsEnabled(bool enabled) {
        for (const char* name : {"txtWidth", "txtHeight", "vsWUp", "vsWDown", "vsHUp", "vsHDown"})
            if (Find<QWidget>(name)->isEnabled() != enabled)
                return false;
        return true;
    }
    bool MarginsAreEnabled() {
        for (const char* name : {"txtLeft", "txtRight", "txtTop", "txtBottom", "vsLUp", "vsLDown", "vsRUp",
                                 "vsRDown", "vsTUp", "vsTDown", "vsBUp", "vsBDown"})
            if (!Find<QWidget>(name)->isEnabled())
                return false;
        return true;
    }
};

} // namespace quillbrook
