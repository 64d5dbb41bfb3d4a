#include "Sights.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QJsonArray>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QTextBlock>
#include <QWindow>

namespace {

/// What the widget's parents leave of it, on the screen.
QRect SeenPart(const QWidget* widget, const QRect& part)
{
    QRect seen(widget->mapToGlobal(part.topLeft()), part.size());
    for (const QWidget* outer = widget; outer; outer = outer->parentWidget()) {
        seen &= QRect(outer->mapToGlobal(QPoint()), outer->size());
        if (outer->isWindow())
            break;
    }
    return seen;
}

QJsonArray ToJson(const QRect& place)
{
    return {place.x(), place.y(), place.width(), place.height()};
}

QJsonArray Place(const QWidget* widget, const QRect& part)
{
    return ToJson(SeenPart(widget, part));
}

QJsonObject Describe(const QWidget* widget)
{
    return {{"class", QString::fromLatin1(widget->metaObject()->className())},
        {"name", widget->objectName()}, {"place", Place(widget, widget->rect())},
        {"window", QString::number(widget->window()->internalWinId())},
        {"focus", widget->hasFocus()}};
}

QJsonObject DescribeWindow(const QWidget* window)
{
    QJsonObject sight = Describe(window);
    sight["title"] = window->windowTitle();
    sight["modal"] = window->isModal();
    sight["active"] = window->isActiveWindow();
    sight["type"] = static_cast<int>(window->windowType());
    return sight;
}

QJsonObject DescribeMenu(QMenu* menu)
{
    QJsonObject sight = Describe(menu);
    QJsonArray entries;
    for (const QAction* action : menu->actions()) {
        if (action->isSeparator() || !action->isVisible())
            continue;
        entries.append(QJsonObject{{"text", action->text()}, {"enabled", action->isEnabled()},
            {"submenu", action->menu() != nullptr},
            {"place", Place(menu, menu->actionGeometry(const_cast<QAction*>(action)))}});
    }
    sight["entries"] = entries;
    return sight;
}

/// Also of bars that are no QTabBar: what they tell screen readers.
QJsonObject DescribeTabs(QWidget* bar)
{
    QJsonObject sight = Describe(bar);
    QJsonArray tabs;
    QAccessibleInterface* const interface = QAccessible::queryAccessibleInterface(bar);
    for (int i = 0; interface && i < interface->childCount(); ++i) {
        QAccessibleInterface* const tab = interface->child(i);
        if (!tab || tab->role() != QAccessible::PageTab)
            continue;
        const QRect inBar(bar->mapFromGlobal(tab->rect().topLeft()), tab->rect().size());
        tabs.append(QJsonObject{{"text", tab->text(QAccessible::Name)},
            {"place", Place(bar, inBar)}, {"current", bool(tab->state().selected)}});
    }
    sight["tabs"] = tabs;
    return sight;
}

/// The last lines, whichever came while somebody was waiting for one of them.
QString Recent(const QTextDocument& document)
{
    constexpr int LINES = 30;
    constexpr int LENGTH = 80;
    QString text;
    QTextBlock block = document.lastBlock();
    for (int i = 0; i < LINES && block.isValid(); ++i, block = block.previous())
        text += block.text().left(LENGTH) + '\n';
    return text;
}

QJsonObject DescribeText(const QPlainTextEdit* text)
{
    QJsonObject sight = Describe(text);
    sight["length"] = text->document()->characterCount() - 1;
    sight["modified"] = text->document()->isModified();
    sight["recent"] = Recent(*text->document());
    return sight;
}

QJsonObject DescribeButton(const QAbstractButton* button)
{
    QJsonObject sight = Describe(button);
    sight["text"] = button->text().isEmpty() ? button->accessibleName() : button->text();
    sight["enabled"] = button->isEnabled();
    return sight;
}

QJsonObject DescribeField(const QLineEdit* field)
{
    QJsonObject sight = Describe(field);
    sight["text"] = field->text().left(80);
    return sight;
}

QJsonObject DescribeView(const QAbstractItemView* view)
{
    QJsonObject sight = Describe(view);
    sight["rows"] = view->model() ? view->model()->rowCount() : 0;
    return sight;
}

/// Appends what `describe` tells to the list when the widget is one of its kind.
template <typename Kind, typename Describer>
bool Add(QJsonArray& list, QWidget* widget, Describer describe)
{
    auto* const wanted = qobject_cast<Kind*>(widget);
    if (wanted)
        list.append(describe(wanted));
    return wanted != nullptr;
}

bool IsSeen(const QWidget* widget)
{
    return widget->isVisible() && !widget->window()->isMinimized()
        && !SeenPart(widget, widget->rect()).isEmpty();
}

} // namespace

QJsonObject Sights::Look()
{
    QJsonArray windows, menus, bars, handles, texts, buttons, fields, views;
    for (QWidget* widget : QApplication::allWidgets()) {
        if (!IsSeen(widget))
            continue;
        if (Add<QMenu>(menus, widget, DescribeMenu))
            continue;
        if (widget->isWindow())
            windows.append(DescribeWindow(widget));
        if (QString::fromLatin1(widget->metaObject()->className()).endsWith("TabBar"))
            bars.append(DescribeTabs(widget));
        Add<QSplitterHandle>(handles, widget, Describe);
        Add<QPlainTextEdit>(texts, widget, DescribeText);
        Add<QAbstractButton>(buttons, widget, DescribeButton);
        Add<QLineEdit>(fields, widget, DescribeField);
        Add<QAbstractItemView>(views, widget, DescribeView);
    }
    QJsonObject sights{{"windows", windows}, {"menus", menus}, {"bars", bars}, {"handles", handles},
        {"texts", texts}, {"buttons", buttons}, {"fields", fields}, {"views", views}};
    if (const QWidget* focus = QApplication::focusWidget())
        sights["focus"] = Describe(focus);
    if (const QWidget* popup = QApplication::activePopupWidget())
        sights["popup"] = Describe(popup);
    if (const QWidget* modal = QApplication::activeModalWidget())
        sights["modal"] = DescribeWindow(modal);
    return sights;
}

QJsonObject Sights::Areas()
{
    QJsonArray areas;
    for (const QWidget* widget : QApplication::allWidgets()) {
        if (IsSeen(widget))
            areas.append(Describe(widget));
    }
    return {{"areas", areas}};
}
