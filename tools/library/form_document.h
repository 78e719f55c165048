#pragma once

#include "library/html_blocks.h"

#include <QTextDocument>
#include <memory>

namespace quillbrook {

// Sets a form as a document: Times New Roman 12 on Long paper (8.5 by 13 inches) with margins of an inch, one
// and a half at the left. Paragraphs, lists and tables are held as platform/rich_text/document_model.h tells.
// Needs a QGuiApplication, for the fonts.
std::unique_ptr<QTextDocument> MakeFormDocument(const std::vector<Block>& blocks);

} // namespace quillbrook
