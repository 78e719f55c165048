// Rich text as lawyers have it open, for the benchmarks.
#pragma once

#include <QByteArray>
#include <iterator>
#include <random>

inline constexpr int kBytesOfPage = 4100; // of a form's source

// Paragraphs of a form: headings, justified text with some words emphasised, items, signature lines, a table
// each few pages; until the source has `bytes` bytes.
inline QByteArray MakeSource(qsizetype bytes) {
    static const char* const kWords[] = {
        "the",    "party", "of",    "first",    "part",     "hereby",     "affiant",  "deposes",
        "states", "that",  "said",  "property", "situated", "in",         "premises", "undersigned",
        "and",    "for",   "value", "received", "contract", "stipulated", "rights",   "\\u8220?"};
    std::mt19937 random(17);
    const auto words = [&random](QByteArray& out, int count) {
        for (int i = 0; i < count; ++i)
            out.append(kWords[random() % std::size(kWords)]).append(i % 11 == 10 ? ", " : " ");
    };
    QByteArray source(
        "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\froman Times New Roman;}{\\f1\\fswiss Arial;}}\n"
        "{\\colortbl;\\red0\\green0\\blue128;}\n");
    for (int i = 0; source.size() < bytes - 600; ++i) {
        if (i % 12 == 0) {
            source.append("\\pard\\qc\\keepn\\f1\\fs28\\b ");
            words(source, 4);
            source.append("\\b0\\par\n");
        }
        if (i % 60 == 59) {
            for (int row = 0; row < 3; ++row)
                source.append("\\trowd\\trgaph108\\cellx4500\\cellx9000\\pard\\intbl\\f0\\fs24 name\\cell "
                              "date\\cell\\row\n");
        }
        if (i % 5 == 4)
            source.append("\\pard\\fi-360\\li1080\\qj{\\pntext\\u8226?\\tab}{\\*\\pn\\pnlvlblt\\pnindent360{"
                          "\\pntxtb\\u8226?}}");
        else
            source.append("\\pard\\fi720\\qj\\sa120 ");
        source.append("\\f0\\fs24 ");
        words(source, 25);
        source.append("\\i ");
        words(source, 3);
        source.append("\\i0\\cf1 ");
        words(source, 2);
        source.append("\\cf0 ");
        words(source, 30);
        source.append("\\par\n");
    }
    return source.append('}');
}
