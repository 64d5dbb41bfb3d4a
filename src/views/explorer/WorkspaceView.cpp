#include "views/explorer/WorkspaceView.h"

#include "plugin/Logger.h"
#include "settings/KeyBindings.h"
#include "settings/Settings.h"
#include "views/SubViewHeader.h"
#include "views/explorer/FolderListing.h"
#include "views/explorer/WorkspacePaths.h"
#include "views/explorer/WorkspaceTree.h"
#include "window/chrome/FlatButton.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"
#include "window/chrome/ToolTipText.h"

#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <QVBoxLayout>

using WorkspacePaths::DroppedFolders;

namespace {

// Design pixels.
constexpr int EMPTY_MARGIN = 16;
constexpr int EMPTY_SPACING = 8;
constexpr int EMPTY_ICON = 32;

QString CleanPath(const QString& path)
{
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

bool IsDefaultWorkspace(const QString& path)
{
    return CleanPath(path) == CleanPath(Settings::GetDefaultWorkspacePath());
}

/// In a section that is too low the parts keep their heights.
QScrollArea* Scrolled(QWidget* page)
{
    auto* area = new QScrollArea(page->parentWidget());
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    area->setWidget(page);
    area->viewport()->setAutoFillBackground(false);
    page->setAutoFillBackground(false);
    QObject::connect(qApp, &QApplication::focusChanged, area, [area](QWidget*, QWidget* now) {
        if (now && area->isAncestorOf(now))
            area->ensureWidgetVisible(now);
    });
    return area;
}

} // namespace

WorkspaceView::WorkspaceView(QWidget* parent)
    : SubView(tr("Workspace"), &Settings::workspaceExpanded, parent)
    , m_stack(new QStackedWidget(this))
    , m_tree(new WorkspaceTree(this))
{
    m_stack->setObjectName(QStringLiteral("m_workspaceStack"));
    m_tree->setObjectName(QStringLiteral("m_workspaceTree"));
    m_tree->setAccessibleName(tr("Workspace"));
    m_tree->setContextMenuPolicy(Qt::CustomContextMenu);
    m_stack->addWidget(CreatePage(m_tree));
    m_stack->addWidget(CreateEmptyState());
    SetContent(m_stack);
    m_addButton = AddTool(QStringLiteral("add_folder"), tr("Add Folder to Workspace..."),
        QStringLiteral("m_addFolderButton"));
    const FlatButton* const collapse = AddTool(QStringLiteral("collapse_all"), tr("Collapse All"),
        QStringLiteral("m_collapseWorkspaceButton"));
    connect(m_addButton, &QAbstractButton::clicked, this, &WorkspaceView::ShowAddFolderDialog);
    connect(collapse, &QAbstractButton::clicked, m_tree, &WorkspaceTree::CollapseFolders);
    ConnectTree();
    setAcceptDrops(true);
    LoadAtStart();
}

/// Folders that somebody brings, also where there is no tree yet.
void WorkspaceView::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->source() != m_tree && !DroppedFolders(event->mimeData()).isEmpty()) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }
}

void WorkspaceView::dropEvent(QDropEvent* event)
{
    event->setDropAction(Qt::CopyAction);
    event->accept();
    AddFolders(DroppedFolders(event->mimeData()));
}

void WorkspaceView::ConnectTree()
{
    using T = WorkspaceTree;
    using W = WorkspaceView;
    connect(m_tree, &T::OpenRequested, this, &W::OpenFiles);
    connect(m_tree, &T::OpenInNextGroupRequested, this, &W::OpenInNextGroupRequested);
    connect(m_tree, &T::ChangesFound, this, &W::MarkStale);
    connect(m_tree, &T::CreateRequested, this, &W::Create);
    connect(m_tree, &T::RenameRequested, this, &W::Rename);
    connect(m_tree, &T::DeleteRequested, this, &W::Delete);
    connect(m_tree, &T::FoldersDropped, this, &W::AddFolders);
    // Not in the middle of the drop: there is a question to answer.
    connect(m_tree, &T::MoveRequested, this, &W::Move, Qt::QueuedConnection);
    connect(m_tree, &QWidget::customContextMenuRequested, this, &W::ShowContextMenu);
}

QWidget* WorkspaceView::CreateEmptyState()
{
    auto* page = new QWidget(this);
    auto* icon = new QLabel(page);
    auto* text = new QLabel(tr("No folder in this workspace"), page);
    text->setWordWrap(true);
    text->setAlignment(Qt::AlignCenter);
    auto* add = new QPushButton(tr("Add Folder..."), page);
    m_emptyAddButton = add;
    add->setObjectName(QStringLiteral("m_emptyAddButton"));
    add->setToolTip(tr("Add Folder to Workspace..."));
    auto* open = new QPushButton(tr("Open Workspace..."), page);
    open->setObjectName(QStringLiteral("m_emptyOpenWorkspaceButton"));
    auto* layout = new QVBoxLayout(page);
    FollowLook(page, [this, icon, layout] {
        icon->setPixmap(Theme::TintedPixmap(QStringLiteral("add_folder"), EMPTY_ICON,
            Theme::Color(Theme::Role::IdleIcon), devicePixelRatioF()));
        const int margin = Theme::Dp(EMPTY_MARGIN);
        layout->setContentsMargins(margin, margin, margin, margin);
        layout->setSpacing(Theme::Dp(EMPTY_SPACING));
    });
    layout->addWidget(icon, 0, Qt::AlignHCenter);
    layout->addWidget(text);
    for (QPushButton* button : {add, open}) {
        button->setFocusPolicy(Qt::TabFocus);
        button->setAccessibleName(button->text());
        layout->addWidget(button, 0, Qt::AlignHCenter);
    }
    layout->addStretch(1);
    page->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(add, &QAbstractButton::clicked, this, &WorkspaceView::ShowAddFolderDialog);
    connect(open, &QAbstractButton::clicked, this, &WorkspaceView::OpenWorkspaceRequested);
    connect(page, &QWidget::customContextMenuRequested, this, [this, page](const QPoint& point) {
        ShowContextMenu(m_tree->viewport()->mapFromGlobal(page->mapToGlobal(point)));
    });
    return Scrolled(page);
}

/// A default workspace that is not there yet is an empty one.
void WorkspaceView::LoadAtStart()
{
    const QString path = Settings::GetWorkspacePath();
    if (!path.isEmpty() && (QFileInfo::exists(path) || !IsDefaultWorkspace(path)))
        m_keepsUnreadable = !Load(path) && QFileInfo::exists(path);
    UpdateTitle();
    ShowFolders();
}

bool WorkspaceView::Load(const QString& path)
{
    if (m_file.Read(path) != WorkspaceFile::Result::Ok) {
        Logger::Error(QStringLiteral("Failed to open workspace: %1").arg(path));
        return false;
    }
    if (m_file.IsNewer()) {
        Logger::Warning(
            QStringLiteral("Workspace was written by a newer version and is not changed: %1")
                .arg(path));
    }
    m_modified = false;
    m_isChosenHere = false;
    m_keepsUnreadable = false;
    Settings::workspaceFolders = m_file.GetFolders();
    return true;
}

void WorkspaceView::OpenWorkspace(const QString& path)
{
    SaveWorkspace();
    if (!Load(path))
        return;
    Settings::workspacePath = IsDefaultWorkspace(path) ? QString() : CleanPath(path);
    UpdateTitle();
    ShowFolders();
    Q_EMIT WorkspaceModified();
}

void WorkspaceView::SaveWorkspace()
{
    const QString path = Settings::GetWorkspacePath();
    if (!m_modified || m_file.IsNewer() || path.isEmpty())
        return;
    // Another host works with this file.
    if (!Settings::ownsUserConfig && !m_isChosenHere)
        return;
    // What could not be read may still be worth something to somebody.
    if (m_keepsUnreadable && !QFile::copy(path, path + QStringLiteral(".broken"))
        && !QFileInfo::exists(path + QStringLiteral(".broken"))) {
        Logger::Error(QStringLiteral("Failed to save workspace: %1").arg(path));
        return;
    }
    m_modified = !Write(path);
}

void WorkspaceView::SaveWorkspaceAs(const QString& path)
{
    if (path.isEmpty() || !Write(path))
        return;
    Settings::workspacePath = IsDefaultWorkspace(path) ? QString() : CleanPath(path);
    // Written by this version, whatever the file came from.
    m_file.Read(path);
    m_modified = false;
    m_isChosenHere = true;
    UpdateTitle();
}

bool WorkspaceView::Write(const QString& path)
{
    m_file.SetFolders(Settings::workspaceFolders);
    if (!m_file.Write(path)) {
        Logger::Error(QStringLiteral("Failed to save workspace: %1").arg(path));
        return false;
    }
    m_keepsUnreadable = false;
    return true;
}

void WorkspaceView::SetFolders(const QStringList& folders)
{
    Settings::workspaceFolders = folders;
    m_modified = true;
    ShowFolders();
    SaveWorkspace();
    Q_EMIT WorkspaceModified();
}

void WorkspaceView::ShowFolders()
{
    const bool empty = Settings::workspaceFolders.isEmpty();
    m_stack->setCurrentIndex(empty ? 1 : 0);
    m_stack->setFocusProxy(empty ? m_emptyAddButton : static_cast<QWidget*>(m_tree));
    UpdateAll();
}

void WorkspaceView::UpdateAll()
{
    m_readsAll = true;
    MarkStale();
}

void WorkspaceView::UpdateKeyBindings(const KeyBindings* keyBindings)
{
    m_addButton->SetToolTip(keyBindings->GetToolTip(
        KeyBindings::AddFolderToWorkspace, tr("Add Folder to Workspace...")));
}

void WorkspaceView::Refresh()
{
    const bool readsAll = m_readsAll;
    m_readsAll = false;
    m_tree->SetRoots(Settings::workspaceFolders);
    m_tree->SetOpenFiles(m_openFiles);
    if (readsAll)
        m_tree->RefreshAll();
    else
        m_tree->RefreshChanged();
}

void WorkspaceView::SetOpenFiles(const QHash<QString, bool>& modifiedByPath)
{
    if (m_openFiles == modifiedByPath)
        return;
    m_openFiles = modifiedByPath;
    MarkStale();
}

void WorkspaceView::UpdateTitle()
{
    const QString path = Settings::GetWorkspacePath();
    QString name = QFileInfo(path).fileName();
    if (name.endsWith(Settings::WORKSPACE_EXTENSION, Qt::CaseInsensitive))
        name.chop(Settings::WORKSPACE_EXTENSION.size());
    GetHeader()->SetTitle(path.isEmpty() || IsDefaultWorkspace(path) ? tr("Workspace") : name);
    GetHeader()->setToolTip(ToolTipText(path));
}

void WorkspaceView::AddFolder(const QString& path)
{
    AddFolders({path});
}

void WorkspaceView::AddFolders(const QStringList& paths)
{
    QStringList folders = Settings::workspaceFolders;
    for (const QString& path : paths) {
        if (!folders.contains(CleanPath(path)))
            folders.append(CleanPath(path));
    }
    if (folders != Settings::workspaceFolders) {
        SetFolders(folders);
        SetExpanded(true);
    }
    if (paths.isEmpty())
        return;
    m_tree->SelectPath(CleanPath(paths.last()));
    if (m_tree->GetCurrentPath() == CleanPath(paths.last()))
        m_tree->expand(m_tree->currentIndex());
}

void WorkspaceView::RemoveFolder(const QString& path)
{
    QStringList folders = Settings::workspaceFolders;
    if (folders.removeAll(path) > 0)
        SetFolders(folders);
}

void WorkspaceView::MoveFolder(const QString& path, int step)
{
    QStringList folders = Settings::workspaceFolders;
    const int from = folders.indexOf(path);
    const int to = from + step;
    if (from < 0 || to < 0 || to >= folders.size())
        return;
    folders.move(from, to);
    SetFolders(folders);
    m_tree->SelectPath(path);
}

void WorkspaceView::ShowAddFolderDialog()
{
    const QString start = Settings::workspaceFolders.value(Settings::workspaceFolders.size() - 1);
    const QString folder
        = QFileDialog::getExistingDirectory(this, tr("Add Folder to Workspace"), start);
    if (!folder.isEmpty())
        AddFolder(folder);
}

/// What the tree does not show is not there for it either.
bool WorkspaceView::SelectPath(const QString& path)
{
    const QFileInfo info(path);
    const bool isHidden = Settings::pythonHideCompiledFiles
        && FolderListing::IsCompiledPython(info.fileName(), info.isDir());
    if (!m_tree->GetModel()->RootOf(path).isValid() || !info.exists() || isHidden)
        return false;
    m_tree->SelectPath(path);
    return true;
}

void WorkspaceView::OpenFiles(const QStringList& paths)
{
    for (const QString& path : paths)
        Q_EMIT OpenFileRequested(path);
}
