#include "api/ApiAccess.h"
#include "api/CommandRun.h"
#include "api/Conversions.h"
#include "api/SceneNames.h"
#include "api/StatusDetails.h"
#include "api/ValueReading.h"
#include "engine/Engine.h"

#include <maya/MArgDatabase.h>
#include <maya/MArgList.h>
#include <maya/MSelectionList.h>
#include <maya/MSyntax.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

using host::api::Report;

/// Reads through the engine's own reader, so that a command sees the same call as `help` and the
/// front ends do.
struct MArgParser::Parsed
{
    host::Command command{QString(), host::CommandOrigin::PlugIn, {}};
    host::Call call;
    QStringList objects; ///< those given, or the selection in their place

    const host::Flag* Find(const char* flag) const
    {
        return command.FindFlag(host::api::FlagName(flag));
    }
    /// The selection stands for objects that are not given.
    std::optional<host::Error> TakeSelection(unsigned int minimum);
    unsigned int Uses(const char* flag) const;
    host::Value Argument(const char* flag, unsigned int index, unsigned int use = 0) const;
    /// Position in the words of the flag's use `use`; -1 when there is none.
    int Position(const char* flag, unsigned int use) const;

    template <typename T>
    MStatus Read(const char* flag, unsigned int index, T& result) const
    {
        if (!Find(flag))
            return MS::kInvalidParameter;
        const bool fits = host::api::ReadValue(Argument(flag, index), result);
        return fits ? MS::kSuccess : MS::kFailure;
    }

    template <typename T>
    MStatus ReadObject(unsigned int index, T& result) const
    {
        const host::Value value = call.GetObjects().value(static_cast<int>(index));
        return host::api::ReadValue(value, result) ? MS::kSuccess : MS::kFailure;
    }
};

std::optional<host::Error> MArgParser::Parsed::TakeSelection(unsigned int minimum)
{
    if (objects.isEmpty())
        objects = host::api::SelectedObjects();
    if (objects.size() >= static_cast<int>(minimum))
        return std::nullopt;
    return host::Error{QStringLiteral("This command requires at least %1 argument(s) to be "
                                      "specified or selected; found %2.")
                           .arg(minimum)
                           .arg(objects.size())};
}

unsigned int MArgParser::Parsed::Uses(const char* flag) const
{
    const host::Flag* found = Find(flag);
    return found ? static_cast<unsigned int>(call.UseCount(found->longName.toUtf8().constData()))
                 : 0;
}

host::Value MArgParser::Parsed::Argument(
    const char* flag, unsigned int index, unsigned int use) const
{
    const host::Flag* found = Find(flag);
    return found ? call.Argument(
               found->longName.toUtf8().constData(), static_cast<int>(index), static_cast<int>(use))
                 : host::Value();
}

int MArgParser::Parsed::Position(const char* flag, unsigned int use) const
{
    const host::Flag* wanted = Find(flag);
    const QVector<host::Word>& words = call.GetWords();
    for (int i = 0; i < words.size(); ++i) {
        const bool same
            = words.at(i).isFlag && command.FindFlag(words.at(i).Text().mid(1)) == wanted;
        if (wanted && same && use-- == 0)
            return i;
    }
    return -1;
}

MArgParser::MArgParser()
    : m_parsed(new Parsed)
{ }

MArgParser::MArgParser(const MSyntax& syntax, const MArgList& argList, MStatus* ReturnStatus)
    : MArgParser()
{
    ApiAccess::Describe(m_parsed->command, syntax);
    host::ReadCall read = host::ReadWords(m_parsed->command, ApiAccess::WordsOf(argList));
    m_parsed->objects = read.call.ObjectTexts();
    if (ApiAccess::TakesSelection(syntax) && !read.error && read.call.IsCreate())
        read.error = m_parsed->TakeSelection(ApiAccess::MinimumObjects(syntax));
    if (read.error && host::Engine::Exists())
        host::api::ShowMessage(host::MessageType::Error, read.error->text);
    m_parsed->call = std::move(read.call);
    Report(ReturnStatus, read.error ? MS::kFailure : MS::kSuccess);
}

MArgParser::~MArgParser()
{
    delete m_parsed;
}

bool MArgParser::isFlagSet(const char* flag, MStatus* ReturnStatus) const
{
    Report(ReturnStatus, m_parsed->Find(flag) ? MS::kSuccess : MS::kInvalidParameter);
    return m_parsed->Uses(flag) > 0;
}

bool MArgParser::isEdit(MStatus* ReturnStatus) const
{
    Report(ReturnStatus, MS::kSuccess);
    return m_parsed->call.IsEdit();
}

bool MArgParser::isQuery(MStatus* ReturnStatus) const
{
    Report(ReturnStatus, MS::kSuccess);
    return m_parsed->call.IsQuery();
}

unsigned int MArgParser::numberOfFlagsUsed() const
{
    return static_cast<unsigned int>(m_parsed->call.GivenFlags().size());
}

unsigned int MArgParser::numberOfFlagUses(const char* flag) const
{
    return m_parsed->Uses(flag);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, bool& result) const
{
    return m_parsed->Read(flag, index, result);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, int& result) const
{
    return m_parsed->Read(flag, index, result);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, double& result) const
{
    return m_parsed->Read(flag, index, result);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, MString& result) const
{
    return m_parsed->Read(flag, index, result);
}

MStatus MArgParser::getFlagArgument(
    const char* flag, unsigned int index, unsigned int& result) const
{
    return m_parsed->Read(flag, index, result);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, MDistance& result) const
{
    return m_parsed->Read(flag, index, result);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, MAngle& result) const
{
    return m_parsed->Read(flag, index, result);
}

MStatus MArgParser::getFlagArgument(const char* flag, unsigned int index, MTime& result) const
{
    return m_parsed->Read(flag, index, result);
}

bool MArgParser::flagArgumentBool(const char* flag, unsigned int index, MStatus* ReturnStatus) const
{
    bool result = false;
    Report(ReturnStatus, getFlagArgument(flag, index, result));
    return result;
}

int MArgParser::flagArgumentInt(const char* flag, unsigned int index, MStatus* ReturnStatus) const
{
    int result = 0;
    Report(ReturnStatus, getFlagArgument(flag, index, result));
    return result;
}

double MArgParser::flagArgumentDouble(
    const char* flag, unsigned int index, MStatus* ReturnStatus) const
{
    double result = 0;
    Report(ReturnStatus, getFlagArgument(flag, index, result));
    return result;
}

MString MArgParser::flagArgumentString(
    const char* flag, unsigned int index, MStatus* ReturnStatus) const
{
    MString result;
    Report(ReturnStatus, getFlagArgument(flag, index, result));
    return result;
}

MStatus MArgParser::getFlagArgumentPosition(
    const char* flag, unsigned int flagIndex, unsigned int& position) const
{
    const int found = m_parsed->Position(flag, flagIndex);
    if (found < 0)
        return MS::kFailure;
    position = static_cast<unsigned int>(found);
    return MS::kSuccess;
}

MStatus MArgParser::getFlagArgumentList(
    const char* flag, unsigned int flagIndex, MArgList& argumentList) const
{
    if (flagIndex >= m_parsed->Uses(flag))
        return MS::kFailure;
    QVector<host::Word> words;
    const int count = m_parsed->Find(flag)->arguments.size();
    for (int i = 0; i < count; ++i) {
        const host::Value value = m_parsed->Argument(flag, static_cast<unsigned int>(i), flagIndex);
        if (!value.IsNone())
            words.append({value, {}, false, {}});
    }
    ApiAccess::SetWords(argumentList, words);
    return MS::kSuccess;
}

MStatus MArgParser::getCommandArgument(unsigned int index, bool& result) const
{
    return m_parsed->ReadObject(index, result);
}

MStatus MArgParser::getCommandArgument(unsigned int index, int& result) const
{
    return m_parsed->ReadObject(index, result);
}

MStatus MArgParser::getCommandArgument(unsigned int index, double& result) const
{
    return m_parsed->ReadObject(index, result);
}

MStatus MArgParser::getCommandArgument(unsigned int index, MString& result) const
{
    return m_parsed->ReadObject(index, result);
}

MStatus MArgParser::getCommandArgument(unsigned int index, MDistance& result) const
{
    return m_parsed->ReadObject(index, result);
}

MStatus MArgParser::getCommandArgument(unsigned int index, MAngle& result) const
{
    return m_parsed->ReadObject(index, result);
}

MStatus MArgParser::getCommandArgument(unsigned int index, MTime& result) const
{
    return m_parsed->ReadObject(index, result);
}

bool MArgParser::commandArgumentBool(unsigned int index, MStatus* ReturnStatus) const
{
    bool result = false;
    Report(ReturnStatus, getCommandArgument(index, result));
    return result;
}

int MArgParser::commandArgumentInt(unsigned int index, MStatus* ReturnStatus) const
{
    int result = 0;
    Report(ReturnStatus, getCommandArgument(index, result));
    return result;
}

double MArgParser::commandArgumentDouble(unsigned int index, MStatus* ReturnStatus) const
{
    double result = 0;
    Report(ReturnStatus, getCommandArgument(index, result));
    return result;
}

MString MArgParser::commandArgumentString(unsigned int index, MStatus* ReturnStatus) const
{
    MString result;
    Report(ReturnStatus, getCommandArgument(index, result));
    return result;
}

MStatus MArgParser::getObjects(MStringArray& objects) const
{
    objects = host::api::ToMStringArray(m_parsed->objects);
    return MS::kSuccess;
}

const char* MArgParser::className()
{
    return "MArgParser";
}

MArgDatabase::MArgDatabase() = default;
MArgDatabase::~MArgDatabase() = default;

MArgDatabase::MArgDatabase(const MSyntax& syntax, const MArgList& argList, MStatus* ReturnStatus)
    : MArgParser(syntax, argList, ReturnStatus)
{ }

namespace {

/// One text as a list of what it means.
MStatus ReadList(const MStatus& status, const MString& text, MSelectionList& result)
{
    result.clear();
    return status ? result.add(text) : status;
}

} // namespace

MStatus MArgDatabase::getFlagArgument(
    const char* flag, unsigned int index, MSelectionList& result) const
{
    MString text;
    return ReadList(getFlagArgument(flag, index, text), text, result);
}

MStatus MArgDatabase::getCommandArgument(unsigned int index, MSelectionList& result) const
{
    MString text;
    return ReadList(getCommandArgument(index, text), text, result);
}

MStatus MArgDatabase::getObjects(MSelectionList& result) const
{
    MStringArray names;
    MStatus status = getObjects(names);
    result.clear();
    for (unsigned int i = 0; status && i < names.length(); ++i)
        status = result.add(names[i]);
    return status;
}

const char* MArgDatabase::className()
{
    return "MArgDatabase";
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
