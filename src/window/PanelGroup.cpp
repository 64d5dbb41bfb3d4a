#include "window/PanelGroup.h"

#include "editor/FindReplaceWidget.h"
#include "output/OutputTextEdit.h"
#include "plugin/MayaUtil.h"
#include "settings/KeyBindings.h"
#include "settings/Settings.h"
#include "window/chrome/ElidedLabel.h"
#include "window/chrome/FlatButton.h"
#include "window/chrome/LookFollower.h"
#include "window/chrome/Theme.h"
#include "window/chrome/ToolTipText.h"

#include <QActionGroup>
#include <QComboBox>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>

namespace {

// Design pixels.
constexpr int TITLE_HEIGHT = 34;
constexpr int TITLE_MARGIN = 14;
constexpr int TOOLBAR_MARGIN = 8;
constexpr int SPACING = 6;

enum Verbosity { EchoAll = 0, Normal = 1, Minimal = 2 };

/// Where the last log file was put, while the program runs.
QString& LogDirectory()
{
    static QString directory;
    return directory;
}

int VerbosityFor(bool echoAll)
{
    if (echoAll)
        return EchoAll;
    return Settings::outputMinimalTrace ? Minimal : Normal;
}

} // namespace

PanelGroup::PanelGroup(KeyBindings* keyBindings, QWidget* parent)
    : QWidget(parent)
    , m_keyBindings(keyBindings)
{
    CreateWidgets();
    CreateLayout();
    CreateConnections();
    UpdateKeyBindings();
}

void PanelGroup::CreateWidgets()
{
    m_titleBar = new QWidget(this);
    m_titleBar->setObjectName(QStringLiteral("m_titleBar"));
    m_titleBar->setContextMenuPolicy(Qt::CustomContextMenu);
    m_title = new QLabel(tr("OUTPUT"), this);
    m_title->setObjectName(QStringLiteral("m_title"));
    m_fileName = new ElidedLabel(this);
    m_fileName->setObjectName(QStringLiteral("m_fileName"));
    CreateVerbosity();

    m_writeToFileButton = new FlatButton(
        QStringLiteral("write_to_file"), tr("Write to File"), FlatButton::Tint::Computed, this);
    m_writeToFileButton->setObjectName(QStringLiteral("m_writeToFileButton"));
    m_writeToFileButton->setCheckable(true);
    m_clearButton = new FlatButton(
        QStringLiteral("clear_field"), tr("Clear"), FlatButton::Tint::Computed, this);
    m_clearButton->setObjectName(QStringLiteral("m_clearButton"));
    m_output = new OutputTextEdit(m_keyBindings, this);
    m_output->setObjectName(QStringLiteral("m_output"));
}

void PanelGroup::CreateVerbosity()
{
    m_verbosity = new QComboBox(this);
    m_verbosity->setObjectName(QStringLiteral("m_verbosity"));
    m_verbosity->addItems({tr("Echo All"), tr("Normal"), tr("Minimal")});
    m_verbosity->setToolTip(tr("Output Verbosity"));
    m_verbosity->setAccessibleName(tr("Output Verbosity"));
    m_verbosity->setFocusPolicy(Qt::TabFocus);
    m_verbosity->installEventFilter(this);
    m_verbosity->setCurrentIndex(VerbosityFor(MayaUtil::EchoAllCommandsEnabled()));
}

void PanelGroup::CreateLayout()
{
    auto* row = new QHBoxLayout(m_titleBar);
    row->addWidget(m_title);
    row->addWidget(m_fileName, 1);
    row->addWidget(m_verbosity);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(0);
    buttons->addWidget(m_writeToFileButton);
    buttons->addWidget(m_clearButton);
    row->addLayout(buttons);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_titleBar);
    layout->addWidget(m_output, 1);
    FollowLook(this, [this, row] {
        m_titleBar->setFixedHeight(Theme::Dp(TITLE_HEIGHT));
        row->setContentsMargins(Theme::Dp(TITLE_MARGIN), 0, Theme::Dp(TOOLBAR_MARGIN), 0);
        row->setSpacing(Theme::Dp(SPACING));
        UpdateFonts();
    });
}

void PanelGroup::CreateConnections()
{
    connect(m_verbosity, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &PanelGroup::OnVerbosityChanged);
    connect(m_writeToFileButton, &QAbstractButton::clicked, this, &PanelGroup::ToggleWriteToFile);
    connect(m_clearButton, &QAbstractButton::clicked, m_output, &OutputTextEdit::ClearAll);
    connect(m_output, &OutputTextEdit::WriteToFileEnded, this, &PanelGroup::OnWriteToFileEnded);
    connect(m_titleBar, &QWidget::customContextMenuRequested, this, &PanelGroup::ShowTitleMenu);
}

void PanelGroup::OutputAppendText(const QString& text)
{
    m_output->AppendText(text);
}

void PanelGroup::OutputClearAll()
{
    m_output->ClearAll();
}

int PanelGroup::GetVerbosityIndex() const
{
    return m_verbosity->currentIndex();
}

void PanelGroup::SetEchoAllCommandsEnabled(bool enabled)
{
    ChooseVerbosity(VerbosityFor(enabled));
}

void PanelGroup::SetNormalVerbosity()
{
    ChooseVerbosity(Normal);
}

void PanelGroup::SetMinimalVerbosity()
{
    ChooseVerbosity(Minimal);
}

/// Also when it is shown already: a script may have switched the host in the meantime.
void PanelGroup::ChooseVerbosity(int index)
{
    if (index == m_verbosity->currentIndex())
        OnVerbosityChanged(index);
    else
        m_verbosity->setCurrentIndex(index);
}

void PanelGroup::OnVerbosityChanged(int index)
{
    Settings::outputMinimalTrace = index == Minimal;
    MayaUtil::SetEchoAllCommandsEnabled(index == EchoAll);
    Q_EMIT EchoAllCommandsChanged();
}

bool PanelGroup::IsWriteToFileActive() const
{
    return m_output->IsWriteToFileActive();
}

void PanelGroup::ApplyPreferences()
{
    m_output->SetLineLimit(Settings::outputBufferSize);
    m_output->UpdateFontsAndColors();
    m_output->UpdateTextOptions();
    // Nothing is chosen here: the option and the host have what it shows already.
    const QSignalBlocker blocker(m_verbosity);
    m_verbosity->setCurrentIndex(VerbosityFor(MayaUtil::EchoAllCommandsEnabled()));
}

void PanelGroup::UpdateKeyBindings()
{
    m_clearButton->SetToolTip(m_keyBindings->GetToolTip(KeyBindings::ClearOutput, tr("Clear")));
    m_output->GetFindReplace()->UpdateKeyBindings(m_keyBindings);
    UpdateWriteToFile();
}

void PanelGroup::ToggleWriteToFile()
{
    // A click has switched the button already, but nothing is decided yet.
    m_writeToFileButton->setChecked(IsWriteToFileActive());
    if (IsWriteToFileActive())
        StopWriting();
    else
        StartWriting();
    UpdateWriteToFile();
    Q_EMIT WriteToFileUpdated(IsWriteToFileActive());
}

void PanelGroup::StopWriting()
{
    const auto answer = QMessageBox::question(this, tr("Write Output to File"),
        tr("Stop writing output to file?"), QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (answer == QMessageBox::Yes)
        m_output->EndWriteToFile();
}

void PanelGroup::StartWriting()
{
    const QString filters = QStringLiteral("%1;;%2").arg(tr("LOG (*.log)"), tr("All Files(*.*)"));
    QString filter;
    QString path = QFileDialog::getSaveFileName(
        this, tr("Write Output to File"), LogDirectory(), filters, &filter);
    if (path.isEmpty())
        return;
    LogDirectory() = QFileInfo(path).absolutePath();
    const QString extension = QStringLiteral(".log");
    if (filter.startsWith(QLatin1String("LOG")) && !path.endsWith(extension, Qt::CaseInsensitive)) {
        path += extension;
        if (!MayReplace(path))
            return;
    }
    m_output->BeginWriteToFile(path);
}

/// The dialog has asked about the name that was typed, not about the one it became.
bool PanelGroup::MayReplace(const QString& path)
{
    if (!QFileInfo::exists(path))
        return true;
    const QString text
        = tr("%1 already exists.\nDo you want to replace it?").arg(QFileInfo(path).fileName());
    return QMessageBox::warning(this, tr("Write Output to File"), text,
               QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
        == QMessageBox::Yes;
}

void PanelGroup::OnWriteToFileEnded()
{
    UpdateWriteToFile();
    Q_EMIT WriteToFileUpdated(false);
}

void PanelGroup::UpdateWriteToFile()
{
    const bool active = IsWriteToFileActive();
    const QString path = m_output->GetWriteToFilePath();
    m_writeToFileButton->setChecked(active);
    m_writeToFileButton->SetToolTip(m_keyBindings->GetToolTip(KeyBindings::ToggleWriteOutputToFile,
        active ? tr("Stop writing to file") : tr("Write to File")));
    m_fileName->SetText(QFileInfo(path).fileName());
    m_fileName->setToolTip(ToolTipText(path));
}

void PanelGroup::ShowTitleMenu(const QPoint& point)
{
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto addEntry = [this, menu](const QString& label, int binding) {
        QAction* const action = menu->addAction(label);
        action->setShortcut(m_keyBindings->GetShortcut(binding));
        action->setShortcutVisibleInContextMenu(true);
        return action;
    };
    connect(addEntry(tr("Clear"), KeyBindings::ClearOutput), &QAction::triggered, m_output,
        &OutputTextEdit::ClearAll);
    QAction* const write = addEntry(tr("Write to File"), KeyBindings::ToggleWriteOutputToFile);
    write->setCheckable(true);
    write->setChecked(IsWriteToFileActive());
    connect(write, &QAction::triggered, this, &PanelGroup::ToggleWriteToFile);
    menu->addSeparator();
    AddVerbosities(*menu);
    menu->addSeparator();
    connect(addEntry(tr("Hide Output"), KeyBindings::ToggleOutput), &QAction::triggered, this,
        &PanelGroup::HideRequested);
    menu->popup(m_titleBar->mapToGlobal(point));
}

void PanelGroup::AddVerbosities(QMenu& menu)
{
    auto* group = new QActionGroup(&menu);
    for (int i = 0; i < m_verbosity->count(); ++i) {
        QAction* const action = menu.addAction(m_verbosity->itemText(i));
        action->setActionGroup(group);
        action->setCheckable(true);
        action->setChecked(i == m_verbosity->currentIndex());
        connect(action, &QAction::triggered, this, [this, i] { ChooseVerbosity(i); });
    }
}

/// Turning the wheel over the box must not switch echo-all by accident.
bool PanelGroup::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_verbosity && event->type() == QEvent::Wheel && !m_verbosity->hasFocus()) {
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void PanelGroup::UpdateFonts()
{
    m_title->setFont(Theme::CaptionFont(font()));
    m_fileName->setFont(Theme::SmallFont(font()));
    QPalette palette = m_title->palette();
    palette.setColor(QPalette::WindowText, Theme::Color(Theme::Role::Soft));
    m_title->setPalette(palette);
    m_fileName->setPalette(palette);
}
