#pragma once

#include <QWidget>

class KeyBindings;

/// What a group without editors shows: a drawing and the keys that open something. Covers its
/// parent, which owns it, while it is visible.
class EmptyGroupHint : public QWidget
{
    Q_OBJECT

public:
    /// `keyBindings` is not owned.
    EmptyGroupHint(const KeyBindings* keyBindings, QWidget* parent);

    /// After key bindings changed.
    void UpdateKeyBindings();

Q_SIGNALS:
    void NewTabRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    struct Row
    {
        QString label;
        QString shortcut;
    };

    /// Only what can be done: commands with an action and a key.
    QVector<Row> GetRows() const;

    const KeyBindings* m_keyBindings; ///< not owned
};
