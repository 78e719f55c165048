#include "tests/support/test_window.h"

#include "platform/controls/list_box.h"
#include "platform/rich_text/rich_text_box.h"

#include <QtTest>

TestWindow::TestWindow(const std::vector<TestForm>& forms)
    : m_library(std::make_unique<TestLibrary>(forms)) {
    if (m_library->IsMade())
        Load(m_library->Folder());
}

TestWindow::TestWindow(const QString& programFolder) {
    Load(programFolder);
}

TestWindow::~TestWindow() {
    if (m_window)
        m_window->Store().CloseLibrary();
}

void TestWindow::Load(const QString& programFolder) {
    m_window = std::make_unique<quillbrook::frmMain>(services.services, programFolder);
    loaded = m_window->Load();
}

bool TestWindow::Show() {
    m_window->show();
    m_window->activateWindow();
    return QTest::qWaitForWindowActive(m_window.get());
}

void TestWindow::ClickEntry(platform::ListBox* list, int index) {
    const QModelIndex entry = list->model()->index(index, 0);
    list->scrollTo(entry);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, list->visualRect(entry).center());
}

QString TestWindow::TextOf(const platform::RichTextBox* pane) {
    return pane->Text();
}
