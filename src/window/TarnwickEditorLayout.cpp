// Widgets, splitters and geometry of the editor window.

#include "editor/CodeEditorGroup.h"
#include "settings/Settings.h"
#include "window/PanelGroup.h"
#include "window/TarnwickEditor.h"
#include "window/chrome/StatusBar.h"

#include <QMenuBar>
#include <QSplitter>
#include <QSplitterHandle>
#include <QVBoxLayout>

namespace {

constexpr int OUTPUT_MINIMUM_HEIGHT = 100; // pixels
// The window works with one group as yet; side-by-side groups come with moving tabs.
constexpr int GROUP_COUNT = 1;

} // namespace

void TarnwickEditor::CreateWidgets()
{
    m_codeEditorSplitter
        = new QSplitter(Settings::codeEditorOrientVertical ? Qt::Vertical : Qt::Horizontal, this);
    m_codeEditorSplitter->setObjectName(QStringLiteral("m_codeEditorSplitter"));
    m_codeEditorSplitter->setChildrenCollapsible(false);
    for (int i = 0; i < GROUP_COUNT; ++i) {
        m_groups.append(new CodeEditorGroup(i, &m_keyBindings, m_codeEditorSplitter));
        m_codeEditorSplitter->addWidget(m_groups.last());
    }
    // An index stored by a window with more groups.
    if (!GetActiveCodeEditorGroup())
        Settings::activeTabViewIndex = 0;

    m_outputPanel = new PanelGroup(&m_keyBindings, this);
    m_outputPanel->setObjectName(QStringLiteral("m_outputPanel"));
    m_outputPanel->setMinimumHeight(OUTPUT_MINIMUM_HEIGHT);
    m_statusBar = new StatusBar(this);
    m_statusBar->setObjectName(QStringLiteral("m_statusBar"));

    m_outputSplitter
        = new QSplitter(Settings::outputOrientVertical ? Qt::Vertical : Qt::Horizontal, this);
    m_outputSplitter->setObjectName(QStringLiteral("m_outputSplitter"));
    m_outputSplitter->setChildrenCollapsible(false);
    QWidget* const editors = m_codeEditorSplitter;
    QWidget* const output = m_outputPanel;
    for (QWidget* pane : Settings::outputTopLeft ? QList<QWidget*>{output, editors}
                                                 : QList<QWidget*>{editors, output}) {
        m_outputSplitter->addWidget(pane);
        m_outputSplitter->setStretchFactor(m_outputSplitter->indexOf(pane), pane == editors);
    }
    m_outputSplitter->handle(1)->installEventFilter(this);
}

void TarnwickEditor::CreateLayout()
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->setMenuBar(m_menuBar);
    layout->addWidget(m_outputSplitter, 1);
    layout->addWidget(m_statusBar);
}

void TarnwickEditor::RestoreSplitterState()
{
    if (!m_outputSplitter->restoreState(Settings::outputState))
        SetDefaultSplitterSizes();
    // The stored state carries the direction along; the option decides.
    m_outputSplitter->setOrientation(
        Settings::outputOrientVertical ? Qt::Vertical : Qt::Horizontal);
    m_outputSplitter->setChildrenCollapsible(false);
}

void TarnwickEditor::SetDefaultSplitterSizes()
{
    const int parts = Settings::codeEditorSize + Settings::outputSize;
    const int extent = Settings::outputOrientVertical ? height() : width();
    const int output = extent * Settings::outputSize / qMax(1, parts);
    const QList<int> sizes = {output, extent - output};
    m_outputSplitter->setSizes(Settings::outputTopLeft ? sizes : QList<int>{sizes[1], sizes[0]});
}

// A hidden pane has no size worth keeping.
void TarnwickEditor::SaveSplitterState()
{
    if (Settings::outputVisible && Settings::codeEditorVisible
        && testAttribute(Qt::WA_WState_Polished))
        Settings::outputState = m_outputSplitter->saveState();
}

/// Keeps the place of the floating panel; docked, or not in a panel at all, the stored one stays.
void TarnwickEditor::SaveWindowGeometry(bool hiding)
{
    const QWidget* const top = window();
    if (top == this || top == m_mainWindow || (!hiding && !isVisible()))
        return;
    Settings::windowGeometry = top->geometry();
}
