#include "language/AutoCompleter.h"

#include "language/CompletionRowDelegate.h"
#include "language/PrefixFilterModel.h"
#include "settings/ColorSettings.h"
#include "settings/Settings.h"
#include "window/chrome/TextLook.h"
#include "window/chrome/Theme.h"

#include <QApplication>
#include <QKeyEvent>
#include <QListView>
#include <QPainter>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QStandardItem>
#include <QTextBlock>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

namespace {

constexpr int MAXIMUM_ROWS = 10;
// Design pixels.
constexpr int MINIMUM_WIDTH = 180;
constexpr int MAXIMUM_WIDTH = 420;
constexpr int LEFT_SHIFT = 8;
constexpr int LIST_MARGIN = 2;
constexpr int REST_TIME = 200; // ms

QChar CharacterAt(const QTextCursor& cursor, int position)
{
    return position < 0 ? QChar() : cursor.document()->characterAt(position);
}

bool Matches(const char* pattern, QChar character)
{
    return QRegularExpression(QLatin1String(pattern)).match(QString(character)).hasMatch();
}

/// The word that ends at the cursor.
QTextCursor WordBefore(QTextCursor cursor)
{
    const int position = cursor.position();
    cursor.setPosition(position);
    const bool isBeforeSign = Matches("[a-zA-Z0-9_\\.]", CharacterAt(cursor, position - 1))
        && Matches("[^a-zA-Z0-9_\\s]", CharacterAt(cursor, position));
    cursor.movePosition(isBeforeSign ? QTextCursor::PreviousWord : QTextCursor::StartOfWord,
        QTextCursor::KeepAnchor);
    return cursor;
}

bool IsOwnKey(const QKeyEvent& event)
{
    static constexpr int KEYS[] = {Qt::Key_Escape, Qt::Key_Backtab, Qt::Key_PageUp,
        Qt::Key_PageDown, Qt::Key_Tab, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Up, Qt::Key_Down};
    const bool isModified
        = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return !isModified
        && std::find(std::begin(KEYS), std::end(KEYS), event.key()) != std::end(KEYS);
}

} // namespace

AutoCompleter::AutoCompleter(QPlainTextEdit* editor)
    // A window of this kind is placed like a popup, but grabs neither keys nor input methods.
    : QWidget(editor, Qt::ToolTip | Qt::FramelessWindowHint)
    , m_editor(editor)
    , m_listView(new QListView(this))
    , m_delegate(new CompletionRowDelegate(m_listView))
    , m_restTimer(new QTimer(this))
{ }

void AutoCompleter::Initialize()
{
    setObjectName(QStringLiteral("m_autoCompleter"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    m_listView->setObjectName(QStringLiteral("m_listView"));
    m_listView->setAccessibleName(tr("Completions"));
    m_listView->setFocusPolicy(Qt::NoFocus);
    m_listView->setFrameShape(QFrame::NoFrame);
    m_listView->setSelectionMode(QAbstractItemView::SingleSelection);
    m_listView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_listView->setUniformItemSizes(true);
    m_listView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_listView->setItemDelegate(m_delegate);
    m_listView->installEventFilter(this);
    m_editor->installEventFilter(this);
    m_editor->viewport()->installEventFilter(this);
    m_restTimer->setSingleShot(true);
    m_restTimer->setInterval(REST_TIME);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    // A list asks for room for several rows otherwise.
    layout->setSizeConstraint(QLayout::SetNoConstraint);
    layout->addWidget(m_listView);
    connect(m_listView, &QListView::doubleClicked, this, &AutoCompleter::ApplySelection);
    connect(m_listView, &QListView::clicked, m_restTimer, qOverload<>(&QTimer::start));
    connect(m_restTimer, &QTimer::timeout, this, [this] { Q_EMIT SelectionRested(GetHelpName()); });
    connect(m_editor, &QPlainTextEdit::updateRequest, this,
        [this](const QRect& /*area*/, int scrolled) {
            if (scrolled != 0)
                FollowEditor();
        });
    // Queued: a key that moves the cursor asks for an update before it is over.
    connect(m_editor, &QPlainTextEdit::cursorPositionChanged, this, &AutoCompleter::HideElsewhere,
        Qt::QueuedConnection);
    connect(m_editor->horizontalScrollBar(), &QScrollBar::valueChanged, this,
        &AutoCompleter::FollowEditor);
    UpdateModel();
    hide();
}

void AutoCompleter::SetFilterModel(PrefixFilterModel* model)
{
    if (m_filterModel == model)
        return;
    m_filterModel = model;
    m_listView->setModel(model);
}

QStandardItem* AutoCompleter::MakeRow(
    const QString& name, const QString& iconName, const QString& detail)
{
    auto* row = new QStandardItem(name);
    row->setData(iconName, CompletionRowDelegate::IconRole);
    if (!detail.isEmpty())
        row->setData(detail, CompletionRowDelegate::DetailRole);
    return row;
}

bool AutoCompleter::ValidateAndSetPrefix(const QTextCursor& cursor)
{
    static const QRegularExpression NAME(QStringLiteral("^[a-zA-Z0-9_]+\\z"));
    const QTextCursor word = WordBefore(cursor);
    m_prefix = word.selectedText();
    const QChar before = CharacterAt(word, word.selectionStart() - 1);
    // Flags and variables are no names of commands.
    return NAME.match(m_prefix).hasMatch() && before != QLatin1Char('-')
        && before != QLatin1Char('$');
}

void AutoCompleter::UpdateProxyModel()
{
    m_filterModel->SetPrefix(m_prefix, GetCaseSensitivity());
}

void AutoCompleter::Update(const QTextCursor& cursor, const QRect& cursorRect, bool applyIfSingle)
{
    m_position = cursor.position();
    const bool wasHidden = isHidden();
    UpdateProxyModel();
    if (RowCount() == 0) {
        hide();
        return;
    }
    if (wasHidden && applyIfSingle && RowCount() == 1) {
        SelectTop();
        ApplySelection();
        return;
    }
    m_delegate->SetPrefixLength(m_prefix.length());
    UpdateRect(cursorRect);
    SelectTop();
}

int AutoCompleter::RowCount() const
{
    return m_filterModel->rowCount();
}

void AutoCompleter::SelectTop()
{
    m_selectedRow = 0;
    const int count = m_prefix.isEmpty() ? 0 : RowCount();
    for (int row = 0; row < count; ++row) {
        if (m_filterModel->index(row, 0).data().toString().startsWith(m_prefix)) {
            m_selectedRow = row;
            break;
        }
    }
    RefreshSelected();
}

void AutoCompleter::SelectNext()
{
    m_selectedRow = qMin(m_listView->currentIndex().row() + 1, RowCount() - 1);
    RefreshSelected();
}

void AutoCompleter::SelectPrevious()
{
    m_selectedRow = qMax(m_listView->currentIndex().row() - 1, 0);
    RefreshSelected();
}

void AutoCompleter::RefreshSelected()
{
    const QModelIndex index = m_filterModel->index(m_selectedRow, 0);
    m_listView->setCurrentIndex(index);
    m_listView->scrollTo(index);
    m_restTimer->start();
}

QString AutoCompleter::GetSelectedText() const
{
    return m_listView->currentIndex().data().toString();
}

void AutoCompleter::ApplySelection()
{
    if (!m_listView->currentIndex().isValid())
        return;
    const QString text = GetSelectedText();
    hide();
    m_editor->setFocus();
    Q_EMIT Accepted(text, m_prefix.length());
}

/// As wide as the widest of the rows that are looked at first.
QSize AutoCompleter::WantedSize() const
{
    constexpr int MAXIMUM_MEASURED_ROWS = 100;
    const int count = RowCount();
    QStyleOptionViewItem option;
    option.initFrom(m_listView);
    option.font = m_listView->font();
    option.fontMetrics = QFontMetrics(option.font);
    QSize row;
    for (int i = 0; i < qMin(count, MAXIMUM_MEASURED_ROWS); ++i)
        row = row.expandedTo(m_delegate->sizeHint(option, m_filterModel->index(i, 0)));
    if (count > MAXIMUM_ROWS)
        row.rwidth() += m_listView->verticalScrollBar()->sizeHint().width();
    const QMargins margins = contentsMargins();
    const int width = qBound(Theme::Dp(MINIMUM_WIDTH), row.width(), Theme::Dp(MAXIMUM_WIDTH));
    return {width + margins.left() + margins.right(),
        qMin(count, MAXIMUM_ROWS) * row.height() + margins.top() + margins.bottom()};
}

void AutoCompleter::UpdateRect(const QRect& cursorRect)
{
    int noZoom = 0;
    m_listView->setFont(TextLook::ZoomedFont(Settings::codeEditorFont, noZoom));
    QPalette colors = m_listView->palette();
    colors.setColor(QPalette::Base, ColorSettings::sideBarBaseColor);
    m_listView->setPalette(colors);
    const int edge = Theme::Hairline();
    const int margin = Theme::Dp(LIST_MARGIN);
    setContentsMargins(edge, edge + margin, edge, edge + margin);

    const QPoint below = m_editor->viewport()->mapToGlobal(cursorRect.bottomLeft()) + QPoint(0, 1);
    const QScreen* screen = QGuiApplication::screenAt(below);
    const QRect room = (screen ? screen : m_editor->screen())->availableGeometry();
    const QSize size = WantedSize();
    const int typed = m_editor->fontMetrics().horizontalAdvance(m_prefix);
    QPoint place(below.x() - typed - Theme::Dp(LEFT_SHIFT), below.y());
    if (place.y() + size.height() > room.bottom() + 1)
        place.ry() -= size.height() + cursorRect.height() + 1;
    place.setX(qMax(room.left(), qMin(place.x(), room.right() + 1 - size.width())));
    place.setY(qMax(room.top(), place.y()));
    setGeometry(QRect(place, size));
    show();
}

void AutoCompleter::FollowEditor()
{
    if (isHidden())
        return;
    const QRect cursorRect = m_editor->cursorRect();
    if (m_editor->viewport()->rect().contains(cursorRect))
        UpdateRect(cursorRect);
    else
        hide();
}

/// After undoing, for instance, the list belongs to a word that is not there any more.
void AutoCompleter::HideElsewhere()
{
    if (m_editor->textCursor().position() != m_position)
        hide();
}

bool AutoCompleter::eventFilter(QObject* watched, QEvent* event)
{
    if (isHidden())
        return false;
    if (watched == m_listView) {
        if (event->type() != QEvent::KeyPress)
            return false;
        keyPressEvent(static_cast<QKeyEvent*>(event));
        return true;
    }
    if (watched == m_editor)
        return FilterEditorEvent(event);
    // The editor's viewport, or the window that they all stand in.
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::WindowDeactivate: hide(); break;
    default: break;
    }
    return false;
}

bool AutoCompleter::FilterEditorEvent(QEvent* event)
{
    switch (event->type()) {
    case QEvent::FocusOut:
    case QEvent::Hide:
    case QEvent::Move:
    case QEvent::Resize: hide(); return false;
    case QEvent::KeyPress: return HandleKey(*static_cast<QKeyEvent*>(event));
    case QEvent::ShortcutOverride:
        // No action of the window gets the keys of an open list.
        if (!IsOwnKey(*static_cast<QKeyEvent*>(event)))
            return false;
        event->accept();
        return true;
    default: return false;
    }
}

void AutoCompleter::keyPressEvent(QKeyEvent* event)
{
    if (!HandleKey(*event))
        QApplication::sendEvent(m_editor, event);
}

bool AutoCompleter::HandleKey(const QKeyEvent& event)
{
    if (!IsOwnKey(event))
        return false;
    const bool shift = event.modifiers() & Qt::ShiftModifier;
    switch (event.key()) {
    case Qt::Key_Escape: hide(); return true;
    case Qt::Key_Backtab:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown: return true;
    case Qt::Key_Tab: ApplySelection(); return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        // A word typed to its end leaves nothing to accept: the line ends.
        if (GetSelectedText() == m_prefix) {
            hide();
            return false;
        }
        ApplySelection();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (shift) {
            hide();
            return false;
        }
        event.key() == Qt::Key_Up ? SelectPrevious() : SelectNext();
        return true;
    default: return false;
    }
}

void AutoCompleter::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.fillRect(rect(), Theme::Color(Theme::Role::RaiseEdge));
    const int edge = Theme::Hairline();
    painter.fillRect(rect().adjusted(edge, edge, -edge, -edge), ColorSettings::sideBarBaseColor);
}

void AutoCompleter::showEvent(QShowEvent* event)
{
    m_editor->window()->installEventFilter(this);
    QWidget::showEvent(event);
}

void AutoCompleter::hideEvent(QHideEvent* event)
{
    m_restTimer->stop();
    m_editor->window()->removeEventFilter(this);
    QWidget::hideEvent(event);
}
