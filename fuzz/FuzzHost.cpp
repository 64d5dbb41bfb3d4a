#include "fuzz/FuzzHost.h"

#include "commands/Commands.h"
#include "fuzz/Fuzz.h"
#include "plugin/MayaUtil.h"
#include "settings/Settings.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

namespace fuzz {

namespace {

/// Not destroyed when a process exits without closing it, as the fuzzer's does: what it needs for
/// that may be gone by then.
FuzzHost* shared = nullptr;

} // namespace

FuzzHost::FuzzHost()
    : m_engine(host::RunState::Batch, m_folder.path())
    , m_mel(m_engine)
    , m_python(m_engine)
{
    host::commands::RegisterCommands(m_engine);
    Expect(
        m_engine.paths.CreateDirectories().isEmpty(), QStringLiteral("there is a place to write"));
    m_engine.output.AddListener([this](const host::Message& message) {
        if (message.type == host::MessageType::Error || message.type == host::MessageType::Warning)
            m_complaints += message.text;
    });
    MayaUtil::SourceApplicationScripts();
    MayaUtil::RefreshCommandList();
}

FuzzHost::~FuzzHost()
{
    host::commands::ReleaseCommands(m_engine);
}

FuzzHost& FuzzHost::Get()
{
    if (!shared)
        shared = new FuzzHost;
    return *shared;
}

void FuzzHost::Close()
{
    delete shared;
    shared = nullptr;
}

QString FuzzHost::PathOf(const QString& name) const
{
    return m_engine.paths.PreferencesDirectory() + QLatin1Char('/') + Settings::PREFS_DIRECTORY_NAME
        + QLatin1Char('/') + name;
}

QString FuzzHost::WriteFile(const QString& name, const QByteArray& contents)
{
    const QString path = PathOf(name);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    Expect(file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size(),
        QStringLiteral("a file can be written"));
    file.flush();
    file.setFileTime(QDateTime::fromSecsSinceEpoch(++m_files), QFileDevice::FileModificationTime);
    return path;
}

QByteArray FuzzHost::ReadFile(const QString& name) const
{
    QFile file(PathOf(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void FuzzHost::RemoveFiles()
{
    QDir(PathOf(QString())).removeRecursively();
}

QStringList FuzzHost::TakeComplaints()
{
    const QStringList complaints = m_complaints;
    m_complaints.clear();
    return complaints;
}

} // namespace fuzz
