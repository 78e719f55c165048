#pragma once

#include <QGroupBox>

namespace platform {

// A captioned frame around controls that belong together; it has its own neutral ground.
class Frame final : public QGroupBox {
    Q_OBJECT

public:
    explicit Frame(const QString& caption, QWidget* parent = nullptr)
        : QGroupBox(caption, parent) {}

    QString Caption() const { return title(); }
    void setCaption(const QString& caption) { setTitle(caption); }
};

} // namespace platform
