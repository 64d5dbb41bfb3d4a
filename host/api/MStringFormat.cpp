#include "api/StringStorage.h"

#include <maya/MStringArray.h>

// Putting texts together from others: format and substitute of MString.

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

constexpr size_t MAXIMUM_MARKER = 10;

/// Number of the marker at `position` ("^1s" to "^10s"), its length in `length`; 0 for none.
size_t MarkerAt(const std::string& text, size_t position, size_t& length)
{
    size_t number = 0;
    size_t end = position + 1;
    for (; end < text.size() && end < position + 3 && text[end] >= '0' && text[end] <= '9'; ++end)
        number = number * 10 + static_cast<size_t>(text[end] - '0');
    if (end >= text.size() || text[end] != 's' || number > MAXIMUM_MARKER)
        return 0;
    length = end + 1 - position;
    return number;
}

std::string TextOf(const MString& string)
{
    return {string.asChar(), string.length()};
}

MStatus Assign(MString& target, const std::string& text)
{
    return target.set(text.data(), static_cast<int>(text.size()));
}

MString Formatted(const std::string& format, const MStringArray& arguments)
{
    std::string text;
    for (size_t position = 0; position < format.size();) {
        size_t length = 1;
        const size_t number = format[position] == '^' ? MarkerAt(format, position, length) : 0;
        if (number == 0 || number > arguments.length())
            text.append(format, position, length);
        else
            text += TextOf(arguments[static_cast<unsigned int>(number - 1)]);
        position += length;
    }
    return {text.data(), static_cast<int>(text.size())};
}

} // namespace

MStatus MString::format(const MString& fmt, const MStringArray& args)
{
    *this = Formatted(TextOf(fmt), args);
    return MS::kSuccess;
}

MStatus MString::format(const MString& fmt, const MString& arg1, const MString& arg2,
    const MString& arg3, const MString& arg4, const MString& arg5, const MString& arg6,
    const MString& arg7, const MString& arg8, const MString& arg9, const MString& arg10)
{
    MStringArray arguments;
    for (const MString* argument :
        {&arg1, &arg2, &arg3, &arg4, &arg5, &arg6, &arg7, &arg8, &arg9, &arg10}) {
        if (argument == &argUnused)
            break;
        arguments.append(*argument);
    }
    return format(fmt, arguments);
}

MStatus MString::substitute(const MString& from, const MString& to)
{
    const std::string old = TextOf(from);
    const std::string replacement = TextOf(to);
    if (old.empty())
        return MS::kInvalidParameter;
    std::string text = TextOf(*this);
    for (size_t found = text.find(old); found != std::string::npos;
         found = text.find(old, found + replacement.size()))
        text.replace(found, old.size(), replacement);
    return Assign(*this, text);
}

MStatus MString::substituteFirst(const MString& from, const MString& to)
{
    const std::string old = TextOf(from);
    if (old.empty())
        return MS::kInvalidParameter;
    std::string text = TextOf(*this);
    const size_t found = text.find(old);
    if (found != std::string::npos)
        text.replace(found, old.size(), TextOf(to));
    return Assign(*this, text);
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
