#pragma once

namespace jotwell {

struct Platform;

/// Names the edge of the process on which every `shared()` stands. To be called once, on the main
/// thread and before the first of them; `platform` must outlive them all.
void installPlatform(const Platform& platform);

/// Ends the shared services in the order opposite to their making. Nothing may use one afterwards.
void releaseSharedServices();

} // namespace jotwell
