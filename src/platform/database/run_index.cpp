#include "platform/database/run_index.h"

#include "platform/database/ascii_needle.h"

#include <algorithm>
#include <cstring>
#include <numeric>

namespace platform {

// The bytes are this head, then the rows' ids (64 bits each), the rows with text and the partial ones (a bit
// each, in whole bytes), for each run the end of its posting (32 bits) and its kind (a byte), the runs with
// "\n" around each, the commonest first, and the postings. A posting is steps, or a bit for each row.
struct Head {
    std::uint64_t checkSum = 0; // of all that follows
    std::uint32_t version = 0;
    std::uint32_t rows = 0;
    std::uint32_t runs = 0;
    std::uint32_t runBytes = 0;
    std::uint64_t postingBytes = 0;
};

constexpr std::uint32_t kVersion = 1;
constexpr std::size_t kMostBytes = 200U * 1024 * 1024;
constexpr std::size_t kSumBytes = sizeof(std::uint64_t);
constexpr std::uint64_t kSeed = 0x52554E53;

static std::size_t MapBytes(std::size_t rows) {
    return (rows + 7) / 8;
}

void RunIndexBuilder::Note(std::uint32_t run, std::uint32_t row) {
    if (run >= m_postings.size())
        m_postings.resize(run + std::size_t{1});
    Posting& posting = m_postings[run];
    if (posting.next > row)
        return;
    std::uint32_t step = row - posting.next;
    for (; step >= 0x80; step >>= 7)
        posting.steps.push_back(static_cast<char>(step | 0x80));
    posting.steps.push_back(static_cast<char>(step));
    posting.next = row + 1;
    ++posting.rows;
}

void RunIndexBuilder::Add(std::int64_t row, std::optional<std::string_view> text) {
    const auto place = static_cast<std::uint32_t>(m_rows.size());
    m_rows.push_back(row);
    if (!text)
        return;
    m_withText.push_back(place);
    if (!ForEachRun(*text, m_table, [&](std::uint32_t run) { Note(run, place); }))
        m_partial.push_back(place);
}

static void Append(QByteArray& bytes, const void* data, std::size_t size) {
    bytes.append(static_cast<const char*>(data), static_cast<qsizetype>(size));
}

static void SetBit(std::string& map, std::size_t bit) {
    map[bit / 8] = static_cast<char>(map[bit / 8] | 1 << (bit % 8));
}

static std::string MapOf(const std::vector<std::uint32_t>& rows, std::size_t all) {
    std::string map(MapBytes(all), '\0');
    for (const std::uint32_t row : rows)
        SetBit(map, row);
    return map;
}

// Calls take(row) for each row of a posting's steps. False when they are no steps or lead beyond `rows`.
template <typename Take>
static bool WalkSteps(std::string_view steps, std::size_t rows, Take take) {
    std::size_t next = 0;
    for (std::size_t i = 0; i < steps.size();) {
        std::size_t step = 0;
        for (unsigned shift = 0;; shift += 7) {
            if (i >= steps.size() || shift > 28)
                return false;
            const auto byte = static_cast<unsigned char>(steps[i++]);
            step |= static_cast<std::size_t>(byte & 0x7F) << shift;
            if (byte < 0x80)
                break;
        }
        if (step >= rows - next)
            return false;
        take(next + step);
        next += step + 1;
    }
    return true;
}

QByteArray RunIndexBuilder::Write() const {
    std::vector<std::uint32_t> order(m_postings.size());
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(), [this](std::uint32_t a, std::uint32_t b) {
        return m_postings[a].rows > m_postings[b].rows;
    });
    const std::size_t mapBytes = MapBytes(m_rows.size());
    std::string runs = "\n";
    std::string postings;
    std::vector<std::uint32_t> ends;
    std::vector<std::uint8_t> kinds;
    for (const std::uint32_t run : order) {
        runs += m_table.Run(run);
        runs += '\n';
        const Posting& posting = m_postings[run];
        const bool isMap = posting.steps.size() > mapBytes;
        if (isMap) {
            std::string map(mapBytes, '\0');
            WalkSteps(posting.steps, m_rows.size(), [&map](std::size_t row) { SetBit(map, row); });
            postings += map;
        } else {
            postings += posting.steps;
        }
        ends.push_back(static_cast<std::uint32_t>(postings.size()));
        kinds.push_back(isMap ? 1 : 0);
        if (postings.size() + runs.size() > kMostBytes)
            return {};
    }
    const Head head{.version = kVersion,
                    .rows = static_cast<std::uint32_t>(m_rows.size()),
                    .runs = static_cast<std::uint32_t>(order.size()),
                    .runBytes = static_cast<std::uint32_t>(runs.size()),
                    .postingBytes = postings.size()};
    const std::string withText = MapOf(m_withText, m_rows.size());
    const std::string partial = MapOf(m_partial, m_rows.size());
    QByteArray bytes;
    bytes.reserve(static_cast<qsizetype>(sizeof head + m_rows.size() * 9 + ends.size() * 5 + runs.size() +
                                         postings.size()));
    Append(bytes, &head, sizeof head);
    Append(bytes, m_rows.data(), m_rows.size() * sizeof m_rows[0]);
    Append(bytes, withText.data(), withText.size());
    Append(bytes, partial.data(), partial.size());
    Append(bytes, ends.data(), ends.size() * sizeof ends[0]);
    Append(bytes, kinds.data(), kinds.size());
    Append(bytes, runs.data(), runs.size());
    Append(bytes, postings.data(), postings.size());
    const std::uint64_t sum = CheckSum(
        std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())).substr(kSumBytes), kSeed);
    std::memcpy(bytes.data(), &sum, sizeof sum);
    return bytes;
}

// Takes values from the front of bytes; all fail once they are at an end.
class Cutter {
public:
    explicit Cutter(std::string_view bytes)
        : m_rest(bytes) {}
    std::optional<std::string_view> Take(std::uint64_t size) {
        if (size > m_rest.size())
            return std::nullopt;
        const std::string_view taken = m_rest.substr(0, static_cast<std::size_t>(size));
        m_rest.remove_prefix(static_cast<std::size_t>(size));
        return taken;
    }
    template <typename Value>
    bool Fill(std::vector<Value>& values, std::uint64_t count) {
        const std::optional<std::string_view> taken = Take(count * sizeof(Value));
        if (!taken)
            return false;
        values.resize(static_cast<std::size_t>(count));
        if (count > 0)
            std::memcpy(values.data(), taken->data(), taken->size());
        return true;
    }
    bool FillSet(RowSet& set, std::size_t rows) {
        const std::optional<std::string_view> map = Take(MapBytes(rows));
        if (!map)
            return false;
        set = RowSet(rows);
        set.AddBits(*map);
        return true;
    }
    bool IsAtEnd() const { return m_rest.empty(); }

private:
    std::string_view m_rest;
};

std::optional<RunIndex> RunIndex::Read(QByteArray bytes) {
    RunIndex index;
    index.m_bytes = std::move(bytes);
    const std::string_view all(index.m_bytes.constData(), static_cast<std::size_t>(index.m_bytes.size()));
    Head head;
    if (all.size() < sizeof head)
        return std::nullopt;
    std::memcpy(&head, all.data(), sizeof head);
    if (head.version != kVersion || head.checkSum != CheckSum(all.substr(kSumBytes), kSeed))
        return std::nullopt;
    Cutter cutter(all.substr(sizeof head));
    if (!cutter.Fill(index.m_rows, head.rows) || !cutter.FillSet(index.m_withText, head.rows) ||
        !cutter.FillSet(index.m_partial, head.rows) || !cutter.Fill(index.m_ends, head.runs) ||
        !cutter.Fill(index.m_isMap, head.runs))
        return std::nullopt;
    const std::optional<std::string_view> runs = cutter.Take(head.runBytes);
    const std::optional<std::string_view> postings = cutter.Take(head.postingBytes);
    if (!runs || !postings || !cutter.IsAtEnd() || runs->empty() || runs->back() != '\n')
        return std::nullopt;
    index.m_runs = *runs;
    index.m_postings = *postings;
    index.m_runStarts.reserve(head.runs);
    for (std::size_t end = runs->find('\n'); end + 1 < runs->size(); end = runs->find('\n', end + 1))
        index.m_runStarts.push_back(static_cast<std::uint32_t>(end + 1));
    const bool sound = index.m_runStarts.size() == head.runs && runs->front() == '\n' &&
                       std::is_sorted(index.m_rows.begin(), index.m_rows.end()) &&
                       std::is_sorted(index.m_ends.begin(), index.m_ends.end()) &&
                       (index.m_ends.empty() ? postings->empty() : index.m_ends.back() == postings->size());
    if (!sound)
        return std::nullopt;
    return index;
}

void RunIndex::AddPosting(std::size_t run, RowSet& rows) const {
    const std::size_t begin = run == 0 ? 0 : m_ends[run - 1];
    const std::string_view posting = m_postings.substr(begin, m_ends[run] - begin);
    if (m_isMap[run] != 0)
        rows.AddBits(posting);
    else
        WalkSteps(posting, m_rows.size(), [&rows](std::size_t row) { rows.Add(row); });
}

RowSet RunIndex::Find(const RunNeedle& needle) const {
    RowSet rows(m_rows.size());
    const AsciiNeedle finder(needle.text);
    const std::size_t most = m_withText.Count();
    std::size_t added = 0;
    FindRuns(m_runs, needle, finder, [&](std::size_t at) {
        const auto run =
            std::lower_bound(m_runStarts.begin(), m_runStarts.end(), static_cast<std::uint32_t>(at));
        AddPosting(static_cast<std::size_t>(run - m_runStarts.begin()), rows);
        // the commonest runs come first: a short needle has soon found every row
        return ++added % 16 != 0 || rows.Count() < most;
    });
    return rows;
}

} // namespace platform
