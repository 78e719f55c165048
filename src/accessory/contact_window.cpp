#include "accessory/contact_window.h"

#include "accessory/author.h"
#include "accessory/title_pulse.h"
#include "appearance/icons.h"
#include "platform/controls/centre.h"
#include "platform/controls/hyper_label.h"
#include "platform/controls/my_button.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QUrl>

namespace quillbrook {

using platform::HyperLabel;
using platform::MyButton;

namespace {

// Device-independent pixels.
constexpr int kMargin = 12;
constexpr int kSpacing = 8;
constexpr int kLineSpacing = 4;
constexpr int kPictureSize = 96;
constexpr int kButtonWidth = 96;
constexpr int kButtonHeight = 28;

struct Line {
    const char* name;
    const char* text;
};

constexpr Line kLines[] = {
    {"Label1", "Contact Info:"}, {"Label2", author::kMobile}, {"Label5", author::kTelephone},
    {"Label6", author::kOffice}, {"Label7", author::kRoom},   {"Label9", author::kStreet},
    {"Label10", author::kTown},
};

QLabel* MakeLabel(QWidget* card, const char* name, const QString& text) {
    auto* label = new QLabel(text, card);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

frmContact::frmContact(TitlePulse& pulse, QWidget* parent)
    : QDialog(parent)
    , Timer1(new QTimer(this))
    , m_pulse(pulse) {
    setObjectName(QStringLiteral("frmContact"));
    setWindowTitle(tr("Contact Atty. Merrow"));
    Image1 = MakeLabel(this, "Image1", QString());
    Image1->setPixmap(ProgramPicture().pixmap(QSize(kPictureSize, kPictureSize), devicePixelRatio()));
    Image1->setAccessibleName(tr("Quillbrook PRO"));
    cmdOK = new MyButton(MyButton::Kind::Plain, this);
    cmdOK->setObjectName(QStringLiteral("cmdOK"));
    cmdOK->setCaption(tr("OK"));
    cmdOK->setProperty("default", true);
    cmdOK->setFixedSize(kButtonWidth, kButtonHeight);
    connect(cmdOK, &MyButton::Click, this, &QDialog::accept);

    auto* upper = new QHBoxLayout;
    upper->setSpacing(2 * kMargin);
    upper->addWidget(Image1, 0, Qt::AlignTop);
    upper->addLayout(BuildCard());
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(2 * kMargin, 2 * kMargin, 2 * kMargin, kMargin);
    column->setSpacing(kMargin);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addLayout(upper);
    column->addWidget(cmdOK, 0, Qt::AlignRight);
    column->activate();
    platform::CentreOnScreen(this);

    lblTitle->setText(QStringLiteral("Atty. ") + author::Name());
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(TitlePulse::kInterval);
    connect(Timer1, &QTimer::timeout, this, &frmContact::Tick);
    Timer1->start();
    cmdOK->setFocus();
}

QBoxLayout* frmContact::BuildCard() {
    auto* column = new QVBoxLayout;
    column->setSpacing(kLineSpacing);
    lblTitle = MakeLabel(this, "lblTitle", QString());
    column->addWidget(lblTitle);
    column->addSpacing(kSpacing);
    for (const Line& line : kLines)
        column->addWidget(MakeLabel(this, line.name, QString::fromUtf8(line.text)));
    column->addSpacing(kSpacing);
    column->addLayout(BuildLinks());
    return column;
}

QBoxLayout* frmContact::BuildLinks() {
    const QUrl website{QLatin1String(author::kWebsite)};
    const QUrl community{QLatin1String(author::kCommunity)};
    const QUrl mail{QStringLiteral("mailto:") + QLatin1String(author::kMailAddress)};
    HyperLabel1 = new HyperLabel(QLatin1String(author::kMailAddress), mail, this);
    HyperLabel1->setObjectName(QStringLiteral("HyperLabel1"));
    HyperLabel2 = new HyperLabel(website.host(), website, this);
    HyperLabel2->setObjectName(QStringLiteral("HyperLabel2"));
    HyperLabel3 = new HyperLabel(community.host(), community, this);
    HyperLabel3->setObjectName(QStringLiteral("HyperLabel3"));

    auto* rows = new QGridLayout;
    rows->setHorizontalSpacing(kSpacing);
    rows->setVerticalSpacing(0);
    rows->addWidget(MakeLabel(this, "Label4", tr("E-mail:")), 0, 0);
    rows->addWidget(HyperLabel1, 0, 1, Qt::AlignLeft);
    rows->addWidget(MakeLabel(this, "Label8", tr("Website:")), 1, 0);
    rows->addWidget(HyperLabel2, 1, 1, Qt::AlignLeft);
    rows->addWidget(MakeLabel(this, "Label11", tr("Facebook:")), 2, 0);
    rows->addWidget(HyperLabel3, 2, 1, Qt::AlignLeft);
    rows->setColumnStretch(1, 1);
    auto* box = new QHBoxLayout;
    box->addLayout(rows);
    return box;
}

void frmContact::Tick() {
    QPalette palette = lblTitle->palette();
    palette.setColor(QPalette::WindowText, m_pulse.Tick());
    lblTitle->setPalette(palette);
}

// Enter is the one button's; on a link it opens the link.
void frmContact::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        cmdOK->click();
    else
        QDialog::keyPressEvent(event);
}

} // namespace quillbrook
