#pragma once

#include <QAbstractListModel>
#include <QStringList>
#include <vector>

namespace platform {

// The entries of a ListBox or a sorted ComboBox, each with the key that orders it.
class ListModel final : public QAbstractListModel {
    Q_OBJECT

public:
    explicit ListModel(bool sorted, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

    int Insert(const QString& text); // gives the row taken
    void InsertAll(const QStringList& texts);
    void Remove(int row);
    void Replace(const QStringList& texts); // as they stand, not sorted anew
    void Clear();

    int Count() const { return int(m_entries.size()); }
    const QString& At(int row) const { return m_entries[size_t(row)].text; }
    int Find(const QString& text) const; // -1 when it is not there

private:
    struct Entry {
        QString key;
        QString text;
        bool operator<(const Entry& other) const;
    };
    Entry MakeEntry(const QString& text) const;

    bool m_sorted;
    std::vector<Entry> m_entries;
};

} // namespace platform
