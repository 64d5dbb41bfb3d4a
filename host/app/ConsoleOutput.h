#pragma once

namespace host {

class Engine;

/// In batch mode: what the host prints goes to the terminal. Prints, information and results to
/// standard output; "Warning: text" and "Error: text" to standard error. Any thread may print.
class ConsoleOutput
{
public:
    explicit ConsoleOutput(Engine& engine);
    ~ConsoleOutput();
    ConsoleOutput(const ConsoleOutput&) = delete;
    ConsoleOutput& operator=(const ConsoleOutput&) = delete;

private:
    Engine& m_engine;
    int m_displayId = 0;
};

} // namespace host
