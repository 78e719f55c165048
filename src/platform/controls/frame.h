#pragma once

#include <QColor>
#include <QGroupBox>
#include <optional>

namespace platform {

// A captioned frame around controls that belong together; it has its own neutral ground.
class Frame final : public QGroupBox {
    Q_OBJECT

public:
    struct CaptionLook {
        QColor color;
        double points = 0;
        bool bold = false;

        bool operator==(const CaptionLook&) const = default;
    };

    explicit Frame(const QString& caption, QWidget* parent = nullptr)
        : QGroupBox(caption, parent) {}

    QString Caption() const { return title(); }
    void setCaption(const QString& caption) { setTitle(caption); }

    // How the caption looks where that differs from other frames; the controls inside keep their own look.
    const std::optional<CaptionLook>& Look() const { return m_look; }
    void setCaptionLook(const CaptionLook& look);

private:
    std::optional<CaptionLook> m_look;
};

} // namespace platform
