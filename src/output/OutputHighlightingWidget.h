#pragma once

#include "settings/ExtraSelectionProperties.h"

#include <QVector>
#include <QWidget>

class FlatButton;
class QAction;
class QBoxLayout;
class QLabel;
class QListWidget;
class QListWidgetItem;

/// The list of the rules that highlight text in the console, in the order in which they are
/// applied. Shown on a page of the preferences, which owns it. Works on a copy: nothing outside
/// changes before Apply.
/// Invariant: row i of the list shows rule i of the copy.
class OutputHighlightingWidget : public QWidget
{
    Q_OBJECT

public:
    explicit OutputHighlightingWidget(QWidget* parent);

    /// Makes the copy the rules that are in force.
    void Apply();
    /// Takes the rules in force again.
    void Reset();
    /// Puts the built-in rules into the copy.
    void RestoreDefaults();
    /// Whether Apply would change anything.
    bool IsChanged() const;
    /// Makes the first rule current whose name or match text contains the text. Returns how many
    /// there are; none for an empty text.
    int MarkMatches(const QString& text);

public Q_SLOTS:
    void NewItem();
    void EditItem(QListWidgetItem* item);
    void DeleteItem();
    void MoveItemUp();
    void MoveItemDown();
    /// Takes back the last change that was not applied.
    void Undo();

Q_SIGNALS:
    /// The copy is another one than before.
    void Changed();

protected:
    void focusInEvent(QFocusEvent* event) override;

private Q_SLOTS:
    void OnItemChanged(QListWidgetItem* item);
    void EditCurrentItem();
    void UpdateButtons();

private:
    struct Command;
    static const Command COMMANDS[];
    struct Step
    {
        QVector<ExtraSelectionProperties> rules;
        int row;
    };

    void CreateList();
    void CreateCommands(QBoxLayout& tools);
    void CreateLayout();
    void AddItem(const ExtraSelectionProperties& rule);
    void ShowRule(int row);
    void ShowRules(const QVector<ExtraSelectionProperties>& rules, int currentRow);
    void MoveItem(int distance);
    /// To be called before a change.
    void Remember();

    QListWidget* m_list = nullptr;
    QLabel* m_hint = nullptr;
    QVector<QAction*> m_actions; ///< as in COMMANDS
    QVector<FlatButton*> m_buttons; ///< null for a command without one
    QVector<ExtraSelectionProperties> m_rules;
    QVector<Step> m_steps; ///< to take back, oldest first
};
