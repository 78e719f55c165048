// What a screen reader and the keyboard find in the window.
#include "platform/controls/ss_tab.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/test_window.h"

#include <QAccessible>
#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

class AccessibilityTest : public QObject {
    Q_OBJECT

    // Names of the visible controls that can be used and have no name of their own.
    static void FindUnnamed(QAccessibleInterface* control, QStringList& unnamed) {
        static const QList<QAccessible::Role> used{
            QAccessible::Button,   QAccessible::ButtonMenu,   QAccessible::CheckBox, QAccessible::RadioButton,
            QAccessible::ComboBox, QAccessible::EditableText, QAccessible::List,     QAccessible::PageTabList,
            QAccessible::Grouping, QAccessible::PageTab,      QAccessible::MenuItem, QAccessible::Link,
        };
        if (!control || control->state().invisible)
            return;
        if (used.contains(control->role()) && control->text(QAccessible::Name).trimmed().isEmpty()) {
            const QObject* object = control->object();
            const bool separator = control->role() == QAccessible::MenuItem;
            const bool innerLineEdit = object && qobject_cast<QComboBox*>(object->parent());
            if (!separator && !innerLineEdit)
                unnamed.append(object ? object->objectName() + u" ("_qs +
                                            QLatin1String(object->metaObject()->className()) + u")"_qs
                                      : u"child %1"_qs.arg(int(control->role())));
        }
        for (int i = 0; i < control->childCount(); ++i)
            FindUnnamed(control->child(i), unnamed);
    }

private Q_SLOTS:
    void EveryControlOfEveryPageHasAName() {
        TestWindow window;
        QVERIFY(window.Show());
        for (int tab = 0; tab < 6; ++tab) {
            window->SetTab(Tab(tab));
            QStringList unnamed;
            FindUnnamed(QAccessible::queryAccessibleInterface(&*window), unnamed);
            QVERIFY2(unnamed.isEmpty(), qPrintable(u"page %1: "_qs.arg(tab) + unnamed.join(u", "_qs)));
        }
    }

    void TabReachesEveryControlOfThePageAndComesBack_data() {
        QTest::addColumn<int>("tab");
        for (int tab = 0; tab < 6; ++tab)
            QTest::newRow(qPrintable(QString::number(tab))) << tab;
    }
    void TabReachesEveryControlOfThePageAndComesBack() {
        QFETCH(int, tab);
        TestWindow window;
        QVERIFY(window.Show());
        window->SetTab(Tab(tab));
        window->SSTab->Strip()->setFocus();
        QSet<QWidget*> reached;
        for (int presses = 0; presses < 120; ++presses) {
            QWidget* focused = QApplication::focusWidget();
            QVERIFY(focused);
            if (reached.contains(focused) && focused == window->SSTab->Strip())
                break;
            reached.insert(focused);
            // where a form is edited its pane takes the Tab key as text, and Ctrl+Tab leaves it
            const bool writes = focused == window->StrictPane();
            QTest::keyClick(focused, Qt::Key_Tab, writes ? Qt::ControlModifier : Qt::NoModifier);
        }
        QCOMPARE(QApplication::focusWidget(), window->SSTab->Strip());
        QStringList missed;
        for (QWidget* control : window->findChildren<QWidget*>()) {
            const bool takesTab = (control->focusPolicy() & Qt::TabFocus) && control->isVisible() &&
                                  control->isEnabled() && !control->focusProxy() &&
                                  control->objectName() != u"qt_spinbox_lineedit"_qs;
            const bool partOfAnother = qobject_cast<QComboBox*>(control->parentWidget()) ||
                                       (control->parentWidget() && control->parentWidget()->focusProxy());
            if (takesTab && !partOfAnother && !reached.contains(control) &&
                !std::any_of(reached.begin(), reached.end(),
                             [&](QWidget* other) { return control->isAncestorOf(other); }))
                missed.append(control->objectName());
        }
        QVERIFY2(missed.isEmpty(), qPrintable(missed.join(u", "_qs)));
    }
};

QTEST_MAIN(AccessibilityTest)
#include "accessibility_test.moc"
