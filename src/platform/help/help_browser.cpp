#include "platform/help/help_browser.h"

#include "platform/help/help_book.h"

#include <QDesktopServices>

namespace platform {

namespace {

constexpr char kScheme[] = "help";

} // namespace

HelpBrowser::HelpBrowser(const HelpBook& book, QWidget* parent)
    : QTextBrowser(parent)
    , openOutside([](const QUrl& link) { QDesktopServices::openUrl(link); })
    , m_book(book) {
    setOpenLinks(false);
    connect(this, &QTextBrowser::anchorClicked, this, &HelpBrowser::FollowLink);
}

QUrl HelpBrowser::AddressOf(const QString& page) {
    QUrl address;
    address.setScheme(QLatin1String(kScheme));
    address.setPath(QLatin1Char('/') + page.section(QLatin1Char('#'), 0, 0));
    if (page.contains(QLatin1Char('#')))
        address.setFragment(page.section(QLatin1Char('#'), 1));
    return address;
}

QString HelpBrowser::PageOf(const QUrl& address) {
    return address.path().mid(1);
}

bool HelpBrowser::ShowPage(const QString& page) {
    const QUrl address = AddressOf(page);
    if (m_book.Read(PageOf(address)).isNull())
        return false;
    setSource(address, QTextDocument::HtmlResource);
    return true;
}

void HelpBrowser::FollowLink(const QUrl& link) {
    if (link.scheme() == QLatin1String(kScheme)) {
        QString page = PageOf(link);
        if (link.hasFragment())
            page += QLatin1Char('#') + link.fragment();
        ShowPage(page);
        return;
    }
    // nothing of this machine's files is opened because a page says so
    for (const char* scheme : {"http", "https", "mailto"}) {
        if (link.scheme() == QLatin1String(scheme))
            openOutside(link);
    }
}

QVariant HelpBrowser::loadResource(int type, const QUrl& name) {
    // the style of the first page is asked for before that page is the source
    const QUrl base = source().isEmpty() ? AddressOf(m_book.HomePage()) : source();
    const QUrl address = base.resolved(name);
    if (address.scheme() != QLatin1String(kScheme))
        return {};
    const QByteArray bytes = m_book.Read(PageOf(address));
    if (bytes.isNull())
        return {};
    if (type == QTextDocument::ImageResource)
        return bytes;
    return QString::fromUtf8(bytes);
}

} // namespace platform
