#pragma once

#include <QString>

#include <exception>

namespace host::api {

/// Shows that `who` threw; `what` may be empty.
void ReportException(const QString& who, const QString& what);

/// Calls into a plug-in. An exception that leaves it is shown as an error and goes no further;
/// false then.
template <typename Function>
bool CallGuarded(const QString& who, const Function& function)
{
    try {
        function();
        return true;
    } catch (const std::exception& exception) {
        ReportException(who, QString::fromUtf8(exception.what()));
    } catch (...) {
        ReportException(who, QString());
    }
    return false;
}

} // namespace host::api
