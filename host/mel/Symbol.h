#pragma once

#include "engine/Value.h"

namespace host::mel {

struct GlobalVariable;

/// Where a variable lives, as the compiler has worked it out.
struct Symbol
{
    enum class Storage { Local, Reference, Global };

    Storage storage = Storage::Local;
    int index = 0; ///< of the frame's slot or reference
    GlobalVariable* global = nullptr; ///< not owned
    Value::Kind kind = Value::Kind::None; ///< None: the first assignment decides
};

} // namespace host::mel
