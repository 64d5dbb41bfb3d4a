#include "window/ControlFaults.h"

#include "window/chrome/Theme.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QTextEdit>
#include <QToolButton>
#include <QtTest>

namespace {

constexpr int SMALLEST_HIT = 20; // design pixels
constexpr int MOST_STOPS = 400; ///< of the Tab key, more than any page has controls

/// Parts of the toolkit's own controls.
bool IsInternal(const QWidget& widget)
{
    if (widget.objectName().startsWith("qt_"))
        return true;
    const QWidget* const parent = widget.parentWidget();
    return qobject_cast<const QComboBox*>(parent) || qobject_cast<const QAbstractSpinBox*>(parent)
        || widget.inherits("QComboBoxPrivateContainer") || widget.inherits("QScrollBar")
        || widget.inherits("QHeaderView") || widget.inherits("QLineEditIconButton");
}

/// What a person works with. Plain areas that only scroll are none, nor is what lets every click
/// through.
bool IsControl(const QWidget& widget)
{
    if (IsInternal(widget) || !widget.isVisible())
        return false;
    if (widget.testAttribute(Qt::WA_TransparentForMouseEvents)
        && widget.focusPolicy() == Qt::NoFocus)
        return false;
    return qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QLineEdit*>(&widget)
        || qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QAbstractSpinBox*>(&widget)
        || qobject_cast<const QAbstractItemView*>(&widget)
        || qobject_cast<const QTextEdit*>(&widget) || qobject_cast<const QPlainTextEdit*>(&widget)
        || (widget.focusPolicy() & Qt::TabFocus && !qobject_cast<const QScrollArea*>(&widget));
}

/// Also those inside of what scrolls, wherever it is scrolled to.
QVector<QWidget*> Controls(const QWidget& root)
{
    QVector<QWidget*> controls;
    for (QWidget* widget : root.findChildren<QWidget*>()) {
        if (widget->window() == root.window() && IsControl(*widget))
            controls.append(widget);
    }
    return controls;
}

QString Named(const QWidget& widget)
{
    const QWidget* const parent = widget.parentWidget();
    return QString("%1 '%2' in %3 '%4'")
        .arg(widget.metaObject()->className(), widget.objectName(),
            parent ? parent->metaObject()->className() : "-",
            parent ? parent->objectName() : QString());
}

QString AccessibleName(QWidget& widget)
{
    const QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(&widget);
    return interface ? interface->text(QAccessible::Name) : widget.accessibleName();
}

bool IsInButtonBox(const QWidget& widget)
{
    return qobject_cast<const QDialogButtonBox*>(widget.parentWidget());
}

/// Keys reach the other ones by arrows.
bool IsOneOfAGroup(const QWidget& widget)
{
    const auto* const radio = qobject_cast<const QRadioButton*>(&widget);
    return radio && !radio->isChecked();
}

/// Of a line edit only what it is given; of anything that draws its own text, its own idea.
bool IsCut(const QWidget& widget, const QSize& wanted)
{
    return wanted.width() > widget.width() || wanted.height() > widget.height();
}

QString SizeFault(const QLabel& label)
{
    if (label.text().isEmpty() || label.minimumWidth() == 1)
        return {};
    const int width = label.wordWrap() ? label.width() : label.sizeHint().width();
    const int height
        = label.wordWrap() ? label.heightForWidth(label.width()) : label.sizeHint().height();
    return IsCut(label, {width, height}) ? label.text() : QString();
}

QString SizeFault(const QAbstractButton& button)
{
    return !button.text().isEmpty() && IsCut(button, button.sizeHint()) ? button.text() : QString();
}

QString SizeFault(const QComboBox& box)
{
    const int text = box.fontMetrics().horizontalAdvance(box.currentText());
    return text > box.width() - box.height() / 2 ? box.currentText() : QString();
}

/// Whether the widget sticks out of what holds it. What scrolls may hold more than it shows.
bool IsOutside(const QWidget& widget, const QWidget& root)
{
    for (const QWidget* parent = widget.parentWidget(); parent && parent != &root;
         parent = parent->parentWidget()) {
        if (parent->inherits("QAbstractScrollArea"))
            return false;
    }
    const QRect place(widget.mapTo(&root, QPoint()), widget.size());
    return &widget != &root && !root.rect().contains(place);
}

} // namespace

QStringList ControlFaults::OfNames(const QWidget& root)
{
    QStringList faults;
    for (QWidget* control : Controls(root)) {
        const QString name = AccessibleName(*control);
        if (name.trimmed().isEmpty() || name == control->metaObject()->className())
            faults.append("no accessible name: " + Named(*control));
        if (control->objectName().isEmpty() && !IsInButtonBox(*control))
            faults.append("no object name: " + Named(*control));
        const auto* const button = qobject_cast<const QAbstractButton*>(control);
        // A box beside its label is no icon.
        if (button && !qobject_cast<const QCheckBox*>(button) && button->text().isEmpty()
            && button->toolTip().isEmpty())
            faults.append("an icon without a tool tip: " + Named(*control));
        const int smallest = Theme::Dp(SMALLEST_HIT);
        if (control->width() < smallest || control->height() < smallest)
            faults.append(QString("too small to hit, %1 x %2: %3")
                              .arg(control->width())
                              .arg(control->height())
                              .arg(Named(*control)));
    }
    return faults;
}

QStringList ControlFaults::OfTabChain(QWidget& root)
{
    QSet<const QWidget*> missing;
    for (const QWidget* control : Controls(root)) {
        if (control->isEnabled() && control->focusPolicy() & Qt::TabFocus
            && !IsOneOfAGroup(*control))
            missing.insert(control);
    }
    if (missing.isEmpty())
        return {};
    QWidget* first = &root;
    while (!missing.contains(first))
        first = first->nextInFocusChain();
    first->setFocus(Qt::TabFocusReason);
    bool isOut = false;
    for (int i = 0; i < MOST_STOPS && !isOut; ++i) {
        QWidget* const focus = QApplication::focusWidget();
        if (!focus)
            return {"the focus is lost behind " + Named(*first)};
        missing.remove(focus);
        if (focus->focusProxy())
            missing.remove(focus->focusProxy());
        QTest::keyClick(focus, Qt::Key_Tab);
        const QWidget* const next = QApplication::focusWidget();
        // Round once, or on to what comes behind the page. Links are stops inside of a control.
        isOut = !next || (next == first && focus != first) || !root.isAncestorOf(next);
    }
    QStringList faults;
    if (!isOut)
        faults.append("Tab does not leave " + Named(*QApplication::focusWidget()));
    for (const QWidget* control : qAsConst(missing))
        faults.append("Tab does not reach " + Named(*control));
    return faults;
}

QStringList ControlFaults::OfSizes(const QWidget& root)
{
    QStringList faults;
    for (const QWidget* widget : root.findChildren<QWidget*>()) {
        if (widget->window() != root.window() || !widget->isVisible() || IsInternal(*widget))
            continue;
        QString cut;
        if (const auto* label = qobject_cast<const QLabel*>(widget))
            cut = SizeFault(*label);
        else if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
            cut = SizeFault(*button);
        else if (const auto* box = qobject_cast<const QComboBox*>(widget))
            cut = SizeFault(*box);
        if (!cut.isEmpty())
            faults.append(QString("cut: '%1' in %2 x %3 instead of %4 x %5, %6")
                              .arg(cut)
                              .arg(widget->width())
                              .arg(widget->height())
                              .arg(widget->sizeHint().width())
                              .arg(widget->sizeHint().height())
                              .arg(Named(*widget)));
        if (IsControl(*widget) && IsOutside(*widget, root))
            faults.append("outside: " + Named(*widget));
    }
    return faults;
}
