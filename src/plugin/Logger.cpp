#include "plugin/Logger.h"

#include "plugin/MayaUtil.h"
#include "settings/Settings.h"

#include <maya/MGlobal.h>

namespace {

QString Prefixed(const QString& text)
{
    return QStringLiteral("[%1] %2").arg(Settings::APPLICATION_NAME, text);
}

#ifndef QT_NO_DEBUG
const QString DEBUG_PREFIX = QStringLiteral("[DEBUG] ");
#endif

} // namespace

void Logger::Info(const QString& text)
{
    MGlobal::displayInfo(MayaUtil::ToMString(Prefixed(text)));
}

void Logger::Info(const MString& text)
{
    Info(MayaUtil::ToQString(text));
}

void Logger::Info(const char* text)
{
    Info(QString::fromUtf8(text));
}

void Logger::Warning(const QString& text)
{
    MGlobal::displayWarning(MayaUtil::ToMString(Prefixed(text)));
}

void Logger::Warning(const MString& text)
{
    Warning(MayaUtil::ToQString(text));
}

void Logger::Warning(const char* text)
{
    Warning(QString::fromUtf8(text));
}

void Logger::Error(const QString& text)
{
    MGlobal::displayError(MayaUtil::ToMString(Prefixed(text)));
}

void Logger::Error(const MString& text)
{
    Error(MayaUtil::ToQString(text));
}

void Logger::Error(const char* text)
{
    Error(QString::fromUtf8(text));
}

void Logger::Debug(const QString& text)
{
#ifdef QT_NO_DEBUG
    Q_UNUSED(text)
#else
    Info(DEBUG_PREFIX + text);
#endif
}
