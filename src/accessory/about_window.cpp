#include "accessory/about_window.h"

#include "accessory/author.h"
#include "accessory/credits_scroll.h"
#include "accessory/splash_picture.h"
#include "platform/controls/centre.h"
#include "platform/controls/hyper_label.h"
#include "platform/tick.h"

#include <QLabel>
#include <QMouseEvent>
#include <QVBoxLayout>

namespace quillbrook {

namespace {

// Device-independent pixels.
constexpr QSize kWindowSize(440, 330);
constexpr int kSheetWidth = 400;
constexpr int kSpacing = 12;

constexpr QColor kWhite(255, 255, 255);
constexpr QColor kYellow(255, 255, 0);
constexpr QColor kLink(140, 184, 255);

QLabel* MakeLine(QWidget* sheet, const char* name, const QString& text, const QColor& color) {
    auto* label = new QLabel(text, sheet);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignHCenter);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, color);
    label->setPalette(palette);
    return label;
}

} // namespace

frmAbout::frmAbout(QWidget* parent)
    : QDialog(parent)
    , picCredits1(new QWidget(this))
    , picCredits2(new QWidget(picCredits1))
    , tmrCredits(new QTimer(this)) {
    setObjectName(QStringLiteral("frmAbout"));
    setWindowTitle(tr(" Click to pause the display!"));
    setFixedSize(kWindowSize);
    platform::CentreOnScreen(this);
    picCredits1->setObjectName(QStringLiteral("picCredits1"));
    picCredits1->setAttribute(Qt::WA_StyledBackground);
    picCredits1->setGeometry(rect());
    picCredits2->setObjectName(QStringLiteral("picCredits2"));
    BuildSheet();
    picCredits2->move((picCredits1->width() - picCredits2->width()) / 2, kCreditsFirstTop);

    // a click on the line of lblSelfTaught stays there and does nothing
    for (QWidget* control : std::initializer_list<QWidget*>{picCredits1, picCredits2, Label1, Label8,
                                                            lblCopyright, Image1, lblSelfTaught})
        control->installEventFilter(this);

    tmrCredits->setObjectName(QStringLiteral("tmrCredits"));
    tmrCredits->setTimerType(Qt::PreciseTimer);
    tmrCredits->setInterval(platform::TickOf(kCreditsInterval));
    connect(tmrCredits, &QTimer::timeout, this, &frmAbout::Tick);
    tmrCredits->start();
}

void frmAbout::BuildSheet() {
    Image1 = new SplashPicture(picCredits2);
    Label1 = MakeLine(picCredits2, "Label1", tr("For Technical Assistance:"), kWhite);
    lblWebsite = new platform::HyperLabel(QUrl(QLatin1String(author::kWebsite)).host(),
                                          QUrl(QLatin1String(author::kWebsite)), picCredits2);
    lblWebsite->setObjectName(QStringLiteral("lblWebsite"));
    lblWebsite->setColors({{}, kLink, kWhite});
    lblCopyright = MakeLine(picCredits2, "lblCopyright", QString::fromUtf8(author::kNotice), kYellow);
    Label8 = MakeLine(picCredits2, "Label8", QString::fromUtf8(author::kBiography), kWhite);
    Label8->setAlignment(Qt::AlignLeft);
    lblSelfTaught = MakeLine(picCredits2, "lblSelfTaught", QString::fromUtf8(author::kSelfTaught), kWhite);

    auto* column = new QVBoxLayout(picCredits2);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(kSpacing);
    column->addWidget(Image1);
    column->addWidget(Label1);
    column->addWidget(lblWebsite, 0, Qt::AlignHCenter);
    column->addWidget(lblCopyright);
    column->addWidget(Label8);
    column->addWidget(lblSelfTaught);
    picCredits2->resize(kSheetWidth, column->heightForWidth(kSheetWidth));
}

void frmAbout::Tick() {
    picCredits2->move(picCredits2->x(),
                      NextCreditsTop(picCredits2->y(), picCredits2->height(), picCredits1->height()));
}

// A click counts when the button is let go over what it went down on; the second half of a double click is
// none.
bool frmAbout::eventFilter(QObject* watched, QEvent* event) {
    const bool press = event->type() == QEvent::MouseButtonPress;
    const bool release = event->type() == QEvent::MouseButtonRelease;
    if (!press && !release && event->type() != QEvent::MouseButtonDblClick)
        return QDialog::eventFilter(watched, event);
    auto* mouse = static_cast<QMouseEvent*>(event);
    const auto* control = qobject_cast<QWidget*>(watched);
    if (release && m_pressed == watched && mouse->button() == Qt::LeftButton && watched != lblSelfTaught &&
        control->rect().contains(mouse->position().toPoint())) {
        if (tmrCredits->isActive())
            tmrCredits->stop();
        else
            tmrCredits->start();
    }
    m_pressed = press && mouse->button() == Qt::LeftButton ? watched : nullptr;
    return true;
}

} // namespace quillbrook
