#pragma once

#include "settings/pages/PreferencesPage.h"

class OutputHighlightingWidget;

/// The page of the rules that highlight the output. Owned by the dialog.
class OutputHighlightingPage : public PreferencesPage
{
    Q_OBJECT

public:
    explicit OutputHighlightingPage(QWidget* parent);

    QString GetTitle() const override;
    QString GetIconName() const override;
    bool IsChanged() const override;
    void Apply() override;
    void RestoreDefaults() override;
    QString GetRestoreQuestion() const override;
    int MarkMatches(const QString& text) override;

private:
    OutputHighlightingWidget* m_outputHighlighting;
};
