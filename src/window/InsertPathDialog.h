#pragma once

#include <QDialog>
#include <QStringList>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
class QStringListModel;

/// Asks for a path to be inserted into a script, and for how it is to be written. Settings keep the
/// answers when the dialog is accepted; the folder it was in is kept for the session. Lives as long
/// as it is executed.
class InsertPathDialog : public QDialog
{
    Q_OBJECT

public:
    /// `fileFolder` is where the script lies; empty for a buffer.
    InsertPathDialog(const QString& fileFolder, QWidget* parent);

    /// What is to be inserted.
    QString GetText() const;

    void accept() override;

private:
    void CreateWidgets();
    void CreateLayout();
    void CreateCompleter();
    void FillFolders(const QString& fileFolder);
    void ChooseFile();
    void ChooseFolder();
    void TakePath(const QString& path);
    QString FolderToStartIn() const;
    void UpdateCompletions(const QString& typed);
    void UpdateDisplay();
    bool IsRelative() const;

    QLineEdit* m_path = nullptr;
    QPushButton* m_fileButton = nullptr;
    QPushButton* m_folderButton = nullptr;
    QComboBox* m_kind = nullptr; ///< absolute or relative
    QComboBox* m_folder = nullptr; ///< what it is relative to
    QCheckBox* m_forwardSlashes = nullptr;
    QCheckBox* m_escapeBackslashes = nullptr;
    QLineEdit* m_preview = nullptr;
    QPushButton* m_insertButton = nullptr;
    QPushButton* m_cancelButton = nullptr;
    QStringListModel* m_completions = nullptr;
    QString m_base; ///< where typed paths without a root begin
};
