#pragma once

#include "plugin/OutputText.h"

#include <QObject>

#include <functional>

/// Brings what any thread prints to the thread that made it, the interface thread. What other
/// threads print waits in its event queue, so that none of them touches what shows it; with the
/// object goes what still waits.
class OutputQueue : public QObject
{
public:
    /// Takes each text, in the order in which its thread printed it.
    using Show = std::function<void(const OutputText&)>;

    explicit OutputQueue(Show show);

    /// Any thread, as long as the object lives.
    void Append(const OutputText& text);

private:
    const Show m_show;
};
