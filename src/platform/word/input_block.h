#pragma once

#include <QObject>

class QWidget;

namespace platform {

// While this lives, the program's windows take no input: keys, clicks and requests to close are dropped. They
// are still painted. A dialog that opens meanwhile, by a command chosen without keys and clicks, does take
// input: what waits goes on only when it is closed, and nobody else could close it.
class InputBlock final : public QObject {
public:
    InputBlock();

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    const QWidget* const m_dialogBefore; // open when this was made; only compared
};

} // namespace platform
