#pragma once

#include "engine/Call.h"

#include <maya/MAngle.h>
#include <maya/MDistance.h>
#include <maya/MDoubleArray.h>
#include <maya/MInt64Array.h>
#include <maya/MIntArray.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>
#include <maya/MTime.h>
#include <maya/MTypes.h>
#include <maya/MVectorArray.h>

/// From the engine's values to the API's types. The functions answer false, and leave the target as
/// it is, when the value does not fit.
namespace host::api {

// Arguments: every number converts to every other, and a text to the number that it spells.
bool ReadValue(const Value& value, bool& target);
bool ReadValue(const Value& value, int& target);
bool ReadValue(const Value& value, unsigned int& target);
bool ReadValue(const Value& value, double& target);
bool ReadValue(const Value& value, MString& target);
// A bare number is in the unit that scripts use: centimetres, degrees, frames of film.
bool ReadValue(const Value& value, MDistance& target);
bool ReadValue(const Value& value, MAngle& target);
bool ReadValue(const Value& value, MTime& target);

template <typename T>
bool ReadWord(const Word& word, T& target)
{
    return !word.callable && ReadValue(word.value, target);
}
/// The text is the one that was typed.
bool ReadWord(const Word& word, MString& target);

// Results: stricter, so that a wrong expectation shows. An int is a double too, a number also a
// text, a scalar an array of its kind, and an empty array an array of any kind.
bool ReadResult(const Value& value, int& target);
bool ReadResult(const Value& value, MInt64& target);
bool ReadResult(const Value& value, double& target);
bool ReadResult(const Value& value, MString& target);
bool ReadResult(const Value& value, MIntArray& target);
bool ReadResult(const Value& value, MDoubleArray& target);
bool ReadResult(const Value& value, MStringArray& target);
bool ReadResult(const Value& value, MInt64Array& target);
bool ReadResult(const Value& value, MVector& target);
bool ReadResult(const Value& value, MVectorArray& target);

/// A flag's name without its "-"; "" for null.
QString FlagName(const char* flag);
/// Whether a word given as text is a flag: "-" and a letter.
bool LooksLikeFlag(const QString& text);

} // namespace host::api
