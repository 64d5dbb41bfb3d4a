#pragma once

#include "engine/Engine.h"
#include "mel/MelLanguage.h"
#include "python/PythonLanguage.h"

#include <QTemporaryDir>

#include <memory>

namespace fuzz {

/// What the product asks for while it reads: a host without windows, with its vocabulary and with
/// preferences of its own in a folder that goes with it. One per process.
class FuzzHost
{
public:
    ~FuzzHost();

    /// Made by the first call.
    static FuzzHost& Get();
    /// Before the application goes; harmless without a host.
    static void Close();

    /// Puts a file among the product's preferences, in the place of any other; its path. Each is
    /// later than those before, so that nobody takes it for known.
    QString WriteFile(const QString& name, const QByteArray& contents);
    QByteArray ReadFile(const QString& name) const;
    /// Empties the folder of the product's preferences.
    void RemoveFiles();
    /// The errors and warnings that were shown since the last call.
    QStringList TakeComplaints();

private:
    FuzzHost();
    QString PathOf(const QString& name) const;

    QTemporaryDir m_folder;
    host::Engine m_engine;
    host::mel::MelLanguage m_mel;
    host::python::PythonLanguage m_python;
    QStringList m_complaints;
    int m_files = 0;
};

} // namespace fuzz
