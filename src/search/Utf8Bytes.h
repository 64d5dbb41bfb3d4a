#pragma once

/// Looks at UTF-8 without decoding it. Any thread.
namespace Utf8Bytes {

bool IsAscii(const char* begin, const char* end);
/// As strict as the toolkit's decoder: what it would replace by the unknown character is not valid.
bool IsValid(const char* begin, const char* end);
/// How many UTF-16 units the valid text has.
int CountUnits(const char* begin, const char* end);

} // namespace Utf8Bytes
