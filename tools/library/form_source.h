#pragma once

#include "library/html_blocks.h"
#include "library/source_problem.h"

#include <QStringView>

namespace quillbrook {

constexpr int kLongestTitle = 120;

// One form as its file tells it.
struct FormSource {
    QString title;
    QString category;
    QString subCategory;
    int titleLine = 1;
    int categoryLine = 1;
    int subCategoryLine = 1;
    std::vector<Block> blocks;
};

// Reads title, category, sub-category and body from the text of a form file. What does not follow the format
// is reported; the parts that could be read are given all the same.
FormSource ReadFormSource(QStringView text, SourceProblems& problems);

// The folder or file name, without extension, of a category, sub-category or title: a slash with the blanks
// around it becomes " - ".
QString PathComponent(const QString& name);

} // namespace quillbrook
