set(HOST_UI_WORKSPACE_SOURCES
  workspace/DockArea.cpp workspace/DockArea.h
  workspace/DockTabBar.cpp workspace/DockTabBar.h
  workspace/FloatingTitleBar.cpp workspace/FloatingTitleBar.h
  workspace/FloatingWindow.cpp workspace/FloatingWindow.h
  workspace/ResizeGrip.cpp workspace/ResizeGrip.h
  workspace/Workspace.cpp workspace/Workspace.h
  workspace/WorkspaceCommands.cpp
  workspace/WorkspaceControls.cpp workspace/WorkspaceControls.h
  workspace/WorkspaceFile.cpp
  workspace/WorkspacePanel.cpp workspace/WorkspacePanel.h)
