// Typing and deleting beside and over the results of fields.
#include "platform/rich_text/rich_text_box.h"

#include <QTest>
#include <QTextBlock>

#include "platform/rich_text/document_model.h"

using platform::RichTextBox;

class RichTextBoxFieldTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void WhatIsTypedBesideAFieldIsNoneOfIt_data() {
        QTest::addColumn<QString>("source"); // with the field at %1
        QTest::addColumn<int>("start");
        QTest::addColumn<int>("length");
        QTest::addColumn<QString>("fields");
        const QString line = QStringLiteral("{\\rtf1 ab%1 cd\\par}");
        const QString end = QStringLiteral("{\\rtf1 ab%1}");
        QTest::newRow("behind it") << line << 4 << 0 << QStringLiteral("17");
        QTest::newRow("behind it at the end") << end << 4 << 0 << QStringLiteral("17");
        QTest::newRow("before it") << QStringLiteral("{\\rtf1 %1\\par}") << 0 << 0 << QStringLiteral("17");
        QTest::newRow("over it") << line << 2 << 2 << QString();
        QTest::newRow("over its end and more") << line << 3 << 2 << QStringLiteral("1");
        QTest::newRow("over all there is") << end << 0 << 4 << QString();
        QTest::newRow("behind the table it stands in")
            << QStringLiteral("{\\rtf1\\trowd\\cellx2000\\pard\\intbl %1\\cell\\row}") << 4 << 0
            << QStringLiteral("17");
        QTest::newRow("inside it") << line << 3 << 0 << QStringLiteral("1x7");
    }
    void WhatIsTypedBesideAFieldIsNoneOfIt() {
        QFETCH(QString, source);
        QFETCH(int, start);
        QFETCH(int, length);
        QFETCH(QString, fields);
        RichTextBox box;
        box.setTextRTF(source.arg(QStringLiteral("{\\field{\\*\\fldinst PAGE}{\\fldrslt 17}}")));
        box.setSelStart(start);
        box.setSelLength(length);
        QTest::keyClicks(&box, QStringLiteral("x"));
        QTest::keyClick(&box, Qt::Key_Return);
        QTest::keyClicks(&box, QStringLiteral("y"));
        QVERIFY(box.Text().contains(QStringLiteral("x\ny")));
        QString inFields;
        for (QTextBlock block = box.document()->begin(); block.isValid(); block = block.next()) {
            for (auto run = block.begin(); !run.atEnd(); ++run) {
                if (run.fragment().charFormat().hasProperty(platform::FieldId))
                    inFields += run.fragment().text();
            }
            if (block.charFormat().hasProperty(platform::FieldId))
                inFields += QStringLiteral("\\par ");
        }
        QCOMPARE(inFields, fields);
    }

    void ABoxEmptiedOfAFieldHoldsNone() {
        RichTextBox box;
        box.setTextRTF(QStringLiteral("{\\rtf1{\\field{\\*\\fldinst PAGE}{\\fldrslt 17}}}"));
        box.selectAll();
        QTest::keyClick(&box, Qt::Key_Delete);
        QVERIFY(!box.TextRTF().contains(QStringLiteral("\\field")));
    }
};

QTEST_MAIN(RichTextBoxFieldTest)
#include "rich_text_box_field_test.moc"
