#pragma once

namespace PluginsFilters {

/// Where a trigger view begins on a circle of samples.
///
/// `samples` are the `count` samples of the circle, `newest` the index of the newest. The search
/// walks backward from there to the nearest crossing of `level` in the wanted direction, and gives
/// the place behind the first sample past the crossing: an upward crossing ends with one sample at
/// or below the level and the next above it. A newest sample exactly on the level gives 1, wherever
/// it stands; the drawn picture depends on this odd case, so it stays.
///
/// -1 when the circle holds no crossing. One pass over the circle at most; no allocation. [audio]
int FindTrigger(const float* samples, int count, int newest, float level, bool down);

} // namespace PluginsFilters
