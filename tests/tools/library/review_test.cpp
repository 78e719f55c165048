#include "library/review.h"

#include <QtTest>

using namespace quillbrook;

namespace {

// A form of which nothing is wrong: a hundred words that no other form has in this order, and a blank.
LibraryForm GoodForm(const QString& title, const QStringList& words) {
    QString text;
    for (int i = 0; i < 120; ++i)
        text += words[(i * i + i / words.size()) % words.size()] + u' ';
    SourceProblems problems;
    LibraryForm form;
    form.file = title + QStringLiteral(".html");
    form.source =
        ReadFormSource(QStringLiteral("<title>%1</title>\n<meta name=\"category\" content=\"Lease\">\n"
                                      "<meta name=\"sub-category\" content=\"Homes\">\n"
                                      "<p>%2</p>\n<p>______</p>\n")
                           .arg(title, text),
                       problems);
    return form;
}

const QStringList kSome = {u"rent"_qs,   u"house"_qs,   u"month"_qs, u"lessor"_qs,
                           u"lessee"_qs, u"deposit"_qs, u"term"_qs};
const QStringList kOther = {u"ship"_qs,   u"cargo"_qs,   u"port"_qs, u"master"_qs,
                            u"voyage"_qs, u"freight"_qs, u"hull"_qs};

QStringList Told(const LibraryContent& content) {
    static const SpellingDictionary dictionary(LegalWords());
    QStringList told;
    for (const LibraryProblem& problem : ReviewLibrary(content, dictionary))
        told.append(problem.Message());
    return told;
}

} // namespace

class ReviewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AGoodLibraryHasNoFindings() {
        QCOMPARE(Told({{GoodForm(u"A"_qs, kSome), GoodForm(u"B"_qs, kOther)}, {}}), QStringList());
    }

    void EachFindingIsOneLineWithFileAndReason() {
        LibraryForm form = GoodForm(u"A"_qs, kSome);
        form.source.blocks.push_back({9, false, Paragraph{ParagraphClass::Plain, {Run{u"(Jurat) "_qs}}}});
        form.source.blocks.push_back({10, false, Paragraph{ParagraphClass::Text, {Run{u"[a ___"_qs}}}});
        form.source.blocks.push_back({11, false, Paragraph{ParagraphClass::Text, {Run{u"partys"_qs}}}});
        QCOMPARE(Told({{form}, {}}),
                 QStringList({u"A.html:9: error: (Jurat) is not spelt (JURAT)"_qs,
                              u"A.html:10: error: blank of fewer than five underscores"_qs,
                              u"A.html:10: error: [ without its counterpart"_qs,
                              u"A.html:11: error: unknown word \"partys\""_qs}));
    }

    void TitlesAreSpeltToo() {
        QCOMPARE(Told({{GoodForm(u"Leese of Homes"_qs, kSome)}, {}}),
                 QStringList(u"Leese of Homes.html:1: error: unknown word \"Leese\""_qs));
    }

    void ClausesAreSpeltAndTheirBracketsPair() {
        const LibraryContent content = {{},
                                        {{QLatin1String("Jurat"), 1, u"one\n(two\nthreee"_qs, u"1.txt"_qs}}};
        QCOMPARE(Told(content), QStringList({u"1.txt:2: error: ( without its counterpart"_qs,
                                             u"1.txt:3: error: unknown word \"threee\""_qs}));
    }

    void TheSameTextUnderTwoTitlesIsFound() {
        const QStringList told = Told({{GoodForm(u"A"_qs, kSome), GoodForm(u"B"_qs, kSome)}, {}});
        QCOMPARE(told, QStringList(u"B.html:1: error: 100 percent the same as A.html"_qs));
    }

    void WithoutADictionaryTheReviewSaysSo() {
        const SpellingDictionary none({}, QStringList(u"/nowhere"_qs));
        QVERIFY(!none.IsLoaded());
        const std::vector<LibraryProblem> problems = ReviewLibrary({}, none);
        QCOMPARE(problems.size(), 1u);
        QVERIFY(problems[0].text.contains(u"hunspell-en-us"_qs));
    }
};

QTEST_GUILESS_MAIN(ReviewTest)
#include "review_test.moc"
