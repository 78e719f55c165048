#include "platform/word/word_clipboard.h"

#include "platform/rich_text/rich_text_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace platform {

void SetClipboardRTF(const QByteArray& source) {
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->clear();
    // both names that programs ask for
    auto* data = new QMimeData; // the clipboard owns it
    data->setData(QStringLiteral("text/rtf"), source);
    data->setData(QStringLiteral("application/rtf"), source);
    clipboard->setMimeData(data);
}

QByteArray ClipboardRTF() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data ? RtfOf(*data) : QByteArray();
}

} // namespace platform
