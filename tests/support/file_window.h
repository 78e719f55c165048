#pragma once

#include "output/file_commands.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/test_window.h"

#include <QtWidgets>

namespace quillbrook {

// The main window with a folder for the files that it opens and saves.
class FileWindow : public TestWindow {
public:
    QString Path(const QString& name) const { return folder.filePath(name); }
    void Answer(const QString& name) { services.commonDialog.files.append(Path(name)); }
    FileCommands& Files() { return *(*this)->fileCommands; }
    WindowState& State() { return (*this)->State(); }
    bool SaveEnabled() { return (*this)->Menu(u"mnuSave"_qs)->isEnabled(); }
    void Edit(const QString& text) {
        (*this)->SetTab(Tab::EditForm);
        (*this)->txtContent()->setText(text);
    }

    QByteArray Read(const QString& name) const {
        QFile file(Path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    bool Write(const QString& name, const QByteArray& bytes) const {
        QFile file(Path(name));
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    }

    QTemporaryDir folder;
};

} // namespace quillbrook
