#pragma once

#include <QString>
#include <QTemporaryDir>

/// A preferences folder of its own and every option at its default, for each test.
class SettingsFixture
{
public:
    SettingsFixture();

    /// "<preferences>/tarnwickEditor2", which does not exist until somebody asks for it.
    QString ConfigDirectory() const;
    QString IniPath() const;
    void WriteIni(const QByteArray& text) const;
    QString ReadIni() const;
    /// The text behind "key=" in the written file; null without the key.
    QString WrittenValue(const QString& key) const;

private:
    QTemporaryDir m_preferences;
};
