#pragma once

#include <QString>
#include <QVector>

/// The flags of MEL commands as they are typed. Asked of the host once per command.
namespace MelCommandFlags {

struct Name
{
    QString text; ///< with its dash
    QString detail; ///< the flag's other name and the type of its first argument; may be empty
};

/// Short and long names in one order, without regard to case. Empty for what is no command.
const QVector<Name>& Of(const QString& command);

} // namespace MelCommandFlags
