#pragma once

#include <QDialog>

class OutputHighlightingWidget;
class QPushButton;

/// The user's options. Works on copies: nothing changes before OK or Apply, which report it. Modal
/// to the window, which owns it.
class PreferencesDialog : public QDialog
{
    Q_OBJECT

public:
    explicit PreferencesDialog(QWidget* parent);

Q_SIGNALS:
    /// The options in memory are new ones: to be put into force and stored.
    void Applied();

public Q_SLOTS:
    void accept() override;
    void Apply();

private Q_SLOTS:
    /// Of the page that is shown.
    void RestoreDefaults();
    void UpdateApplyButton();

private:
    void CreateLayout();

    OutputHighlightingWidget* m_outputHighlighting;
    QPushButton* m_applyButton = nullptr;
};
