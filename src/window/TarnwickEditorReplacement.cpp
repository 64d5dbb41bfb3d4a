// Replacing the hits of a search in files: in open editors through their texts, elsewhere on the
// disk. What cannot be replaced is named, and the rest goes on.

#include "editor/CodeEditor.h"
#include "editor/SearchExpression.h"
#include "plugin/Logger.h"
#include "search/FindMatching.h"
#include "settings/Settings.h"
#include "views/search/SearchView.h"
#include "window/BusyLoop.h"
#include "window/FileReplacement.h"
#include "window/TarnwickEditor.h"

#include <QFileInfo>

#include <algorithm>

namespace {

QString Changed()
{
    return TarnwickEditor::tr("it changed since it was listed");
}

QString Counted(int count, const QString& one, const QString& several)
{
    return QStringLiteral("%1 %2").arg(count).arg(count == 1 ? one : several);
}

/// How far replacing came.
struct Progress
{
    int hits = 0;
    int files = 0;
    QStringList left; ///< names of files with the reason
    bool isCancelled = false;

    QString Describe() const
    {
        QString text
            = TarnwickEditor::tr("%1 replaced in %2")
                  .arg(Counted(hits, TarnwickEditor::tr("result"), TarnwickEditor::tr("results")),
                      Counted(files, TarnwickEditor::tr("file"), TarnwickEditor::tr("files")));
        if (isCancelled)
            text = TarnwickEditor::tr("Cancelled: %1").arg(text);
        if (left.size() == 1)
            text += TarnwickEditor::tr("; left: %1").arg(left.first());
        else if (!left.isEmpty())
            text += TarnwickEditor::tr("; %1 files left, see the output").arg(left.size());
        return text;
    }
};

} // namespace

/// Empty when the hits were replaced, otherwise why they were not.
QString TarnwickEditor::ReplaceInPath(
    const QString& path, const QVector<SearchResult>& hits, const QString& text)
{
    if (CodeEditor* const editor = GetCodeEditor(path))
        return editor->FindAndReplaceAllGlobal(hits, text) ? QString() : Changed();
    if (!QFileInfo::exists(path))
        return tr("it is gone");
    if (!(FileStamp::Of(path) == m_searchStamps.value(path)))
        return Changed();
    const QRegularExpression expression = Settings::globalSearchUsesExpression
        ? WithMatchLimit(Settings::globalSearchRegEx)
        : Settings::globalSearchRegEx;
    return ReplaceInFile(path, hits, expression, text);
}

/// The results of the path, as it is now.
void TarnwickEditor::UpdateSearchResults(const QString& path)
{
    SearchView* const view = m_sideBar->GetSearch();
    if (CodeEditorExists(path)) {
        UpdateSearch(path, QString());
    } else if (view->HasResults(path)) {
        m_searchStamps.insert(path, FileStamp::Of(path));
        view->UpdateResults(path, FindMatchingInFile(path, Settings::globalSearchRegEx));
    }
}

void TarnwickEditor::ReplaceSearchHits(const QVector<SearchResult>& hits, const QString& text)
{
    if (m_busyLoop)
        return;
    BusyLoop loop(this);
    m_busyLoop = &loop;
    Progress progress;
    for (auto first = hits.begin(); first != hits.end();) {
        const QString path = first->filePath;
        const auto last = std::find_if(
            first, hits.end(), [&path](const SearchResult& hit) { return hit.filePath != path; });
        progress.isCancelled = !loop.Turn();
        if (loop.IsOwnerGone())
            return;
        if (progress.isCancelled)
            break;
        QVector<SearchResult> own(static_cast<int>(last - first));
        std::copy(first, last, own.begin());
        const QString reason = ReplaceInPath(path, own, text);
        if (reason.isEmpty()) {
            progress.hits += own.size();
            ++progress.files;
            UpdateSearchResults(path);
        } else {
            Logger::Warning(tr("Nothing was replaced in %1: %2").arg(path, reason));
            progress.left.append(tr("'%1', %2").arg(first->fileName, reason));
        }
        first = last;
    }
    m_busyLoop = nullptr;
    const QStringList changed = m_changedWhileSearching.values();
    m_changedWhileSearching.clear();
    for (const QString& path : changed)
        UpdateSearch(path, QString());
    m_sideBar->GetSearch()->ShowNote(progress.Describe());
}

void TarnwickEditor::ReplaceSearchHit(const SearchResult& hit)
{
    CodeEditor* const editor = OpenSearchHit(hit);
    if (!editor)
        return;
    if (editor->FindAndReplaceGlobal(hit.position))
        UpdateSearch(hit.filePath, QString());
    else
        m_sideBar->GetSearch()->ShowNote(
            tr("Nothing was replaced in '%1': %2").arg(hit.fileName, Changed()));
}
