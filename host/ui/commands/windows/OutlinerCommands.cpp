#include "ui/commands/Tables.h"
#include "ui/commands/windows/OutlinerView.h"

namespace host::ui {

namespace {

OutlinerView* View(const Element& element)
{
    return As<OutlinerView>(element);
}

void MakeOutliner(Element& element, const Call&)
{
    auto* view = new OutlinerView;
    view->setMinimumSize(Scaled(80), Scaled(60));
    QObject::connect(view, &OutlinerView::Selected, &element,
        [&element] { element.RunCallback(QStringLiteral("selectCommand")); });
    element.SetWidget(view);
    NameForAccess(element, QStringLiteral("Outliner"));
}

bool IsOutliner(const Element& element)
{
    return qobject_cast<OutlinerView*>(element.GetWidget()) != nullptr;
}

// clang-format off
const Property OUTLINER[] = {
    {"outlinerEditor", nullptr, [](Element& e) -> Value { return e.GetName(); }},
    {"showShapes",     [](Edit& e) { View(e.element)->SetShowsShapes(e.Bool()); }, [](Element& e) -> Value { return View(e)->ShowsShapes(); }},
    {"showDagOnly",    [](Edit& e) { View(e.element)->SetShowsDagOnly(e.Bool()); }, [](Element& e) -> Value { return View(e)->ShowsDagOnly(); }},
    {"sortOrder",      [](Edit& e) { View(e.element)->SetSortsByName(e.Text() == QLatin1String("dagName")); },
                       [](Element& e) -> Value { return View(e)->SortsByName() ? QStringLiteral("dagName") : QStringLiteral("none"); }},
    {"expandAllItems", [](Edit& e) { View(e.element)->ExpandAll(e.Bool()); }, nullptr},
    {"expandAllSelectedItems", [](Edit& e) { View(e.element)->RevealSelected(); }, nullptr},
    {"showSelected",   [](Edit& e) { View(e.element)->RevealSelected(); }, nullptr},
    {"panel",          nullptr, [](Element& e) -> Value { return e.GetName(); }},
    {"control",        nullptr, [](Element& e) -> Value { return e.FullName(); }},
};

const char OUTLINER_FLAGS[] =
    "allowMultiSelection/ams B cqe; alwaysToggleSelect/ats B cqe; attrAlphaOrder/aao str cqe; autoExpand/axp B cqe; autoExpandLayers/ael B cqe;"
    "autoSelectNewObjects/autoSelectNewObjects B cqe; control/ctl - q; directSelect/ds B cqe; displayMode/dm str cqe;"
    "doNotSelectNewObjects/doNotSelectNewObjects B cqe; doubleClickCommand/dcc script cqe; dropIsParent/dip B cqe; editAttrName/ean B cqe;"
    "expandAllItems/eai B e; expandAllSelectedItems/eas B e; expandConnections/xc B cqe; expandObjects/eo B cqe; filter/f str cqe;"
    "highlightActive/ha B cqe; highlightSecondary/hs B cqe; ignoreDagHierarchy/hir B cqe; longNames/ln B cqe; mainListConnection/mlc str cqe;"
    "mapMotionTrails/mmt B cqe; niceNames/nn B cqe; outlinerEditor/oe - q; panel/pnl - q; selectCommand/sec script cqe; selectionConnection/slc str cqe;"
    "setFilter/sf str cqe; setsIgnoreFilters/sif B cqe; showAnimCurvesOnly/aco B cqe; showAttributes/atr B cqe; showCompounds/cmp B cqe;"
    "showConnected/sc B cqe; showContainedOnly/cn B cqe; showDagOnly/dag B cqe; showLeafs/lf B cqe; showMuteInfo/smi B cqe; showNamespace/sn B cqe;"
    "showNumericAttrsOnly/num B cqe; showPinIcons/pin B cqe; showReferenceMembers/rm B cqe; showReferenceNodes/rn B cqe; showSelected/sel B e;"
    "showSetMembers/sm B cqe; showShapes/ss B cqe; showTextureNodesOnly/tno B cqe; showUVAttrsOnly/uv B cqe; showUnitlessCurves/ucv B cqe;"
    "sortOrder/so str cqe; transmitFilters/tf B cqe; unlockMainConnection/ulk - ce; unParent/up - ce; organizeByLayer/obl B cqe; showAnimLayerWeight/saw B cqe;"
    "showAssets/sas B cqe; showAssignedMaterials/sam B cqe; showContainerContents/scc B cqe; showPublishedAsConnected/spa B cqe; showParentContainers/shp B cqe;"
    "showUpstreamCurves/suc B cqe; showTimeEditor/ste B cqe; selectionOrder/slo str cqe; containersIgnoreFilters/cif B cqe; docked/dkd - q; label/l str cqe;"
    "menuBarVisible/mbv B cqe; tearOff/to - ce; isUnique/iu B cqe; init/in - c; createString/cs - q; editString/es - q; needsInit/ni B qe; copy/cp str c;"
    "replacePanel/rp str e;";

const ControlRow ROWS[] = {
    {"outlinerPanel",  ControlKind, MakeOutliner, OUTLINER, OUTLINER_FLAGS},
    {"outlinerEditor", ControlKind, MakeOutliner, OUTLINER, OUTLINER_FLAGS, IsOutliner},
};
// clang-format on

} // namespace

void RegisterOutliner(CommandRegistry& commands)
{
    RegisterControls(commands, ROWS);
}

} // namespace host::ui
