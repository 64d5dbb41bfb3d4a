set(HOST_UI_WINDOW_SOURCES
  window/HostIcons.cpp
  window/HostStyle.cpp window/HostStyle.h
  window/Viewport.cpp window/Viewport.h)
