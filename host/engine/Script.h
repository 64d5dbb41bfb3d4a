#pragma once

#include "engine/Outcome.h"

#include <memory>

namespace host {

enum class Language { Mel, Python };

/// Something a front end can call back: a Python function given as a control's command.
class Callable
{
public:
    virtual ~Callable() = default;
    /// Interface thread only. Errors have been shown when this returns.
    virtual Outcome Call(const QVector<Value>& arguments) = 0;
    /// How a query shows it, such as "<function build at 0x...>".
    virtual QString Description() const = 0;
};

/// A callback that a control, menu item or job keeps: text in one of the languages, or a callable.
struct Script
{
    Language language = Language::Mel;
    QString text;
    std::shared_ptr<Callable> callable;

    bool IsEmpty() const { return text.isEmpty() && !callable; }
    /// The text, or the description of the callable.
    QString Description() const;
    /// Runs it at global scope. `arguments` replace #1, #2 ... in a text. Errors are shown.
    Outcome Run(const QVector<Value>& arguments = {}) const;
};

/// What running a whole text gave.
struct ScriptResult
{
    bool failed = false;
    /// None when there is nothing to give back.
    Value value;
    /// Text of the result line; null when there is none to show.
    QString resultText;
    /// The first error's message without its place; empty on success.
    QString errorText;
};

/// One of the host's two interpreters. Main thread only.
class ScriptLanguage
{
public:
    virtual ~ScriptLanguage() = default;
    /// Compiles and runs `text` at global scope. Errors go to the output once, as they happen.
    virtual ScriptResult Run(const QString& text) = 0;
    /// Runs a file. A relative path is looked for along the language's search path.
    virtual ScriptResult RunFile(const QString& path) = 0;
};

} // namespace host
