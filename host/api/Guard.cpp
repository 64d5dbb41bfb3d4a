#include "api/Guard.h"

#include "api/CommandRun.h"

namespace host::api {

void ReportException(const QString& who, const QString& what)
{
    const QString text = what.isEmpty()
        ? QStringLiteral("%1: unknown exception").arg(who)
        : QStringLiteral("%1: unhandled exception: %2").arg(who, what);
    ShowMessage(MessageType::Error, text);
}

} // namespace host::api
