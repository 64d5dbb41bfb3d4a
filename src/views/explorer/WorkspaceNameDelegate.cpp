#include "views/explorer/WorkspaceNameDelegate.h"

#include "views/SideBarRows.h"
#include "window/chrome/Theme.h"
#include "window/chrome/ToolLineEdit.h"

#include <QKeyEvent>
#include <QToolTip>

#include <utility>

namespace {

// Design pixels.
constexpr int TEXT_MARGIN = 5; ///< of the field, so that the text stays where it was
constexpr int RIGHT_MARGIN = 6;

bool IsEnterKey(const QEvent& event)
{
    if (event.type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Tab
        || key == Qt::Key_Backtab;
}

} // namespace

WorkspaceNameDelegate::WorkspaceNameDelegate(
    Check check, std::function<int(const QModelIndex&)> labelLeft, QObject* parent)
    : QStyledItemDelegate(parent)
    , m_check(std::move(check))
    , m_labelLeft(std::move(labelLeft))
{ }

QString WorkspaceNameDelegate::TakeName()
{
    return std::exchange(m_name, QString());
}

QWidget* WorkspaceNameDelegate::createEditor(
    QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const
{
    auto* const field = new ToolLineEdit(parent);
    field->setObjectName(QStringLiteral("m_nameField"));
    field->setAccessibleName(tr("Name"));
    m_index = index;
    m_name.clear();
    connect(field, &QLineEdit::textEdited, this, [this, field](const QString& text) {
        QToolTip::hideText();
        field->SetFault(text.isEmpty() ? QString() : m_check(m_index, text));
    });
    return field;
}

/// The name without its ending is what people mean to change.
void WorkspaceNameDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    auto* const field = static_cast<ToolLineEdit*>(editor);
    // Asked for again when the row changes: what was typed stays.
    if (field->isModified())
        return;
    const QString name = index.data(Qt::EditRole).toString();
    const int dot = name.lastIndexOf(QLatin1Char('.'));
    const bool isFile = index.flags() & Qt::ItemNeverHasChildren;
    field->setText(name);
    field->setSelection(0, isFile && dot > 0 ? dot : name.size());
}

/// What is refused counts as given up.
void WorkspaceNameDelegate::setModelData(
    QWidget* editor, QAbstractItemModel*, const QModelIndex& index) const
{
    const QString name = static_cast<QLineEdit*>(editor)->text();
    const bool isRefused = !name.isEmpty() && !m_check(index, name).isEmpty();
    m_name = isRefused ? QString() : name;
    if (isRefused)
        Q_EMIT Refused(index, name);
}

void WorkspaceNameDelegate::updateEditorGeometry(
    QWidget* editor, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const int left = m_labelLeft(index) - Theme::Dp(TEXT_MARGIN);
    const int right = editor->parentWidget()->width() - Theme::Dp(RIGHT_MARGIN);
    editor->setGeometry(left, option.rect.top(), qMax(0, right - left), option.rect.height());
}

QSize WorkspaceNameDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    return {0, SideBarRows::RowHeight()};
}

bool WorkspaceNameDelegate::eventFilter(QObject* watched, QEvent* event)
{
    // Whoever looks into another window comes back to what was being typed.
    if (event->type() == QEvent::FocusOut) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason)
            return false;
    }
    auto* const field = qobject_cast<ToolLineEdit*>(watched);
    if (!field || !IsEnterKey(*event))
        return QStyledItemDelegate::eventFilter(watched, event);
    const QString fault = field->text().isEmpty() ? QString() : m_check(m_index, field->text());
    field->SetFault(fault);
    if (!fault.isEmpty()) {
        Q_EMIT Refused(m_index, field->text());
        QToolTip::showText(field->mapToGlobal({0, field->height()}), fault, field);
        return true;
    }
    Q_EMIT commitData(field);
    Q_EMIT closeEditor(field, QAbstractItemDelegate::NoHint);
    return true;
}
