#include "editor/CodeEditorErrorBarOverlay.h"

#include "editor/CodeEditor.h"
#include "editor/CodeEditorMarkToolTip.h"
#include "window/chrome/Theme.h"

#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionSlider>
#include <QToolTip>

namespace {

constexpr int MARK_HEIGHT = 3; // design pixels
constexpr int MARK_INSET = 1;
constexpr int TOOL_TIP_REACH = 2; // design pixels beside a mark

/// What wins where several marks fall on the same pixels.
enum Rank { NO_MARK, SEARCH_HIT, INFO, WARNING, ERROR };
constexpr Theme::Role RANK_COLORS[] = {Theme::Role::Canvas, Theme::Role::MarkSearch,
    Theme::Role::MarkInfo, Theme::Role::MarkWarning, Theme::Role::MarkError};

Rank RankOf(MarkSeverity severity)
{
    switch (severity) {
    case MarkSeverity::Error: return ERROR;
    case MarkSeverity::Warning: return WARNING;
    case MarkSeverity::Info: return INFO;
    }
    return NO_MARK;
}

} // namespace

CodeEditorErrorBarOverlay::CodeEditorErrorBarOverlay(CodeEditor* editor, QScrollBar* scrollBar)
    : QWidget(scrollBar)
    , m_editor(editor)
    , m_scrollBar(scrollBar)
{
    setObjectName(QStringLiteral("m_errorBar"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    scrollBar->installEventFilter(this);
}

void CodeEditorErrorBarOverlay::UpdateMarks()
{
    m_outdated = true;
    update();
}

bool CodeEditorErrorBarOverlay::eventFilter(QObject* object, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Resize:
        setGeometry(m_scrollBar->rect());
        UpdateMarks();
        break;
    case QEvent::ToolTip: ShowToolTip(*static_cast<QHelpEvent*>(event)); return true;
    default: break;
    }
    return QWidget::eventFilter(object, event);
}

CodeEditorErrorBarOverlay::Scale CodeEditorErrorBarOverlay::GetScale() const
{
    QStyleOptionSlider option;
    option.initFrom(m_scrollBar);
    option.orientation = Qt::Vertical;
    option.subControls = QStyle::SC_All;
    option.maximum = m_scrollBar->maximum();
    option.pageStep = m_scrollBar->pageStep();
    // Arrow buttons, where a style has them, stand for no line.
    const QRect groove = m_scrollBar->style()->subControlRect(
        QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarGroove, m_scrollBar);
    return {groove.top(), qMax(0, groove.height() - MarkHeight()),
        qMax(1, m_editor->GetLineCount() - 1)};
}

int CodeEditorErrorBarOverlay::Scale::TopOf(int line) const
{
    return top + static_cast<int>(qint64(room) * qBound(0, line, lastLine) / lastLine);
}

int CodeEditorErrorBarOverlay::MarkHeight() const
{
    return Theme::Dp(MARK_HEIGHT);
}

void CodeEditorErrorBarOverlay::RebuildRows()
{
    m_outdated = false;
    m_rows.fill(NO_MARK, height() + 1);
    const Scale scale = GetScale();
    const auto raise = [this, &scale](int line, Rank rank) {
        const int row = scale.TopOf(line);
        if (row >= 0 && row < m_rows.size())
            m_rows[row] = qMax<int>(m_rows[row], rank);
    };
    for (const int line : m_editor->GetSearchHitLines())
        raise(line, SEARCH_HIT);
    for (int i = 0; i < MARK_SEVERITIES; ++i) {
        const auto severity = static_cast<MarkSeverity>(i);
        for (const CodeEditorMark& mark : m_editor->GetMarks().GetMarks(severity))
            raise(mark.line, RankOf(severity));
    }
}

void CodeEditorErrorBarOverlay::paintEvent(QPaintEvent*)
{
    if (m_outdated)
        RebuildRows();
    QPainter painter(this);
    const int inset = Theme::Dp(MARK_INSET);
    const int markWidth = width() - 2 * inset;
    const int hairline = Theme::Hairline();
    const int cursorTop
        = GetScale().TopOf(m_editor->GetCurrentLine() - 1) + (MarkHeight() - hairline) / 2;
    painter.fillRect(inset, cursorTop, markWidth, hairline, Theme::Color(Theme::Role::Disabled));
    // Later ranks over earlier ones, as marks on neighbouring pixels overlap.
    for (int rank = SEARCH_HIT; rank <= ERROR; ++rank) {
        const QColor color = Theme::Color(RANK_COLORS[rank]);
        for (int row = 0; row < m_rows.size(); ++row) {
            if (m_rows.at(row) == rank)
                painter.fillRect(inset, row, markWidth, MarkHeight(), color);
        }
    }
}

void CodeEditorErrorBarOverlay::ShowToolTip(const QHelpEvent& event) const
{
    const int reach = Theme::Dp(TOOL_TIP_REACH);
    const int y = event.pos().y();
    const Scale scale = GetScale();
    QVector<CodeEditorMark> marks;
    for (int i = 0; i < MARK_SEVERITIES; ++i) {
        for (const CodeEditorMark& mark : m_editor->GetMarks().GetMarks(MarkSeverity(i))) {
            const int top = scale.TopOf(mark.line);
            if (y >= top - reach && y < top + MarkHeight() + reach)
                marks.append(mark);
            if (marks.size() >= MAXIMUM_TOOL_TIP_MARKS)
                break;
        }
    }
    const QString text = MarkToolTip(marks, ToolTipRows::Numbered, devicePixelRatioF());
    QToolTip::showText(event.globalPos(), text, m_scrollBar);
}
