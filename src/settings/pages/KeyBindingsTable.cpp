#include "settings/pages/KeyBindingsTable.h"

#include "settings/pages/KeyBindingDelegate.h"
#include "settings/pages/KeyCaptureField.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"
#include "window/chrome/ToolTipText.h"

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <utility>

namespace {

// Design pixels.
constexpr int FIELD_WIDTH = 150;
constexpr int LEAST_FIELD_WIDTH = 110;
constexpr int FIELD_MARGIN = 1; ///< above and below
constexpr int TEXT_INSET = 7; ///< of the field

// Shares of the width, in percent; the rest is the marks'.
constexpr int COMMAND_SHARE = 39;
constexpr int SHORTCUT_SHARE = 32;

using M = KeyBindingsModel;

} // namespace

KeyBindingsTable::KeyBindingsTable(KeyBindingsModel* model, QWidget* parent)
    : QTreeView(parent)
    , m_model(model)
    , m_delegate(new KeyBindingDelegate(this))
{
    setModel(model);
    setItemDelegate(m_delegate);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setMouseTracking(true);
    setEditTriggers(NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    header()->setObjectName(QStringLiteral("header"));
    header()->setAccessibleName(tr("Columns"));
    header()->setStretchLastSection(true);
    header()->setSectionsClickable(false);
    header()->setHighlightSections(false);
    header()->setSectionResizeMode(QHeaderView::Fixed);
    header()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    connect(qApp, &QApplication::focusChanged, this, &KeyBindingsTable::OnFocusChanged);
    connect(model, &QAbstractItemModel::dataChanged, this, [this] {
        viewport()->update();
        Q_EMIT CurrentChanged();
    });
    FollowLook(this, [this] {
        header()->setFont(Theme::CaptionFont(font()));
        scheduleDelayedItemsLayout();
        PlaceColumns();
        PlaceField();
    });
}

int KeyBindingsTable::GetCurrentRow() const
{
    const int row = currentIndex().row();
    return row >= 0 && isRowHidden(row, {}) ? -1 : row;
}

int KeyBindingsTable::CountKeys() const
{
    const int row = GetCurrentRow();
    return row < 0 ? 0 : m_model->GetSequences(row).size();
}

void KeyBindingsTable::ShowRows(
    const std::function<bool(int row)>& isShown, const QString& emptyText)
{
    FinishEditing();
    m_emptyText = emptyText;
    int first = -1;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const bool shown = isShown(row);
        setRowHidden(row, {}, !shown);
        first = shown && first < 0 ? row : first;
    }
    if (GetCurrentRow() < 0 && first >= 0)
        setCurrentIndex(m_model->index(first, M::COMMAND));
    else if (GetCurrentRow() >= 0)
        scrollTo(currentIndex());
    viewport()->update();
    Q_EMIT CurrentChanged();
}

int KeyBindingsTable::MarkMatches(const QString& text)
{
    m_delegate->SetMatch(text);
    viewport()->update();
    int matches = 0;
    for (int row = 0; row < m_model->rowCount() && !text.isEmpty(); ++row) {
        if (m_model->ContainsText(row, text) && matches++ == 0)
            setCurrentIndex(m_model->index(row, M::COMMAND));
    }
    return matches;
}

void KeyBindingsTable::EditKeys()
{
    Edit(m_place);
}

void KeyBindingsTable::AddKeys()
{
    Edit(CountKeys());
}

void KeyBindingsTable::Edit(int place)
{
    const int row = GetCurrentRow();
    if (row < 0 || m_model->IsFixed(row))
        return;
    FinishEditing();
    scrollTo(m_model->index(row, M::SHORTCUT));
    m_editedRow = row;
    m_before = m_model->GetSequences(row);
    m_place = qBound(0, place, m_before.size());
    m_field = new KeyCaptureField(viewport());
    m_field->setObjectName(QStringLiteral("m_field"));
    m_field->setAccessibleName(tr("Keys for %1").arg(m_model->GetBindings()[row].label));
    m_field->SetKnownSequences(m_model->GetAllSequences());
    if (m_place < m_before.size())
        m_field->setText(m_before[m_place].toString(QKeySequence::PortableText));
    m_field->selectAll();
    connect(m_field, &QLineEdit::textEdited, this, &KeyBindingsTable::OnKeysCaptured);
    connect(m_field, &KeyCaptureField::Accepted, this, &KeyBindingsTable::FinishEditing);
    connect(m_field, &KeyCaptureField::Cancelled, this, &KeyBindingsTable::CancelEditing);
    PlaceField();
    m_field->show();
    m_field->setFocus(Qt::OtherFocusReason);
    m_model->SetEditedRow(row);
}

/// At the end of the cell, where the keys that stay end, or over them where there is no room.
void KeyBindingsTable::PlaceField()
{
    if (!m_field)
        return;
    const QModelIndex index = m_model->index(m_editedRow, M::SHORTCUT);
    const QRect cell = visualRect(index);
    const QVector<QRect> places = m_delegate->PlaceKeys(cell, font(), index);
    const int keys = places[qMin(m_place, places.size() - 1)].left() - Theme::Dp(TEXT_INSET);
    const int end = cell.right() + 1;
    const int left
        = qBound(cell.left(), keys, qMax(cell.left(), end - Theme::Dp(LEAST_FIELD_WIDTH)));
    const int width = qMin(Theme::Dp(FIELD_WIDTH), end - left);
    const int margin = Theme::Dp(FIELD_MARGIN);
    m_delegate->SetEdited(m_editedRow, m_place, left);
    m_field->setGeometry(left, cell.top() + margin, width, cell.height() - 2 * margin);
}

void KeyBindingsTable::OnKeysCaptured()
{
    QList<QKeySequence> sequences = m_before;
    const QKeySequence captured = m_field->GetSequence();
    if (m_place < sequences.size())
        sequences[m_place] = captured;
    else
        sequences += captured;
    m_model->SetSequences(m_editedRow, sequences);
    m_field->setAccessibleDescription(m_model->Describe(m_editedRow));
}

void KeyBindingsTable::FinishEditing()
{
    if (m_field)
        CloseField();
}

void KeyBindingsTable::CancelEditing()
{
    if (!m_field)
        return;
    m_model->SetSequences(m_editedRow, m_before);
    CloseField();
}

void KeyBindingsTable::CloseField()
{
    KeyCaptureField* const field = std::exchange(m_field, nullptr);
    const bool hadFocus = field->hasFocus() || field->isAncestorOf(QApplication::focusWidget());
    m_delegate->SetEdited(-1, -1, 0);
    m_editedRow = -1;
    m_model->SetEditedRow(-1);
    SetPlace(qMin(m_place, qMax(0, CountKeys() - 1)));
    // A field that goes while it has the focus would hand it on to any widget.
    if (hadFocus)
        setFocus(Qt::OtherFocusReason);
    field->hide();
    field->deleteLater();
}

void KeyBindingsTable::OnFocusChanged(QWidget*, QWidget* now)
{
    // Without a focus another application is in front; one comes back to the field.
    if (m_field && now && now != m_field && !m_field->isAncestorOf(now))
        FinishEditing();
}

void KeyBindingsTable::RemoveKeys()
{
    const int row = GetCurrentRow();
    if (row < 0 || m_model->IsFixed(row) || CountKeys() == 0)
        return;
    QList<QKeySequence> sequences = m_model->GetSequences(row);
    sequences.removeAt(qBound(0, m_place, sequences.size() - 1));
    m_model->SetSequences(row, sequences);
    SetPlace(qMin(m_place, qMax(0, sequences.size() - 1)));
}

void KeyBindingsTable::ClearRow()
{
    const int row = GetCurrentRow();
    if (row >= 0)
        m_model->Clear(row);
    SetPlace(0);
}

void KeyBindingsTable::ResetRow()
{
    const int row = GetCurrentRow();
    if (row >= 0)
        m_model->Reset(row);
    SetPlace(0);
}

void KeyBindingsTable::SetPlace(int place)
{
    m_place = place;
    m_delegate->SetPlace(place);
    viewport()->update();
}

void KeyBindingsTable::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    SetPlace(0);
    Q_EMIT CurrentChanged();
}

void KeyBindingsTable::keyPressEvent(QKeyEvent* event)
{
    const bool isAlone = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    switch (isAlone ? event->key() : 0) {
    case Qt::Key_Left: SetPlace(qMax(0, m_place - 1)); break;
    case Qt::Key_Right: SetPlace(qBound(0, m_place + 1, qMax(0, CountKeys() - 1))); break;
    // On a fixed row they would press the button of the dialog.
    case Qt::Key_Return:
    case Qt::Key_Enter: break;
    default: QTreeView::keyPressEvent(event);
    }
}

/// Which of the keys in the row under the point; the first one without any.
int KeyBindingsTable::PlaceAt(const QPoint& point) const
{
    const QModelIndex index = indexAt(point);
    if (!index.isValid() || index.column() != M::SHORTCUT)
        return 0;
    const QVector<QRect> places = m_delegate->PlaceKeys(visualRect(index), font(), index);
    for (int i = places.size() - 2; i > 0; --i) {
        if (point.x() >= places[i].left())
            return i;
    }
    return 0;
}

void KeyBindingsTable::mousePressEvent(QMouseEvent* event)
{
    FinishEditing();
    QTreeView::mousePressEvent(event);
    if (indexAt(event->pos()).isValid())
        SetPlace(PlaceAt(event->pos()));
}

void KeyBindingsTable::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && indexAt(event->pos()).isValid())
        Edit(PlaceAt(event->pos()));
}

void KeyBindingsTable::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
    for (int row = 0; row < m_model->rowCount(); ++row) {
        if (!isRowHidden(row, {}))
            return;
    }
    QPainter painter(viewport());
    painter.setFont(font());
    painter.setPen(Theme::Color(Theme::Role::Faint));
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, m_emptyText);
}

void KeyBindingsTable::resizeEvent(QResizeEvent* event)
{
    QTreeView::resizeEvent(event);
    PlaceColumns();
    PlaceField();
}

void KeyBindingsTable::PlaceColumns()
{
    const int width = viewport()->width();
    header()->resizeSection(M::COMMAND, width * COMMAND_SHARE / 100);
    header()->resizeSection(M::SHORTCUT, width * SHORTCUT_SHARE / 100);
}

void KeyBindingsTable::scrollContentsBy(int dx, int dy)
{
    QTreeView::scrollContentsBy(dx, dy);
    PlaceField();
}

bool KeyBindingsTable::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QTreeView::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QModelIndex index = indexAt(help->pos());
    if (!index.isValid()) {
        QToolTip::hideText();
        return true;
    }
    QStringList lines{
        m_model->index(index.row(), M::COMMAND).data(Qt::AccessibleTextRole).toString(),
        m_model->DescribeDefault(index.row()), m_model->Describe(index.row())};
    lines.removeAll(QString());
    QToolTip::showText(
        help->globalPos(), ToolTipLines(lines.join(QLatin1Char('\n'))), this, visualRect(index));
    return true;
}
