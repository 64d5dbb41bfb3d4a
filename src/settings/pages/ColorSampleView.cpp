#include "settings/pages/ColorSampleView.h"

#include "settings/Settings.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/TextLook.h"
#include "window/chrome/Theme.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTextLayout>
#include <QToolTip>

namespace {

using C = ColorSettings;
using ColorSample::Line;
using ColorSample::Piece;

// Design pixels.
constexpr int PADDING = 4;
constexpr int NUMBERS_PADDING = 10;
constexpr int GUIDE_REACH = 2; ///< beside a guide

constexpr int DIGITS = 2;
constexpr int TAB_SIZE = 4;
constexpr int LEAST_LINES = 6;

} // namespace

ColorSampleView::ColorSampleView(const ColorScheme* scheme, QWidget* parent)
    : QWidget(parent)
    , m_scheme(scheme)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::PointingHandCursor);
    setAccessibleName(tr("Sample"));
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
    FollowLook(this, [this] {
        LayOut();
        updateGeometry();
    });
}

ColorSampleView::~ColorSampleView() = default;

void ColorSampleView::Show(ColorSample::Text text)
{
    m_text = text;
    LayOut();
    update();
}

/// That of the text itself, smaller where a line would not fit.
void ColorSampleView::ChooseFont()
{
    int columns = 0;
    for (const Line& line : ColorSample::GetLines(m_text))
        columns = qMax(columns, line.GetText().size());
    int zoom = 0;
    m_font = TextLook::ZoomedFont(IsCode() ? Settings::codeEditorFont : Settings::outputFont, zoom);
    while (m_font.pointSize() > Settings::MINIMUM_FONT_SIZE && ColumnX(columns) > width())
        m_font.setPointSize(m_font.pointSize() - 1);
}

void ColorSampleView::LayOut()
{
    ChooseFont();
    m_lineHeight = QFontMetrics(m_font).height();
    m_layouts.clear();
    for (const Line& line : ColorSample::GetLines(m_text))
        m_layouts.push_back(LayOut(line, m_font));
}

QTextCharFormat ColorSampleView::FormatOf(const QString& key) const
{
    return m_scheme->GetFormat({ColorSample::GetSurface(m_text), key});
}

std::unique_ptr<QTextLayout> ColorSampleView::LayOut(const Line& line, const QFont& font) const
{
    auto layout = std::make_unique<QTextLayout>(line.GetText(), font);
    QVector<QTextLayout::FormatRange> ranges;
    int start = 0;
    for (const Piece& piece : line.pieces) {
        QTextLayout::FormatRange range;
        range.start = start;
        range.length = piece.text.size();
        start += range.length;
        if (!piece.syntax.isEmpty())
            range.format = FormatOf(piece.syntax);
        // What lies over the syntax brings colours only.
        const QTextCharFormat ground = FormatOf(piece.ground);
        for (const auto brush : {QTextFormat::ForegroundBrush, QTextFormat::BackgroundBrush}) {
            if (ground.hasProperty(brush))
                range.format.setProperty(brush, ground.property(brush));
        }
        ranges.append(range);
    }
    layout->setFormats(ranges);
    layout->beginLayout();
    QTextLine textLine = layout->createLine();
    if (textLine.isValid())
        textLine.setNumColumns(line.GetText().size() + 1);
    layout->endLayout();
    return layout;
}

QColor ColorSampleView::Background(const QString& key) const
{
    const QTextCharFormat format = FormatOf(key);
    return format.hasProperty(QTextFormat::BackgroundBrush) ? format.background().color()
                                                            : QColor(Qt::transparent);
}

int ColorSampleView::NumbersWidth() const
{
    return IsCode() ? Theme::Dp(NUMBERS_PADDING)
            + DIGITS * QFontMetrics(m_font).horizontalAdvance(QLatin1Char('9'))
                    : 0;
}

int ColorSampleView::GutterWidth() const
{
    return IsCode() ? 2 * QFontMetrics(m_font).horizontalAdvance(QLatin1Char('9')) : 0;
}

int ColorSampleView::TextLeft() const
{
    return NumbersWidth() + GutterWidth() + Theme::Dp(PADDING);
}

double ColorSampleView::ColumnX(int column) const
{
    return TextLeft() + column * QFontMetricsF(m_font).horizontalAdvance(QLatin1Char(' '));
}

QSize ColorSampleView::sizeHint() const
{
    return {0, int(m_layouts.size()) * m_lineHeight + 2 * Theme::Dp(PADDING)};
}

QSize ColorSampleView::minimumSizeHint() const
{
    return {0, LEAST_LINES * m_lineHeight + 2 * Theme::Dp(PADDING)};
}

void ColorSampleView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Theme::Color(Theme::Role::Canvas));
    painter.fillRect(rect(), Background(C::PLAIN_TEXT));
    painter.setFont(m_font);
    for (int line = 0; line < int(m_layouts.size()); ++line)
        PaintLine(painter, line);
    if (IsCode())
        PaintLineNumbers(painter);
    painter.setPen(QPen(Theme::Color(Theme::Role::Groove), Theme::Hairline()));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void ColorSampleView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    LayOut();
}

void ColorSampleView::PaintLine(QPainter& painter, int line) const
{
    const Line& content = ColorSample::GetLines(m_text)[line];
    const int top = Theme::Dp(PADDING) + line * m_lineHeight;
    if (!content.ground.isEmpty())
        painter.fillRect(0, top, width(), m_lineHeight, Background(content.ground));
    painter.setPen(FormatOf(C::PLAIN_TEXT).foreground().color());
    m_layouts[size_t(line)]->draw(&painter, QPointF(TextLeft(), top));
    if (IsCode())
        PaintGuides(painter, line);
}

void ColorSampleView::PaintGuides(QPainter& painter, int line) const
{
    const int indent = ColorSample::GetLines(m_text)[line].CountIndent();
    const int top = Theme::Dp(PADDING) + line * m_lineHeight;
    const QColor color = FormatOf(C::INDENTATION_GUIDES).foreground().color();
    for (int column = 0; column < indent; column += TAB_SIZE)
        painter.fillRect(qRound(ColumnX(column)), top, Theme::Hairline(), m_lineHeight, color);
}

void ColorSampleView::PaintLineNumbers(QPainter& painter) const
{
    painter.fillRect(0, 0, NumbersWidth(), height(), Background(C::LINE_NUMBERS));
    painter.fillRect(NumbersWidth(), 0, GutterWidth(), height(), Background(C::GUTTER));
    for (int line = 0; line < int(m_layouts.size()); ++line) {
        const bool isCurrent
            = ColorSample::GetLines(m_text)[line].ground == ColorSettings::CURRENT_LINE;
        painter.setPen(isCurrent ? Theme::Color(Theme::Role::Soft)
                                 : FormatOf(C::LINE_NUMBERS).foreground().color());
        const QRect area(0, Theme::Dp(PADDING) + line * m_lineHeight, NumbersWidth(), m_lineHeight);
        painter.drawText(area, Qt::AlignRight | Qt::AlignTop, QString::number(line + 1));
    }
}

ColorRole ColorSampleView::RoleAt(const QPoint& point) const
{
    const ColorRole::Surface surface = ColorSample::GetSurface(m_text);
    if (point.x() < NumbersWidth())
        return {surface, C::LINE_NUMBERS};
    if (point.x() < NumbersWidth() + GutterWidth())
        return {surface, C::GUTTER};
    const int line = (point.y() - Theme::Dp(PADDING)) / m_lineHeight;
    if (point.y() < Theme::Dp(PADDING) || line >= int(m_layouts.size()))
        return {surface, C::PLAIN_TEXT};
    const Line& content = ColorSample::GetLines(m_text)[line];
    for (int column = 0; IsCode() && column < content.CountIndent(); column += TAB_SIZE) {
        if (qAbs(point.x() - ColumnX(column)) <= Theme::Dp(GUIDE_REACH))
            return {surface, C::INDENTATION_GUIDES};
    }
    const QTextLine textLine = m_layouts[size_t(line)]->lineAt(0);
    const double x = point.x() - TextLeft();
    const bool isBehind = !textLine.isValid() || x >= textLine.naturalTextWidth();
    const int column = isBehind ? -1 : textLine.xToCursor(x, QTextLine::CursorOnCharacter);
    return {surface, ColorSample::RoleAt(content, column)};
}

void ColorSampleView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT RolePressed(RoleAt(event->pos()));
}

bool ColorSampleView::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    QToolTip::showText(help->globalPos(), m_scheme->GetLabel(RoleAt(help->pos())), this, rect());
    return true;
}
