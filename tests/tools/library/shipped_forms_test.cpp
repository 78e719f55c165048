#include "library/categories.h"
#include "library/checker.h"
#include "library/library_list.h"
#include "library/review.h"

#include <QMap>
#include <QSet>
#include <QtTest>

using namespace quillbrook;

// The forms that the program ships with.
class ShippedFormsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { m_library = CheckLibrary(QStringLiteral(QUILLBROOK_SOURCE_DIR "/forms")); }

    void NothingIsWrongWithThem() {
        QStringList messages;
        for (const LibraryProblem& problem : m_library.problems)
            messages.append(problem.Message());
        QVERIFY2(messages.isEmpty(), qPrintable(messages.join(u'\n')));
    }

    void ReadOverNothingIsFound() {
        const SpellingDictionary dictionary(LegalWords());
        QVERIFY(dictionary.IsLoaded());
        QStringList messages;
        for (const LibraryProblem& problem : ReviewLibrary(m_library.content, dictionary))
            messages.append(problem.Message());
        QVERIFY2(messages.isEmpty(), qPrintable(messages.join(u'\n')));
    }

    void TheirListIsUpToDate() {
        QFile file(QStringLiteral(QUILLBROOK_SOURCE_DIR "/docs/library.md"));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY2(QString::fromUtf8(file.readAll()) == MarkdownList(m_library.content),
                 "make it anew: quillbrook-library list --markdown forms > docs/library.md");
    }

    void ThereAreEnoughOfThem() {
        QVERIFY2(m_library.content.forms.size() >= 240,
                 qPrintable(QStringLiteral("%1 forms").arg(m_library.content.forms.size())));
        QCOMPARE(m_library.content.clauses.size(), 22u);
    }

    void EachCategoryHasTenOverThreeSubCategoriesAndTheLargerOnesTwenty_data() {
        QTest::addColumn<QString>("category");
        QTest::addColumn<int>("fewest");
        const QStringList larger = {u"Affidavits"_qs, u"Corporations"_qs,      u"Motions"_qs,
                                    u"Pleadings"_qs,  u"Special Contracts"_qs, u"Sales"_qs};
        for (const QLatin1String category : kCategories)
            QTest::newRow(category.data()) << QString(category) << (larger.contains(category) ? 20 : 10);
    }
    void EachCategoryHasTenOverThreeSubCategoriesAndTheLargerOnesTwenty() {
        QFETCH(QString, category);
        QFETCH(int, fewest);
        QSet<QString> subCategories;
        int count = 0;
        for (const LibraryForm& form : m_library.content.forms) {
            if (form.source.category != category)
                continue;
            ++count;
            subCategories.insert(form.source.subCategory);
        }
        QVERIFY2(count >= fewest, qPrintable(QStringLiteral("%1 forms").arg(count)));
        QVERIFY2(subCategories.size() >= 3,
                 qPrintable(QStringLiteral("%1 sub-categories").arg(subCategories.size())));
    }

private:
    CheckedLibrary m_library;
};

QTEST_GUILESS_MAIN(ShippedFormsTest)
#include "shipped_forms_test.moc"
