#include "window/FilesFixture.h"

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "settings/Settings.h"

#include <QtTest>

FilesFixture::FilesFixture()
    : m_host(std::make_unique<WindowFixture>())
{ }

FilesFixture::~FilesFixture() = default;

void FilesFixture::Start()
{
    Settings::ResetToDefaults();
    m_folder = std::make_unique<QTemporaryDir>();
    // Every window reads it all, and shows what the windows of the tests before had printed.
    m_host->GetEngine().history.Clear();
    CreateWindow();
    m_window->CloseAllFiles();
    TakeErrors();
}

bool FilesFixture::Finish()
{
    const bool allAnswered = m_dialogs.CountWaiting() == 0;
    m_dialogs.Take();
    DeleteWindow();
    QDir(Settings::GetInternalBufferDirectoryPath()).removeRecursively();
    QDir(Settings::GetUserConfigDirectory() + "/recovery").removeRecursively();
    m_host->RunIdle();
    return allAnswered;
}

void FilesFixture::CreateWindow()
{
    m_frame = std::make_unique<QMainWindow>();
    m_window = new TarnwickEditor;
    m_frame->setCentralWidget(m_window);
    m_frame->resize(1300, 900);
    m_frame->show();
    m_frame->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_frame.get()));
    m_host->RunIdle();
}

QString FilesFixture::MakeFile(const QString& name, const QByteArray& text) const
{
    QFile file(Path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

QByteArray FilesFixture::Content(const QString& path) const
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

CodeEditor* FilesFixture::OpenFile(const QString& name, const QByteArray& text)
{
    m_window->OpenFile(MakeFile(name, text), false);
    // Getting the focus looks for changes: before there are any.
    QCoreApplication::sendPostedEvents(m_window, QEvent::MetaCall);
    return m_window->GetActiveCodeEditor();
}

CodeEditor* FilesFixture::NewBuffer(const QString& text)
{
    m_window->NewPythonBuffer();
    m_window->GetActiveCodeEditor()->insertPlainText(text);
    return m_window->GetActiveCodeEditor();
}

QStringList FilesFixture::Labels() const
{
    QStringList labels;
    for (const CodeEditorProperties& properties : Group()->GetAllProperties())
        labels += properties.label;
    return labels;
}

/// Our own lines alone: the host misses the panel that the window is not in.
QStringList FilesFixture::TakeLog(host::MessageType type)
{
    const QString prefix = "[TarnwickEditor2] ";
    QStringList lines;
    for (const QString& line : m_host->TakeMessages(type).filter(prefix))
        lines += QString(line).remove(prefix);
    return lines;
}

QStringList FilesFixture::BackingFiles() const
{
    return QDir(Settings::GetInternalBufferDirectoryPath()).entryList(QDir::Files);
}
