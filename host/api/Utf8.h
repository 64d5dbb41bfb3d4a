#pragma once

#include <string>

/// UTF-8 as the API's strings hold it. Halves of surrogate pairs that stand alone are kept as three
/// bytes each, so that no text of the toolkit is lost on its way through the API.
namespace host::api {

void AppendUtf8(std::string& text, char32_t character);
/// The characters of `size` bytes; a byte that fits nowhere becomes U+FFFD.
std::u32string DecodeUtf8(const char* text, size_t size);

} // namespace host::api
