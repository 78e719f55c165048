#include "app/library_paths.h"

#include <QtTest>

using namespace quillbrook;

class LibraryPathsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheLibraryLiesInTheFolderDataBesideTheProgram_data() {
        QTest::addColumn<QString>("executableFolder");
        QTest::addColumn<QString>("appFolder");
        QTest::addColumn<QString>("libraryPath");
        QTest::newRow("a missing separator is added")
            << u"/opt/quillbrook"_qs << u"/opt/quillbrook/"_qs << u"/opt/quillbrook/Data/Forms.dat"_qs;
        QTest::newRow("one that is there gets no second one")
            << u"/opt/quillbrook/"_qs << u"/opt/quillbrook/"_qs << u"/opt/quillbrook/Data/Forms.dat"_qs;
        QTest::newRow("the root") << u"/"_qs << u"/"_qs << u"/Data/Forms.dat"_qs;
    }
    void TheLibraryLiesInTheFolderDataBesideTheProgram() {
        QFETCH(QString, executableFolder);
        const LibraryPaths paths(executableFolder);
        QTEST(paths.AppFolder, "appFolder");
        QCOMPARE(paths.DataFolder, paths.AppFolder + u"Data/"_qs);
        QTEST(paths.LibraryPath, "libraryPath");
    }
};

QTEST_GUILESS_MAIN(LibraryPathsTest)
#include "library_paths_test.moc"
