// What the tests of the store's safety write, and what the library must hold afterwards.
#pragma once

#include <QString>
#include <map>
#include <optional>
#include <random>
#include <vector>

namespace quillbrook {
class LibraryStore;
struct PublicVariables;
} // namespace quillbrook

// The fields of a form beside its title.
struct StoredForm {
    QString category;
    QString subCategory;
    QString content;
    int favorite = 0;
    bool operator==(const StoredForm&) const = default;
};

using StoredForms = std::map<QString, StoredForm>; // by title

// All forms of an open library; empty when one of them cannot be read.
std::optional<StoredForms> ReadForms(const quillbrook::PublicVariables& variables);

// Whether searches in the texts find the very forms whose texts hold the words.
bool FindsFormsByTheirText(quillbrook::LibraryStore& store, const StoredForms& forms);

// One write of the store.
struct StoreWrite {
    enum class Kind { Add, Update, SaveText, Delete, Favorite };
    static constexpr int kKinds = 5;

    Kind kind = Kind::Add;
    QString title; // of the form as it stands
    QString newTitle;
    QString subCategory;
    unsigned content = 0; // see ContentOf
    int favorite = 0;

    // As one line without its end, and back; empty for a line that is none.
    QString ToLine() const;
    static std::optional<StoreWrite> FromLine(const QString& line);

    // Does it as the pages do. True when the store acknowledged it.
    bool Run(quillbrook::LibraryStore& store) const;

    // What it makes of the forms.
    void ApplyTo(StoredForms& forms) const;
};

QString NameOf(StoreWrite::Kind kind);

// The text that a number stands for: a different one for each, of 50 bytes to 200 KB.
QString ContentOf(unsigned number);

// A write that the forms allow. The collection of own forms is kept between some and about sixty.
StoreWrite RandomWrite(const StoredForms& forms, std::mt19937& random);
StoreWrite RandomWrite(StoreWrite::Kind kind, const StoredForms& forms, std::mt19937& random);
