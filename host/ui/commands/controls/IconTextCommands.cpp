#include "ui/commands/Tables.h"
#include "ui/commands/controls/Collections.h"
#include "ui/commands/layouts/ShelfButton.h"

#include <QFileInfo>
#include <QLabel>

namespace host::ui {

namespace {

constexpr int ICON_SIZE = 20;
const QString COMMAND = QStringLiteral("command");

ShelfButton* Button(const Element& element)
{
    return As<ShelfButton>(element);
}

struct StyleRow
{
    const char* word;
    Qt::ToolButtonStyle style;
};

const StyleRow STYLES[] = {
    {"iconOnly", Qt::ToolButtonIconOnly},
    {"textOnly", Qt::ToolButtonTextOnly},
    {"iconAndTextHorizontal", Qt::ToolButtonTextBesideIcon},
    {"iconAndTextVertical", Qt::ToolButtonTextUnderIcon},
    {"iconAndTextCentered", Qt::ToolButtonTextBesideIcon},
};

// Faces

/// Pictures of files are shown as large as they are, those of the host like its other ones.
QSize IconSize(const QIcon& icon, const QString& name)
{
    const QList<QSize> sizes = icon.availableSizes();
    if (QFileInfo(name).isAbsolute() && !sizes.isEmpty())
        return sizes.last();
    return {Scaled(ICON_SIZE), Scaled(ICON_SIZE)};
}

QString ImageFor(const Element& element)
{
    const bool on = Button(element)->isChecked();
    QString image = Stored(element, "image", QString()).ToText();
    for (const char* flag : {"image1", "image2", "image3"}) {
        if (image.isEmpty())
            image = Stored(element, flag, QString()).ToText();
    }
    for (const char* flag : {"selectionImage", "onImage"}) {
        const QString other = Stored(element, flag, QString()).ToText();
        if (on && !other.isEmpty())
            image = other;
    }
    const QString off = Stored(element, "offImage", QString()).ToText();
    return !on && !off.isEmpty() ? off : image;
}

/// A button whose picture is missing shows its label instead of nothing.
void ShowFace(Element& element)
{
    ShelfButton* button = Button(element);
    const QString image = ImageFor(element);
    const QIcon icon = FindIcon(image);
    const QString label = Stored(element, "label", QString()).ToText();
    const QString word = Stored(element, "style", QString()).ToText();
    Qt::ToolButtonStyle style = Qt::ToolButtonIconOnly;
    for (const StyleRow& row : STYLES) {
        if (word == QLatin1String(row.word))
            style = row.style;
    }
    button->setIcon(icon);
    button->setIconSize(IconSize(icon, image));
    button->setText(label.isEmpty() && icon.isNull() ? element.GetName() : label);
    button->setToolButtonStyle(icon.isNull() ? Qt::ToolButtonTextOnly : style);
    button->setAccessibleName(label);
}

void SetFace(Edit& edit)
{
    edit.element.values.insert(QString::fromLatin1(edit.flag), edit.call.Argument(edit.flag));
    ShowFace(edit.element);
}

void SetFaceFont(Edit& edit)
{
    edit.element.values.insert(QStringLiteral("font"), edit.Text());
    Button(edit.element)->setFont(FontFromWord(edit.Text(), Button(edit.element)->font()));
}

void SetOverlayColor(Edit& edit)
{
    Button(edit.element)
        ->SetOverlayColor(QColor::fromRgbF(qBound(0.0, edit.Float(0), 1.0),
            qBound(0.0, edit.Float(1), 1.0), qBound(0.0, edit.Float(2), 1.0)));
}

// Making

ShelfButton* NewButton(Element& element, bool checkable)
{
    auto* button = new ShelfButton;
    button->setFocusPolicy(Qt::TabFocus);
    button->setCheckable(checkable);
    element.SetWidget(button);
    ShowFace(element);
    if (checkable) {
        ConnectSwitch(element, button);
        QObject::connect(
            button, &QToolButton::toggled, &element, [&element] { ShowFace(element); });
        button->switched = [alive = QPointer<Element>(&element)] {
            if (alive && alive->GetWidget())
                ShowFace(*alive);
        };
    }
    return button;
}

void MakeButton(Element& element, const Call&)
{
    ShelfButton* button = NewButton(element, false);
    QObject::connect(
        button, &QToolButton::clicked, &element, [&element] { element.RunCallback(COMMAND); });
    QObject::connect(button, &ShelfButton::DoubleClicked, &element,
        [&element] { element.RunCallback(QStringLiteral("doubleClickCommand")); });
}

void MakeCheck(Element& element, const Call&)
{
    NewButton(element, true);
}

/// Tool buttons are buttons of a tool collection.
void MakeRadio(Element& element, const Call& call)
{
    const bool isTool = element.GetType() == QLatin1String("toolButton");
    JoinCollection(element, NewButton(element, true), call,
        isTool ? "toolCollection" : "iconTextRadioCollection");
}

void MakeLabel(Element& element, const Call&)
{
    ShelfButton* button = NewButton(element, false);
    button->setFocusPolicy(Qt::NoFocus);
    button->setAttribute(Qt::WA_TransparentForMouseEvents);
}

void SetSwitched(Edit& edit)
{
    SwitchSilently(Button(edit.element), edit.Bool());
}

Value IsSwitched(Element& element)
{
    return Button(element)->isChecked();
}

// Pictures

QLabel* Picture(const Element& element)
{
    return As<QLabel>(element);
}

void MakePicture(Element& element, const Call&)
{
    element.SetWidget(new QLabel);
}

void SetPicture(Edit& edit)
{
    edit.element.values.insert(QStringLiteral("image"), edit.Text());
    const QIcon icon = FindIcon(edit.Text());
    Picture(edit.element)->setPixmap(icon.pixmap(IconSize(icon, edit.Text())));
    // Left out, the picture says nothing to who cannot see it.
    Picture(edit.element)->setAccessibleName(QFileInfo(edit.Text()).completeBaseName());
}

// clang-format off
const Property FACE[] = {
    {"image",          SetFace, nullptr},
    {"image1",         SetFace, nullptr},
    {"image2",         SetFace, nullptr},
    {"image3",         SetFace, nullptr},
    {"selectionImage", SetFace, nullptr},
    {"label",          SetFace, nullptr},
    {"style",          SetFace, nullptr},
    {"font",           SetFaceFont, nullptr},
    {"flat",           [](Edit& e) { Button(e.element)->setAutoRaise(e.Bool()); }, [](Element& e) -> Value { return Button(e)->autoRaise(); }},
    {"imageOverlayLabel", [](Edit& e) { Button(e.element)->SetOverlay(e.Text()); }, [](Element& e) -> Value { return Button(e)->GetOverlay(); }},
    {"overlayLabelColor", SetOverlayColor, nullptr},
};

const Family FACE_FAMILY{
    "align/al str cqe; disabledImage/di str cqe; flat/fla B cqe; font/fn str cqe; highlightImage/hi str cqe; image/i str cqe;"
    "image1/i1 str cqe; image2/i2 str cqe; image3/i3 str cqe; imageOverlayLabel/iol str cqe; label/l str cqe; labelOffset/lo int cqe;"
    "marginHeight/mh int cqe; marginWidth/mw int cqe; overlayLabelColor/olc float float float cqe; selectionHighlightImage/shi str cqe;"
    "selectionImage/si str cqe; style/st str cqe; version/ver str cqe;",
    FACE};

const Property BUTTON[] = {
    {"sourceType",         SetSourceType, GetSourceType},
    {"command",            SetCommand, nullptr},
    {"doubleClickCommand", SetCommand, nullptr},
};

const Property CHECK[] = {
    {"value", SetSwitched, IsSwitched},
};

const Property RADIO[] = {
    {"select", [](Edit& e) { SwitchSilently(Button(e.element), true); }, IsSwitched},
};

const Property SYMBOL_CHECK[] = {
    {"image",    SetFace, nullptr},
    {"onImage",  SetFace, nullptr},
    {"offImage", SetFace, nullptr},
    {"value",    SetSwitched, IsSwitched},
};

const Property PICTURE[] = {
    {"image", SetPicture, nullptr},
};

const char SWITCH_FLAGS[] = "changeCommand/cc script cqe; offCommand/ofc script cqe; onCommand/onc script cqe; value/v B cqe;";
const char RADIO_FLAGS[] = "changeCommand/cc script cqe; collection/cl str cq; offCommand/ofc script cqe; onCommand/onc script cqe; select/sl - cqe;";

const ControlRow ROWS[] = {
    {"iconTextButton", ControlKind, MakeButton, BUTTON,
        "command/c script cqe; commandRepeatable/rpt B cqe; doubleClickCommand/dcc script cqe; sourceType/stp str cqe;",
        nullptr, nullptr, CommonFlags::Control, &FACE_FAMILY},
    {"iconTextStaticLabel", ControlKind, MakeLabel, {}, "", nullptr, nullptr, CommonFlags::Control, &FACE_FAMILY},
    {"iconTextCheckBox", ControlKind, MakeCheck, CHECK, SWITCH_FLAGS, nullptr, nullptr, CommonFlags::Control, &FACE_FAMILY},
    {"iconTextRadioButton", ControlKind, MakeRadio, RADIO, RADIO_FLAGS, nullptr, nullptr, CommonFlags::Control, &FACE_FAMILY},
    {"iconTextRadioCollection", CollectionKind, MakeCollection, {}, "", nullptr, nullptr, CommonFlags::None, &COLLECTION_FAMILY},
    {"toolButton", ControlKind, MakeRadio, RADIO,
        "changeCommand/cc script cqe; collection/cl str cq; doubleClickCommand/dcc script cqe; offCommand/ofc script cqe; onCommand/onc script cqe;"
        "popupIndicatorVisible/piv B cqe; select/sl - cqe; tool/t str cqe; toolArray/ta - q; toolCount/tc - q;",
        nullptr, nullptr, CommonFlags::Control, &FACE_FAMILY},
    {"toolCollection", CollectionKind, MakeCollection, {}, "", nullptr, nullptr, CommonFlags::None, &COLLECTION_FAMILY},
    {"symbolCheckBox", ControlKind, MakeCheck, SYMBOL_CHECK,
        "changeCommand/cc script cqe; disableOffImage/dfi str cqe; disableOnImage/dni str cqe; image/i str cqe; offCommand/ofc script cqe;"
        "offImage/ofi str cqe; onCommand/onc script cqe; onImage/oni str cqe; value/v B cqe;"},
    {"picture", ControlKind, MakePicture, PICTURE, "image/i str cqe; tile/tl B cqe;"},
    {"image", ControlKind, MakePicture, PICTURE, "image/i str cqe;"},
};
// clang-format on

} // namespace

void RegisterIconTextCommands(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
}

} // namespace host::ui
