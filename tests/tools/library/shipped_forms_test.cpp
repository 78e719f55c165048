#include "library/categories.h"
#include "library/checker.h"

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

    void ThereAreEnoughOfThem() {
        QVERIFY2(m_library.content.forms.size() >= 48,
                 qPrintable(QStringLiteral("%1 forms").arg(m_library.content.forms.size())));
        QCOMPARE(m_library.content.clauses.size(), 22u);
    }

    void EachCategoryHasThreeOverTwoSubCategories_data() {
        QTest::addColumn<QString>("category");
        for (const QLatin1String category : kCategories)
            QTest::newRow(category.data()) << QString(category);
    }
    void EachCategoryHasThreeOverTwoSubCategories() {
        QFETCH(QString, category);
        QSet<QString> subCategories;
        int count = 0;
        for (const LibraryForm& form : m_library.content.forms) {
            if (form.source.category != category)
                continue;
            ++count;
            subCategories.insert(form.source.subCategory);
        }
        QVERIFY2(count >= 3, qPrintable(QStringLiteral("%1 forms").arg(count)));
        QVERIFY2(subCategories.size() >= 2,
                 qPrintable(QStringLiteral("%1 sub-categories").arg(subCategories.size())));
    }

private:
    CheckedLibrary m_library;
};

QTEST_GUILESS_MAIN(ShippedFormsTest)
#include "shipped_forms_test.moc"
