#include "window/RecoveryNotice.h"

#include "window/chrome/Theme.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

constexpr int MARGIN = 10; // design pixels
constexpr int SPACING = 4;
constexpr int LINES_SHOWN = 5; ///< the others are scrolled to

} // namespace

RecoveryNotice::RecoveryNotice(const QStringList& lines, QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("m_recoveryNotice"));
    setAccessibleName(tr("Unsaved text"));
    setAttribute(Qt::WA_StyledBackground);
    auto* const title = new QLabel(lines.size() == 1
            ? tr("Unsaved text of one editor was kept from the last session. Restore it?")
            : tr("Unsaved text of %1 editors was kept from the last session. Restore it?")
                  .arg(lines.size()),
        this);
    title->setObjectName(QStringLiteral("recoveryTitle"));
    title->setWordWrap(true);
    auto* const texts = new QVBoxLayout;
    texts->setSpacing(Theme::Dp(SPACING));
    texts->addWidget(title);
    texts->addWidget(MakeList(lines));

    auto* const layout = new QHBoxLayout(this);
    const int margin = Theme::Dp(MARGIN);
    layout->setContentsMargins(margin, Theme::Dp(SPACING), margin, Theme::Dp(SPACING));
    layout->addLayout(texts, 1);
    struct Button
    {
        QString name;
        QString text;
        QString toolTip;
        void (RecoveryNotice::*signal)();
    };
    const Button BUTTONS[] = {
        {QStringLiteral("m_restoreButton"), tr("Restore"),
            tr("Show the text in its tabs, as unsaved text"), &RecoveryNotice::RestoreRequested},
        {QStringLiteral("m_dropButton"), tr("Drop"), tr("Delete the text for good"),
            &RecoveryNotice::DropRequested},
        {QStringLiteral("m_laterButton"), tr("Decide Later"),
            tr("Keep the text and ask again at the next start"), &RecoveryNotice::LaterRequested},
    };
    for (const Button& row : BUTTONS) {
        auto* const button = new QPushButton(row.text, this);
        button->setObjectName(row.name);
        button->setToolTip(row.toolTip);
        button->setAccessibleName(row.text);
        button->setDefault(&row == &BUTTONS[0]);
        connect(button, &QPushButton::clicked, this, row.signal);
        layout->addWidget(button, 0, Qt::AlignVCenter);
    }
}

QWidget* RecoveryNotice::MakeList(const QStringList& lines)
{
    auto* const label = new QLabel(lines.join(QLatin1Char('\n')));
    label->setObjectName(QStringLiteral("recoveryList"));
    // Nothing in a name is taken for markup.
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* const area = new QScrollArea(this);
    area->setObjectName(QStringLiteral("recoveryArea"));
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(label);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    const int shown = qMin(lines.size(), LINES_SHOWN);
    area->setFixedHeight(fontMetrics().lineSpacing() * shown + Theme::Dp(SPACING));
    return area;
}

void RecoveryNotice::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        Q_EMIT LaterRequested();
    else
        QWidget::keyPressEvent(event);
}
