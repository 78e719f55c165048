#include "app/window_list.h"

#include <QtTest>

using namespace quillbrook;

class WindowListTest : public QObject {
    Q_OBJECT

    QStringList m_told; // "+name" when made, "-name" when taken away

    class Window final : public QWidget {
    public:
        Window(QString name, QStringList& told)
            : m_name(std::move(name))
            , m_told(told) {
            m_told.append(u'+' + m_name);
        }
        ~Window() override { m_told.append(u'-' + m_name); }

    private:
        QString m_name;
        QStringList& m_told;
    };

    void Offer(WindowList& windows, const QString& name) {
        windows.Offer(name, [this, name] { return std::make_unique<Window>(name, m_told); });
    }

private Q_SLOTS:
    void init() { m_told.clear(); }

    void AWindowIsMadeWhenFirstAskedForAndStays() {
        WindowList windows;
        Offer(windows, u"frmJurat"_qs);
        QVERIFY(!windows.IsLoaded(u"frmJurat"_qs));
        QWidget* window = windows.Load(u"frmJurat"_qs);
        QVERIFY(window);
        QCOMPARE(windows.Load(u"frmJurat"_qs), window);
        QCOMPARE(m_told, QStringList(u"+frmJurat"_qs));
        QVERIFY(!windows.Load(u"frmOther"_qs));
    }

    void AnUnloadedWindowIsMadeAfreshNextTime() {
        WindowList windows;
        Offer(windows, u"frmSave"_qs);
        windows.Load(u"frmSave"_qs);
        windows.Unload(u"frmSave"_qs);
        windows.Load(u"frmSave"_qs);
        QCOMPARE(m_told, QStringList({u"+frmSave"_qs, u"-frmSave"_qs, u"+frmSave"_qs}));
    }

    void UnloadingAWindowThatIsNotLoadedMakesItFirst() {
        WindowList windows;
        Offer(windows, u"frmAbout"_qs);
        windows.Unload(u"frmAbout"_qs);
        QCOMPARE(m_told, QStringList({u"+frmAbout"_qs, u"-frmAbout"_qs}));
    }

    void UnloadingAllLeavesTheExemptedOne() {
        WindowList windows;
        for (const QString& name : {u"a"_qs, u"b"_qs, u"c"_qs}) {
            Offer(windows, name);
            windows.Load(name);
        }
        windows.UnloadAll(u"b"_qs);
        QCOMPARE(windows.Loaded(), QStringList(u"b"_qs));
        windows.UnloadAll(QString());
        QCOMPARE(windows.Loaded(), QStringList());
    }

    void TheWindowsAreUnloadedInTheirOrderAtExit() {
        const QStringList order{u"frmPageSetup"_qs, u"frmAbout"_qs, u"frmContact"_qs,      u"frmJurat"_qs,
                                u"frmSave"_qs,      u"frmTheme"_qs, u"frmVerification"_qs, u"frmSplash"_qs};
        WindowList windows;
        for (const QString& name : order)
            Offer(windows, name);
        Offer(windows, u"frmLater"_qs);
        windows.Load(u"frmLater"_qs);
        windows.Load(u"frmSplash"_qs);
        windows.Load(u"frmPageSetup"_qs);
        m_told.clear();
        UnloadAtExit(windows);
        QStringList gone;
        for (const QString& told : m_told)
            if (told.startsWith(u'-'))
                gone.append(told.mid(1));
        QCOMPARE(gone, order + QStringList(u"frmLater"_qs));
        QCOMPARE(m_told.filter(u"+frmAbout"_qs).size(), 1);
        QCOMPARE(m_told.filter(u"+frmPageSetup"_qs).size(), 0);
    }
};

QTEST_MAIN(WindowListTest)
#include "window_list_test.moc"
