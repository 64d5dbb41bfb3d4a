// Search in files: runs it, keeps its results up to date and shows them.

#include "editor/CodeEditor.h"
#include "editor/CodeEditorGroup.h"
#include "editor/SearchExpression.h"
#include "files/FileText.h"
#include "plugin/Logger.h"
#include "search/FindMatching.h"
#include "search/SearchRun.h"
#include "settings/Settings.h"
#include "views/search/SearchView.h"
#include "window/BusyLoop.h"
#include "window/TarnwickEditor.h"

#include <QApplication>
#include <QFileInfo>
#include <QTimer>

namespace {

constexpr int PROGRESS_INTERVAL = 200; // ms
/// More would hide everything else in the output.
constexpr int MOST_LOGGED = 20;
/// Nobody looks through so many, and the host needs its memory for other things.
constexpr int MOST_HITS = 1000000;

SearchFilter StoredFilter()
{
    return {Settings::globalSearchIncludePaths, Settings::globalSearchExcludePaths,
        Settings::globalSearchIncludePatterns, Settings::globalSearchExcludePatterns};
}

void LogEach(const QStringList& paths, const QString& text)
{
    for (const QString& path : paths.mid(0, MOST_LOGGED))
        Logger::Warning(text.arg(path));
    if (paths.size() > MOST_LOGGED)
        Logger::Warning(text.arg(TarnwickEditor::tr("%1 more").arg(paths.size() - MOST_LOGGED)));
}

} // namespace

/// What a search run tells and asks; survives the window.
class TarnwickEditor::SearchOwner : public SearchRun::Owner
{
public:
    SearchOwner(TarnwickEditor* window, BusyLoop& loop)
        : m_window(window)
        , m_loop(loop)
    {
        m_clock.start();
    }

    void Follow(const SearchRun* run) { m_run = run; }
    bool HasTooMany() const { return m_hits > MOST_HITS; }

    void OnHits(
        const QString& folder, const QString& relative, const QVector<SearchResult>& hits) override
    {
        m_hits += hits.size();
        const QString path = hits.first().filePath;
        m_window->m_searchStamps.insert(path, FileStamp::Of(path));
        m_window->m_sideBar->GetSearch()->AppendResults(folder, relative, hits);
    }

    bool KeepGoing() override
    {
        if (m_clock.elapsed() >= PROGRESS_INTERVAL) {
            m_window->m_sideBar->GetSearch()->ShowProgress(m_run->GetFileCount());
            m_clock.start();
        }
        return m_loop.Turn() && !HasTooMany();
    }

    QString GetOpenText(const QString& path) override
    {
        const CodeEditor* const editor = m_window->GetCodeEditor(path);
        return editor ? editor->GetText() : QString();
    }

private:
    QPointer<TarnwickEditor> m_window;
    BusyLoop& m_loop;
    const SearchRun* m_run = nullptr;
    QElapsedTimer m_clock;
    int m_hits = 0;
};

void TarnwickEditor::ConnectSearch()
{
    using S = SearchView;
    using T = TarnwickEditor;
    qRegisterMetaType<QVector<SearchResult>>("QVector<SearchResult>");
    const S* const view = m_sideBar->GetSearch();
    // Queued: while they run the window may go, and the field that was typed into with it.
    connect(view, &S::SearchRequested, this, &T::Search, Qt::QueuedConnection);
    connect(view, &S::ReplaceRequested, this, &T::ReplaceSearchHits, Qt::QueuedConnection);
    connect(view, &S::ReplaceHitRequested, this, &T::ReplaceSearchHit);
    connect(view, &S::HitChosen, this, &T::ShowSearchHit);
    connect(view, &S::FileChosen, this, [this](const QString& path) {
        OpenFile(path, false);
        SetActiveCodeEditor(path);
    });
    connect(view, &S::HitCountChanged, this,
        [this](int count) { m_activityBar->SetCount(ActivityBar::Item::Search, count); });
    connect(view, &S::Shown, this, &T::UpdateSearchOfEditors);
    connect(m_sideBar, &SideBar::PageChanged, this, &T::UpdateSearchMarks);
    for (const CodeEditorGroup* group : qAsConst(m_groups)) {
        connect(group, &CodeEditorGroup::TabsChanged, this, &T::UpdateSearchMarks);
        connect(group, &CodeEditorGroup::TextChanged, this,
            [this](const QString& path) { UpdateSearch(path, QString()); });
    }
}

void TarnwickEditor::Search(const QString& text, const QStringList& include,
    const QStringList& exclude, bool matchCase, bool matchWord, bool useRegularExpression)
{
    if (m_busyLoop) {
        // The one that runs ends soon, and then it is this one's turn.
        m_busyLoop->Cancel();
        QTimer::singleShot(0, this,
            [=] { Search(text, include, exclude, matchCase, matchWord, useRegularExpression); });
        return;
    }
    Settings::globalSearchRegEx
        = CreateSearchRegEx(text, matchCase, matchWord, useRegularExpression);
    Settings::globalSearchUsesExpression = useRegularExpression;
    m_sideBar->GetSearch()->ClearResults();
    m_searchStamps.clear();
    SearchFilter filter;
    filter.includePatterns = CreateSearchFilter(include, filter.includePaths);
    filter.excludePatterns = CreateSearchFilter(exclude, filter.excludePaths);
    Settings::globalSearchIncludePatterns = filter.includePatterns;
    Settings::globalSearchIncludePaths = filter.includePaths;
    Settings::globalSearchExcludePatterns = filter.excludePatterns;
    Settings::globalSearchExcludePaths = filter.excludePaths;

    const QPointer<TarnwickEditor> guard(this);
    RunSearch(filter);
    if (!guard)
        return;
    UpdateSearchMarks();
    const QStringList changed = m_changedWhileSearching.values();
    m_changedWhileSearching.clear();
    for (const QString& path : changed)
        UpdateSearch(path, QString());
}

void TarnwickEditor::RunSearch(const SearchFilter& filter)
{
    BusyLoop loop(this);
    m_busyLoop = &loop;
    SearchOwner owner(this, loop);
    SearchRun run(Settings::globalSearchRegEx, filter, &FileText::ChosenCodec(), owner);
    owner.Follow(&run);
    run.SetOpenPaths(GetCodeEditorPaths());
    if (!Settings::globalSearchRegEx.pattern().isEmpty())
        SearchEverything(run, filter);
    if (loop.IsOwnerGone())
        return;
    m_busyLoop = nullptr;
    LogEach(run.GetUnreadableFolders(), tr("Folder could not be searched: %1"));
    LogEach(run.GetGivenUpFiles(),
        tr("'%1' takes too many steps and was given up in %2")
            .arg(WithoutMatchLimit(Settings::globalSearchRegEx.pattern()), QStringLiteral("%1")));
    SearchOutcome outcome;
    outcome.files = run.GetFileCount();
    outcome.isCancelled = run.IsCancelled();
    outcome.hasTooMany = owner.HasTooMany();
    outcome.hasFolders = !filter.includePaths.isEmpty() || !Settings::workspaceFolders.isEmpty();
    outcome.unreadableFolders = run.GetUnreadableFolders();
    outcome.givenUpFiles = run.GetGivenUpFiles();
    m_sideBar->GetSearch()->FinishSearch(outcome);
}

void TarnwickEditor::SearchEverything(SearchRun& run, const SearchFilter& filter)
{
    for (const QString& path : filter.includePaths) {
        if (QFileInfo(path).isDir())
            run.SearchFolder(path, QString());
        else
            run.SearchFile(path);
    }
    if (!filter.includePaths.isEmpty())
        return;
    const QString folder = Settings::GetInternalBufferDirectoryPath();
    // Copies: while the search runs the window may go.
    QVector<CodeEditorProperties> buffers;
    for (const CodeEditorGroup* group : qAsConst(m_groups)) {
        for (const CodeEditorProperties& properties : group->GetAllProperties()) {
            if (properties.type == CodeEditorType::Buffer)
                buffers.append(properties);
        }
    }
    const QStringList folders = Settings::workspaceFolders;
    const QPointer<TarnwickEditor> guard(this);
    for (const CodeEditorProperties& buffer : qAsConst(buffers)) {
        const CodeEditor* const editor = guard ? GetCodeEditor(buffer.filePath) : nullptr;
        if (editor)
            run.SearchText(folder, buffer.filePath, buffer.label, editor->GetText());
    }
    for (const QString& root : folders)
        run.SearchFolder(root, QString());
}

bool TarnwickEditor::IncludePathInSearch(const QString& path) const
{
    return StoredFilter().IncludesFile(path);
}

void TarnwickEditor::UpdateSearch(const QString& filePath, const QString& label)
{
    if (m_busyLoop) {
        m_changedWhileSearching.insert(filePath);
        return;
    }
    const CodeEditor* const editor = GetCodeEditor(filePath);
    if (Settings::globalSearchRegEx.pattern().isEmpty() || !editor)
        return;
    const bool isBuffer = editor->GetType() == CodeEditorType::Buffer;
    const SearchFilter filter = StoredFilter();
    const QStringList roots
        = filter.includePaths.isEmpty() ? Settings::workspaceFolders : filter.includePaths;
    const bool isReached = isBuffer ? filter.includePaths.isEmpty()
                                    : filter.Reaches(filePath, Settings::workspaceFolders);
    QVector<SearchResult> hits;
    if (isReached)
        hits = FindMatchingInText(filePath, label.isEmpty() ? editor->GetLabel() : label,
            editor->GetText(), Settings::globalSearchRegEx);
    SearchView* const view = m_sideBar->GetSearch();
    if (view->HasResults(filePath)) {
        view->UpdateResults(filePath, hits);
        return;
    }
    // What had no hits before comes last.
    QString root = QFileInfo(filePath).path();
    for (const QString& folder : roots) {
        if (!isBuffer && filePath.startsWith(folder + QLatin1Char('/')))
            root = folder;
    }
    if (!hits.isEmpty())
        view->AppendResults(root, filePath.mid(root.size() + 1), hits);
}

/// Nobody told of their changes while the results were not in view.
void TarnwickEditor::UpdateSearchOfEditors()
{
    UpdateSearchMarks();
    const QStringList paths = GetCodeEditorPaths();
    for (const QString& path : paths)
        UpdateSearch(path, QString());
}

void TarnwickEditor::UpdateSearchMarks()
{
    const QStringList paths = GetCodeEditorPaths();
    for (const QString& path : paths)
        GetCodeEditor(path)->UpdateGlobalSearch();
}

CodeEditor* TarnwickEditor::OpenSearchHit(const SearchResult& hit)
{
    if (!CodeEditorExists(hit.filePath) && QFileInfo(hit.filePath).isFile())
        OpenFile(hit.filePath, false);
    CodeEditor* const editor = GetCodeEditor(hit.filePath);
    if (!editor) {
        m_sideBar->GetSearch()->ShowNote(tr("'%1' cannot be opened").arg(hit.fileName));
        return nullptr;
    }
    if (!Settings::codeEditorVisible)
        SetPanesVisible(true, Settings::outputVisible);
    SetActiveCodeEditor(hit.filePath);
    return editor;
}

void TarnwickEditor::ShowSearchHit(const SearchResult& hit, bool focus)
{
    const QPointer<QWidget> focused = QApplication::focusWidget();
    if (CodeEditor* const editor = OpenSearchHit(hit))
        editor->FindGlobal(hit.position);
    if (!focus && focused)
        focused->setFocus(Qt::OtherFocusReason);
}

/// What is to be searched, unless the page has it already.
void TarnwickEditor::TakeSearchText()
{
    CodeEditor* const editor = GetCodeEditorWithFocus();
    const QString text = editor ? editor->TakeSearchText() : QString();
    if (!text.isEmpty())
        m_sideBar->GetSearch()->SeedSearchText(text);
}

void TarnwickEditor::FindInFiles()
{
    TakeSearchText();
    ShowSideBarPage(SideBar::Page::Search);
    m_sideBar->FocusPage(Qt::ShortcutFocusReason);
}

void TarnwickEditor::FindInFolder(const QString& folder)
{
    SearchView* const view = m_sideBar->GetSearch();
    view->ShowFilters();
    view->SetIncludeText(folder);
    FindInFiles();
}

void TarnwickEditor::ReplaceInFiles()
{
    SearchView* const view = m_sideBar->GetSearch();
    const bool wasThere = m_sideBar->isVisible() && view->isVisible() && view->IsReplaceActive();
    FindInFiles();
    view->SetReplaceVisible(true);
    if (wasThere && !view->GetSearchText().isEmpty())
        view->FocusReplace(Qt::ShortcutFocusReason);
}

void TarnwickEditor::FindInFilesNext()
{
    ShowSideBarPage(SideBar::Page::Search);
    m_sideBar->GetSearch()->NextResult();
}

void TarnwickEditor::FindInFilesPrevious()
{
    ShowSideBarPage(SideBar::Page::Search);
    m_sideBar->GetSearch()->PreviousResult();
}
