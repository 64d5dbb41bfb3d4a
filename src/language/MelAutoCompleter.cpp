#include "language/MelAutoCompleter.h"

#include "language/MelCommandFlags.h"
#include "language/MelStatement.h"
#include "language/PrefixFilterModel.h"
#include "plugin/MayaUtil.h"

#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QSet>
#include <QStandardItemModel>
#include <QTextBlock>

namespace {

constexpr int MAXIMUM_STATEMENT_LINES = 50;

bool HasFlags(const QString& command)
{
    return !command.isEmpty() && !MelCommandFlags::Of(command).isEmpty();
}

/// Back to a line that most likely ends a statement.
QString TextOfStatementBefore(const QTextCursor& cursor)
{
    QTextBlock block = cursor.block();
    QString text = block.text().left(cursor.positionInBlock());
    for (int i = 0; i < MAXIMUM_STATEMENT_LINES; ++i) {
        block = block.previous();
        const QString line = block.text();
        const QString trimmed = line.trimmed();
        if (!block.isValid() || trimmed.endsWith(QLatin1Char(';'))
            || trimmed.endsWith(QLatin1Char('{')) || trimmed.endsWith(QLatin1Char('}')))
            break;
        text.prepend(line + QLatin1Char('\n'));
    }
    return text;
}

} // namespace

std::unique_ptr<QStandardItemModel> MelAutoCompleter::sMelCommandItemModel;
std::unique_ptr<PrefixFilterModel> MelAutoCompleter::sMelCommandProxyModel;

MelAutoCompleter::MelAutoCompleter(QPlainTextEdit* editor)
    : AutoCompleter(editor)
{
    Initialize();
}

void MelAutoCompleter::UpdateModel()
{
    if (!sMelCommandItemModel) {
        const QString command = QStringLiteral("mel_command");
        const QString procedure = QStringLiteral("mel_global_proc");
        const struct
        {
            QStringList names;
            QString iconName;
        } KINDS[] = {
            {MayaUtil::MelKeywords(), QStringLiteral("lang_mel")},
            {MayaUtil::MelCommands(), command},
            {MayaUtil::MelRunTimeCommands(), command},
            {MayaUtil::MelProcedures(), procedure},
        };
        sMelCommandItemModel = std::make_unique<QStandardItemModel>();
        QList<QStandardItem*> rows;
        QSet<QString> seen{QString()};
        for (const auto& kind : KINDS) {
            for (const QString& name : kind.names) {
                const int known = seen.size();
                seen.insert(name);
                if (seen.size() > known)
                    rows.append(MakeRow(name, kind.iconName));
            }
        }
        sMelCommandItemModel->appendColumn(rows);
        sMelCommandProxyModel = std::make_unique<PrefixFilterModel>();
        sMelCommandProxyModel->setSortCaseSensitivity(Qt::CaseSensitive);
        sMelCommandProxyModel->setSourceModel(sMelCommandItemModel.get());
    }
    SetFilterModel(sMelCommandProxyModel.get());
}

bool MelAutoCompleter::ValidateAndSetPrefix(const QTextCursor& cursor)
{
    if (SetFlagPrefix(cursor))
        return true;
    m_command.clear();
    SetFilterModel(sMelCommandProxyModel.get());
    return AutoCompleter::ValidateAndSetPrefix(cursor);
}

/// Whether a flag is being typed of a command whose flags are known.
bool MelAutoCompleter::SetFlagPrefix(const QTextCursor& cursor)
{
    static const QRegularExpression FLAG(QStringLiteral("(?:^|\\s)(-[a-zA-Z0-9_]*)\\z"));
    const QRegularExpressionMatch match
        = FLAG.match(cursor.block().text().left(cursor.positionInBlock()));
    if (!match.hasMatch())
        return false;
    QTextCursor start = cursor;
    start.setPosition(cursor.position() - match.capturedLength(1));
    // The line before may lack its semicolon still: a command on the line itself comes first.
    QString command
        = MelStatement::CommandBefore(start.block().text().left(start.positionInBlock()));
    if (!HasFlags(command))
        command = MelStatement::CommandBefore(TextOfStatementBefore(start));
    if (!HasFlags(command))
        return false;
    m_command = command;
    UpdateFlagModel(command);
    SetFilterModel(m_flagProxyModel);
    SetPrefix(match.captured(1));
    return true;
}

void MelAutoCompleter::UpdateFlagModel(const QString& command)
{
    if (command == m_flagModelCommand)
        return;
    if (!m_flagItemModel) {
        m_flagItemModel = new QStandardItemModel(this);
        m_flagProxyModel = new PrefixFilterModel(this);
        m_flagProxyModel->setSourceModel(m_flagItemModel);
    }
    m_flagModelCommand = command;
    m_flagItemModel->clear();
    QList<QStandardItem*> rows;
    for (const MelCommandFlags::Name& flag : MelCommandFlags::Of(command))
        rows.append(MakeRow(flag.text, QStringLiteral("mel_command"), flag.detail));
    m_flagItemModel->appendColumn(rows);
}

QString MelAutoCompleter::GetHelpName() const
{
    return m_command.isEmpty() ? AutoCompleter::GetHelpName() : m_command;
}
