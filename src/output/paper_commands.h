#pragma once

#include "output/page_model.h"

#include <QObject>

namespace quillbrook {

class frmPageSetup;
class WindowList;
class Workbench;

// The paper menu and the entries that open the page setup dialog, which it offers as frmPageSetup.
class PaperCommands final : public QObject {
    Q_OBJECT

public:
    // `windows` and `workbench` outlive it.
    PaperCommands(Workbench& workbench, WindowList& windows, QObject* parent);

    // The paper and the margins as the boxes of the dialog say at this moment.
    const PageModel& Model();

    // A paper's entry in the menu; with Custom the dialog is shown, and this returns when it is hidden again.
    void ChoosePaper(Paper paper);
    // Returns when the dialog is hidden again.
    void ShowPageSetup();

private:
    frmPageSetup& Dialog(); // loaded if it is not
    void ShowInMenu();

    Workbench& m_workbench;
    WindowList& m_windows;
    PageModel m_model;
};

} // namespace quillbrook
