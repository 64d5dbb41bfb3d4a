#include "settings/pages/KeyCaptureField.h"

#include "window/chrome/FlatButton.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"

#include <QKeyEvent>

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
