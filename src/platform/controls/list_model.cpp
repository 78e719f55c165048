#include "platform/controls/list_model.h"

#include "platform/controls/list_box.h"

#include <algorithm>

namespace platform {

QString AlphabeticalKey(const QString& text) {
    QString key;
    key.reserve(text.size());
    const QString plain = text.normalized(QString::NormalizationForm_KD);
    for (const QChar c : plain)
        if (c.category() != QChar::Mark_NonSpacing)
            key.append(c.toLower());
    return key;
}

bool ListModel::Entry::operator<(const Entry& other) const {
    const int order = key.compare(other.key);
    return order != 0 ? order < 0 : text < other.text;
}

ListModel::ListModel(bool sorted, QObject* parent)
    : QAbstractListModel(parent)
    , m_sorted(sorted) {}

int ListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : Count();
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= Count())
        return {};
    if (role == Qt::DisplayRole || role == Qt::EditRole || role == Qt::AccessibleTextRole)
        return At(index.row());
    return {};
}

ListModel::Entry ListModel::MakeEntry(const QString& text) const {
    return {m_sorted ? AlphabeticalKey(text) : QString(), text};
}

int ListModel::Insert(const QString& text) {
    Entry entry = MakeEntry(text);
    const auto place =
        m_sorted ? std::upper_bound(m_entries.begin(), m_entries.end(), entry) : m_entries.end();
    const int row = int(place - m_entries.begin());
    beginInsertRows({}, row, row);
    m_entries.insert(place, std::move(entry));
    endInsertRows();
    return row;
}

void ListModel::InsertAll(const QStringList& texts) {
    if (texts.isEmpty())
        return;
    beginResetModel();
    for (const QString& text : texts)
        m_entries.push_back(MakeEntry(text));
    if (m_sorted)
        std::stable_sort(m_entries.begin(), m_entries.end());
    endResetModel();
}

void ListModel::Remove(int row) {
    if (row < 0 || row >= Count())
        return;
    beginRemoveRows({}, row, row);
    m_entries.erase(m_entries.begin() + row);
    endRemoveRows();
}

void ListModel::Replace(const QStringList& texts) {
    beginResetModel();
    m_entries.clear();
    for (const QString& text : texts)
        m_entries.push_back(MakeEntry(text));
    endResetModel();
}

void ListModel::Clear() {
    Replace({});
}

int ListModel::Find(const QString& text) const {
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&](const Entry& entry) { return entry.text == text; });
    return found == m_entries.end() ? -1 : int(found - m_entries.begin());
}

} // namespace platform
