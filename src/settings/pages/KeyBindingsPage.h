#pragma once

#include "settings/pages/PreferencesPage.h"

#include <QVector>

class FlatButton;
class KeyBindings;
class KeyBindingsModel;
class KeyBindingsTable;
class KeyCaptureField;
class QAction;
class QBoxLayout;
class QLabel;
class QPushButton;
class QStackedLayout;
class ToolLineEdit;

/// The page with the keys of every command. Works on a copy of the bindings, which are not owned
/// and outlive it.
class KeyBindingsPage : public PreferencesPage
{
    Q_OBJECT

public:
    KeyBindingsPage(KeyBindings* bindings, QWidget* parent);

    QString GetTitle() const override;
    QString GetIconName() const override;
    bool IsChanged() const override;
    void Apply() override;
    void RestoreDefaults() override;
    QString GetRestoreQuestion() const override;
    int MarkMatches(const QString& text) override;
    QWidget* FindFirstMatch() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private Q_SLOTS:
    void ResetAll();
    void UpdateFilter();
    void UpdateFilterMode();
    void UpdateActions();

private:
    struct Command;
    static const Command COMMANDS[];

    void CreateFilter();
    void CreateTable();
    void CreateCommands(QBoxLayout& buttons);
    void CreateLayout();
    bool IsPossible(const Command& command) const;
    QString GetHint() const;

    KeyBindings* m_bindings; ///< not owned
    KeyBindingsModel* m_model;
    QStackedLayout* m_filters = nullptr; ///< of the text's field and the keys' field
    ToolLineEdit* m_filter = nullptr;
    KeyCaptureField* m_keyFilter = nullptr;
    FlatButton* m_pressKeysButton = nullptr;
    KeyBindingsTable* m_table = nullptr;
    QLabel* m_hint = nullptr;
    bool m_hasMatches = false;
    QVector<QAction*> m_actions; ///< as in COMMANDS
    QVector<QPushButton*> m_buttons; ///< null for a command without one
};
