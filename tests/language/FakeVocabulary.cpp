#include "language/FakeVocabulary.h"

#include "plugin/MayaUtil.h"

#include <QThread>

QHash<QString, QStringList> FakeVocabulary::attributes;
int FakeVocabulary::answerTime = 0;
QStringList FakeVocabulary::askedSources;
QStringList FakeVocabulary::askedObjects;
QStringList FakeVocabulary::askedFlags;
QStringList FakeVocabulary::executed;
QStringList FakeVocabulary::failing;

void FakeVocabulary::Reset()
{
    attributes.clear();
    answerTime = 0;
    for (QStringList* asked : {&askedSources, &askedObjects, &askedFlags, &executed, &failing})
        asked->clear();
}

QStringList MayaUtil::MelKeywords()
{
    return {"", "if", "int", "proc", "string", "global", "return"};
}

QStringList MayaUtil::MelCommands()
{
    return {"ls", "polyCube", "if", "", "print"};
}

QStringList MayaUtil::MelRunTimeCommands()
{
    return {"SelectAll"};
}

QStringList MayaUtil::MelProcedures()
{
    return {"source_me", "polyEvaluateAll", "PolyShell", "polyCube"};
}

QStringList MayaUtil::PythonKeywords()
{
    return {"if", "def", "class", "return", "in", "lambda"};
}

QStringList MayaUtil::PythonBuiltins()
{
    return {"open", "len", "self", "in"};
}

QStringList MayaUtil::CommandFlags(const QString& command)
{
    FakeVocabulary::askedFlags += command;
    if (command == "polyCube")
        return {"-w", "-width", "Length", "-ax", "-axis", "Length", "-o", "-object", "on|off"};
    if (command == "ls")
        return {"-l", "-long", "", "", "-cameras", "", "-q", "", "String"};
    return {};
}

void MayaUtil::PythonAttributesFromSource(
    const QString& source, const QString& objectName, QStringList& results, bool)
{
    FakeVocabulary::askedSources += source;
    FakeVocabulary::askedObjects += objectName;
    QThread::msleep(FakeVocabulary::answerTime);
    results = FakeVocabulary::attributes.value(objectName);
}

bool MayaUtil::PythonExecStatement(const QString& statement)
{
    FakeVocabulary::executed += statement;
    return !FakeVocabulary::failing.contains(statement);
}
