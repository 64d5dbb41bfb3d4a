#pragma once

#include <maya/MApiNamespace.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Objects of the scene in an order, each once. This host knows them by their names only. A value.
class OPENMAYA_EXPORT MSelectionList
{
public:
    enum MergeStrategy { kMergeNormal = 0, kXORWithList, kRemoveFromList };

    MSelectionList();
    MSelectionList(const MSelectionList& src);
    ~MSelectionList();
    MSelectionList& operator=(const MSelectionList& other);

    MStatus clear();
    bool isEmpty(MStatus* ReturnStatus = nullptr) const;
    unsigned int length(MStatus* ReturnStatus = nullptr) const;
    /// All that a name or pattern means; kInvalidParameter when nothing does.
    MStatus add(const MString& matchString);
    MStatus remove(unsigned int index);
    MStatus merge(const MSelectionList& other, MergeStrategy strategy = kMergeNormal);
    MStatus getSelectionStrings(MStringArray& array) const;
    MStatus getSelectionStrings(unsigned int index, MStringArray& array) const;

    static const char* className();

private:
    friend class ApiAccess;

    struct Names;
    Names* m_names;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
