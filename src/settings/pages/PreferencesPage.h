#pragma once

#include <QWidget>

/// One page of the preferences dialog, which owns it. Works on copies of the options: nothing
/// outside changes before Apply, and building a page changes nothing.
class PreferencesPage : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// As it stands in the list of pages.
    virtual QString GetTitle() const = 0;
    /// The name of the page's icon.
    virtual QString GetIconName() const = 0;

    /// Whether Apply would change anything.
    virtual bool IsChanged() const = 0;
    /// Puts the copies into the options. Files are written by the dialog's owner.
    virtual void Apply() = 0;
    /// Puts the built-in values into the copies.
    virtual void RestoreDefaults() = 0;
    /// What RestoreDefaults is about to do, as a question.
    virtual QString GetRestoreQuestion() const;

    /// The first field whose content cannot be applied; null when all is well. The page itself
    /// shows the reason beside the field.
    virtual QWidget* FindWrongField() const { return nullptr; }

    /// Marks the options that contain the text in their label, value name or key, case ignored; an
    /// empty text takes all marks away. Returns how many there are.
    virtual int MarkMatches(const QString& text) = 0;
    /// What has the focus when a person goes to the first option that is marked; null without one.
    virtual QWidget* FindFirstMatch() const { return nullptr; }

Q_SIGNALS:
    /// A copy is another one than before.
    void Changed();
};
