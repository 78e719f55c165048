#include "accessory/navigate_url.h"

#include <QDesktopServices>
#include <QUrl>

namespace quillbrook {

void NavigateURL(const QString& url) {
    QDesktopServices::openUrl(QUrl(url));
}

} // namespace quillbrook
