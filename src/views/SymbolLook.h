#pragma once

#include "language/ParserItem.h"

#include <QLatin1String>

/// How entries of a script's outline look, wherever they are listed.
namespace SymbolLook {

/// The name of the icon of a ParserItemType by its value, or of the outline's variables (12) and
/// class variables (13), which no parser finds.
QLatin1String Icon(int kind);

/// Behind the last character that is selected in the script. Of "alias = module" and "name
/// (module)" only the first word stands where the item points.
int EndOf(const ParserItem& item);

} // namespace SymbolLook
