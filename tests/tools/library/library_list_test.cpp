#include "library/library_list.h"

#include <QtTest>

using namespace quillbrook;

namespace {

void Add(LibraryContent& content, const QString& category, const QString& subCategory, const QString& title) {
    LibraryForm form;
    form.source.category = category;
    form.source.subCategory = subCategory;
    form.source.title = title;
    content.forms.push_back(form);
}

} // namespace

class LibraryListTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void CountsComeFirstThenAllTitles() {
        LibraryContent content;
        Add(content, u"Affidavits"_qs, u"Loss"_qs, u"Affidavit of Loss"_qs);
        Add(content, u"Affidavits"_qs, u"Loss"_qs, u"Affidavit [Joint]"_qs);
        Add(content, u"Affidavits"_qs, u"Others"_qs, u"Affidavit of Denial"_qs);
        Add(content, u"Sales"_qs, u"Loss"_qs, u"Deed of Sale"_qs);
        const QString list = MarkdownList(content);
        QVERIFY(list.startsWith(u"# The forms of the library\n"_qs));
        QCOMPARE(list.mid(list.indexOf(u"| Category"_qs)),
                 u"| Category | Sub-categories | Forms |\n|---|--:|--:|\n| Affidavits | 2 | 3 |\n| Sales | 1 "
                 u"| 1 |\n"
                 "| **All** | **3** | **4** |\n"
                 "\n## Affidavits (3)\n"
                 "\n### Loss (2)\n\n- Affidavit of Loss\n- Affidavit \\[Joint\\]\n"
                 "\n### Others (1)\n\n- Affidavit of Denial\n"
                 "\n## Sales (1)\n"
                 "\n### Loss (1)\n\n- Deed of Sale\n"_qs);
    }

    void AnEmptyLibraryHasNoForms() {
        QVERIFY(MarkdownList({}).endsWith(u"| **All** | **0** | **0** |\n"_qs));
    }
};

QTEST_GUILESS_MAIN(LibraryListTest)
#include "library_list_test.moc"
