// Widgets, place and input of the go-to widget.

#include "views/goto/GoToModes.h"
#include "views/goto/GoToRowDelegate.h"
#include "views/goto/GoToWidget.h"
#include "views/goto/WorkspaceFiles.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QVBoxLayout>

namespace {

// Design pixels.
constexpr int WIDTH = 400;
constexpr int SIDE_MARGIN = 20; ///< that the window keeps free at each side
constexpr int TOP_MARGIN = 8;
constexpr int FIELD_HEIGHT = 26;
constexpr int PADDING = 4; ///< of the rows
constexpr int FIELD_PADDING = 4; ///< more, of the field
constexpr int GAP = 5;
constexpr int TEXT_SHIFT = -1; ///< against the toolkit's own margin

constexpr int MAXIMUM_ROWS = 12;
constexpr int WANTED_ROWS = 6; ///< for which the widget goes further up in a low window

constexpr int FADE = 110; // ms

/// What a key does, apart from typing.
enum class KeyUse { None, Up, Down, PageUp, PageDown, Accept, Cancel };

KeyUse UseOf(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const bool isPlain = modifiers == Qt::NoModifier;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return isPlain || modifiers == Qt::ControlModifier ? KeyUse::Accept : KeyUse::None;
    case Qt::Key_Escape: return KeyUse::Cancel;
    // There is nothing else in here that could get the focus.
    case Qt::Key_Tab:
    case Qt::Key_Down: return isPlain ? KeyUse::Down : KeyUse::None;
    case Qt::Key_Backtab: return KeyUse::Up;
    case Qt::Key_Up: return isPlain ? KeyUse::Up : KeyUse::None;
    case Qt::Key_PageUp: return isPlain ? KeyUse::PageUp : KeyUse::None;
    case Qt::Key_PageDown: return isPlain ? KeyUse::PageDown : KeyUse::None;
    default: return KeyUse::None;
    }
}

} // namespace

GoToWidget::GoToWidget(const Sources& sources, QWidget* anchor, QWidget* parent)
    : OverlayFrame(parent)
    , m_sources(sources)
    , m_anchor(anchor)
    , m_workspaceFiles(new WorkspaceFiles(this))
{
    SetMotion(FADE, 0);
    CreateWidgets();
    CreateLayout();
    CreateConnections();
    FollowAnchor();
}

void GoToWidget::CreateWidgets()
{
    m_field = new QLineEdit(this);
    m_field->setObjectName(QStringLiteral("m_field"));
    m_field->setAccessibleName(tr("Go to"));
    m_field->setPlaceholderText(tr("Go to File"));
    m_field->setTextMargins(TEXT_SHIFT, 0, 0, 0);
    m_field->installEventFilter(this);
    // Clicks beside the field leave the focus in it.
    setFocusProxy(m_field);
    setFocusPolicy(Qt::ClickFocus);

    m_model = new GoToModel(this);
    m_list = new QListView(this);
    m_list->setObjectName(QStringLiteral("m_list"));
    m_list->setAccessibleName(tr("Places to go to"));
    m_list->setModel(m_model);
    m_delegate = new GoToRowDelegate(m_list);
    m_list->setItemDelegate(m_delegate);
    m_list->setFocusPolicy(Qt::NoFocus);
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setUniformItemSizes(true);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->viewport()->setAutoFillBackground(false);
    m_list->viewport()->setAttribute(Qt::WA_Hover);
}

void GoToWidget::CreateLayout()
{
    auto* fieldRow = new QVBoxLayout;
    fieldRow->addWidget(m_field);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(fieldRow);
    layout->addWidget(m_list);
    FollowLook(this, [this] { UpdateLook(); });
}

void GoToWidget::UpdateLook()
{
    const int padding = Theme::Hairline() + Theme::Dp(PADDING);
    const int more = Theme::Dp(FIELD_PADDING);
    m_field->setFixedHeight(Theme::Dp(FIELD_HEIGHT));
    layout()->setSpacing(Theme::Dp(GAP));
    layout()->setContentsMargins(
        padding, padding + more, padding, Theme::Hairline() + Theme::Dp(GAP));
    layout()->itemAt(0)->layout()->setContentsMargins(more, 0, more, 0);
    Place();
}

void GoToWidget::CreateConnections()
{
    using G = GoToWidget;
    using W = WorkspaceFiles;
    connect(m_field, &QLineEdit::textChanged, this, &G::OnTextChanged);
    connect(m_list, &QAbstractItemView::clicked, this, &G::OnRowClicked);
    connect(m_workspaceFiles, &W::Grown, this, &G::OnFilesGrown);
    connect(m_workspaceFiles, &W::Finished, this, &G::OnFilesFinished);
}

/// The anchor moves with what is around it.
void GoToWidget::FollowAnchor()
{
    for (QWidget* widget = m_anchor; widget; widget = widget->parentWidget()) {
        widget->installEventFilter(this);
        if (widget == parentWidget())
            break;
    }
}

/// At the top centre of the anchor, or of what is left of the window while that is hidden.
void GoToWidget::Place()
{
    const QWidget* shown = m_anchor;
    while (shown != parentWidget() && !shown->isVisible())
        shown = shown->parentWidget();
    const QRect area(shown->mapTo(parentWidget(), QPoint()), shown->size());
    const QSize room = parentWidget()->size();
    const int margin = Theme::Dp(SIDE_MARGIN);
    const int width = qMax(margin, qMin(Theme::Dp(WIDTH), room.width() - 2 * margin));
    const int left = qMax(0, qMin(area.center().x() - width / 2, room.width() - margin - width));

    const int rowHeight = GoToRowDelegate::RowHeight();
    m_list->setFixedHeight(0);
    layout()->activate();
    const int frame = layout()->sizeHint().height();
    const int lowest = room.height() - Theme::Dp(TOP_MARGIN) - frame - WANTED_ROWS * rowHeight;
    const int top = qMax(0, qMin(area.top() + Theme::Dp(TOP_MARGIN), lowest));
    const int fitting = (room.height() - Theme::Dp(TOP_MARGIN) - top - frame) / rowHeight;
    const int rows = qBound(1, m_model->rowCount(), qBound(1, fitting, MAXIMUM_ROWS));
    m_list->setFixedHeight(rows * rowHeight);
    layout()->activate();
    setGeometry(
        qMax(left, qMin(margin, room.width() - width)), top, width, layout()->sizeHint().height());
    m_list->scrollTo(m_list->currentIndex());
}

void GoToWidget::Open(Mode mode)
{
    if (!isHidden()) {
        if (m_mode == mode)
            MoveBy(1, true);
        else
            m_field->setText(GoToModes::PrefixOf(mode));
        return;
    }
    m_editor = m_sources.editor();
    {
        const QSignalBlocker blocker(m_field);
        m_field->setText(GoToModes::PrefixOf(mode));
    }
    EnterMode(mode);
    Place();
    Appear();
    // For a shortcut the field would select the prefix, and typing replace it.
    m_field->setFocus(Qt::OtherFocusReason);
}

bool GoToWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_field) {
        const bool moves = event->type() == QEvent::Resize || event->type() == QEvent::Move
            || event->type() == QEvent::Show || event->type() == QEvent::Hide;
        if (moves && !isHidden())
            Place();
        return OverlayFrame::eventFilter(watched, event);
    }
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        if (UseOf(static_cast<const QKeyEvent&>(*event)) == KeyUse::None)
            return false;
        event->accept();
        return true;
    case QEvent::KeyPress: return HandleKey(static_cast<const QKeyEvent&>(*event));
    case QEvent::FocusOut: OnFocusOut(static_cast<const QFocusEvent&>(*event).reason()); break;
    default: break;
    }
    return OverlayFrame::eventFilter(watched, event);
}

bool GoToWidget::HandleKey(const QKeyEvent& event)
{
    const int page = qMax(1, m_list->height() / GoToRowDelegate::RowHeight() - 1);
    switch (UseOf(event)) {
    case KeyUse::Up: MoveBy(-1, true); break;
    case KeyUse::Down: MoveBy(1, true); break;
    case KeyUse::PageUp: MoveBy(-page, false); break;
    case KeyUse::PageDown: MoveBy(page, false); break;
    case KeyUse::Accept: Accept(event.modifiers() & Qt::ControlModifier); break;
    case KeyUse::Cancel: Cancel(); break;
    case KeyUse::None: return false;
    }
    return true;
}

/// The field's own menu takes the focus for a while only.
void GoToWidget::OnFocusOut(Qt::FocusReason reason)
{
    if (m_isLeaving || isHidden() || reason == Qt::PopupFocusReason)
        return;
    // Not now: the window may be about to go.
    if (reason == Qt::ActiveWindowFocusReason) {
        QMetaObject::invokeMethod(this, &GoToWidget::OnWindowLeft, Qt::QueuedConnection);
        return;
    }
    EndPreview();
    Disappear();
}

/// When the window is active again somebody has to have the focus.
void GoToWidget::OnWindowLeft()
{
    if (!isHidden() && !m_field->hasFocus())
        Cancel();
}

void GoToWidget::hideEvent(QHideEvent* event)
{
    OverlayFrame::hideEvent(event);
    m_workspaceFiles->Stop();
    // With the window: it is not to be there when the window comes back.
    if (!isHidden())
        hide();
    EndPreview();
}

int GoToWidget::CurrentRow() const
{
    return m_list->currentIndex().row();
}

void GoToWidget::SetCurrentRow(int row)
{
    const bool isChoice = m_model->IsChoice(row);
    m_list->setCurrentIndex(isChoice ? m_model->index(row) : QModelIndex());
    // Read out while the focus stays in the field.
    const QModelIndex described = isChoice ? m_list->currentIndex() : m_model->index(0);
    m_field->setAccessibleDescription(described.data(Qt::AccessibleTextRole).toString());
}

void GoToWidget::MoveBy(int step, bool wraps)
{
    int choices = 0; // notes stand behind them
    while (m_model->IsChoice(choices))
        ++choices;
    if (choices == 0)
        return;
    const int wanted = CurrentRow() + step;
    SetCurrentRow(wraps ? (wanted + choices) % choices : qBound(0, wanted, choices - 1));
    m_hasMoved = true;
    Preview();
}

void GoToWidget::OnRowClicked(const QModelIndex& index)
{
    if (m_mode != Mode::Line && !m_model->IsChoice(index.row()))
        return;
    SetCurrentRow(index.row());
    Accept(QGuiApplication::keyboardModifiers() & Qt::ControlModifier);
}

void GoToWidget::Accept(bool inNextGroup)
{
    if (m_mode == Mode::Line && m_line.line > 0) {
        const GoToEntries::FilePlace place = m_line;
        m_isPreviewing = false;
        Leave();
        Q_EMIT LinePicked(place.line, place.column, true);
    } else if (m_model->IsChoice(CurrentRow())) {
        AcceptEntry(m_model->GetRows()[CurrentRow()].entry, inNextGroup);
    }
}

void GoToWidget::AcceptEntry(const GoToEntry& entry, bool inNextGroup)
{
    const Mode mode = m_mode;
    const GoToEntry chosen = entry;
    if (mode == Mode::Help) {
        m_field->setText(chosen.target);
        return;
    }
    const GoToEntries::FilePlace place = GoToEntries::ParseFilePlace(TypedText());
    m_isPreviewing = false;
    Leave();
    switch (mode) {
    case Mode::Files:
        Q_EMIT FileChosen(chosen.target, place.line, place.column, inNextGroup);
        break;
    case Mode::Symbols: Q_EMIT SymbolPicked(chosen.value, chosen.end, true); break;
    case Mode::Commands: Q_EMIT CommandChosen(chosen.value); break;
    case Mode::Line:
    case Mode::Help: break;
    }
}

void GoToWidget::Cancel()
{
    EndPreview();
    Leave();
}

/// The focus goes first: what is hidden with the focus hands it to whatever comes next.
void GoToWidget::Leave()
{
    m_isLeaving = true;
    Q_EMIT FocusReturnRequested();
    Disappear();
    m_isLeaving = false;
}
