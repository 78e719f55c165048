#include "output/page_model.h"

#include <QSet>
#include <QtTest>

using namespace quillbrook;

namespace {

const QList<PageBox> kAllBoxes = {PageBox::Width, PageBox::Height, PageBox::Left,
                                  PageBox::Right, PageBox::Top,    PageBox::Bottom};

QString Size(const PageModel& model) {
    return model.Text(PageBox::Width) + u'|' + model.Text(PageBox::Height);
}

// A model with a custom size confirmed.
PageModel WithCustomSize(const QString& width, const QString& height) {
    PageModel model;
    model.ChooseInMenu(Paper::Custom);
    model.SetText(PageBox::Width, width);
    model.SetText(PageBox::Height, height);
    model.Confirm();
    return model;
}

} // namespace

Q_DECLARE_METATYPE(Paper)

class PageModelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TablesFollowTheirEnumerations() {
        for (std::size_t i = 0; i < kPaperSizes.size(); ++i)
            QCOMPARE(std::size_t(kPaperSizes[i].paper), i);
        for (std::size_t i = 0; i < kPageBoxes.size(); ++i)
            QCOMPARE(std::size_t(kPageBoxes[i].box), i);
    }

    void TwelveArrowsStandBesideTheirBoxes() {
        QSet<QString> arrows;
        for (const PageBoxControls& row : kPageBoxes) {
            const QString word = QString(QLatin1String(row.caption)).chopped(1); // of "Width:"
            QCOMPARE(QString(QLatin1String(row.name)), u"txt%1"_qs.arg(word));
            QCOMPARE(QString(QLatin1String(row.up)), u"vs%1Up"_qs.arg(word[0]));
            QCOMPARE(QString(QLatin1String(row.down)), u"vs%1Down"_qs.arg(word[0]));
            arrows << QLatin1String(row.up) << QLatin1String(row.down);
        }
        QCOMPARE(arrows.size(), 12);
    }

    void CaptionsTellTheSizesOfTheirRows() {
        for (const PaperSize& row : kPaperSizes) {
            const QString name = QString(QLatin1String(row.option)).mid(3);
            QCOMPARE(QString(QLatin1String(row.menu)), u"mnu%1Size"_qs.arg(name));
            QCOMPARE(QString(QLatin1String(row.label)), u"Hyper%1"_qs.arg(name));
            if (row.paper == Paper::Custom) {
                QCOMPARE(QString(QLatin1String(row.optionCaption)), u"Custom Size:"_qs);
                QCOMPARE(QString(QLatin1String(row.menuCaption)), u"Custom Size..."_qs);
                continue;
            }
            const QString width = QLatin1String(row.width), height = QLatin1String(row.height);
            QCOMPARE(QString(QLatin1String(row.optionCaption)), u"%1 (%2 x %3)"_qs.arg(name, width, height));
            QCOMPARE(QString(QLatin1String(row.menuCaption)),
                     u"%1 (%2\" x %3\")"_qs.arg(name, width, height));
        }
    }

    void StartsAtLongWithMarginsOfAnInch() {
        const PageModel model;
        QCOMPARE(Size(model), u"8.5|13.0"_qs);
        for (const PageBox margin : {PageBox::Left, PageBox::Right, PageBox::Top, PageBox::Bottom}) {
            QCOMPARE(model.Text(margin), u"1.0"_qs);
            QCOMPARE(model.Inches(margin), 1.0);
        }
        QCOMPARE(model.Inches(PageBox::Height), 13.0);
        QCOMPARE(model.Option(), Paper::Long);
        QCOMPARE(model.Checked(), Paper::Long);
        QCOMPARE(model.CustomCaption(), u"Custom Size..."_qs);
    }

    void PapersAreChosenInTheMenuAndInTheDialog_data() {
        QTest::addColumn<Paper>("paper");
        QTest::addColumn<QString>("size");
        QTest::newRow("Long") << Paper::Long << u"8.5|13"_qs;
        QTest::newRow("Short") << Paper::Short << u"8.5|11"_qs;
        QTest::newRow("A4") << Paper::A4 << u"8.27|11.69"_qs;
    }
    void PapersAreChosenInTheMenuAndInTheDialog() {
        QFETCH(Paper, paper);
        QFETCH(QString, size);
        for (const bool inMenu : {true, false}) {
            PageModel model = WithCustomSize(u"9"_qs, u"14"_qs);
            if (inMenu)
                model.ChooseInMenu(paper);
            else
                model.ChooseOption(paper);
            QCOMPARE(Size(model), size);
            QCOMPARE(model.Option(), paper);
            QCOMPARE(model.Checked(), paper);
            QVERIFY(!model.IsEnabled(PageBox::Width));
            QCOMPARE(model.CustomCaption(), u"Custom (9 x 14)..."_qs);
        }
    }

    void OnlyACustomSizeCanBeEdited_data() {
        QTest::addColumn<Paper>("paper");
        QTest::addColumn<bool>("enabled");
        QTest::newRow("Long") << Paper::Long << false;
        QTest::newRow("Short") << Paper::Short << false;
        QTest::newRow("A4") << Paper::A4 << false;
        QTest::newRow("Custom") << Paper::Custom << true;
    }
    void OnlyACustomSizeCanBeEdited() {
        QFETCH(Paper, paper);
        QFETCH(bool, enabled);
        PageModel model;
        model.ChooseInMenu(paper);
        const QString before = Size(model);
        for (const PageBox box : kAllBoxes) {
            const bool isSize = box == PageBox::Width || box == PageBox::Height;
            QCOMPARE(model.IsEnabled(box), enabled || !isSize);
        }
        model.Click(PageBox::Width, Arrow::Down);
        model.Click(PageBox::Height, Arrow::Up);
        QCOMPARE(Size(model) == before, !enabled);
    }

    void MarginsCanAlwaysBeEdited() {
        PageModel model;
        model.SetText(PageBox::Left, u"1.5"_qs);
        model.ChooseInMenu(Paper::A4);
        QCOMPARE(model.Inches(PageBox::Left), 1.5);
        model.Click(PageBox::Left, Arrow::Up);
        QCOMPARE(model.Text(PageBox::Left), u" 1.6"_qs);
        QCOMPARE(model.Text(PageBox::Right), u"1.0"_qs);
    }

    void MenuRewritesTheTextsOfThePaperThatIsChosen() {
        PageModel model;
        model.ChooseInMenu(Paper::Long);
        QCOMPARE(Size(model), u"8.5|13"_qs);
    }
    void AnOptionThatIsSelectedRewritesNothing() {
        PageModel model;
        model.ChooseOption(Paper::Long);
        QCOMPARE(Size(model), u"8.5|13.0"_qs);
    }

    void CustomKeepsTheTextsThatStand() {
        PageModel model;
        model.ChooseInMenu(Paper::A4);
        model.ChooseInMenu(Paper::Custom);
        QCOMPARE(Size(model), u"8.27|11.69"_qs);
        // before the dialog is confirmed
        QCOMPARE(model.Option(), Paper::Custom);
        QCOMPARE(model.Checked(), Paper::Custom);
    }

    void ArrowsStepByATenth_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("up");
        QTest::addColumn<QString>("down");
        const auto row = [](const char* name, const QString& text, const QString& up, const QString& down) {
            QTest::newRow(name) << text << up << down;
        };
        row("at first", u"1.0"_qs, u" 1.1"_qs, u" .9"_qs);
        row("to a whole number", u"1.9"_qs, u" 2"_qs, u" 1.8"_qs);
        row("to zero", u" .1"_qs, u" .2"_qs, u" 0"_qs);
        row("from zero", u" 0"_qs, u" .1"_qs, u"-.1"_qs);
        row("below zero", u"-.1"_qs, u" 0"_qs, u"-.2"_qs);
        row("no text", QString(), u" .1"_qs, u"-.1"_qs);
        row("no number", u"abc"_qs, u" .1"_qs, u"-.1"_qs);
        row("a comma ends the number", u"1,5"_qs, u" 1.1"_qs, u" .9"_qs);
        row("hundredths stay", u"11.69"_qs, u" 11.79"_qs, u" 11.59"_qs);
        row("an inch mark goes", u"8.5\""_qs, u" 8.6"_qs, u" 8.4"_qs);
    }
    void ArrowsStepByATenth() {
        QFETCH(QString, text);
        PageModel model;
        model.ChooseInMenu(Paper::Custom);
        for (const PageBox box : kAllBoxes) {
            model.SetText(box, text);
            model.Click(box, Arrow::Up);
            QTEST(model.Text(box), "up");
            model.SetText(box, text);
            model.Click(box, Arrow::Down);
            QTEST(model.Text(box), "down");
        }
    }

    void ArrowsHaveNoLimitsAndNoDust() {
        PageModel model;
        for (int step = 1; step <= 500; ++step) {
            model.Click(PageBox::Top, Arrow::Down);
            const int tenths = 10 - step;
            QCOMPARE(model.Inches(PageBox::Top), QString::number(tenths).toDouble() / 10);
            QVERIFY2(model.Text(PageBox::Top).size() <= 5, qPrintable(model.Text(PageBox::Top)));
        }
        QCOMPARE(model.Text(PageBox::Top), u"-49"_qs);
    }

    void AnEmptyMarginIsZero() {
        PageModel model;
        model.SetText(PageBox::Bottom, QString());
        QCOMPARE(model.Inches(PageBox::Bottom), 0.0);
        QCOMPARE(model.Text(PageBox::Bottom), QString());
    }

    void ConfirmGoesByTheNumbers_data() {
        QTest::addColumn<QString>("width");
        QTest::addColumn<QString>("height");
        QTest::addColumn<Paper>("paper");
        QTest::addColumn<QString>("size");
        QTest::addColumn<QString>("caption");
        const QString none = u"Custom Size..."_qs;
        const auto preset = [&](const char* name, const QString& width, const QString& height, Paper paper,
                                const QString& size) {
            QTest::newRow(name) << width << height << paper << size << none;
        };
        preset("Short", u"8.5"_qs, u"11"_qs, Paper::Short, u"8.5|11"_qs);
        preset("Long", u"8.5"_qs, u"13"_qs, Paper::Long, u"8.5|13"_qs);
        preset("A4", u"8.27"_qs, u"11.69"_qs, Paper::A4, u"8.27|11.69"_qs);
        preset("more zeros", u"8.50"_qs, u"11.000"_qs, Paper::Short, u"8.5|11"_qs);
        preset("blanks", u"  8.5 "_qs, u" 1 1 "_qs, Paper::Short, u"8.5|11"_qs);
        preset("text behind the number", u"8.5 in"_qs, u"13\""_qs, Paper::Long, u"8.5|13"_qs);
        const auto custom = [](const char* name, const QString& width, const QString& height,
                               const QString& caption) {
            QTest::newRow(name) << width << height << Paper::Custom << u"%1|%2"_qs.arg(width, height)
                                << caption;
        };
        custom("own size", u"9"_qs, u"14"_qs, u"Custom (9 x 14)..."_qs);
        custom("nearly", u"8.499"_qs, u"13"_qs, u"Custom (8.499 x 13)..."_qs);
        custom("nearly A4", u"8.27"_qs, u"11.7"_qs, u"Custom (8.27 x 11.7)..."_qs);
        custom("on its side", u"13"_qs, u"8.5"_qs, u"Custom (13 x 8.5)..."_qs);
        custom("written by arrows", u" 8.6"_qs, u" 12.9"_qs, u"Custom (8.6 x 12.9)..."_qs);
        custom("a comma", u"8,5"_qs, u"11"_qs, u"Custom (8,5 x 11)..."_qs);
        custom("no numbers", QString(), u"abc"_qs, u"Custom ( x abc)..."_qs);
        custom("below zero", u"-.1"_qs, u" 0"_qs, u"Custom (-.1 x 0)..."_qs);
    }
    void ConfirmGoesByTheNumbers() {
        QFETCH(QString, width);
        QFETCH(QString, height);
        QFETCH(Paper, paper);
        const PageModel model = WithCustomSize(width, height);
        QTEST(model.Option(), "paper");
        QTEST(model.Checked(), "paper");
        QTEST(Size(model), "size");
        QTEST(model.CustomCaption(), "caption");
        QCOMPARE(model.IsEnabled(PageBox::Height), paper == Paper::Custom);
    }

    void ConfirmGoesByTheNumbersWhateverOptionIsSelected() {
        PageModel model;
        model.SetText(PageBox::Width, u"9"_qs);
        model.Confirm();
        QCOMPARE(model.Option(), Paper::Long); // no option is selected for an own size
        QCOMPARE(model.Checked(), Paper::Custom);
        QCOMPARE(model.CustomCaption(), u"Custom (9 x 13.0)..."_qs);
        QCOMPARE(Size(model), u"9|13.0"_qs);
        model.SetText(PageBox::Width, u" 8.5"_qs);
        model.SetText(PageBox::Height, u"11.0"_qs);
        model.Confirm();
        QCOMPARE(model.Option(), Paper::Short);
        QCOMPARE(model.Checked(), Paper::Short);
        QCOMPARE(Size(model), u"8.5|11"_qs);
    }

    void ArrowsCanReachAPaper() {
        PageModel model;
        model.ChooseInMenu(Paper::Custom);
        for (int i = 0; i < 20; ++i)
            model.Click(PageBox::Height, Arrow::Down); // 13 to 11
        model.Confirm();
        QCOMPARE(model.Option(), Paper::Short);
    }

    void ConfirmingAFixedPaperShowsNothing() {
        PageModel model;
        model.Confirm();
        QCOMPARE(Size(model), u"8.5|13.0"_qs);
        QCOMPARE(model.Option(), Paper::Long);
        QCOMPARE(model.Checked(), Paper::Long);
        QCOMPARE(model.CustomCaption(), u"Custom Size..."_qs);
    }

    void ConfirmLeavesTheMargins() {
        PageModel model;
        model.SetText(PageBox::Left, u"wide"_qs);
        model.ChooseInMenu(Paper::Custom);
        model.Confirm();
        QCOMPARE(model.Text(PageBox::Left), u"wide"_qs);
    }

    void CustomThatWasNotChangedGoesBackToItsPaper() {
        PageModel model;
        model.ChooseInMenu(Paper::Short);
        model.ChooseInMenu(Paper::Custom);
        model.Confirm();
        QCOMPARE(model.Option(), Paper::Short);
        QCOMPARE(model.Checked(), Paper::Short);
    }

    void TheCustomCaptionOutlivesItsSize() {
        PageModel model = WithCustomSize(u"9"_qs, u"14"_qs);
        model.ChooseInMenu(Paper::Long);
        QCOMPARE(model.CustomCaption(), u"Custom (9 x 14)..."_qs);
        // the entry comes back with the texts of the paper, not with those of its caption
        model.ChooseInMenu(Paper::Custom);
        QCOMPARE(Size(model), u"8.5|13"_qs);
        model.SetText(PageBox::Width, u"10"_qs);
        model.Confirm();
        QCOMPARE(model.CustomCaption(), u"Custom (10 x 13)..."_qs);
    }

    void ANewDialogLeavesTheMenuAsItIs() {
        PageModel model = WithCustomSize(u"9"_qs, u"14"_qs);
        model.SetText(PageBox::Top, u"2"_qs);
        model.Load();
        QCOMPARE(Size(model), u"8.5|13.0"_qs);
        QCOMPARE(model.Text(PageBox::Top), u"1.0"_qs);
        QCOMPARE(model.Option(), Paper::Long);
        QVERIFY(!model.IsEnabled(PageBox::Width));
        QCOMPARE(model.Checked(), Paper::Custom);
        QCOMPARE(model.CustomCaption(), u"Custom (9 x 14)..."_qs);
    }
};

QTEST_GUILESS_MAIN(PageModelTest)
#include "page_model_test.moc"
