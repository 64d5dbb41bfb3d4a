#pragma once

#include <QString>

namespace host::mel {

/// Why a text cannot be compiled. Thrown inside the parser and the compiler, never out of them.
struct CompileError
{
    int offset = 0; ///< just after the token at which the reader stopped
    QString text;
};

} // namespace host::mel
