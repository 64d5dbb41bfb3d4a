#include "api/ApiAccess.h"
#include "api/ValueReading.h"

#include <maya/MSyntax.h>

#include <algorithm>
#include <limits>

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

constexpr int LONGEST_SHORT_NAME = 3;
constexpr int SHORTEST_LONG_NAME = 4;
constexpr unsigned int ANY_NUMBER = std::numeric_limits<unsigned int>::max();

struct TypeRow
{
    MSyntax::MArgType apiType;
    host::ArgumentType type;
};

constexpr TypeRow TYPES[] = {
    {MSyntax::kBoolean, host::ArgumentType::Bool},
    {MSyntax::kLong, host::ArgumentType::Int},
    {MSyntax::kDouble, host::ArgumentType::Float},
    {MSyntax::kString, host::ArgumentType::String},
    {MSyntax::kUnsigned, host::ArgumentType::Unsigned},
    {MSyntax::kDistance, host::ArgumentType::Length},
    {MSyntax::kAngle, host::ArgumentType::Angle},
    {MSyntax::kTime, host::ArgumentType::Time},
    {MSyntax::kSelectionItem, host::ArgumentType::Name},
};

const TypeRow* RowOf(MSyntax::MArgType type)
{
    const TypeRow* row = std::find_if(std::begin(TYPES), std::end(TYPES),
        [type](const TypeRow& candidate) { return candidate.apiType == type; });
    return row == std::end(TYPES) ? nullptr : row;
}

QString Synopsis(const QVector<host::ArgumentType>& types)
{
    QStringList words;
    for (const host::ArgumentType type : types)
        words += host::ArgumentTypeName(type);
    return words.join(QLatin1Char(' '));
}

} // namespace

struct MSyntax::Description
{
    QVector<host::Flag> flags;
    QVector<host::ArgumentType> arguments;
    MObjectFormat objectFormat = kNone;
    unsigned int minimumObjects = 0;
    unsigned int maximumObjects = ANY_NUMBER;
    bool canQuery = false;
    bool canEdit = false;
    bool takesSelection = false;

    host::Flag* Find(const char* name);
    bool TakesObjects() const
    {
        return objectFormat == kStringObjects || objectFormat == kSelectionList;
    }
    host::Objects Objects() const;
};

host::Flag* MSyntax::Description::Find(const char* name)
{
    const QString wanted = host::api::FlagName(name);
    for (host::Flag& flag : flags) {
        if (flag.shortName == wanted || flag.longName == wanted)
            return &flag;
    }
    return nullptr;
}

host::Objects MSyntax::Description::Objects() const
{
    if (!TakesObjects())
        return {Synopsis(arguments), arguments, arguments.size(), arguments.size()};
    const int maximum = maximumObjects > static_cast<unsigned int>(std::numeric_limits<int>::max())
        ? host::Objects::UNLIMITED
        : static_cast<int>(maximumObjects);
    return {QStringLiteral("[%1...]").arg(host::ArgumentTypeName(host::ArgumentType::String)),
        {host::ArgumentType::String}, takesSelection ? 0 : static_cast<int>(minimumObjects),
        maximum};
}

MSyntax::MSyntax()
    : m_description(new Description)
{ }

MSyntax::MSyntax(const MSyntax& other)
    : m_description(new Description(*other.m_description))
{ }

MSyntax::~MSyntax()
{
    delete m_description;
}

MSyntax& MSyntax::operator=(const MSyntax& other)
{
    if (this != &other)
        *m_description = *other.m_description;
    return *this;
}

MStatus MSyntax::addFlag(const char* shortName, const char* longName, MArgType argType1,
    MArgType argType2, MArgType argType3, MArgType argType4, MArgType argType5, MArgType argType6)
{
    host::Flag flag;
    flag.shortName = host::api::FlagName(shortName);
    flag.longName = host::api::FlagName(longName);
    const bool fits = !flag.shortName.isEmpty() && flag.shortName.size() <= LONGEST_SHORT_NAME
        && flag.longName.size() >= SHORTEST_LONG_NAME;
    if (!fits || m_description->Find(shortName) || m_description->Find(longName))
        return MS::kFailure;
    for (const MArgType type : {argType1, argType2, argType3, argType4, argType5, argType6}) {
        if (type == kNoArg)
            break;
        const TypeRow* row = RowOf(type);
        if (!row)
            return MS::kInvalidParameter;
        flag.arguments += row->type;
    }
    m_description->flags += flag;
    return MS::kSuccess;
}

MStatus MSyntax::makeFlagMultiUse(const char* flagName)
{
    host::Flag* flag = m_description->Find(flagName);
    if (!flag)
        return MS::kInvalidParameter;
    flag->multiUse = true;
    return MS::kSuccess;
}

MStatus MSyntax::makeFlagQueryWithFullArgs(const char* flagName, bool)
{
    host::Flag* flag = m_description->Find(flagName);
    if (!flag)
        return MS::kInvalidParameter;
    flag->queryTakesArguments = true;
    return MS::kSuccess;
}

MStatus MSyntax::addArg(MArgType type)
{
    const TypeRow* row = RowOf(type);
    if (!row || m_description->TakesObjects())
        return MS::kFailure;
    m_description->arguments += row->type;
    return MS::kSuccess;
}

void MSyntax::useSelectionAsDefault(bool use)
{
    m_description->takesSelection = use;
}

MStatus MSyntax::setObjectType(MObjectFormat objectFormat, unsigned int minimumObjects)
{
    return setObjectType(objectFormat, minimumObjects, ANY_NUMBER);
}

MStatus MSyntax::setObjectType(
    MObjectFormat objectFormat, unsigned int minimumObjects, unsigned int maximumObjects)
{
    const bool isFormat = objectFormat > kInvalidObjectFormat && objectFormat < kLastObjectFormat;
    if (!isFormat || minimumObjects > maximumObjects)
        return MS::kInvalidParameter;
    if (objectFormat != kNone && !m_description->arguments.isEmpty())
        return MS::kFailure;
    m_description->objectFormat = objectFormat;
    m_description->minimumObjects = minimumObjects;
    m_description->maximumObjects = maximumObjects;
    return MS::kSuccess;
}

void MSyntax::setMinObjects(unsigned int minimumObjects)
{
    m_description->minimumObjects = minimumObjects;
}

void MSyntax::setMaxObjects(unsigned int maximumObjects)
{
    m_description->maximumObjects = maximumObjects;
}

unsigned int MSyntax::minObjects() const
{
    return m_description->minimumObjects;
}

unsigned int MSyntax::maxObjects() const
{
    return m_description->maximumObjects;
}

void MSyntax::enableQuery(bool supportsQuery)
{
    m_description->canQuery = supportsQuery;
}

void MSyntax::enableEdit(bool supportsEdit)
{
    m_description->canEdit = supportsEdit;
}

bool MSyntax::canQuery() const
{
    return m_description->canQuery;
}

bool MSyntax::canEdit() const
{
    return m_description->canEdit;
}

bool ApiAccess::TakesSelection(const MSyntax& syntax)
{
    return syntax.m_description->TakesObjects() && syntax.m_description->takesSelection;
}

unsigned int ApiAccess::MinimumObjects(const MSyntax& syntax)
{
    return syntax.m_description->minimumObjects;
}

void ApiAccess::Describe(host::Command& command, const MSyntax& syntax)
{
    const MSyntax::Description& description = *syntax.m_description;
    QVector<host::Flag> flags = description.flags;
    std::sort(flags.begin(), flags.end(),
        [](const host::Flag& a, const host::Flag& b) { return a.longName < b.longName; });
    for (host::Flag& flag : flags) {
        flag.modes = host::Create | (description.canQuery ? host::Query : 0)
            | (description.canEdit ? host::Edit : 0);
        command.AddFlag(flag);
    }
    command.SetModes(description.canQuery, description.canEdit);
    command.SetObjects(description.Objects());
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
