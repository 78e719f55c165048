#include "app/window_list.h"

#include <algorithm>
#include <array>

namespace quillbrook {

void WindowList::Offer(const QString& name, Make make) {
    m_makers[name] = std::move(make);
}

bool WindowList::IsOffered(const QString& name) const {
    return m_makers.contains(name);
}

bool WindowList::IsLoaded(const QString& name) const {
    return std::any_of(m_loaded.begin(), m_loaded.end(),
                       [&](const auto& entry) { return entry.first == name; });
}

QStringList WindowList::Loaded() const {
    QStringList names;
    for (const auto& [name, window] : m_loaded)
        names.append(name);
    return names;
}

QWidget* WindowList::Load(const QString& name) {
    for (const auto& [loadedName, window] : m_loaded)
        if (loadedName == name)
            return window.get();
    const auto maker = m_makers.find(name);
    if (maker == m_makers.end())
        return nullptr;
    std::unique_ptr<QWidget> made = maker->second();
    QWidget* window = made.get();
    m_loaded.emplace_back(name, std::move(made));
    return window;
}

void WindowList::Unload(const QString& name) {
    if (!Load(name))
        return;
    std::erase_if(m_loaded, [&](const auto& entry) { return entry.first == name; });
}

void WindowList::UnloadAll(const QString& exempted) {
    for (const QString& name : Loaded())
        if (name != exempted)
            Unload(name);
}

void UnloadAtExit(WindowList& windows) {
    constexpr std::array kOrder = {"frmPageSetup", "frmAbout", "frmContact",      "frmJurat",
                                   "frmSave",      "frmTheme", "frmVerification", "frmSplash"};
    for (const char* name : kOrder)
        windows.Unload(QLatin1String(name));
    windows.UnloadAll(QString());
    windows.UnloadAll(QStringLiteral("frmMain"));
}

} // namespace quillbrook
