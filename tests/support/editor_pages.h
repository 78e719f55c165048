#pragma once

#include "app/tabs.h"

#include <QtTest>

namespace quillbrook {

// A column "tab" with a row for each page that has an editor.
inline void EachEditorPage() {
    QTest::addColumn<int>("tab");
    QTest::newRow("edited form") << int(Tab::EditForm);
    QTest::newRow("own form") << int(Tab::MyForms);
}

} // namespace quillbrook
