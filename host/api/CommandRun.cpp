#include "api/CommandRun.h"

#include "engine/Engine.h"

#include <iostream>

namespace host::api {

namespace {

CommandRun* current = nullptr;

void WriteToStreams(MessageType type, const QString& text)
{
    std::ostream& stream = type == MessageType::Info ? std::cout : std::cerr;
    stream << text.toStdString() << std::endl;
}

} // namespace

CommandRun::CommandRun()
    : m_outer(current)
{
    current = this;
}

CommandRun::~CommandRun()
{
    current = m_outer;
    if (current && !shownError.isNull())
        current->shownError = shownError;
}

CommandRun* CommandRun::Current()
{
    return current;
}

void ShowMessage(MessageType type, const QString& text)
{
    if (!Engine::Exists()) {
        WriteToStreams(type, text);
        return;
    }
    Engine& engine = Engine::Current();
    if (!engine.IsMainThread()) {
        engine.idle.Post([&engine, type, text] { engine.output.Write(type, text); });
        return;
    }
    if (current && type == MessageType::Error)
        current->shownError = text;
    engine.output.Write(type, text);
}

} // namespace host::api
