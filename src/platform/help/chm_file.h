#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

namespace platform {

// A compiled help file (CHM), read whole: the files in it by name. Sizes and counts are bounded, every place
// named in the file is looked at before it is read, and a file that does not hold together is refused.
class ChmFile {
public:
    enum class State { Closed, Missing, Damaged, Open };

    // Reads the file. `Missing` when there is no such file or it may not be read.
    State Open(const QString& path);
    State CurrentState() const { return m_state; }

    // Names of the files, as "folder/name" without a first slash; those of the format itself not among them.
    QStringList Names() const;

    // The bytes of a file; its name counts without regard to case. Null when there is none.
    QByteArray Read(const QString& name) const;

    // What the compiler noted down; empty where it did not.
    QString ContentsFile() const { return m_contentsFile; }
    QString IndexFile() const { return m_indexFile; }
    QString DefaultTopic() const { return m_defaultTopic; }
    QString Title() const { return m_title; }

private:
    struct Entry {
        QString name;
        bool isCompressed = false;
        quint64 start = 0; // bytes, in its section
        quint64 length = 0;
    };

    bool ReadDirectory();
    bool ReadListing(QByteArrayView chunk);
    bool Decompress();
    void ReadSystem();

    State m_state = State::Closed;
    QByteArray m_bytes;
    quint64 m_plainStart = 0;
    QByteArray m_plainText;         // the decompressed section
    QMap<QString, Entry> m_entries; // by the name in small letters
    QString m_contentsFile;
    QString m_indexFile;
    QString m_defaultTopic;
    QString m_title;
};

} // namespace platform
