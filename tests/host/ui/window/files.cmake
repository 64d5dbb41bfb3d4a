set(HOST_UI_WINDOW_TEST_CLASSES HostWindowTest)
set(HOST_UI_WINDOW_TESTS
  window/HostWindowTest.cpp
  window/WindowFixture.cpp)
