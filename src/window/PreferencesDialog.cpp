#include "window/PreferencesDialog.h"

#include "language/PythonForcedImports.h"
#include "settings/Settings.h"
#include "settings/pages/ColorsPage.h"
#include "settings/pages/FontPage.h"
#include "settings/pages/KeyBindingsPage.h"
#include "settings/pages/OptionCopies.h"
#include "settings/pages/OptionTable.h"
#include "settings/pages/OptionsPage.h"
#include "settings/pages/PylintPage.h"
#include "window/OutputHighlightingPage.h"
#include "window/PreferencesPageDelegate.h"
#include "window/Question.h"
#include "window/chrome/FlatButton.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"
#include "window/chrome/ToolLineEdit.h"

#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace {

// Design pixels.
constexpr int WIDTH = 736;
constexpr int HEIGHT = 514;
constexpr int LIST_WIDTH = 186;
constexpr int SIDE_MARGIN = 8;
constexpr int PAGE_MARGIN = 16;
constexpr int PAGE_SIDE_MARGIN = 16; ///< and what the fields have for their marks
constexpr int BUTTON_MARGIN = 9;

/// For as long as the program runs.
struct Look
{
    QString page;
    QSize size;
    double scale = 0;
};
Look lastLook;

QString ForcedImportsFault(const QString& text)
{
    const QStringList rejected = PythonForcedImports::Parse(text).rejected;
    return rejected.isEmpty()
        ? QString()
        : PreferencesDialog::tr("This is no import: %1").arg(rejected.constFirst());
}

QScrollArea* Scrolled(PreferencesPage* page, QWidget* parent)
{
    auto* area = new QScrollArea(parent);
    area->setObjectName(QStringLiteral("pageArea"));
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    auto* content = new QWidget(area);
    content->setObjectName(QStringLiteral("pageContent"));
    auto* layout = new QVBoxLayout(content);
    layout->addWidget(page);
    area->setWidget(content);
    FollowLook(content, [layout] {
        const int side = Theme::Dp(PAGE_SIDE_MARGIN);
        layout->setContentsMargins(side, Theme::Dp(PAGE_MARGIN), side, Theme::Dp(PAGE_MARGIN));
    });
    return area;
}

} // namespace

PreferencesDialog::PreferencesDialog(KeyBindings* keyBindings, QWidget* parent)
    : QDialog(parent)
    , m_copies(new OptionCopies(OptionTable::GetPages(), this))
{
    setObjectName(QStringLiteral("m_preferencesDialog"));
    setWindowTitle(tr("Preferences"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowModality(Qt::WindowModal);
    setSizeGripEnabled(false);
    CreateSearch();
    CreateList();
    m_stack = new QStackedWidget(this);
    m_stack->setObjectName(QStringLiteral("m_stack"));
    CreatePages(keyBindings);
    CreateButtons();
    CreateLayout();
    RestoreLook();
    UpdateApplyButton();
}

PreferencesDialog::~PreferencesDialog()
{
    RememberLook();
}

void PreferencesDialog::CreatePages(KeyBindings* keyBindings)
{
    m_copies->SetCheck("pythonForcedImports", ForcedImportsFault);
    AddPage(new OptionsPage(OptionTable::General(), *m_copies, this));
    AddPage(new OptionsPage(OptionTable::Interface(), *m_copies, this));
    AddPage(new FontPage(
        OptionTable::CodeEditor(), "codeEditorFontFamily", "codeEditorFontSize", *m_copies, this));
    AddPage(new OptionsPage(OptionTable::Indentation(), *m_copies, this));
    AddPage(new OptionsPage(OptionTable::Mel(), *m_copies, this));
    AddPage(new OptionsPage(OptionTable::Python(), *m_copies, this));
    AddPage(new PylintPage(*m_copies, this));
    AddPage(
        new FontPage(OptionTable::Output(), "outputFontFamily", "outputFontSize", *m_copies, this));
    AddPage(new OutputHighlightingPage(this));
    AddPage(new ColorsPage(this));
    AddPage(new KeyBindingsPage(keyBindings, this));
    m_nothingFound = new QLabel(m_stack);
    m_nothingFound->setObjectName(QStringLiteral("m_nothingFound"));
    m_nothingFound->setTextFormat(Qt::PlainText);
    m_nothingFound->setAlignment(Qt::AlignCenter);
    m_nothingFound->setWordWrap(true);
    m_stack->addWidget(m_nothingFound);
    connect(m_list, &QListWidget::currentRowChanged, this, &PreferencesDialog::OnPageChosen);
}

void PreferencesDialog::AddPage(PreferencesPage* page)
{
    auto* row = new QListWidgetItem(page->GetTitle(), m_list);
    row->setData(PreferencesPageDelegate::ICON_NAME, page->GetIconName());
    m_pages.append(page);
    m_stack->addWidget(Scrolled(page, m_stack));
    connect(page, &PreferencesPage::Changed, this, &PreferencesDialog::UpdateApplyButton);
}

void PreferencesDialog::CreateSearch()
{
    m_search = new ToolLineEdit(this);
    m_search->setObjectName(QStringLiteral("m_search"));
    m_search->setAccessibleName(tr("Search preferences"));
    m_search->setPlaceholderText(tr("Search"));
    m_search->SetPlainToolTip(
        tr("Search labels and keys of all options (%1)")
            .arg(QKeySequence(QKeySequence::Find).toString(QKeySequence::NativeText)));
    m_search->installEventFilter(this);
    auto* clear = new FlatButton(
        QStringLiteral("clear_field"), tr("Clear"), FlatButton::Tint::Computed, m_search);
    clear->setObjectName(QStringLiteral("m_clearButton"));
    clear->hide();
    m_search->AddTool(clear);
    connect(clear, &QAbstractButton::clicked, m_search, &QLineEdit::clear);
    connect(m_search, &QLineEdit::textChanged, clear,
        [clear](const QString& text) { clear->setVisible(!text.isEmpty()); });
    connect(m_search, &QLineEdit::textChanged, this, &PreferencesDialog::OnSearchChanged);
    auto* find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, this, [this] {
        m_search->setFocus(Qt::ShortcutFocusReason);
        m_search->selectAll();
    });
}

void PreferencesDialog::CreateList()
{
    m_list = new QListWidget(this);
    m_list->setObjectName(QStringLiteral("m_pageList"));
    m_list->setAccessibleName(tr("Pages"));
    m_list->setItemDelegate(new PreferencesPageDelegate(m_list));
    m_list->setUniformItemSizes(true);
    m_list->setMouseTracking(true);
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void PreferencesDialog::CreateButtons()
{
    m_buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel
            | QDialogButtonBox::Apply | QDialogButtonBox::RestoreDefaults,
        this);
    m_applyButton = m_buttons->button(QDialogButtonBox::Apply);
    m_restoreButton = m_buttons->button(QDialogButtonBox::RestoreDefaults);
    for (QAbstractButton* button : m_buttons->buttons())
        static_cast<QPushButton*>(button)->setAutoDefault(false);
    QPushButton* const ok = m_buttons->button(QDialogButtonBox::Ok);
    QPushButton* const cancel = m_buttons->button(QDialogButtonBox::Cancel);
    ok->setDefault(true);
    setTabOrder(m_restoreButton, ok);
    setTabOrder(ok, cancel);
    setTabOrder(cancel, m_applyButton);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &PreferencesDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &PreferencesDialog::reject);
    connect(m_applyButton, &QPushButton::clicked, this, &PreferencesDialog::Apply);
    connect(m_restoreButton, &QPushButton::clicked, this, &PreferencesDialog::RestoreDefaults);
}

QWidget* PreferencesDialog::CreateSide()
{
    auto* side = new QWidget(this);
    side->setObjectName(QStringLiteral("pageSide"));
    auto* layout = new QVBoxLayout(side);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* field = new QVBoxLayout;
    field->addWidget(m_search);
    layout->addLayout(field);
    layout->addWidget(m_list, 1);
    FollowLook(side, [side, field] {
        const int margin = Theme::Dp(SIDE_MARGIN);
        field->setContentsMargins(margin, margin, margin, margin);
        side->setFixedWidth(Theme::Dp(LIST_WIDTH));
    });
    return side;
}

QLabel* PreferencesDialog::CreateSessionNote()
{
    auto* note = new QLabel(tr("Another session uses these preferences. What is changed here "
                               "holds for this session alone."),
        this);
    note->setObjectName(QStringLiteral("m_sessionNote"));
    note->setWordWrap(true);
    return note;
}

void PreferencesDialog::CreateLayout()
{
    auto* upright = new QFrame(this);
    auto* flat = new QFrame(this);
    for (QFrame* groove : {upright, flat})
        groove->setObjectName(QStringLiteral("groove"));
    auto* pages = new QHBoxLayout;
    pages->setSpacing(0);
    pages->addWidget(CreateSide());
    pages->addWidget(upright);
    pages->addWidget(m_stack, 1);
    auto* foot = new QVBoxLayout;
    if (!Settings::ownsUserConfig)
        foot->addWidget(CreateSessionNote());
    foot->addWidget(m_buttons);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(pages, 1);
    layout->addWidget(flat);
    layout->addLayout(foot);
    FollowLook(this, [upright, flat, foot] {
        const int margin = Theme::Dp(BUTTON_MARGIN);
        foot->setContentsMargins(margin, margin, margin, margin);
        foot->setSpacing(margin);
        upright->setFixedWidth(Theme::Hairline());
        flat->setFixedHeight(Theme::Hairline());
    });
}

/// Never larger than the screen.
void PreferencesDialog::RestoreLook()
{
    const bool isKnown = lastLook.size.isValid() && lastLook.scale == Settings::customScaleValue;
    const QSize size = isKnown ? lastLook.size : QSize(Theme::Dp(WIDTH), Theme::Dp(HEIGHT));
    resize(size.boundedTo(QGuiApplication::primaryScreen()->availableSize()));
    m_list->setCurrentRow(0);
    ShowPage(lastLook.page);
    m_list->setFocus();
}

void PreferencesDialog::RememberLook() const
{
    lastLook = {m_list->currentItem()->text(), size(), Settings::customScaleValue};
}

void PreferencesDialog::ShowPage(const QString& title)
{
    for (int row = 0; row < m_pages.size(); ++row) {
        if (m_pages[row]->GetTitle() == title)
            m_list->setCurrentRow(row);
    }
}

PreferencesPage* PreferencesDialog::GetCurrentPage() const
{
    return m_pages.value(m_stack->currentIndex(), nullptr);
}

void PreferencesDialog::OnPageChosen(int row)
{
    const bool isShown = row >= 0 && !m_list->item(row)->isHidden();
    m_stack->setCurrentIndex(isShown ? row : m_pages.size());
    m_restoreButton->setEnabled(isShown);
    ShowFirstMatch();
}

void PreferencesDialog::OnSearchChanged(const QString& text)
{
    const QString wanted = text.trimmed();
    int firstShown = -1;
    for (int row = 0; row < m_pages.size(); ++row) {
        const int matches = m_pages[row]->MarkMatches(wanted);
        const bool shown
            = matches > 0 || m_pages[row]->GetTitle().contains(wanted, Qt::CaseInsensitive);
        m_list->item(row)->setHidden(!shown);
        if (shown && firstShown < 0)
            firstShown = row;
    }
    m_nothingFound->setText(tr("No option has “%1” in its label or key.").arg(wanted));
    // Where nothing is found the page is kept for when the text goes.
    if (firstShown >= 0 && m_list->currentItem()->isHidden())
        m_list->setCurrentRow(firstShown);
    OnPageChosen(m_list->currentRow());
}

/// What is marked on the page that is shown comes into sight.
void PreferencesDialog::ShowFirstMatch()
{
    const PreferencesPage* const page = GetCurrentPage();
    QWidget* const match = page ? page->FindFirstMatch() : nullptr;
    if (match)
        static_cast<QScrollArea*>(m_stack->currentWidget())->ensureWidgetVisible(match);
}

void PreferencesDialog::FocusFirstMatch()
{
    const PreferencesPage* const page = GetCurrentPage();
    QWidget* const match = page ? page->FindFirstMatch() : nullptr;
    QWidget* const target = match && match->isEnabled() ? match : m_list;
    target->setFocus(Qt::ShortcutFocusReason);
}

bool PreferencesDialog::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_search || event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Down: m_list->setFocus(Qt::ShortcutFocusReason); return true;
    case Qt::Key_Return:
    case Qt::Key_Enter: FocusFirstMatch(); return true;
    case Qt::Key_Escape:
        if (m_search->text().isEmpty())
            return false;
        m_search->clear();
        return true;
    default: return false;
    }
}

void PreferencesDialog::accept()
{
    if (Apply())
        QDialog::accept();
}

bool PreferencesDialog::FocusWrongField()
{
    for (int row = 0; row < m_pages.size(); ++row) {
        QWidget* const field = m_pages[row]->FindWrongField();
        if (!field)
            continue;
        m_search->clear();
        m_list->setCurrentRow(row);
        field->setFocus(Qt::ShortcutFocusReason);
        static_cast<QScrollArea*>(m_stack->currentWidget())->ensureWidgetVisible(field);
        return true;
    }
    return false;
}

bool PreferencesDialog::Apply()
{
    if (FocusWrongField())
        return false;
    bool changed = false;
    for (PreferencesPage* page : qAsConst(m_pages)) {
        if (!page->IsChanged())
            continue;
        page->Apply();
        changed = true;
    }
    if (changed)
        Q_EMIT Applied();
    UpdateApplyButton();
    return true;
}

void PreferencesDialog::RestoreDefaults()
{
    PreferencesPage* const page = GetCurrentPage();
    if (!page)
        return;
    const auto answer = AskQuestion(this, tr("Restore Defaults"), page->GetRestoreQuestion(),
        QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (answer == QMessageBox::Yes)
        page->RestoreDefaults();
}

void PreferencesDialog::UpdateApplyButton()
{
    const bool isChanged = std::any_of(m_pages.begin(), m_pages.end(),
        [](const PreferencesPage* page) { return page->IsChanged(); });
    // Otherwise the focus would go anywhere with the button that had it.
    if (!isChanged && m_applyButton->hasFocus())
        m_buttons->button(QDialogButtonBox::Ok)->setFocus();
    m_applyButton->setEnabled(isChanged);
}
