#include "editor/EmptyGroupHint.h"

#include "settings/KeyBindings.h"
#include "window/chrome/Theme.h"

#include <QAction>
#include <QEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {

// Design pixels.
constexpr int DRAWING_SIZE = 40;
constexpr int DRAWING_GAP = 14;
constexpr int ROW_HEIGHT = 21;
constexpr int COLUMN_GAP = 18;
constexpr double DRAWING_OPACITY = 0.6;

struct HintRow
{
    int binding;
    const char* label;
};

constexpr HintRow HINTS[] = {
    {KeyBindings::NewPythonBuffer, QT_TRANSLATE_NOOP("EmptyGroupHint", "New Python Buffer")},
    {KeyBindings::NewMelBuffer, QT_TRANSLATE_NOOP("EmptyGroupHint", "New MEL Buffer")},
    {KeyBindings::OpenFile, QT_TRANSLATE_NOOP("EmptyGroupHint", "Open File")},
    {KeyBindings::GotoFile, QT_TRANSLATE_NOOP("EmptyGroupHint", "Go to File")},
};

bool HasAction(const KeyBindings& bindings, int id)
{
    const QList<KeyBinding>& all = bindings.GetKeySequences();
    return std::any_of(all.cbegin(), all.cend(),
        [id](const KeyBinding& binding) { return binding.id == id && binding.action; });
}

} // namespace

EmptyGroupHint::EmptyGroupHint(const KeyBindings* keyBindings, QWidget* parent)
    : QWidget(parent)
    , m_keyBindings(keyBindings)
{
    setAccessibleName(tr("No editors"));
    // A click brings the keyboard here, also from outside of the window: its keys work then.
    setFocusPolicy(Qt::ClickFocus);
    setGeometry(parent->rect());
    parent->installEventFilter(this);
}

QVector<EmptyGroupHint::Row> EmptyGroupHint::GetRows() const
{
    QVector<Row> rows;
    for (const HintRow& hint : HINTS) {
        const QString shortcut
            = m_keyBindings->GetShortcut(hint.binding).toString(QKeySequence::NativeText);
        if (HasAction(*m_keyBindings, hint.binding) && !shortcut.isEmpty())
            rows.append({tr(hint.label), shortcut});
    }
    return rows;
}

void EmptyGroupHint::UpdateKeyBindings()
{
    QStringList lines;
    for (const Row& row : GetRows())
        lines.append(QStringLiteral("%1 (%2)").arg(row.label, row.shortcut));
    setAccessibleDescription(lines.join(QStringLiteral(", ")));
    update();
}

bool EmptyGroupHint::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parent() && event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return QWidget::eventFilter(watched, event);
}

void EmptyGroupHint::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    // The actions come after the groups.
    UpdateKeyBindings();
}

void EmptyGroupHint::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Theme::Color(Theme::Role::Canvas));

    const QVector<Row> rows = GetRows();
    const int drawing = Theme::Dp(DRAWING_SIZE);
    const int rowHeight = qMax(Theme::Dp(ROW_HEIGHT), fontMetrics().height());
    const int rowsHeight = rows.isEmpty() ? 0 : Theme::Dp(DRAWING_GAP) + rows.size() * rowHeight;
    int top = (height() - drawing - rowsHeight) / 2;
    painter.setOpacity(DRAWING_OPACITY);
    painter.drawPixmap(QRect((width() - drawing) / 2, top, drawing, drawing),
        Theme::Pixmap(QStringLiteral("tarnwick"), DRAWING_SIZE, devicePixelRatioF()));
    painter.setOpacity(1.0);

    int labels = 0;
    int shortcuts = 0;
    for (const Row& row : rows) {
        labels = qMax(labels, fontMetrics().horizontalAdvance(row.label));
        shortcuts = qMax(shortcuts, fontMetrics().horizontalAdvance(row.shortcut));
    }
    const int gap = Theme::Dp(COLUMN_GAP);
    const int left = (width() - labels - gap - shortcuts) / 2;
    top += drawing + Theme::Dp(DRAWING_GAP);
    for (const Row& row : rows) {
        painter.setPen(Theme::Color(Theme::Role::Soft));
        painter.drawText(
            QRect(left, top, labels, rowHeight), Qt::AlignRight | Qt::AlignVCenter, row.label);
        painter.setPen(Theme::Color(Theme::Role::Faint));
        painter.drawText(QRect(left + labels + gap, top, shortcuts, rowHeight),
            Qt::AlignLeft | Qt::AlignVCenter, row.shortcut);
        top += rowHeight;
    }
}

void EmptyGroupHint::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT NewTabRequested();
}
