#pragma once

#include "editor/CodeEditorProperties.h"
#include "views/quickhelp/QuickHelpTopic.h"

#include <QHash>
#include <QStringList>

/// Finds what there is to know of names, by asking the host. What it said of a command stays for
/// the session; so does any answer that took long, as asking again would hold everything up again.
/// Owned by the quick help; interface thread only.
class QuickHelpTopics
{
public:
    /// What a name stands in.
    struct Script
    {
        CodeEditorLanguage language = CodeEditorLanguage::Mel;
        QString text;
        int line = 0; ///< of the name, from 1; 0 when it stands elsewhere
    };

    /// Only of names that the host's vocabulary lists, which costs little.
    QuickHelpTopic FindListed(const QString& name);
    /// Whatever can be found out. In Python a dotted name may be a part of the script or of a
    /// loaded module; the host's commands are known by its last part.
    QuickHelpTopic Find(const QString& dottedName, const Script& script);

private:
    struct PythonAnswer
    {
        QuickHelpTopic topic;
        QString module;

        /// Not one of the host's commands under its Python name, nor a mere object.
        bool IsForeignToHost() const;
    };

    static QuickHelpTopic AskCommand(const QString& name);
    static QuickHelpTopic AskRunTimeCommand(const QString& name);
    static QuickHelpTopic AskProcedure(const QString& name);
    static QuickHelpTopic AskHost(const QString& name);
    static PythonAnswer AskPython(const QString& dottedName, const Script& script);
    PythonAnswer FindPython(const QString& dottedName, const Script& script);

    QHash<QString, QuickHelpTopic> m_listed;
    QHash<QString, PythonAnswer> m_python; ///< by name and script
    QHash<QString, PythonAnswer> m_slow; ///< by name, whatever the script
};
