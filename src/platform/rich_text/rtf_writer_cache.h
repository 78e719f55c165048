#pragma once

#include <QByteArray>
#include <QObject>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

class QTextDocument;

namespace platform {

// How a document comes to the state of a snapshot: `removed` parts from `first` on (a part is a paragraph, or
// a table with all it holds) give way to the `added` parts of the document whose source this is. At least one
// part is removed and one added.
struct RtfDifference {
    qsizetype first = 0;
    qsizetype removed = 0;
    qsizetype added = 0;
    QByteArray source;
};

// The source of a document at one moment, as pieces that it shares with other moments: many snapshots of a
// large document that differ in a paragraph or two cost little more than one.
class RtfSnapshot {
public:
    using Pieces = std::vector<QByteArray>;

    RtfSnapshot() = default;

    // The whole source.
    QByteArray Join() const;
    qsizetype Size() const { return m_size; }
    bool IsEmpty() const { return m_size == 0; }

    // Whether two snapshots have the same source; fast where they share their pieces.
    bool operator==(const RtfSnapshot& other) const;

    // What makes this state of `from`. Empty when they are the same, when they differ in more than `most`
    // parts, or in what stands around the parts.
    std::optional<RtfDifference> DifferenceFrom(const RtfSnapshot& from, qsizetype most) const;

private:
    friend class RtfWriterCache;

    QByteArray m_header;
    std::vector<std::shared_ptr<const Pieces>> m_body;
    QByteArray m_end;
    qsizetype m_size = 0;
};

// Keeps the written form of each paragraph of a document and writes anew only what changed, so that the whole
// source can be had after each keystroke. What it gives is byte for byte what WriteRtf() gives.
//
// It learns of changes by the document's contentsChange(), which needs the document to have a layout; it gets
// one when it has none. Changes made while the document's signals are blocked, and images of the document
// replaced under the same name, need Reset(). The document must outlive the calls of Snapshot().
class RtfWriterCache final : public QObject {
    Q_OBJECT

public:
    explicit RtfWriterCache(QTextDocument& document, QObject* parent = nullptr);
    ~RtfWriterCache() override;

    RtfSnapshot Snapshot();
    QByteArray Source() { return Snapshot().Join(); }

    // The first block and the number of blocks of parts of the last snapshot, while nothing changed since.
    std::pair<int, int> BlocksOfParts(qsizetype first, qsizetype count) const;

    // Writes everything anew next time.
    void Reset();

    // How many parts (paragraphs, or tables with all they hold) were written since the cache was made.
    qint64 PartsWritten() const;

private:
    void OnContentsChange(int position, int removed, int added);

    class Private;
    std::unique_ptr<Private> d;
};

} // namespace platform
