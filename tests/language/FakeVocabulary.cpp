#include "plugin/MayaUtil.h"

QStringList MayaUtil::MelKeywords()
{
    return {"", "if", "int", "proc", "string", "global", "return"};
}

QStringList MayaUtil::MelCommands()
{
    return {"ls", "polyCube", "if", ""};
}

QStringList MayaUtil::MelRunTimeCommands()
{
    return {"SelectAll"};
}

QStringList MayaUtil::MelProcedures()
{
    return {"source_me"};
}

QStringList MayaUtil::PythonKeywords()
{
    return {"if", "def", "class", "return", "in", "lambda"};
}

QStringList MayaUtil::PythonBuiltins()
{
    return {"open", "len", "self", "in"};
}
