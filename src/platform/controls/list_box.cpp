#include "platform/controls/list_box.h"

#include "platform/controls/list_model.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>

namespace platform {

namespace {

constexpr int kSide = 6;  // beside an entry's text, in pixels
constexpr int kAbove = 2; // above and below it

// How many of the lines of an entry are seen wholly; one in a list that is lower than a line.
int WholeLines(const QListView& list, const QRect& entry, int lineHeight) {
    const int above = list.uniformItemSizes() ? std::max(0, (entry.height() - lineHeight) / 2) : kAbove;
    const int lines = (list.viewport()->height() - entry.top() - above) / lineHeight;
    return entry.top() <= 0 ? std::max(lines, 1) : lines;
}

// Draws an entry over as many lines as it needs, but no line of which only a part would be seen. Qt's own
// delegate measures without the padding that a style sheet gives entries, and so ends an entry in dots that
// it took for fitting.
class LineDelegate final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const auto* list = qobject_cast<const ListBox*>(option.widget);
        const int width = list ? list->viewport()->width() : option.rect.width();
        const QRect room(0, 0, std::max(1, width - 2 * kSide), 10'000);
        const int line = option.fontMetrics.height();
        if (list && list->uniformItemSizes())
            return {width, list->EntryHeight() > 0 ? std::max(list->EntryHeight(), line) : line + 2 * kAbove};
        const QRect text = option.fontMetrics.boundingRect(room, kFlags, index.data().toString());
        return {width, text.height() + 2 * kAbove};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const auto* list = qobject_cast<const QListView*>(option.widget);
        const int lineHeight = option.fontMetrics.lineSpacing();
        const int lines = list ? WholeLines(*list, option.rect, lineHeight) : INT_MAX / lineHeight;
        if (lines <= 0)
            return;
        QStyleOptionViewItem ground = option;
        initStyleOption(&ground, index);
        const QString text = std::exchange(ground.text, QString());
        painter->save();
        if (lines < (option.rect.height() - kAbove) / lineHeight) {
            ground.rect.setHeight(kAbove + lines * lineHeight);
            painter->setClipRect(ground.rect);
        }
        option.widget->style()->drawControl(QStyle::CE_ItemViewItem, &ground, painter, option.widget);
        const bool selected = option.state.testFlag(QStyle::State_Selected);
        painter->setFont(option.font);
        painter->setPen(option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
        const QRect room = option.rect.adjusted(kSide, 0, -kSide, 0);
        if (list && list->uniformItemSizes())
            painter->drawText(room, Qt::AlignLeft | Qt::AlignVCenter,
                              option.fontMetrics.elidedText(text, Qt::ElideRight, room.width()));
        else
            painter->drawText(room.adjusted(0, kAbove, 0, -kAbove), kFlags, text);
        painter->restore();
    }

private:
    static constexpr int kFlags = Qt::TextWordWrap | Qt::AlignLeft | Qt::AlignTop;
};

} // namespace

ListBox::ListBox(bool sorted, QWidget* parent)
    : QListView(parent)
    , m_model(new ListModel(sorted, this)) {
    setModel(m_model);
    setItemDelegate(new LineDelegate(this));
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setUniformItemSizes(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
    setMouseTracking(true);
    setTabKeyNavigation(false);
}

void ListBox::WrapEntries() {
    m_wraps = true;
    setResizeMode(QListView::Adjust);
    FitEntries();
}

// Measuring each entry of a very long list would be felt.
void ListBox::FitEntries() {
    constexpr int kMostEntriesToMeasure = 1000;
    const bool wraps = m_wraps && ListCount() <= kMostEntriesToMeasure;
    setUniformItemSizes(!wraps);
    setWordWrap(wraps);
    setTextElideMode(wraps ? Qt::ElideNone : Qt::ElideRight);
}

void ListBox::AddItem(const QString& text) {
    const QScopedValueRollback quiet(m_quiet, true);
    m_model->Insert(text);
    FitEntries();
}

void ListBox::AddItems(const QStringList& texts) {
    const QScopedValueRollback quiet(m_quiet, true);
    const QString selected = Text();
    const bool hadSelection = ListIndex() >= 0;
    m_model->InsertAll(texts);
    FitEntries();
    if (hadSelection)
        setCurrentIndex(m_model->index(m_model->Find(selected)));
}

void ListBox::RemoveItem(int index) {
    const QScopedValueRollback quiet(m_quiet, true);
    StopTyping();
    // removing the selected entry selects none, not its neighbour
    if (index == ListIndex())
        setCurrentIndex({});
    m_model->Remove(index);
}

void ListBox::Clear() {
    const QScopedValueRollback quiet(m_quiet, true);
    StopTyping();
    m_model->Clear();
}

int ListBox::ListCount() const {
    return m_model->Count();
}

QString ListBox::List(int index) const {
    return index >= 0 && index < ListCount() ? m_model->At(index) : QString();
}

QStringList ListBox::Items() const {
    QStringList items;
    items.reserve(ListCount());
    for (int i = 0; i < ListCount(); ++i)
        items.append(m_model->At(i));
    return items;
}

void ListBox::SetItems(const QStringList& items) {
    const QScopedValueRollback quiet(m_quiet, true);
    StopTyping();
    m_model->Replace(items);
    FitEntries();
}

QString ListBox::Text() const {
    return List(ListIndex());
}

void ListBox::setText(const QString& text) {
    setListIndex(m_model->Find(text));
}

int ListBox::ListIndex() const {
    return currentIndex().isValid() ? currentIndex().row() : -1;
}

void ListBox::setListIndex(int index) {
    if (index < 0 || index >= ListCount())
        return;
    StopTyping();
    {
        const QScopedValueRollback quiet(m_quiet, true);
        setCurrentIndex(m_model->index(index));
    }
    Q_EMIT Click();
}

QModelIndex ListBox::EntryAt(const QPoint& place) const {
    const QModelIndex entry = indexAt(place);
    const bool isSeen =
        entry.isValid() && WholeLines(*this, visualRect(entry), fontMetrics().lineSpacing()) > 0;
    return isSeen ? entry : QModelIndex();
}

void ListBox::mousePressEvent(QMouseEvent* event) {
    // only the left button chooses; the space below the entries keeps what was chosen
    if (event->button() != Qt::LeftButton || !EntryAt(event->position().toPoint()).isValid()) {
        event->accept();
        return;
    }
    StopTyping();
    m_mouseDown = true;
    QListView::mousePressEvent(event);
}

void ListBox::mouseReleaseEvent(QMouseEvent* event) {
    QListView::mouseReleaseEvent(event);
    if (!m_mouseDown || event->button() != Qt::LeftButton)
        return;
    m_mouseDown = false;
    if (currentIndex().isValid())
        Q_EMIT Click();
}

void ListBox::mouseMoveEvent(QMouseEvent* event) {
    QListView::mouseMoveEvent(event);
    const QModelIndex entry = EntryAt(event->position().toPoint());
    Q_EMIT MouseMove(event->buttons(), entry.isValid() ? entry.row() : -1);
}

void ListBox::mouseDoubleClickEvent(QMouseEvent* event) {
    QListView::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton && EntryAt(event->position().toPoint()).isValid())
        Q_EMIT DoubleClick();
}

// Enter chooses what is selected once more, as a click on it does.
void ListBox::keyPressEvent(QKeyEvent* event) {
    if ((event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) || ListIndex() < 0) {
        QListView::keyPressEvent(event);
        return;
    }
    StopTyping();
    Q_EMIT Click();
}

// The letters of a word come one by one. The first one's entry is not chosen yet: who is told of it may take
// the focus away, and with it the other letters.
void ListBox::keyboardSearch(const QString& search) {
    if (!m_typing.isActive())
        m_typedFrom = ListIndex();
    {
        const QScopedValueRollback quiet(m_quiet, true);
        QListView::keyboardSearch(search);
    }
    m_typing.start(QApplication::keyboardInputInterval(), this);
    qApp->installEventFilter(this);
}

void ListBox::timerEvent(QTimerEvent* event) {
    if (event->timerId() == m_typing.timerId())
        ChooseTyped();
    else
        QListView::timerEvent(event);
}

// A button or a shortcut that comes before the pause is over works on the entry typed, as it is seen
// selected. A key that does nothing here must not: it would go on to what gets the focus.
bool ListBox::eventFilter(QObject* watched, QEvent* event) {
    const bool isPress =
        event->type() == QEvent::MouseButtonPress && watched->isWidgetType() && watched != viewport();
    if (isPress || event->type() == QEvent::Shortcut)
        ChooseTyped();
    return QListView::eventFilter(watched, event);
}

void ListBox::focusOutEvent(QFocusEvent* event) {
    if (m_typing.isActive())
        ChooseTyped();
    QListView::focusOutEvent(event);
}

void ListBox::StopTyping() {
    m_typing.stop();
    qApp->removeEventFilter(this);
}

void ListBox::ChooseTyped() {
    StopTyping();
    if (ListIndex() >= 0 && ListIndex() != m_typedFrom)
        Q_EMIT Click();
}

// Qt's list would choose its first entry when it gets the focus.
void ListBox::focusInEvent(QFocusEvent* event) {
    if (currentIndex().isValid())
        QListView::focusInEvent(event);
    else
        QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void ListBox::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QListView::currentChanged(current, previous);
    if (m_quiet || m_mouseDown || !current.isValid())
        return;
    StopTyping();
    Q_EMIT Click();
}

} // namespace platform
