#pragma once

/// What the thread sanitizer must be told of the toolkit, which is not instrumented itself.
namespace ToolkitThreads {

/// Before an event is handled: whatever any thread did before it sent one has been done.
void EventIsHandled();

} // namespace ToolkitThreads
