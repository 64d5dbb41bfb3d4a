#pragma once

class QLockFile;

/// Locks without waiting. A lock whose process does not live any more is taken over; one of another
/// machine never is, because nobody can tell from here. The lock must not become stale by its age.
bool TakeOverLock(QLockFile& lock);
