#include "settings/FakeHost.h"

#include "plugin/Logger.h"
#include "plugin/MayaUtil.h"

QString FakeHost::prefsDirectory;
QString FakeHost::version;
QStringList FakeHost::errors;
QStringList FakeHost::warnings;

QString MayaUtil::GetMayaPrefsDirectory()
{
    return FakeHost::prefsDirectory;
}

QString MayaUtil::GetMayaVersionString()
{
    return FakeHost::version;
}

void Logger::Error(const QString& text)
{
    FakeHost::errors += text;
}

void Logger::Error(const char* text)
{
    Error(QString::fromUtf8(text));
}

void Logger::Warning(const QString& text)
{
    FakeHost::warnings += text;
}

void Logger::Info(const QString& /*text*/) { }
