#pragma once

#include "language/AutoCompleter.h"
#include "language/PythonCompletion.h"

#include <QElapsedTimer>
#include <QHash>
#include <QSet>
#include <QVector>

#include <memory>

class PythonSource;
class PythonSourceLoader;
class QStandardItemModel;

/// Completes names of the edited source and attributes of what they stand for. The source is read
/// apart; the host looks it through on the interface thread, so it is asked at most once per object
/// and text, and not by itself where it was slow: names of the text are then offered without it.
/// Owned by its editor; interface thread only.
class PythonAutoCompleter : public AutoCompleter
{
    Q_OBJECT

public:
    explicit PythonAutoCompleter(QPlainTextEdit* editor);

    bool ValidateAndSetPrefix(const QTextCursor& cursor) override;
    void Update(const QTextCursor& cursor, const QRect& cursorRect, bool applyIfSingle) override;

Q_SIGNALS:
    /// The names that the last update lacked have come; what it was called with.
    void NamesArrived(bool applyIfSingle);

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
    using Source = std::shared_ptr<const PythonSource>;

    void OnSourceLoaded();
    void DropStaleAnswers(int line);
    /// False when there is no answer that still counts, or not yet.
    bool FetchNames(const QTextCursor& cursor, bool isExplicit);
    bool Ask(const QString& key, const QString& lineText, bool isExplicit);
    void ListNames(const QTextCursor& cursor);
    void AppendWords(const PythonSource& source, const QSet<QString>& language, Names& names);
    Names NamesInSource(const QTextCursor& cursor);
    static Names AttributeNames(const QStringList& attributes);

    PythonSourceLoader* m_loader;
    Source m_source; ///< of the last answer
    bool m_isAwaited = false; ///< an update was left to the source's coming
    bool m_awaitedExplicitly = false;
    int m_awaitedPosition = -1; ///< of the cursor
    QStandardItemModel* m_itemModel = nullptr;
    PythonCompletion::Request m_request;
    QString m_shownObject; ///< the popup lists its names
    QStringList m_shownNames; ///< of the host
    QString m_listedPrefix; ///< the model holds what begins with it
    bool m_isListCut = false; ///< but not all of that
    QHash<QString, QStringList> m_answers; ///< of the host by object, for the text outside one line
    QElapsedTimer m_answersAge;
    int m_answersLine = -1; ///< from 0
    QSet<QString> m_slowObjects;
};
