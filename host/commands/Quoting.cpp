#include "commands/Quoting.h"

namespace host::commands {

QString Quoted(const QString& text)
{
    QString quoted = text;
    quoted.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    quoted.replace(QLatin1Char('"'), QLatin1String("\\\""));
    quoted.replace(QLatin1Char('\n'), QLatin1String("\\n"));
    quoted.replace(QLatin1Char('\r'), QLatin1String("\\r"));
    quoted.replace(QLatin1Char('\t'), QLatin1String("\\t"));
    return QLatin1Char('"') + quoted + QLatin1Char('"');
}

} // namespace host::commands
