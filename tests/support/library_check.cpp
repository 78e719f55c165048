#include "tests/support/library_check.h"

#include "library/library_format.h"
#include "platform/database/engine_functions.h"
#include "platform/database/sqlite_statement.h"

#include <QFile>
#include <QtEndian>
#include <algorithm>
#include <array>
#include <openssl/evp.h>
#include <openssl/hmac.h>

using platform::SqliteStatement;

// The third version of the encryption: AES-256 with an initial vector and a code of HMAC-SHA1 behind each
// page.
constexpr qsizetype kPageSize = 16384;
constexpr qsizetype kReserved = 48; // vector and code, filled up to whole cipher blocks
constexpr qsizetype kVector = 16;
constexpr qsizetype kCode = 20;
constexpr qsizetype kSalt = 16; // of the key, at the start of the file in the clear
constexpr int kKeyBytes = 32;
constexpr int kKeyRounds = 64000;
constexpr int kCodeKeyRounds = 2;
constexpr char kCodeSaltMask = 0x3A;

static QByteArray Derive(const QByteArray& secret, const QByteArray& salt, int rounds) {
    QByteArray key(kKeyBytes, '\0');
    PKCS5_PBKDF2_HMAC_SHA1(secret.constData(), int(secret.size()),
                           reinterpret_cast<const unsigned char*>(salt.constData()), int(salt.size()), rounds,
                           kKeyBytes, reinterpret_cast<unsigned char*>(key.data()));
    return key;
}

// Slow by intention, so done once for each salt.
static QByteArray KeyOf(const QByteArray& salt) {
    static std::map<QByteArray, QByteArray> known;
    const auto [place, isNew] = known.try_emplace(salt);
    if (isNew)
        place->second = Derive(quillbrook::BuildLibraryPassword().toUtf8(), salt, kKeyRounds);
    return place->second;
}

static QStringList ProblemsOfPages(const QByteArray& bytes) {
    if (bytes.isEmpty() || bytes.size() % kPageSize != 0)
        return {QStringLiteral("a length of %1 bytes").arg(bytes.size())};
    const QByteArray salt = bytes.left(kSalt);
    QByteArray codeSalt = salt;
    for (char& c : codeSalt)
        c = char(c ^ kCodeSaltMask);
    const QByteArray codeKey = Derive(KeyOf(salt), codeSalt, kCodeKeyRounds);
    QStringList problems;
    for (qsizetype page = 0; page < bytes.size() / kPageSize; ++page) {
        const QByteArray whole = bytes.mid(page * kPageSize, kPageSize);
        // a page that was given out and never written is a gap of zeros
        if (std::all_of(whole.begin(), whole.end(), [](char c) { return c == 0; }))
            continue;
        const qsizetype from = page == 0 ? kSalt : 0;
        const qsizetype end = kPageSize - kReserved + kVector;
        QByteArray told = whole.mid(from, end - from);
        const quint32 number = qToLittleEndian(quint32(page + 1));
        told.append(reinterpret_cast<const char*>(&number), sizeof number);
        std::array<unsigned char, EVP_MAX_MD_SIZE> code{};
        unsigned length = 0;
        HMAC(EVP_sha1(), codeKey.constData(), kKeyBytes,
             reinterpret_cast<const unsigned char*>(told.constData()), std::size_t(told.size()), code.data(),
             &length);
        if (whole.mid(end, kCode) != QByteArray(reinterpret_cast<const char*>(code.data()), int(length)))
            problems.append(QStringLiteral("the code of page %1").arg(page + 1));
    }
    return problems;
}

static QStringList RowsOf(sqlite3* handle, const QByteArray& sql) {
    SqliteStatement statement(handle, sql);
    if (!statement)
        return {QString::fromUtf8(sql) + u' ' + QString::fromUtf8(sqlite3_errmsg(handle))};
    QStringList rows;
    int step = statement.Step();
    for (; step == SQLITE_ROW; step = statement.Step())
        rows.append(statement.Text(0));
    if (step != SQLITE_DONE)
        rows.append(QString::fromUtf8(sql) + QStringLiteral(" ended with %1").arg(step));
    return rows;
}

static QStringList ProblemsOfEngine(sqlite3* handle, StoredForms& forms) {
    QStringList problems = RowsOf(handle, "PRAGMA integrity_check");
    problems.removeOne(QStringLiteral("ok"));
    problems += RowsOf(handle, "PRAGMA foreign_key_check");
    // a form is whole when its text is there, and no text is without its form
    problems += RowsOf(handle, "SELECT 'no text: ' || Title FROM Forms WHERE _id NOT IN (SELECT _id FROM "
                               "Forms_text) UNION ALL SELECT 'no form: ' || _id FROM Forms_text WHERE _id "
                               "NOT IN (SELECT _id FROM Forms)");
    SqliteStatement rows(handle, "SELECT t.Title, t.Category, t.SubCategory, x.Content, t.Favorites "
                                 "FROM Forms t JOIN Forms_text x USING (_id)");
    while (rows && rows.Step() == SQLITE_ROW)
        forms[rows.Text(0)] = {rows.Text(1), rows.Text(2), rows.Text(3), int(rows.Integer(4))};
    return problems;
}

static QByteArray BytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

CheckedLibrary CheckLibrary(const QString& path) {
    CheckedLibrary checked;
    const QByteArray salt = BytesOf(path).left(kSalt);
    sqlite3* handle = nullptr;
    const bool opened =
        sqlite3_open_v2(QFile::encodeName(path).constData(), &handle, SQLITE_OPEN_READWRITE, nullptr) ==
            SQLITE_OK &&
        platform::RunSql(handle, "PRAGMA key = \"x'" + KeyOf(salt).toHex() + salt.toHex() +
                                     "'\"; PRAGMA cipher_compatibility = 3; PRAGMA cipher_page_size = " +
                                     QByteArray::number(int(kPageSize))) &&
        platform::RegisterFunctions(handle);
    if (opened)
        checked.problems = ProblemsOfEngine(handle, checked.forms);
    else
        checked.problems = {QStringLiteral("not to be opened")};
    sqlite3_close_v2(handle);
    checked.problems += ProblemsOfPages(BytesOf(path));
    return checked;
}
