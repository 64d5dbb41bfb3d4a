#include "ui/commands/layouts/FormBox.h"

#include <QWidget>

namespace host::ui {

namespace {

Qt::Orientation OrientationOf(FormEdge edge)
{
    return edge == LeftEdge || edge == RightEdge ? Qt::Horizontal : Qt::Vertical;
}

int Along(const QSize& size, Qt::Orientation orientation)
{
    return orientation == Qt::Horizontal ? size.width() : size.height();
}

bool IsStart(FormEdge edge)
{
    return edge == LeftEdge || edge == TopEdge;
}

} // namespace

FormBox::FormBox(QWidget* parent)
    : QLayout(parent)
{
    setContentsMargins(0, 0, 0, 0);
}

FormBox::~FormBox()
{
    qDeleteAll(m_items);
}

void FormBox::Attach(const QWidget* child, FormEdge edge, const Attachment& attachment)
{
    m_attachments[child][edge] = attachment;
    invalidate();
}

void FormBox::addItem(QLayoutItem* item)
{
    m_items += item;
}

QLayoutItem* FormBox::itemAt(int index) const
{
    return m_items.value(index);
}

QLayoutItem* FormBox::takeAt(int index)
{
    if (index < 0 || index >= m_items.size())
        return nullptr;
    QLayoutItem* item = m_items.takeAt(index);
    m_attachments.remove(item->widget());
    return item;
}

QLayoutItem* FormBox::ItemOf(const QWidget* widget) const
{
    for (QLayoutItem* item : m_items) {
        if (item->widget() == widget)
            return item;
    }
    return nullptr;
}

/// Where an edge lies. Children that hang on each other in a circle are put at the form's start.
int FormBox::EdgeOf(const QWidget* child, FormEdge edge, int length, Spans& solved,
    QVector<const QWidget*>& running) const
{
    const Attachment attachment = m_attachments.value(child)[edge];
    const int inward = IsStart(edge) ? attachment.offset : -attachment.offset;
    switch (attachment.to) {
    case Attachment::To::Form: return (IsStart(edge) ? 0 : length) + inward;
    case Attachment::To::OppositeForm: return (IsStart(edge) ? length : 0) + inward;
    case Attachment::To::Position: return length * attachment.position / m_divisions + inward;
    default: break;
    }
    QLayoutItem* other = ItemOf(attachment.control);
    if (!other)
        return inward;
    const Span span = SpanOf(other, OrientationOf(edge), length, solved, running);
    const bool farEdge = (attachment.to == Attachment::To::Control) == IsStart(edge);
    return (farEdge ? span.end : span.start) + inward;
}

FormBox::Span FormBox::SpanOf(QLayoutItem* item, Qt::Orientation orientation, int length,
    Spans& solved, QVector<const QWidget*>& running) const
{
    const QWidget* child = item->widget();
    if (solved.contains(child) || running.contains(child))
        return solved.value(child);
    running += child;
    const FormEdge first = orientation == Qt::Horizontal ? LeftEdge : TopEdge;
    const FormEdge second = orientation == Qt::Horizontal ? RightEdge : BottomEdge;
    const Edges edges = m_attachments.value(child);
    const int natural = Along(item->sizeHint().expandedTo(item->minimumSize()), orientation);
    Span span;
    const bool hasStart = edges[first].to != Attachment::To::None;
    const bool hasEnd = edges[second].to != Attachment::To::None;
    if (hasStart || !hasEnd)
        span.start = hasStart ? EdgeOf(child, first, length, solved, running) : 0;
    if (hasEnd)
        span.end = EdgeOf(child, second, length, solved, running);
    else
        span.end = span.start + natural;
    if (hasEnd && !hasStart)
        span.start = span.end - natural;
    running.removeLast();
    solved.insert(child, span);
    return span;
}

FormBox::Spans FormBox::Solve(Qt::Orientation orientation, int length) const
{
    Spans solved;
    QVector<const QWidget*> running;
    for (QLayoutItem* item : m_items)
        SpanOf(item, orientation, length, solved, running);
    return solved;
}

/// The smallest length at which every child has its natural size, found by laying out a form of no
/// length: what then sticks out of it at either end is what is missing.
int FormBox::NaturalLength(Qt::Orientation orientation) const
{
    const FormEdge second = orientation == Qt::Horizontal ? RightEdge : BottomEdge;
    const FormEdge first = orientation == Qt::Horizontal ? LeftEdge : TopEdge;
    const Spans spans = Solve(orientation, 0);
    int needed = 0;
    for (QLayoutItem* item : m_items) {
        const Span span = spans.value(item->widget());
        const Edges edges = m_attachments.value(item->widget());
        const int natural = Along(item->sizeHint().expandedTo(item->minimumSize()), orientation);
        const bool stretched
            = edges[first].to != Attachment::To::None && edges[second].to != Attachment::To::None;
        needed = qMax(needed,
            stretched ? qMax(span.start, 0) + natural + qMax(-span.end, 0)
                      : qMax(span.end, -span.start));
    }
    return needed;
}

QSize FormBox::sizeHint() const
{
    return {NaturalLength(Qt::Horizontal), NaturalLength(Qt::Vertical)};
}

void FormBox::setGeometry(const QRect& rectangle)
{
    QLayout::setGeometry(rectangle);
    const Spans across = Solve(Qt::Horizontal, rectangle.width());
    const Spans down = Solve(Qt::Vertical, rectangle.height());
    for (QLayoutItem* item : qAsConst(m_items)) {
        const Span x = across.value(item->widget());
        const Span y = down.value(item->widget());
        item->setGeometry(QRect(rectangle.x() + x.start, rectangle.y() + y.start,
            qMax(0, x.end - x.start), qMax(0, y.end - y.start)));
    }
}

} // namespace host::ui
