#include "settings/pages/KeyCaptureField.h"

#include "window/chrome/FlatButton.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"

#include <QKeyEvent>
#include <QShortcut>

namespace {

// Design pixels.
constexpr int BUTTON_EXTENT = 20;
constexpr int BUTTON_MARGIN = 2;

} // namespace

KeyCaptureField::KeyCaptureField(QWidget* parent)
    : KeySequenceLineEdit(parent)
    , m_clearButton(new FlatButton(
          QStringLiteral("clear_field"), tr("Clear Keys"), FlatButton::Tint::Computed, this))
{
    setContextMenuPolicy(Qt::NoContextMenu);
    setPlaceholderText(tr("Press the keys"));
    m_clearButton->setObjectName(QStringLiteral("m_clearButton"));
    m_clearButton->SetExtent(BUTTON_EXTENT);
    m_clearButton->setCursor(Qt::ArrowCursor);
    connect(m_clearButton, &FlatButton::clicked, this, [this] {
        clear();
        Q_EMIT textEdited(QString());
    });
    FollowLook(this, [this] { PlaceButton(); });
}

/// Which characters share a key only the toolkit knows, and it tells by what it triggers.
void KeyCaptureField::SetKnownSequences(const QList<QKeySequence>& sequences)
{
    qDeleteAll(findChildren<QShortcut*>(QString(), Qt::FindDirectChildrenOnly));
    for (const QKeySequence& sequence : sequences) {
        const int key = sequence.count() == 1 ? sequence[0] : 0;
        const int character = key & ~int(Qt::KeyboardModifierMask);
        const bool isCharacter = character > Qt::Key_Space && character < Qt::Key_Escape
            && !QChar::isLetter(uint(character));
        if (!isCharacter || !(key & Qt::SHIFT))
            continue;
        auto* shortcut = new QShortcut(sequence, this);
        shortcut->setContext(Qt::WidgetShortcut);
        const auto capture = [this, sequence] { Capture(sequence); };
        connect(shortcut, &QShortcut::activated, this, capture);
        connect(shortcut, &QShortcut::activatedAmbiguously, this, capture);
    }
}

void KeyCaptureField::Capture(const QKeySequence& sequence)
{
    setText(sequence.toString(QKeySequence::PortableText));
    Q_EMIT textEdited(text());
}

bool KeyCaptureField::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride
        && IsTypedWithShift(*static_cast<QKeyEvent*>(event))) {
        event->ignore();
        return false;
    }
    return KeySequenceLineEdit::event(event);
}

QKeySequence KeyCaptureField::GetSequence() const
{
    return QKeySequence(text(), QKeySequence::PortableText);
}

void KeyCaptureField::keyPressEvent(QKeyEvent* event)
{
    const bool isAlone = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    const int key = isAlone ? event->key() : 0;
    if (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Escape) {
        KeySequenceLineEdit::keyPressEvent(event);
        return;
    }
    event->accept();
    if (key == Qt::Key_Escape)
        Q_EMIT Cancelled();
    else
        Q_EMIT Accepted();
}

void KeyCaptureField::resizeEvent(QResizeEvent* event)
{
    KeySequenceLineEdit::resizeEvent(event);
    PlaceButton();
}

void KeyCaptureField::PlaceButton()
{
    const int extent = Theme::Dp(BUTTON_EXTENT);
    const int margin = Theme::Dp(BUTTON_MARGIN);
    setTextMargins(0, 0, extent, 0);
    m_clearButton->setGeometry(width() - extent - margin, (height() - extent) / 2, extent, extent);
}
