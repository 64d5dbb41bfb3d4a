#pragma once

#include "api/PluginLibraryLoader.h"
#include "engine/Engine.h"

#include <QHash>
#include <QTemporaryDir>

/// An interpreter that knows one command per text: `name word -flag "two words" 3`. Texts in
/// `answers` give what stands there instead.
class CommandLanguage : public host::ScriptLanguage
{
public:
    explicit CommandLanguage(host::Engine& engine)
        : m_engine(engine)
    { }

    host::ScriptResult Run(const QString& text) override;
    host::ScriptResult RunFile(const QString& path) override;

    QHash<QString, host::Value> answers;
    QStringList texts; ///< everything that was run
    QStringList files;

private:
    host::Engine& m_engine;
};

/// A host without windows and interpreters, with the API's loader. One at a time.
class ApiFixture
{
public:
    explicit ApiFixture(host::RunState state = host::RunState::Interactive);
    ~ApiFixture();

    host::ScriptResult Run(const QString& text)
    {
        return engine.Execute(host::Language::Mel, text, false);
    }
    host::Outcome Load(const QString& plugin);
    /// Messages of one type, in order.
    QStringList Texts(host::MessageType type) const;

    QTemporaryDir directory;
    host::Engine engine;
    CommandLanguage mel;
    CommandLanguage python;
    QVector<host::Message> messages;
};
