#pragma once

#include "language/AutoCompleter.h"

#include <memory>

class QStandardItemModel;

/// Completes the names that MEL knows, and behind a command's name its flags. The names are one
/// model for the whole process, made by the first completer: commands that the host learns later
/// appear after the plug-in was loaded anew. Owned by its editor; interface thread only.
class MelAutoCompleter : public AutoCompleter
{
    Q_OBJECT

public:
    explicit MelAutoCompleter(QPlainTextEdit* editor);

    bool ValidateAndSetPrefix(const QTextCursor& cursor) override;

protected:
    void UpdateModel() override;
    QString GetHelpName() const override;

private:
    bool SetFlagPrefix(const QTextCursor& cursor);
    void UpdateFlagModel(const QString& command);

    // They go with the plug-in's code.
    static std::unique_ptr<QStandardItemModel> sMelCommandItemModel;
    static std::unique_ptr<PrefixFilterModel> sMelCommandProxyModel;

    QString m_command; ///< whose flags are offered; empty while names are
    QString m_flagModelCommand; ///< whose flags the model holds
    QStandardItemModel* m_flagItemModel = nullptr; ///< made for the first flags
    PrefixFilterModel* m_flagProxyModel = nullptr;
};
