#pragma once

#include "library/source_problem.h"

#include <QStringView>
#include <optional>

namespace quillbrook {

struct HtmlAttribute {
    QString name;
    QString value;
};

// A tag or the text between two tags. Entities are resolved, white space stands as written.
struct HtmlToken {
    enum class Kind { Text, Open, Close };
    Kind kind = Kind::Text;
    QString text; // the text, or the tag's name
    std::vector<HtmlAttribute> attributes;
    int line = 1; // where it begins
    int endLine = 1;

    bool IsOpen(QLatin1String name) const { return kind == Kind::Open && text == name; }
    bool IsClose(QLatin1String name) const { return kind == Kind::Close && text == name; }
    bool IsBlank() const; // text of nothing but white space
    std::optional<QString> Attribute(QLatin1String name) const;
};

// Cuts `source` into tokens; comments leave none. What is no token is reported and skipped, so the result is
// meaningful only when `problems` got no entry.
std::vector<HtmlToken> TokenizeHtml(QStringView source, SourceProblems& problems);

} // namespace quillbrook
