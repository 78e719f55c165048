// Which of many texts hold a run: the different runs of all texts, and for each the texts it stands in.
#pragma once

#include "platform/database/row_set.h"
#include "platform/database/token_runs.h"

#include <QByteArray>
#include <optional>

namespace platform {

class RunIndexBuilder {
public:
    // Rows come in ascending order; a row without text has none.
    void Add(std::int64_t row, std::optional<std::string_view> text);

    // The whole index as bytes; empty when it is too large to be kept.
    QByteArray Write() const;

private:
    struct Posting {
        std::uint32_t rows = 0;
        std::uint32_t next = 0; // the first row that may follow
        std::string steps;      // from one row to the next, seven bits a byte, lowest first
    };
    void Note(std::uint32_t run, std::uint32_t row);

    RunTable m_table;
    std::vector<Posting> m_postings;
    std::vector<std::int64_t> m_rows;
    std::vector<std::uint32_t> m_withText;
    std::vector<std::uint32_t> m_partial;
};

class RunIndex {
public:
    // Empty when the bytes are not a whole index of this version.
    static std::optional<RunIndex> Read(QByteArray bytes);

    const std::vector<std::int64_t>& Rows() const { return m_rows; } // ascending
    const RowSet& WithText() const { return m_withText; }
    const RowSet& Partial() const { return m_partial; } // not all of the text's runs were kept

    // The rows that have a run the needle asks for, among the runs that were kept.
    RowSet Find(const RunNeedle& needle) const;

private:
    void AddPosting(std::size_t run, RowSet& rows) const;

    QByteArray m_bytes;
    std::vector<std::int64_t> m_rows;
    RowSet m_withText;
    RowSet m_partial;
    std::vector<std::uint32_t> m_runStarts; // within m_runs
    std::vector<std::uint32_t> m_ends;      // of the postings
    std::vector<std::uint8_t> m_isMap;      // 1 for a posting with a bit for each row
    std::string_view m_runs;
    std::string_view m_postings;
};

} // namespace platform
