#include "engine/Engine.h"
#include "ui/commands/Tables.h"
#include "ui/commands/layouts/ShelfButton.h"

#include <QHBoxLayout>
#include <QMenu>

namespace host::ui {

namespace {

constexpr int ICON_PIXELS = 20;
constexpr int BUTTON_PIXELS = 32;

// Shelves

void MakeShelf(Element& element, const Call&)
{
    auto* widget = new QWidget;
    auto* row = new QHBoxLayout(widget);
    row->setContentsMargins(8, 2, 8, 2);
    row->setSpacing(4);
    row->addStretch(1);
    element.placeChild = [row](Element& child) {
        row->insertWidget(row->count() - 1, child.GetWidget(), 0, Qt::AlignVCenter);
    };
    element.SetWidget(widget, widget);
    InterfaceModel::Current().SetCurrentParent(&element);
}

void MoveButton(Edit& edit)
{
    for (int use = 0; use < edit.UseCount(); ++use) {
        Element* child = nullptr;
        const Outcome found = FindElement(edit.Text(0, use), ControlKind, child);
        if (!found.Ok() || child->GetParent() != &edit.element) {
            edit.error = InterfaceModel::NotFound(edit.Text(0, use));
            return;
        }
        auto* row = static_cast<QHBoxLayout*>(edit.element.GetContent()->layout());
        const int index = qBound(0, edit.Int(1, use) - 1, row->count() - 2);
        row->removeWidget(child->GetWidget());
        row->insertWidget(index, child->GetWidget(), 0, Qt::AlignVCenter);
        InterfaceModel::Current().MoveChild(child, index);
    }
}

// Buttons

ShelfButton* Button(const Element& element)
{
    return As<ShelfButton>(element);
}

void ConnectClicks(Element& element, ShelfButton* button)
{
    QObject::connect(button, &QToolButton::clicked, &element,
        [&element] { element.RunCallback(QStringLiteral("command"), {Value(0)}); });
    QObject::connect(button, &ShelfButton::DoubleClicked, &element,
        [&element] { element.RunCallback(QStringLiteral("doubleClickCommand")); });
}

void MakeSymbolButton(Element& element, const Call&)
{
    auto* button = new ShelfButton;
    button->setIconSize({ICON_PIXELS, ICON_PIXELS});
    ConnectClicks(element, button);
    element.SetWidget(button);
}

/// Removing a button is for good, also after the next start.
void RemoveFromShelf(const QPointer<Element>& element)
{
    if (!element)
        return;
    InterfaceModel::Current().Delete(element);
    const Script save{Language::Mel,
        QStringLiteral("global string $gShelfTopLevel; saveAllShelves $gShelfTopLevel;"), nullptr};
    save.Run();
}

/// Entries that the script gave the button, as pairs of label and command.
void AddOwnEntries(const Element& element, QMenu* menu)
{
    const QStringList entries = Stored(element, "menuItem", StringList()).ToTextList();
    const QStringList python = Stored(element, "menuItemPython", StringList()).ToTextList();
    for (int i = 0; i + 1 < entries.size(); i += 2) {
        const bool isPython = python.contains(QString::number(i / 2));
        const Script script{
            isPython ? Language::Python : Language::Mel, entries.at(i + 1), nullptr};
        QObject::connect(menu->addAction(entries.at(i)), &QAction::triggered, &element,
            [script] { script.Run(); });
    }
    if (!entries.isEmpty())
        menu->addSeparator();
}

void ShowShelfMenu(Element& element)
{
    const QPointer<Element> alive(&element);
    auto* menu = new QMenu(element.GetWidget());
    menu->setAttribute(Qt::WA_DeleteOnClose);
    AddOwnEntries(element, menu);
    QObject::connect(menu->addAction(QStringLiteral("Run")), &QAction::triggered, &element,
        [&element] { element.RunCallback(QStringLiteral("command"), {Value(0)}); });
    QObject::connect(menu->addAction(QStringLiteral("Delete")), &QAction::triggered, &element,
        [alive] { RemoveFromShelf(alive); });
    menu->popup(QCursor::pos());
}

void MakeShelfButton(Element& element, const Call& call)
{
    auto* button = new ShelfButton;
    button->setIconSize({ICON_PIXELS, ICON_PIXELS});
    button->setMinimumSize(BUTTON_PIXELS, BUTTON_PIXELS);
    ConnectClicks(element, button);
    if (!call.Has("noDefaultPopup")) {
        button->setContextMenuPolicy(Qt::CustomContextMenu);
        QObject::connect(button, &QWidget::customContextMenuRequested, &element,
            [&element] { ShowShelfMenu(element); });
    }
    element.SetWidget(button);
}

/// A button without a picture shows its label.
void ShowFace(Element& element)
{
    const QString image = Stored(element, "image", QString()).ToText();
    const QIcon icon = FindIcon(image);
    const QString label = Stored(element, "label", QString()).ToText();
    Button(element)->setIcon(icon);
    Button(element)->setText(label);
    const bool textOnly = icon.isNull() && !label.isEmpty();
    Button(element)->setToolButtonStyle(textOnly ? Qt::ToolButtonTextOnly : Qt::ToolButtonIconOnly);
    Button(element)->setAccessibleName(label.isEmpty() ? Button(element)->toolTip() : label);
}

void SetFace(Edit& edit)
{
    const bool isImage = qstrncmp(edit.flag, "image", 5) == 0;
    edit.element.values.insert(
        isImage ? QStringLiteral("image") : QStringLiteral("label"), edit.Text());
    ShowFace(edit.element);
}

void SetOverlayColor(Edit& edit)
{
    Button(edit.element)
        ->SetOverlayColor(QColor::fromRgbF(qBound(0.0, edit.Float(0), 1.0),
            qBound(0.0, edit.Float(1), 1.0), qBound(0.0, edit.Float(2), 1.0)));
}

// clang-format off
const Property SHELF[] = {
    {"childArray",       nullptr, [](Element& e) -> Value { return ChildNames(e, ANY_CONTROL); }},
    {"numberOfChildren", nullptr, [](Element& e) -> Value { return ChildNames(e, ANY_CONTROL).size(); }},
    {"spacing",          [](Edit& e) { e.element.GetContent()->layout()->setSpacing(qMax(0, e.Int())); },
                         [](Element& e) -> Value { return e.GetContent()->layout()->spacing(); }},
    {"position",         MoveButton, nullptr},
};

const Property SYMBOL_BUTTON[] = {
    {"image", SetFace, nullptr},
};

const Property SHELF_BUTTON[] = {
    {"image",             SetFace, nullptr},
    {"image1",            SetFace, [](Element& e) { return Stored(e, "image", QString()); }},
    {"label",             SetFace, nullptr},
    {"imageOverlayLabel", [](Edit& e) { Button(e.element)->SetOverlay(e.Text()); },
                          [](Element& e) -> Value { return Button(e)->GetOverlay(); }},
    {"overlayLabelColor", SetOverlayColor, nullptr},
    {"sourceType",        SetSourceType, GetSourceType},
    {"command",           SetCommand, nullptr},
    {"doubleClickCommand", SetCommand, nullptr},
};

const ControlRow ROWS[] = {
    {"shelfLayout", LayoutKind, MakeShelf, SHELF,
        "alignment/aln str cqe; cellHeight/ch int cqe; cellWidth/cw int cqe; cellWidthHeight/cwh int int cqe; childArray/ca - q;"
        "horizontal/hr B cqe; numberOfChildren/nch - q; position/pos str int cem; spacing/spa int cqe; style/st str cqe; version/ver str cqe;"},
    {"shelfButton", ControlKind, MakeShelfButton, SHELF_BUTTON,
        "command/c script cqe; commandRepeatable/rpt B cqe; doubleClickCommand/dcc script cqe; enableCommandRepeat/ecr B cqe;"
        "align/al str cqe; flat/fla B cqe; font/fn str cqe; image/i str cqe; image1/i1 str cqe; image2/i2 str cqe; image3/i3 str cqe;"
        "imageOverlayLabel/iol str cqe; label/l str cqe; labelOffset/lo int cqe; marginHeight/mh int cqe; marginWidth/mw int cqe;"
        "menuItem/mi str str cem; menuItemPython/mip int cem; noDefaultPopup/ndp - c; overlayLabelBackColor/olb float float float float cqe;"
        "overlayLabelColor/olc float float float cqe; sourceType/stp str cqe; style/st str cqe; version/ver str cqe;"},
    {"symbolButton", ControlKind, MakeSymbolButton, SYMBOL_BUTTON, "command/c script cqe; image/i str cqe;"},
};
// clang-format on

} // namespace

void RegisterShelfCommands(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
}

} // namespace host::ui
