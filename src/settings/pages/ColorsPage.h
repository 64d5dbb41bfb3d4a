#pragma once

#include "settings/pages/ColorScheme.h"
#include "settings/pages/PreferencesPage.h"

#include <QVector>

class ColorLabel;
class ColorRoleList;
class ColorSampleView;
class QBoxLayout;
class QCheckBox;
class QGridLayout;
class QLabel;
class QPushButton;

/// The page with the look of every colour role of the code editors and of the console. Works on a
/// copy, which a sample text shows at once.
class ColorsPage : public PreferencesPage
{
    Q_OBJECT

public:
    explicit ColorsPage(QWidget* parent);

    QString GetTitle() const override;
    QString GetIconName() const override;
    bool IsChanged() const override;
    void Apply() override;
    void RestoreDefaults() override;
    QString GetRestoreQuestion() const override;
    int MarkMatches(const QString& text) override;
    QWidget* FindFirstMatch() const override;

    /// Its parts can be changed from now on.
    void ShowRole(const ColorRole& role);

private Q_SLOTS:
    void ResetRole();
    void ResetAll();

private:
    /// A colour of the role, with its caption.
    struct ColorRow
    {
        ColorScheme::Part part;
        QLabel* caption;
        ColorLabel* label;
    };
    struct CheckRow
    {
        ColorScheme::Part part;
        QCheckBox* box;
    };

    void CreateLists(QBoxLayout& column);
    void CreateParts(QGridLayout& grid);
    void CreateLayout();
    QPushButton* CreateButton(const QString& text, const QString& name, void (ColorsPage::*slot)());
    void SelectColor(const ColorRow& row);
    void OnEdited();
    void UpdateParts();

    ColorScheme m_scheme;
    ColorRole m_role;
    ColorRoleList* m_codeEditorRoles = nullptr;
    ColorRoleList* m_outputRoles = nullptr;
    QLabel* m_title = nullptr;
    QVector<ColorRow> m_colors;
    QVector<CheckRow> m_checks;
    QPushButton* m_resetButton = nullptr;
    QPushButton* m_resetAllButton = nullptr;
    ColorSampleView* m_sample = nullptr;
    QLabel* m_hint = nullptr;
    QWidget* m_firstMatch = nullptr;
};
