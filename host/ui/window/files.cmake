set(HOST_UI_WINDOW_SOURCES
  window/CommandLine.cpp window/CommandLine.h
  window/CommandReference.cpp window/CommandReference.h
  window/EscapeWatcher.cpp window/EscapeWatcher.h
  window/HeadsUp.cpp window/HeadsUp.h
  window/HistoryLineEdit.cpp window/HistoryLineEdit.h
  window/HostActionCommand.cpp
  window/HostIcons.cpp
  window/HostMenus.cpp
  window/HostSceneMenus.cpp
  window/HostStyle.cpp window/HostStyle.h
  window/HostWindow.cpp window/HostWindow.h
  window/SceneWires.cpp
  window/Viewport.cpp window/Viewport.h
  window/host_window.qrc)
