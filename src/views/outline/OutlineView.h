#pragma once

#include "language/ParserItem.h"
#include "views/SubView.h"

#include <QHash>
#include <QIcon>
#include <QSet>
#include <QVector>

class BaseParser;
class FlatButton;
class OutlineTreeWidget;
class QMenu;
class QTreeWidgetItem;

/// The section with the declarations of the script in the active editor, as its parser found them.
/// Positions are UTF-16 offsets in the script. Which nodes are expanded is kept per file in
/// Settings::outlineExpandedHash; a node is known by the names from the outermost one down to it.
class OutlineView : public SubView
{
    Q_OBJECT

public:
    explicit OutlineView(QWidget* parent);

    /// Shows what the parser has found; nothing for null. The parser is not owned and is asked
    /// again when an option changes, so it must live until another one takes its place.
    void Update(BaseParser* parser);
    /// Marks the declaration that the cursor is in. The line is the cursor's own, up to its end.
    void SetCursorPosition(int position, int lineStart, int lineEnd);

    // Items; top-level without a parent
    QTreeWidgetItem* AddItem(const QString& name, int start, int end, const QIcon& icon,
        QTreeWidgetItem* parent, bool hidden);
    QTreeWidgetItem* AddGlobalProc(
        const QString& name, int start, int end, QTreeWidgetItem* parent);
    QTreeWidgetItem* AddProc(const QString& name, int start, int end, QTreeWidgetItem* parent);
    QTreeWidgetItem* AddGlobalVariable(
        const QString& name, int start, int end, QTreeWidgetItem* parent);
    QTreeWidgetItem* AddImport(const QString& name, int start, int end, QTreeWidgetItem* parent);
    QTreeWidgetItem* AddMain(const QString& name, int start, int end, QTreeWidgetItem* parent);
    QTreeWidgetItem* AddMethod(const QString& name, int start, int end, QTreeWidgetItem* parent);
    QTreeWidgetItem* AddStaticMethod(
        const QString& name, int start, int end, QTreeWidgetItem* parent);
    QTreeWidgetItem* AddClassMethod(
        const QString& name, int start, int end, QTreeWidgetItem* parent);
    QTreeWidgetItem* AddClass(const QString& name, int start, int end, QTreeWidgetItem* parent);
    QTreeWidgetItem* AddVariable(const QString& name, int start, int end, QTreeWidgetItem* parent);
    QTreeWidgetItem* AddClassVariable(
        const QString& name, int start, int end, QTreeWidgetItem* parent);
    void Clear();

    // Order and filters
    void CollapseAll();
    void ExpandAll();
    void ToggleSort();
    void ToggleImportVisibility();
    void ToggleMainVisibility();
    void ToggleGlobalProcVisibility();
    void ToggleGlobalVariableVisibility();
    void ToggleProcVisibility();
    void ShowAllTypes();

    // Expanded nodes and scroll places
    /// Those of the file that is shown.
    void SaveExpanded();
    void RestoreExpanded(const QString& filePath);
    void Save() { SaveExpanded(); }
    void ClearStoredDetails(const QString& filePath, bool clearTree);
    /// Drops what is stored of every other file.
    void ClearInvalidDetails(const QStringList& openFilePaths);
    void MoveStoredDetails(const QString& oldPath, const QString& newPath);

    void AddMenuEntries(QMenu& menu) override;

Q_SIGNALS:
    /// The user chose a declaration: its name is from start to end.
    void SelectionChanged(int start, int end);
    /// ... and wants to go on there.
    void EditorRequested();

protected:
    void Refresh() override { Update(); }

private:
    /// The kinds of items; the values are those of ParserItemType.
    enum class Kind;

    static const bool* HidingOption(Kind kind);
    void CreateTools();
    void Update();
    void UpdatePython();
    void UpdateMel();
    void AddItems(const QVector<ParserItem>& items);
    QTreeWidgetItem* AddKind(
        Kind kind, const QString& name, int start, int end, QTreeWidgetItem* parent);
    bool UpdatePositions(const QVector<ParserItem>& items);
    void ToggleOption(bool& option);
    void UpdateFilterButton();
    void ShowFilterMenu();
    void AddFilters(QMenu& menu);
    void SetAllExpanded(bool expanded);
    void UpdateEmptyText();
    void OnSelectionChanged();
    QTreeWidgetItem* FindCursorItem() const;
    void MarkCursorItem();
    void ExpandStored(QTreeWidgetItem* parent, const QSet<QString>& stored, QSet<QString>& found);

    OutlineTreeWidget* m_tree;
    FlatButton* m_sortButton = nullptr;
    FlatButton* m_filterButton = nullptr;
    BaseParser* m_parser = nullptr; ///< not owned
    QString m_filePath; ///< of what the tree shows
    QVector<QTreeWidgetItem*> m_items; ///< in the script's order
    bool m_isFilling = false;
    QList<QTreeWidgetItem*> m_newRows; ///< top-level ones, while filling
    QList<QTreeWidgetItem*> m_newHidden;
    QVector<ParserItem> m_shown; ///< what they were made of
    QTreeWidgetItem* m_marked = nullptr;
    int m_cursorPosition = 0;
    int m_cursorLineStart = 0;
    int m_cursorLineEnd = 0;
    QVector<QIcon> m_icons; ///< by kind
    QHash<QString, int> m_scrollValues; ///< by file path
    QHash<QString, int> m_scrollMaximums;
    /// Expanded nodes of this file that an unfinished edit has taken away for the moment.
    QSet<QString> m_missing;
};
