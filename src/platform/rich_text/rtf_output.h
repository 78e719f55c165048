#pragma once

#include <QByteArray>
#include <QStringView>

namespace platform {

// Source of a rich text file as it grows. Puts a blank between a control word and text, where RTF 1.9.1 asks
// for a delimiter, and nowhere else.
class RtfOutput {
public:
    // A control word with its backslash and number, or several.
    void Words(QByteArrayView words);
    void Word(QByteArrayView word, int number);

    // Source that does not end with a control word: braces, groups, line ends.
    void Raw(QByteArrayView source);

    // Text of the document. All beyond ASCII is written as \uN?; in a symbol font (`inSymbols`) ASCII too, as
    // its bytes stand for other characters there. Characters that a file cannot hold are left out.
    void Text(QStringView text, bool inSymbols = false);

    // Bytes as hexadecimal digits.
    void Hex(QByteArrayView bytes);

    qsizetype Size() const { return m_size; }
    QByteArrayView View() const { return {m_buffer.constData(), m_size}; }
    // Forgets what stands at and behind `size`.
    void Truncate(qsizetype size) {
        m_size = size;
        m_afterWord = false;
    }

private:
    char* Room(qsizetype bytes);
    void Append(QByteArrayView source);

    QByteArray m_buffer; // its size is the room there is
    qsizetype m_size = 0;
    bool m_afterWord = false;
};

} // namespace platform
