#include "window/InsertPathDialog.h"

#include "settings/Settings.h"
#include "window/InsertedPath.h"
#include "window/chrome/ComboRowDelegate.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/NamedControl.h"
#include "window/chrome/Theme.h"
#include "window/chrome/ToolTipText.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QCompleter>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSet>
#include <QStringListModel>
#include <QVBoxLayout>

namespace {

// Design pixels.
constexpr int WIDTH = 520;
constexpr int MARGIN = 16;
constexpr int GAP = 10;
constexpr int SHOWN_FOLDER = 260; ///< of the path of one

constexpr int MAXIMUM_ENTRIES = 20000; ///< of a folder that are looked at for completion

/// For the session.
QString& LastFolder()
{
    static QString folder;
    return folder;
}

QString& LastRelativeTo()
{
    static QString folder;
    return folder;
}

} // namespace

InsertPathDialog::InsertPathDialog(const QString& fileFolder, QWidget* parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("m_insertPathDialog"));
    setWindowTitle(tr("Insert Path"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    if (LastFolder().isEmpty() || !QFileInfo(LastFolder()).isDir())
        LastFolder() = fileFolder.isEmpty() ? Settings::workspaceFolders.value(0, QDir::homePath())
                                            : fileFolder;
    m_base = LastFolder();
    CreateWidgets();
    FillFolders(fileFolder);
    CreateLayout();
    CreateCompleter();
    UpdateDisplay();
}

void InsertPathDialog::CreateWidgets()
{
    using D = InsertPathDialog;
    m_path = NamedControl(new QLineEdit(this), "m_path", tr("Path"));
    m_path->setPlaceholderText(tr("Path of a file or folder"));
    m_fileButton
        = NamedControl(new QPushButton(tr("File..."), this), "m_fileButton", tr("File..."));
    m_folderButton
        = NamedControl(new QPushButton(tr("Folder..."), this), "m_folderButton", tr("Folder..."));
    m_kind = NamedControl(new QComboBox(this), "m_kind", tr("Absolute or relative"));
    m_kind->addItems({tr("Absolute"), tr("Relative to")});
    m_folder = NamedControl(new QComboBox(this), "m_folder", tr("Relative to"));
    m_folder->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_forwardSlashes = NamedControl(
        new QCheckBox(tr("Forward slashes"), this), "m_forwardSlashes", tr("Forward slashes"));
    m_forwardSlashes->setChecked(Settings::insertPathForwardSlashes);
    m_escapeBackslashes = NamedControl(new QCheckBox(tr("Escape backslashes"), this),
        "m_escapeBackslashes", tr("Escape backslashes"));
    m_escapeBackslashes->setChecked(Settings::insertPathEscapeBackslashes);
    m_preview = NamedControl(new QLineEdit(this), "m_preview", tr("Preview"));
    m_preview->setReadOnly(true);
    m_insertButton
        = NamedControl(new QPushButton(tr("Insert"), this), "m_insertButton", tr("Insert"));
    m_cancelButton
        = NamedControl(new QPushButton(tr("Cancel"), this), "m_cancelButton", tr("Cancel"));
    m_insertButton->setDefault(true);
    for (QPushButton* button : {m_fileButton, m_folderButton, m_cancelButton})
        button->setAutoDefault(false);
    connect(m_path, &QLineEdit::textChanged, this, &D::UpdateDisplay);
    for (QComboBox* box : {m_kind, m_folder})
        connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &D::UpdateDisplay);
    for (QCheckBox* box : {m_forwardSlashes, m_escapeBackslashes})
        connect(box, &QCheckBox::toggled, this, &D::UpdateDisplay);
    connect(m_fileButton, &QPushButton::clicked, this, &D::ChooseFile);
    connect(m_folderButton, &QPushButton::clicked, this, &D::ChooseFolder);
    connect(m_insertButton, &QPushButton::clicked, this, &D::accept);
    connect(m_cancelButton, &QPushButton::clicked, this, &D::reject);
}

/// The script's own folder first.
void InsertPathDialog::FillFolders(const QString& fileFolder)
{
    if (!fileFolder.isEmpty())
        m_folder->addItem(tr("Folder of this file"), fileFolder);
    const int width = Theme::Dp(SHOWN_FOLDER);
    for (const QString& folder : qAsConst(Settings::workspaceFolders)) {
        if (m_folder->findData(folder) < 0)
            m_folder->addItem(fontMetrics().elidedText(folder, Qt::ElideMiddle, width), folder);
    }
    m_folder->setCurrentIndex(qMax(0, m_folder->findData(LastRelativeTo())));
    if (m_folder->count() > 0 && !Settings::insertPathAbsolute)
        m_kind->setCurrentIndex(1);
}

void InsertPathDialog::CreateLayout()
{
    auto* grid = new QGridLayout;
    const auto caption = [this](const QString& text, QWidget* buddy) {
        auto* label = new QLabel(text, this);
        label->setBuddy(buddy);
        return label;
    };
    grid->addWidget(caption(tr("Path:"), m_path), 0, 0);
    grid->addWidget(m_path, 0, 1, 1, 2);
    grid->addWidget(m_fileButton, 0, 3);
    grid->addWidget(m_folderButton, 0, 4);
    grid->addWidget(caption(tr("Write as:"), m_kind), 1, 0);
    grid->addWidget(m_kind, 1, 1);
    grid->addWidget(m_folder, 1, 2, 1, 3);
    auto* checks = new QHBoxLayout;
    checks->addWidget(m_forwardSlashes);
    checks->addWidget(m_escapeBackslashes);
    checks->addStretch(1);
    grid->addLayout(checks, 2, 1, 1, 4);
    grid->addWidget(caption(tr("Preview:"), m_preview), 3, 0);
    grid->addWidget(m_preview, 3, 1, 1, 4);
    grid->setColumnStretch(2, 1);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(m_insertButton, QDialogButtonBox::AcceptRole);
    buttons->addButton(m_cancelButton, QDialogButtonBox::RejectRole);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(grid);
    layout->addStretch(1);
    layout->addWidget(buttons);
    FollowLook(this, [this, grid, layout, checks] {
        const int margin = Theme::Dp(MARGIN);
        layout->setContentsMargins(margin, margin, margin, margin);
        layout->setSpacing(Theme::Dp(GAP));
        grid->setSpacing(Theme::Dp(GAP));
        checks->setSpacing(2 * Theme::Dp(GAP));
        setMinimumWidth(Theme::Dp(WIDTH));
    });
}

void InsertPathDialog::CreateCompleter()
{
    m_completions = new QStringListModel(this);
    auto* completer = new QCompleter(m_completions, this);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    // A window of its own, which the window's style does not reach.
    QAbstractItemView* const list
        = NamedControl(completer->popup(), "m_completionList", tr("Completions"));
    list->setItemDelegate(new ComboRowDelegate(list));
    m_path->setCompleter(completer);
    connect(m_path, &QLineEdit::textEdited, this, &InsertPathDialog::UpdateCompletions);
    // A folder that was chosen goes on with what is in it.
    connect(completer, QOverload<const QString&>::of(&QCompleter::activated), this,
        &InsertPathDialog::UpdateCompletions, Qt::QueuedConnection);
}

void InsertPathDialog::UpdateCompletions(const QString& typed)
{
    const QStringList found = InsertedPath::Completions(typed, m_base, MAXIMUM_ENTRIES);
    if (found != m_completions->stringList())
        m_completions->setStringList(found);
    m_path->completer()->setCompletionPrefix(typed);
    if (!found.isEmpty() && typed.endsWith(QLatin1Char('/')))
        m_path->completer()->complete();
}

/// Where the dialogs for choosing start: near what is typed.
QString InsertPathDialog::FolderToStartIn() const
{
    const QString typed = InsertedPath::Absolute(m_path->text().trimmed(), m_base);
    const QFileInfo info(typed);
    if (!typed.isEmpty() && info.exists())
        return info.absoluteFilePath();
    return !typed.isEmpty() && info.absoluteDir().exists() ? info.absolutePath() : m_base;
}

void InsertPathDialog::ChooseFile()
{
    TakePath(QFileDialog::getOpenFileName(this, tr("Insert Path"), FolderToStartIn()));
}

void InsertPathDialog::ChooseFolder()
{
    TakePath(QFileDialog::getExistingDirectory(this, tr("Insert Path"), FolderToStartIn()));
}

void InsertPathDialog::TakePath(const QString& path)
{
    if (path.isEmpty())
        return;
    LastFolder() = QFileInfo(path).absolutePath();
    m_path->setText(path);
    m_path->setFocus(Qt::OtherFocusReason);
}

bool InsertPathDialog::IsRelative() const
{
    return m_kind->isEnabled() && m_kind->currentIndex() == 1;
}

QString InsertPathDialog::GetText() const
{
    const QString relativeTo = IsRelative() ? m_folder->currentData().toString() : QString();
    return InsertedPath::Text(m_path->text(), m_base,
        {relativeTo, m_forwardSlashes->isChecked(), m_escapeBackslashes->isChecked()});
}

void InsertPathDialog::UpdateDisplay()
{
    const bool canBeRelative = m_folder->count() > 0 && InsertedPath::CanBeRelative(m_path->text());
    m_kind->setEnabled(canBeRelative);
    m_kind->setToolTip(canBeRelative ? QString()
            : m_folder->count() > 0  ? tr("The path is on another drive or machine")
                                     : tr("There is no folder that it could be relative to"));
    m_folder->setEnabled(IsRelative());
    m_folder->setToolTip(ToolTipText(m_folder->currentData().toString()));
    m_escapeBackslashes->setEnabled(!m_forwardSlashes->isChecked());
    m_preview->setText(GetText());
    m_preview->setCursorPosition(0);
    m_insertButton->setEnabled(!m_preview->text().isEmpty());
}

void InsertPathDialog::accept()
{
    if (GetText().isEmpty())
        return;
    // What could not be chosen has not been chosen.
    if (m_kind->isEnabled())
        Settings::insertPathAbsolute = !IsRelative();
    Settings::insertPathForwardSlashes = m_forwardSlashes->isChecked();
    Settings::insertPathEscapeBackslashes = m_escapeBackslashes->isChecked();
    if (IsRelative())
        LastRelativeTo() = m_folder->currentData().toString();
    const QFileInfo info(InsertedPath::Absolute(m_path->text().trimmed(), m_base));
    if (info.absoluteDir().exists())
        LastFolder() = info.absolutePath();
    QDialog::accept();
}
