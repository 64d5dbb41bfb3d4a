#pragma once

class QString;

/// The desktop's trash, as desktops have agreed on: of the user on the file system of their home,
/// of the file system's top folder elsewhere. Nothing is ever copied there, so that it is done at
/// once or not at all. Any thread.
namespace Trash {

/// False, with everything as it was, where there is no trash that the thing can go to.
bool Take(const QString& path);

} // namespace Trash
