#include "platform/database/text_reader.h"

#include "platform/database/sqlite_statement.h"

#include <algorithm>
#include <cstring>

namespace platform {

void TextReader::Close() {
    m_blob.reset();
    m_isAtRow = false;
}

int TextReader::GoTo(std::string_view table, std::string_view column, std::int64_t row) {
    const bool isSameField = table == m_table && column == m_column;
    if (isSameField && m_isAtRow && row == m_row)
        return SQLITE_OK;
    if (!isSameField) {
        Close();
        m_table = table;
        m_column = column;
    }
    m_isAtRow = false;
    m_missing = false;
    m_row = row;
    m_read = 0;
    int result = Open(row);
    if (result == SQLITE_OK)
        m_size = static_cast<std::size_t>(sqlite3_blob_bytes(m_blob.get()));
    else if (m_blob.reset(); result == SQLITE_ERROR) // it is no text
        result = ReadOtherwise(row);
    m_isAtRow = result == SQLITE_OK;
    return result;
}

int TextReader::Open(std::int64_t row) {
    if (m_blob)
        return sqlite3_blob_reopen(m_blob.get(), row) & 0xFF;
    sqlite3_blob* blob = nullptr;
    const int result =
        sqlite3_blob_open(m_handle, "main", m_table.c_str(), m_column.c_str(), row, 0, &blob) & 0xFF;
    m_blob.reset(blob);
    return result;
}

// Finds out what is there in the ordinary way.
int TextReader::ReadOtherwise(std::int64_t row) {
    const QByteArray sql = "SELECT \"" + QByteArray::fromStdString(m_column) + "\" FROM \"" +
                           QByteArray::fromStdString(m_table) + "\" WHERE _id = ?";
    SqliteStatement statement(m_handle, sql);
    if (!statement || !statement.Bind(1, qint64{row}))
        return SQLITE_ERROR;
    const int step = statement.Step();
    if (step != SQLITE_ROW && step != SQLITE_DONE)
        return step & 0xFF;
    const std::optional<std::string_view> text = step == SQLITE_ROW ? statement.View(0) : std::nullopt;
    m_missing = !text;
    m_size = text ? text->size() : 0;
    m_read = m_size;
    if (m_buffer.size() < m_size)
        m_buffer.resize(m_size);
    if (m_size > 0)
        std::memcpy(m_buffer.data(), text->data(), m_size);
    return SQLITE_OK;
}

int TextReader::Read(std::size_t bytes) {
    const std::size_t end = std::min(bytes, m_size);
    if (end <= m_read)
        return SQLITE_OK;
    if (m_buffer.size() < end)
        m_buffer.resize(end);
    const int result = sqlite3_blob_read(m_blob.get(), m_buffer.data() + m_read,
                                         static_cast<int>(end - m_read), static_cast<int>(m_read));
    if (result == SQLITE_OK)
        m_read = end;
    return result;
}

} // namespace platform
