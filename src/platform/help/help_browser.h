#pragma once

#include <QTextBrowser>
#include <functional>

namespace platform {

class HelpBook;

// Shows pages of a help file. Addresses of pages are "help:/name#place".
class HelpBrowser final : public QTextBrowser {
    Q_OBJECT

public:
    // `book` outlives it.
    explicit HelpBrowser(const HelpBook& book, QWidget* parent = nullptr);

    static QUrl AddressOf(const QString& page);
    static QString PageOf(const QUrl& address);

    // Shows a page; one that the file does not have leaves the page that is shown.
    bool ShowPage(const QString& page);

    // Where links out of the file go; the desktop at first.
    std::function<void(const QUrl&)> openOutside;

    QVariant loadResource(int type, const QUrl& name) override;

private:
    void FollowLink(const QUrl& link);

    const HelpBook& m_book;
};

} // namespace platform
