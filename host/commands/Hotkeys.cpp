#include "commands/Hotkeys.h"

#include "commands/Quoting.h"
#include "engine/Engine.h"

#include <QDir>
#include <QFileInfo>
#include <QKeySequence>
#include <QSaveFile>

namespace host::commands {

namespace {

struct KeyRow
{
    const char* name; ///< as scripts write it, in lower case
    Qt::Key key;
};

/// Keys whose names in scripts are not the toolkit's.
const KeyRow KEYS[] = {
    {"page_up", Qt::Key_PageUp},
    {"page_down", Qt::Key_PageDown},
    {"insert", Qt::Key_Insert},
    {"delete", Qt::Key_Delete},
    {"escape", Qt::Key_Escape},
    {"esc", Qt::Key_Escape},
    {"backspace", Qt::Key_Backspace},
};

int KeyFromName(const QString& name)
{
    if (name.size() == 1)
        return name.at(0).toUpper().unicode();
    for (const KeyRow& row : KEYS) {
        if (name.compare(QLatin1String(row.name), Qt::CaseInsensitive) == 0)
            return row.key;
    }
    const QKeySequence sequence = QKeySequence::fromString(name, QKeySequence::PortableText);
    const int key = sequence.count() == 1 ? sequence[0] : Qt::Key_unknown;
    return (key & Qt::KeyboardModifierMask) == 0 ? key : Qt::Key_unknown;
}

bool Write(const QString& path, const QString& text, QString& problem)
{
    QDir().mkpath(QFileInfo(path).path());
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(text.toUtf8()) >= 0 && file.commit())
        return true;
    problem
        = QStringLiteral("Cannot write preferences file \"%1\": %2.").arg(path, file.errorString());
    return false;
}

/// The flags that say again which key it is.
QString KeyFlags(const QString& key)
{
    const int combination = QKeySequence::fromString(key, QKeySequence::PortableText)[0];
    const QString name = QKeySequence(combination & ~int(Qt::KeyboardModifierMask))
                             .toString(QKeySequence::PortableText);
    QString flags
        = QStringLiteral("-keyShortcut %1").arg(Quoted(name.size() == 1 ? name.toLower() : name));
    if (combination & Qt::ControlModifier)
        flags += QLatin1String(" -ctrlModifier on");
    if (combination & Qt::AltModifier)
        flags += QLatin1String(" -altModifier on");
    if (combination & Qt::ShiftModifier)
        flags += QLatin1String(" -shiftModifier on");
    return flags;
}

} // namespace

QString Hotkeys::KeyText(const QString& name, Qt::KeyboardModifiers modifiers)
{
    const int key = KeyFromName(name);
    if (key == Qt::Key_unknown || key == 0)
        return {};
    if (name.size() == 1 && name.at(0).isUpper())
        modifiers |= Qt::ShiftModifier;
    return KeyText(key, modifiers);
}

QString Hotkeys::KeyText(int key, Qt::KeyboardModifiers modifiers)
{
    modifiers &= Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier;
    // Whether "!" needs the Shift key is for the keyboard to say.
    const bool isSign = key > Qt::Key_Space && key < Qt::Key_Escape && !QChar(key).isLetter();
    if (isSign)
        modifiers &= ~Qt::ShiftModifier;
    return QKeySequence(key | int(modifiers)).toString(QKeySequence::PortableText);
}

void Hotkeys::AddCommand(const QString& name, const NamedCommand& command)
{
    m_commands.insert(name, command);
}

void Hotkeys::Set(const QString& key, const Hotkey& hotkey)
{
    if (hotkey.press.isEmpty() && hotkey.release.isEmpty())
        m_keys.remove(key);
    else
        m_keys.insert(key, hotkey);
}

bool Hotkeys::Run(const QString& name) const
{
    const auto found = m_commands.constFind(name);
    if (found != m_commands.constEnd()) {
        const Script command = found->command; // It may redefine itself.
        command.Run();
        return true;
    }
    if (name.isEmpty() || !m_engine.commands.FindCommand(name))
        return false;
    Script{Language::Mel, name, nullptr}.Run();
    return true;
}

QString Hotkeys::CommandsPath() const
{
    return m_engine.paths.PreferencesDirectory() + QLatin1String("/userNamedCommands.mel");
}

QString Hotkeys::KeysPath() const
{
    return m_engine.paths.PreferencesDirectory() + QLatin1String("/userHotkeys.mel");
}

void Hotkeys::Read()
{
    if (!m_engine.mel)
        return;
    m_reading = true;
    for (const QString& path : {CommandsPath(), KeysPath()}) {
        if (!QFileInfo(path).isFile() || !m_engine.mel->RunFile(path).failed)
            continue;
        const QString kept = path + QLatin1String(".unread");
        QFile::remove(kept);
        if (QFile::copy(path, kept))
            m_engine.output.Warning(QStringLiteral("\"%1\" was kept as \"%2\".").arg(path, kept));
    }
    m_reading = false;
}

QString Hotkeys::Save() const
{
    if (m_reading)
        return {};
    QString commands = QStringLiteral("// The commands that hotkeys run\n");
    for (auto it = m_commands.begin(); it != m_commands.end(); ++it) {
        // A Python function has no text that could make it again.
        if (it->command.callable)
            continue;
        const bool isMel = it->command.language == Language::Mel;
        commands
            += QStringLiteral("nameCommand -annotation %1 -sourceType \"%2\" -command %3 %4;\n")
                   .arg(Quoted(it->annotation),
                       isMel ? QLatin1String("mel") : QLatin1String("python"),
                       Quoted(it->command.text), Quoted(it.key()));
    }
    QString keys = QStringLiteral("// The user's hotkeys\n");
    for (auto it = m_keys.begin(); it != m_keys.end(); ++it)
        keys += QStringLiteral("hotkey %1 -name %2 -releaseName %3;\n")
                    .arg(KeyFlags(it.key()), Quoted(it->press), Quoted(it->release));
    QString problem;
    Write(CommandsPath(), commands, problem);
    Write(KeysPath(), keys, problem);
    return problem;
}

} // namespace host::commands
