#pragma once

#include "settings/KeySequenceLineEdit.h"

class FlatButton;

/// The capture field as people work with it: Return takes what it shows, Escape leaves it, both
/// alone, and a button inside empties it, since the field takes every other key. Owned by its
/// parent.
class KeyCaptureField : public KeySequenceLineEdit
{
    Q_OBJECT

public:
    explicit KeyCaptureField(QWidget* parent);

    QKeySequence GetSequence() const;
    /// Sequences that may be another name of the keys that are pressed: "Ctrl+Shift+/" where "?"
    /// is on the same key. Whoever presses such keys gets the name that is known.
    void SetKnownSequences(const QList<QKeySequence>& sequences);

Q_SIGNALS:
    void Accepted();
    void Cancelled();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Capture(const QKeySequence& sequence);
    void PlaceButton();

    FlatButton* m_clearButton;
};
