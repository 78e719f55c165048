// The long texts of rows, each read from its beginning and only as far as is asked for: whatever of a text
// lies beyond is neither decrypted nor copied.
#pragma once

#include <sqlcipher/sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace platform {

class TextReader {
public:
    explicit TextReader(sqlite3* handle)
        : m_handle(handle) {}

    // Goes to the text of a row; what was read of it is kept until another row is asked for. SQLITE_OK, or
    // the engine's error.
    int GoTo(std::string_view table, std::string_view column, std::int64_t row);

    bool IsMissing() const { return m_missing; } // the row is not there, or its text is not
    std::size_t Size() const { return m_size; }  // bytes

    // Reads at least as many bytes from the beginning, or all. SQLITE_OK, or the engine's error.
    int Read(std::size_t bytes);
    std::string_view Text() const { return {m_buffer.data(), m_read}; } // as far as it was read

    // Lets go of the file. To be done at the end of every reading; a writing does not find what was kept.
    void Close();

private:
    struct CloseBlob {
        void operator()(sqlite3_blob* blob) const { sqlite3_blob_close(blob); }
    };
    int Open(std::int64_t row);
    int ReadOtherwise(std::int64_t row);

    sqlite3* m_handle;
    std::unique_ptr<sqlite3_blob, CloseBlob> m_blob;
    std::string m_table;
    std::string m_column;
    std::int64_t m_row = 0;
    bool m_isAtRow = false;
    bool m_missing = false;
    std::size_t m_size = 0;
    std::size_t m_read = 0;
    std::string m_buffer; // only ever grows, so that it is not cleared for each text
};

} // namespace platform
