#include "files/GuestTabs.h"

#include "files/SafeFile.h"
#include "files/StaleLock.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QLockFile>

namespace {

const QString SUFFIX = QStringLiteral(".tabs");

QString LockPath(const QString& path)
{
    return path + QStringLiteral(".lock");
}

} // namespace

const QString GuestTabs::FOLDER_NAME = QStringLiteral("sessions");

GuestTabs::GuestTabs(const QString& configurationFolder)
    : m_folder(QStringLiteral("%1/%2").arg(configurationFolder, FOLDER_NAME))
{ }

GuestTabs::~GuestTabs()
{
    m_lock.reset();
    QDir().rmdir(m_folder); // only when it is empty
}

bool GuestTabs::Lock()
{
    m_lock = std::make_unique<QLockFile>(LockPath(m_path));
    m_lock->setStaleLockTime(0);
    return TakeOverLock(*m_lock);
}

std::vector<std::unique_ptr<GuestTabs>> GuestTabs::Claim(const QString& configurationFolder)
{
    std::vector<std::unique_ptr<GuestTabs>> claimed;
    const QDir folder(QStringLiteral("%1/%2").arg(configurationFolder, FOLDER_NAME));
    const QStringList names
        = folder.entryList({QLatin1Char('*') + SUFFIX}, QDir::Files, QDir::Time | QDir::Reversed);
    for (const QString& name : names) {
        auto tabs = std::make_unique<GuestTabs>(configurationFolder);
        tabs->m_path = folder.filePath(name);
        // Somebody else may have been faster.
        if (tabs->Lock() && QFile::exists(tabs->m_path))
            claimed.push_back(std::move(tabs));
    }
    return claimed;
}

QStringList GuestTabs::Read() const
{
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

bool GuestTabs::Write(const QStringList& records)
{
    if (records.isEmpty())
        return m_path.isEmpty() || !QFile::exists(m_path) || QFile::remove(m_path);
    QDir().mkpath(m_folder);
    if (m_path.isEmpty()) {
        const QString path = QStringLiteral("%1/%2-%3%4")
                                 .arg(m_folder, QString::number(QCoreApplication::applicationPid()),
                                     QString::number(QDateTime::currentMSecsSinceEpoch()), SUFFIX);
        m_path = path;
        if (!Lock()) {
            m_path.clear();
            return false;
        }
    }
    QString reason;
    return SafeFile::Write(
        m_path, (records.join(QLatin1Char('\n')) + QLatin1Char('\n')).toUtf8(), reason);
}
