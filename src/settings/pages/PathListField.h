#pragma once

#include "settings/pages/OptionField.h"

class FlatButton;
class QListWidget;
class QListWidgetItem;

/// An option that is a list of folders, parted by Settings::PATH_SEP. Owned by the page.
class PathListField : public OptionField
{
    Q_OBJECT

public:
    PathListField(const OptionRow& row, QWidget* parent);

    QVariant GetValue() const override;
    void SetValue(const QVariant& value) override;
    QWidget* GetControl() const override;

private Q_SLOTS:
    void Add();
    void Remove();
    void MoveUp() { Move(-1); }
    void MoveDown() { Move(1); }
    void UpdateButtons();
    void OnItemChanged(QListWidgetItem* item);

private:
    struct Command;
    static const Command COMMANDS[];

    void CreateButtons();
    void AddPath(const QString& path);
    void Move(int distance);

    QListWidget* m_list;
    QVector<FlatButton*> m_buttons; ///< as in COMMANDS
};
