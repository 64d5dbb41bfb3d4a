#pragma once

/// What the thread sanitizer must be told of the toolkit, which is not instrumented itself.
namespace ToolkitThreads {

/// Around the handling of an event: whatever any thread did before it sent one has been done, and
/// what is done now comes before the event goes.
struct EventScope
{
    EventScope();
    ~EventScope();
};

} // namespace ToolkitThreads
