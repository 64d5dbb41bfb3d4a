#pragma once

#include <QRect>
#include <QWidget>

class CompletionRowDelegate;
class PrefixFilterModel;
class QKeyEvent;
class QListView;
class QPlainTextEdit;
class QStandardItem;
class QTextCursor;
class QTimer;

/// The list of names that could continue the word before an editor's cursor. Shown as a popup that
/// never takes the keyboard: the editor keeps the focus, and the keys that move and accept are
/// taken on their way to it. A child of the editor; interface thread only.
class AutoCompleter : public QWidget
{
    Q_OBJECT

public:
    /// Whether something can be completed at the cursor. Keeps what is typed of it as the prefix.
    virtual bool ValidateAndSetPrefix(const QTextCursor& cursor);
    /// Filters anew and shows or moves the popup, or hides it when nothing is left. `cursorRect` is
    /// in the viewport's coordinates; `applyIfSingle`: the user asked for it, and the only row
    /// there is goes into the text at once.
    virtual void Update(const QTextCursor& cursor, const QRect& cursorRect, bool applyIfSingle);

    /// The first row that has the prefix in its very case, or else the first one.
    void SelectTop();
    void SelectNext();
    void SelectPrevious();
    int RowCount() const;
    /// Shows the popup below a line, above it where the screen ends.
    void UpdateRect(const QRect& cursorRect);
    /// Hides the popup and tells of the selected row.
    void ApplySelection();
    QString GetPrefix() const { return m_prefix; }
    QString GetSelectedText() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The last `prefixLength` characters before the cursor are to be replaced by `text`.
    void Accepted(const QString& text, int prefixLength);
    /// The same row has been selected for a while.
    void SelectionRested(const QString& name);

protected:
    explicit AutoCompleter(QPlainTextEdit* editor);
    /// To be called by the constructor of every language's completer.
    void Initialize();

    virtual void UpdateModel() = 0;
    virtual void UpdateProxyModel();
    virtual Qt::CaseSensitivity GetCaseSensitivity() const { return Qt::CaseSensitive; }
    /// What a person would look up to learn about the selected row.
    virtual QString GetHelpName() const { return GetSelectedText(); }

    QPlainTextEdit& GetEditor() const { return *m_editor; }
    PrefixFilterModel* GetFilterModel() const { return m_filterModel; }
    /// Not owned; shared by several completers perhaps.
    void SetFilterModel(PrefixFilterModel* model);
    void SetPrefix(const QString& prefix) { m_prefix = prefix; }
    static QStandardItem* MakeRow(
        const QString& name, const QString& iconName, const QString& detail = {});

    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void RefreshSelected();
    void FollowEditor();
    void HideElsewhere();
    QSize WantedSize() const;
    bool FilterEditorEvent(QEvent* event);
    bool HandleKey(const QKeyEvent& event);

    QPlainTextEdit* m_editor;
    QListView* m_listView;
    PrefixFilterModel* m_filterModel = nullptr; ///< not owned
    QString m_prefix;
    int m_selectedRow = 0;
    int m_position = -1; ///< of the cursor at the last update
    CompletionRowDelegate* m_delegate;
    QTimer* m_restTimer;
};
