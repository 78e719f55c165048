#pragma once

#include <QObject>

class QLabel;
namespace platform {
class ListBox;
class MyButton;
} // namespace platform

namespace quillbrook {

class LibraryStore;
class Workbench;

// The History page: the forms opened in this run, oldest first.
class HistoryPage final : public QObject {
    Q_OBJECT

public:
    // Builds its controls on `page`, which owns them.
    HistoryPage(QWidget* page, Workbench& workbench, LibraryStore& store);

    // Enters a title at the end, whether or not it is there already.
    void Add(const QString& title);

    void RemoveDuplicateHistory();

    // Loads the form selected in lstHistory into the reading pane; the history does not grow.
    void DisplayHistoryEntry();

    QLabel* lblHistory;
    platform::ListBox* lstHistory;
    platform::MyButton* cmdClearHist;
    platform::MyButton* cmdAddtoFavs2;

Q_SIGNALS:
    void PlainFormShown();

private:
    void Choose();

    Workbench& m_workbench;
    LibraryStore& m_store;
};

} // namespace quillbrook
