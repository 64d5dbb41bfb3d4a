#include "ui/window/CommandReference.h"

#include "engine/Engine.h"

#include <QFontDatabase>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QVBoxLayout>

namespace host::ui {

namespace {

const QSize FIRST_SIZE(760, 520);
constexpr int LIST_WIDTH = 220;

} // namespace

CommandReference::CommandReference(Engine& engine, QWidget* parent)
    : QDialog(parent)
    , m_engine(engine)
    , m_filter(new QLineEdit(this))
    , m_names(new QListWidget)
    , m_text(new QPlainTextEdit)
{
    setObjectName(QStringLiteral("commandReference"));
    setWindowTitle(tr("Command Reference"));
    resize(FIRST_SIZE);
    m_filter->setObjectName(QStringLiteral("commandReferenceFilter"));
    m_filter->setPlaceholderText(tr("Filter by name"));
    m_filter->setClearButtonEnabled(true);
    m_names->setUniformItemSizes(true);
    m_names->setAccessibleName(tr("Commands"));
    m_text->setReadOnly(true);
    m_text->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_text->setAccessibleName(tr("Help"));
    auto* splitter = new QSplitter(this);
    splitter->addWidget(m_names);
    splitter->addWidget(m_text);
    splitter->setSizes({LIST_WIDTH, FIRST_SIZE.width() - LIST_WIDTH});
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_filter);
    layout->addWidget(splitter, 1);
    connect(m_filter, &QLineEdit::textChanged, this, &CommandReference::UpdateNames);
    connect(m_names, &QListWidget::currentRowChanged, this, &CommandReference::ShowHelp);
}

void CommandReference::showEvent(QShowEvent* event)
{
    // Plug-ins add commands at any time.
    UpdateNames();
    m_filter->setFocus();
    QDialog::showEvent(event);
}

void CommandReference::UpdateNames()
{
    const QString wanted = m_filter->text().trimmed();
    const QListWidgetItem* item = m_names->currentItem();
    const QString chosen = item ? item->text() : QString();
    m_names->clear();
    for (const QString& name : m_engine.commands.Names()) {
        if (!name.contains(wanted, Qt::CaseInsensitive))
            continue;
        m_names->addItem(name);
        if (name == chosen)
            m_names->setCurrentRow(m_names->count() - 1);
    }
    if (!m_names->currentItem())
        m_names->setCurrentRow(0);
}

void CommandReference::ShowHelp()
{
    const QListWidgetItem* item = m_names->currentItem();
    if (!item) {
        m_text->clear();
        return;
    }
    m_text->setPlainText(HelpFor(item->text()));
}

QString CommandReference::HelpFor(const QString& name)
{
    if (const Function* function = m_engine.commands.FindFunction(name))
        return function->signature;
    const auto command = m_engine.commands.FindCommand(name);
    if (!command)
        return {};
    if (command->GetOrigin() == CommandOrigin::RunTime)
        return tr("%1\n\nA run-time command; it takes no arguments.").arg(name);
    return m_engine.Execute(Language::Mel, QStringLiteral("help \"%1\"").arg(name), false)
        .value.ToText();
}

} // namespace host::ui
