#include "platform/help/chm_file.h"

#include "platform/help/lzx_decoder.h"

#include <QFile>
#include <QtEndian>
#include <bit>
#include <optional>

namespace platform {

namespace {

constexpr qint64 kLargestFile = 64 << 20;
constexpr quint64 kLargestText = 128 << 20; // decompressed
constexpr quint32 kLargestChunk = 1 << 20;
constexpr qsizetype kMostEntries = 20000;
constexpr quint64 kListingHeader = 20;

constexpr char kContentName[] = "::DataSpace/Storage/MSCompressed/Content";
constexpr char kControlName[] = "::DataSpace/Storage/MSCompressed/ControlData";
constexpr char kResetName[] = "::DataSpace/Storage/MSCompressed/Transform/"
                              "{7FC28940-9D31-11D0-9B27-00A0C91E9C7C}/InstanceData/ResetTable";

// The part of `bytes` asked for, or nothing when it does not lie within them.
std::optional<QByteArrayView> Part(QByteArrayView bytes, quint64 start, quint64 length) {
    const auto size = quint64(bytes.size());
    if (start > size || length > size - start)
        return std::nullopt;
    return bytes.sliced(qsizetype(start), qsizetype(length));
}

// A number at a place that is known to lie within the bytes.
template <typename T>
T Number(QByteArrayView bytes, qsizetype at) {
    return qFromLittleEndian<T>(bytes.data() + at);
}

// A number in groups of seven bits, the high ones first; the last group's top bit is 0.
std::optional<quint64> TakePacked(QByteArrayView& bytes) {
    quint64 value = 0;
    for (int group = 0; group < 9 && !bytes.isEmpty(); ++group) {
        const auto byte = quint8(bytes.front());
        bytes = bytes.sliced(1);
        value = (value << 7) | (byte & 0x7f);
        if ((byte & 0x80) == 0)
            return value;
    }
    return std::nullopt;
}

QString WithoutFirstSlash(const QString& name) {
    return name.startsWith(QLatin1Char('/')) ? name.mid(1) : name;
}

} // namespace

ChmFile::State ChmFile::Open(const QString& path) {
    *this = ChmFile();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        m_state = State::Missing;
        return m_state;
    }
    m_state = State::Damaged;
    if (file.size() > kLargestFile)
        return m_state;
    m_bytes = file.read(kLargestFile);
    if (ReadDirectory() && Decompress()) {
        ReadSystem();
        m_state = State::Open;
    } else {
        m_entries.clear();
    }
    m_bytes.squeeze();
    return m_state;
}

bool ChmFile::ReadDirectory() {
    const auto header = Part(m_bytes, 0, 0x60);
    if (!header || !header->startsWith("ITSF") || Number<quint32>(*header, 4) != 3)
        return false;
    const auto directory = Part(m_bytes, Number<quint64>(*header, 0x48), Number<quint64>(*header, 0x50));
    m_plainStart = Number<quint64>(*header, 0x58);
    if (!directory || directory->size() < 0x54 || !directory->startsWith("ITSP"))
        return false;
    const auto headerLength = Number<quint32>(*directory, 8);
    const auto chunkLength = Number<quint32>(*directory, 0x10);
    const auto chunks = Number<quint32>(*directory, 0x2c);
    if (chunkLength < kListingHeader || chunkLength > kLargestChunk)
        return false;
    for (quint32 i = 0; i < chunks; ++i) {
        const auto chunk = Part(*directory, headerLength + quint64(i) * chunkLength, chunkLength);
        if (!chunk)
            return false;
        if (chunk->startsWith("PMGL") && !ReadListing(*chunk))
            return false;
    }
    return !m_entries.isEmpty();
}

bool ChmFile::ReadListing(QByteArrayView chunk) {
    const quint64 unused = Number<quint32>(chunk, 4);
    if (unused > quint64(chunk.size()) - kListingHeader)
        return false;
    QByteArrayView rest = chunk.sliced(qsizetype(kListingHeader)).chopped(qsizetype(unused));
    while (!rest.isEmpty()) {
        const auto nameLength = TakePacked(rest);
        if (!nameLength || *nameLength > quint64(rest.size()))
            return false;
        Entry entry;
        entry.name = QString::fromUtf8(rest.first(qsizetype(*nameLength)));
        rest = rest.sliced(qsizetype(*nameLength));
        const auto section = TakePacked(rest);
        const auto start = TakePacked(rest);
        const auto length = TakePacked(rest);
        if (!section || !start || !length || *section > 1 || m_entries.size() >= kMostEntries)
            return false;
        entry.isCompressed = *section == 1;
        entry.start = *start;
        entry.length = *length;
        m_entries.insert(entry.name.toLower(), entry);
    }
    return true;
}

// Decodes the compressed section as a whole; help is small enough for that.
bool ChmFile::Decompress() {
    const QByteArray content = Read(QLatin1String(kContentName));
    const QByteArray control = Read(QLatin1String(kControlName));
    const QByteArray table = Read(QLatin1String(kResetName));
    if (control.size() < 24 || !control.sliced(4).startsWith("LZXC") || table.size() < 0x28)
        return false;
    const quint64 unit = Number<quint32>(control, 8) >= 2 ? LzxDecoder::kFrame : 1;
    const quint64 resetInterval = Number<quint32>(control, 12) * unit;
    const quint64 window = Number<quint32>(control, 16) * unit;
    if (window < 0x8000 || window > 0x200000 || !std::has_single_bit(window) || resetInterval == 0 ||
        resetInterval % LzxDecoder::kFrame != 0)
        return false;

    const quint64 tableStart = Number<quint32>(table, 12);
    const auto length = Number<quint64>(table, 16);
    const auto compressed = Number<quint64>(table, 24);
    if (length > kLargestText)
        return false;
    // some compilers note the end of the last frame as well
    const quint64 frames = (length + LzxDecoder::kFrame - 1) / LzxDecoder::kFrame;
    const auto starts = Part(table, tableStart, frames * 8);
    if (Number<quint32>(table, 8) != 8 || !starts || Number<quint64>(table, 32) != LzxDecoder::kFrame ||
        Number<quint32>(table, 4) < frames || compressed > quint64(content.size()))
        return false;

    LzxDecoder decoder(std::countr_zero(window));
    QByteArray run; // since the last reset
    for (quint64 i = 0; i < frames; ++i) {
        const auto start = Number<quint64>(*starts, qsizetype(i * 8));
        const auto end = i + 1 < frames ? Number<quint64>(*starts, qsizetype(i * 8 + 8)) : compressed;
        if (end < start)
            return false;
        const auto frame = Part(content, start, end - start);
        if (i * LzxDecoder::kFrame % resetInterval == 0) {
            decoder.Reset();
            m_plainText += run;
            run.clear();
        }
        if (!frame || !decoder.DecodeFrame(*frame, run))
            return false;
    }
    m_plainText += run;
    m_plainText.truncate(qsizetype(length)); // the last frame is a whole one too
    return true;
}

// A list of records: a code, a length, and that many bytes.
void ChmFile::ReadSystem() {
    const QByteArray system = Read(QStringLiteral("#SYSTEM"));
    if (system.size() < 4)
        return;
    QByteArrayView rest = QByteArrayView(system).sliced(4);
    while (rest.size() >= 4) {
        const auto code = Number<quint16>(rest, 0);
        const auto record = Part(rest, 4, Number<quint16>(rest, 2));
        if (!record)
            return;
        const QString text =
            QString::fromUtf8(record->first(qstrnlen(record->data(), size_t(record->size()))));
        if (code == 0)
            m_contentsFile = text;
        else if (code == 1)
            m_indexFile = text;
        else if (code == 2)
            m_defaultTopic = text;
        else if (code == 3)
            m_title = text;
        rest = rest.sliced(4 + record->size());
    }
}

QStringList ChmFile::Names() const {
    QStringList names;
    for (const Entry& entry : m_entries) {
        const QString name = WithoutFirstSlash(entry.name);
        const bool isOurs = !name.isEmpty() && !name.startsWith(QLatin1String("::")) &&
                            !name.startsWith(QLatin1Char('#')) && !name.startsWith(QLatin1Char('$')) &&
                            !name.startsWith(QLatin1String("_#")) && !name.endsWith(QLatin1Char('/'));
        if (isOurs)
            names.append(name);
    }
    return names;
}

QByteArray ChmFile::Read(const QString& name) const {
    auto found = m_entries.constFind(name.toLower());
    if (found == m_entries.constEnd())
        found = m_entries.constFind(QLatin1Char('/') + name.toLower());
    if (found == m_entries.constEnd())
        return {};
    const auto section =
        found->isCompressed ? std::optional<QByteArrayView>(m_plainText)
                            : Part(m_bytes, std::min(m_plainStart, quint64(m_bytes.size())),
                                   quint64(m_bytes.size()) - std::min(m_plainStart, quint64(m_bytes.size())));
    const auto bytes = section ? Part(*section, found->start, found->length) : std::nullopt;
    if (!bytes)
        return {};
    return bytes->isEmpty() ? QByteArray("") : bytes->toByteArray();
}

} // namespace platform
