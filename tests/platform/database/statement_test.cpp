#include "platform/database/statement.h"

#include <QTest>

using platform::Condition;
using platform::Operand;
using platform::ParseStatement;

// A condition written out with all its parentheses.
static QString Shape(const Operand& operand) {
    if (operand.kind == Operand::Kind::Number)
        return QString::number(operand.number);
    return operand.kind == Operand::Kind::Text ? u'\'' + operand.text + u'\'' : operand.text;
}

static QString Shape(const Condition& condition) {
    static const QStringList signs{QStringLiteral("="),  QStringLiteral("<>"), QStringLiteral("<"),
                                   QStringLiteral("<="), QStringLiteral(">"),  QStringLiteral(">="),
                                   QStringLiteral("~")};
    if (condition.kind == Condition::Kind::Not)
        return u'!' + Shape(condition.children[0]);
    if (condition.kind == Condition::Kind::And || condition.kind == Condition::Kind::Or) {
        QStringList parts;
        for (const Condition& child : condition.children)
            parts.append(Shape(child));
        return u'(' + parts.join(condition.kind == Condition::Kind::And ? u'&' : u'|') + u')';
    }
    return Shape(condition.left) + signs[static_cast<int>(condition.kind)] + Shape(condition.right);
}

class StatementTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void ReadsConditionsByTheirPrecedence_data() {
        QTest::addColumn<QString>("where");
        QTest::addColumn<QString>("shape");
        const auto row = [](const char* where, const char* shape) {
            QTest::addRow("%s", where) << QString::fromUtf8(where) << QString::fromUtf8(shape);
        };
        row("Title = 'a'", "Title='a'");
        row("title = \"a\"", "title='a'");
        row("Favorites = 1", "Favorites=1");
        row("Favorites <> -1", "Favorites<>-1");
        row("Favorites >= 1.5", "Favorites>=1.5");
        row("a < 1 AND b <= 2 AND c > 3", "(a<1&b<=2&c>3)");
        row("Content LIKE '*deed*'", "Content~'*deed*'");
        row("Content NOT LIKE '*deed*'", "!Content~'*deed*'");
        row("a LIKE 'x' OR b LIKE 'y' AND c LIKE 'z'", "(a~'x'|(b~'y'&c~'z'))");
        row("a LIKE 'x' AND b LIKE 'y' OR c LIKE 'z'", "((a~'x'&b~'y')|c~'z')");
        row("(a LIKE 'x' OR b LIKE 'y') AND c LIKE 'z'", "((a~'x'|b~'y')&c~'z')");
        row("NOT a = 1 AND b = 2", "(!a=1&b=2)");
        row("NOT (a = 1 AND b = 2)", "!(a=1&b=2)");
        row("NOT NOT a = 1", "!!a=1");
        row("((((a = 1))))", "a=1");
        row("a='it''s'", "a='it's'");
        row("a=\"it's\"", "a='it's'");
        row("a='say \"x\"'", "a='say \"x\"'");
        row("a=\"say \"\"x\"\"\"", "a='say \"x\"'");
        row("a=''", "a=''");
        row("a=''''", "a='''");
        row("a = '-- ; /* SELECT'", "a='-- ; /* SELECT'");
        row("'a' = 'a'", "'a'='a'");
        row("1 = Favorites", "1=Favorites");
        row("[Title]='x'", "Title='x'");
        row("[and]='x'", "and='x'");
        row("\tTitle\r\n=\n'x'  ", "Title='x'");
        row("Title like 'x' oR not Title Like 'y'", "(Title~'x'|!Title~'y')");
        row("Title='a';", "Title='a'");
        row("Title='\xC3\x89'", "Title='\xC3\x89'");
    }
    void ReadsConditionsByTheirPrecedence() {
        QFETCH(QString, where);
        QFETCH(QString, shape);
        const auto statement = ParseStatement(QStringLiteral("SELECT * FROM Forms WHERE ") + where);
        QVERIFY(statement && statement->where);
        QCOMPARE(Shape(*statement->where), shape);
        QCOMPARE(statement->table, QStringLiteral("Forms"));
        QVERIFY(statement->fields.isEmpty());
    }

    void ReadsFieldLists() {
        const auto one = ParseStatement(QStringLiteral("SELECT Title FROM Forms"));
        QVERIFY(one && !one->where);
        QCOMPARE(one->fields, QStringList{QStringLiteral("Title")});
        const auto two = ParseStatement(QStringLiteral("select Title,[SubCategory] from [Forms]"));
        QVERIFY(two);
        QCOMPARE(two->fields, (QStringList{QStringLiteral("Title"), QStringLiteral("SubCategory")}));
    }

    void RefusesEverythingElse_data() {
        QTest::addColumn<QString>("statement");
        for (const char* statement : {
                 "",
                 "   ",
                 "x",
                 "SELECT",
                 "SELECT *",
                 "SELECT * FROM",
                 "SELECT FROM Forms",
                 "SELECT Title Forms",
                 "SELECT Title, FROM Forms",
                 "SELECT Title, Title FROM Forms",
                 "SELECT *, Title FROM Forms",
                 "SELECT * FROM Forms WHERE",
                 "SELECT * FROM Forms WHERE Title",
                 "SELECT * FROM Forms WHERE 1",
                 "SELECT * FROM Forms WHERE 'a'",
                 "SELECT * FROM Forms WHERE Title =",
                 "SELECT * FROM Forms WHERE Title = 'a",
                 "SELECT * FROM Forms WHERE Title = 'it's'",
                 "SELECT * FROM Forms WHERE Content LIKE '*it's*'",
                 "SELECT * FROM Forms WHERE Title = \"a",
                 "SELECT * FROM Forms WHERE Title = 'a' AND",
                 "SELECT * FROM Forms WHERE Title = 'a' 'b'",
                 "SELECT * FROM Forms WHERE AND Title = 'a'",
                 "SELECT * FROM Forms WHERE (Title = 'a'",
                 "SELECT * FROM Forms WHERE Title = 'a')",
                 "SELECT * FROM Forms WHERE ()",
                 "SELECT * FROM Forms WHERE Title = 'a' -- comment",
                 "SELECT * FROM Forms /* c */",
                 "SELECT * FROM Forms; SELECT * FROM Forms",
                 "SELECT * FROM Forms WHERE Title = 'a'; DROP TABLE Forms",
                 "SELECT * FROM Forms;;",
                 "DELETE FROM Forms",
                 "UPDATE Forms SET Title = 'a'",
                 "DROP TABLE Forms",
                 "PRAGMA key",
                 "SELECT * FROM Forms, Theme",
                 "SELECT * FROM Forms ORDER BY Title",
                 "SELECT * FROM (SELECT * FROM Forms)",
                 "SELECT count(*) FROM Forms",
                 "SELECT Title AS T FROM Forms",
                 "SELECT * FROM Forms WHERE Title = lower('A')",
                 "SELECT * FROM Forms WHERE Title = 'a' || 'b'",
                 "SELECT * FROM Forms WHERE Title GLOB 'a'",
                 "SELECT * FROM Forms WHERE Title IS NULL",
                 "SELECT * FROM Forms WHERE Title IN ('a')",
                 "SELECT * FROM Forms WHERE Title == 'a'",
                 "SELECT * FROM Forms WHERE Title != 'a'",
                 "SELECT * FROM Forms WHERE Title = ?",
                 "SELECT * FROM Forms WHERE Title = :a",
                 "SELECT * FROM Forms WHERE Title NOT = 'a'",
                 "SELECT * FROM Forms WHERE Title LIKE Category",
                 "SELECT * FROM Forms WHERE Title LIKE 5",
                 "SELECT * FROM Forms WHERE Title LIKE '[a'",
                 "SELECT * FROM Forms WHERE Title LIKE '[z-a]'",
                 "SELECT * FROM Forms WHERE Favorites = 1x",
                 "SELECT * FROM Forms WHERE Favorites = 1.2.3",
                 "SELECT * FROM Forms WHERE Favorites = 0x10",
                 "SELECT * FROM Forms WHERE Favorites = - 1",
                 "SELECT * FROM Forms WHERE Favorites = 123456789012345678901",
                 "SELECT * FROM 'Forms'",
                 "SELECT * FROM Forms WHERE Title = `a`",
                 "SELECT * FROM Forms WHERE LIKE 'a'",
                 "SELECT * FROM Forms WHERE Title = 'a' = 'b'",
                 "SELECT * FROM Forms WHERE [Title = 'a'",
                 "SELECT * FROM WHERE",
                 "SELECT SELECT FROM Forms",
             })
            QTest::addRow("%s", statement) << QString::fromUtf8(statement);
        QTest::newRow("a NUL") << QStringLiteral("SELECT * FROM Forms") + QChar(0);
        QTest::newRow("a no-break space")
            << QStringLiteral("SELECT * FROM") + QChar(0xA0) + QStringLiteral("Forms");
    }
    void RefusesEverythingElse() {
        QFETCH(QString, statement);
        QVERIFY(!ParseStatement(statement));
    }

    void LengthDepthAndConditionsAreBounded() {
        const QString start = QStringLiteral("SELECT * FROM Forms WHERE ");
        const auto nested = [&](int depth) {
            return start + QString(depth, u'(') + QStringLiteral("a=1") + QString(depth, u')');
        };
        QVERIFY(ParseStatement(nested(platform::kMaxStatementDepth)));
        QVERIFY(!ParseStatement(nested(platform::kMaxStatementDepth + 1)));
        QVERIFY(!ParseStatement(nested(30000)));
        QVERIFY(!ParseStatement(start + QStringLiteral("NOT ").repeated(10000) + QStringLiteral("a=1")));
        const auto joined = [&](int count) {
            return start + QStringLiteral("a=1 OR ").repeated(count - 1) + QStringLiteral("a=1");
        };
        QVERIFY(ParseStatement(joined(platform::kMaxStatementConditions)));
        QVERIFY(!ParseStatement(joined(platform::kMaxStatementConditions + 1)));
        const auto sized = [&](qsizetype size) {
            const QString open = start + QStringLiteral("a='");
            return open + QString(size - open.size() - 1, u'x') + u'\'';
        };
        QVERIFY(ParseStatement(sized(platform::kMaxStatementLength)));
        QVERIFY(!ParseStatement(sized(platform::kMaxStatementLength + 1)));
    }
};

QTEST_GUILESS_MAIN(StatementTest)
#include "statement_test.moc"
