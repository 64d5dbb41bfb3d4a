// Compiles or not: what clients of the API may write, and what they must not.

#include <maya/MAngle.h>
#include <maya/MArgDatabase.h>
#include <maya/MArgList.h>
#include <maya/MCallbackIdArray.h>
#include <maya/MCommandMessage.h>
#include <maya/MCommandResult.h>
#include <maya/MDistance.h>
#include <maya/MDoubleArray.h>
#include <maya/MEventMessage.h>
#define MNoVersionString
#define MNoPluginEntry
#include <maya/MFnPlugin.h>
#include <maya/MGlobal.h>
#include <maya/MInt64Array.h>
#include <maya/MIntArray.h>
#include <maya/MMatrix.h>
#include <maya/MPoint.h>
#include <maya/MPxCommand.h>
#include <maya/MStringArray.h>
#include <maya/MSyntax.h>
#include <maya/MTime.h>
#include <maya/MVector.h>
#include <maya/MVectorArray.h>

#include <type_traits>
#include <utility>

namespace {

// An expression of a type parameter, so that a failing one is an answer and no error.
#define DEFINE_PROBE(Name, expression)                                                             \
    template <typename T, typename = void>                                                         \
    struct Name : std::false_type                                                                  \
    {                                                                                              \
    };                                                                                             \
    template <typename T>                                                                          \
    struct Name<T, std::void_t<decltype(expression)>> : std::true_type                             \
    {                                                                                              \
    };

DEFINE_PROBE(AddsLiteralZero, std::declval<T>() + 0)
DEFINE_PROBE(AddsNumber, std::declval<T>() + std::declval<int>())
DEFINE_PROBE(AppendsBool, std::declval<T&>() += true)
DEFINE_PROBE(AppendsLong, std::declval<T&>() += 1L)
DEFINE_PROBE(PrefixesText, "text" + std::declval<T>())
DEFINE_PROBE(ComparesWithZero, std::declval<T>() == 0)
DEFINE_PROBE(TakesResultByValue, T::executeCommand("", 1))
DEFINE_PROBE(TakesConstantResult, T::executeCommand("", std::declval<const MString&>()))
DEFINE_PROBE(PythonTakesAnyResult, T::executePythonCommand("", std::declval<MCommandResult&>()))
DEFINE_PROBE(RemovesConstantIds, T::removeCallbacks(std::declval<const MCallbackIdArray&>()))
DEFINE_PROBE(AttachesToTemporary, T(MObject(), "", ""))

static_assert(!AddsLiteralZero<MString>::value, "a literal zero may be a text or a number");
static_assert(AddsNumber<MString>::value && PrefixesText<MString>::value, "");
static_assert(AppendsBool<MString>::value && !AppendsLong<MString>::value, "");
static_assert(ComparesWithZero<MStatus>::value, "through the conversion to bool");
static_assert(TakesResultByValue<MGlobal>::value, "a number that is no variable means display");
static_assert(!TakesConstantResult<MGlobal>::value, "");
static_assert(!PythonTakesAnyResult<MGlobal>::value, "");
static_assert(!RemovesConstantIds<MMessage>::value, "");
static_assert(!AttachesToTemporary<MFnPlugin>::value, "");
static_assert(!std::is_copy_constructible_v<MCommandResult>, "");
static_assert(std::is_convertible_v<MStatus::MStatusCode, MStatus>, "");
static_assert(std::is_convertible_v<MStatus, bool> && !std::is_convertible_v<int, MStatus>, "");
static_assert(std::is_convertible_v<const char*, MString>, "");
static_assert(std::is_convertible_v<const wchar_t*, MString>, "");
static_assert(!std::is_convertible_v<MString, const char*>, "");
static_assert(std::is_same_v<MS, MStatus>, "");
static_assert(sizeof(MCallbackId) == sizeof(void*), "");
static_assert(std::is_base_of_v<MArgParser, MArgDatabase>, "");
static_assert(std::is_same_v<MStatus, Autodesk::Maya::OpenMaya20240000::MStatus>, "");

// Exact overloads: an address can be taken as this type only.
template <typename R>
using Execute = MStatus (*)(const MString&, R&, bool, bool);
[[maybe_unused]] constexpr Execute<MCommandResult> INTO_ANY = &MGlobal::executeCommand;
[[maybe_unused]] constexpr Execute<MStringArray> INTO_TEXTS = &MGlobal::executeCommand;
[[maybe_unused]] constexpr MStatus (*PLAIN)(const MString&, bool, bool) = &MGlobal::executeCommand;
[[maybe_unused]] constexpr bool (*SET_TEXT)(const MString&, MString) = &MGlobal::setOptionVarValue;
[[maybe_unused]] constexpr MString (*OPTION_TEXT)(const MString&, bool*)
    = &MGlobal::optionVarStringValue;
[[maybe_unused]] constexpr void (*LITERAL)(const char*) = &MPxCommand::setResult;
[[maybe_unused]] constexpr MStatus (MFnPlugin::*REGISTER)(
    const MString&, void* (*)(), MSyntax (*)())
    = &MFnPlugin::registerCommand;

[[maybe_unused]] constexpr MStatus (MCommandResult::*INTO_VECTORS)(
    MVectorArray&) const = &MCommandResult::getResult;
[[maybe_unused]] constexpr MStatus (MArgParser::*INTO_TIME)(
    const char*, unsigned int, MTime&) const = &MArgParser::getFlagArgument;
[[maybe_unused]] constexpr MCallbackId (*ON_CALLS)(
    void (*)(const MString&, unsigned int, bool, unsigned int, void*), void*, MStatus*)
    = &MCommandMessage::addProcCallback;
[[maybe_unused]] constexpr MStatus (MFnPlugin::*REMOVE_ITEMS)(MStringArray&)
    = &MFnPlugin::removeMenuItem;

// Numbers that clients print, store and compare.
static_assert(MStatus::kEndOfFile == 8 && MStatus::MStatusCode::kNotFound == 7, "");
static_assert(MSyntax::kString == 5 && MSyntax::kLastArgType == 11, "");
static_assert(MSyntax::kSelectionList == 3, "");
static_assert(MCommandMessage::kStackTrace == 6 && MCommandMessage::kResult == 5, "");
static_assert(MCommandResult::kMatrixArray == 12 && MCommandResult::kDouble == 5, "");
static_assert(MGlobal::kBaseUIMode == 3 && MPxCommand::kNoArg == 3, "");
static_assert(MTime::kNTSCField == 11 && MDistance::kMeters == 8 && MAngle::kAngSeconds == 4, "");
static_assert(MCommandMessage::kMELCommand == 1, "");
static_assert(MMessage::kDoAction == 2 && MAYA_API_VERSION == 20240000, "");

// Enumerators work in a switch, and a command needs nothing but its doIt.
class OrdinaryCommand : public MPxCommand
{
public:
    static void* creator() { return new OrdinaryCommand; }
    MStatus doIt(const MArgList&) override { return MS::kSuccess; }
    bool hasSyntax() const override { return true; }
};

[[maybe_unused]] const char* PrefixOf(MCommandMessage::MessageType type)
{
    switch (type) {
    case MCommandMessage::kWarning: return "warning";
    case MCommandMessage::MessageType::kError: return "error";
    default: return "";
    }
}

[[maybe_unused]] MStatus UseEverything(MObject object)
{
    MFnPlugin plugin(object);
    MCallbackIdArray ids;
    ids.append(MEventMessage::addEventCallback("quitApplication", [](void*) {}));
    if (MS::kSuccess != MMessage::removeCallbacks(ids))
        return MStatus::kFailure;
    return plugin.registerCommand("ordinary", OrdinaryCommand::creator);
}

} // namespace
