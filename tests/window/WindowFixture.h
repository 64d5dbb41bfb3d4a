#pragma once

#include "app/Host.h"

#include <QStringList>
#include <QTemporaryDir>

#include <memory>

/// A whole host with the plug-in's helpers loaded and fresh preferences. One per process.
class WindowFixture
{
public:
    WindowFixture();
    ~WindowFixture();

    host::Engine& GetEngine() { return m_host->GetEngine(); }
    /// The texts of one type that the host printed since the last call.
    QStringList TakeMessages(host::MessageType type);
    /// Runs what waits in the host's idle queue.
    void RunIdle();

private:
    QTemporaryDir m_directory;
    std::unique_ptr<host::Host> m_host;
    QVector<host::Message> m_messages;
};
