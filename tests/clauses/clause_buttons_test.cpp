// The two buttons that add a clause: what they forget, ask and insert.
#include "clauses/clause_commands.h"

#include "app/left_toolbar.h"
#include "platform/controls/my_button.h"
#include "tests/support/clause_window.h"

#include <QtTest>
#include <QtWidgets>

using namespace quillbrook;

namespace {

// A dialog that the user answers at once.
class AnsweredDialog final : public QDialog {
public:
    explicit AnsweredDialog(std::function<void()> answer)
        : m_answer(std::move(answer)) {}
    int exec() override {
        m_answer();
        return 0;
    }

private:
    std::function<void()> m_answer;
};

void Answer(ClauseWindow& window, const char* dialog, const std::function<void()>& answer) {
    window->Windows().Offer(QLatin1String(dialog),
                            [answer] { return std::make_unique<AnsweredDialog>(answer); });
}

} // namespace

class ClauseButtonsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheButtonsSayWhatTheyAdd() {
        ClauseWindow window;
        QCOMPARE(window->leftToolbar->cmdAddJurat->toolTip(),
                 u"Add a Jurat or an Acknowledgment to Affidavits or Contracts"_qs);
        QCOMPARE(window->leftToolbar->AddVerification->toolTip(),
                 u"Add a Verification or other Pleading Requirements"_qs);
    }

    void TheJuratButtonForgetsTheOldChoiceAndInsertsTheNewOne() {
        ClauseWindow window;
        PublicVariables& variables = window->Variables();
        window->txtContent()->setText(kPlaces);
        variables.JuratNumber = u"1"_qs;
        variables.VerificationNumber = u"1"_qs;
        QString atOpening = u"never opened"_qs;
        Answer(window, "frmJurat", [&] {
            atOpening = variables.JuratNumber;
            variables.JuratNumber = u"5"_qs;
            variables.CurrentSearchWord = u"(ACKNOWLEDGMENT)"_qs;
        });
        window->leftToolbar->cmdAddJurat->click();
        QCOMPARE(atOpening, QString());
        QCOMPARE(window.Content(), QString(kPlaces).replace(u"(ACKNOWLEDGMENT)"_qs,
                                                            TestClause(ClauseRoutine::InsertJurat, "5")));
        QCOMPARE(variables.VerificationNumber, u"1"_qs);
        QCOMPARE(variables.JuratNumber, u"5"_qs);
    }

    void WithoutAChoiceTheButtonsChangeNothing() {
        ClauseWindow window;
        int opened = 0;
        Answer(window, "frmJurat", [&] { ++opened; });
        Answer(window, "frmVerification", [&] { ++opened; });
        window.Choose("mnuCaptionSC"); // leaves its number behind
        window->txtContent()->setText(QString());
        window->leftToolbar->cmdAddJurat->click();
        window->leftToolbar->AddVerification->click();
        QCOMPARE(opened, 2);
        QCOMPARE(window.Content(), QString());
        QCOMPARE(window.MyContent(), QString());
        QVERIFY(window.services.messageBox.shown.empty());
    }

    void TheVerificationButtonForgetsBothOldChoices() {
        ClauseWindow window;
        PublicVariables& variables = window->Variables();
        window->txtContent()->setText(kPlaces);
        window.Choose("mnuCaptionSC");
        QCOMPARE(variables.CaptionNumber, u"1"_qs);
        QStringList atOpening;
        Answer(window, "frmVerification", [&] {
            atOpening = {variables.CaptionNumber, variables.VerificationNumber};
            variables.VerificationNumber = u"6"_qs;
            variables.CurrentSearchWord = u"(EXPLANATION)"_qs;
        });
        variables.VerificationNumber = u"2"_qs;
        window->leftToolbar->AddVerification->click();
        QCOMPARE(atOpening, QStringList({{}, {}}));
        QCOMPARE(window.Content(),
                 kCaption1 + QString(kPlaces).replace(u"(EXPLANATION)"_qs,
                                                      TestClause(ClauseRoutine::InsertVerification, "6")));
    }

    void ACaptionAndAVerificationAreInsertedIndependently() {
        ClauseWindow window;
        PublicVariables& variables = window->Variables();
        window->txtContent()->setText(kPlaces);
        Answer(window, "frmVerification", [&] {
            variables.CaptionNumber = u"1"_qs;
            variables.VerificationNumber = u"1"_qs;
            variables.CurrentSearchWord = u"(VERIFICATION)"_qs;
        });
        window->leftToolbar->AddVerification->click();
        QCOMPARE(window.Content(),
                 kCaption1 + QString(kPlaces).replace(u"(VERIFICATION)"_qs, kVerification1));
    }

    void EachDialogIsMadeOnceAndStays() {
        ClauseWindow window;
        for (const char* name : {"frmJurat", "frmVerification"}) {
            int made = 0;
            window->Windows().Offer(QLatin1String(name), [&made] {
                ++made;
                return std::make_unique<AnsweredDialog>([] {});
            });
            QVERIFY(!window->Windows().IsLoaded(QLatin1String(name)));
            auto* button = window->findChild<platform::MyButton*>(
                QLatin1String(name) == u"frmJurat" ? u"cmdAddJurat"_qs : u"AddVerification"_qs);
            button->click();
            button->click();
            QCOMPARE(made, 1);
            QVERIFY(window->Windows().IsLoaded(QLatin1String(name)));
        }
    }
};

QTEST_MAIN(ClauseButtonsTest)
#include "clause_buttons_test.moc"
