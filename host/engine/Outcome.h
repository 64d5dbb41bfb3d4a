#pragma once

#include "engine/Value.h"

#include <optional>

namespace host {

/// Which exception a failed command raises in Python. MEL shows the same text for all of them.
enum class ErrorKind { Runtime, Type, Value };

/// Why a command failed, in words for the person at the screen (no closing line feed).
struct Error
{
    QString text;
    ErrorKind kind = ErrorKind::Runtime;
    /// The text has been shown already; whoever stops at this error shows nothing more.
    bool shown = false;
};

/// What a command or function gives back: a value (perhaps None) or an error.
class Outcome
{
public:
    Outcome() = default;
    Outcome(const Value& value)
        : m_value(value)
    { }
    Outcome(const Error& error)
        : m_error(error)
    { }
    template <typename T, typename = std::enable_if_t<std::is_constructible_v<Value, T>>>
    Outcome(const T& value)
        : m_value(value)
    { }

    bool Ok() const { return !m_error.has_value(); }
    const Value& GetValue() const { return m_value; }
    /// Only when not Ok.
    const Error& GetError() const { return *m_error; }

private:
    Value m_value;
    std::optional<Error> m_error;
};

} // namespace host
