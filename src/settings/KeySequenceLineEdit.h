#pragma once

#include <QLineEdit>

/// The field in which a person presses the keys that a command shall have. It shows them as
/// portable text, such as "Ctrl+Shift+K", and emits textEdited; nothing can be typed or pasted into
/// it. Every key is taken, also those that are shortcuts elsewhere, but Tab and Shift+Tab alone:
/// they lead out of the field. Owned by whoever edits the bindings.
class KeySequenceLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit KeySequenceLineEdit(QWidget* parent = nullptr);

protected:
    /// Whether a keyboard sent a character for which Shift is held.
    static bool IsTypedWithShift(const QKeyEvent& event);

    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};
