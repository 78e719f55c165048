// The clauses of the library as a lawyer reads them: what each must say, and lines that fit the page.
#include "clauses/clause_entries.h"

#include <QFile>
#include <QFontMetricsF>
#include <QtTest>

using namespace quillbrook;

namespace {

// Between the margins of a form, in points; a tab goes on to the next half inch.
constexpr double kTextWidth = 432;
constexpr double kTabStop = 36;

QString TextOf(ClauseRoutine routine, const char* number) {
    QFile file(u"" QUILLBROOK_SOURCE_DIR "/forms/clauses/%1/%2.txt"_qs.arg(
        QLatin1String(TableOf(routine).table), QLatin1String(number)));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

const QStringList kSworn{u"SUBSCRIBED AND SWORN to before me"_qs,
                         u"personally appeared before me"_qs,
                         u"competent evidence of identity"_qs,
                         u"photograph and signature"_qs,
                         u"signed the foregoing"_qs,
                         u"in my presence"_qs,
                         u"under penalty of law"_qs};
const QStringList kNotary{u"NOTARY PUBLIC"_qs,
                          u"Notary Public for and in ___"_qs,
                          u"Commission No. ___"_qs,
                          u"valid until December 31, 20___"_qs,
                          u"Office Address: ___"_qs,
                          u"Roll of Attorneys No. ___"_qs,
                          u"PTR No. ___"_qs,
                          u"IBP No. ___"_qs,
                          u"MCLE Compliance No. ___"_qs,
                          u"Doc. No. ___"_qs,
                          u"Page No. ___"_qs,
                          u"Book No. ___"_qs,
                          u"Series of 20___"_qs};
const QStringList kAcknowledged{
    u"REPUBLIC OF THE PHILIPPINES"_qs,     u"ACKNOWLEDGMENT"_qs,
    u"BEFORE ME, a Notary Public"_qs,      u"personally appeared"_qs,
    u"competent evidence of identity"_qs,  u"executed the foregoing instrument"_qs,
    u"free and voluntary act and deed"_qs, u"consists of ______ (_____) pages, including the page"_qs,
    u"signed on each and every page"_qs,   u"NOTARIAL SEAL"_qs};
const QStringList kInCapacity{u"authority to sign in that capacity"_qs, u"[Board Resolution No."_qs,
                              u"SEC Registration No."_qs};
const QStringList kVerified{
    u"VERIFICATION"_qs,
    u"true and correct based on my personal knowledge"_qs,
    u"authentic"_qs,
    u"not filed to harass, cause unnecessary delay, or needlessly increase the cost of litigation"_qs,
    u"evidentiary support after a reasonable opportunity for discovery"_qs,
    u"certification of the truthfulness of the allegations"_qs,
    u"Affiant"_qs};
const QStringList kNoForumShopping{
    u"CERTIFICATION OF NON-FORUM SHOPPING"_qs,
    u"not theretofore commenced any action or filed any claim involving the same issues in any court, tribunal or quasi-judicial agency"_qs,
    u"no such other action or claim is pending therein"_qs,
    u"complete statement of its present status"_qs,
    u"within five (5) calendar days therefrom to this Honorable Court"_qs,
    u"indirect contempt of court"_qs};

QStringList WantedOf(const ClauseEntry& entry) {
    const int number = QByteArray(entry.number).toInt();
    switch (entry.routine) {
    case ClauseRoutine::InsertJurat:
        if (number <= 3)
            return kSworn + kNotary;
        return kAcknowledged + kNotary + (number >= 7 ? kInCapacity : QStringList());
    case ClauseRoutine::InsertCaption: {
        const QStringList courts{u"SUPREME COURT"_qs, u"COURT OF APPEALS"_qs, u"REGIONAL TRIAL COURT"_qs,
                                 u"MUNICIPAL TRIAL COURT"_qs, u"MUNICIPAL TRIAL COURT IN CITIES"_qs};
        QStringList wanted{u"REPUBLIC OF THE PHILIPPINES"_qs, u"- versus -"_qs, u"No. ___"_qs,
                           courts[number <= 2 ? number - 1 : (number + 1) / 2]};
        if (number >= 3) {
            const bool isCriminal = number % 2 == 0;
            wanted += {isCriminal ? u"Criminal Case No."_qs : u"Civil Case No."_qs,
                       isCriminal ? u"Accused."_qs : u"Defendant."_qs, u"Judicial Region"_qs, u"For: ___"_qs};
            if (isCriminal)
                wanted += u"PEOPLE OF THE PHILIPPINES"_qs;
        }
        return wanted;
    }
    case ClauseRoutine::InsertVerification:
        break;
    }
    switch (number) {
    case 1:
        return kVerified + kSworn + kNotary;
    case 2:
        return kVerified + kSworn + kNotary + QStringList{u"resolution of its Board of Directors"_qs};
    case 3:
        return kVerified + kNoForumShopping + kSworn + kNotary;
    case 4:
        return kNoForumShopping + kSworn + kNotary;
    case 5:
        return {u"NOTICE OF HEARING"_qs, u"THE CLERK OF COURT"_qs, u"a Friday"_qs,
                u"within five (5) calendar days"_qs, u"Copy furnished:"_qs};
    default:
        return {u"EXPLANATION"_qs,
                u"Rule 13 of the Rules of Court"_qs,
                u"not by personal delivery"_qs,
                u"Registry Receipt No."_qs,
                u"tracking number"_qs,
                u"electronic mail"_qs};
    }
}

// Where a line of text ends on the page, in points.
double EndOf(const QString& line, const QFontMetricsF& metrics, double scale) {
    double end = 0;
    const QStringList parts = line.split(u'\t');
    for (qsizetype i = 0; i < parts.size(); ++i) {
        if (i > 0)
            end = (std::floor(end / kTabStop + 1e-6) + 1) * kTabStop;
        end += metrics.horizontalAdvance(parts[i]) * scale;
    }
    return end;
}

} // namespace

class ClauseTextsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void EachClauseSaysWhatTheRulesAskFor_data() {
        QTest::addColumn<int>("index");
        for (std::size_t i = 0; i < kClauseEntries.size(); ++i)
            QTest::newRow(kClauseEntries[i].name) << int(i);
    }
    void EachClauseSaysWhatTheRulesAskFor() {
        QFETCH(int, index);
        const ClauseEntry& entry = kClauseEntries[std::size_t(index)];
        const QString text = TextOf(entry.routine, entry.number);
        for (const QString& wanted : WantedOf(entry))
            QVERIFY2(text.contains(wanted), qPrintable(wanted));
        QCOMPARE(text.count(u'['), text.count(u']'));
        QCOMPARE(text.count(u'('), text.count(u')') - text.count(u"\t)"));
    }

    void EachPersonHasALineOfEvidence_data() {
        QTest::addColumn<QByteArray>("number");
        QTest::addColumn<int>("persons");
        QTest::newRow("joint affiants") << QByteArray("2") << 2;
        QTest::newRow("multiple affiants") << QByteArray("3") << 5;
        QTest::newRow("two parties") << QByteArray("5") << 2;
        QTest::newRow("many parties") << QByteArray("6") << 5;
        QTest::newRow("individual and corporation") << QByteArray("8") << 2;
    }
    void EachPersonHasALineOfEvidence() {
        QFETCH(QByteArray, number);
        const QString text = TextOf(ClauseRoutine::InsertJurat, number.constData());
        QTEST(int(text.count(QRegularExpression(
                  u"\\t\\d\\.\\t.*through _+ No\\. _+, issued on _+ at _+ and valid until _+"_qs))),
              "persons");
    }

    // Lines set by tabs or blanks fall apart when the page cuts them.
    void LinesSetByTabsFitThePage_data() { EachClauseSaysWhatTheRulesAskFor_data(); }
    void LinesSetByTabsFitThePage() {
        QFETCH(int, index);
        QFont font(u"Times New Roman"_qs);
        font.setPixelSize(1200);
        const QFontMetricsF metrics(font);
        const double scale = 12.0 / 1200;
        if (std::abs(metrics.horizontalAdvance(u"M_"_qs) * scale - 12 * 1.389) > 0.1)
            QSKIP("no font with the widths of Times on this machine");
        const ClauseEntry& entry = kClauseEntries[std::size_t(index)];
        const QRegularExpression paragraph(u"^\\t(\\d+\\.\\t|[^\\t]*$)"_qs); // flows over lines by itself
        for (const QString& line : TextOf(entry.routine, entry.number).split(u'\n')) {
            const bool flows = !line.contains(u'\t') ? line.size() > 90 : paragraph.match(line).hasMatch();
            if (!flows)
                QVERIFY2(EndOf(line, metrics, scale) <= kTextWidth, qPrintable(line));
        }
    }

    // What is added to the end of a form begins a paragraph of its own; so does the form below a caption.
    void AnEmptyLinePartsAClauseFromTheForm() {
        for (const ClauseEntry& entry : kClauseEntries) {
            const QString text = TextOf(entry.routine, entry.number);
            const bool isCaption = entry.routine == ClauseRoutine::InsertCaption;
            QVERIFY2(isCaption ? text.endsWith(u"x\n\n") : text.startsWith(u'\n'), entry.name);
            QVERIFY2(isCaption || !text.endsWith(u"\n\n"), entry.name);
        }
    }
};

QTEST_MAIN(ClauseTextsTest)
#include "clause_texts_test.moc"
