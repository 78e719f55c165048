#include "app/program.h"
#include "appearance/look.h"
#include "platform/desktop_services.h"

#include <QApplication>
#include <QStandardPaths>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("quillbrook"));
    QApplication::setApplicationDisplayName(QString());
    QGuiApplication::setDesktopFileName(QStringLiteral("org.quillbrook.Quillbrook"));
    quillbrook::ApplyLook(application);

    const QString folder = QApplication::applicationDirPath();
    platform::DesktopServices desktop(QStringLiteral("quillbrook"), QStringLiteral("Quillbrook PRO"), folder);
    desktop.WordProcessor().SetWords(platform::WordsOfFile(QStringLiteral(":/words/legal.txt")),
                                     QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                                         QStringLiteral("/dictionary.txt"));

    quillbrook::frmProgram program(desktop.Services(), folder);
    program.Start();
    return QApplication::exec();
}
