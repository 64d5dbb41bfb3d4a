#include "settings/KeySequenceLineEdit.h"

#include <QKeyEvent>
#include <QKeySequence>

namespace {

bool IsModifier(int key)
{
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Meta:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Hyper_L:
    case Qt::Key_Hyper_R:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_ScrollLock: return true;
    default: return false;
    }
}

bool IsKnown(int key)
{
    return key != 0 && key != Qt::Key_unknown;
}

} // namespace

KeySequenceLineEdit::KeySequenceLineEdit(QWidget* parent)
    : QLineEdit(parent)
{
    // For the ways past the keys: paste, drop and input methods.
    setReadOnly(true);
}

/// Shift is a part of how some characters are typed; a shortcut that names it as well as the
/// character is never met by a keyboard's keys. Letters are named without it.
bool KeySequenceLineEdit::IsTypedWithShift(const QKeyEvent& event)
{
    const bool isCharacter = event.key() > Qt::Key_Space && event.key() < Qt::Key_Escape
        && !QChar::isLetter(uint(event.key()));
    const bool isOfKeyboard
        = event.nativeScanCode() != 0 && !(event.modifiers() & Qt::KeypadModifier);
    return isCharacter && isOfKeyboard && event.modifiers() & Qt::ShiftModifier;
}

bool KeySequenceLineEdit::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void KeySequenceLineEdit::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    int key = event->key();
    if (!IsKnown(key) || IsModifier(key))
        return;
    Qt::KeyboardModifiers modifiers = event->modifiers()
        & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (IsTypedWithShift(*event))
        modifiers &= ~Qt::ShiftModifier;
    // One key with two names, of which bindings bear the other.
    if (key == Qt::Key_Backtab)
        key = Qt::Key_Tab;
    setText(QKeySequence(key | static_cast<int>(modifiers)).toString(QKeySequence::PortableText));
    Q_EMIT textEdited(text());
}
