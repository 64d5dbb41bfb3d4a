#include "ui/commands/Tables.h"

#include <QKeyEvent>
#include <QListWidget>

#include <algorithm>

namespace host::ui {

namespace {

// Lists of texts

constexpr int TAG_ROLE = Qt::UserRole;

/// Tells the element about the Delete key.
class ScrollList : public QListWidget
{
public:
    explicit ScrollList(Element& element)
        : m_element(&element)
    { }

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        const bool isDelete = event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace;
        if (isDelete && m_element)
            m_element->RunCallback(QStringLiteral("deleteKeyCommand"));
        else
            QListWidget::keyPressEvent(event);
    }

private:
    QPointer<Element> m_element;
};

QListWidget* List(const Element& element)
{
    return As<QListWidget>(element);
}

void MakeList(Element& element, const Call&)
{
    auto* list = new ScrollList(element);
    QObject::connect(list, &QListWidget::itemSelectionChanged, &element,
        [&element] { element.RunCallback(QStringLiteral("selectCommand")); });
    QObject::connect(list, &QListWidget::itemDoubleClicked, &element,
        [&element] { element.RunCallback(QStringLiteral("doubleClickCommand")); });
    element.SetWidget(list);
}

/// Row of the item from 0, or -1.
int RowOf(const QListWidget* list, const QString& text, int role = Qt::DisplayRole)
{
    for (int row = 0; row < list->count(); ++row) {
        if (list->item(row)->data(role).toString() == text)
            return row;
    }
    return -1;
}

/// Row from 0 for an index from 1; -1 and an error when there is none.
int CheckedRow(Edit& edit, int index)
{
    const int count = List(edit.element)->count();
    if (index >= 1 && index <= count)
        return index - 1;
    edit.error = QStringLiteral("Item index %1 is not between 1 and %2.").arg(index).arg(count);
    return -1;
}

void Append(Edit& edit)
{
    List(edit.element)->addItems(edit.call.Texts(edit.flag));
}

void InsertAt(Edit& edit)
{
    QListWidget* list = List(edit.element);
    for (int use = 0; use < edit.UseCount(); ++use) {
        const int position = edit.Int(0, use);
        list->insertItem(position < 1 ? list->count() : position - 1, edit.Text(1, use));
    }
}

void RemoveRows(QListWidget* list, QVector<int> rows)
{
    std::sort(rows.begin(), rows.end(), std::greater<>());
    for (const int row : qAsConst(rows))
        delete list->takeItem(row);
}

/// Script changes of the selection do not call back.
void ApplyToItems(Edit& edit, int role, void (*change)(QListWidget*, QVector<int>))
{
    const QSignalBlocker blocker(List(edit.element));
    QVector<int> rows;
    for (const QString& text : edit.call.Texts(edit.flag)) {
        const int row = RowOf(List(edit.element), text, role);
        if (row >= 0 && !rows.contains(row))
            rows += row;
    }
    change(List(edit.element), rows);
}

void ApplyToIndexes(Edit& edit, void (*change)(QListWidget*, QVector<int>))
{
    const QSignalBlocker blocker(List(edit.element));
    QVector<int> rows;
    for (int use = 0; use < edit.UseCount(); ++use) {
        const int row = CheckedRow(edit, edit.Int(0, use));
        if (row < 0)
            return;
        if (!rows.contains(row))
            rows += row;
    }
    change(List(edit.element), rows);
}

void Select(QListWidget* list, QVector<int> rows)
{
    for (const int row : rows) {
        list->item(row)->setSelected(true);
        list->setCurrentRow(row, QItemSelectionModel::NoUpdate);
        list->scrollToItem(list->item(row));
    }
}

void Deselect(QListWidget* list, QVector<int> rows)
{
    for (const int row : rows)
        list->item(row)->setSelected(false);
}

void SetTags(Edit& edit)
{
    const StringList tags = edit.call.Texts(edit.flag);
    const int first = qMax(0, List(edit.element)->count() - tags.size());
    for (int i = 0; i < tags.size() && first + i < List(edit.element)->count(); ++i)
        List(edit.element)->item(first + i)->setData(TAG_ROLE, tags[i]);
}

void SetLineFont(Edit& edit)
{
    for (int use = 0; use < edit.UseCount(); ++use) {
        const int row = CheckedRow(edit, edit.Int(0, use));
        if (row < 0)
            return;
        QListWidgetItem* item = List(edit.element)->item(row);
        item->setFont(FontFromWord(edit.Text(1, use), item->font()));
    }
}

void SetVisibleRows(Edit& edit)
{
    QListWidget* list = List(edit.element);
    edit.element.values.insert(QStringLiteral("numberOfRows"), edit.Int());
    const int row = QFontMetrics(list->font()).height() + 2;
    list->setMinimumHeight(qBound(1, edit.Int(), 200) * row + 2 * list->frameWidth());
}

Value AllItems(Element& element)
{
    StringList texts;
    for (int row = 0; row < List(element)->count(); ++row)
        texts += List(element)->item(row)->text();
    return texts;
}

template <typename Result, typename Read>
Value Selected(Element& element, Read read)
{
    Result found;
    for (int row = 0; row < List(element)->count(); ++row) {
        if (List(element)->item(row)->isSelected())
            found += read(row);
    }
    return found;
}

Value SelectedTexts(Element& element)
{
    return Selected<StringList>(element, [&](int row) { return List(element)->item(row)->text(); });
}

Value SelectedTags(Element& element)
{
    return Selected<StringList>(
        element, [&](int row) { return List(element)->item(row)->data(TAG_ROLE).toString(); });
}

Value SelectedIndexes(Element& element)
{
    return Selected<IntList>(element, [](int row) { return row + 1; });
}

// Lists of pictures with a label below each

void MakeIcons(Element& element, const Call& call)
{
    MakeList(element, call);
    List(element)->setViewMode(QListView::IconMode);
    List(element)->setResizeMode(QListView::Adjust);
    List(element)->setMovement(QListView::Static);
    QObject::connect(List(element), &QListWidget::itemSelectionChanged, &element,
        [&element] { element.RunCallback(QStringLiteral("changeCommand")); });
}

void AppendIcons(Edit& edit)
{
    for (int use = 0; use < edit.UseCount(); ++use)
        List(edit.element)
            ->addItem(new QListWidgetItem(FindIcon(edit.Text(0, use)), edit.Text(1, use)));
}

void SetIconSize(Edit& edit)
{
    List(edit.element)
        ->setIconSize({Scaled(qBound(1, edit.Int(0), 1024)), Scaled(qBound(1, edit.Int(1), 1024))});
}

Value IconSize(Element& element)
{
    const QSize size = List(element)->iconSize();
    return IntList{Unscaled(size.width()), Unscaled(size.height())};
}

// clang-format off
const Property LIST[] = {
    {"allItems",             nullptr, AllItems},
    {"numberOfItems",        nullptr, [](Element& e) -> Value { return List(e)->count(); }},
    {"numberOfSelectedItems", nullptr, [](Element& e) -> Value { return List(e)->selectedItems().size(); }},
    {"allowMultiSelection",  [](Edit& e) { List(e.element)->setSelectionMode(e.Bool() ? QListWidget::ExtendedSelection : QListWidget::SingleSelection); },
                             [](Element& e) -> Value { return List(e)->selectionMode() == QListWidget::ExtendedSelection; }},
    {"numberOfRows",         SetVisibleRows, nullptr},
    {"removeAll",            [](Edit& e) { List(e.element)->clear(); }, nullptr},
    {"removeItem",           [](Edit& e) { ApplyToItems(e, Qt::DisplayRole, RemoveRows); }, nullptr},
    {"removeIndexedItem",    [](Edit& e) { ApplyToIndexes(e, RemoveRows); }, nullptr},
    {"append",               Append, nullptr},
    {"appendPosition",       InsertAt, nullptr},
    {"uniqueTag",            SetTags, nullptr},
    {"lineFont",             SetLineFont, nullptr},
    {"deselectAll",          [](Edit& e) { const QSignalBlocker blocker(List(e.element)); List(e.element)->clearSelection(); }, nullptr},
    {"deselectItem",         [](Edit& e) { ApplyToItems(e, Qt::DisplayRole, Deselect); }, nullptr},
    {"deselectIndexedItem",  [](Edit& e) { ApplyToIndexes(e, Deselect); }, nullptr},
    {"selectItem",           [](Edit& e) { ApplyToItems(e, Qt::DisplayRole, Select); }, SelectedTexts},
    {"selectIndexedItem",    [](Edit& e) { ApplyToIndexes(e, Select); }, SelectedIndexes},
    {"selectUniqueTagItem",  [](Edit& e) { ApplyToItems(e, TAG_ROLE, Select); }, SelectedTags},
    {"showIndexedItem",      [](Edit& e) { const int row = CheckedRow(e, e.Int()); if (row >= 0) List(e.element)->scrollToItem(List(e.element)->item(row)); }, nullptr},
};

const Property ICONS[] = {
    {"allowMultiSelection", [](Edit& e) { List(e.element)->setSelectionMode(e.Bool() ? QListWidget::ExtendedSelection : QListWidget::SingleSelection); },
                            [](Element& e) -> Value { return List(e)->selectionMode() == QListWidget::ExtendedSelection; }},
    {"iconWidthHeight",     SetIconSize, IconSize},
    {"numberOfIcons",       nullptr, [](Element& e) -> Value { return List(e)->count(); }},
    {"removeAll",           [](Edit& e) { List(e.element)->clear(); }, nullptr},
    {"append",              AppendIcons, nullptr},
    {"deselectAll",         [](Edit& e) { const QSignalBlocker blocker(List(e.element)); List(e.element)->clearSelection(); }, nullptr},
    {"selectItem",          [](Edit& e) { ApplyToItems(e, Qt::DisplayRole, Select); }, SelectedTexts},
    {"selectIndexedItem",   [](Edit& e) { ApplyToIndexes(e, Select); }, SelectedIndexes},
};

const ControlRow ROWS[] = {
    {"iconTextScrollList", ControlKind, MakeIcons, ICONS,
        "allowMultiSelection/ams B cqe; append/a str str cem; changeCommand/cc script ce; deselectAll/da - ce; doubleClickCommand/dcc script ce;"
        "iconWidthHeight/iwh int int cqe; numberOfIcons/nic - q; removeAll/ra - ce; selectCommand/sc script ce; selectIndexedItem/sii int cqem;"
        "selectItem/si str cqem;"},
    {"textScrollList", ControlKind, MakeList, LIST,
        "allItems/ai - q; allowAutomaticSelection/aas B cqe; allowMultiSelection/ams B cqe; append/a str cem;"
        "appendPosition/ap int str cem; deleteKeyCommand/dkc script ce; deselectAll/da - ce; deselectIndexedItem/dii int cem;"
        "deselectItem/di str cem; doubleClickCommand/dcc script ce; font/fn str cqe; lineFont/lf int str cem; numberOfItems/ni - q;"
        "numberOfRows/nr int cqe; numberOfSelectedItems/nsi - q; removeAll/ra - ce; removeIndexedItem/rii int cem; removeItem/ri str cem;"
        "selectCommand/sc script ce; selectIndexedItem/sii int cqem; selectItem/si str cqem; selectUniqueTagItem/sut str cqem;"
        "showIndexedItem/shi int ce; uniqueTag/utg str cem;"},
};
// clang-format on

} // namespace

void RegisterListCommands(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
}

} // namespace host::ui
