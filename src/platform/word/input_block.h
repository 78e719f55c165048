#pragma once

#include <QObject>
#include <QPointer>
#include <vector>

class QAction;
class QWidget;

namespace platform {

// While this lives, the program's windows take no input: keys, clicks and requests to close are dropped, and
// menu entries, buttons and links that assistive technology chooses without them do nothing. The windows are
// still painted.
// A dialog or a menu that opens meanwhile all the same does take input: what waits goes on only when the
// dialog is closed, and nobody else could close either.
class InputBlock final : public QObject {
public:
    InputBlock();
    ~InputBlock() override;
    Q_DISABLE_COPY_MOVE(InputBlock)

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    struct Mark {
        QPointer<QAction> entry;
        bool isChecked;
    };

    void Silence(QObject* object);

    const QWidget* const m_dialogBefore;       // open when this was made; only compared
    std::vector<QPointer<QObject>> m_silenced; // by this one
    std::vector<Mark> m_marks;                 // of the silenced entries that can have one
};

} // namespace platform
