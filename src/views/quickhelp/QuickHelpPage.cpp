#include "views/quickhelp/QuickHelpPage.h"

#include "settings/Settings.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/TextLook.h"
#include "window/chrome/Theme.h"
#include "window/chrome/ToolTipText.h"

#include <QFileInfo>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QScopedValueRollback>
#include <QTextBlock>
#include <QToolTip>

namespace {

// Design pixels.
constexpr int MARGIN = 14;
constexpr int GAP = 8; ///< between paragraphs
constexpr int ICON_SIZE = 16;
constexpr int HIGHEST_BESIDE_FLAGS = 180;

using Kind = QuickHelpTopic::Kind;

QFont CodeFont()
{
    int noZoom = 0;
    return TextLook::ZoomedFont(Settings::codeEditorFont, noZoom);
}

QTextCharFormat Format(const QFont& font, Theme::Role role)
{
    QTextCharFormat format;
    format.setFont(font);
    format.setForeground(Theme::Color(role));
    return format;
}

QString IconOf(const QuickHelpTopic& topic)
{
    if (topic.kind == Kind::Command || topic.kind == Kind::RunTimeCommand)
        return QStringLiteral("mel_command");
    if (topic.kind == Kind::Procedure)
        return QStringLiteral("mel_global_proc");
    if (topic.pythonKind == QLatin1String("class"))
        return QStringLiteral("python_class");
    if (topic.pythonKind == QLatin1String("module"))
        return QStringLiteral("python_import");
    return topic.pythonKind == QLatin1String("function") ? QStringLiteral("python_method")
                                                         : QStringLiteral("python_variable");
}

QString KindText(const QuickHelpTopic& topic)
{
    switch (topic.kind) {
    case Kind::Nothing: break;
    case Kind::Command: return QuickHelpPage::tr("MEL command");
    case Kind::RunTimeCommand: return QuickHelpPage::tr("Run-time command");
    case Kind::Procedure: return QuickHelpPage::tr("MEL procedure");
    case Kind::Python:
        return topic.pythonKind == QLatin1String("instance")
            ? QuickHelpPage::tr("Python name")
            : QuickHelpPage::tr("Python %1").arg(topic.pythonKind);
    }
    return {};
}

/// What an editor can show; compiled libraries are named only.
bool IsScript(const QString& path)
{
    static const QStringList SUFFIXES = {
        QStringLiteral("py"), QStringLiteral("pyw"), QStringLiteral("pyi"), QStringLiteral("mel")};
    return SUFFIXES.contains(QFileInfo(path).suffix().toLower());
}

} // namespace

QuickHelpPage::QuickHelpPage(QWidget* parent)
    : QTextBrowser(parent)
{
    setFrameShape(QFrame::NoFrame);
    setOpenLinks(false);
    setUndoRedoEnabled(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    setMinimumSize(0, 0);
    viewport()->setAutoFillBackground(false);
    FollowLook(this, [this] { Write(); });
    connect(this, &QTextBrowser::anchorClicked, this,
        [this] { Q_EMIT FileRequested(m_topic.file, m_topic.line); });
}

void QuickHelpPage::SetTopic(const QuickHelpTopic& topic)
{
    m_topic = topic;
    Write();
}

void QuickHelpPage::Write()
{
    const QScopedValueRollback<bool> writing(m_writing, true);
    m_writtenWidth = viewport()->width();
    document()->clear();
    document()->setDocumentMargin(0);
    QTextFrameFormat frame = document()->rootFrame()->frameFormat();
    frame.setLeftMargin(Theme::Dp(MARGIN));
    frame.setRightMargin(Theme::Dp(MARGIN));
    frame.setTopMargin(Theme::Dp(GAP));
    document()->rootFrame()->setFrameFormat(frame);

    QTextCursor cursor(document());
    WriteTitle(cursor);
    QTextBlockFormat paragraph;
    paragraph.setTopMargin(Theme::Dp(GAP));
    const auto write = [&](const QString& text, const QTextCharFormat& format) {
        if (text.isEmpty())
            return;
        cursor.insertBlock(paragraph);
        cursor.insertText(text, format);
    };
    write(m_topic.synopsis, Format(CodeFont(), Theme::Role::Soft));
    write(m_topic.text, Format(font(), Theme::Role::Text));
    WriteFile(cursor);
    if (!m_topic.script.isEmpty()) {
        write(tr("COMMAND"), Format(Theme::CaptionFont(font()), Theme::Role::Soft));
        write(m_topic.script, Format(CodeFont(), Theme::Role::Text));
    }
    setTextCursor(QTextCursor(document()));
    UpdateHeight();
}

/// The kind stands at the right edge, or below a name that needs the whole line.
void QuickHelpPage::WriteTitle(QTextCursor& cursor)
{
    const int icon = Theme::Dp(ICON_SIZE);
    const QFont small = Theme::SmallFont(font());
    const QString kind = KindText(m_topic);
    const int right = m_writtenWidth - 2 * Theme::Dp(MARGIN);
    QTextBlockFormat title;
    title.setTabPositions({QTextOption::Tab(right, QTextOption::RightTab)});
    cursor.setBlockFormat(title);
    const QUrl picture(QStringLiteral("te2:icon"));
    document()->addResource(QTextDocument::ImageResource, picture,
        Theme::Pixmap(IconOf(m_topic), ICON_SIZE, devicePixelRatioF()));
    QTextImageFormat image;
    image.setName(picture.toString());
    image.setWidth(icon);
    image.setHeight(icon);
    image.setVerticalAlignment(QTextCharFormat::AlignMiddle);
    cursor.insertImage(image);
    cursor.insertText(QLatin1Char(' ') + m_topic.name, Format(CodeFont(), Theme::Role::Strong));
    const int taken = icon
        + QFontMetrics(CodeFont()).horizontalAdvance(QLatin1Char(' ') + m_topic.name)
        + QFontMetrics(small).horizontalAdvance(kind) + Theme::Dp(GAP);
    if (taken > right)
        cursor.insertBlock(QTextBlockFormat());
    cursor.insertText(
        taken > right ? kind : QLatin1Char('\t') + kind, Format(small, Theme::Role::Faint));
}

void QuickHelpPage::WriteFile(QTextCursor& cursor)
{
    if (m_topic.file.isEmpty())
        return;
    const QFont small = Theme::SmallFont(font());
    QString path = QFontMetrics(small).elidedText(
        m_topic.file, Qt::ElideMiddle, m_writtenWidth - 2 * Theme::Dp(MARGIN));
    QTextCharFormat format = Format(small, Theme::Role::Soft);
    if (IsScript(m_topic.file)) {
        format = Format(small, Theme::Role::LakeText);
        format.setAnchor(true);
        format.setAnchorHref(QUrl::fromLocalFile(m_topic.file).toString());
        format.setFontUnderline(true);
    }
    QTextBlockFormat paragraph;
    paragraph.setTopMargin(Theme::Dp(GAP));
    cursor.insertBlock(paragraph);
    cursor.insertText(path, format);
}

/// Beside a table only as high as the words, which scroll when they are many.
void QuickHelpPage::UpdateHeight()
{
    if (m_topic.kind != Kind::Command) {
        setMinimumHeight(0);
        setMaximumHeight(QWIDGETSIZE_MAX);
        return;
    }
    document()->setTextWidth(m_writtenWidth);
    setFixedHeight(qMin(
        qRound(document()->size().height()) + Theme::Dp(GAP), Theme::Dp(HIGHEST_BESIDE_FLAGS)));
}

void QuickHelpPage::resizeEvent(QResizeEvent* event)
{
    QTextBrowser::resizeEvent(event);
    // While text is written its scroll bar comes and goes, which brings us here as well.
    if (m_writing)
        QMetaObject::invokeMethod(this, &QuickHelpPage::WriteForWidth, Qt::QueuedConnection);
    else
        WriteForWidth();
}

void QuickHelpPage::WriteForWidth()
{
    if (viewport()->width() != m_writtenWidth)
        Write();
}

bool QuickHelpPage::event(QEvent* event)
{
    // Letters do nothing here, and nothing in the host either.
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        const bool isPlain = !(key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier));
        if (isPlain && !key.text().isEmpty() && key.text().at(0).isPrint()) {
            event->accept();
            return true;
        }
    }
    if (event->type() == QEvent::ToolTip) {
        const auto& help = static_cast<const QHelpEvent&>(*event);
        const QString text = anchorAt(viewport()->mapFrom(this, help.pos())).isEmpty()
            ? QString()
            : ToolTipText(m_topic.file);
        QToolTip::showText(help.globalPos(), text, this);
        return true;
    }
    return QTextBrowser::event(event);
}

void QuickHelpPage::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu* const menu = createStandardContextMenu(event->pos());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addSeparator();
    menu->addAction(tr("Hide Side Bar"), this, &QuickHelpPage::HideRequested);
    menu->popup(event->globalPos());
}

void QuickHelpPage::keyPressEvent(QKeyEvent* event)
{
    QTextBrowser::keyPressEvent(event);
    if (!event->text().isEmpty() && event->text().at(0).isPrint())
        event->accept();
}
