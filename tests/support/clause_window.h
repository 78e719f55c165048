#pragma once

#include "platform/database/database.h"
#include "platform/rich_text/rich_text_box.h"
#include "tests/support/test_clauses.h"
#include "tests/support/test_window.h"

#include <QtWidgets>

namespace quillbrook {

// A text with a place for each kind of clause.
inline const QString kPlaces =
    u"Top\n(JURAT)\n(ACKNOWLEDGMENT)\n(VERIFICATION)\n(CERTIFICATION OF NON-FORUM SHOPPING)\n"
    "(NOTICE OF HEARING)\n(EXPLANATION)\nEnd"_qs;
inline const QString kJurat1 = TestClause(ClauseRoutine::InsertJurat, "1");
inline const QString kCaption1 = TestClause(ClauseRoutine::InsertCaption, "1");
inline const QString kVerification1 = TestClause(ClauseRoutine::InsertVerification, "1");

// The window over a library that has all clauses.
class ClauseWindow : public TestWindow {
public:
    ClauseWindow() { hasClauses = AddTestClauses(*(*this)->Variables().FormsDb); }

    void Choose(const char* entry) { (*this)->Menu(QLatin1String(entry))->trigger(); }
    QString Content() { return (*this)->txtContent()->Text(); }
    QString MyContent() { return (*this)->txtMyContent()->Text(); }

    // Takes a clause from the library, or only its text.
    bool Lose(const char* table, const char* number, bool textOnly) {
        const auto rows = (*this)->Variables().FormsDb->OpenRecordset(QLatin1String(table));
        for (bool there = rows->MoveFirst(); there; there = rows->MoveNext()) {
            if (rows->Field(QLatin1String(table) + u"No"_qs)->toString() != QLatin1String(number))
                continue;
            if (!textOnly)
                return rows->Delete();
            return rows->Edit() && rows->SetField(u"Content"_qs, QVariant()) && rows->Update();
        }
        return false;
    }

    bool hasClauses = false;
};

} // namespace quillbrook
