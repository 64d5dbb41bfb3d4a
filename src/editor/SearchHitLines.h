#pragma once

#include <QObject>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTimer>
#include <QVector>

class QTextDocument;

/// The lines of a document on which a searched text stands, for the overview beside the text.
/// Looks through the document a slice per turn of the event loop, so that a big one never holds up
/// typing; until it is through, the last answer stays. Owned by the document's editor.
class SearchHitLines : public QObject
{
    Q_OBJECT

public:
    SearchHitLines(const QTextDocument* document, QObject* parent);

    /// Begins anew; an expression without pattern or with a fault finds nothing.
    void Search(const QRegularExpression& expression);
    /// The text changed at a line: what stands behind it moves, and a search under way begins anew.
    void Offset(int line, int addedLines);

    /// From 0, ascending, each once.
    const QVector<int>& GetLines() const { return m_lines; }

Q_SIGNALS:
    void LinesChanged();

private:
    void Begin();
    void SearchSlice();
    void Finish();

    const QTextDocument* m_document; ///< not owned
    QRegularExpression m_expression;
    QTimer m_timer;
    QTextBlock m_next; ///< where the next slice begins
    int m_nextLine = 0;
    QVector<int> m_found; ///< by the search under way
    QVector<int> m_lines; ///< by the last finished one
};
