// Forms to search in: formatted text of about 20 KB each, the same for the same number. Words come as often
// as in running text. A few are put in by plan:
//
//   "the"                   in every form
//   "zyzzyva"               in one of a hundred
//   "quagga"                in none
//   "tolling of the bell"   in one of fifty, "tolling" and "bell" by themselves in one of twenty
#pragma once

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace quillbrook::bench {

class FormMaker {
public:
    static constexpr std::size_t kBytes = 20'000;

    FormMaker() {
        m_words = {"the",  "of",    "and",      "to",   "in",   "party",
                   "said", "shall", "contract", "deed", "sale", "lease"};
        std::mt19937 random(7);
        while (m_words.size() < 8000) {
            std::string word;
            for (auto syllables = 1 + random() % 4; syllables > 0; --syllables) {
                word += "bcdfghlmnprstv"[random() % 14];
                word += "aeiou"[random() % 5];
                if (random() % 3 == 0)
                    word += "nrst"[random() % 4];
            }
            m_words.push_back(std::move(word));
        }
        double sum = 0;
        for (std::size_t i = 0; i < m_words.size(); ++i)
            m_sums.push_back(sum += 1.0 / static_cast<double>(i + 3));
    }

    static std::string Title(int form) { return "Form of Something or Other, No. " + std::to_string(form); }

    std::string Content(int form) const {
        std::mt19937 random(static_cast<unsigned>(form) + 1);
        std::uniform_real_distribution<double> place(0, m_sums.back());
        std::string text =
            "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Times New Roman;}}\\pard\\qj\\fi720\\f0\\fs24 The ";
        bool planned = false;
        while (text.size() < kBytes) {
            const auto word = std::lower_bound(m_sums.begin(), m_sums.end(), place(random)) - m_sums.begin();
            const bool bold = random() % 60 == 0;
            if (bold)
                text += "{\\b ";
            text += m_words[static_cast<std::size_t>(word)];
            text += bold ? "} " : random() % 40 == 0 ? ".\\par\r\n" : " ";
            if (!planned && text.size() > kBytes / 2) {
                planned = true;
                text += form % 100 == 0 ? "Zyzzyva " : "";
                text += form % 50 == 3 ? "tolling of the bell " : "";
                text += form % 20 == 7 ? "bell, then, tolling " : "";
            }
        }
        return text + "\\par}";
    }

private:
    std::vector<std::string> m_words;
    std::vector<double> m_sums; // of the words' weights, up to each
};

} // namespace quillbrook::bench
