#include "settings/SettingsFixture.h"

#include "settings/FakeHost.h"
#include "settings/Settings.h"

#include <QDir>
#include <QFile>

SettingsFixture::SettingsFixture()
{
    FakeHost::prefsDirectory = m_preferences.path() + '/';
    FakeHost::version = "2024";
    FakeHost::errors.clear();
    FakeHost::warnings.clear();
    Settings::ResetToDefaults();
}

QString SettingsFixture::ConfigDirectory() const
{
    return m_preferences.path() + "/tarnwickEditor2";
}

QString SettingsFixture::IniPath() const
{
    return ConfigDirectory() + "/tarnwickEditor2.ini";
}

void SettingsFixture::WriteIni(const QByteArray& text) const
{
    QDir().mkpath(ConfigDirectory());
    QFile file(IniPath());
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
}

QString SettingsFixture::ReadIni() const
{
    QFile file(IniPath());
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString SettingsFixture::WrittenValue(const QString& key) const
{
    for (const QString& line : ReadIni().split('\n')) {
        if (line.startsWith(key + '='))
            return line.mid(key.size() + 1);
    }
    return QString();
}
