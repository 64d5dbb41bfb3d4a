#pragma once

#include "settings/pages/PreferencesPage.h"

#include <QVector>

class OptionCopies;
class OptionField;
struct OptionGroup;
struct OptionPage;
class QBoxLayout;
class QGridLayout;

/// A page made of the rows of a table. Owned by the dialog.
/// Invariant: every field shows the copy of its option.
class OptionsPage : public PreferencesPage
{
    Q_OBJECT

public:
    /// The copies are the dialog's, for all pages together.
    OptionsPage(const OptionPage& page, OptionCopies& copies, QWidget* parent);

    QString GetTitle() const override;
    QString GetIconName() const override;
    bool IsChanged() const override;
    void Apply() override;
    void RestoreDefaults() override;
    QWidget* FindWrongField() const override;
    int MarkMatches(const QString& text) override;
    QWidget* FindFirstMatch() const override;

protected:
    OptionField* GetField(const char* key) const;
    /// Puts a widget at the end of the field's group.
    void AddBelow(const OptionField& field, QWidget* widget);
    const OptionCopies& GetCopies() const { return m_copies; }

private Q_SLOTS:
    void OnFieldChanged();
    void UpdateFields();

private:
    void CreateFields();
    QWidget* CreateGroup(const OptionGroup& group);
    void AddField(OptionField* field, QGridLayout& grid, int (&ends)[2]);
    void AlignLabels();

    const OptionPage& m_page;
    OptionCopies& m_copies;
    QVector<OptionField*> m_fields; ///< in the order of the rows
};
