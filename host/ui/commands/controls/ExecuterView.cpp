#include "ui/commands/controls/ExecuterView.h"

#include "engine/Engine.h"

#include <QFile>
#include <QKeyEvent>
#include <QPointer>
#include <QSaveFile>
#include <QTextDocumentFragment>

namespace host::ui {

ExecuterView::ExecuterView(QWidget* parent)
    : QPlainTextEdit(parent)
{
    setLineWrapMode(NoWrap);
}

bool ExecuterView::Run(const QString& text)
{
    if (text.trimmed().isEmpty())
        return false;
    return !Engine::Current().Execute(m_language, text, true).failed;
}

void ExecuterView::Execute()
{
    const QPointer<ExecuterView> alive(this);
    const bool wasSelection = textCursor().hasSelection();
    const bool done = Run(wasSelection ? textCursor().selection().toPlainText() : toPlainText());
    if (alive && done && !wasSelection)
        clear();
}

void ExecuterView::ExecuteAll()
{
    Run(toPlainText());
}

QString ExecuterView::Load(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("Cannot read file \"%1\": %2").arg(path, file.errorString());
    setPlainText(QString::fromUtf8(file.readAll()));
    m_fileName = path;
    return {};
}

QString ExecuterView::Save(const QString& path) const
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(toPlainText().toUtf8()) < 0
        || !file.commit())
        return QStringLiteral("Cannot write file \"%1\": %2").arg(path, file.errorString());
    return {};
}

void ExecuterView::keyPressEvent(QKeyEvent* event)
{
    const bool isReturn
        = event->key() == Qt::Key_Return && event->modifiers() == Qt::ControlModifier;
    if (isReturn || event->key() == Qt::Key_Enter)
        Execute();
    else
        QPlainTextEdit::keyPressEvent(event);
}

} // namespace host::ui
