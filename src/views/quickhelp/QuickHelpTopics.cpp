#include "views/quickhelp/QuickHelpTopics.h"

#include "language/PythonCompletion.h"
#include "plugin/MayaUtil.h"
#include "plugin/MelText.h"
#include "views/quickhelp/QuickHelpText.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>

namespace {

constexpr int PATIENCE = 150; // ms
/// Characters that the host reads within a moment.
constexpr int LONGEST_SOURCE = 150000;
constexpr qint64 LARGEST_SCRIPT = 4 << 20; // bytes

using Kind = QuickHelpTopic::Kind;

/// The places of an answer about a Python name.
enum PythonPart { KindPart, SignaturePart, TextPart, FilePart, LinePart, ModulePart, PartCount };

/// Whether the script itself seems to say what the name stands for, other than by an import.
bool Defines(const QString& text, const QString& name)
{
    if (name == QLatin1String("self") || name == QLatin1String("cls"))
        return true;
    const QRegularExpression definition(QStringLiteral(
        "\\b(?:def|class|for)\\s+%1\\b|\\b%1\\s*(?::[^=\n]*)?=(?!=)|\\bas\\s+%1\\s*:")
                                            .arg(QRegularExpression::escape(name)));
    return definition.match(text).hasMatch();
}

/// What the host has to read to know the name. A whole script takes it a while, so of one that only
/// imports the name, and of one that is very long, just the lines that import.
QString SourceFor(const QString& dottedName, const QString& text)
{
    if (text.size() <= LONGEST_SOURCE && Defines(text, dottedName.section(QLatin1Char('.'), 0, 0)))
        return text;
    QStringList imports;
    for (const QString& line : text.split(QLatin1Char('\n'))) {
        const QString statement = line.trimmed();
        if (statement.startsWith(QLatin1String("import "))
            || statement.startsWith(QLatin1String("from ")))
            imports += statement;
    }
    return imports.join(QLatin1Char('\n'));
}

} // namespace

bool QuickHelpTopics::PythonAnswer::IsForeignToHost() const
{
    const QString package = module.section(QLatin1Char('.'), 0, 0);
    return topic.IsKnown() && topic.pythonKind != QLatin1String("instance") && !package.isEmpty()
        && package != QLatin1String("maya") && package != QLatin1String("pymel");
}

QuickHelpTopic QuickHelpTopics::FindListed(const QString& name)
{
    const auto known = m_listed.constFind(name);
    if (known != m_listed.constEnd() || name.isEmpty())
        return m_listed.value(name);
    const struct
    {
        QStringList names;
        QuickHelpTopic (*ask)(const QString& name);
    } LISTS[] = {
        {MayaUtil::MelCommands(), AskCommand},
        {MayaUtil::MelRunTimeCommands(), AskRunTimeCommand},
        {MayaUtil::MelProcedures(), AskProcedure},
    };
    for (const auto& list : LISTS) {
        if (!list.names.contains(name))
            continue;
        // Beforehand: an answer that never comes is not asked for again.
        m_listed.insert(name, {});
        m_listed.insert(name, list.ask(name));
        break;
    }
    return m_listed.value(name);
}

QuickHelpTopic QuickHelpTopics::Find(const QString& dottedName, const Script& script)
{
    const QString name = QuickHelpText::LastPart(dottedName);
    if (name.isEmpty())
        return {};
    PythonAnswer python;
    if (script.language == CodeEditorLanguage::Python) {
        python = FindPython(dottedName, script);
        if (python.IsForeignToHost())
            return python.topic;
    }
    const QuickHelpTopic listed = FindListed(name);
    if (listed.IsKnown())
        return listed;
    return python.topic.IsKnown() ? python.topic : AskHost(name);
}

QuickHelpTopic QuickHelpTopics::AskCommand(const QString& name)
{
    const QString help = MayaUtil::CommandHelp(name);
    QuickHelpTopic topic;
    topic.kind = Kind::Command;
    topic.name = name;
    topic.synopsis = QuickHelpText::Synopsis(help);
    topic.flags = QuickHelpText::Flags(MelText::FlagsOfHelp(help));
    return topic;
}

QuickHelpTopic QuickHelpTopics::AskRunTimeCommand(const QString& name)
{
    QuickHelpTopic topic;
    topic.kind = Kind::RunTimeCommand;
    topic.name = name;
    MayaUtil::RunTimeCommandHelp(name, topic.text, topic.script);
    return topic;
}

QuickHelpTopic QuickHelpTopics::AskProcedure(const QString& name)
{
    const QString kind = MayaUtil::WhatIs(name);
    QuickHelpTopic topic;
    topic.name = name;
    topic.kind = Kind::Procedure;
    if (!kind.contains(QLatin1String("found in:"))) {
        topic.text = QCoreApplication::translate("QuickHelpView", "Entered in this session.");
        return topic;
    }
    topic.file = kind.section(QLatin1String("found in:"), 1).trimmed();
    QFile file(topic.file);
    if (file.size() <= LARGEST_SCRIPT && file.open(QIODevice::ReadOnly)) {
        const auto definition
            = QuickHelpText::DefinitionIn(QString::fromUtf8(file.readAll()), name);
        topic.synopsis = definition.header;
        topic.line = definition.line;
    }
    return topic;
}

/// For names that came after the vocabulary was taken.
QuickHelpTopic QuickHelpTopics::AskHost(const QString& name)
{
    const QString kind = MayaUtil::WhatIs(name);
    if (kind == QLatin1String("Command"))
        return AskCommand(name);
    if (kind == QLatin1String("Run Time Command"))
        return AskRunTimeCommand(name);
    if (kind.startsWith(QLatin1String("Mel procedure"))
        || kind.startsWith(QLatin1String("Script found in:")))
        return AskProcedure(name);
    return {};
}

QuickHelpTopics::PythonAnswer QuickHelpTopics::FindPython(
    const QString& dottedName, const Script& script)
{
    const auto slow = m_slow.constFind(dottedName);
    if (slow != m_slow.constEnd())
        return *slow;
    const QString key
        = QStringLiteral("%1 %2 %3")
              .arg(dottedName, QString::number(script.line), QString::number(qHash(script.text)));
    const auto known = m_python.constFind(key);
    if (known != m_python.constEnd())
        return *known;
    m_slow.insert(dottedName, {});
    QElapsedTimer age;
    age.start();
    const PythonAnswer answer = AskPython(dottedName, script);
    if (age.hasExpired(PATIENCE)) {
        m_slow.insert(dottedName, answer);
    } else {
        m_slow.remove(dottedName);
        // What is unknown may be imported before the next time.
        if (answer.topic.IsKnown())
            m_python.insert(key, answer);
    }
    return answer;
}

QuickHelpTopics::PythonAnswer QuickHelpTopics::AskPython(
    const QString& dottedName, const Script& script)
{
    QStringList parts;
    MayaUtil::PythonNameHelp(PythonCompletion::EscapedForPython(SourceFor(dottedName, script.text)),
        dottedName, script.line, parts);
    if (parts.size() != PartCount)
        return {};
    PythonAnswer answer;
    answer.module = parts[ModulePart];
    answer.topic.kind = Kind::Python;
    answer.topic.name = dottedName;
    answer.topic.pythonKind = parts[KindPart];
    answer.topic.synopsis = parts[SignaturePart];
    answer.topic.text = parts[TextPart];
    answer.topic.file = parts[FilePart];
    answer.topic.line = parts[LinePart].toInt();
    return answer;
}
