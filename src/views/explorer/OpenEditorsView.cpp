#include "views/explorer/OpenEditorsView.h"

#include "settings/KeyBindings.h"
#include "settings/Settings.h"
#include "views/SideBarTree.h"
#include "views/SubViewHeader.h"
#include "window/chrome/FlatButton.h"
#include "window/chrome/Theme.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <QVBoxLayout>

namespace {

// Design pixels.

constexpr int MAXIMUM_ROWS = 9; ///< then it scrolls
constexpr int KEY_ROLE = Qt::UserRole; ///< what tells rows apart: the path, or a heading's text

QIcon LanguageIcon(CodeEditorLanguage language)
{
    switch (language) {
    case CodeEditorLanguage::Mel: return Theme::Icon(QStringLiteral("lang_mel"));
    case CodeEditorLanguage::Python: return Theme::Icon(QStringLiteral("lang_python"));
    case CodeEditorLanguage::Text: break;
    }
    return Theme::Icon(QStringLiteral("lang_text"));
}

} // namespace

/// A button of the header, which asks for one of the window's actions.
struct OpenEditorsView::Tool
{
    FlatButton* OpenEditorsView::*button;
    const char* name;
    const char* icon;
    const char* label;
    int binding;
    void (OpenEditorsView::*signal)();
};

// clang-format off
const OpenEditorsView::Tool OpenEditorsView::TOOLS[] = {
    {&OpenEditorsView::m_newButton,      "m_newButton",      "new_file",  QT_TR_NOOP("New..."),          KeyBindings::NewBuffer,     &OpenEditorsView::NewRequested},
    {&OpenEditorsView::m_saveAllButton,  "m_saveAllButton",  "save_all",  QT_TR_NOOP("Save All"),        KeyBindings::SaveAll,       &OpenEditorsView::SaveAllRequested},
    {&OpenEditorsView::m_closeAllButton, "m_closeAllButton", "close_all", QT_TR_NOOP("Close All Files"), KeyBindings::CloseAllFiles, &OpenEditorsView::CloseAllRequested},
};
// clang-format on

struct OpenEditorsView::Row
{
    QString key;
    const Editor* editor = nullptr; ///< null: a heading
    QString detail;
};

OpenEditorsView::OpenEditorsView(QWidget* parent)
    : SubView(tr("Open Editors"), &Settings::openEditorsExpanded, parent)
    , m_tree(new SideBarTree(this))
{
    m_tree->setObjectName(QStringLiteral("m_openEditorsTree"));
    m_tree->setAccessibleName(tr("Open Editors"));
    m_tree->setRootIsDecorated(false);
    m_tree->setContextMenuPolicy(Qt::CustomContextMenu);
    m_tree->SetDragging([this](const QTreeWidgetItem& item) {
        const DraggedTab tab = TabOf(item.data(0, KEY_ROLE).toString());
        return tab.index < 0 ? nullptr : new TabDragData(tab);
    });
    SetContent(CreatePage(m_tree));
    CreateTools();
    connect(m_tree, &QTreeWidget::itemClicked, this, &OpenEditorsView::OnActivated);
    connect(m_tree, &QTreeWidget::itemActivated, this, &OpenEditorsView::OnActivated);
    connect(m_tree, &SideBarTree::CloseRequested, this, [this](const QTreeWidgetItem* item) {
        Q_EMIT CloseRequested(item->data(0, KEY_ROLE).toString());
    });
    connect(m_tree, &QWidget::customContextMenuRequested, this, &OpenEditorsView::ShowContextMenu);
}

void OpenEditorsView::CreateTools()
{
    for (const Tool& tool : TOOLS) {
        FlatButton* const button
            = AddTool(QLatin1String(tool.icon), tr(tool.label), QLatin1String(tool.name));
        connect(button, &QAbstractButton::clicked, this, tool.signal);
        this->*tool.button = button;
    }
}

void OpenEditorsView::UpdateKeyBindings(const KeyBindings* keyBindings)
{
    for (const Tool& tool : TOOLS)
        (this->*tool.button)->SetToolTip(keyBindings->GetToolTip(tool.binding, tr(tool.label)));
}

/// By its group and its place there; -1 for what has none.
DraggedTab OpenEditorsView::TabOf(const QString& path) const
{
    QHash<int, int> counts;
    for (const Editor& editor : m_editors) {
        const int index = counts[editor.group]++;
        if (editor.properties.filePath == path)
            return {editor.group, index};
    }
    return {};
}

void OpenEditorsView::SetEditors(const QVector<Editor>& editors)
{
    const int count = WantedRows().size();
    m_editors = editors;
    UpdateNote();
    MarkStale();
    if (WantedRows().size() != count)
        Q_EMIT NaturalHeightChanged();
}

void OpenEditorsView::SelectEditor(const QString& path)
{
    m_activePath = path;
    MarkStale();
}

int OpenEditorsView::GetNaturalHeight() const
{
    // Never 0, which would ask for a share.
    const int rows = qMin(WantedRows().size(), MAXIMUM_ROWS);
    return rows * SideBarTree::RowHeight() + PageMargins();
}

void OpenEditorsView::UpdateNote()
{
    int modified = 0;
    // A buffer keeps itself; nobody has to save it.
    for (const Editor& editor : qAsConst(m_editors))
        modified += editor.modified && editor.properties.type == CodeEditorType::File ? 1 : 0;
    GetHeader()->SetNote(modified == 0 ? QString() : tr("%n modified", nullptr, modified));
}

/// Headings only when there is more than one group to tell apart; the folder only where two labels
/// are equal.
QVector<OpenEditorsView::Row> OpenEditorsView::WantedRows() const
{
    QSet<int> groups;
    QHash<QString, int> labels;
    for (const Editor& editor : m_editors) {
        groups.insert(editor.group);
        ++labels[editor.properties.label];
    }
    QVector<Row> rows;
    if (m_editors.isEmpty())
        rows.append({tr("No editor is open"), nullptr, QString()});
    int group = -1;
    for (const Editor& editor : m_editors) {
        if (groups.size() > 1 && editor.group != group)
            rows.append({tr("Group %1").arg(editor.group + 1), nullptr, QString()});
        group = editor.group;
        const bool file = editor.properties.type == CodeEditorType::File;
        const bool ambiguous = labels.value(editor.properties.label) > 1;
        const QFileInfo info(editor.properties.filePath);
        rows.append({editor.properties.filePath, &editor,
            file && ambiguous ? info.dir().dirName() : QString()});
    }
    return rows;
}

/// Goes through the wanted rows and the tree's side by side: what is in place already is updated,
/// what has moved is taken from below, what is left over at the end goes.
void OpenEditorsView::Refresh()
{
    const QVector<Row> rows = WantedRows();
    QSet<QString> wanted;
    for (const Row& row : rows)
        wanted.insert(row.key);
    for (int i = m_tree->topLevelItemCount() - 1; i >= 0; --i) {
        if (!wanted.contains(m_tree->topLevelItem(i)->data(0, KEY_ROLE).toString()))
            delete m_tree->takeTopLevelItem(i);
    }
    for (int i = 0; i < rows.size(); ++i) {
        int found = i;
        while (found < m_tree->topLevelItemCount()
            && m_tree->topLevelItem(found)->data(0, KEY_ROLE).toString() != rows[i].key)
            ++found;
        QTreeWidgetItem* item = nullptr;
        if (found == m_tree->topLevelItemCount())
            item = new QTreeWidgetItem;
        else if (found != i)
            item = m_tree->takeTopLevelItem(found);
        if (item)
            m_tree->insertTopLevelItem(i, item);
        ApplyRow(m_tree->topLevelItem(i), rows[i]);
    }
    ShowSelection();
}

void OpenEditorsView::ApplyRow(QTreeWidgetItem* item, const Row& row)
{
    item->setData(0, KEY_ROLE, row.key);
    item->setData(0, SideBarTree::HeadingRole, row.editor == nullptr);
    if (!row.editor) {
        item->setText(0, row.key);
        item->setFlags(Qt::NoItemFlags);
        return;
    }
    const CodeEditorProperties& properties = row.editor->properties;
    const bool file = properties.type == CodeEditorType::File;
    // A dot says that something could be lost; buffers keep their text by themselves.
    const bool dot = file && row.editor->modified;
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled
        | Qt::ItemNeverHasChildren);
    item->setText(0, properties.label);
    item->setIcon(0, LanguageIcon(properties.language));
    item->setToolTip(0, file ? properties.filePath : QString());
    item->setData(0, SideBarTree::LanguageIconRole, true);
    item->setData(0, SideBarTree::ClosableRole, true);
    item->setData(0, SideBarTree::CopyRole, file ? properties.filePath : QString());
    item->setData(0, SideBarTree::ModifiedRole, dot);
    item->setData(0, SideBarTree::DetailRole, row.detail);
    item->setData(0, Qt::AccessibleTextRole,
        dot ? tr("%1, modified").arg(properties.label) : properties.label);
}

void OpenEditorsView::ShowSelection()
{
    QTreeWidgetItem* const item = ItemOf(m_activePath);
    m_tree->setCurrentItem(item);
    if (item)
        m_tree->scrollToItem(item);
}

/// Null for no path, or one that has no row.
QTreeWidgetItem* OpenEditorsView::ItemOf(const QString& path) const
{
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        QTreeWidgetItem* const item = m_tree->topLevelItem(i);
        if (!path.isEmpty() && item->data(0, KEY_ROLE).toString() == path)
            return item;
    }
    return nullptr;
}

void OpenEditorsView::Reveal(const QString& path)
{
    SetExpanded(true);
    QTreeWidgetItem* const item = ItemOf(path);
    if (!item)
        return;
    m_tree->setCurrentItem(item);
    m_tree->scrollToItem(item);
    FocusContent(Qt::ShortcutFocusReason);
}

void OpenEditorsView::OnActivated(QTreeWidgetItem* item)
{
    if (!item->data(0, SideBarTree::HeadingRole).toBool())
        Q_EMIT ActivateRequested(item->data(0, KEY_ROLE).toString());
}

void OpenEditorsView::ShowContextMenu(const QPoint& point)
{
    const QTreeWidgetItem* const item = m_tree->itemAt(point);
    if (!item || item->data(0, SideBarTree::HeadingRole).toBool()) {
        Q_EMIT HeaderMenuRequested(m_tree->viewport()->mapToGlobal(point));
        return;
    }
    Q_EMIT MenuRequested(
        item->data(0, KEY_ROLE).toString(), m_tree->viewport()->mapToGlobal(point));
}
