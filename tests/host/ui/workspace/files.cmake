set(HOST_UI_WORKSPACE_TEST_CLASSES WorkspaceControlTest WorkspaceFileTest WorkspaceMouseTest)
set(HOST_UI_WORKSPACE_TESTS
  workspace/WorkspaceControlTest.cpp
  workspace/WorkspaceFileTest.cpp
  workspace/WorkspaceMouseTest.cpp)
