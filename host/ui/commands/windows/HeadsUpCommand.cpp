#include "engine/Engine.h"
#include "ui/commands/Tables.h"
#include "ui/window/HeadsUp.h"

namespace host::ui {

namespace {

HeadsUp& All()
{
    return HeadsUp::Current();
}

Error Unknown(const QString& name)
{
    return {QStringLiteral("Object '%1' not found.").arg(name)};
}

QString NameOfId(int id)
{
    for (auto it = All().Entries().begin(); it != All().Entries().end(); ++it) {
        if (it->id == id)
            return it.key();
    }
    return {};
}

bool Follows(const Call& call)
{
    return call.Has("attachToRefresh") || call.Has("attributeChange") || call.Has("nodeChanges")
        || call.Has("idleRefresh");
}

Outcome Query(const QString& name, const QString& flag)
{
    const HeadsUp::Entry entry = All().Entries().value(name);
    if (flag == QLatin1String("section"))
        return entry.section;
    if (flag == QLatin1String("block"))
        return entry.block;
    if (flag == QLatin1String("label"))
        return entry.label;
    if (flag == QLatin1String("command"))
        return entry.command.Description();
    if (flag == QLatin1String("event"))
        return entry.event;
    if (flag == QLatin1String("visible"))
        return entry.isVisible;
    if (flag == QLatin1String("id"))
        return entry.id;
    return flag == QLatin1String("scriptResult") ? Outcome(entry.data) : Outcome(QString());
}

/// A call that speaks of places instead of names; none when it does not.
std::optional<Outcome> AskPlaces(const Call& call)
{
    if (call.Has("listHeadsUpDisplays"))
        return Outcome(StringList(All().Entries().keys()));
    if (call.Has("nextFreeBlock"))
        return Outcome(All().NextFreeBlock(call.Int("nextFreeBlock")));
    if (call.Has("removePosition")) {
        const QString name
            = All().NameAt(call.Int("removePosition", 0), call.Int("removePosition", 1));
        if (!name.isEmpty())
            All().Remove(name);
        return Outcome();
    }
    if (call.Has("removeID")) {
        const QString name = NameOfId(call.Int("removeID"));
        if (!name.isEmpty())
            All().Remove(name);
        return Outcome();
    }
    return std::nullopt;
}

Outcome Put(const Call& call, const QString& name)
{
    HeadsUp::Entry entry = All().Entries().value(name);
    if (call.IsCreate() && (!call.Has("section") || !call.Has("block")))
        return Error{QStringLiteral("headsUpDisplay needs -section and -block.")};
    if (call.Has("section"))
        entry.section = call.Int("section");
    if (call.Has("block"))
        entry.block = call.Int("block");
    if (entry.section < 0 || entry.section >= HeadsUp::SECTIONS || entry.block < 0)
        return Error{QStringLiteral("Sections are numbered 0 to %1.").arg(HeadsUp::SECTIONS - 1)};
    const QString other = All().NameAt(entry.section, entry.block);
    if (!other.isEmpty() && other != name) {
        return Error{QStringLiteral("Block %1 of section %2 is taken by '%3'.")
                         .arg(entry.block)
                         .arg(entry.section)
                         .arg(other)};
    }
    if (call.Has("label"))
        entry.label = call.Text("label");
    if (call.Has("command"))
        entry.command = call.GetScript("command");
    if (call.Has("event"))
        entry.event = call.Text("event");
    if (call.Has("visible"))
        entry.isVisible = call.Bool("visible");
    entry.followsScene = entry.followsScene || Follows(call);
    if (!All().Put(name, entry))
        return Error{QStringLiteral("Invalid event name '%1'.").arg(entry.event)};
    return All().Entries().value(name).id;
}

Outcome HeadsUpDisplay(Call& call)
{
    if (Engine::Current().IsBatch())
        return Error{QStringLiteral("headsUpDisplay is not available in batch mode.")};
    const std::optional<Outcome> places = AskPlaces(call);
    if (places)
        return *places;
    const QString name = call.ObjectText();
    const bool isKnown = All().Entries().contains(name);
    if (call.Has("exists"))
        return isKnown;
    if (name.isEmpty())
        return Error{QStringLiteral("headsUpDisplay needs a name.")};
    const bool refreshes = call.Has("refresh");
    if (call.Has("remove") || refreshes || !call.IsCreate()) {
        if (!isKnown)
            return Unknown(name);
    } else if (isKnown) {
        return Error{InterfaceModel::NotUnique(name)};
    }
    if (call.IsQuery())
        return Query(name, call.GivenFlags().value(0));
    if (call.Has("remove"))
        All().Remove(name);
    else if (refreshes)
        All().Run(name);
    else
        return Put(call, name);
    return {};
}

// clang-format off
const CommandRow COMMANDS[] = {
    {"headsUpDisplay", "any", "QE", "[String]",
        "allowOverlap/ao B cqe; attachToRefresh/atr - cqe; attributeChange/atc str cqe; block/b int cqe; blockAlignment/ba str cqe;"
        "blockSize/bs str cqe; command/c script cqe; dataAlignment/da str cqe; dataFontSize/dfs str cqe; dataWidth/dw int cqe;"
        "decimalPrecision/dp int cqe; event/ev str cqe; exists/ex - cq; id/id - q; idleRefresh/ir - cqe; label/l str cqe;"
        "labelFontSize/lfs str cqe; labelWidth/lw int cqe; listHeadsUpDisplays/lh - c; nextFreeBlock/nfb int c; nodeChanges/nc str cqe;"
        "padding/p int cqe; refresh/r - c; remove/rem - c; removeID/rid int c; removePosition/rp int int c; scriptResult/sr - q;"
        "section/s int cqe; visible/vis B cqe", HeadsUpDisplay},
};
// clang-format on

} // namespace

void RegisterHeadsUpDisplay(CommandRegistry& commands)
{
    commands.Register(COMMANDS);
}

} // namespace host::ui
