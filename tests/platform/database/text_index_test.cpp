// Searching with the index over a long text finds the rows that the scan finds, whatever was written since
// and whatever became of the index.
#include "platform/database/connection.h"
#include "platform/database/like_pattern.h"
#include "tests/platform/database/temporary_library.h"

#include <QTest>
#include <array>
#include <random>

using namespace platform;
using namespace platform::test;

namespace {

const QString kForms = QStringLiteral("Forms");
const QString kContent = QStringLiteral("Content");
const QString kCopy = QStringLiteral("SubCategory"); // here the same text as a short one
const QString kAll = QStringLiteral("SELECT * FROM Forms WHERE ");

QString Like(const QString& pattern) {
    return QStringLiteral("Content LIKE '%1'").arg(pattern);
}

QString Titles(Database& database, const QString& condition) {
    const std::unique_ptr<Recordset> rows = Run(database, kAll + condition);
    return rows ? Texts(*rows).join(u' ') : QStringLiteral("refused");
}

bool SetContent(Database& database, const QString& title, const QVariant& content) {
    const auto rows = Run(database, kAll + QStringLiteral("Title = '%1'").arg(title));
    return rows && rows->Edit() && rows->SetField(kContent, content) && rows->SetField(kCopy, content) &&
           rows->Update();
}

bool Delete(Database& database, const QString& title) {
    const auto rows = Run(database, kAll + QStringLiteral("Title = '%1'").arg(title));
    return rows && rows->Delete();
}

bool AddForm(Database& database, const QString& title, const QString& content) {
    const auto rows = database.OpenRecordset(kForms);
    return rows && Add(*rows, {title, QStringLiteral("c"), QStringLiteral("s"), content});
}

// A few forms with an index over them.
std::unique_ptr<Database> MakeIndexed(const TemporaryLibrary& library) {
    std::unique_ptr<Database> database = library.Create();
    const bool made = database && AddForm(*database, QStringLiteral("A"), QStringLiteral("Deed of Sale")) &&
                      AddForm(*database, QStringLiteral("B"), QStringLiteral("Contract of Lease")) &&
                      AddForm(*database, QStringLiteral("C"), QStringLiteral("Deed of Donation")) &&
                      database->IndexText(kForms, kContent);
    return made ? std::move(database) : nullptr;
}

// How a statement is answered by a file opened anew; byIndex false when it is refused.
Connection::Effort EffortOf(const TemporaryLibrary& library, const QString& condition,
                            bool exclusive = true) {
    const auto connection =
        Connection::Open(library.Path(), exclusive, false, QStringLiteral("open sesame"), kFormat);
    const std::optional<SelectStatement> statement = ParseStatement(kAll + condition);
    if (!connection || !statement)
        return {};
    const int table = connection->FindTable(kForms);
    const std::optional<Selection> selection = BuildSelection(connection->Table(table), *statement);
    return selection && connection->Select(table, *statement, *selection) ? connection->LastEffort()
                                                                          : Connection::Effort{};
}

// Another program that writes to the file, with the engine alone.
bool RunForeign(const TemporaryLibrary& library, const QByteArray& sql) {
    sqlite3* handle = nullptr;
    const bool done = sqlite3_open(library.Path().toUtf8().constData(), &handle) == SQLITE_OK &&
                      RunSql(handle, "PRAGMA key = 'open sesame'") &&
                      RunSql(handle, "PRAGMA cipher_page_size = 16384") && RunSql(handle, sql);
    if (!done)
        qWarning("%s", sqlite3_errmsg(handle));
    sqlite3_close(handle);
    return done;
}

class Random {
public:
    explicit Random(unsigned seed)
        : m_engine(seed) {}
    unsigned operator()() { return static_cast<unsigned>(m_engine()); }

private:
    std::mt19937 m_engine;
};

template <std::size_t N>
QString Pick(Random& random, const std::array<const char16_t*, N>& list) {
    return QString::fromUtf16(list[random() % N]);
}

// A word, or something between words.
QString Piece(Random& random) {
    static constexpr std::array words{u"deed", u"Sale", u"OF", u"the", u"a", u"lease", u"7", u"2024", u"x1"};
    static constexpr std::array others{
        u" ", u" ", u" ",  u".", u"'", u"\"", u"\\b ",   u"*",      u"?",      u"#", u"[", u"]",
        u"!", u"-", u"\n", u"{", u"é", u"Ä",  u"\u212A", u"\u0130", u"\u017F", u"%", u"_", u"\U0001F600"};
    switch (random() % 40) {
    case 0:
        return QString(static_cast<qsizetype>(60 + random() % 10), u"ab"[random() % 2]);
    case 1:
        return QString(QChar(u'\0'));
    default:
        return random() % 2 == 0 ? Pick(random, words) : Pick(random, others);
    }
}

QString SomeText(Random& random, unsigned most) {
    QString text;
    for (unsigned pieces = random() % (most + 1); pieces > 0; --pieces)
        text += Piece(random);
    return text;
}

QString SwapCase(const QString& text) {
    QString swapped = text;
    for (QChar& c : swapped) {
        if (c.unicode() < 0x80)
            c = c.isLower() ? c.toUpper() : c.toLower();
    }
    return swapped;
}

// A piece of one of the texts, or one that may be in none, with wildcards put into it.
QString SomeNeedle(Random& random, const QStringList& texts) {
    QString needle;
    if (random() % 4 == 0) {
        needle = SomeText(random, 3);
    } else {
        const QString& text =
            texts[static_cast<qsizetype>(random() % static_cast<std::size_t>(texts.size()))];
        const auto length = static_cast<std::size_t>(text.size());
        needle = text.mid(static_cast<qsizetype>(random() % (length + 1)),
                          static_cast<qsizetype>(random() % (random() % 8 == 0 ? length + 1 : 12)));
    }
    if (random() % 3 == 0)
        needle = SwapCase(needle);
    static constexpr std::array wild{u"*", u"?", u"#", u"[a-e]", u"[!a-e]", u"[*]", u"[]", u"["};
    for (auto count = random() % 4 == 0 ? 1 + random() % 3 : 0; count > 0 && !needle.isEmpty(); --count) {
        const auto place = static_cast<qsizetype>(random() % static_cast<std::size_t>(needle.size()));
        needle.replace(place, static_cast<qsizetype>(random() % 2), Pick(random, wild));
    }
    return needle;
}

QString SomeCondition(Random& random, const QStringList& texts, int depth) {
    const unsigned kind = depth == 0 ? 0 : random() % 6;
    if (kind >= 4)
        return SomeCondition(random, texts, depth - 1) + QLatin1String(kind == 4 ? " AND " : " OR ") +
               SomeCondition(random, texts, depth - 1);
    if (kind == 3)
        return QStringLiteral("NOT (") + SomeCondition(random, texts, depth - 1) + u')';
    if (random() % 12 == 0)
        return QStringLiteral("Category = 'c%1'").arg(random() % 3);
    if (random() % 20 == 0)
        return QStringLiteral("Title LIKE '*%1*'").arg(random() % 10);
    QString needle = SomeNeedle(random, texts);
    const bool wholeText = random() % 10 == 0;
    if (!wholeText)
        needle = u'*' + needle + u'*';
    if (random() % 50 != 0) // else a quote ends the text, which is mostly refused
        needle.replace(u'\'', QStringLiteral("''"));
    return QStringLiteral("Content %1LIKE '").arg(QLatin1String(random() % 5 == 0 ? "NOT " : "")) + needle +
           u'\'';
}

} // namespace

class TextIndexTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // Two libraries see the same writes; only one has an index. A copy of the text in a short field tells
    // what LIKE finds in a text at hand.
    void IndexFindsTheRowsOfTheScan_data() {
        QTest::addColumn<unsigned>("seed");
        for (unsigned seed = 1; seed <= 12; ++seed)
            QTest::addRow("seed %u", seed) << seed;
    }
    void IndexFindsTheRowsOfTheScan() {
        QFETCH(unsigned, seed);
        Random random(seed);
        const TemporaryLibrary plainLibrary;
        const TemporaryLibrary indexedLibrary;
        std::unique_ptr<Database> plain = plainLibrary.Create();
        std::unique_ptr<Database> indexed = indexedLibrary.Create();
        const std::array<Database*, 2> both{plain.get(), indexed.get()};
        QStringList texts{QString()};
        int titles = 0;
        const auto add = [&] {
            const QString content = SomeText(random, random() % 8 == 0 ? 0 : 30);
            const bool hasContent = random() % 10 != 0;
            const QString category = QStringLiteral("c%1").arg(random() % 3);
            texts.append(content);
            ++titles;
            for (Database* database : both) {
                const auto rows = database->OpenRecordset(kForms);
                QVERIFY(rows->AddNew());
                QVERIFY(rows->SetField(QStringLiteral("Title"), QStringLiteral("T%1").arg(titles)));
                QVERIFY(rows->SetField(QStringLiteral("Category"), category));
                QVERIFY(!hasContent || (rows->SetField(kContent, content) && rows->SetField(kCopy, content)));
                QVERIFY(rows->Update());
            }
        };
        const auto write = [&] {
            const QString title = QStringLiteral("T%1").arg(1 + random() % static_cast<unsigned>(titles));
            const unsigned kind = random() % 4;
            const QVariant content = random() % 10 == 0 ? QVariant() : QVariant(SomeText(random, 30));
            if (kind == 0)
                return add();
            for (Database* database : both) {
                if (kind == 1)
                    Delete(*database, title); // some are gone already
                else
                    SetContent(*database, title, content);
            }
            if (content.isValid())
                texts.append(content.toString());
        };
        const auto compare = [&](int count) {
            for (int i = 0; i < count; ++i) {
                const QString condition = SomeCondition(random, texts, 3);
                const QString found = Titles(*indexed, condition);
                QVERIFY2(found == Titles(*plain, condition), qPrintable(condition));
                const QString onCopy = QString(condition).replace(kContent, kCopy);
                QVERIFY2(found == Titles(*plain, onCopy), qPrintable(condition));
            }
        };
        for (Database* database : both)
            QVERIFY(database->BeginTrans());
        for (int i = 0; i < 60; ++i)
            add();
        QVERIFY(indexed->IndexText(kForms, kContent));
        for (Database* database : both)
            QVERIFY(database->CommitTrans());
        compare(120);
        for (int round = 0; round < 4; ++round) {
            for (int i = 0; i < 4; ++i)
                write();
            compare(30);
            for (Database* database : both)
                QVERIFY(database->BeginTrans());
            for (int i = 0; i < 4; ++i)
                write();
            compare(10);
            for (Database* database : both)
                QVERIFY(round % 2 == 0 ? database->Rollback() : database->CommitTrans());
            compare(20);
        }
        plain->Close();
        indexed->Close();
        plain = plainLibrary.Open();
        indexed = indexedLibrary.Open();
        compare(40);
        indexed->Close();
        const Connection::Effort effort = EffortOf(indexedLibrary, Like(QStringLiteral("*deed*")));
        QVERIFY(effort.byIndex);
        QVERIFY(effort.looked < 45);
        plain->Close();
        QVERIFY(!EffortOf(plainLibrary, Like(QStringLiteral("*deed*"))).byIndex);
    }

    void WordIsAnsweredWithoutLookingAtAText_data() {
        QTest::addColumn<QString>("condition");
        QTest::addColumn<int>("looked"); // -1 for a scan
        const auto row = [](const char* name, const QString& condition, int looked) {
            QTest::newRow(name) << condition << looked;
        };
        const QString deed = Like(QStringLiteral("*deed*"));
        row("word", deed, 0);
        row("absent word", Like(QStringLiteral("*quagga*")), 0);
        row("several words", deed + QStringLiteral(" AND ") + Like(QStringLiteral("*sale*")), 0);
        row("any word", deed + QStringLiteral(" OR ") + Like(QStringLiteral("*lease*")), 0);
        row("minus term", deed + QStringLiteral(" AND Content NOT LIKE '*sale*'"), 0);
        row("lone plus", deed + QStringLiteral(" AND ") + Like(QStringLiteral("**")), 0);
        row("phrase", Like(QStringLiteral("*deed of sale*")), 1);
        row("phrase of which a word is in none", Like(QStringLiteral("*deed of trust*")), 0);
        row("wildcard", Like(QStringLiteral("*d?ed of sal*")), 1);
        row("another field", QStringLiteral("Title LIKE '*A*'"), -1);
        row("malformed pattern", deed + QStringLiteral(" AND ") + Like(QStringLiteral("*[*")), -1);
    }
    void WordIsAnsweredWithoutLookingAtAText() {
        QFETCH(QString, condition);
        QFETCH(int, looked);
        const TemporaryLibrary library;
        QVERIFY(MakeIndexed(library));
        const Connection::Effort effort = EffortOf(library, condition);
        QCOMPARE(effort.byIndex ? static_cast<int>(effort.looked) : -1, looked);
    }

    void WritesAreFoundAtOnceAndAfterOpeningAnew() {
        const TemporaryLibrary library;
        std::unique_ptr<Database> database = MakeIndexed(library);
        QVERIFY(database);
        const QString deed = Like(QStringLiteral("*deed*"));
        QCOMPARE(Titles(*database, deed), QStringLiteral("A C"));
        QVERIFY(SetContent(*database, QStringLiteral("A"), QStringLiteral("Bill of Sale")));
        QVERIFY(SetContent(*database, QStringLiteral("B"), QStringLiteral("No deed")));
        QVERIFY(Delete(*database, QStringLiteral("C")));
        QVERIFY(AddForm(*database, QStringLiteral("D"), QStringLiteral("Deed of Trust")));
        QCOMPARE(Titles(*database, deed), QStringLiteral("B D"));
        QCOMPARE(Titles(*database, QStringLiteral("NOT (%1)").arg(deed)), QStringLiteral("A"));
        database->Close();
        database = library.Open();
        QCOMPARE(Titles(*database, deed), QStringLiteral("B D"));
        database->Close();
        QCOMPARE(EffortOf(library, deed).looked,
                 std::size_t{3}); // the new row took the id of the one deleted
    }

    // a favourite marked is no new text
    void WriteOfAnotherFieldLeavesTheIndexAlone() {
        const TemporaryLibrary library;
        const auto database = MakeIndexed(library);
        const auto rows = Run(*database, QStringLiteral("SELECT * FROM Forms WHERE Title = 'A'"));
        QVERIFY(rows->Edit() && rows->SetField(QStringLiteral("Favorites"), 1) && rows->Update());
        database->Close();
        QCOMPARE(EffortOf(library, Like(QStringLiteral("*deed*"))).looked, std::size_t{0});
    }

    void WriteUndoneIsForgotten() {
        const TemporaryLibrary library;
        const auto database = MakeIndexed(library);
        const QString deed = Like(QStringLiteral("*deed*"));
        QVERIFY(database->BeginTrans());
        QVERIFY(SetContent(*database, QStringLiteral("A"), QStringLiteral("Bill of Sale")));
        QVERIFY(AddForm(*database, QStringLiteral("D"), QStringLiteral("Deed of Trust")));
        QCOMPARE(Titles(*database, deed), QStringLiteral("C D"));
        QVERIFY(database->Rollback());
        QCOMPARE(Titles(*database, deed), QStringLiteral("A C"));
        database->Close();
        QCOMPARE(EffortOf(library, deed).looked, std::size_t{0});
    }

    void IndexMadeAnewKnowsEveryRow() {
        const TemporaryLibrary library;
        const auto database = MakeIndexed(library);
        const QString deed = Like(QStringLiteral("*deed*"));
        QCOMPARE(Titles(*database, deed), QStringLiteral("A C"));
        QVERIFY(AddForm(*database, QStringLiteral("D"), QStringLiteral("Deed of Trust")));
        QVERIFY(database->IndexText(kForms, kContent));
        QCOMPARE(Titles(*database, deed), QStringLiteral("A C D"));
        QVERIFY(database->BeginTrans());
        QVERIFY(Delete(*database, QStringLiteral("A")));
        QVERIFY(database->IndexText(kForms, kContent));
        QCOMPARE(Titles(*database, deed), QStringLiteral("C D"));
        QVERIFY(database->Rollback());
        QCOMPARE(Titles(*database, deed), QStringLiteral("A C D"));
        database->Close();
        const Connection::Effort effort = EffortOf(library, deed);
        QVERIFY(effort.byIndex);
        QCOMPARE(effort.looked, std::size_t{0});
    }

    void OnlyALongTextCanHaveAnIndex() {
        const TemporaryLibrary library;
        const auto database = MakeIndexed(library);
        QVERIFY(!database->IndexText(kForms, QStringLiteral("Title")));
        QVERIFY(!database->IndexText(kForms, QStringLiteral("Nothing")));
        QVERIFY(!database->IndexText(QStringLiteral("Nothing"), kContent));
        database->Close();
        QVERIFY(!database->IndexText(kForms, kContent));
        QVERIFY(EffortOf(library, Like(QStringLiteral("*deed*"))).byIndex);
    }

    // whoever does not keep others out cannot know what they write
    void SharedOpeningScans() {
        const TemporaryLibrary library;
        QVERIFY(MakeIndexed(library));
        QVERIFY(!EffortOf(library, Like(QStringLiteral("*deed*")), false).byIndex);
    }

    // such as an earlier version of this program, which knows nothing of the index
    void AnotherProgramsWritesAreNoted() {
        const TemporaryLibrary library;
        QVERIFY(MakeIndexed(library));
        QVERIFY(RunForeign(library, "UPDATE Forms_text SET Content = 'a deed' WHERE _id = 2;"
                                    "UPDATE Forms_text SET Content = 'a bill' WHERE _id = 1;"
                                    "DELETE FROM Forms_text WHERE _id = 3"));
        const auto database = library.Open();
        const QString deed = Like(QStringLiteral("*deed*"));
        QCOMPARE(Titles(*database, deed), QStringLiteral("B"));
        QCOMPARE(Titles(*database, QStringLiteral("NOT (%1)").arg(deed)), QStringLiteral("A"));
        database->Close();
        QVERIFY(EffortOf(library, deed).byIndex);
    }

    void StaleOrDamagedIndexIsNotUsed_data() {
        QTest::addColumn<QByteArray>("sql");
        const QByteArray change = "UPDATE Forms_text SET Content = 'a deed' WHERE _id = 2;"
                                  "UPDATE Forms_text SET Content = 'a bill' WHERE _id = 3";
        const auto row = [&change](const char* name, const char* sql) {
            QTest::newRow(name) << sql + change;
        };
        for (const char* trigger : {"Forms_inserted", "Forms_deleted", "Forms_text_inserted",
                                    "Forms_text_updated", "Forms_text_deleted"})
            QTest::addRow("without %s", trigger) << "DROP TRIGGER " + QByteArray(trigger) + ";" + change;
        row("another trigger", "DROP TRIGGER Forms_text_updated; CREATE TRIGGER Forms_text_updated AFTER "
                               "UPDATE ON Forms_text BEGIN SELECT 1; END;");
        row("no index", "DROP TABLE _text_index;");
        row("index of nothing", "DELETE FROM _text_index;");
        row("damaged bytes", "UPDATE _text_index SET Bytes = substr(Bytes, 1, length(Bytes) - 1) || x'FF';");
        row("bytes are text", "UPDATE _text_index SET Bytes = 'index';");
        row("bytes are missing", "UPDATE _text_index SET Bytes = x'';");
        row("unknown field", "UPDATE _text_index SET FieldName = 'Nothing';");
        row("short field", "UPDATE _text_index SET FieldName = 'Title';");
        QTest::newRow("no list of changes") << change + ";DROP TABLE Forms_changed";
    }
    void StaleOrDamagedIndexIsNotUsed() {
        QFETCH(QByteArray, sql);
        const TemporaryLibrary library;
        QVERIFY(MakeIndexed(library));
        QVERIFY(RunForeign(library, sql));
        const QString deed = Like(QStringLiteral("*deed*"));
        QVERIFY(!EffortOf(library, deed).byIndex);
        const auto database = library.Open();
        QVERIFY(database);
        QCOMPARE(Titles(*database, deed), QStringLiteral("A B"));
        QVERIFY(database->IndexText(kForms, kContent));
        QCOMPARE(Titles(*database, deed), QStringLiteral("A B"));
        database->Close();
        QVERIFY(EffortOf(library, deed).byIndex);
    }

    void FileWithAnIndexIsOfTheSameFormat() {
        const TemporaryLibrary library;
        const auto database = MakeIndexed(library);
        QVERIFY(database);
        QVERIFY(!database->OpenRecordset(QStringLiteral("Forms_changed")));
        QVERIFY(!database->OpenRecordset(QStringLiteral("_text_index")));
        QCOMPARE(database->OpenRecordset(kForms)->RecordCount(), 3);
    }

    // a text is read from its beginning, and only as far as needed
    void NeedleIsFoundWhereverItLies_data() {
        QTest::addColumn<int>("place");
        for (const int place : {0, 1, 1980, 1990, 1995, 2000, 2001, 16'000, 16'380, 32'700, 59'990})
            QTest::addRow("%d", place) << place;
    }
    void NeedleIsFoundWhereverItLies() {
        QFETCH(int, place);
        const TemporaryLibrary library;
        const auto database = library.Create();
        QString content(60'000, u'.');
        content.replace(place, 10, QStringLiteral("bill\u00e9d Due"));
        QVERIFY(AddForm(*database, QStringLiteral("A"), content));
        QVERIFY(AddForm(*database, QStringLiteral("B"), QString(60'000, u'.')));
        QVERIFY(AddForm(*database, QStringLiteral("C"), content));
        for (const char* pattern :
             {"*bill*", "*BILL*D d*", "*l\xC3\xA9*", "*?ill?d*", "*.*bill*d*", ".*d*", "*b*d*.",
              "*bill\xC3\xA9"
              "d du*"})
            for (const bool indexed : {false, true}) {
                QVERIFY(!indexed || database->IndexText(kForms, kContent));
                const QString condition = Like(QString::fromUtf8(pattern));
                const bool matches = LikePattern::Compile(pattern)->Matches(content.toStdString());
                QVERIFY2(Titles(*database, condition) == QLatin1String(matches ? "A C" : ""), pattern);
            }
        QVERIFY(SetContent(*database, QStringLiteral("A"), QVariant()));
        QCOMPARE(Titles(*database, QStringLiteral("NOT Content LIKE '*bill*'")), QStringLiteral("B"));
        QCOMPARE(Titles(*database, Like(QStringLiteral("*bill*"))), QStringLiteral("C"));
    }

    void LongTextsFillManyPages() {
        const TemporaryLibrary library;
        const auto database = library.Create();
        Random random(3);
        QVERIFY(database->BeginTrans());
        for (int i = 0; i < 40; ++i) {
            QString content = QStringLiteral("word%1 ").arg(i);
            while (content.size() < 60'000)
                content += QString::number(random() % 5000) + u' ';
            QVERIFY(
                AddForm(*database, QStringLiteral("F%1").arg(i), content + QStringLiteral("end%1x").arg(i)));
        }
        QVERIFY(database->IndexText(kForms, kContent));
        QVERIFY(database->CommitTrans());
        QCOMPARE(Titles(*database, Like(QStringLiteral("*end17x*"))), QStringLiteral("F17"));
        QCOMPARE(Titles(*database, Like(QStringLiteral("*WORD39*"))), QStringLiteral("F39"));
    }
};

QTEST_GUILESS_MAIN(TextIndexTest)
#include "text_index_test.moc"
