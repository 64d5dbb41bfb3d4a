#include "language/Highlighter.h"

#include "editor/CodeEditorBlockData.h"
#include "language/LineBlockData.h"
#include "settings/ColorSettings.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTimer>

#include <utility>

namespace {

constexpr int AT_ONCE_LINES = 2000;
constexpr int LINES_PER_LOOK_AT_THE_CLOCK = 64;
/// Of all documents together, so that a turn with its paint stays below 8 ms.
constexpr int TURN_NANOSECONDS = 4'000'000;
/// With a view that asks for its lines, longer documents are not coloured where nobody looks.
constexpr int BACKGROUND_LINES = 50000;
/// New colours have the whole view painted, so lines about to scroll into it are coloured with it.
constexpr int LINES_AROUND_VIEW = 64;

constexpr int NOT_COLOURED = 0;

int workingHighlighters = 0; ///< whose timers run

/// The timers of all documents fire in the same turns of the event loop.
bool HasTime(const QElapsedTimer& clock)
{
    return clock.nsecsElapsed() < TURN_NANOSECONDS / qMax(1, workingHighlighters);
}

/// Block data that knows what it was filled for, and whether the line was coloured, too.
class ColouredBlockData : public CodeEditorBlockData
{
public:
    int generation = NOT_COLOURED;
    int stateBefore = RegionScanner::NO_STATE;
    int revision = 0; ///< of the line's text
};

const ColouredBlockData* DataOf(const QTextBlock& block)
{
    return dynamic_cast<const ColouredBlockData*>(block.userData());
}

int NextGeneration()
{
    static int generation = 0;
    return ++generation;
}

} // namespace

Highlighter::Highlighter(QTextDocument* document)
    : Highlighter(document, {}, {})
{ }

Highlighter::Highlighter(QTextDocument* document, const QVector<MultiLineHighlightingRule>& regions,
    const QStringList& roleKeys)
    : QSyntaxHighlighter(document)
    , m_regionScanner(regions)
    , m_roleKeys(roleKeys)
    , m_timer(new QTimer(this))
    , m_lineCount(document->blockCount())
    , m_settledRevision(document->revision())
{
    // The toolkit would highlight a change of any length at once and lay every line out for it.
    disconnect(document, SIGNAL(contentsChange(int, int, int)), this, nullptr);
    connect(document, &QTextDocument::contentsChange, this, &Highlighter::OnContentsChange);
    connect(document, &QTextDocument::contentsChanged, this, &Highlighter::OnContentsChanged);
    m_timer->setInterval(0);
    connect(m_timer, &QTimer::timeout, this, &Highlighter::Work);
    m_generation = NextGeneration();
    UpdateFormats();
    m_pending.Add({0, m_lineCount});
    if (document->isEmpty()) {
        CarryStatesOn(m_pending.First(), 1, true);
        m_pending.Clear();
        m_nextToColour = m_lineCount;
        return;
    }
    if (m_regionScanner.IsEmpty())
        m_pending.Clear();
    m_ignoresToolkit = true;
    WorkLater();
}

Highlighter::~Highlighter()
{
    StopWork();
    // The toolkit takes the colours away, which changes the document once more.
    if (document())
        document()->disconnect(this);
}

void Highlighter::UpdateFormats()
{
    m_formats.clear();
    for (const QString& key : m_roleKeys)
        m_formats.append(ColorSettings::GetCodeEditorFormat(key, false));
    m_formats.append(ColorSettings::GetCodeEditorFormat(ColorSettings::WHITESPACES, false));
    m_showsWhitespace
        = document()->defaultTextOption().flags().testFlag(QTextOption::ShowTabsAndSpaces);
}

bool Highlighter::IsComplete() const
{
    return m_pending.IsEmpty() && !m_timer->isActive();
}

void Highlighter::Rehighlight()
{
    UpdateFormats();
    m_generation = NextGeneration();
    m_nextToColour = 0;
    // Many documents get new colours at one time: nobody waits for more than is in view.
    if (m_hasView) {
        ColourLines(m_view.first, m_view.end - 1);
    } else if (m_lineCount <= AT_ONCE_LINES && m_pending.IsEmpty()) {
        ColourLines(0, m_lineCount - 1);
        m_nextToColour = m_lineCount;
        return;
    }
    WorkLater();
}

void Highlighter::EnsureHighlighted(int firstLine, int lastLine)
{
    m_hasView = true;
    m_view = {qMax(0, firstLine), qMin(lastLine + 1, m_lineCount)};
    // Within a change the document must not be told of new colours: it would forget what changed.
    if (document()->revision() != m_settledRevision) {
        m_isViewDue = true;
        return;
    }
    const bool showsWhitespace
        = document()->defaultTextOption().flags().testFlag(QTextOption::ShowTabsAndSpaces);
    if (showsWhitespace != m_showsWhitespace)
        Rehighlight();
    else if (!m_pending.IsEmpty() && m_pending.First().first < m_view.end)
        CarryPendingStatesOn(AT_ONCE_LINES);
    if (!AreColoured(m_view))
        ColourLines(qMax(0, m_view.first - LINES_AROUND_VIEW), m_view.end + LINES_AROUND_VIEW - 1);
}

CodeEditorBlockData* Highlighter::GetBlockData(const QTextBlock& block)
{
    if (block.isValid() && !IsFilled(block))
        FillData(block, block.text());
    return dynamic_cast<CodeEditorBlockData*>(block.userData());
}

void Highlighter::OnContentsChange(int position, int removed, int added)
{
    const int delta = document()->blockCount() - m_lineCount;
    m_lineCount += delta;
    const QTextBlock first = document()->findBlock(position);
    const QTextBlock last = document()->findBlock(position + added + (removed > 0 ? 1 : 0));
    LineSpan changed{
        first.blockNumber(), (last.isValid() ? last.blockNumber() : m_lineCount - 1) + 1};
    // Where lines came or went the last one may bear the state of another; the line behind it is
    // the first whose own state tells that nothing changes any more.
    if (delta != 0 || changed.end - changed.first > 1)
        changed.end = qMin(changed.end + 1, m_lineCount);
    m_pending.Shift(changed.first, delta);
    if (m_nextToColour > changed.first)
        m_nextToColour = qMax(changed.first, m_nextToColour + delta);
    CatchUpAtOnce(changed);
}

/// Highlights what changed as far as that is quick, and leaves the rest to the timer.
void Highlighter::CatchUpAtOnce(const LineSpan& changed)
{
    LineSpan rest = changed;
    const bool isSmall = changed.end - changed.first <= AT_ONCE_LINES;
    if (isSmall && CarryStatesOn(rest, AT_ONCE_LINES, true))
        return;
    if (!isSmall) {
        // Blocks that were there before may keep what they held.
        for (const int line : {changed.first, changed.end - 1})
            document()->findBlockByNumber(line).setUserData(nullptr);
    }
    m_nextToColour = qMin(m_nextToColour, rest.first);
    if (!m_regionScanner.IsEmpty())
        m_pending.Add({rest.first, qMax(rest.first, rest.end)});
    WorkLater();
}

/// The end of a change, or of an edit block that changed nothing.
void Highlighter::OnContentsChanged()
{
    m_settledRevision = document()->revision();
    if (std::exchange(m_isViewDue, false))
        EnsureHighlighted(m_view.first, m_view.end - 1);
}

/// Computes the states from span.first on and moves that. True when the lines behind it are right
/// as they are, false when the number of lines is used up.
bool Highlighter::CarryStatesOn(LineSpan& span, int maximumLines, bool colour)
{
    QTextBlock block = document()->findBlockByNumber(span.first);
    int state = StateBefore(block);
    for (int lines = 0; block.isValid(); ++lines, block = block.next()) {
        if (lines == maximumLines)
            return false;
        const int oldState = block.userState();
        state = colour ? ColourLine(block) : m_regionScanner.Scan(block.text(), state, nullptr);
        block.setUserState(state);
        ++span.first;
        if (state == oldState && span.first >= span.end)
            return true;
    }
    return true;
}

void Highlighter::WorkLater()
{
    if (m_timer->isActive())
        return;
    m_timer->start();
    ++workingHighlighters;
}

void Highlighter::StopWork()
{
    if (!m_timer->isActive())
        return;
    m_timer->stop();
    --workingHighlighters;
}

void Highlighter::Work()
{
    m_ignoresToolkit = false;
    m_settledRevision = document()->revision();
    QElapsedTimer clock;
    clock.start();
    while (!m_pending.IsEmpty() && HasTime(clock))
        CarryPendingStatesOn(LINES_PER_LOOK_AT_THE_CLOCK);
    if (m_pending.IsEmpty() && m_hasView)
        ColourLines(m_view.first, qMin(m_view.end, m_lineCount) - 1);
    ColourInTheBackground(clock);
    if (!m_pending.IsEmpty() || (m_nextToColour < m_lineCount && !LeavesTheRest()))
        return;
    StopWork();
    Q_EMIT Completed();
}

/// A step of the states that are known to be stale, from the first of them on.
void Highlighter::CarryPendingStatesOn(int maximumLines)
{
    LineSpan span = m_pending.First();
    m_nextToColour = qMin(m_nextToColour, span.first);
    const bool isDone = CarryStatesOn(span, maximumLines, false);
    m_pending.RemoveFirst();
    if (!isDone)
        m_pending.Add({span.first, qMax(span.first, span.end)});
}

void Highlighter::ColourInTheBackground(const QElapsedTimer& clock)
{
    if (LeavesTheRest())
        return;
    while (m_pending.IsEmpty() && m_nextToColour < m_lineCount && HasTime(clock)) {
        const int end = qMin(m_nextToColour + LINES_PER_LOOK_AT_THE_CLOCK, m_lineCount);
        ColourLines(m_nextToColour, end - 1);
        m_nextToColour = end;
    }
}

/// Whether lines that nobody looks at stay as they are. Data is filled for whoever asks.
bool Highlighter::LeavesTheRest() const
{
    const bool coloursNothing = m_roleKeys.isEmpty() && !m_showsWhitespace;
    return m_hasView && (coloursNothing || m_lineCount > BACKGROUND_LINES);
}

int Highlighter::StateBefore(const QTextBlock& block) const
{
    // Another language may have left its states.
    const QTextBlock previous = m_regionScanner.IsEmpty() ? QTextBlock() : block.previous();
    return previous.isValid() ? previous.userState() : RegionScanner::NO_STATE;
}

bool Highlighter::IsFilled(const QTextBlock& block) const
{
    const ColouredBlockData* data = DataOf(block);
    return data && data->revision == block.revision() && data->stateBefore == StateBefore(block);
}

bool Highlighter::IsColoured(const QTextBlock& block) const
{
    return IsFilled(block) && DataOf(block)->generation == m_generation;
}

bool Highlighter::AreColoured(const LineSpan& lines) const
{
    QTextBlock block = document()->findBlockByNumber(lines.first);
    for (int line = lines.first; line < lines.end && block.isValid();
         ++line, block = block.next()) {
        if (!IsColoured(block))
            return false;
    }
    return true;
}

/// Colours those of the lines that are stale, and has the document laid out again only once.
void Highlighter::ColourLines(int firstLine, int lastLine)
{
    int start = -1;
    int end = -1;
    QTextBlock block = document()->findBlockByNumber(firstLine);
    for (int line = firstLine; line <= lastLine && block.isValid(); ++line, block = block.next()) {
        if (IsColoured(block))
            continue;
        QVector<QTextLayout::FormatRange> formats;
        Look(block, block.text(), formats);
        // Setting even the same formats has lines laid out and the whole view painted again.
        if (formats == block.layout()->formats())
            continue;
        block.layout()->setFormats(formats);
        start = start < 0 ? block.position() : start;
        end = block.position() + block.length();
    }
    if (start >= 0)
        document()->markContentsDirty(start, end - start);
}

/// Colours one line within a change of the document; the state that it ends in.
int Highlighter::ColourLine(QTextBlock block)
{
    QVector<QTextLayout::FormatRange> formats;
    const int state = Look(block, block.text(), formats);
    if (!block.layout()->preeditAreaText().isEmpty()) {
        // Text being composed has formats of its own among ours; the toolkit joins them.
        block.setUserState(state);
        rehighlightBlock(block);
    } else if (formats != block.layout()->formats()) {
        block.layout()->setFormats(formats);
        document()->markContentsDirty(block.position(), block.length());
    }
    return state;
}

void Highlighter::highlightBlock(const QString& text)
{
    if (m_ignoresToolkit)
        return;
    if (currentBlock().blockNumber() == 0)
        UpdateFormats();
    QVector<QTextLayout::FormatRange> formats;
    setCurrentBlockState(Look(currentBlock(), text, formats));
    for (const QTextLayout::FormatRange& range : qAsConst(formats))
        setFormat(range.start, range.length, range.format);
}

/// Fills the data of a line but leaves its colours; the state that it ends in.
int Highlighter::FillData(QTextBlock block, const QString& text)
{
    auto* data = dynamic_cast<ColouredBlockData*>(block.userData());
    if (!data) {
        data = new ColouredBlockData;
        block.setUserData(data);
    }
    data->generation = NOT_COLOURED;
    data->stateBefore = StateBefore(block);
    data->revision = block.revision();
    m_regions.clear();
    const int state = m_regionScanner.Scan(text, data->stateBefore, &m_regions);
    const int codeEnd = FillBlockData(*data, text, m_regions, m_regionScanner);
    UpdateSmartIndentData(*data, text, codeEnd);
    return state;
}

/// Fills the data of a line and tells the formats that it is to get; the state that it ends in.
int Highlighter::Look(
    const QTextBlock& block, const QString& text, QVector<QTextLayout::FormatRange>& formats)
{
    const int state = FillData(block, text);
    static_cast<ColouredBlockData*>(block.userData())->generation = m_generation;
    LineRoles roles(text.size());
    HighlightLine(text, roles);
    formats = FormatsOf(roles);
    return state;
}

void Highlighter::HighlightLine(QStringView text, LineRoles& roles) const
{
    HighlightEarlyRules(text, roles);
    HighlightBuiltins(text, roles);
    HighlightKeywords(text, roles);
    HighlightRules(text, roles);
    for (const LineRegion& region : m_regions)
        roles.Fill(region.start, region.end, m_regionScanner.GetRule(region.rule).role);
    if (m_showsWhitespace)
        HighlightHiddenCharacters(text, roles);
}

void Highlighter::HighlightHiddenCharacters(QStringView text, LineRoles& roles) const
{
    for (int at = 0; at < text.size(); ++at) {
        if (text.at(at).isSpace())
            roles.Fill(at, at + 1, m_roleKeys.size());
    }
}

QVector<QTextLayout::FormatRange> Highlighter::FormatsOf(const LineRoles& roles) const
{
    QVector<QTextLayout::FormatRange> formats;
    const auto& all = roles.GetRoles();
    for (int start = 0; start < all.size();) {
        int end = start + 1;
        while (end < all.size() && all[end] == all[start])
            ++end;
        if (all[start] != LineRoles::NO_ROLE)
            formats.append({start, end - start, m_formats.at(all[start])});
        start = end;
    }
    return formats;
}

void Highlighter::HighlightEarlyRules(QStringView, LineRoles&) const { }

void Highlighter::HighlightBuiltins(QStringView, LineRoles&) const { }

void Highlighter::HighlightKeywords(QStringView, LineRoles&) const { }

void Highlighter::HighlightRules(QStringView, LineRoles&) const { }

void Highlighter::UpdateSmartIndentData(CodeEditorBlockData&, QStringView, int) const { }
