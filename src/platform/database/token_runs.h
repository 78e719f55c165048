// The runs of a text: its longest stretches of ASCII letters and digits, capitals made small.
//
// A needle of letters and digits lies within one run, so the texts that hold it are exactly those with a run
// that holds it.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

// A longer run, as in the bytes of a picture, is not kept; its text counts as partial.
constexpr std::size_t kMaxRunBytes = 64;

// What a needle asks of a run: to hold `text`, at its beginning or end where the needle goes on behind it
// with something that is no run.
struct RunNeedle {
    std::string text;
    bool begins = false;
    bool ends = false;
};

// Each byte of a run as kept, 0 for a byte of none.
extern const std::array<char, 256> kRunByte;

inline bool IsRunByte(char c) {
    return kRunByte[static_cast<unsigned char>(c)] != 0;
}

// Numbers different runs in the order in which they first come.
class RunTable {
public:
    RunTable();
    std::uint32_t Number(std::string_view run, std::uint32_t hash);
    std::uint32_t size() const { return static_cast<std::uint32_t>(m_entries.size()); }
    std::string_view Run(std::uint32_t number) const {
        return std::string_view(m_bytes).substr(m_entries[number].offset, m_entries[number].length);
    }

private:
    struct Entry {
        std::uint32_t offset = 0;
        std::uint32_t length = 0;
        std::uint32_t hash = 0;
    };
    void Grow();

    std::string m_bytes;
    std::vector<Entry> m_entries;
    std::vector<std::uint32_t> m_slots; // number + 1, 0 when free; a power of two of them
};

// Calls take(number) for every run of the text, repeats included. Whether all runs were kept.
template <typename Take>
bool ForEachRun(std::string_view text, RunTable& table, Take take) {
    std::array<char, kMaxRunBytes> run;
    bool whole = true;
    const char* p = text.data();
    const char* const end = p + text.size();
    while (p < end) {
        if (!IsRunByte(*p)) {
            ++p;
            continue;
        }
        std::size_t length = 0;
        std::uint32_t hash = 2166136261U;
        char c = 0;
        for (; p < end && (c = kRunByte[static_cast<unsigned char>(*p)]) != 0; ++p, ++length) {
            if (length < run.size())
                run[length] = c;
            hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
        }
        if (length > run.size())
            whole = false;
        else
            take(table.Number({run.data(), length}, hash));
    }
    return whole;
}

// Calls take(offset of the run's first byte) for each run of `runs` that the needle asks for, once each,
// until take gives false. `runs` has "\n" before, between and behind them; `finder` looks for the needle's
// text.
template <typename Finder, typename Take>
void FindRuns(std::string_view runs, const RunNeedle& needle, const Finder& finder, Take take) {
    std::size_t from = 0;
    while (from < runs.size()) {
        const std::size_t found = finder.Find(runs.substr(from));
        if (found == std::string_view::npos)
            return;
        const std::size_t at = from + found;
        const std::size_t behind = at + needle.text.size();
        const bool begins = runs[at - 1] == '\n';
        const bool ends = runs[behind] == '\n';
        if ((needle.begins && !begins) || (needle.ends && !ends)) {
            from = at + 1;
            continue;
        }
        if (!take(begins ? at : runs.rfind('\n', at) + 1))
            return;
        from = runs.find('\n', behind);
    }
}

// A check sum of bytes; `seed` tells apart what must not be taken for one another.
std::uint64_t CheckSum(std::string_view bytes, std::uint64_t seed);

} // namespace platform
