// What the results tree does; what its rows look like is in SearchResultsViewPainting.cpp.

#include "views/search/SearchResultsView.h"

#include "settings/Settings.h"
#include "views/FocusReason.h"
#include "views/PlainToolTip.h"
#include "views/SideBarRows.h"
#include "views/search/SearchResultsModel.h"
#include "window/chrome/LookFollower.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMenu>

namespace {

/// With more hits the files come collapsed: nobody reads them all.
constexpr int MOST_EXPANDED = 5000;

/// Where a file is, for people: its folder below the one that was searched.
QString Detail(const QString& folder, const QString& relative)
{
    if (folder == Settings::GetInternalBufferDirectoryPath())
        return SearchResultsView::tr("internal buffer");
    const int end = relative.lastIndexOf(QLatin1Char('/'));
    return end < 0 ? folder.mid(folder.lastIndexOf(QLatin1Char('/')) + 1) : relative.left(end);
}

} // namespace

SearchResultsView::SearchResultsView(QWidget* parent)
    : QTreeView(parent)
    , m_model(new SearchResultsModel(this))
{
    setFrameShape(QFrame::NoFrame);
    setHeaderHidden(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    SideBarRows::MakeRowsEquallyHigh(*this);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    setMinimumSize(0, 0);
    setEditTriggers(NoEditTriggers);
    setExpandsOnDoubleClick(false);
    header()->setMinimumSectionSize(0);
    viewport()->setAutoFillBackground(false);
    viewport()->setAttribute(Qt::WA_Hover);
    setModel(m_model);
    connect(m_model, &SearchResultsModel::CountChanged, this, &SearchResultsView::CountChanged);
    // Rows are painted over their whole width, of which the toolkit knows their text alone.
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
        [this] { viewport()->update(); });
    FollowLook(this, [this] { scheduleDelayedItemsLayout(); });
}

void SearchResultsView::AppendResults(
    const QString& folder, const QString& relative, const QVector<SearchResult>& results)
{
    m_model->Append(Detail(folder, relative), results);
}

void SearchResultsView::Flush()
{
    const int first = m_model->GetFileCount();
    m_model->Flush();
    if (m_model->GetHitCount() > MOST_EXPANDED)
        return;
    for (int row = first; row < m_model->GetFileCount(); ++row)
        expand(m_model->index(row, 0));
}

void SearchResultsView::UpdateResults(const QString& filePath, const QVector<SearchResult>& results)
{
    m_model->Update(filePath, results);
}

void SearchResultsView::Clear()
{
    m_model->Clear();
}

void SearchResultsView::ReplaceAll(const QString& text)
{
    QVector<SearchResult> hits;
    hits.reserve(m_model->GetHitCount());
    for (int row = 0; row < m_model->GetFileCount(); ++row)
        hits += m_model->GetFileAt(row).hits;
    Q_EMIT ReplaceRequested(hits, text);
}

QModelIndex SearchResultsView::Neighbour(const QModelIndex& index, int step) const
{
    const int files = m_model->GetFileCount();
    int file = step > 0 ? 0 : files - 1;
    int hit = -1; // the first or last one
    if (index.isValid()) {
        file = m_model->GetFile(index).row;
        hit = m_model->IsHit(index) ? index.row() + step : -1;
        if (!m_model->IsHit(index) && step < 0)
            file = (file + files - 1) % files;
        else if (m_model->IsHit(index)
            && (hit < 0 || hit >= m_model->GetFileAt(file).hits.size())) {
            file = (file + files + step) % files;
            hit = -1;
        }
    }
    if (hit < 0)
        hit = step > 0 ? 0 : m_model->GetFileAt(file).hits.size() - 1;
    return m_model->index(hit, 0, m_model->index(file, 0));
}

void SearchResultsView::Go(int step)
{
    if (m_model->GetFileCount() == 0)
        return;
    const QModelIndex index = Neighbour(currentIndex(), step);
    setCurrentIndex(index);
    scrollTo(index);
    Choose(index, true);
}

void SearchResultsView::Choose(const QModelIndex& index, bool focus)
{
    if (!index.isValid())
        return;
    // By value: what is opened may change the results.
    if (m_model->IsHit(index)) {
        const SearchResult hit = m_model->GetHit(index);
        Q_EMIT HitChosen(hit, focus);
    } else {
        setExpanded(index, !isExpanded(index));
    }
}

void SearchResultsView::DismissCurrent()
{
    const QPersistentModelIndex index = currentIndex();
    if (!index.isValid())
        return;
    const QModelIndex next = indexBelow(index).isValid() && m_model->IsHit(index)
        ? indexBelow(index)
        : m_model->index(index.row() + 1, 0, index.parent());
    const QPersistentModelIndex then = next.isValid() ? next : indexAbove(index);
    m_model->Remove(index);
    if (then.isValid())
        setCurrentIndex(then);
}

void SearchResultsView::CopyCurrent() const
{
    const QModelIndex index = currentIndex();
    if (index.isValid())
        QApplication::clipboard()->setText(
            m_model->IsHit(index) ? m_model->GetHit(index).lineText : m_model->GetFile(index).path);
}

bool SearchResultsView::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride
        && SideBarRows::IsOwnKey(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    return QTreeView::event(event);
}

bool SearchResultsView::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto& help = static_cast<const QHelpEvent&>(*event);
        const QModelIndex index = indexAt(help.pos());
        ShowPlainToolTip(*this, index, help.globalPos(), ToolTipOf(index));
        return true;
    }
    if (event->type() == QEvent::HoverMove)
        viewport()->update();
    return QTreeView::viewportEvent(event);
}

void SearchResultsView::keyPressEvent(QKeyEvent* event)
{
    const bool plain = !(event->modifiers() & ~Qt::KeypadModifier);
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (plain && isReturn)
        Choose(currentIndex(), true);
    else if (plain && event->key() == Qt::Key_Delete)
        DismissCurrent();
    else if (event->matches(QKeySequence::Copy))
        CopyCurrent();
    else
        QTreeView::keyPressEvent(event);
}

void SearchResultsView::mousePressEvent(QMouseEvent* event)
{
    m_focusByKey = false;
    const QModelIndex index = indexAt(event->pos());
    m_pressed = QModelIndex();
    if (event->button() == Qt::LeftButton && HandleArrowPress(index, event->pos()))
        return;
    QTreeView::mousePressEvent(event);
    if (event->button() == Qt::LeftButton)
        m_pressed = index;
}

void SearchResultsView::mouseReleaseEvent(QMouseEvent* event)
{
    QTreeView::mouseReleaseEvent(event);
    const QModelIndex pressed = m_pressed;
    m_pressed = QModelIndex();
    if (event->button() == Qt::LeftButton && pressed.isValid() && indexAt(event->pos()) == pressed)
        Choose(pressed, false);
}

/// The second click only takes the focus along; a file was opened and closed by the two already.
void SearchResultsView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->pos());
    if (event->button() != Qt::LeftButton || HandleArrowPress(index, event->pos())
        || !index.isValid())
        return;
    if (m_model->IsHit(index))
        Choose(index, true);
    else
        Q_EMIT FileChosen(m_model->GetFile(index).path);
}

void SearchResultsView::contextMenuEvent(QContextMenuEvent* event)
{
    const QModelIndex index
        = event->reason() == QContextMenuEvent::Keyboard ? currentIndex() : indexAt(event->pos());
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (index.isValid()) {
        setCurrentIndex(index);
        const bool isHit = m_model->IsHit(index);
        const QString path = m_model->GetFile(index).path;
        if (isHit)
            menu->addAction(tr("Open"), this, [this] { Choose(currentIndex(), true); });
        else
            menu->addAction(tr("Open"), this, [this, path] { Q_EMIT FileChosen(path); });
        if (isHit && m_replaceActive)
            menu->addAction(tr("Replace"), this, [this] {
                const SearchResult hit = m_model->GetHit(currentIndex());
                Q_EMIT ReplaceHitRequested(hit);
            });
        menu->addSeparator();
        menu->addAction(
            isHit ? tr("Copy Line") : tr("Copy"), this, &SearchResultsView::CopyCurrent);
        menu->addAction(
            tr("Copy Path"), this, [path] { QApplication::clipboard()->setText(path); });
        menu->addSeparator();
        menu->addAction(tr("Dismiss"), this, &SearchResultsView::DismissCurrent);
        menu->addSeparator();
    }
    if (m_model->GetFileCount() > 0) {
        menu->addAction(tr("Expand All"), this, &SearchResultsView::expandAll);
        menu->addAction(tr("Collapse All"), this, &SearchResultsView::collapseAll);
        menu->addAction(tr("Clear"), this, &SearchResultsView::ClearRequested);
        menu->addSeparator();
    }
    menu->addAction(tr("Hide Side Bar"), this, &SearchResultsView::HideRequested);
    menu->popup(event->reason() == QContextMenuEvent::Keyboard
            ? viewport()->mapToGlobal(visualRect(index).bottomLeft())
            : event->globalPos());
}

void SearchResultsView::focusInEvent(QFocusEvent* event)
{
    m_focusByKey = IsKeyboardFocus(event->reason());
    QTreeView::focusInEvent(event);
    // The first key has to have somewhere to begin.
    if (m_focusByKey && !currentIndex().isValid())
        setCurrentIndex(m_model->index(0, 0));
    viewport()->update();
}
