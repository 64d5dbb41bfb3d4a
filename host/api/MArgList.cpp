#include "api/ApiAccess.h"
#include "api/Conversions.h"
#include "api/StatusDetails.h"
#include "api/ValueReading.h"

#include <maya/MArgList.h>

#include <utility>

OPENMAYA_MAJOR_NAMESPACE_OPEN

using host::api::Report;

struct MArgList::Words
{
    QVector<host::Word> words;

    const host::Word* At(unsigned int index) const
    {
        return index < static_cast<unsigned int>(words.size()) ? &words.at(static_cast<int>(index))
                                                               : nullptr;
    }

    template <typename T>
    MStatus Get(unsigned int index, T& argument) const
    {
        const host::Word* word = At(index);
        return word && host::api::ReadWord(*word, argument) ? MS::kSuccess : MS::kFailure;
    }

    template <typename T>
    T Take(unsigned int index, MStatus* status) const
    {
        T argument{};
        Report(status, Get(index, argument));
        return argument;
    }

    /// Reads elements from the array at `index`, or from there on as long as they convert.
    template <typename Array, typename Element>
    Array TakeArray(unsigned int& index, MStatus* status) const;
};

template <typename Array, typename Element>
Array MArgList::Words::TakeArray(unsigned int& index, MStatus* status) const
{
    Array array;
    const unsigned int start = index;
    Element element{};
    const host::Word* word = At(index);
    if (word && word->value.IsArray()) {
        for (int i = 0; i < word->value.Count(); ++i) {
            if (host::api::ReadValue(word->value.At(i), element))
                array.append(element);
        }
        ++index;
    } else {
        for (; (word = At(index)) && !word->isFlag && !word->value.IsArray(); ++index) {
            if (!host::api::ReadWord(*word, element))
                break;
            array.append(element);
        }
    }
    Report(status, index > start ? MS::kSuccess : MS::kFailure);
    return array;
}

MArgList::MArgList()
    : m_words(new Words)
{ }

MArgList::MArgList(const MArgList& other)
    : m_words(new Words(*other.m_words))
{ }

MArgList::~MArgList()
{
    delete m_words;
}

MArgList& MArgList::operator=(const MArgList& other)
{
    if (this != &other)
        *m_words = *other.m_words;
    return *this;
}

// The value in the header has no address of its own.
const unsigned int MArgList::kInvalidArgIndex;

unsigned int MArgList::length(MStatus* ReturnStatus) const
{
    Report(ReturnStatus, MS::kSuccess);
    return static_cast<unsigned int>(m_words->words.size());
}

bool MArgList::asBool(unsigned int index, MStatus* ReturnStatus) const
{
    return m_words->Take<bool>(index, ReturnStatus);
}

int MArgList::asInt(unsigned int index, MStatus* ReturnStatus) const
{
    return m_words->Take<int>(index, ReturnStatus);
}

double MArgList::asDouble(unsigned int index, MStatus* ReturnStatus) const
{
    return m_words->Take<double>(index, ReturnStatus);
}

MString MArgList::asString(unsigned int index, MStatus* ReturnStatus) const
{
    return m_words->Take<MString>(index, ReturnStatus);
}

MIntArray MArgList::asIntArray(unsigned int& index, MStatus* ReturnStatus) const
{
    return m_words->TakeArray<MIntArray, int>(index, ReturnStatus);
}

MDoubleArray MArgList::asDoubleArray(unsigned int& index, MStatus* ReturnStatus) const
{
    return m_words->TakeArray<MDoubleArray, double>(index, ReturnStatus);
}

MStringArray MArgList::asStringArray(unsigned int& index, MStatus* ReturnStatus) const
{
    return m_words->TakeArray<MStringArray, MString>(index, ReturnStatus);
}

unsigned int MArgList::flagIndex(const char* shortFlag, const char* longFlag) const
{
    const QString shortName = host::api::FlagName(shortFlag);
    const QString longName = host::api::FlagName(longFlag);
    for (int i = 0; i < m_words->words.size(); ++i) {
        const QString text = m_words->words.at(i).Text();
        if (!text.startsWith(QLatin1Char('-')))
            continue;
        const QString name = text.mid(1);
        if (!name.isEmpty() && (name == shortName || name == longName))
            return static_cast<unsigned int>(i);
    }
    return kInvalidArgIndex;
}

MStatus MArgList::addArg(bool argument)
{
    m_words->words.append({argument, {}, false, {}});
    return MS::kSuccess;
}

MStatus MArgList::addArg(int argument)
{
    m_words->words.append({argument, {}, false, {}});
    return MS::kSuccess;
}

MStatus MArgList::addArg(double argument)
{
    m_words->words.append({argument, {}, false, {}});
    return MS::kSuccess;
}

MStatus MArgList::addArg(const MString& argument)
{
    const QString text = host::api::ToQString(argument);
    m_words->words.append({text, {}, host::api::LooksLikeFlag(text), {}});
    return MS::kSuccess;
}

MStatus MArgList::get(unsigned int index, bool& argument) const
{
    return m_words->Get(index, argument);
}

MStatus MArgList::get(unsigned int index, int& argument) const
{
    return m_words->Get(index, argument);
}

MStatus MArgList::get(unsigned int index, double& argument) const
{
    return m_words->Get(index, argument);
}

MStatus MArgList::get(unsigned int index, MString& argument) const
{
    return m_words->Get(index, argument);
}

const QVector<host::Word>& ApiAccess::WordsOf(const MArgList& list)
{
    return list.m_words->words;
}

void ApiAccess::SetWords(MArgList& list, const QVector<host::Word>& words)
{
    list.m_words->words = words;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
