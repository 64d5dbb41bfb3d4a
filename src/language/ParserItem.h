#pragma once

#include <QString>

/// What an outline entry stands for. The values are stored nowhere but fixed; 0 is never made.
enum class ParserItemType {
    MelGlobalProc = 1,
    MelProc = 2,
    MelGlobalVariable = 3,
    PythonImport = 4,
    PythonImportAs = 5,
    PythonFromImport = 6,
    PythonMain = 7,
    PythonMethod = 8,
    PythonStaticMethod = 9,
    PythonClassMethod = 10,
    PythonClass = 11,
};

/// One entry of a script's outline.
struct ParserItem
{
    QString name; ///< as shown, such as "alias = module"
    ParserItemType type = ParserItemType::MelGlobalProc;
    int position = 0; ///< UTF-16 offset of the name
    int level = 0; ///< depth of the blocks around it, 0 outside of all
};

Q_DECLARE_TYPEINFO(ParserItem, Q_MOVABLE_TYPE);
