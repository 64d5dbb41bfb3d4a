#pragma once

namespace host {
class CommandRegistry;
}

namespace host::mel {

/// print, eval, source, size and whatever else is part of the language rather than of the host.
void RegisterLanguageFunctions(CommandRegistry& registry);

} // namespace host::mel
