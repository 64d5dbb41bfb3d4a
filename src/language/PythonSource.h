#pragma once

#include "language/PythonBindings.h"
#include "language/PythonLines.h"

#include <QString>
#include <QVector>

#include <atomic>

/// A statement of a Python text; all numbers count from 0.
struct PythonStatement
{
    enum class Kind { Simple, Function, Class, Block, Branch };
    Kind kind = Kind::Simple;
    int firstLine = 0; ///< with decorators
    int lastLine = 0;
    int indent = 0; ///< columns
    bool isOpenHead = false; ///< its body is on other lines
    bool isStarImport = false;
    bool isUnfinished = false; ///< its brackets are open; it would only spoil what it stands in
    int parent = -1; ///< that it is indented below
    int owner = -1; ///< the function or class that it stands in
    int partner = -1; ///< whose branch it is
    int end = 0; ///< behind the last statement that stands in it
    int firstBinding = 0;
    int endOfBindings = 0;
};

/// A Python text as completion sees it: its names, its statements and what each of them binds. The
/// line that is being written has no part in that. Never changes; may be made and read on any
/// thread.
class PythonSource
{
public:
    struct Name
    {
        QStringView text;
        PythonNameKind kind = PythonNameKind::Unknown; ///< where it was bound last
        bool isWord = false; ///< not only an attribute
        int lastBinding = -1;
    };
    struct Binding
    {
        int name;
        int statement;
        int previous; ///< of the same name
        PythonBinding::Scope scope;
        bool isFinal;
    };

    /// `line` is the one that is being written, -1 for none. Gives up early, with an object that is
    /// good for nothing, when `isCancelled` becomes true.
    explicit PythonSource(
        const QString& text, int line = -1, const std::atomic<bool>* isCancelled = nullptr);

    int GetLine() const { return m_line; }
    /// Whether the source would be the same if its line read so.
    bool StillHolds(const QString& lineText) const;
    /// The names that stand in the code but for attributes, public ones first, each kind without
    /// regard to case.
    const QVector<Name>& GetWords() const { return m_words; }

    const QVector<Name>& GetNames() const { return m_names; }
    /// Of a name; -1 for one that is nowhere.
    int FindName(QStringView name) const;
    const QVector<Binding>& GetBindings() const { return m_bindings; }
    const QVector<PythonStatement>& GetStatements() const { return m_statements; }
    /// That the line belongs to; an empty line is a statement of its own.
    int GetLineStatement() const { return m_lineStatement; }
    QStringView GetLineText(int line) const;
    int GetSize() const { return m_text.size(); } ///< characters
    /// With `lineText` for the line that is being written.
    QString GetText(const QString& lineText) const;

    /// Public names first, each kind without regard to case.
    static bool IsListedBefore(QStringView left, QStringView right);

private:
    struct Reading;
    /// What the line is to all that follows.
    struct LineState
    {
        bool continues = false;
        bool isOpen = false;
        int indent = 0;
        PythonStatement::Kind kind = PythonStatement::Kind::Simple;
        bool IsLike(const LineState& other) const;
    };

    static LineState StateOf(PythonLineReader before, QStringView line);
    void SplitLines();
    void Read(const std::atomic<bool>* isCancelled);
    void ReadLine(Reading& reading, int line);
    void Begin(Reading& reading, int line, int indent);
    void Finish(Reading& reading);
    void Place(Reading& reading, PythonStatement& statement);
    void AppendBindings(Reading& reading);
    void AppendWords(const QVector<PythonToken>& tokens, int from);
    int SlotOf(QStringView name) const;
    void GrowSlots();
    int NumberOf(QStringView name);
    void CollectWords();

    QString m_text;
    QVector<int> m_lineStarts;
    int m_line;
    LineState m_lineState;
    PythonLineReader m_beforeLine; ///< as it was there
    int m_lineStatement = -1;
    QVector<Name> m_names; ///< parts of the text
    QVector<int> m_slots; ///< numbers of names by hash, -1: free; at most half full
    QVector<Name> m_words;
    QVector<PythonStatement> m_statements;
    QVector<Binding> m_bindings;

    Q_DISABLE_COPY(PythonSource)
};
