#include "output/save_errors.h"

#include "output/file_names.h"

#include <QtTest>

using namespace quillbrook;
using platform::MessageIcon;

class SaveErrorsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EachNumberHasItsMessage_data();
    void EachNumberHasItsMessage();
    void ADotFourFromTheEndChangesTheExtension_data();
    void ADotFourFromTheEndChangesTheExtension();
    void OnlyDocEndsAreWordDocuments();
};

void SaveErrorsTest::EachNumberHasItsMessage_data() {
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("icon");
    QTest::addColumn<QString>("title");
    QTest::addColumn<bool>("asksAgain");
    const QString drive = u"Disk drive Error!   \nPlease try another disk drive.   "_qs;
    const int critical = int(MessageIcon::Critical);
    QTest::newRow("57") << 57 << drive << critical << QString() << true;
    QTest::newRow("68") << 68 << drive << critical << QString() << true;
    QTest::newRow("75") << 75 << drive << critical << QString() << true;
    QTest::newRow("61") << 61
                        << u"Disk full!   \nPlease delete some files first to gain some disk space!   "_qs
                        << critical << QString() << true;
    QTest::newRow("70") << 70 << u"Permission denied!   \nRetry?   "_qs << int(MessageIcon::Question)
                        << u"4"_qs << true;
    QTest::newRow("71") << 71 << u"Disk not ready!   \nPlease try a different disk drive.   "_qs << critical
                        << QString() << true;
    const QString other = u"Error in saving file!   \n"_qs;
    QTest::newRow("any other") << 5 << other << critical << QString() << false;
    QTest::newRow("any other, large") << 40000 << other << critical << QString() << false;
}

void SaveErrorsTest::EachNumberHasItsMessage() {
    QFETCH(int, number);
    const SaveErrorFacts& facts = FactsOfSaveError(number);
    QTEST(QString::fromLatin1(facts.text), "text");
    QTEST(int(facts.icon), "icon");
    QTEST(QString::fromLatin1(facts.title), "title");
    QTEST(facts.asksAgain, "asksAgain");
}

void SaveErrorsTest::ADotFourFromTheEndChangesTheExtension_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("expected");
    QTest::newRow("text") << u"/a/report.txt"_qs << u"/a/report.rtf"_qs;
    QTest::newRow("already so") << u"/a/report.rtf"_qs << u"/a/report.rtf"_qs;
    QTest::newRow("capitals") << u"/a/REPORT.DOC"_qs << u"/a/REPORT.rtf"_qs;
    QTest::newRow("no extension") << u"/a/report"_qs << u"/a/report"_qs;
    QTest::newRow("four letters") << u"/a/report.docx"_qs << u"/a/report.docx"_qs;
    QTest::newRow("two letters") << u"/a/report.gz"_qs << u"/a/report.gz"_qs;
    QTest::newRow("two dots") << u"/a/report.v1.txt"_qs << u"/a/report.v1.rtf"_qs;
    QTest::newRow("only an extension") << u".txt"_qs << u".rtf"_qs;
    QTest::newRow("one character") << u"a"_qs << u"a"_qs;
    QTest::newRow("three characters") << u".ab"_qs << u".ab"_qs;
    QTest::newRow("a dot of the folder") << u"/a.b/c"_qs << u"/a.b/c"_qs;
    QTest::newRow("a dot of the folder, two letters") << u"/a./cd"_qs << u"/a./cd"_qs;
    QTest::newRow("empty") << u""_qs << u""_qs;
}

void SaveErrorsTest::ADotFourFromTheEndChangesTheExtension() {
    QFETCH(QString, path);
    QTEST(WithExtension(path, u".rtf"_qs), "expected");
}

void SaveErrorsTest::OnlyDocEndsAreWordDocuments() {
    QVERIFY(IsWordDocument(u"/a/report.doc"_qs));
    QVERIFY(!IsWordDocument(u"/a/report.docx"_qs));
    QVERIFY(!IsWordDocument(u"/a/report.rtf"_qs));
    QVERIFY(!IsWordDocument(u"/a/doc"_qs));
}

QTEST_GUILESS_MAIN(SaveErrorsTest)
#include "save_errors_test.moc"
