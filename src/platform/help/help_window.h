#pragma once

#include "platform/help/help_book.h"

#include <QWidget>

class QLineEdit;
class QListWidget;
class QPrinter;
class QSplitter;
class QTabWidget;
class QTreeWidget;
class QTreeWidgetItem;

namespace platform {

class HelpBrowser;
class MyButton;

// The window that shows a help file: contents, index and search at the left, the page at the right. A file
// that is missing or damaged is told on the page.
class HelpWindow final : public QWidget {
    Q_OBJECT

public:
    // A window of its own, in front of `owner` and closed with it.
    explicit HelpWindow(QWidget* owner);

    // Reads the file and shows its default topic. False when it could not be read.
    bool ShowFile(const QString& path);
    QString File() const { return m_path; }

    const HelpBook& Book() const { return m_book; }
    // Prints the page that is shown. False when the printer fails.
    bool PrintPage(QPrinter& printer) const;

    HelpBrowser* browser;
    QTabWidget* tabs;
    QTreeWidget* contents;
    QLineEdit* indexWord;
    QListWidget* index;
    QLineEdit* searchWords;
    QListWidget* results;
    MyButton* back;
    MyButton* forward;
    MyButton* home;
    MyButton* print;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* MakeButtons();
    void MakeTabs();
    void FillContents();
    void FillIndex();
    void FilterIndex(const QString& word);
    void Search();
    void MarkWords();
    void PageShown(const QUrl& address);
    void AskAndPrint();
    void TellTrouble(ChmFile::State state);

    QSplitter* m_sides;
    QString m_path;
    HelpBook m_book;
    bool m_marksWords = false; // the page came from the search
};

} // namespace platform
