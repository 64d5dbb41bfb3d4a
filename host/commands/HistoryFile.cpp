#include "commands/HistoryFile.h"

#include "engine/Engine.h"

namespace host::commands {

HistoryFile::HistoryFile()
{
    Engine& engine = Engine::Current();
    m_file.setFileName(engine.paths.PreferencesDirectory() + QLatin1String("/scriptEditorHistory"));
    m_display = engine.output.AddDisplay([this](const Message& message) { Append(message); });
}

HistoryFile::~HistoryFile()
{
    Engine::Current().output.Remove(m_display);
}

QString HistoryFile::Name() const
{
    const QMutexLocker lock(&m_mutex);
    return m_file.fileName();
}

bool HistoryFile::IsWriting() const
{
    const QMutexLocker lock(&m_mutex);
    return m_file.isOpen();
}

QString HistoryFile::Reopen(bool on)
{
    m_file.close();
    if (!on || m_file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
        return {};
    return QStringLiteral("Cannot write history file \"%1\": %2.")
        .arg(m_file.fileName(), m_file.errorString());
}

QString HistoryFile::SetName(const QString& path)
{
    const QMutexLocker lock(&m_mutex);
    const bool on = m_file.isOpen();
    m_file.close();
    m_file.setFileName(path);
    return Reopen(on);
}

QString HistoryFile::SetWriting(bool on)
{
    const QMutexLocker lock(&m_mutex);
    return Reopen(on);
}

QString HistoryFile::Clear()
{
    const QMutexLocker lock(&m_mutex);
    if (!m_file.exists() || m_file.resize(0))
        return {};
    return QStringLiteral("Cannot clear history file \"%1\": %2.")
        .arg(m_file.fileName(), m_file.errorString());
}

void HistoryFile::Append(const Message& message)
{
    if (Engine::Current().history.IsSuppressed(message.type))
        return;
    const QMutexLocker lock(&m_mutex);
    if (m_file.isOpen())
        m_file.write(FramedText(message).toUtf8());
}

} // namespace host::commands
