#pragma once

#include "views/quickhelp/QuickHelpTopic.h"

#include <QStringList>

/// What the quick help makes of names and of the host's answers. Free of widgets.
namespace QuickHelpText {

/// From the host's triples (short name, long name, type): sorted by long name, each once, without
/// the empty ones and what is no flag.
QVector<QuickHelpTopic::Flag> Flags(const QStringList& triples);

/// How a command is called, from the host's help on it; empty when it does not say.
QString Synopsis(const QString& help);

/// The first name in a text, with the parts that dots put before it: "cmds.polyCube" of
/// "cmds.polyCube(". Empty when there is none.
QString DottedNameIn(const QString& text);
/// What a dotted name calls: its last part.
QString LastPart(const QString& dottedName);

/// Where a script defines a procedure.
struct Definition
{
    QString header; ///< "global proc string f(int $a)"; empty when it does not
    int line = 0; ///< from 1
};
Definition DefinitionIn(const QString& script, const QString& procedure);

} // namespace QuickHelpText
