// What the find bar does; what it is made of is in FindReplaceWidgetLook.cpp.

#include "editor/FindReplaceWidget.h"

#include "editor/SearchExpression.h"
#include "window/chrome/FlatButton.h"
#include "window/chrome/ToolLineEdit.h"

#include <QKeyEvent>
#include <QRegularExpression>

FindReplaceWidget::FindReplaceWidget(bool replaceAvailable, QWidget* parent)
    : OverlayFrame(parent)
    , m_replaceEnabled(replaceAvailable)
{
    setAccessibleName(tr("Find and Replace"));
    CreateWidgets();
    CreateLayout();
    CreateConnections();
    UpdateReplaceRow();
}

void FindReplaceWidget::CreateConnections()
{
    using F = FindReplaceWidget;
    connect(m_searchLineEdit, &QLineEdit::textChanged, this, &F::OnSearchParametersChanged);
    for (FlatButton* tool : {m_matchCaseButton, m_matchWordButton, m_regularExpressionButton})
        connect(tool, &QAbstractButton::toggled, this, &F::OnSearchParametersChanged);
    connect(m_findInSelectionButton, &QAbstractButton::toggled, this, &F::OnFindInSelectionToggled);
    static constexpr std::pair<FlatButton * F::*, void (F::*)()> CLICKS[] = {
        {&F::m_previousButton, &F::FindPrevious},
        {&F::m_nextButton, &F::FindNext},
        {&F::m_closeButton, &F::Close},
        {&F::m_replaceButton, &F::Replace},
        {&F::m_replaceAllButton, &F::ReplaceAll},
    };
    for (const auto& click : CLICKS)
        connect(this->*click.first, &QAbstractButton::clicked, this, click.second);
    connect(m_toggleReplaceButton, &QAbstractButton::clicked, this,
        [this] { SetReplaceVisible(!IsReplaceVisible()); });
}

void FindReplaceWidget::Close()
{
    if (isHidden())
        return;
    m_history.Add(GetSearchText());
    ShowNotice({});
    Disappear();
    Q_EMIT Closed();
}

void FindReplaceWidget::FindNext()
{
    m_history.Add(GetSearchText());
    ShowNotice({});
    Q_EMIT FindNextRequested();
}

void FindReplaceWidget::FindPrevious()
{
    m_history.Add(GetSearchText());
    ShowNotice({});
    Q_EMIT FindPreviousRequested();
}

void FindReplaceWidget::Replace()
{
    m_history.Add(GetSearchText());
    ShowNotice({});
    Q_EMIT ReplaceRequested(m_replaceLineEdit->text());
}

void FindReplaceWidget::ReplaceAll()
{
    m_history.Add(GetSearchText());
    Q_EMIT ReplaceAllRequested(m_replaceLineEdit->text());
}

void FindReplaceWidget::SetSearchText(const QString& text)
{
    if (text != GetSearchText())
        m_searchLineEdit->setText(text);
    else
        AnnounceSearch(false, false);
}

void FindReplaceWidget::SeedSearchText(const QString& text)
{
    SetSearchText(m_regularExpressionButton->isChecked() ? QRegularExpression::escape(text) : text);
}

QString FindReplaceWidget::GetSearchText() const
{
    return m_searchLineEdit->text();
}

bool FindReplaceWidget::HasSearchText() const
{
    return !GetSearchText().isEmpty();
}

void FindReplaceWidget::FocusSearchText()
{
    m_searchLineEdit->setFocus(Qt::ShortcutFocusReason);
    m_searchLineEdit->selectAll();
}

void FindReplaceWidget::FocusReplaceText()
{
    m_replaceLineEdit->setFocus(Qt::ShortcutFocusReason);
    m_replaceLineEdit->selectAll();
}

void FindReplaceWidget::SetReplaceVisible(bool visible)
{
    if (m_replaceVisible == (visible && m_replaceEnabled))
        return;
    m_replaceVisible = visible && m_replaceEnabled;
    UpdateReplaceRow();
}

void FindReplaceWidget::SetReplaceEnabled(bool enabled)
{
    m_replaceEnabled = enabled;
    m_replaceVisible = m_replaceVisible && enabled;
    UpdateReplaceRow();
    UpdateLook();
}

void FindReplaceWidget::SetFindInSelectionEnabled(bool enabled, bool announce)
{
    const QSignalBlocker blocker(announce ? nullptr : m_findInSelectionButton);
    m_findInSelectionButton->setChecked(enabled);
    m_findInSelectionButton->update();
}

bool FindReplaceWidget::IsFindInSelection() const
{
    return m_findInSelectionButton->isChecked();
}

void FindReplaceWidget::OnSearchParametersChanged()
{
    AnnounceSearch(true, false);
}

void FindReplaceWidget::OnFindInSelectionToggled()
{
    AnnounceSearch(false, IsFindInSelection());
}

void FindReplaceWidget::AnnounceSearch(bool incremental, bool retakeRegion)
{
    const bool typedAsExpression = m_regularExpressionButton->isChecked();
    QRegularExpression expression = CreateSearchRegEx(GetSearchText(),
        m_matchCaseButton->isChecked(), m_matchWordButton->isChecked(), typedAsExpression);
    SetFault(expression.isValid() ? QString() : DescribeFault(GetSearchText()));
    ShowNotice({});
    m_replaceLineEdit->SetPlainToolTip(typedAsExpression
            ? tr("\\0 inserts the match, \\1 to \\9 and \\g<name> what the groups found,\n"
                 "\\n a line end, \\t a tab, \\\\ a backslash.")
            : QString());
    if (!expression.isValid())
        expression = QRegularExpression();
    else if (typedAsExpression)
        expression = WithMatchLimit(expression);
    Q_EMIT SearchChanged(expression, IsFindInSelection(), incremental, retakeRegion);
}

void FindReplaceWidget::SetFault(const QString& fault)
{
    m_searchLineEdit->SetFault(fault);
    m_fault = fault;
    UpdateMessageLabel();
}

void FindReplaceWidget::SetMessage(const QString& message)
{
    m_message = message;
    UpdateMessageLabel();
}

void FindReplaceWidget::ShowNotice(const QString& notice)
{
    m_notice = notice;
    UpdateMessageLabel();
}

void FindReplaceWidget::SetResults(int current, int total)
{
    m_total = qMax(0, total);
    m_current = qBound(1, current < 1 ? m_current : current, qMax(1, m_total));
    UpdateResultsLabel();
}

void FindReplaceWidget::OnReturnPressed(bool backwards)
{
    if (backwards)
        FindPrevious();
    else
        FindNext();
}

bool FindReplaceWidget::IsFieldKey(const QKeyEvent& event) const
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const bool shift = modifiers == Qt::ShiftModifier;
    if (modifiers != Qt::NoModifier && !shift)
        return false;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: return true;
    case Qt::Key_Escape: return !shift;
    case Qt::Key_Up:
    case Qt::Key_Down: return !shift && m_searchLineEdit->hasFocus();
    default: return false;
    }
}

/// Whether the bar took the key.
bool FindReplaceWidget::HandleKey(const QKeyEvent& event)
{
    if (!IsFieldKey(event))
        return false;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: OnReturnPressed(event.modifiers() & Qt::ShiftModifier); return true;
    case Qt::Key_Escape: Close(); return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        m_searchLineEdit->setText(event.key() == Qt::Key_Up ? m_history.GetOlder(GetSearchText())
                                                            : m_history.GetNewer(GetSearchText()));
        return true;
    default: return false;
    }
}

bool FindReplaceWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize && watched == m_searchLineEdit)
        UpdateReplaceFieldWidth();
    // The window has shortcuts on Enter and Escape, which in a field belong to the bar.
    if (event->type() == QEvent::ShortcutOverride && IsFieldKey(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::KeyPress && HandleKey(*static_cast<QKeyEvent*>(event)))
        return true;
    return OverlayFrame::eventFilter(watched, event);
}

/// What the buttons of the bar leave.
void FindReplaceWidget::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    auto* button = qobject_cast<FlatButton*>(focusWidget());
    if (isReturn && button && button->hasFocus())
        button->click();
    else if (!HandleKey(*event))
        OverlayFrame::keyPressEvent(event);
}
