#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

class QWindow;

/// Keeps the windows painting while something long runs on the interface thread, and looks out for
/// Escape. Keys, clicks and the closing of windows reach nobody meanwhile, unless a dialog asks for
/// them; a window that was to be closed is closed afterwards. Lives on the stack of what runs long.
class BusyLoop : public QObject
{
    Q_OBJECT

public:
    /// `owner` is whom the work is for.
    explicit BusyLoop(QWidget* owner);
    ~BusyLoop() override;

    /// Lets the waiting events through. False when the work is to end: Escape was pressed, Cancel
    /// was called, or the owner is gone.
    bool Turn();
    void Cancel() { m_isCancelled = true; }
    bool IsCancelled() const { return m_isCancelled || !m_owner; }
    bool IsOwnerGone() const { return !m_owner; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<QWidget> m_owner;
    QList<QPointer<QWindow>> m_toClose;
    bool m_isCancelled = false;
    bool m_hasCursor = false;
};
