#pragma once

#include <QStringList>
#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace quillbrook {

// The program's windows beside the main one, by name. A window is made when it is first asked for, and lives
// until it is unloaded; asked for again, it is made afresh.
class WindowList {
public:
    using Make = std::function<std::unique_ptr<QWidget>()>;

    // Says how the window of a name is made.
    void Offer(const QString& name, Make make);

    bool IsOffered(const QString& name) const;
    bool IsLoaded(const QString& name) const;
    QStringList Loaded() const; // in the order of loading

    // The window of a name, made if it is not loaded; null when no window of this name is offered.
    QWidget* Load(const QString& name);

    // Takes the window away. One that is not loaded is made first, and then taken away at once.
    void Unload(const QString& name);

    // Takes away every loaded window but the one of the name `exempted`; an empty name exempts none.
    void UnloadAll(const QString& exempted);

private:
    std::map<QString, Make> m_makers;
    std::vector<std::pair<QString, std::unique_ptr<QWidget>>> m_loaded;
};

// Unloads the windows beside the main one in their order at exit, then whatever is still loaded.
void UnloadAtExit(WindowList& windows);

} // namespace quillbrook
