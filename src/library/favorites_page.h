#pragma once

#include <QObject>

class QLabel;
namespace platform {
class ListBox;
class MyButton;
struct Services;
} // namespace platform

namespace quillbrook {

class LibraryStore;
class Workbench;

// The Favorites page: the forms marked in the library.
class FavoritesPage final : public QObject {
    Q_OBJECT

public:
    // Builds its controls on `page`, which owns them.
    FavoritesPage(QWidget* page, Workbench& workbench, LibraryStore& store, platform::Services& services);

    // Fills lstFavorites from the library.
    void DisplayFavorites();

    // Loads the form selected in lstFavorites into the reading pane.
    void DisplayFavorite();

    QLabel* lblFavorites;
    platform::ListBox* lstFavorites;
    platform::MyButton* cmdRemove;

Q_SIGNALS:
    void FormOpened(const QString& title);
    void PlainFormShown();

private:
    void Remove();
    void Choose();

    Workbench& m_workbench;
    LibraryStore& m_store;
    platform::Services& m_services;
};

} // namespace quillbrook
