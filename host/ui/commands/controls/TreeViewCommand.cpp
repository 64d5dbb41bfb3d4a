#include "engine/Engine.h"
#include "ui/commands/ProcedureCall.h"
#include "ui/commands/Tables.h"

#include <QHeaderView>
#include <QTreeWidget>

namespace host::ui {

namespace {

constexpr int NAME_ROLE = Qt::UserRole;
constexpr int BUTTON_WIDTH = 22;
constexpr int MOST_BUTTONS = 8;
const QString ITEM_PRESSED = QStringLiteral("pressCommand");

/// A tree whose items have names besides their labels. Pictures that can be pressed stand in
/// columns behind the label.
class Tree : public QTreeWidget
{
public:
    Tree()
    {
        setHeaderHidden(true);
        setColumnCount(1);
        setSelectionMode(ExtendedSelection);
        setUniformRowHeights(true);
        header()->setStretchLastSection(false);
        header()->setSectionResizeMode(0, QHeaderView::Stretch);
        setEditTriggers(EditKeyPressed);
    }

    QTreeWidgetItem* Find(const QString& name) const { return m_items.value(name); }
    void Add(const QString& name, QTreeWidgetItem* under)
    {
        auto* item = new QTreeWidgetItem({name});
        item->setData(0, NAME_ROLE, name);
        item->setFlags(item->flags() | Qt::ItemIsEditable);
        m_items.insert(name, item);
        if (under)
            under->addChild(item);
        else
            addTopLevelItem(item);
        item->setExpanded(true);
    }
    void Remove(QTreeWidgetItem* item)
    {
        for (QTreeWidgetItem* gone : Below(item))
            m_items.remove(NameOf(gone));
        delete item;
    }
    void RemoveAll()
    {
        m_items.clear();
        clear();
    }
    void SetButtonCount(int count)
    {
        setColumnCount(1 + count);
        for (int column = 1; column <= count; ++column) {
            header()->setSectionResizeMode(column, QHeaderView::Fixed);
            header()->resizeSection(column, Scaled(BUTTON_WIDTH));
        }
    }
    static QString NameOf(const QTreeWidgetItem* item)
    {
        return item ? item->data(0, NAME_ROLE).toString() : QString();
    }
    /// The item and all below it, from the top; null: all items.
    QVector<QTreeWidgetItem*> Below(QTreeWidgetItem* item) const
    {
        QVector<QTreeWidgetItem*> found;
        QTreeWidgetItem* root = item ? item : invisibleRootItem();
        if (item)
            found += item;
        QVector<QTreeWidgetItem*> open{root};
        while (!open.isEmpty()) {
            QTreeWidgetItem* next = open.takeLast();
            if (next != root)
                found += next;
            for (int i = next->childCount() - 1; i >= 0; --i)
                open += next->child(i);
        }
        return found;
    }

private:
    QHash<QString, QTreeWidgetItem*> m_items;
};

Tree* View(const Element& element)
{
    return As<Tree>(element);
}

// Callbacks

QStringList NamesAt(const QItemSelection& selection)
{
    QStringList names;
    for (const QModelIndex& index : selection.indexes()) {
        if (index.column() == 0)
            names += index.data(NAME_ROLE).toString();
    }
    return names;
}

/// One call for every item that is selected no longer, or is now.
void OnSelectionChanged(Element& element, const QItemSelection& on, const QItemSelection& off)
{
    if (View(element)->signalsBlocked())
        return;
    const QPointer<Element> alive(&element);
    const QString flag = QStringLiteral("selectCommand");
    const QStringList selected = NamesAt(on);
    const QStringList left = NamesAt(off);
    for (const QString& name : left + selected) {
        if (alive && alive->HasCallback(flag))
            CallProcedure(*alive, flag, {name, selected.contains(name) ? 1 : 0});
    }
    if (alive)
        alive->RunCallback(QStringLiteral("selectionChangedCommand"));
}

void OnClicked(Element& element, QTreeWidgetItem* item, int column)
{
    if (column > 0)
        CallProcedure(element, ITEM_PRESSED + QString::number(column), {Tree::NameOf(item), 1});
}

void OnDoubleClicked(Element& element, QTreeWidgetItem* item)
{
    CallProcedure(
        element, QStringLiteral("itemDblClickCommand"), {Tree::NameOf(item), item->text(0)});
}

/// The callback may answer with another label; an empty one keeps the old.
void OnEdited(Element& element, QTreeWidgetItem* item, int column)
{
    const QString flag = QStringLiteral("editLabelCommand");
    const QString name = Tree::NameOf(item);
    const QString label = item->text(0);
    const QString old = Stored(element, qPrintable(QStringLiteral("label ") + name), name).ToText();
    if (column != 0 || label == old)
        return;
    const QPointer<Element> alive(&element);
    QString wanted = label;
    if (element.HasCallback(flag)) {
        const Outcome outcome = CallProcedure(element, flag, {name, label});
        if (!alive)
            return;
        wanted = outcome.Ok() ? outcome.GetValue().ToText() : QString();
    }
    QTreeWidgetItem* still = View(element)->Find(name);
    if (!still)
        return;
    const QSignalBlocker blocker(View(element));
    still->setText(0, wanted.isEmpty() ? old : wanted);
    element.values.insert(QStringLiteral("label ") + name, still->text(0));
}

void MakeTree(Element& element, const Call&)
{
    auto* tree = new Tree;
    const auto opened = [&element](QTreeWidgetItem* item, bool open) {
        CallProcedure(
            element, QStringLiteral("expandCollapseCommand"), {Tree::NameOf(item), open ? 1 : 0});
    };
    QObject::connect(tree->selectionModel(), &QItemSelectionModel::selectionChanged, &element,
        [&element](const QItemSelection& on, const QItemSelection& off) {
            OnSelectionChanged(element, on, off);
        });
    QObject::connect(tree, &QTreeWidget::itemClicked, &element,
        [&element](QTreeWidgetItem* item, int column) { OnClicked(element, item, column); });
    QObject::connect(tree, &QTreeWidget::itemDoubleClicked, &element,
        [&element](QTreeWidgetItem* item) { OnDoubleClicked(element, item); });
    QObject::connect(tree, &QTreeWidget::itemChanged, &element,
        [&element](QTreeWidgetItem* item, int column) { OnEdited(element, item, column); });
    QObject::connect(tree, &QTreeWidget::itemExpanded, &element,
        [opened](QTreeWidgetItem* item) { opened(item, true); });
    QObject::connect(tree, &QTreeWidget::itemCollapsed, &element,
        [opened](QTreeWidgetItem* item) { opened(item, false); });
    element.SetWidget(tree);
}

// Flags

/// Calls `change` with the item that each use of the flag names. Nobody is told of what scripts do.
template <typename Change>
void ForItems(Edit& edit, Change change)
{
    const QSignalBlocker blocker(View(edit.element));
    for (int use = 0; use < edit.UseCount(); ++use) {
        QTreeWidgetItem* item = View(edit.element)->Find(edit.Text(0, use));
        if (!item) {
            edit.error = QStringLiteral("Item not found: %1").arg(edit.Text(0, use));
            return;
        }
        change(item, use);
    }
}

void AddItems(Edit& edit)
{
    const QSignalBlocker blocker(View(edit.element));
    for (int use = 0; use < edit.UseCount(); ++use) {
        const QString name = edit.Text(0, use);
        const QString parent = edit.Text(1, use);
        QTreeWidgetItem* under = View(edit.element)->Find(parent);
        if (View(edit.element)->Find(name))
            edit.error = QStringLiteral("There is an item called %1 already.").arg(name);
        else if (!under && !parent.isEmpty())
            edit.error = QStringLiteral("Item not found: %1").arg(parent);
        else
            View(edit.element)->Add(name, under);
        if (!edit.error.isEmpty())
            return;
    }
}

void RemoveItems(Edit& edit)
{
    ForItems(edit, [&](QTreeWidgetItem* item, int) { View(edit.element)->Remove(item); });
}

void SetLabels(Edit& edit)
{
    ForItems(edit, [&](QTreeWidgetItem* item, int use) {
        item->setText(0, edit.Text(1, use));
        edit.element.values.insert(QStringLiteral("label ") + edit.Text(0, use), edit.Text(1, use));
    });
}

void SetImages(Edit& edit)
{
    ForItems(edit, [&](QTreeWidgetItem* item, int use) {
        const int column = edit.Int(1, use);
        if (column < 1 || column >= View(edit.element)->columnCount())
            edit.error = QStringLiteral("The tree has no button %1.").arg(column);
        else
            item->setIcon(column, FindIcon(edit.Text(2, use)));
    });
}

void SetPressCommands(Edit& edit)
{
    for (int use = 0; use < edit.UseCount(); ++use)
        edit.element.SetCallback(ITEM_PRESSED + QString::number(edit.Int(0, use)),
            edit.call.GetScript(edit.flag, 1, use));
}

void SelectItems(Edit& edit)
{
    ForItems(edit, [&](QTreeWidgetItem* item, int use) {
        item->setSelected(edit.call.Bool(edit.flag, 1, use));
    });
}

void ExpandItems(Edit& edit)
{
    ForItems(edit, [&](QTreeWidgetItem* item, int use) {
        item->setExpanded(edit.call.Bool(edit.flag, 1, use));
    });
}

/// 0 plain, 1 bold, 2 oblique, 3 both.
void SetFaces(Edit& edit)
{
    ForItems(edit, [&](QTreeWidgetItem* item, int use) {
        QFont font = item->font(0);
        font.setBold(edit.Int(1, use) & 1);
        font.setItalic(edit.Int(1, use) & 2);
        item->setFont(0, font);
    });
}

void SetColors(Edit& edit)
{
    const bool isText = qstrcmp(edit.flag, "textColor") == 0;
    ForItems(edit, [&](QTreeWidgetItem* item, int use) {
        const QColor color = QColor::fromRgbF(qBound(0.0, edit.Float(1, use), 1.0),
            qBound(0.0, edit.Float(2, use), 1.0), qBound(0.0, edit.Float(3, use), 1.0));
        item->setData(0, isText ? Qt::ForegroundRole : Qt::BackgroundRole, color);
    });
}

void SetNotes(Edit& edit)
{
    ForItems(edit, [&](QTreeWidgetItem* item, int use) { item->setToolTip(0, edit.Text(1, use)); });
}

void SetLabelsEnabled(Edit& edit)
{
    ForItems(edit, [&](QTreeWidgetItem* item, int use) {
        item->setDisabled(!edit.call.Bool(edit.flag, 1, use));
    });
}

void ShowItem(Edit& edit)
{
    ForItems(edit, [&](QTreeWidgetItem* item, int) { View(edit.element)->scrollToItem(item); });
}

Value SelectedNames(Element& element)
{
    StringList names;
    for (const QTreeWidgetItem* item : View(element)->Below(nullptr)) {
        if (item->isSelected())
            names += Tree::NameOf(item);
    }
    return names;
}

// Questions about one item

using Answer = Value (*)(const Tree&, QTreeWidgetItem*);

struct Question
{
    const char* flag;
    Answer answer;
};

StringList NamesBelow(const Tree& tree, QTreeWidgetItem* item)
{
    StringList names;
    for (const QTreeWidgetItem* child : tree.Below(item))
        names += Tree::NameOf(child);
    return names;
}

// clang-format off
const Question QUESTIONS[] = {
    {"children",       [](const Tree& tree, QTreeWidgetItem* item) -> Value { return NamesBelow(tree, item); }},
    {"displayLabel",   [](const Tree&, QTreeWidgetItem* item) -> Value { return item->text(0); }},
    {"isItemExpanded", [](const Tree&, QTreeWidgetItem* item) -> Value { return item->isExpanded(); }},
    {"isLeaf",         [](const Tree&, QTreeWidgetItem* item) -> Value { return item->childCount() == 0; }},
    {"itemAnnotation", [](const Tree&, QTreeWidgetItem* item) -> Value { return item->toolTip(0); }},
    {"itemIndex",      [](const Tree& tree, QTreeWidgetItem* item) -> Value { return item->parent() ? item->parent()->indexOfChild(item) : tree.indexOfTopLevelItem(item); }},
    {"itemParent",     [](const Tree&, QTreeWidgetItem* item) -> Value { return Tree::NameOf(item->parent()); }},
    {"itemSelected",   [](const Tree&, QTreeWidgetItem* item) -> Value { return item->isSelected(); }},
    {"itemVisible",    [](const Tree& tree, QTreeWidgetItem* item) -> Value { return !tree.visualItemRect(item).isEmpty(); }},
};
// clang-format on

/// The flags that ask about an item take its name also when they are queried.
std::optional<Outcome> AnswerQuestion(Element& element, const Call& call)
{
    const Tree& tree = *View(element);
    const QString flag = call.GivenFlags().value(0);
    const QByteArray name = flag.toLatin1();
    if (flag == QLatin1String("itemExists"))
        return Outcome(tree.Find(call.Text(name)) != nullptr);
    for (const Question& question : QUESTIONS) {
        if (flag != QLatin1String(question.flag))
            continue;
        const QString wanted = call.Text(name);
        QTreeWidgetItem* item = tree.Find(wanted);
        const bool all = wanted.isEmpty() && flag == QLatin1String("children");
        if (!item && !all)
            return Outcome(Error{QStringLiteral("Item not found: %1").arg(wanted)});
        return Outcome(question.answer(tree, item));
    }
    return std::nullopt;
}

// clang-format off
const Property TREE[] = {
    {"allowMultiSelection", [](Edit& e) { View(e.element)->setSelectionMode(e.Bool() ? QTreeWidget::ExtendedSelection : QTreeWidget::SingleSelection); },
                            [](Element& e) -> Value { return View(e)->selectionMode() == QTreeWidget::ExtendedSelection; }},
    {"numberOfButtons",     [](Edit& e) { View(e.element)->SetButtonCount(qBound(0, e.Int(), MOST_BUTTONS)); },
                            [](Element& e) -> Value { return View(e)->columnCount() - 1; }},
    {"removeAll",           [](Edit& e) { const QSignalBlocker blocker(View(e.element)); View(e.element)->RemoveAll(); }, nullptr},
    {"removeItem",          RemoveItems, nullptr},
    {"addItem",             AddItems, nullptr},
    {"displayLabel",        SetLabels, nullptr},
    {"image",               SetImages, nullptr},
    {"itemAnnotation",      SetNotes, nullptr},
    {"fontFace",            SetFaces, nullptr},
    {"textColor",           SetColors, nullptr},
    {"labelBackgroundColor", SetColors, nullptr},
    {"enableLabel",         SetLabelsEnabled, nullptr},
    {"expandItem",          ExpandItems, nullptr},
    {"clearSelection",      [](Edit& e) { const QSignalBlocker blocker(View(e.element)); View(e.element)->clearSelection(); }, nullptr},
    {"selectItem",          SelectItems, SelectedNames},
    {"showItem",            ShowItem, nullptr},
    {"pressCommand",        SetPressCommands, nullptr},
};

const ControlRow ROWS[] = {
    {"treeView", ControlKind, MakeTree, TREE,
        "addItem/add str str cem; allowDragAndDrop/adr B cqe; allowMultiSelection/ams B cqe; allowReparenting/arp B cqe; attachButtonRight/abr int cqe;"
        "buttonStyle/bs str int str cem; contextMenuCommand/cmc script ce; dragAndDropCommand/dad script ce; enableKeys/ek B cqe; hideButtons/hb B cqe;"
        "reverseTreeOrder/rto B cqe; selectionColor/slc str float float float cem;"
        " children/ch str qv; clearSelection/cs - ce; displayLabel/dl str str cqemvo;"
        "editLabelCommand/elc script ce; enableLabel/enl str B cem; expandCollapseCommand/ecc script ce; expandItem/ei str B cem;"
        "fontFace/ff str int cem; image/i str int str cem; isItemExpanded/iie str qv; isLeaf/il str qv; itemAnnotation/ian str str cqemvo;"
        "itemDblClickCommand/idc script ce; itemExists/iex str qv; itemIndex/idx str qv; itemParent/ip str qv; itemSelected/is str qv;"
        "itemVisible/iv str qv; labelBackgroundColor/lbc str float float float cem; numberOfButtons/nb int cqe; pressCommand/pc int script cem;"
        "removeAll/ra - ce; removeItem/ri str cem; selectCommand/sc script ce; selectItem/si str B cqem; selectionChangedCommand/scc script ce;"
        "showItem/shi str e; textColor/tc str float float float cem;",
        nullptr, nullptr, CommonFlags::Control, nullptr, AnswerQuestion},
};
// clang-format on

} // namespace

void RegisterTreeView(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
}

} // namespace host::ui
