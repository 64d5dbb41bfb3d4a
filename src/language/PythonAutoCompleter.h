#pragma once

#include "language/AutoCompleter.h"
#include "language/PythonCompletion.h"

#include <QElapsedTimer>
#include <QHash>
#include <QSet>
#include <QVector>

class QStandardItemModel;

/// Completes names of the edited source and attributes of what they stand for. The host looks the
/// source through on the interface thread, so it is asked at most once per object and text, and not
/// by itself where it was slow. Owned by its editor; interface thread only.
class PythonAutoCompleter : public AutoCompleter
{
    Q_OBJECT

public:
    explicit PythonAutoCompleter(QPlainTextEdit* editor);

    bool ValidateAndSetPrefix(const QTextCursor& cursor) override;
    void Update(const QTextCursor& cursor, const QRect& cursorRect, bool applyIfSingle) override;

protected:
    void UpdateModel() override;
    Qt::CaseSensitivity GetCaseSensitivity() const override { return Qt::CaseInsensitive; }

private:
    struct Name
    {
        QString text;
        QString iconName;
    };
    using Names = QVector<Name>;
    struct Answer
    {
        QStringList names; ///< of the host
        QHash<QString, QString> words; ///< of the text outside the cursor's line, with icons
    };

    void OnContentsChange(int position, int removed, int added);
    void DropStaleAnswers(const QTextCursor& cursor);
    /// False when there is no answer that still counts.
    bool FetchNames(const QTextCursor& cursor, bool isExplicit);
    bool Ask(const QString& key, const QTextCursor& cursor);
    void ShowAnswer(const Answer& answer, const QTextCursor& cursor);
    Names NamesInSource(const Answer& answer, const QTextCursor& cursor) const;
    static Names AttributeNames(const QStringList& attributes);

    QStandardItemModel* m_itemModel = nullptr;
    PythonCompletion::Request m_request;
    QString m_shownObject; ///< the popup lists its names
    QHash<QString, Answer> m_answers; ///< by object, for the text outside one line
    QElapsedTimer m_answersAge;
    int m_answersLine = -1; ///< from 0
    int m_lineCount = 0;
    QSet<QString> m_slowObjects;
};
