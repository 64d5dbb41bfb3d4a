#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// What the quick help makes of names and flags. Free of widgets.
namespace QuickHelpText {

struct Flag
{
    QString longName; ///< without a dash; the short one where there is no other
    QString shortName;
    QString type; ///< of the first argument
};

/// From the host's triples (short name, long name, type): sorted by long name, each once, without
/// the empty ones.
QVector<Flag> Flags(const QStringList& triples);

/// The name that a text is about: its first word's last part, so "polyCube" of "cmds.polyCube(".
QString NameIn(const QString& text);

/// What is put into a script for a flag, behind `before`. A Python argument gets a comma before it
/// unless it is the first one.
QString InsertedText(const QString& longName, bool python, const QString& before);

} // namespace QuickHelpText
