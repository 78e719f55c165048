#include "app/program.h"
#include "appearance/look.h"
#include "platform/desktop/common_dialog.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/printer.h"
#include "platform/desktop/single_instance.h"
#include "platform/desktop/sound.h"
#include "platform/help/help_viewer.h"
#include "platform/services.h"
#include "platform/word/word_processor.h"

#include <QApplication>
#include <QStandardPaths>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("quillbrook"));
    QApplication::setApplicationDisplayName(QString());
    QGuiApplication::setDesktopFileName(QStringLiteral("org.quillbrook.Quillbrook"));
    quillbrook::ApplyLook(application);

    platform::DesktopMessageBox messageBox;
    platform::SingleInstance instance(QStringLiteral("quillbrook"), QStringLiteral("Quillbrook PRO"));
    platform::CommonDialog commonDialog;
    platform::Printer printer(QStringLiteral("Quillbrook PRO"));
    platform::WordProcessor wordProcessor(QApplication::applicationDirPath());
    wordProcessor.SetWords(platform::WordsOfFile(QStringLiteral(":/words/legal.txt")),
                           QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                               QStringLiteral("/dictionary.txt"));
    platform::DesktopSound sound;
    platform::HelpViewer help;
    platform::Services services{messageBox, instance, commonDialog, printer, wordProcessor, sound, help};

    quillbrook::frmProgram program(services, QApplication::applicationDirPath());
    program.Start();
    return QApplication::exec();
}
