#include "window/PreferencesDialog.h"

#include "output/OutputHighlightingWidget.h"
#include "settings/Settings.h"
#include "window/Question.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// Design pixels.
constexpr int WIDTH = 460;
constexpr int HEIGHT = 420;
constexpr int MARGIN = 16;
constexpr int GAP = 12;

} // namespace

PreferencesDialog::PreferencesDialog(QWidget* parent)
    : QDialog(parent)
    , m_outputHighlighting(new OutputHighlightingWidget(this))
{
    setObjectName(QStringLiteral("m_preferencesDialog"));
    setWindowTitle(tr("Preferences"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowModality(Qt::WindowModal);
    m_outputHighlighting->setObjectName(QStringLiteral("m_outputHighlighting"));
    CreateLayout();
    connect(m_outputHighlighting, &OutputHighlightingWidget::Changed, this,
        &PreferencesDialog::UpdateApplyButton);
    UpdateApplyButton();
    resize(Theme::Dp(WIDTH), Theme::Dp(HEIGHT));
    m_outputHighlighting->setFocus();
}

void PreferencesDialog::CreateLayout()
{
    auto* title = new QLabel(tr("Output Highlighting"), this);
    title->setObjectName(QStringLiteral("m_title"));
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel
            | QDialogButtonBox::Apply | QDialogButtonBox::RestoreDefaults,
        this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(title);
    layout->addWidget(m_outputHighlighting, 1);
    if (!Settings::ownsUserConfig) {
        auto* note = new QLabel(tr("Another session uses these preferences. What is changed here "
                                   "holds for this session alone."),
            this);
        note->setObjectName(QStringLiteral("m_sessionNote"));
        note->setWordWrap(true);
        layout->addWidget(note);
    }
    layout->addWidget(buttons);
    m_applyButton = buttons->button(QDialogButtonBox::Apply);
    buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &PreferencesDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &PreferencesDialog::reject);
    connect(m_applyButton, &QPushButton::clicked, this, &PreferencesDialog::Apply);
    connect(buttons->button(QDialogButtonBox::RestoreDefaults), &QPushButton::clicked, this,
        &PreferencesDialog::RestoreDefaults);
    FollowLook(this, [this, layout, title] {
        const int margin = Theme::Dp(MARGIN);
        layout->setContentsMargins(margin, margin, margin, margin);
        layout->setSpacing(Theme::Dp(GAP));
        QFont heading = font();
        heading.setWeight(QFont::DemiBold);
        title->setFont(heading);
    });
}

void PreferencesDialog::accept()
{
    Apply();
    QDialog::accept();
}

void PreferencesDialog::Apply()
{
    if (!m_outputHighlighting->IsChanged())
        return;
    m_outputHighlighting->Apply();
    Q_EMIT Applied();
}

void PreferencesDialog::RestoreDefaults()
{
    const auto answer = AskQuestion(this, tr("Restore Defaults"),
        tr("Replace the list by the built-in highlights?"), QMessageBox::Yes | QMessageBox::No,
        QMessageBox::No);
    if (answer == QMessageBox::Yes)
        m_outputHighlighting->RestoreDefaults();
}

void PreferencesDialog::UpdateApplyButton()
{
    m_applyButton->setEnabled(m_outputHighlighting->IsChanged());
}
