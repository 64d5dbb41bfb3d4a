// What the search page does; what it is made of is in SearchViewLook.cpp.

#include "views/search/SearchView.h"

#include "editor/SearchExpression.h"
#include "search/SearchFilter.h"
#include "settings/Settings.h"
#include "views/EmptyPage.h"
#include "views/search/SearchResultsModel.h"
#include "views/search/SearchResultsView.h"
#include "window/chrome/ElidedLabel.h"
#include "window/chrome/FlatButton.h"
#include "window/chrome/ToolLineEdit.h"
#include "window/chrome/ToolTipText.h"

#include <QContextMenuEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>
#include <QStackedLayout>

namespace {

QString Counted(int count, const QString& one, const QString& several)
{
    return QStringLiteral("%1 %2").arg(count).arg(count == 1 ? one : several);
}

QString CountedFiles(int count)
{
    return Counted(count, SearchView::tr("file"), SearchView::tr("files"));
}

/// The first by name, the others by number.
QString Named(const QStringList& paths)
{
    const QString first = QStringLiteral("'%1'").arg(QFileInfo(paths.first()).fileName());
    return paths.size() == 1
        ? first
        : SearchView::tr("%1 and %2 more").arg(first, QString::number(paths.size() - 1));
}

QStringList Entries(const ToolLineEdit* field)
{
    return SplitSearchEntries(field->text());
}

bool IsFieldKey(const QKeyEvent& event)
{
    if (event.modifiers() & ~Qt::KeypadModifier)
        return false;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
    case Qt::Key_Up:
    case Qt::Key_Down: return true;
    default: return false;
    }
}

} // namespace

bool SearchView::Wanted::operator==(const Wanted& other) const
{
    return text == other.text && matchCase == other.matchCase && matchWord == other.matchWord
        && useRegularExpression == other.useRegularExpression;
}

SearchView::SearchView(QWidget* parent)
    : QWidget(parent)
{
    CreateWidgets();
    CreateLayout();
    CreateConnections();
    SetReplaceVisible(false);
    SetFiltersVisible(false);
    UpdateResultsState();
}

void SearchView::CreateConnections()
{
    using S = SearchView;
    static constexpr std::pair<FlatButton * S::*, void (S::*)()> CLICKS[] = {
        {&S::m_refreshButton, &S::Refresh},
        {&S::m_collapseAllButton, &S::CollapseAll},
        {&S::m_clearButton, &S::Clear},
        {&S::m_toggleReplaceButton, &S::ToggleReplace},
        {&S::m_replaceAllButton, &S::ReplaceAll},
        {&S::m_matchCaseButton, &S::OnToggled},
        {&S::m_matchWordButton, &S::OnToggled},
        {&S::m_regularExpressionButton, &S::OnToggled},
    };
    for (const auto& click : CLICKS)
        connect(this->*click.first, &QAbstractButton::clicked, this, click.second);
    connect(m_detailsButton, &QAbstractButton::clicked, this, &S::SetFiltersVisible);
    connect(m_searchField, &QLineEdit::textChanged, this, &S::OnSearchTextChanged);
    connect(m_replaceField, &QLineEdit::textChanged, this, &S::UpdateReplaceText);
    connect(m_results, &SearchResultsView::CountChanged, this, [this] { ShowNote(QString()); });
    connect(m_results, &SearchResultsView::HitChosen, this, &S::HitChosen);
    connect(m_results, &SearchResultsView::FileChosen, this, &S::FileChosen);
    connect(m_results, &SearchResultsView::ReplaceRequested, this, &S::ReplaceRequested);
    connect(m_results, &SearchResultsView::ReplaceHitRequested, this, &S::ReplaceHitRequested);
    connect(m_results, &SearchResultsView::ClearRequested, this, &S::ClearResults);
    connect(m_results, &SearchResultsView::HideRequested, this, &S::HideRequested);
}

void SearchView::SetSearchText(const QString& text)
{
    m_searchField->setText(text);
}

void SearchView::SeedSearchText(const QString& text)
{
    SetSearchText(m_regularExpressionButton->isChecked() ? QRegularExpression::escape(text) : text);
}

QString SearchView::GetSearchText() const
{
    return m_searchField->text();
}

void SearchView::SetReplaceText(const QString& text)
{
    m_replaceField->setText(text);
}

void SearchView::SetIncludeText(const QString& text)
{
    m_includeField->setText(text);
}

void SearchView::SetExcludeText(const QString& text)
{
    m_excludeField->setText(text);
}

void SearchView::SelectAllSearchText()
{
    m_searchField->selectAll();
}

void SearchView::FocusSearch(Qt::FocusReason reason)
{
    m_searchField->setFocus(reason);
    SelectAllSearchText();
}

void SearchView::FocusReplace(Qt::FocusReason reason)
{
    m_replaceField->setFocus(reason);
    m_replaceField->selectAll();
}

void SearchView::ToggleMatchCase()
{
    m_matchCaseButton->click();
}

void SearchView::ToggleMatchWord()
{
    m_matchWordButton->click();
}

void SearchView::ToggleRegularExpression()
{
    m_regularExpressionButton->click();
}

void SearchView::ToggleReplace()
{
    SetReplaceVisible(!m_replaceVisible);
}

void SearchView::ToggleFilters()
{
    SetFiltersVisible(!m_detailsButton->isChecked());
}

SearchView::Wanted SearchView::GetWanted() const
{
    return {GetSearchText(), m_matchCaseButton->isChecked(), m_matchWordButton->isChecked(),
        m_regularExpressionButton->isChecked()};
}

/// Whether what is typed can be searched; says why where it cannot.
bool SearchView::CheckExpression()
{
    const Wanted wanted = GetWanted();
    const QString fault = wanted.useRegularExpression ? DescribeFault(wanted.text) : QString();
    m_searchField->SetFault(fault);
    m_replaceField->SetPlainToolTip(wanted.useRegularExpression
            ? tr("\\0 inserts the match, \\1 to \\9 and \\g<name> its groups, \\n a line end, \\t "
                 "a tab, \\\\ a backslash.")
            : QString());
    return fault.isEmpty();
}

void SearchView::OnSearchTextChanged()
{
    if (GetSearchText().isEmpty())
        ClearResults();
    CheckExpression();
    UpdateResultsState();
}

/// What was searched once is searched again at once, as no more is going to be typed.
void SearchView::OnToggled()
{
    CheckExpression();
    if (!m_searched.text.isEmpty() && m_searched.text == GetSearchText())
        Refresh();
    else
        UpdateResultsState();
}

void SearchView::UpdateReplaceText()
{
    Settings::globalSearchReplaceText = m_replaceField->text();
}

void SearchView::Refresh()
{
    m_note.clear();
    m_history.Add(GetSearchText());
    if (!CheckExpression()) {
        UpdateResultsState();
        return;
    }
    const Wanted wanted = GetWanted();
    m_searched = wanted;
    m_isSearching = true;
    Q_EMIT SearchRequested(wanted.text, Entries(m_includeField), Entries(m_excludeField),
        wanted.matchCase, wanted.matchWord, wanted.useRegularExpression);
}

void SearchView::Clear()
{
    for (ToolLineEdit* field : {m_searchField, m_replaceField, m_includeField, m_excludeField})
        field->clear();
    ClearResults();
    m_searchField->setFocus(Qt::OtherFocusReason);
}

void SearchView::ClearResults()
{
    m_outcome = SearchOutcome();
    m_note.clear();
    m_searched = m_isSearching ? m_searched : Wanted();
    m_results->Clear();
}

void SearchView::ReplaceAll()
{
    const SearchResultsModel* const model = m_results->GetModel();
    if (!m_replaceVisible || !m_replaceAllButton->isEnabled())
        return;
    QMessageBox box(QMessageBox::Question, tr("Replace All"),
        tr("Replace %1 occurrances across %2 files with '%3'")
            .arg(QString::number(model->GetHitCount()), QString::number(model->GetFileCount()),
                m_replaceField->text()),
        QMessageBox::NoButton, this);
    box.setTextFormat(Qt::PlainText);
    const QAbstractButton* const replace
        = box.addButton(tr("Replace All"), QMessageBox::AcceptRole);
    QPushButton* const cancel = box.addButton(tr("Cancel"), QMessageBox::RejectRole);
    box.setDefaultButton(cancel);
    box.setEscapeButton(cancel);
    box.exec();
    if (box.clickedButton() == replace)
        m_results->ReplaceAll(m_replaceField->text());
}

void SearchView::AppendResults(
    const QString& folder, const QString& relative, const QVector<SearchResult>& results)
{
    m_results->AppendResults(folder, relative, results);
    if (!m_isSearching)
        m_results->Flush();
}

void SearchView::UpdateResults(const QString& filePath, const QVector<SearchResult>& results)
{
    m_results->UpdateResults(filePath, results);
}

bool SearchView::HasResults(const QString& filePath) const
{
    return m_results->GetModel()->Contains(filePath);
}

void SearchView::NextResult()
{
    m_results->GoToNext();
}

void SearchView::PreviousResult()
{
    m_results->GoToPrevious();
}

void SearchView::CollapseAll()
{
    m_results->collapseAll();
}

void SearchView::ShowProgress(int files)
{
    m_results->Flush();
    m_outcome.files = files;
    UpdateResultsState();
}

void SearchView::FinishSearch(const SearchOutcome& outcome)
{
    m_isSearching = false;
    m_results->Flush();
    m_outcome = outcome;
    UpdateResultsState();
}

void SearchView::ShowNote(const QString& note)
{
    m_note = note;
    UpdateResultsState();
}

void SearchView::UpdateResultsState()
{
    const SearchResultsModel* const model = m_results->GetModel();
    const int hits = model->GetHitCount();
    const bool hasSearched = !m_searched.text.isEmpty();
    QString status = Counted(hits, tr("result"), tr("results"))
        + tr(" in %1").arg(CountedFiles(model->GetFileCount()));
    if (m_isSearching)
        status
            = tr("Esc stops: %1 of %2")
                  .arg(Counted(hits, tr("result"), tr("results")), CountedFiles(m_outcome.files));
    else if (m_outcome.hasTooMany)
        status = tr("Stopped, too many: %1").arg(status);
    else if (m_outcome.isCancelled)
        status = tr("Cancelled: %1").arg(status);
    else if (!hasSearched)
        status.clear();
    m_status->SetText(m_note.isEmpty() ? status : m_note);
    m_status->setToolTip(ToolTipText(m_status->GetText()));

    QStringList messages;
    if (!m_searchField->GetFault().isEmpty())
        messages.append(m_searchField->GetFault());
    if (!m_outcome.givenUpFiles.isEmpty())
        messages.append(tr("'%1' takes too many steps and was given up in %2.")
                            .arg(m_searched.text, Named(m_outcome.givenUpFiles)));
    if (!m_outcome.unreadableFolders.isEmpty())
        messages.append(tr("Not readable: %1.").arg(Named(m_outcome.unreadableFolders)));
    m_message->setText(messages.join(QLatin1Char('\n')));
    m_message->setVisible(!messages.isEmpty());

    const bool isOfThese = m_searched == GetWanted();
    m_replaceAllButton->setEnabled(hits > 0 && isOfThese && !m_isSearching);
    m_results->SetReplaceActive(m_replaceVisible && m_replaceAllButton->isEnabled());
    m_collapseAllButton->setEnabled(hits > 0);
    m_pages->setCurrentWidget(hits > 0 ? static_cast<QWidget*>(m_results) : m_emptyPage);
    UpdateEmptyPage();
    Q_EMIT HitCountChanged(hits);
}

void SearchView::UpdateEmptyPage()
{
    if (m_searched.text.isEmpty() || m_isSearching) {
        const QString hint = Settings::workspaceFolders.isEmpty()
            ? tr("Return searches the unsaved buffers. Files are searched as well once the "
                 "workspace has a folder.")
            : tr("Return searches the workspace and the unsaved buffers.");
        m_emptyPage->SetTexts(QString(), m_isSearching ? tr("Searching...") : hint);
        return;
    }
    QString hint
        = tr("Nothing matches \"%1\" in %2.").arg(m_searched.text, CountedFiles(m_outcome.files));
    if (m_outcome.isCancelled)
        hint += QLatin1Char('\n') + tr("The search was cancelled.");
    if (!m_outcome.hasFolders)
        hint += QLatin1Char('\n') + tr("The workspace has no folder to search.");
    m_emptyPage->SetTexts(tr("No results"), hint);
}

void SearchView::WalkHistory(bool older)
{
    SetSearchText(
        older ? m_history.GetOlder(GetSearchText()) : m_history.GetNewer(GetSearchText()));
}

bool SearchView::eventFilter(QObject* watched, QEvent* event)
{
    // The window has shortcuts on Enter and Escape, which in a field belong to the page.
    if (event->type() == QEvent::ShortcutOverride && IsFieldKey(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    if (event->type() != QEvent::KeyPress || !IsFieldKey(*static_cast<QKeyEvent*>(event)))
        return QWidget::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (watched == m_replaceField)
            ReplaceAll();
        else
            Refresh();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (watched != m_searchField)
            return false;
        WalkHistory(static_cast<QKeyEvent*>(event)->key() == Qt::Key_Up);
        return true;
    default: return false;
    }
}

/// Where neither a field nor the results have one of their own.
void SearchView::contextMenuEvent(QContextMenuEvent* event)
{
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("Hide Side Bar"), this, &SearchView::HideRequested);
    menu->popup(event->globalPos());
}

void SearchView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    UpdateEmptyPage(); // the workspace may have changed
    Q_EMIT Shown();
}
