#include "views/EmptyPage.h"

#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"

#include <QLabel>
#include <QVBoxLayout>

namespace {

// Design pixels.
constexpr int PICTURE_SIZE = 30;
constexpr int MARGIN = 14;
constexpr int TOP = 28;
constexpr int GAP = 6;

QLabel* CenteredLabel(const QString& name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignHCenter);
    label->setWordWrap(true);
    label->setMinimumWidth(1);
    return label;
}

void SetColor(QLabel* label, Theme::Role role)
{
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, Theme::Color(role));
    label->setPalette(palette);
}

} // namespace

EmptyPage::EmptyPage(const QString& picture, QWidget* parent)
    : QWidget(parent)
    , m_pictureName(picture)
    , m_picture(CenteredLabel(QStringLiteral("m_emptyPicture"), this))
    , m_title(CenteredLabel(QStringLiteral("m_emptyTitle"), this))
    , m_hint(CenteredLabel(QStringLiteral("m_emptyHint"), this))
{
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_picture);
    layout->addWidget(m_title);
    layout->addWidget(m_hint);
    layout->addStretch(1);
    FollowLook(this, [this, layout] {
        layout->setContentsMargins(
            Theme::Dp(MARGIN), Theme::Dp(TOP), Theme::Dp(MARGIN), Theme::Dp(MARGIN));
        layout->setSpacing(Theme::Dp(GAP));
        UpdateLook();
    });
}

void EmptyPage::UpdateLook()
{
    m_picture->setPixmap(Theme::Pixmap(m_pictureName, PICTURE_SIZE, devicePixelRatioF()));
    m_hint->setFont(Theme::SmallFont(font()));
    SetColor(m_title, Theme::Role::Text);
    SetColor(m_hint, Theme::Role::Faint);
}

void EmptyPage::SetTexts(const QString& title, const QString& hint)
{
    m_picture->setVisible(!title.isEmpty());
    m_title->setVisible(!title.isEmpty());
    m_title->setText(title);
    m_hint->setText(hint);
}
