#include "output/page_setup.h"

#include "platform/controls/centre.h"
#include "platform/controls/frame.h"
#include "platform/controls/hyper_label.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QStyle>
#include <QToolButton>

namespace quillbrook {

using platform::Frame;
using platform::HyperLabel;

namespace {

constexpr int kGap = 8;     // pixels, between neighbours
constexpr int kInside = 12; // within a frame
constexpr int kBoxWidth = 68;
constexpr int kArrowWidth = 20;
constexpr int kRingAroundOption = 6; // what shows that it has the focus
constexpr int kFrameTop = 4;         // below the caption of a frame

const PageBoxControls& RowOf(PageBox box) {
    return kPageBoxes[static_cast<std::size_t>(box)];
}

QString Plain(const char* caption) {
    return QString(QLatin1String(caption)).remove(QLatin1Char(':'));
}

Frame* MakeFrame(const QString& caption, const char* name) {
    auto* frame = new Frame(caption);
    frame->setObjectName(QLatin1String(name));
    return frame;
}

} // namespace

frmPageSetup::frmPageSetup(PageModel& model, QWidget* parent)
    : QDialog(parent)
    , m_model(model)
    , m_group(new QButtonGroup(this))
    , btnOk(new QPushButton(tr("OK"))) {
    setObjectName(QStringLiteral("frmPageSetup"));
    setWindowTitle(tr("Page Setup"));
    m_model.Load();
    btnOk->setObjectName(QStringLiteral("btnOk"));
    btnOk->setDefault(true);
    connect(btnOk, &QPushButton::clicked, this, &frmPageSetup::Confirm);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kInside, kInside, kInside, kInside);
    column->setSpacing(kGap);
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addWidget(BuildPaper());
    column->addWidget(BuildMargins());
    column->addWidget(btnOk, 0, Qt::AlignRight);
    ShowModel();
    Centre();
}

QWidget* frmPageSetup::BuildPaper() {
    Frame* frame = MakeFrame(tr("Paper Size (in inches)"), "fmePaperSize");
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(kInside, kFrameTop, kInside, kInside);
    grid->setHorizontalSpacing(kGap);
    grid->setVerticalSpacing(kGap / 2);
    int row = 0;
    for (const PaperSize& size : kPaperSizes)
        grid->addWidget(BuildOption(size), row++, 0);
    grid->setColumnMinimumWidth(1, kGap);
    grid->setColumnStretch(1, 1);
    row = 0;
    for (const PageBox box : {PageBox::Width, PageBox::Height}) {
        grid->addWidget(new QLabel(QLatin1String(RowOf(box).caption)), row, 2, 2, 1);
        grid->addWidget(BuildBox(RowOf(box)), row, 3, 2, 1);
        row += 2;
    }
    return frame;
}

QWidget* frmPageSetup::BuildMargins() {
    Frame* frame = MakeFrame(tr("Margins (in inches)"), "fmeMargins");
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(kInside, kFrameTop, kInside, kInside);
    grid->setSpacing(kGap);
    grid->setColumnMinimumWidth(2, kGap);
    grid->setColumnStretch(2, 1);
    const std::array places = {PageBox::Left, PageBox::Right, PageBox::Top, PageBox::Bottom};
    for (int i = 0; i < int(places.size()); ++i) {
        const PageBoxControls& row = RowOf(places[std::size_t(i)]);
        grid->addWidget(new QLabel(QLatin1String(row.caption)), i / 2, i % 2 * 3);
        grid->addWidget(BuildBox(row), i / 2, i % 2 * 3 + 1);
    }
    return frame;
}

// The label shows the caption; of the button, which has it too, only the circle is seen.
QWidget* frmPageSetup::BuildOption(const PaperSize& size) {
    auto* row = new QWidget;
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(0);
    auto* option = new QRadioButton(QLatin1String(size.optionCaption));
    option->setObjectName(QLatin1String(size.option));
    option->setFixedWidth(option->style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth, nullptr, option) +
                          kRingAroundOption);
    m_group->addButton(option);
    m_options[static_cast<std::size_t>(size.paper)] = option;
    auto* label = new HyperLabel(QLatin1String(size.optionCaption));
    label->setObjectName(QLatin1String(size.label));
    label->setFocusPolicy(Qt::NoFocus); // the button beside it takes the keys
    line->addWidget(option);
    line->addWidget(label);
    line->addStretch();
    const Paper paper = size.paper;
    connect(option, &QRadioButton::toggled, this, [this, paper](bool on) {
        if (on && !m_showing)
            OptionClick(paper);
    });
    connect(label, &HyperLabel::clicked, option, [option] { option->setChecked(true); });
    return row;
}

// A box with its arrows at its right side, one above the other.
QWidget* frmPageSetup::BuildBox(const PageBoxControls& row) {
    auto* group = new QWidget;
    auto* grid = new QGridLayout(group);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    auto* box = new QLineEdit;
    box->setObjectName(QLatin1String(row.name));
    box->setAccessibleName(Plain(row.caption));
    box->setFixedWidth(kBoxWidth);
    m_boxes[static_cast<std::size_t>(row.box)] = box;
    connect(box, &QLineEdit::textChanged, this, [this, &row](const QString& text) {
        if (!m_showing)
            m_model.SetText(row.box, text);
    });
    grid->setRowStretch(0, 1);
    grid->setRowStretch(3, 1);
    grid->addWidget(box, 1, 0, 2, 1);
    grid->addWidget(BuildArrow(row, Arrow::Up), 1, 1);
    grid->addWidget(BuildArrow(row, Arrow::Down), 2, 1);
    return group;
}

// The arrow is also the key of its direction in the box.
QWidget* frmPageSetup::BuildArrow(const PageBoxControls& row, Arrow arrow) {
    const bool isUp = arrow == Arrow::Up;
    auto* button = new QToolButton;
    button->setObjectName(QLatin1String(isUp ? row.up : row.down));
    button->setAccessibleName((isUp ? tr("%1 up") : tr("%1 down")).arg(Plain(row.caption)));
    button->setArrowType(isUp ? Qt::UpArrow : Qt::DownArrow);
    button->setAutoRepeat(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setFixedSize(kArrowWidth, Box(row.box)->sizeHint().height() / 2);
    m_arrows[static_cast<std::size_t>(row.box)][isUp ? 0 : 1] = button;
    const auto click = [this, &row, arrow] { ArrowClick(row.box, arrow); };
    connect(button, &QToolButton::clicked, this, click);
    auto* key = new QShortcut(isUp ? Qt::Key_Up : Qt::Key_Down, Box(row.box));
    key->setContext(Qt::WidgetShortcut);
    connect(key, &QShortcut::activated, this, click);
    return button;
}

void frmPageSetup::ShowModel() {
    QScopedValueRollback showing(m_showing, true);
    for (const PageBoxControls& row : kPageBoxes) {
        QLineEdit* box = Box(row.box);
        if (box->text() != m_model.Text(row.box))
            box->setText(m_model.Text(row.box));
        box->setEnabled(m_model.IsEnabled(row.box));
        for (QWidget* arrow : m_arrows[static_cast<std::size_t>(row.box)])
            arrow->setEnabled(m_model.IsEnabled(row.box));
    }
    Option(m_model.Option())->setChecked(true); // which deselects the others
}

void frmPageSetup::OptionClick(Paper paper) {
    m_model.ChooseOption(paper);
    ShowModel();
    Q_EMIT PaperChanged();
}

void frmPageSetup::ArrowClick(PageBox box, Arrow arrow) {
    m_model.Click(box, arrow);
    ShowModel();
}

void frmPageSetup::Confirm() {
    m_model.Confirm();
    ShowModel();
    Q_EMIT PaperChanged();
    hide();
}

void frmPageSetup::reject() {
    Confirm();
}

void frmPageSetup::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (m_model.Option() != Paper::Custom) {
        Option(m_model.Option())->setFocus();
        return;
    }
    Box(PageBox::Width)->setFocus();
    Box(PageBox::Width)->selectAll();
}

void frmPageSetup::Centre() {
    adjustSize();
    platform::CentreOnScreen(this);
}

} // namespace quillbrook
