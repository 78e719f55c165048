#include "tests/support/store_workload.h"

#include "library/library_store.h"

#include <QStringList>

using quillbrook::LibraryStore;

static const QString kOwn = QStringLiteral("My Forms");

std::optional<StoredForms> ReadForms(const quillbrook::PublicVariables& variables) {
    if (!variables.FormsDb)
        return std::nullopt;
    const auto rows = variables.FormsDb->OpenRecordset(QStringLiteral("Forms"));
    if (!rows)
        return std::nullopt;
    StoredForms forms;
    for (bool there = rows->MoveFirst(); there; there = rows->MoveNext()) {
        const auto title = rows->Field(QStringLiteral("Title"));
        const auto category = rows->Field(QStringLiteral("Category"));
        const auto subCategory = rows->Field(QStringLiteral("SubCategory"));
        const auto content = rows->Field(QStringLiteral("Content"));
        const auto favorite = rows->Field(QStringLiteral("Favorites"));
        if (!title || !category || !subCategory || !content || !favorite)
            return std::nullopt;
        forms[title->toString()] = {category->toString(), subCategory->toString(), content->toString(),
                                    favorite->toInt()};
    }
    return forms;
}

bool FindsFormsByTheirText(LibraryStore& store, const StoredForms& forms) {
    for (const QString& words : {QStringLiteral("rtf1"), QStringLiteral("No. 1"), QStringLiteral("77"),
                                 QStringLiteral("before me"), QStringLiteral("pi\u00F1a")}) {
        QStringList wanted;
        for (const auto& [title, form] : forms) {
            if (form.content.contains(words, Qt::CaseInsensitive))
                wanted.append(title);
        }
        QStringList found =
            store.SearchForms(u"SELECT * FROM Forms WHERE Content LIKE '*"_qs + words + u"*'"_qs);
        found.sort();
        wanted.sort();
        if (found != wanted)
            return false;
    }
    return true;
}

QString NameOf(StoreWrite::Kind kind) {
    static const QStringList names{QStringLiteral("add"), QStringLiteral("update"),
                                   QStringLiteral("save text"), QStringLiteral("delete"),
                                   QStringLiteral("favorite")};
    return names[int(kind)];
}

QString StoreWrite::ToLine() const {
    return QStringList{
        NameOf(kind), title, newTitle, subCategory, QString::number(content), QString::number(favorite)}
        .join(u'\t');
}

std::optional<StoreWrite> StoreWrite::FromLine(const QString& line) {
    const QStringList parts = line.split(u'\t');
    if (parts.size() != 6)
        return std::nullopt;
    for (int kind = 0; kind < kKinds; ++kind) {
        if (NameOf(Kind(kind)) == parts[0])
            return StoreWrite{Kind(kind), parts[1], parts[2], parts[3], parts[4].toUInt(), parts[5].toInt()};
    }
    return std::nullopt;
}

bool StoreWrite::Run(LibraryStore& store) const {
    if (kind == Kind::Favorite)
        return store.SetFavorite(title, favorite);
    const bool found = store.FindMyFormByTitle(title);
    store.CloseMyFormsQuery();
    if (found == (kind == Kind::Add))
        return false;
    switch (kind) {
    case Kind::Add:
        return store.AddMyForm(title, subCategory, ContentOf(content));
    case Kind::Update:
        return store.UpdateMyForm(newTitle, subCategory, ContentOf(content));
    case Kind::SaveText:
        return store.SaveMyFormText(newTitle, ContentOf(content));
    default:
        return store.DeleteMyForm();
    }
}

void StoreWrite::ApplyTo(StoredForms& forms) const {
    switch (kind) {
    case Kind::Add:
        forms[title] = {kOwn, subCategory, ContentOf(content), 0};
        break;
    case Kind::Update:
    case Kind::SaveText: {
        StoredForm form = forms[title];
        forms.erase(title);
        form.content = ContentOf(content);
        if (kind == Kind::Update)
            form.subCategory = subCategory;
        forms[newTitle] = form;
        break;
    }
    case Kind::Delete:
        forms.erase(title);
        break;
    case Kind::Favorite:
        forms[title].favorite = favorite;
        break;
    }
}

QString ContentOf(unsigned number) {
    std::mt19937 random(number);
    const unsigned most = std::array{500u, 5000u, 30000u, 200000u}[random() % 4];
    const qsizetype size = 50 + qsizetype(random() % most);
    const QString piece = QStringLiteral("{\\rtf1 No. %1, pi\u00F1a} ").arg(number);
    return piece.repeated(size / piece.size() + 1);
}

static QString NewTitle(const StoredForms& forms, std::mt19937& random) {
    QString title;
    do
        title = QStringLiteral("Own Form \u00D1 %1").arg(random() % 1000000);
    while (forms.contains(title));
    return title;
}

static QString SubCategory(std::mt19937& random) {
    return QStringLiteral("Sub-Category %1").arg(random() % 8);
}

StoreWrite RandomWrite(StoreWrite::Kind kind, const StoredForms& forms, std::mt19937& random) {
    using Kind = StoreWrite::Kind;
    QStringList titles;
    for (const auto& [title, form] : forms) {
        // a title with an apostrophe is found by no statement
        if ((kind == Kind::Favorite && !title.contains(u'\'')) || form.category == kOwn)
            titles.append(title);
    }
    if (kind != Kind::Add && titles.isEmpty())
        kind = Kind::Add;
    StoreWrite write{.kind = kind,
                     .title = {},
                     .newTitle = {},
                     .subCategory = SubCategory(random),
                     .content = unsigned(random() % 1000000)};
    write.title = kind == Kind::Add ? NewTitle(forms, random)
                                    : titles[qsizetype(random() % std::size_t(titles.size()))];
    write.newTitle = random() % 2 == 0 ? write.title : NewTitle(forms, random);
    write.favorite = kind == Kind::Favorite && forms.at(write.title).favorite == 0 ? 1 : 0;
    return write;
}

StoreWrite RandomWrite(const StoredForms& forms, std::mt19937& random) {
    auto kind = StoreWrite::Kind(random() % StoreWrite::kKinds);
    if (kind == StoreWrite::Kind::Add && forms.size() > 60)
        kind = StoreWrite::Kind::Delete;
    if (kind == StoreWrite::Kind::Delete && forms.size() < 20)
        kind = StoreWrite::Kind::Add;
    return RandomWrite(kind, forms, random);
}
