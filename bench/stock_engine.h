// The ordinary engine of the system, as another program would use it: a file that is not encrypted, searched
// with its own LIKE. Its library is loaded apart, since the program itself holds one of the same names.
#pragma once

#include <dlfcn.h>
#include <string>

namespace quillbrook::bench {

class StockEngine {
public:
    StockEngine()
        : m_library(dlopen("libsqlite3.so.0", RTLD_NOW | RTLD_LOCAL | RTLD_DEEPBIND)) {
        Find(m_open, "sqlite3_open");
        Find(m_close, "sqlite3_close");
        Find(m_exec, "sqlite3_exec");
        Find(m_prepare, "sqlite3_prepare_v2");
        Find(m_step, "sqlite3_step");
        Find(m_finalize, "sqlite3_finalize");
        Find(m_reset, "sqlite3_reset");
        Find(m_bind, "sqlite3_bind_text");
        Find(m_text, "sqlite3_column_text");
        Find(m_version, "sqlite3_libversion");
    }
    ~StockEngine() {
        if (m_insert != nullptr)
            m_finalize(m_insert);
        if (m_handle != nullptr)
            m_close(m_handle);
    }
    StockEngine(const StockEngine&) = delete;
    StockEngine& operator=(const StockEngine&) = delete;

    bool IsThere() const { return m_found == 10; }
    std::string Version() const { return m_version(); }

    // Makes or opens the file, and holds all of it in memory once read.
    bool Open(const std::string& path) {
        return m_open(path.c_str(), &m_handle) == 0 && Run("PRAGMA cache_size = -4000000");
    }
    bool Run(const char* sql) { return m_exec(m_handle, sql, nullptr, nullptr, nullptr) == 0; }

    // Adds a row of two texts to the table Forms.
    bool Add(const std::string& title, const std::string& content) {
        if (m_insert == nullptr &&
            m_prepare(m_handle, "INSERT INTO Forms VALUES (?, ?)", -1, &m_insert, nullptr) != 0)
            return false;
        m_bind(m_insert, 1, title.c_str(), static_cast<int>(title.size()), nullptr);
        m_bind(m_insert, 2, content.c_str(), static_cast<int>(content.size()), nullptr);
        const bool added = m_step(m_insert) == kDone;
        m_reset(m_insert);
        return added;
    }

    // The number of rows, each read; -1 when it fails.
    int Count(const std::string& sql) {
        void* statement = nullptr;
        if (m_prepare(m_handle, sql.c_str(), -1, &statement, nullptr) != 0)
            return -1;
        int rows = 0;
        while (m_step(statement) == kRow && m_text(statement, 0) != nullptr)
            ++rows;
        m_finalize(statement);
        return rows;
    }

private:
    static constexpr int kRow = 100;
    static constexpr int kDone = 101;

    template <typename Function>
    void Find(Function& function, const char* name) {
        if (m_library != nullptr)
            function = reinterpret_cast<Function>(dlsym(m_library, name));
        m_found += function != nullptr;
    }

    void* m_library;
    int m_found = 0;
    void* m_handle = nullptr;
    void* m_insert = nullptr;
    int (*m_open)(const char*, void**) = nullptr;
    int (*m_close)(void*) = nullptr;
    int (*m_exec)(void*, const char*, void*, void*, void*) = nullptr;
    int (*m_prepare)(void*, const char*, int, void**, const char**) = nullptr;
    int (*m_step)(void*) = nullptr;
    int (*m_finalize)(void*) = nullptr;
    int (*m_reset)(void*) = nullptr;
    int (*m_bind)(void*, int, const char*, int, void (*)(void*)) = nullptr;
    const unsigned char* (*m_text)(void*, int) = nullptr;
    const char* (*m_version)() = nullptr;
};

} // namespace quillbrook::bench
