#pragma once

#include <QString>

namespace host {
class Command;
struct Function;
} // namespace host

namespace host::commands {

/// The text of `help`: the synopsis, then one line per flag with its short name, its long name and
/// the types of its arguments. Readers split the lines at white space.
QString HelpText(const Command& command);
/// A function has no flags; its synopsis shows the types of its parameters.
QString HelpText(const Function& function);

} // namespace host::commands
