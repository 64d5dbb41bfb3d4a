#pragma once

#include "language/LineRegions.h"
#include "language/LineWords.h"
#include "language/PendingLines.h"

#include <QElapsedTimer>
#include <QSyntaxHighlighter>
#include <QTextLayout>

class CodeEditorBlockData;
class QTimer;

/// Colours a document and fills the CodeEditorBlockData of its lines. On its own it knows no
/// language and only files brackets and indents. Owned by the document; interface thread only.
///
/// A small change is highlighted at once. After a large one the states of the lines (the block
/// state: the region that a line ends in, or -1) are carried on by a timer in short turns, then the
/// lines that were asked for are coloured, then the others.
class Highlighter : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    /// Best attached while the document is empty.
    explicit Highlighter(QTextDocument* document);
    ~Highlighter() override;

    /// Colours these lines (block numbers, both included) now if they are not. Call it for what
    /// comes into view; very long documents are then coloured only where somebody looks.
    void EnsureHighlighted(int firstLine, int lastLine);
    /// The data of a line, filled now if it is not. Null for an invalid block.
    CodeEditorBlockData* GetBlockData(const QTextBlock& block);
    /// Everything again, after the colours, the vocabulary or the visible white space changed.
    void Rehighlight();
    /// Whether nothing is left to do.
    bool IsComplete() const;

Q_SIGNALS:
    /// Nothing is left to do after a turn of the timer.
    void Completed();

protected:
    /// `roleKeys` names the colours that the numbers of roles stand for.
    Highlighter(QTextDocument* document, const QVector<MultiLineHighlightingRule>& regions,
        const QStringList& roleKeys);

    void highlightBlock(const QString& text) override;
    // The layers of a line, in the order in which they are laid. Strings and comments come last.
    virtual void HighlightEarlyRules(QStringView text, LineRoles& roles) const;
    virtual void HighlightBuiltins(QStringView text, LineRoles& roles) const;
    virtual void HighlightKeywords(QStringView text, LineRoles& roles) const;
    virtual void HighlightRules(QStringView text, LineRoles& roles) const;
    /// Notes the steps of indent that the line adds for the next one. `codeEnd` is behind its last
    /// character that is neither comment nor white space; all else of `data` is filled.
    virtual void UpdateSmartIndentData(
        CodeEditorBlockData& data, QStringView text, int codeEnd) const;

private:
    // Lines whose state or text changed
    void OnContentsChange(int position, int removed, int added);
    void OnContentsChanged();
    void CatchUpAtOnce(const LineSpan& changed);
    bool CarryStatesOn(LineSpan& span, int maximumLines, bool colour);
    void Work();
    void CarryPendingStatesOn(int maximumLines);
    void ColourInTheBackground(const QElapsedTimer& clock);
    void WorkLater();
    void StopWork();
    bool LeavesTheRest() const;

    // One line
    int StateBefore(const QTextBlock& block) const;
    bool IsFilled(const QTextBlock& block) const;
    bool IsColoured(const QTextBlock& block) const;
    bool AreColoured(const LineSpan& lines) const;
    void ColourLines(int firstLine, int lastLine);
    int ColourLine(QTextBlock block);
    int FillData(QTextBlock block, const QString& text);
    int Look(
        const QTextBlock& block, const QString& text, QVector<QTextLayout::FormatRange>& formats);
    void HighlightLine(QStringView text, LineRoles& roles) const;
    void HighlightHiddenCharacters(QStringView text, LineRoles& roles) const;
    QVector<QTextLayout::FormatRange> FormatsOf(const LineRoles& roles) const;
    void UpdateFormats();

    const RegionScanner m_regionScanner;
    QVector<LineRegion> m_regions; ///< of the line that is looked at
    const QStringList m_roleKeys;
    QVector<QTextCharFormat> m_formats; ///< one per role, the last for visible white space
    bool m_showsWhitespace = false;
    QTimer* m_timer;
    PendingLines m_pending;
    int m_lineCount;
    int m_settledRevision; ///< of the document, when the last change was over
    int m_generation = 0; ///< of the colours; lines of another one are stale
    int m_nextToColour = 0; ///< the lines before are coloured, or change at once
    LineSpan m_view; ///< asked for last
    bool m_hasView = false;
    bool m_isViewDue = false; ///< asked for within a change
    bool m_ignoresToolkit = false; ///< while the toolkit would highlight everything at once
};
