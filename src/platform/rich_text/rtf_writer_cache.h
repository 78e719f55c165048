#pragma once

#include <QByteArray>
#include <QObject>
#include <memory>
#include <vector>

class QTextDocument;

namespace platform {

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
