// A vocabulary of the size that the host has, for the folders that are measured without a host.

#include "plugin/MayaUtil.h"

namespace {

constexpr int COMMANDS = 1500;
constexpr int PROCEDURES = 18000;

QStringList MadeUp(const QString& pattern, int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i)
        names.append(pattern.arg(i));
    return names;
}

} // namespace

QStringList MayaUtil::MelKeywords()
{
    return QStringLiteral("break case continue default do else false float for global if in int "
                          "matrix no off on proc return string switch true vector while yes")
        .split(' ');
}

QStringList MayaUtil::MelCommands()
{
    return MadeUp(QStringLiteral("polyCommand%1"), COMMANDS)
        + QStringList{"ls", "select", "print", "getAttr", "setAttr", "window", "button"};
}

QStringList MayaUtil::MelRunTimeCommands()
{
    return MadeUp(QStringLiteral("RunTime%1"), COMMANDS);
}

QStringList MayaUtil::MelProcedures()
{
    return MadeUp(QStringLiteral("someProcedure%1"), PROCEDURES);
}

QStringList MayaUtil::PythonKeywords()
{
    return QStringLiteral("False None True and as assert async await break class continue def del "
                          "elif else except finally for from global if import in is lambda "
                          "nonlocal not or pass raise return try while with yield")
        .split(' ');
}

QStringList MayaUtil::PythonBuiltins()
{
    return MadeUp(QStringLiteral("SomeError%1"), 120)
        + QStringList{"print", "len", "open", "range", "str", "int", "list", "dict", "super"};
}

QStringList MayaUtil::CommandFlags(const QString& /*command*/)
{
    return {};
}

void MayaUtil::PythonAttributesFromSource(const QString& /*source*/, const QString& /*objectName*/,
    QStringList& results, bool /*keywordsAndBuiltins*/)
{
    results.clear();
}

bool MayaUtil::PythonExecStatement(const QString& /*statement*/)
{
    return true;
}
