#pragma once

#include "settings/pages/KeyBindingsModel.h"

#include <QTreeView>

#include <functional>

class KeyBindingDelegate;
class KeyCaptureField;

/// The table of all commands and their keys, in which the keys are changed. Left and Right choose
/// among several keys of a row. A change holds at once and is taken back when the field is left
/// with Escape. Owned by its page, as the model is.
class KeyBindingsTable : public QTreeView
{
    Q_OBJECT

public:
    KeyBindingsTable(KeyBindingsModel* model, QWidget* parent);

    /// -1 without a current row, or when that is filtered out.
    int GetCurrentRow() const;
    bool IsEditing() const { return m_field != nullptr; }
    /// Rows for which `isShown` answers false disappear; when all do, `emptyText` stands instead.
    void ShowRows(const std::function<bool(int row)>& isShown, const QString& emptyText);
    /// Marks the rows that contain the text and goes to the first of them; how many there are.
    int MarkMatches(const QString& text);

public Q_SLOTS:
    void EditKeys();
    void AddKeys();
    void RemoveKeys();
    void ClearRow();
    void ResetRow();
    /// Leaves the field and keeps what it shows.
    void FinishEditing();
    /// Leaves the field and gives the row back what it had.
    void CancelEditing();

Q_SIGNALS:
    /// Another current row, or another state of it.
    void CurrentChanged();

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    bool viewportEvent(QEvent* event) override;

private Q_SLOTS:
    void OnKeysCaptured();
    void OnFocusChanged(QWidget* old, QWidget* now);

private:
    void Edit(int place);
    void CloseField();
    void PlaceField();
    void PlaceColumns();
    void SetPlace(int place);
    int PlaceAt(const QPoint& point) const;
    int CountKeys() const;

    KeyBindingsModel* m_model; ///< not owned
    KeyBindingDelegate* m_delegate;
    KeyCaptureField* m_field = nullptr; ///< only while editing
    QList<QKeySequence> m_before; ///< of the row that is edited
    int m_editedRow = -1;
    int m_place = 0; ///< of the current row's keys; behind the last one for another
    QString m_emptyText;
};
