// What the go-to widget lists and shows; its widgets and its input are in GoToWidgetInput.cpp.

#include "views/goto/GoToWidget.h"

#include "views/goto/GoToModes.h"
#include "views/goto/GoToRowDelegate.h"
#include "views/goto/WorkspaceFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QListView>

namespace {

constexpr int SHOWING_PAUSE = 100; // ms between two looks at files that are being found

GoToModel::Row NoteRow(const QString& text)
{
    GoToModel::Row row;
    row.entry.text = text;
    row.isNote = true;
    return row;
}

/// The path that was pasted, with the home folder in place of "~"; empty for anything else.
QString PastedPath(const QString& name)
{
    const QString path = name.trimmed();
    if (path.startsWith(QLatin1String("~/")))
        return QDir::cleanPath(QDir::homePath() + path.mid(1));
    return path.startsWith(QLatin1Char('/')) ? QDir::cleanPath(path) : QString();
}

} // namespace

/// Without the prefix.
QString GoToWidget::TypedText() const
{
    return m_field->text().mid(GoToModes::PrefixOf(m_mode).size());
}

QString GoToWidget::FilterText() const
{
    const QString typed = TypedText();
    return m_mode == Mode::Files ? GoToEntries::ParseFilePlace(typed).name : typed;
}

void GoToWidget::EnterMode(Mode mode)
{
    if (m_mode != mode)
        EndPreview();
    m_mode = mode;
    m_hasMoved = false;
    m_filter.Reset();
    m_entries.clear();
    m_workspaceFiles->Stop();
    switch (mode) {
    case Mode::Files: TakeFiles(); break;
    case Mode::Symbols: m_entries = m_sources.symbols(); break;
    case Mode::Commands: m_entries = m_sources.commands(); break;
    case Mode::Help: m_entries = HelpEntries(); break;
    case Mode::Line: break;
    }
    OnTextChanged();
}

QVector<GoToEntry> GoToWidget::HelpEntries() const
{
    QVector<GoToEntry> entries;
    for (const GoToModes::Row& row : GoToModes::ROWS) {
        if (row.mode == Mode::Help)
            continue;
        GoToEntry entry;
        entry.target = GoToModes::PrefixOf(row.mode);
        entry.text = entry.target.isEmpty() ? tr("a name") : entry.target;
        entry.detail = tr(row.label);
        entry.shortcut = m_sources.shortcut(row.mode);
        entries.append(entry);
    }
    return entries;
}

void GoToWidget::TakeFiles()
{
    m_entries = m_sources.files();
    m_listedPaths.clear();
    for (const GoToEntry& entry : qAsConst(m_entries))
        m_listedPaths.insert(entry.target);
    m_knownFiles = m_entries.size();
    m_takenFiles = 0;
    m_filter.Reset();
    m_workspaceFiles->Start();
    OnFilesGrown();
}

/// Files of the workspace that are not listed before.
void GoToWidget::OnFilesGrown()
{
    if (m_mode != Mode::Files)
        return;
    const QVector<GoToEntry>& files = m_workspaceFiles->GetEntries();
    for (; m_takenFiles < files.size(); ++m_takenFiles) {
        if (!m_listedPaths.contains(files[m_takenFiles].target))
            m_entries.append(files[m_takenFiles]);
    }
    m_filter.Extend(m_entries);
    if (!isVisible() || (m_sinceShown.isValid() && !m_sinceShown.hasExpired(SHOWING_PAUSE)))
        return;
    ShowMatches();
    m_sinceShown.start();
}

void GoToWidget::OnFilesFinished(bool changed)
{
    if (m_mode != Mode::Files || isHidden())
        return;
    if (changed) {
        m_entries.erase(m_entries.begin() + m_knownFiles, m_entries.end());
        m_takenFiles = 0;
        m_filter.Reset();
        m_filter.SetText(FilterText(), m_entries);
        m_sinceShown.invalidate();
        OnFilesGrown();
    } else {
        ShowMatches();
    }
}

void GoToWidget::RefreshFiles()
{
    m_workspaceFiles->MarkOutdated();
    if (m_mode == Mode::Files && !isHidden())
        m_workspaceFiles->Start();
}

void GoToWidget::OnTextChanged()
{
    const Mode mode = GoToModes::ModeOf(m_field->text());
    if (mode != m_mode) {
        EnterMode(mode);
        return;
    }
    m_hasMoved = false;
    if (m_mode == Mode::Line) {
        ShowLine();
        return;
    }
    m_filter.SetText(FilterText(), m_entries);
    ShowMatches();
    if (m_mode != Mode::Symbols)
        return;
    if (FilterText().isEmpty())
        EndPreview();
    else
        Preview();
}

/// Keeps to the row that somebody moved to.
void GoToWidget::ShowMatches()
{
    const int before = CurrentRow();
    const QString target
        = m_hasMoved && before >= 0 ? m_model->GetRows()[before].entry.target : QString();
    const QVector<int> best = m_filter.GetBest();
    QVector<GoToModel::Row> rows;
    rows.reserve(best.size() + 2);
    if (m_mode == Mode::Files)
        AddPastedPath(rows);
    for (const int place : best) {
        const GoToEntry& entry = m_entries[place];
        if (!rows.isEmpty() && m_mode == Mode::Files && entry.target == rows[0].entry.target)
            continue;
        rows.append(
            {entry, FuzzyMatch::Hits(m_filter.GetPattern(), entry.text, entry.nameStart), false});
    }
    if (rows.isEmpty())
        rows.append(NoteRow(EmptyText()));
    if (m_mode == Mode::Files && m_workspaceFiles->IsCut())
        rows.append(NoteRow(tr("Of the workspace the first 20,000 files are listed")));
    int current = FirstRow();
    for (int row = 0; row < rows.size() && !target.isEmpty(); ++row) {
        if (rows[row].entry.target == target)
            current = row;
    }
    m_delegate->SetIndented(m_mode == Mode::Symbols && FilterText().isEmpty());
    SetRows(rows, current);
}

/// A whole path of a file that is there; its row is the first.
void GoToWidget::AddPastedPath(QVector<GoToModel::Row>& rows) const
{
    const QString path = PastedPath(FilterText());
    if (!path.isEmpty() && QFileInfo(path).isFile())
        rows.append({GoToEntries::OfFile(path, {}), {}, false});
}

QString GoToWidget::EmptyText() const
{
    const bool isTyped = !FilterText().isEmpty();
    switch (m_mode) {
    case Mode::Files:
        if (m_workspaceFiles->IsGathering())
            return tr("Looking for files...");
        return isTyped ? tr("No matching files")
                       : tr("No files yet: open one, or add a folder to the workspace");
    case Mode::Symbols:
        if (!m_editor.isOpen)
            return tr("No editor is open");
        return isTyped && !m_entries.isEmpty() ? tr("No matching symbols") : tr("No symbols");
    case Mode::Commands: return tr("No matching commands");
    case Mode::Help: return tr("Nothing starts with that");
    case Mode::Line: break;
    }
    return {};
}

/// What is chosen as long as nobody has moved.
int GoToWidget::FirstRow() const
{
    if (!FilterText().isEmpty())
        return 0;
    // The first is where one is; the command and Return go back and forth between two editors.
    if (m_mode == Mode::Files)
        return m_editor.isOpen && m_entries.size() > 1 ? 1 : 0;
    if (m_mode != Mode::Symbols)
        return 0;
    // The symbol that the cursor stands in.
    int row = 0;
    const QVector<int> places = m_filter.GetBest();
    for (int i = 0; i < places.size(); ++i) {
        if (m_entries[places[i]].value <= m_editor.position)
            row = i;
    }
    return row;
}

void GoToWidget::ShowLine()
{
    m_line = m_editor.isOpen
        ? GoToEntries::ParseLine(TypedText(), m_editor.line, m_editor.lineCount)
        : GoToEntries::FilePlace();
    QString text = tr("No editor is open");
    if (m_line.line > 0 && m_line.column > 0)
        text = tr("Go to line %1 of %2, column %3")
                   .arg(m_line.line)
                   .arg(m_editor.lineCount)
                   .arg(m_line.column);
    else if (m_line.line > 0)
        text = tr("Go to line %1 of %2").arg(m_line.line).arg(m_editor.lineCount);
    else if (m_editor.isOpen)
        text = tr("Line 1 to %1").arg(m_editor.lineCount);
    m_delegate->SetIndented(false);
    SetRows({NoteRow(text)}, -1);
    Preview();
}

void GoToWidget::SetRows(const QVector<GoToModel::Row>& rows, int current)
{
    m_model->SetRows(rows);
    Place();
    SetCurrentRow(current);
}

/// Shows in the editor what would be chosen.
void GoToWidget::Preview()
{
    if (m_mode == Mode::Line && m_line.line > 0) {
        m_isPreviewing = true;
        Q_EMIT LinePicked(m_line.line, m_line.column, false);
    } else if (m_mode == Mode::Symbols && m_model->IsChoice(CurrentRow())) {
        m_isPreviewing = true;
        const GoToEntry& entry = m_model->GetRows()[CurrentRow()].entry;
        Q_EMIT SymbolPicked(entry.value, entry.end, false);
    } else {
        EndPreview();
    }
}

void GoToWidget::EndPreview()
{
    if (!m_isPreviewing)
        return;
    m_isPreviewing = false;
    Q_EMIT PreviewEnded();
}
