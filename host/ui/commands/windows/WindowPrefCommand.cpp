#include "engine/Engine.h"
#include "ui/commands/Tables.h"
#include "ui/commands/windows/ScriptWindow.h"
#include "ui/commands/windows/WindowTables.h"

#include <QRect>
#include <QSettings>

namespace host::ui {

namespace {

Value ValueOf(const QRect& place, const QString& flag)
{
    if (flag == QLatin1String("topLeftCorner"))
        return IntList{place.y(), place.x()};
    if (flag == QLatin1String("widthHeight"))
        return IntList{Unscaled(place.width()), Unscaled(place.height())};
    if (flag == QLatin1String("width"))
        return Unscaled(place.width());
    if (flag == QLatin1String("height"))
        return Unscaled(place.height());
    return flag == QLatin1String("leftEdge") ? place.x() : place.y();
}

QRect Changed(QRect place, const Call& call)
{
    if (call.Has("width"))
        place.setWidth(Scaled(qMax(1, call.Int("width"))));
    if (call.Has("height"))
        place.setHeight(Scaled(qMax(1, call.Int("height"))));
    if (call.Has("widthHeight"))
        place.setSize({Scaled(qMax(1, call.Int("widthHeight", 0))),
            Scaled(qMax(1, call.Int("widthHeight", 1)))});
    if (call.Has("leftEdge"))
        place.moveLeft(call.Int("leftEdge"));
    if (call.Has("topEdge"))
        place.moveTop(call.Int("topEdge"));
    if (call.Has("topLeftCorner"))
        place.moveTopLeft({call.Int("topLeftCorner", 1), call.Int("topLeftCorner", 0)});
    return place;
}

/// Where windows were, by name. Those that are shown now are remembered when they close.
Outcome WindowPref(Call& call)
{
    QSettings settings(ScriptWindow::PreferencesFile(), QSettings::IniFormat);
    const QString name = call.ObjectText();
    if (call.Has("exists"))
        return settings.contains(name);
    if (call.Has("removeAll")) {
        settings.clear();
        return {};
    }
    if (name.isEmpty())
        return Error{QStringLiteral("windowPref needs the name of a window.")};
    if (!settings.contains(name) && !call.IsCreate())
        return Error{InterfaceModel::NotFound(name)};
    if (call.Has("remove")) {
        settings.remove(name);
        return {};
    }
    const QRect place = settings.value(name).toRect();
    if (call.IsQuery())
        return ValueOf(place, call.GivenFlags().value(0));
    settings.setValue(name, Changed(place.isValid() ? place : QRect(0, 0, 400, 300), call));
    return name;
}

// clang-format off
const CommandRow COMMANDS[] = {
    {"windowPref", "any", "QE", "[String]",
        "exists/ex - cq; height/h int cqe; leftEdge/le int cqe; remove/r - c; removeAll/ra - c; topEdge/te int cqe;"
        "topLeftCorner/tlc int int cqe; width/w int cqe; widthHeight/wh int int cqe", WindowPref},
};
// clang-format on

} // namespace

void RegisterWindowPref(CommandRegistry& commands)
{
    commands.Register(COMMANDS);
}

} // namespace host::ui
