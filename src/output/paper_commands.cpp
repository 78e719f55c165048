#include "output/paper_commands.h"

#include "app/window_list.h"
#include "app/workbench.h"
#include "output/page_setup.h"

#include <QAction>

namespace quillbrook {

PaperCommands::PaperCommands(Workbench& workbench, WindowList& windows, QObject* parent)
    : QObject(parent)
    , m_workbench(workbench)
    , m_windows(windows) {
    m_windows.Offer(QStringLiteral("frmPageSetup"), [this] {
        auto dialog = std::make_unique<frmPageSetup>(m_model, m_workbench.Window());
        connect(dialog.get(), &frmPageSetup::PaperChanged, this, &PaperCommands::ShowInMenu);
        return dialog;
    });
    for (const PaperSize& size : kPaperSizes)
        connect(workbench.Menu(QLatin1String(size.menu)), &QAction::triggered, this,
                [this, paper = size.paper] { ChoosePaper(paper); });
    for (const char* entry : {"mnuPageSetup", "mnuPageSetupPrint"})
        connect(workbench.Menu(QLatin1String(entry)), &QAction::triggered, this,
                &PaperCommands::ShowPageSetup);
}

const PageModel& PaperCommands::Model() {
    Dialog();
    return m_model;
}

void PaperCommands::ChoosePaper(Paper paper) {
    frmPageSetup& dialog = Dialog();
    m_model.ChooseInMenu(paper);
    dialog.ShowModel();
    ShowInMenu();
    if (paper == Paper::Custom)
        ShowPageSetup();
}

void PaperCommands::ShowPageSetup() {
    Dialog().exec();
}

frmPageSetup& PaperCommands::Dialog() {
    return *static_cast<frmPageSetup*>(m_windows.Load(QStringLiteral("frmPageSetup")));
}

void PaperCommands::ShowInMenu() {
    for (const PaperSize& size : kPaperSizes)
        m_workbench.Menu(QLatin1String(size.menu))->setChecked(m_model.Checked() == size.paper);
    m_workbench.Menu(QStringLiteral("mnuCustomSize"))->setText(m_model.CustomCaption());
}

} // namespace quillbrook
