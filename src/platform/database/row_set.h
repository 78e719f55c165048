// A set of rows by their places in a list.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace platform {

class RowSet {
public:
    RowSet() = default;
    explicit RowSet(std::size_t rows)
        : m_rows(rows)
        , m_words((rows + 63) / 64, 0) {}

    std::size_t Rows() const { return m_rows; }
    bool Has(std::size_t row) const { return (m_words[row / 64] >> (row % 64) & 1) != 0; }
    void Add(std::size_t row) { m_words[row / 64] |= std::uint64_t{1} << (row % 64); }
    void Remove(std::size_t row) { m_words[row / 64] &= ~(std::uint64_t{1} << (row % 64)); }

    // Adds the rows whose bits are set, the first row in the lowest bit of the first byte. Bits beyond the
    // rows are left out.
    void AddBits(std::string_view map) {
        for (std::size_t i = 0; i < map.size() && i / 8 < m_words.size(); ++i)
            m_words[i / 8] |= std::uint64_t{static_cast<unsigned char>(map[i])} << (i % 8 * 8);
        if (m_rows % 64 != 0)
            m_words.back() &= (std::uint64_t{1} << (m_rows % 64)) - 1;
    }

    // Each with a set over as many rows.
    RowSet& operator|=(const RowSet& other) {
        for (std::size_t i = 0; i < m_words.size(); ++i)
            m_words[i] |= other.m_words[i];
        return *this;
    }
    RowSet& operator-=(const RowSet& other) {
        for (std::size_t i = 0; i < m_words.size(); ++i)
            m_words[i] &= ~other.m_words[i];
        return *this;
    }
    RowSet& operator&=(const RowSet& other) {
        for (std::size_t i = 0; i < m_words.size(); ++i)
            m_words[i] &= other.m_words[i];
        return *this;
    }
    void AddAll() {
        for (std::uint64_t& word : m_words)
            word = ~std::uint64_t{0};
        if (m_rows % 64 != 0)
            m_words.back() &= (std::uint64_t{1} << (m_rows % 64)) - 1;
    }

    std::size_t Count() const {
        std::size_t count = 0;
        for (const std::uint64_t word : m_words)
            count += static_cast<std::size_t>(std::popcount(word));
        return count;
    }

    // Calls take(row) in ascending order.
    template <typename Take>
    void ForEach(Take take) const {
        for (std::size_t i = 0; i < m_words.size(); ++i) {
            for (std::uint64_t word = m_words[i]; word != 0; word &= word - 1)
                take(i * 64 + static_cast<std::size_t>(std::countr_zero(word)));
        }
    }

private:
    std::size_t m_rows = 0;
    std::vector<std::uint64_t> m_words;
};

} // namespace platform
