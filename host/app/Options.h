#pragma once

#include <QStringList>
#include <QVector>

#include <optional>

namespace host {

/// Something to run after the start, in the order of the command line.
struct StartTask
{
    enum class Kind { Mel, Python, File };

    Kind kind = Kind::Mel;
    QString text; ///< the script, or the path of a file
};

/// What the command line asks for.
struct Options
{
    bool batch = false;
    bool help = false;
    bool loadsPlugins = true;
    QString preferencesFolder; ///< empty: as the environment says
    double scale = 1.0; ///< of the interface, upon what the screen asks for
    QString screenshot; ///< path of the picture to write; empty for none
    QVector<StartTask> tasks;

    /// Whether the host shows the editor by itself: only when nothing else was asked for.
    bool OpensEditor() const { return !batch && tasks.isEmpty(); }
};

/// The options, or nothing and an `error` text. The first argument is the program's name.
std::optional<Options> ReadOptions(const QStringList& arguments, QString& error);

/// What `-help` prints.
QString UsageText();

} // namespace host
