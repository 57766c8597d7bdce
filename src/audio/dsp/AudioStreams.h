#pragma once

#include "audio/dsp/AudioStream.h"
#include "containers/DynamicCollection.h"
#include "containers/Vector.h"
#include "core/Ownership.h"

namespace Vorin::Audio::DSP {

/// The channels of one side of a filter, in order.
using IAudioStreams = Containers::IVector<IAudioStream>;

/// Channels that own their samples.
using CDynamicAudioStreams = CoreUtilities::TDynamicCollection<CDynamicAudioStream, IAudioStream>;

/// A caller's array of streams as a list. The array is borrowed.
class CAudioStreams : public IAudioStreams {
public:
    CAudioStreams(CAudioStream* array, int channels) : streams(array), count(channels) {}

    int GetCount() const override { return count; }
    const IAudioStream& Get(int index) const override { return streams[index]; }
    IAudioStream& Get(int index) override { return streams[index]; }

private:
    CAudioStream* streams;
    int count;
};

/// One stream as a list of one; no stream as an empty list.
class CAudioStreamToStreams : public IAudioStreams {
public:
    CAudioStreamToStreams(IAudioStream* one, Core::EOwnership ownership) : stream(one, ownership) {}

    int GetCount() const override { return stream.Get() ? 1 : 0; }
    const IAudioStream& Get(int) const override { return *stream.Get(); }
    IAudioStream& Get(int) override { return *stream.Get(); }

private:
    Core::TOwnership<IAudioStream> stream;
};

/// Any number of silent channels. They share one stream, since nothing can be written to it.
class CEmptyStreams : public IAudioStreams {
public:
    CEmptyStreams(int channels, int frames) : stream(frames), count(channels) {}

    int GetCount() const override { return count; }
    const IAudioStream& Get(int) const override { return stream; }
    IAudioStream& Get(int) override { return stream; }

private:
    CEmptyStream stream;
    int count;
};

/// The stream of a channel, or null when the list is null or has no such channel.
inline IAudioStream* StreamAt(IAudioStreams* streams, int channel) {
    return streams && channel < streams->GetCount() ? &streams->Get(channel) : nullptr;
}

} // namespace Vorin::Audio::DSP
