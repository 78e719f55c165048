#pragma once

#include <QByteArrayView>
#include <QString>
#include <array>
#include <memory>

namespace platform {

// Code page of a font's character set (\fcharset); 0 where the document's own holds, kSymbolCodePage for
// symbols.
int CodePageOfCharset(int charset);

// Code page that the suffix of a font's name tells ("Arial CE", "Courier New Cyr"); 0 for none.
int CodePageOfFontName(QStringView name);

constexpr int kSymbolCodePage = 42;

// Character of a symbol font's byte: Symbol and Wingdings have their real characters where there are any,
// others the private use area's U+F000 and up.
char16_t SymbolCharacter(QStringView fontName, unsigned char byte);

// Turns bytes of one code page into text. Bytes without a meaning become U+FFFD, or the control character of
// their number in code pages of one byte.
class RtfDecoder {
public:
    // The decoder of a code page, made once and kept for the program's life; of Windows 1252 for an unknown
    // one.
    static const RtfDecoder& Of(int codePage);

    explicit RtfDecoder(int codePage);
    ~RtfDecoder();
    RtfDecoder(const RtfDecoder&) = delete;
    RtfDecoder& operator=(const RtfDecoder&) = delete;

    bool IsMultiByte() const { return m_multiByte; }

    // Of a code page of one byte only.
    char16_t Character(char byte) const { return m_table[static_cast<unsigned char>(byte)]; }

    // Appends what `bytes` mean to `text`. A lead byte at the end stands alone.
    void Append(QByteArrayView bytes, QString& text) const;

private:
    void FillTable();
    void AppendMultiByte(QByteArrayView bytes, QString& text) const;

    std::array<char16_t, 256> m_table{};
    bool m_multiByte = false;
    void* m_iconv;
};

} // namespace platform
