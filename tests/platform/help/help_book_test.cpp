// The help file that goes with the program, and damaged ones.

#include "platform/help/help_book.h"

#include <QImage>
#include <QRegularExpression>
#include <QtTest>
#include <random>

using platform::ChmFile;
using platform::HelpBook;
using platform::HelpEntry;

namespace {

QString HelpFile() {
    return QStringLiteral(QUILLBROOK_BINARY_DIR "/Help.chm");
}

QByteArray Source(const QString& name) {
    QFile file(QStringLiteral(QUILLBROOK_SOURCE_DIR "/help/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// The addresses in a page that an attribute gives, resolved from the page's own place.
QStringList Addresses(const QString& page, const QByteArray& text, const QString& attribute) {
    const QRegularExpression pattern(attribute + QStringLiteral("\\s*=\\s*\"([^\"]*)\""));
    QStringList found;
    const QUrl base(QStringLiteral("help:/") + page);
    auto matches = pattern.globalMatch(QString::fromUtf8(text));
    while (matches.hasNext())
        found.append(base.resolved(QUrl(matches.next().captured(1))).toString());
    return found;
}

} // namespace

class HelpBookTest : public QObject {
    Q_OBJECT

private:
    HelpBook m_book;

    // Writes the bytes to a file and opens it as help.
    static ChmFile::State OpenBytes(const QByteArray& bytes) {
        QTemporaryFile file;
        if (!file.open() || file.write(bytes) != bytes.size() || !file.flush())
            return ChmFile::State::Closed;
        HelpBook book;
        return book.Open(file.fileName());
    }

    static QByteArray HelpBytes() {
        QFile file(HelpFile());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private Q_SLOTS:
    void initTestCase() {
        if (!QFile::exists(HelpFile()))
            QSKIP("built without the compiler of help files");
        QCOMPARE(m_book.Open(HelpFile()), ChmFile::State::Open);
    }

    void TheFileHoldsEveryPageAndPictureAsItWasWritten() {
        const QDir help(QStringLiteral(QUILLBROOK_SOURCE_DIR "/help"));
        QDirIterator files(help.path(), {u"*.html"_qs, u"*.png"_qs, u"*.css"_qs}, QDir::Files,
                           QDirIterator::Subdirectories);
        int count = 0;
        while (files.hasNext()) {
            const QString name = help.relativeFilePath(files.next());
            const QByteArray written = Source(name);
            QVERIFY2(!written.isEmpty(), qPrintable(name));
            QVERIFY2(m_book.Read(name) == written, qPrintable(name));
            ++count;
        }
        QVERIFY(count > 20);
    }

    void ThereAreAtLeastTwentyPagesAndAHomeAmongThem() {
        QVERIFY(m_book.Pages().size() >= 20);
        QVERIFY(m_book.Pages().contains(m_book.HomePage()));
        QCOMPARE(m_book.HomePage(), u"pages/start.html"_qs);
        QCOMPARE(m_book.Title(), u"Quillbrook Help"_qs);
    }

    void TheContentsListEveryPageOnceUnderItsOwnTitle() {
        QStringList listed;
        for (const HelpEntry& entry : m_book.Contents()) {
            if (entry.page.isEmpty())
                continue;
            QVERIFY2(m_book.Pages().contains(entry.page), qPrintable(entry.page));
            QCOMPARE(entry.name, m_book.PageTitle(entry.page));
            listed.append(entry.page);
        }
        listed.sort();
        QCOMPARE(listed, m_book.Pages());
    }

    void TheIndexLeadsToPagesThatAreThereAndLeavesNoneOut() {
        QSet<QString> reached;
        for (const HelpEntry& entry : m_book.Index()) {
            QVERIFY2(m_book.Pages().contains(entry.page), qPrintable(entry.name));
            reached.insert(entry.page);
        }
        QCOMPARE(reached.size(), m_book.Pages().size());
    }

    void NoLinkIsDead() {
        int links = 0;
        for (const QString& page : m_book.Pages()) {
            const QByteArray text = m_book.Read(page);
            for (const QString& address : Addresses(page, text, u"href"_qs)) {
                const QUrl url(address);
                if (url.scheme() != u"help"_qs)
                    continue;
                const QByteArray target = m_book.Read(url.path().mid(1));
                QVERIFY2(!target.isNull(), qPrintable(page + u" -> "_qs + address));
                if (url.hasFragment())
                    QVERIFY2(target.contains("id=\"" + url.fragment().toUtf8() + '"'), qPrintable(address));
                ++links;
            }
        }
        QVERIFY(links > m_book.Pages().size());
    }

    void NoPictureIsMissingOrUnused() {
        QSet<QString> used;
        for (const QString& page : m_book.Pages()) {
            for (const QString& address : Addresses(page, m_book.Read(page), u"src"_qs)) {
                const QString name = QUrl(address).path().mid(1);
                const QImage picture = QImage::fromData(m_book.Read(name));
                QVERIFY2(!picture.isNull(), qPrintable(page + u" -> "_qs + name));
                QVERIFY2(picture.width() <= 700, qPrintable(name));
                used.insert(name);
            }
        }
        for (const QString& name : QDir(QStringLiteral(QUILLBROOK_SOURCE_DIR "/help/pictures"))
                                       .entryList({u"*.png"_qs}, QDir::Files))
            QVERIFY2(used.contains(u"pictures/"_qs + name), qPrintable(name));
    }

    void APageOfEverySubjectIsFoundByItsWords_data() {
        QTest::addColumn<QString>("query");
        QTest::addColumn<QString>("first");
        QTest::newRow("a jurat") << u"jurat"_qs << u"pages/jurat.html"_qs;
        QTest::newRow("capitals") << u"CAPTION pleading"_qs << u"pages/caption.html"_qs;
        QTest::newRow("the beginning of a word") << u"favor"_qs << u"pages/favorites.html"_qs;
        QTest::newRow("backup") << u"back up library"_qs << u"pages/backup.html"_qs;
        QTest::newRow("theme") << u"color theme"_qs << u"pages/themes.html"_qs;
        QTest::newRow("finding") << u"find form clicks"_qs << u"pages/find-form.html"_qs;
        QTest::newRow("filling in") << u"fill form"_qs << u"pages/fill-in.html"_qs;
        QTest::newRow("Long paper") << u"long paper"_qs << u"pages/paper.html"_qs;
        QTest::newRow("printing") << u"print form"_qs << u"pages/print.html"_qs;
        QTest::newRow("own forms") << u"keep forms own"_qs << u"pages/own-forms.html"_qs;
        QTest::newRow("a new category") << u"new category"_qs << u"pages/new-category.html"_qs;
        QTest::newRow("undo across forms") << u"undo across forms"_qs << u"pages/undo.html"_qs;
        QTest::newRow("the library file") << u"library file holds"_qs << u"pages/library-file.html"_qs;
        QTest::newRow("the author") << u"contact author"_qs << u"pages/contact.html"_qs;
    }
    void APageOfEverySubjectIsFoundByItsWords() {
        QFETCH(QString, query);
        QFETCH(QString, first);
        QCOMPARE(m_book.Search(query).value(0), first);
    }

    void ASearchWantsAllItsWords() {
        QVERIFY(!m_book.Search(u"jurat"_qs).isEmpty());
        QVERIFY(m_book.Search(u"jurat xylophone"_qs).isEmpty());
        QVERIFY(m_book.Search(u"urat"_qs).isEmpty());
        QVERIFY(m_book.Search(u"  "_qs).isEmpty());
        QVERIFY(m_book.Search(u"[("_qs).isEmpty());
    }

    void ASiteMapIsReadByItsLevels() {
        const auto entries = platform::ReadSiteMap(
            "<ul><li><object type=\"text/sitemap\"><param name=\"Name\" value=\"A &amp; B\"></object>"
            "<UL><LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"C\">"
            "<param name=\"Local\" value=\"c.html#d\"></OBJECT></UL>"
            "<li><object type=\"text/sitemap\"><param name=\"Name\" value=\"E\"></object></ul>");
        QCOMPARE(int(entries.size()), 3);
        QCOMPARE(entries[0].name, u"A & B"_qs);
        QCOMPARE(entries[0].depth, 0);
        QCOMPARE(entries[1].page, u"c.html#d"_qs);
        QCOMPARE(entries[1].depth, 1);
        QCOMPARE(entries[2].depth, 0);
    }

    void ASiteMapOfAnyShapeStaysWithinBounds() {
        QVERIFY(platform::ReadSiteMap("</ul></ul><param name=\"Name\" value=\"x\"><object").empty());
        QByteArray many = QByteArray("<ul>").repeated(5000);
        many += QByteArray("<object><param name=\"Name\" value=\"x\"></object>").repeated(20000);
        const auto entries = platform::ReadSiteMap(many);
        QVERIFY(entries.size() <= 10000);
        QVERIFY(entries.front().depth <= 16);
    }

    void AFileThatIsNotThereIsMissing() {
        HelpBook book;
        QCOMPARE(book.Open(u"/nowhere/Help.chm"_qs), ChmFile::State::Missing);
        QVERIFY(!book.IsOpen());
        QVERIFY(book.HomePage().isEmpty());
    }

    void AFileOfAnotherKindIsDamaged_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("text") << QByteArray("This is no help file.\n").repeated(1000);
        QTest::newRow("the mark alone") << QByteArray("ITSF");
        QTest::newRow("zeros behind the mark") << QByteArray("ITSF") + QByteArray(5000, '\0');
        QTest::newRow("ones behind the mark") << QByteArray("ITSF") + QByteArray(5000, '\xff');
    }
    void AFileOfAnotherKindIsDamaged() {
        QFETCH(QByteArray, bytes);
        QCOMPARE(OpenBytes(bytes), ChmFile::State::Damaged);
    }

    void AFileCutAnywhereIsDamaged() {
        const QByteArray whole = HelpBytes();
        for (int i = 0; i < 40; ++i)
            QCOMPARE(OpenBytes(whole.first(whole.size() * i / 40)), ChmFile::State::Damaged);
    }

    // Whatever the bytes say, the answer is one of the two and comes soon.
    void AFileWithWrongBytesIsReadOrRefused() {
        const QByteArray whole = HelpBytes();
        std::mt19937 random(20);
        int damaged = 0;
        for (int round = 0; round < 150; ++round) {
            QByteArray bytes = whole;
            for (int i = 0; i < 1 + round % 8; ++i) {
                const qsizetype range =
                    round % 2 != 0 ? bytes.size() : std::min<qsizetype>(0x2200, bytes.size());
                bytes[qsizetype(random() % std::uint64_t(range))] = char(random());
            }
            const ChmFile::State state = OpenBytes(bytes);
            QVERIFY(state == ChmFile::State::Damaged || state == ChmFile::State::Open);
            damaged += state == ChmFile::State::Damaged;
        }
        QVERIFY(damaged > 0);
    }

    void APageWhosePlaceLiesOutsideIsNotThere() {
        QByteArray bytes = HelpBytes();
        const QByteArray name = "/pages/start.html";
        const qsizetype at = bytes.indexOf(name);
        QVERIFY(at > 0);
        // the section stays, the start becomes far too large
        bytes.replace(at + name.size() + 1, 2, "\xff\x7f");
        QTemporaryFile file;
        QVERIFY(file.open() && file.write(bytes) == bytes.size() && file.flush());
        HelpBook book;
        book.Open(file.fileName());
        QVERIFY(book.Read(u"pages/start.html"_qs) != m_book.Read(u"pages/start.html"_qs));
    }
};

QTEST_MAIN(HelpBookTest)
#include "help_book_test.moc"
