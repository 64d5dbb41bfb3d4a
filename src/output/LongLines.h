#pragma once

#include <QString>

class QTextBlock;
class QTextCursor;
class QTextDocument;

/// Lets the document of the console hold lines of any length. A text widget lays out a block as a
/// whole, which takes seconds for some million characters and breaks down altogether where they
/// are wider than its coordinates reach. So an endless line becomes several blocks, of which all
/// but the first continue it; who reads the text joins them again. Interface thread only.
///
/// Invariant: the text grows at its end and goes at its start only, and only through this class
/// while it has continuing blocks. Positions count the break before such a block as one character.
class LongLines
{
public:
    /// A line up to `longestWhole` characters stays one block, a longer one is cut into blocks of
    /// `piece` characters, behind a blank if there is one near; both are at least 2. `document` is
    /// not owned.
    explicit LongLines(QTextDocument* document, int longestWhole = 16384, int piece = 2048);

    /// Whether the block goes on with the line of the block before it.
    static bool Continues(const QTextBlock& block);

    /// Whether the text at the document's end needs Append(); the document can take it as it is
    /// otherwise.
    bool IsNeededFor(const QString& text) const;
    /// Puts the text behind everything else and drops the first lines beyond the limit.
    void Append(const QString& text);
    /// After the document was emptied.
    void Forget();

    int GetLineCount() const;
    /// The most lines kept, which the document only knows together with the breaks; 0 for all.
    int GetLineLimit() const;
    void SetLineLimit(int lines);

    /// `text`, which is a copy of the document's from position `start` on, without our breaks.
    QString WithoutBreaks(const QString& text, int start) const;

private:
    void AppendLine(QTextCursor& cursor, const QString& line);
    void DropLines(int count);

    QTextDocument* m_document; ///< not owned
    int m_longestWhole;
    int m_piece;
    int m_breaks = 0; ///< continuing blocks in the document
};
