#pragma once

#include <QWidget>

class ElidedLabel;
class FlatButton;
class KeyBindings;
class OutputTextEdit;
class QComboBox;
class QLabel;
class QMenu;

/// The output panel: a title row with the verbosity, the log file and the clear button over the
/// console. Owned by the window.
class PanelGroup : public QWidget
{
    Q_OBJECT

public:
    /// `keyBindings` is not owned.
    PanelGroup(KeyBindings* keyBindings, QWidget* parent);

    OutputTextEdit* GetOutput() const { return m_output; }
    void OutputAppendText(const QString& text);
    void OutputClearAll();

    /// 0 echo all, 1 normal, 2 minimal.
    int GetVerbosityIndex() const;
    /// Shows what the host does when echo-all was switched: with it off, minimal or normal.
    void SetEchoAllCommandsEnabled(bool enabled);
    void SetNormalVerbosity();
    void SetMinimalVerbosity();

    bool IsWriteToFileActive() const;
    void ApplyPreferences();
    void UpdateKeyBindings();

Q_SIGNALS:
    void EchoAllCommandsChanged();
    void WriteToFileUpdated(bool active);
    void HideRequested();

public Q_SLOTS:
    void ToggleWriteToFile();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private Q_SLOTS:
    void OnVerbosityChanged(int index);
    void OnWriteToFileEnded();
    void ShowTitleMenu(const QPoint& point);

private:
    void CreateWidgets();
    void CreateVerbosity();
    void CreateLayout();
    void CreateConnections();
    void ChooseVerbosity(int index);
    void AddVerbosities(QMenu& menu);
    void StopWriting();
    void StartWriting();
    bool MayReplace(const QString& path);
    void UpdateWriteToFile();
    void UpdateFonts();

    KeyBindings* m_keyBindings; ///< not owned
    QWidget* m_titleBar = nullptr;
    QLabel* m_title = nullptr;
    ElidedLabel* m_fileName = nullptr;
    QComboBox* m_verbosity = nullptr;
    FlatButton* m_writeToFileButton = nullptr;
    FlatButton* m_clearButton = nullptr;
    OutputTextEdit* m_output = nullptr;
};
