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

Q_SIGNALS:
    void Accepted();
    void Cancelled();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void PlaceButton();

    FlatButton* m_clearButton;
};
