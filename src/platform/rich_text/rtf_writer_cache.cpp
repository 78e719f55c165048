#include "platform/rich_text/rtf_writer_cache.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <algorithm>
#include <optional>

#include "platform/rich_text/rtf_body_writer.h"
#include "platform/rich_text/rtf_header_writer.h"

namespace platform {
namespace {

constexpr std::size_t kPartsOfChunk = 64;
constexpr std::size_t kMostPartsOfChunk = 2 * kPartsOfChunk;

// What is known of a part that not every part has.
struct Extra {
    RtfFieldSequence fields;
    RtfFieldSteps steps;
    RtfNumbers::Uses uses;
};

struct CachedPart {
    QByteArray source;
    int blocks = 0; // of the document
    bool written = false;
    bool endsSection = false;
    std::unique_ptr<Extra> extra;
};

// Neighbouring parts; snapshots share the pieces of a chunk as a whole.
struct Chunk {
    std::vector<CachedPart> parts;
    int blocks = 0;
    bool changed = true; // since `pieces` was made
    int unwritten = 0;   // parts to write, at least
    int withExtra = 0;
    int sections = 0;
    std::shared_ptr<const RtfSnapshot::Pieces> pieces;
    qsizetype size = 0;
};

} // namespace

QByteArray RtfSnapshot::Join() const {
    QByteArray source;
    source.reserve(m_size);
    source.append(m_header);
    for (const auto& pieces : m_body) {
        for (const QByteArray& piece : *pieces)
            source.append(piece);
    }
    return source.append(m_end);
}

bool RtfSnapshot::operator==(const RtfSnapshot& other) const {
    if (m_size != other.m_size || m_header != other.m_header || m_end != other.m_end)
        return false;
    return m_body == other.m_body || Join() == other.Join();
}

std::optional<RtfDifference> RtfSnapshot::DifferenceFrom(const RtfSnapshot& from, qsizetype most) const {
    if (m_header != from.m_header || m_end != from.m_end)
        return std::nullopt;
    const auto partsOf = [](const RtfSnapshot& snapshot) {
        std::vector<QByteArrayView> parts;
        for (const auto& pieces : snapshot.m_body)
            parts.insert(parts.end(), pieces->begin(), pieces->end());
        return parts;
    };
    const auto isSame = [](QByteArrayView one, QByteArrayView other) {
        return one.size() == other.size() && (one.data() == other.data() || one == other);
    };
    const std::vector<QByteArrayView> before = partsOf(from);
    const std::vector<QByteArrayView> after = partsOf(*this);
    const std::size_t fewer = std::min(before.size(), after.size());
    std::size_t first = 0;
    while (first < fewer && isSame(before[first], after[first]))
        ++first;
    std::size_t last = 0; // parts that are the same at the end
    while (last < fewer - first && isSame(before[before.size() - 1 - last], after[after.size() - 1 - last]))
        ++last;
    if (first == before.size() && first == after.size())
        return std::nullopt;
    if (first + last == fewer) { // parts only came or only went
        if (first > 0)
            --first;
        else if (last > 0)
            --last;
        else
            return std::nullopt;
    }
    RtfDifference difference;
    difference.first = static_cast<qsizetype>(first);
    difference.removed = static_cast<qsizetype>(before.size() - first - last);
    difference.added = static_cast<qsizetype>(after.size() - first - last);
    if (std::max(difference.removed, difference.added) > most)
        return std::nullopt;
    difference.source = m_header;
    for (std::size_t i = first; i < after.size() - last; ++i)
        difference.source.append(after[i]);
    difference.source.append(m_end);
    return difference;
}

class RtfWriterCache::Private {
public:
    explicit Private(QTextDocument& document)
        : m_document(document) {
        Reset();
    }

    void Reset();
    void Replace(int firstBlock, int oldBlocks, int newBlocks);
    RtfSnapshot Snapshot();
    std::pair<int, int> BlocksOfParts(qsizetype first, qsizetype count) const;

    QTextDocument& m_document;
    int m_blockCount = 0;
    int m_characters = 0;
    qint64 m_partsWritten = 0;

private:
    struct Place {
        std::size_t chunk = 0;
        std::size_t part = 0;
        int block = 0; // the part's first
    };

    Place Find(int block) const;
    CachedPart& At(const Place& place) { return m_chunks[place.chunk].parts[place.part]; }
    bool WriteChanged();
    void WritePart(CachedPart& part, const RtfPart& where);
    void PlanAll();
    std::optional<RtfNumbers::Count> CountUses() const;
    void RefreshPieces(Chunk& chunk);
    bool IsOutdated() const;

    std::vector<Chunk> m_chunks;
    std::unique_ptr<RtfBodyWriter> m_writer;
    QTextFrameFormat m_rootFormat;
    QFont m_defaultFont;
    bool m_anyFields = false;
    bool m_anyUnwritten = true;
    RtfOutput m_out;
    QByteArray m_header;
    RtfNumbers::Count m_headerCount;
    bool m_headerSections = false;
};

// All blocks become one part that is to be written, which WriteChanged() takes apart.
void RtfWriterCache::Private::Reset() {
    m_blockCount = m_document.blockCount();
    m_characters = m_document.characterCount();
    m_rootFormat = m_document.rootFrame()->frameFormat();
    m_defaultFont = m_document.defaultFont();
    m_writer = std::make_unique<RtfBodyWriter>(m_document, true);
    m_header.clear();
    m_chunks.clear();
    m_chunks.emplace_back();
    m_chunks.back().blocks = m_blockCount;
    m_chunks.back().unwritten = 1;
    m_chunks.back().parts.emplace_back();
    m_chunks.back().parts.back().blocks = m_blockCount;
    m_anyFields = false;
    m_anyUnwritten = true;
}

RtfWriterCache::Private::Place RtfWriterCache::Private::Find(int block) const {
    Place place;
    while (place.chunk + 1 < m_chunks.size() && place.block + m_chunks[place.chunk].blocks <= block)
        place.block += m_chunks[place.chunk++].blocks;
    const std::vector<CachedPart>& parts = m_chunks[place.chunk].parts;
    while (place.part + 1 < parts.size() && place.block + parts[place.part].blocks <= block)
        place.block += parts[place.part++].blocks;
    return place;
}

// The blocks from `firstBlock` on, `oldBlocks` of them, have become `newBlocks`: the parts they stood in are
// one part to be written.
void RtfWriterCache::Private::Replace(int firstBlock, int oldBlocks, int newBlocks) {
    const Place first = Find(firstBlock);
    const Place last = Find(firstBlock + std::max(oldBlocks, 1) - 1);
    const int blocks = last.block + At(last).blocks - first.block + newBlocks - oldBlocks;
    std::vector<CachedPart>& parts = m_chunks[first.chunk].parts;
    if (first.chunk == last.chunk) {
        parts.erase(parts.begin() + static_cast<std::ptrdiff_t>(first.part) + 1,
                    parts.begin() + static_cast<std::ptrdiff_t>(last.part) + 1);
    } else {
        parts.erase(parts.begin() + static_cast<std::ptrdiff_t>(first.part) + 1, parts.end());
        std::vector<CachedPart>& others = m_chunks[last.chunk].parts;
        others.erase(others.begin(), others.begin() + static_cast<std::ptrdiff_t>(last.part) + 1);
        m_chunks[last.chunk].changed = true;
    }
    CachedPart& part = parts[first.part];
    part.written = false;
    part.blocks = blocks;
    m_chunks[first.chunk].changed = true;
    ++m_chunks[first.chunk].unwritten;
    for (std::size_t i = first.chunk; i <= last.chunk; ++i) {
        m_chunks[i].blocks = 0;
        if (i > first.chunk && i < last.chunk)
            m_chunks[i].parts.clear();
        for (const CachedPart& left : m_chunks[i].parts)
            m_chunks[i].blocks += left.blocks;
    }
    m_chunks.erase(std::remove_if(m_chunks.begin(), m_chunks.end(),
                                  [](const Chunk& chunk) { return chunk.parts.empty(); }),
                   m_chunks.end());
    m_anyUnwritten = true;
    m_blockCount += newBlocks - oldBlocks;
}

void RtfWriterCache::Private::WritePart(CachedPart& part, const RtfPart& where) {
    RtfFieldSequence fields = m_writer->FieldsOf(where);
    RtfFieldSteps steps;
    if (!fields.empty()) {
        // alone for now; PlanAll() writes it again when the fields of its neighbours reach into it
        steps = PlanFields({&fields}, m_writer->FieldKeys()).front();
        m_anyFields = true;
    }
    RtfNumbers::Uses uses;
    m_out.Truncate(0);
    m_writer->Write(where, steps, m_out, uses);
    ++m_partsWritten;
    part.source = m_out.View().toByteArray();
    part.endsSection = m_writer->EndedSection();
    part.written = true;
    part.extra.reset();
    if (!fields.empty() || !uses.empty())
        part.extra = std::make_unique<Extra>(Extra{std::move(fields), std::move(steps), std::move(uses)});
}

// Takes runs of changed blocks apart into parts and writes them; false when a part does not lie within its
// run.
bool RtfWriterCache::Private::WriteChanged() {
    int chunkBlock = 0;
    for (std::size_t i = 0; i < m_chunks.size(); ++i) {
        const int blocks = m_chunks[i].blocks;
        if (m_chunks[i].unwritten == 0) {
            chunkBlock += blocks;
            continue;
        }
        std::vector<CachedPart> parts;
        int number = chunkBlock;
        for (CachedPart& old : m_chunks[i].parts) {
            const int end = number + old.blocks;
            if (old.written) {
                number = end;
                parts.push_back(std::move(old));
                continue;
            }
            for (QTextBlock block = m_document.findBlockByNumber(number); number < end;) {
                const RtfPart where = PartAt(m_document, block);
                if (where.first.blockNumber() != number)
                    return false;
                block = BlockAfter(m_document, where);
                CachedPart& part = parts.emplace_back();
                const int next = block.isValid() ? block.blockNumber() : m_document.blockCount();
                part.blocks = next - number;
                number = next;
                WritePart(part, where);
            }
            if (number != end)
                return false;
        }
        chunkBlock += blocks;
        if (parts.size() <= kMostPartsOfChunk) {
            m_chunks[i].parts = std::move(parts);
            m_chunks[i].unwritten = 0;
            continue;
        }
        std::vector<Chunk> split;
        for (CachedPart& part : parts) {
            if (split.empty() || split.back().parts.size() >= kPartsOfChunk)
                split.emplace_back();
            split.back().blocks += part.blocks;
            split.back().parts.push_back(std::move(part));
        }
        const std::size_t count = split.size();
        m_chunks[i] = std::move(split.front());
        m_chunks.insert(m_chunks.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                        std::make_move_iterator(split.begin() + 1), std::make_move_iterator(split.end()));
        i += count - 1;
    }
    m_anyUnwritten = false;
    return true;
}

// Nests the fields of the whole document; writes again what stands otherwise than it was written.
void RtfWriterCache::Private::PlanAll() {
    std::vector<const RtfFieldSequence*> sequences;
    for (const Chunk& chunk : m_chunks) {
        for (const CachedPart& part : chunk.parts)
            sequences.push_back(part.extra ? &part.extra->fields : nullptr);
    }
    std::vector<RtfFieldSteps> plan = PlanFields(sequences, m_writer->FieldKeys());
    std::size_t number = 0;
    int blockNumber = 0;
    bool any = false;
    for (Chunk& chunk : m_chunks) {
        for (CachedPart& part : chunk.parts) {
            if (part.extra && !part.extra->fields.empty()) {
                any = true;
                if (part.extra->steps != plan[number]) {
                    part.extra->steps = std::move(plan[number]);
                    const RtfPart where = PartAt(m_document, m_document.findBlockByNumber(blockNumber));
                    m_out.Truncate(0);
                    part.extra->uses.clear();
                    m_writer->Write(where, part.extra->steps, m_out, part.extra->uses);
                    ++m_partsWritten;
                    part.source = m_out.View().toByteArray();
                    chunk.changed = true;
                }
            }
            ++number;
            blockNumber += part.blocks;
        }
    }
    m_anyFields = any;
}

std::optional<RtfNumbers::Count> RtfWriterCache::Private::CountUses() const {
    std::vector<const RtfNumbers::Uses*> uses;
    for (const Chunk& chunk : m_chunks) {
        if (chunk.withExtra == 0)
            continue;
        for (const CachedPart& part : chunk.parts) {
            if (part.extra && !part.extra->uses.empty())
                uses.push_back(&part.extra->uses);
        }
    }
    return RtfNumbers::CountOf(uses);
}

void RtfWriterCache::Private::RefreshPieces(Chunk& chunk) {
    auto pieces = std::make_shared<RtfSnapshot::Pieces>();
    pieces->reserve(chunk.parts.size());
    chunk.size = 0;
    chunk.withExtra = 0;
    chunk.sections = 0;
    for (const CachedPart& part : chunk.parts) {
        pieces->push_back(part.source);
        chunk.size += part.source.size();
        chunk.withExtra += part.extra ? 1 : 0;
        chunk.sections += part.endsSection ? 1 : 0;
    }
    chunk.pieces = std::move(pieces);
    chunk.changed = false;
}

bool RtfWriterCache::Private::IsOutdated() const {
    return m_blockCount != m_document.blockCount() || m_characters != m_document.characterCount() ||
           m_rootFormat != m_document.rootFrame()->frameFormat() || m_defaultFont != m_document.defaultFont();
}

RtfSnapshot RtfWriterCache::Private::Snapshot() {
    if (IsOutdated())
        Reset();
    std::optional<RtfNumbers::Count> count;
    for (int attempt = 0; attempt < 2; ++attempt) {
        const bool changed = m_anyUnwritten;
        if (changed && !WriteChanged()) {
            Reset();
            WriteChanged();
        }
        if (changed && m_anyFields)
            PlanAll();
        for (Chunk& chunk : m_chunks) {
            if (chunk.changed)
                RefreshPieces(chunk);
        }
        count = CountUses();
        if (count)
            break;
        // fonts or colours are met in another order now: number them anew
        Reset();
    }
    RtfSnapshot snapshot;
    bool hasSections = false;
    snapshot.m_body.reserve(m_chunks.size());
    for (const Chunk& chunk : m_chunks) {
        snapshot.m_body.push_back(chunk.pieces);
        snapshot.m_size += chunk.size;
        hasSections = hasSections || chunk.sections > 0;
    }
    const RtfNumbers::Count added = count.value_or(m_writer->Numbers().All());
    if (m_header.isEmpty() || added.fonts != m_headerCount.fonts || added.colors != m_headerCount.colors ||
        hasSections != m_headerSections) {
        m_header = RtfHeader(m_document, m_writer->Numbers(), added, hasSections);
        m_headerCount = added;
        m_headerSections = hasSections;
    }
    snapshot.m_header = m_header;
    snapshot.m_end = RtfEnd(m_document, hasSections);
    snapshot.m_size += snapshot.m_header.size() + snapshot.m_end.size();
    return snapshot;
}

std::pair<int, int> RtfWriterCache::Private::BlocksOfParts(qsizetype first, qsizetype count) const {
    int before = 0;
    int blocks = 0;
    qsizetype number = 0;
    for (const Chunk& chunk : m_chunks) {
        for (const CachedPart& part : chunk.parts) {
            if (number < first)
                before += part.blocks;
            else if (number < first + count)
                blocks += part.blocks;
            ++number;
        }
    }
    return {before, blocks};
}

RtfWriterCache::RtfWriterCache(QTextDocument& document, QObject* parent)
    : QObject(parent)
    , d(std::make_unique<Private>(document)) {
    document.documentLayout(); // contentsChange() is told of documents with a layout only
    connect(&document, &QTextDocument::contentsChange, this, &RtfWriterCache::OnContentsChange);
}

RtfWriterCache::~RtfWriterCache() = default;

RtfSnapshot RtfWriterCache::Snapshot() {
    return d->Snapshot();
}

std::pair<int, int> RtfWriterCache::BlocksOfParts(qsizetype first, qsizetype count) const {
    return d->BlocksOfParts(first, count);
}

void RtfWriterCache::Reset() {
    d->Reset();
}

qint64 RtfWriterCache::PartsWritten() const {
    return d->m_partsWritten;
}

void RtfWriterCache::OnContentsChange(int position, int removed, int added) {
    const QTextDocument& document = d->m_document;
    const int known = d->m_characters;
    d->m_characters = document.characterCount();
    // a document cleared has forgotten its formats, whose numbers the writer knows
    if (position == 0 && removed >= known - 1) {
        d->Reset();
        return;
    }
    const int end = document.characterCount() - 1;
    const QTextBlock first = document.findBlock(std::clamp(position, 0, end));
    const QTextBlock last = document.findBlock(std::clamp(position + added, 0, end));
    const int newBlocks = last.blockNumber() - first.blockNumber() + 1;
    const int oldBlocks = newBlocks - (document.blockCount() - d->m_blockCount);
    if (!first.isValid() || !last.isValid() || oldBlocks < 1 ||
        first.blockNumber() + oldBlocks > d->m_blockCount) {
        d->Reset();
        return;
    }
    d->Replace(first.blockNumber(), oldBlocks, newBlocks);
}

} // namespace platform
