#include "library/checker.h"
#include "library/clause_kinds.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

using namespace quillbrook;

namespace {

QByteArray FormText(const QByteArray& title, const QByteArray& category, const QByteArray& subCategory,
                    const QByteArray& body = "<p>Text.</p>\n") {
    return "<!-- note -->\n<title>" + title + "</title>\n<meta name=\"category\" content=\"" + category +
           "\">\n<meta name=\"sub-category\" content=\"" + subCategory + "\">\n" + body;
}

// A folder of forms with all clauses and one good form, in which a test makes its fault.
class FormsFolder {
public:
    FormsFolder() {
        for (const ClauseKind& kind : kClauseKinds)
            for (int number = 1; number <= kind.count; ++number)
                Write(QStringLiteral("clauses/%1/%2.txt").arg(kind.table).arg(number), "Clause\n\ntext.\n");
        Write(QStringLiteral("Lease/Homes/Good Lease.html"), FormText("Good Lease", "Lease", "Homes"));
    }

    QString Path() const { return m_folder.path(); }

    void Write(const QString& path, const QByteArray& bytes) {
        const QString full = m_folder.filePath(path);
        QVERIFY(QDir().mkpath(QFileInfo(full).path()));
        QFile file(full);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }

    void Remove(const QString& path) { QVERIFY(QFile::remove(m_folder.filePath(path))); }

    // The messages with paths below the folder.
    QStringList Messages() const {
        QStringList messages;
        for (const LibraryProblem& problem : CheckLibrary(Path()).problems)
            messages.append(problem.Message().remove(Path() + u'/'));
        return messages;
    }

private:
    QTemporaryDir m_folder;
};

} // namespace

class CheckerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void AGoodFolderHasNoProblems() {
        const FormsFolder folder;
        QCOMPARE(folder.Messages(), QStringList());
        const LibraryContent content = CheckLibrary(folder.Path()).content;
        QCOMPARE(content.forms.size(), 1u);
        QCOMPARE(content.forms[0].source.title, u"Good Lease"_qs);
        QCOMPARE(content.clauses.size(), 22u);
        QCOMPARE(content.clauses[0].text, u"Clause\n\ntext."_qs);
    }

    void EachFaultOfAFormIsNamedWithFileAndLine_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("message"); // begins so
        const QString path = u"Lease/Homes/A.html"_qs;
        const auto row = [&path](const char* name, const QByteArray& bytes, const QString& rest) {
            QTest::newRow(name) << path << bytes << path + rest;
        };
        const auto body = [](const QByteArray& text) { return FormText("A", "Lease", "Homes", text); };
        QTest::newRow("unknown category") << u"Boats/Homes/A.html"_qs << FormText("A", "Boats", "Homes")
                                          << u"Boats/Homes/A.html:3: error: unknown category \"Boats\""_qs;
        QTest::newRow("the user's own category")
            << u"My Forms/Homes/A.html"_qs << FormText("A", "My Forms", "Homes")
            << u"My Forms/Homes/A.html:3: error: unknown category \"My Forms\""_qs;
        QTest::newRow("repeated title")
            << u"Lease/Offices/good LEASE.html"_qs << FormText("good LEASE", "Lease", "Offices")
            << u"Lease/Offices/good LEASE.html:2: error: title \"good LEASE\" is already"_qs;
        QTest::newRow("apostrophe") << u"Lease/Homes/Owner's Lease.html"_qs
                                    << FormText("Owner's Lease", "Lease", "Homes")
                                    << u"Lease/Homes/Owner's Lease.html:2: error: apostrophe in the title"_qs;
        QTest::newRow("curly apostrophe")
            << u"Lease/Homes/Owner’s Lease.html"_qs << FormText("Owner’s Lease", "Lease", "Homes")
            << u"Lease/Homes/Owner’s Lease.html:2: error: apostrophe in the title"_qs;
        QTest::newRow("double quote")
            << u"Lease/Homes/A \"B\".html"_qs << FormText("A &quot;B&quot;", "Lease", "Homes")
            << u"Lease/Homes/A \"B\".html:2: error: double quote in the title"_qs;
        QTest::newRow("apostrophe in a sub-category")
            << u"Lease/Owner's/A.html"_qs << FormText("A", "Lease", "Owner's")
            << u"Lease/Owner's/A.html:4: error: apostrophe in the sub-category"_qs;
        QTest::newRow("long title") << u"Lease/Homes/%1.html"_qs.arg(QString(121, u'x'))
                                    << FormText(QByteArray(121, 'x'), "Lease", "Homes")
                                    << u"Lease/Homes/%1.html:2: error: title of more than"_qs.arg(
                                           QString(121, u'x'));
        row("blank title", FormText(" ", "Lease", "Homes"), u":2: error: empty title"_qs);
        row("blanks in a title", FormText("A ", "Lease", "Homes"), u":2: error: blanks"_qs);
        row("empty sub-category", FormText("A", "Lease", ""), u":4: error: empty sub-category"_qs);
        row("path and title", FormText("B", "Lease", "Homes"),
            u":2: error: title \"B\" does not fit \"A\""_qs);
        row("path and category", FormText("A", "Sales", "Homes"),
            u":3: error: category \"Sales\" does not fit"_qs);
        row("path and sub-category", FormText("A", "Lease", "Offices"),
            u":4: error: sub-category \"Offices\" does not fit"_qs);
        QTest::newRow("path too short") << u"Lease/A.html"_qs << FormText("A", "Lease", "Homes")
                                        << u"Lease/A.html:1: error: a form lies in"_qs;
        row("marker of no clause", body("<p>a</p>\n<p class=\"plain\">(OATH OF OFFICE)</p>\n"),
            u":6: error: no clause serves the marker (OATH OF OFFICE)"_qs);
        row("marker in a table", body("<table><tr><td>a</td>\n<td>(OATH)</td></tr></table>\n"),
            u":6: error: no clause serves the marker (OATH)"_qs);
        row("marker in a list", body("<ul><li>(OATH)</li></ul>\n"), u":5: error: no clause serves"_qs);
        row("marker of another class", body("<p class=\"center\">(JURAT)</p>\n"),
            u":5: error: write the marker as <p class=\"plain\">(JURAT)</p>"_qs);
        row("no body", body(""), u":2: error: the form has no body"_qs);
        row("unknown tag", body("<p>a</p>\n<div>b</div>\n"), u":6: error: unknown tag <div>"_qs);
        row("no title", "<p>a</p>\n", u":1: error: <title>...</title> is expected here"_qs);
        row("no category", "<title>A</title>\n<p>a</p>\n", u":2: error: <meta name=\"category\""_qs);
        row("two on a line",
            "<title>A</title><meta name=\"category\" content=\"Lease\">\n"
            "<meta name=\"sub-category\" content=\"Homes\">\n<p>a</p>\n",
            u":1: error: stands on one line"_qs);
        row("bad UTF-8", body("<p>a</p>\n<p>b\xFF</p>\n"), u":6: error: not UTF-8"_qs);
        row("byte order mark", "\xEF\xBB\xBF" + body("<p>a</p>\n"), u":1: error: byte order mark"_qs);
        row("carriage return", body("<p>a</p>\r\n"), u":5: error: carriage return"_qs);
        row("control character", body("<p>a\x01</p>\n"), u":5: error: character U+0001"_qs);
        row("no last line feed", body("<p>a</p>"), u":5: error: no line feed"_qs);
        row("too large", body(QByteArray(300'000, ' ')), u":1: error: larger than 256 KiB"_qs);
        QTest::newRow("stray file") << u"Lease/Homes/notes.doc"_qs << QByteArray("x")
                                    << u"Lease/Homes/notes.doc:1: error: neither a form nor a clause"_qs;
        QTest::newRow("stray clause") << u"clauses/Jurat/9.txt"_qs << QByteArray("x\n")
                                      << u"clauses/Jurat/9.txt:1: error: no command adds this clause"_qs;
        QTest::newRow("empty clause") << u"clauses/Jurat/8.txt"_qs << QByteArray("\n")
                                      << u"clauses/Jurat/8.txt:1: error: empty clause"_qs;
        QTest::newRow("clause of bad UTF-8") << u"clauses/Caption/1.txt"_qs << QByteArray("a\n\xC0\n")
                                             << u"clauses/Caption/1.txt:2: error: not UTF-8"_qs;
        QTest::newRow("clause too large") << u"clauses/Caption/1.txt"_qs << QByteArray(40'000, 'x')
                                          << u"clauses/Caption/1.txt:1: error: larger than 32 KiB"_qs;
    }
    void EachFaultOfAFormIsNamedWithFileAndLine() {
        QFETCH(QString, path);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, message);
        FormsFolder folder;
        folder.Write(path, bytes);
        const QStringList messages = folder.Messages();
        const auto begins = [&message](const QString& other) { return other.startsWith(message); };
        QVERIFY2(std::any_of(messages.begin(), messages.end(), begins), qPrintable(messages.join(u'\n')));
    }

    void EachClauseIsRequired() {
        for (const ClauseKind& kind : kClauseKinds) {
            for (int number = 1; number <= kind.count; ++number) {
                FormsFolder folder;
                const QString path = QStringLiteral("clauses/%1/%2.txt").arg(kind.table).arg(number);
                folder.Remove(path);
                QCOMPARE(folder.Messages(), QStringList(QStringLiteral("%1:1: error: missing clause %2 of %3")
                                                            .arg(path, QString::number(number), kind.table)));
            }
        }
    }

    void WhatOnlyLooksLikeAMarkerIsText_data() {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("amount") << QByteArray("(P______________)");
        QTest::newRow("one letter") << QByteArray("(A)");
        QTest::newRow("small letters") << QByteArray("(Signature over printed name)");
        QTest::newRow("more text") << QByteArray("See (JURAT) below");
        QTest::newRow("number") << QByteArray("(10)");
    }
    void WhatOnlyLooksLikeAMarkerIsText() {
        QFETCH(QByteArray, text);
        FormsFolder folder;
        folder.Write(u"Lease/Homes/A.html"_qs, FormText("A", "Lease", "Homes", "<p>" + text + "</p>\n"));
        QCOMPARE(folder.Messages(), QStringList());
    }

    void AllMarkersAreTaken() {
        FormsFolder folder;
        QByteArray body;
        for (const QLatin1String marker : kMarkers)
            body += "<p class=\"plain\">" + QByteArray(marker.data(), marker.size()) + "</p>\n";
        folder.Write(u"Lease/Homes/A.html"_qs, FormText("A", "Lease", "Homes", body));
        QCOMPARE(folder.Messages(), QStringList());
    }

    void ASlashIsADashInThePath() {
        FormsFolder folder;
        folder.Write(u"Acknowledgment - Jurat/Sworn - Signed/Lease - Sale.html"_qs,
                     FormText("Lease/Sale", "Acknowledgment / Jurat", "Sworn / Signed"));
        QCOMPARE(folder.Messages(), QStringList());
    }

    void FormsAreOrderedByCategoryThenSubCategoryThenTitle() {
        FormsFolder folder;
        folder.Write(u"Sales/Land/A.html"_qs, FormText("A", "Sales", "Land"));
        folder.Write(u"Acknowledgment - Jurat/Z/b.html"_qs, FormText("b", "Acknowledgment / Jurat", "Z"));
        folder.Write(u"Acknowledgment - Jurat/Z/C.html"_qs, FormText("C", "Acknowledgment / Jurat", "Z"));
        folder.Write(u"Acknowledgment - Jurat/y/D.html"_qs, FormText("D", "Acknowledgment / Jurat", "y"));
        QStringList titles;
        const CheckedLibrary library = CheckLibrary(folder.Path());
        for (const LibraryForm& form : library.content.forms)
            titles.append(form.source.title);
        QCOMPARE(titles.join(u','), u"D,b,C,Good Lease,A"_qs);
        QVERIFY(library.problems.empty());
    }

    void AMissingFolderIsAProblem() {
        const CheckedLibrary library = CheckLibrary(u"/nowhere/at/all"_qs);
        QCOMPARE(library.problems.size(), 1u);
        QCOMPARE(library.problems[0].Message(), u"/nowhere/at/all:1: error: there is no such folder"_qs);
    }
};

QTEST_GUILESS_MAIN(CheckerTest)
#include "checker_test.moc"
