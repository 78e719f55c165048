#pragma once

#include <QObject>

namespace platform {

// While this lives, the program's windows take no input: keys, clicks and requests to close are dropped. They
// are still painted.
class InputBlock final : public QObject {
public:
    InputBlock();

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;
};

} // namespace platform
