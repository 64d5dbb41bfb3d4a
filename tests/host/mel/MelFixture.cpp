#include "MelFixture.h"

#include <QDir>
#include <QFile>

using namespace host;

MelFixture::MelFixture()
    : engine(RunState::Batch, m_directory.path())
    , mel(engine)
{
    engine.output.AddListener([this](const Message& message) { m_messages.append(message); });
}

ScriptResult MelFixture::Run(const QString& text)
{
    return engine.Execute(Language::Mel, text, false);
}

QStringList MelFixture::Texts(MessageType type) const
{
    QStringList texts;
    for (const Message& message : m_messages) {
        if (message.type == type)
            texts += message.text;
    }
    return texts;
}

QString MelFixture::Printed() const
{
    return Texts(MessageType::Display).join(QString());
}

QStringList MelFixture::Log() const
{
    static const char* const NAMES[]
        = {"history", "display", "info", "warning", "error", "result", "trace"};
    QStringList log;
    for (const Message& message : m_messages) {
        QString text = message.text;
        text.replace("\n", "\\n");
        log += QString("%1: %2").arg(NAMES[static_cast<int>(message.type)], text);
    }
    return log;
}

QString MelFixture::WriteScript(const QString& name, const QByteArray& contents)
{
    const QString folder = engine.paths.UserScriptsDirectory();
    QDir().mkpath(folder);
    QFile file(folder + '/' + name);
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}
