#pragma once

#include <QObject>

namespace host {
class Engine;
}

namespace host::ui {

/// Keeps the windows alive while a script runs and stops it when Escape is pressed. Whatever else
/// a person does meanwhile is dropped, so that no command starts inside of another one.
class EscapeWatcher : public QObject
{
    Q_OBJECT
public:
    /// Becomes the engine's interrupt hook until it is destroyed.
    explicit EscapeWatcher(Engine& engine, QObject* parent = nullptr);
    ~EscapeWatcher() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ProcessEvents();

    Engine& m_engine;
    bool m_escapePressed = false;
};

} // namespace host::ui
