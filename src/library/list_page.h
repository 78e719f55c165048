#pragma once

class QLabel;
class QWidget;
class QString;

namespace platform {
class ListBox;
class MyButton;
} // namespace platform

namespace quillbrook {

// The common shape of a page of one list: a heading with buttons at its right end, and the list below it,
// down to where the reading pane begins on such pages.
QLabel* BuildListPageHeading(QWidget* page, const char* name, const QString& caption);
platform::MyButton* BuildListPageButton(QWidget* page, int indexFromRight, const char* name,
                                        const QString& caption, const QString& tip, const QString& picture);
platform::ListBox* BuildListPageList(QWidget* page, bool sorted, const char* name,
                                     const QString& accessibleName);

} // namespace quillbrook
