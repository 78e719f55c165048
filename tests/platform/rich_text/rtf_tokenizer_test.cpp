#include "platform/rich_text/rtf_tokenizer.h"

#include <QTest>

using namespace platform;

namespace {

// Tokens in a readable form: "{", "}", "w:name", "w:name=number", "s:symbol", "x:hex", "t:text", "d:bytes".
QByteArray Tokens(QByteArrayView source) {
    RtfTokenizer tokenizer(source);
    RtfToken token;
    QByteArrayList list;
    while (tokenizer.Next(token)) {
        switch (token.kind) {
        case RtfTokenKind::GroupStart:
            list.append("{");
            break;
        case RtfTokenKind::GroupEnd:
            list.append("}");
            break;
        case RtfTokenKind::Word:
            list.append("w:" + token.text.toByteArray() +
                        (token.hasParameter ? "=" + QByteArray::number(token.parameter) : QByteArray()));
            break;
        case RtfTokenKind::Symbol:
            list.append("s:" + (token.symbol == '\n' ? QByteArray("LF") : QByteArray(1, token.symbol)));
            break;
        case RtfTokenKind::HexByte:
            list.append("x:" + QByteArray(1, token.symbol).toHex());
            break;
        case RtfTokenKind::Text:
            list.append("t:" + token.text.toByteArray());
            break;
        case RtfTokenKind::Binary:
            list.append("d:" + token.text.toByteArray());
            break;
        case RtfTokenKind::End:
            break;
        }
    }
    return list.join(' ');
}

} // namespace

class RtfTokenizerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void CutsSourceIntoTokens_data() {
        QTest::addColumn<QByteArray>("source");
        QTest::addColumn<QByteArray>("tokens");
        const auto row = [](const char* name, const QByteArray& source, const QByteArray& tokens) {
            QTest::newRow(name) << source << tokens;
        };
        row("nothing", "", "");
        row("group", "{a}", "{ t:a }");
        row("a word takes one blank", "\\b  x", "w:b t: x");
        row("a number ends at the first other character", "\\fs24a", "w:fs=24 t:a");
        row("negative number", "\\li-360 x", "w:li=-360 t:x");
        row("minus without digits", "\\li- x", "w:li t:x");
        row("number beyond an int", "\\u99999999999999999999 x", "w:u=2147483647 t:x");
        row("negative number beyond an int", "\\u-99999999999999999999 x", "w:u=-2147483647 t:x");
        row("line ends stand for nothing", "a\r\nb\nc", "t:a t:b t:c");
        row("an escaped line end is one symbol", "a\\\r\nb\\\nc", "t:a s:LF t:b s:LF t:c");
        row("escaped braces", "\\{\\}\\\\", "s:{ s:} s:\\");
        row("hexadecimal byte", "\\'e9\\'E9x", "x:e9 x:e9 t:x");
        row("hexadecimal byte of one digit", "\\'ez", "x:0e t:z");
        row("hexadecimal byte of none", "\\'zz", "t:zz");
        row("optional group", "{\\*\\foo}", "{ s:* w:foo }");
        row("a tab is a symbol", "a\tb", "t:a s:\t t:b");
        row("control characters stand for nothing",
            QByteArray("a\0b\x01"
                       "c",
                       5),
            "t:a t:b t:c");
        row("binary data by its count", "\\bin3 {}\\x", "d:{}\\ t:x");
        row("binary data cut short", "\\bin9 abc", "d:abc");
        row("binary data of a negative count", "\\bin-3 abc", "d: t:abc");
        row("a backslash at the end", "a\\", "t:a");
        row("a byte cut short", "a\\'", "t:a");
        row("bytes beyond ASCII are text", "\xE9", "t:\xE9");
    }
    void CutsSourceIntoTokens() {
        QFETCH(QByteArray, source);
        QFETCH(QByteArray, tokens);
        QCOMPARE(Tokens(source), tokens);
    }

    void SkippingAGroupEndsBehindItsBrace_data() {
        QTest::addColumn<QByteArray>("source");
        QTest::addColumn<QByteArray>("rest");
        QTest::newRow("plain") << QByteArray("{a}b") << QByteArray("t:b");
        QTest::newRow("nested") << QByteArray("{a{b}{c{d}}}e") << QByteArray("t:e");
        QTest::newRow("escaped brace") << QByteArray("{a\\}b}c") << QByteArray("t:c");
        QTest::newRow("brace in binary data") << QByteArray("{\\bin2 }}x}c") << QByteArray("t:c");
        QTest::newRow("never ended") << QByteArray("{a{b}c") << QByteArray("");
    }
    void SkippingAGroupEndsBehindItsBrace() {
        QFETCH(QByteArray, source);
        QFETCH(QByteArray, rest);
        RtfTokenizer tokenizer(source);
        RtfToken token;
        QVERIFY(tokenizer.Next(token));
        const qsizetype end = tokenizer.SkipGroup();
        QCOMPARE(Tokens(QByteArrayView(source).sliced(end)), rest);
    }
};

QTEST_GUILESS_MAIN(RtfTokenizerTest)
#include "rtf_tokenizer_test.moc"
