#pragma once

#include <QSplitter>

/// A splitter that takes no more room than its groove: the handle is as wide as any other to the
/// pointer, but lies over one of its panes.
class GrooveSplitter : public QSplitter
{
    Q_OBJECT

public:
    GrooveSplitter(Qt::Orientation orientation, QWidget* parent);

    /// Whether the handles lie over the pane before them (at first) or behind them.
    void SetGrabsBefore(bool before);
    bool GrabsBefore() const { return m_grabsBefore; }

protected:
    QSplitterHandle* createHandle() override;

private:
    void UpdateHandleWidth();

    bool m_grabsBefore = true;
};
