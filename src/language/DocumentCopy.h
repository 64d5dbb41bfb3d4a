#pragma once

#include <QDeadlineTimer>
#include <QString>
#include <QVector>

class QTextDocument;

/// A copy of a document's text, taken in slices between events so that no long text holds anything
/// up, and kept true to the document while that goes on changing. Whoever owns it passes the
/// document's changes on. Interface thread only.
class DocumentCopy
{
public:
    /// `document` outlives the copy and is not owned.
    explicit DocumentCopy(const QTextDocument* document);

    /// Goes on until the whole text has been copied or the time is over; true when it has.
    bool TakeSlice(const QDeadlineTimer& deadline);
    /// In the words of QTextDocument::contentsChange.
    void OnContentsChange(int position, int removed, int added);
    /// What has been copied so far, to be joined without anything between. Line ends are line
    /// feeds; otherwise the characters are the document's own.
    const QVector<QString>& GetPieces() const { return m_pieces; }

private:
    void Truncate(int length);
    void Replace(int position, int removed, const QString& text);
    QString TextBetween(int start, int end) const;

    const QTextDocument* m_document; ///< not owned
    QVector<QString> m_pieces;
    int m_length = 0; ///< of all pieces: the document is copied up to this position
};
