#pragma once

#include <QByteArrayView>

namespace platform {

enum class RtfTokenKind {
    End,        // the source is used up
    GroupStart, // {
    GroupEnd,   // }
    Word,       // \b, \fs24: `text` is the letters
    Symbol,     // \~, \*, an escaped character or a tab: `symbol` is it
    HexByte,    // \'e9: `symbol` is the byte
    Text,       // `text` is the bytes of a run; never empty
    Binary,     // \bin with `text` the bytes that follow it
};

struct RtfToken {
    RtfTokenKind kind = RtfTokenKind::End;
    QByteArrayView text;       // points into the source
    qsizetype begin = 0;       // where the token starts in the source
    int parameter = 0;         // of a Word: its number, held to what an int can hold
    bool hasParameter = false; // of a Word: whether it carries a number
    char symbol = 0;
};

// Cuts the source of a rich text file (RTF 1.9.1, "Formal Syntax") into tokens. Never fails: what makes no
// token is left out, and a source that ends inside a token gives what there is of it. Copies nothing, so the
// source must outlive the tokenizer and its tokens.
class RtfTokenizer {
public:
    explicit RtfTokenizer(QByteArrayView source);

    // Reads the next token; false, with a token of kind End, when there is none.
    bool Next(RtfToken& token);

    // Leaves the group that is open now, its closing brace included, and returns the position behind it.
    // Binary data is stepped over by its count. The whole rest of the source when the group never ends.
    qsizetype SkipGroup();

    qsizetype Position() const { return m_next - m_begin; }
    QByteArrayView Source() const { return {m_begin, m_end}; }

private:
    bool ReadControl(RtfToken& token);
    bool ReadWord(RtfToken& token);
    bool ReadHexByte(RtfToken& token);

    const char* m_begin;
    const char* m_next;
    const char* m_end;
};

} // namespace platform
