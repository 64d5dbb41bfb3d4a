#include "Typist.h"

#include "../EditorTabs.h"

#include <maya/MGlobal.h>
#include <maya/MString.h>

#include <QAbstractButton>
#include <QAction>
#include <QCryptographicHash>
#include <QFile>
#include <QMessageBox>
#include <QTextBlock>

#include <fcntl.h>
#include <time.h>
#include <unistd.h>

using EditorTabs::Editors;
using EditorTabs::LabelOf;

namespace {

const char* const FILES[] = {"a.py", "b.mel", "c.txt", "d.txt"};
constexpr int STEP = 2; // ms
constexpr int LINE_LENGTH = 12;
constexpr int LINES_AT_MOST = 60; ///< typed into one editor

QPlainTextEdit* EditorOf(const QString& label)
{
    for (QPlainTextEdit* editor : Editors()) {
        if (LabelOf(editor) == label)
            return editor;
    }
    return nullptr;
}

QWidget* WidgetNamed(const char* name)
{
    for (QWidget* widget : QApplication::allWidgets()) {
        if (widget->objectName() == QLatin1String(name))
            return widget;
    }
    return nullptr;
}

qint64 Now()
{
    timespec now = {};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return qint64(now.tv_sec) * 1000 + now.tv_nsec / 1000000;
}

} // namespace

Typist::Typist(const QString& folder, int seed)
    : m_folder(folder)
    , m_random(static_cast<unsigned>(seed))
    , m_counter(seed * 100000)
{
    const QByteArray path = QFile::encodeName(folder + "/journal");
    m_journal = ::open(path.constData(), O_WRONLY | O_APPEND | O_CLOEXEC);
    if (m_journal < 0)
        qFatal("no journal");
    m_timer.setInterval(STEP);
    connect(&m_timer, &QTimer::timeout, this, &Typist::Begin);
    m_timer.start();
    // A timer does not come again before its slot has returned.
    m_answerTimer.setInterval(STEP);
    connect(&m_answerTimer, &QTimer::timeout, this, &Typist::AnswerQuestion);
    m_answerTimer.start();
}

void Typist::Note(const QString& what)
{
    const QByteArray line = QStringLiteral("%1 %2\n").arg(QString::number(Now()), what).toUtf8();
    if (::write(m_journal, line.constData(), static_cast<size_t>(line.size())) != line.size())
        qFatal("no room for the journal");
}

void Typist::NoteText(const QString& what, const QPlainTextEdit* editor)
{
    const QByteArray text = editor->toPlainText().toUtf8();
    const QByteArray hash = QCryptographicHash::hash(text, QCryptographicHash::Sha1).toHex();
    Note(QStringLiteral("%1 %2 %3").arg(what, LabelOf(editor), QString::fromLatin1(hash)));
}

/// Waits for the window, has unsaved text restored and tells what is there then.
void Typist::Begin()
{
    const QList<QPlainTextEdit*> editors = Editors();
    if (editors.isEmpty() || !editors.first()->window()->isVisible())
        return;
    m_timer.stop();
    if (auto* restore = qobject_cast<QAbstractButton*>(WidgetNamed("m_restoreButton")))
        restore->click();
    OpenFiles();
    for (const QPlainTextEdit* editor : Editors())
        NoteText("found", editor);
    QPlainTextEdit* const buffer = EditorOf("Python");
    if (buffer && buffer->toPlainText().isEmpty()) {
        buffer->insertPlainText("import time\nopen('" + m_folder
            + "/journal', 'a').write('%d ran\\n' % (time.monotonic() * 1000))\n");
        NoteText("text", buffer);
    }
    Note("ready");
    disconnect(&m_timer, nullptr, this, nullptr);
    connect(&m_timer, &QTimer::timeout, this, &Typist::Work);
    m_timer.start();
}

void Typist::OpenFiles()
{
    for (const char* file : FILES) {
        if (EditorOf(file))
            continue;
        const QString command
            = QStringLiteral("tarnwickEditor2 -openFile \"%1/%2\"").arg(m_folder, file);
        MGlobal::executeCommand(MString(command.toUtf8().constData()));
    }
}

void Typist::Work()
{
    if (!m_editor)
        ChooseEditor();
    else if (m_line.isEmpty())
        EndLine();
    else
        TypeNext();
}

void Typist::TypeNext()
{
    const QString character = m_line.left(1);
    m_line.remove(0, 1);
    if (character == "\n")
        QTest::keyClick(m_editor, Qt::Key_Return);
    else
        QTest::keyClicks(m_editor, character);
    NoteText("text", m_editor);
}

void Typist::EndLine()
{
    const int choice = Below(100);
    if (choice < 20)
        ChooseEditor();
    else if (choice < 32)
        Save();
    else if (choice < 44)
        Execute();
    else if (choice < 48)
        CloseAndOpen();
    if (!m_editor)
        return;
    // Scripts stay as they begin, so that they can run.
    QTextCursor cursor = m_editor->textCursor();
    cursor.movePosition(QTextCursor::End);
    if (LabelOf(m_editor).endsWith(".txt"))
        cursor.setPosition(
            m_editor->document()->findBlockByNumber(Below(m_editor->blockCount())).position());
    else if (m_editor->blockCount() > LINES_AT_MOST)
        cursor.setPosition(
            m_editor->document()->findBlockByNumber(3).position(), QTextCursor::KeepAnchor);
    m_editor->setTextCursor(cursor);
    m_line = QStringLiteral("x%1 = %2").arg(++m_counter).arg(Below(100)).left(LINE_LENGTH);
    m_line += '\n';
}

void Typist::ChooseEditor()
{
    const QList<QPlainTextEdit*> editors = Editors();
    GoTo(editors.value(Below(editors.size())));
}

void Typist::GoTo(QPlainTextEdit* wanted)
{
    EditorTabs::GoTo(wanted);
    // After a question the window may not be active again yet.
    m_editor = QApplication::focusWidget() == wanted ? wanted : nullptr;
}

void Typist::Save()
{
    if (!LabelOf(m_editor).contains('.'))
        return; // a buffer would ask for a name
    NoteText("saving", m_editor);
    Trigger("Save");
    NoteText("saved", m_editor);
}

void Typist::Execute()
{
    // The script of the buffer tells the journal that it ran.
    if (QPlainTextEdit* const buffer = Below(2) == 0 ? EditorOf("Python") : nullptr)
        GoTo(buffer);
    else
        ChooseEditor();
    if (m_editor)
        QTest::keyClick(m_editor, Qt::Key_Return, Qt::ControlModifier);
}

void Typist::CloseAndOpen()
{
    if (!LabelOf(m_editor).contains('.'))
        return;
    const QString label = LabelOf(m_editor);
    NoteText("saving", m_editor);
    Note("closing " + label);
    m_editor = nullptr;
    Trigger("Close File");
    OpenFiles();
    if (const QPlainTextEdit* editor = EditorOf(label))
        NoteText("opened", editor);
    ChooseEditor();
}

void Typist::AnswerQuestion()
{
    auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box)
        box->button(Below(2) == 0 ? QMessageBox::Yes : QMessageBox::No)->click();
}

void Typist::Trigger(const QString& text)
{
    for (QWidget* widget : QApplication::allWidgets()) {
        for (QAction* action : widget->actions()) {
            if (action->text() == text && action->isEnabled()) {
                action->trigger();
                return;
            }
        }
    }
    qFatal("no action %s", qPrintable(text));
}
