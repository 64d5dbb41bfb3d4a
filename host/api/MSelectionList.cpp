#include "api/ApiAccess.h"
#include "api/Conversions.h"
#include "api/SceneNames.h"
#include "api/StatusDetails.h"

#include <maya/MGlobal.h>
#include <maya/MSelectionList.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

using host::api::Report;
using host::api::ToQString;

struct MSelectionList::Names
{
    QStringList list;
};

MSelectionList::MSelectionList()
    : m_names(new Names)
{ }

MSelectionList::MSelectionList(const MSelectionList& src)
    : m_names(new Names(*src.m_names))
{ }

MSelectionList::~MSelectionList()
{
    delete m_names;
}

MSelectionList& MSelectionList::operator=(const MSelectionList& other)
{
    if (this != &other)
        *m_names = *other.m_names;
    return *this;
}

MStatus MSelectionList::clear()
{
    m_names->list.clear();
    return MS::kSuccess;
}

bool MSelectionList::isEmpty(MStatus* ReturnStatus) const
{
    return length(ReturnStatus) == 0;
}

unsigned int MSelectionList::length(MStatus* ReturnStatus) const
{
    Report(ReturnStatus, MS::kSuccess);
    return static_cast<unsigned int>(m_names->list.size());
}

MStatus MSelectionList::add(const MString& matchString)
{
    const QStringList found = host::api::ObjectsNamed(ToQString(matchString));
    if (found.isEmpty()) {
        return host::api::DetailedStatus(
            MS::kInvalidParameter, host::api::StatusDetail::DoesNotExist);
    }
    m_names->list += found;
    m_names->list.removeDuplicates();
    return MS::kSuccess;
}

MStatus MSelectionList::remove(unsigned int index)
{
    if (index >= length())
        return MS::kInvalidParameter;
    m_names->list.removeAt(static_cast<int>(index));
    return MS::kSuccess;
}

MStatus MSelectionList::merge(const MSelectionList& other, MergeStrategy strategy)
{
    const QStringList names = other.m_names->list;
    for (const QString& name : names) {
        const bool isThere = m_names->list.contains(name);
        if (!isThere && strategy != kRemoveFromList)
            m_names->list += name;
        else if (isThere && strategy != kMergeNormal)
            m_names->list.removeAll(name);
    }
    return MS::kSuccess;
}

MStatus MSelectionList::getSelectionStrings(MStringArray& array) const
{
    array = host::api::ToMStringArray(m_names->list);
    return MS::kSuccess;
}

MStatus MSelectionList::getSelectionStrings(unsigned int index, MStringArray& array) const
{
    if (index >= length())
        return MS::kInvalidParameter;
    array = host::api::ToMStringArray({m_names->list.at(static_cast<int>(index))});
    return MS::kSuccess;
}

const char* MSelectionList::className()
{
    return "MSelectionList";
}

void ApiAccess::SetNames(MSelectionList& list, const QStringList& names)
{
    list.m_names->list = names;
}

namespace {

QString FlagOf(MGlobal::ListAdjustment adjustment)
{
    switch (adjustment) {
    case MGlobal::kXORWithList: return QStringLiteral("toggle");
    case MGlobal::kAddToList: return QStringLiteral("add");
    case MGlobal::kRemoveFromList: return QStringLiteral("deselect");
    case MGlobal::kAddToHeadOfList: return QStringLiteral("addFirst");
    case MGlobal::kReplaceList: break;
    }
    return QStringLiteral("replace");
}

MStatus StatusOf(bool done)
{
    return done ? MS::kSuccess : MS::kFailure;
}

} // namespace

MStatus MGlobal::getActiveSelectionList(MSelectionList& dest, bool)
{
    ApiAccess::SetNames(dest, host::api::SelectedObjects());
    return MS::kSuccess;
}

MStatus MGlobal::setActiveSelectionList(const MSelectionList& src, ListAdjustment listAdjustment)
{
    MStringArray names;
    src.getSelectionStrings(names);
    if (names.length() == 0)
        return listAdjustment == kReplaceList ? clearSelectionList() : MStatus();
    return StatusOf(
        host::api::SelectObjects(FlagOf(listAdjustment), host::api::ToStringList(names)));
}

MStatus MGlobal::getSelectionListByName(const MString& name, MSelectionList& list)
{
    return list.add(name);
}

MStatus MGlobal::selectByName(const MString& name, ListAdjustment listAdjustment)
{
    return StatusOf(host::api::SelectObjects(FlagOf(listAdjustment), {ToQString(name)}));
}

MStatus MGlobal::unselectByName(const MString& name)
{
    return StatusOf(host::api::SelectObjects(FlagOf(kRemoveFromList), {ToQString(name)}));
}

MStatus MGlobal::clearSelectionList()
{
    return StatusOf(host::api::SelectObjects(QStringLiteral("clear"), {}));
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
