#pragma once

#include "search/query_strip.h"

#include <QObject>
#include <functional>

class QInputMethodEvent;
class QKeyEvent;
class QLabel;
class QTimer;
namespace platform {
class ComboBox;
}

namespace quillbrook {

// What the query box does by itself: only letters, digits and blanks can be typed into it, operator words go
// while the user types, and two labels show how the query is going to be read.
class QueryBox final : public QObject {
    Q_OBJECT

public:
    // Lives as long as the box. `mode` tells which mode button is selected; it is asked each time.
    QueryBox(platform::ComboBox* cboQuery, QLabel* lblSearchGuide, QLabel* lblSearchGuide1,
             std::function<SearchMode()> mode);

    // Cleans the query up and shows the guide for it. A search begins with this.
    void UpdateSearchGuide();

    // What a click on the button of `mode` does to the box, which gets the focus, and to the guide.
    void TurnTo(SearchMode mode);

    // Adds the query to the end of the box's list; what stands there already stands there twice.
    void AddToHistory();

    platform::ComboBox* const cboQuery;
    QTimer* tmrUpdateSearchGuide; // one shot: lets the key that starts it take effect first

Q_SIGNALS:
    void EnterPressed();
    void CharacterAccepted(); // one that was typed is on its way into the box

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool TakeKeyDown(const QKeyEvent& event);
    void TakeKeyUp(const QKeyEvent& event);
    bool TakeInput(const QInputMethodEvent& event);
    void Defer();
    void SetQuery(const QString& query);
    void ShowGuide(SearchMode mode);

    QLabel* m_lblSearchGuide;
    QLabel* m_lblSearchGuide1;
    std::function<SearchMode()> m_mode;
    QueryKeyTrail m_trail;
};

} // namespace quillbrook
