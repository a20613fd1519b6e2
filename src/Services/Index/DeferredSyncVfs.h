#pragma once

#include <QByteArray>

#include <atomic>

namespace jotwell {

/// SQLite's usual file access, under a name of its own, that can hold back the syncs of the files
/// opened through it: many small commits in a row then cost one sync in the end. One instance for
/// the whole process; what it is asked while held back is done when it is let go.
class DeferredSyncVfs;

} // namespace jotwell
