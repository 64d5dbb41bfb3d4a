#include "window/OutputHighlightingPage.h"

#include "output/OutputHighlightingWidget.h"

#include <QVBoxLayout>

OutputHighlightingPage::OutputHighlightingPage(QWidget* parent)
    : PreferencesPage(parent)
    , m_outputHighlighting(new OutputHighlightingWidget(this))
{
    m_outputHighlighting->setObjectName(QStringLiteral("m_outputHighlighting"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_outputHighlighting);
    connect(m_outputHighlighting, &OutputHighlightingWidget::Changed, this,
        &OutputHighlightingPage::Changed);
}

QString OutputHighlightingPage::GetTitle() const
{
    return tr("Output Highlighting");
}

QString OutputHighlightingPage::GetIconName() const
{
    return QStringLiteral("prefs_output_highlighting");
}

bool OutputHighlightingPage::IsChanged() const
{
    return m_outputHighlighting->IsChanged();
}

void OutputHighlightingPage::Apply()
{
    m_outputHighlighting->Apply();
}

void OutputHighlightingPage::RestoreDefaults()
{
    m_outputHighlighting->RestoreDefaults();
}

QString OutputHighlightingPage::GetRestoreQuestion() const
{
    return tr("Replace the list by the built-in highlights?");
}

int OutputHighlightingPage::MarkMatches(const QString& text)
{
    return m_outputHighlighting->MarkMatches(text);
}
