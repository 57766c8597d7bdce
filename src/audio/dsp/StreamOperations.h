#pragma once

#include "audio/dsp/AudioStreams.h"

/// What every filter does with whole streams. All of it tolerates null streams and absent data, and
/// counts below 1 do nothing. Source and target have at least `frames` frames, or stride 0. [audio]
namespace Vorin::Audio::DSP::StreamOperations {

/// target += source.
void Add(const IAudioStream* source, IAudioStream* target, int frames);

/// target = source; a null source reads as silence, and a target that is the source stays.
void Copy(const IAudioStream* source, IAudioStream* target, int frames);

/// Add and Copy over lists, channel by channel, as far as both lists reach.
void AddAll(const IAudioStreams& source, IAudioStreams& target, int frames);
void CopyAll(const IAudioStreams& source, IAudioStreams& target, int frames);

/// Zeroes every channel.
void Clear(IAudioStreams& streams, int frames);

/// Writes `from + (to - from) * position` to `target` for each frame, over as many channels as all
/// three lists have; `step` is added to the position after each frame, within 0 and 1. The channels
/// all start at the given position, which is then left where the last one ended; with no channel it
/// moves all the same, so that a fade ends. False when the position has reached the end that it
/// moves towards. `target` may be one of the others.
[[nodiscard]] bool CrossFade(const IAudioStreams& from, const IAudioStreams& to,
                             IAudioStreams& target, int frames, float& position, float step);

} // namespace Vorin::Audio::DSP::StreamOperations
