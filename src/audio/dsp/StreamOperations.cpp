#include "audio/dsp/StreamOperations.h"

#include <algorithm>
#include <cstring>

namespace Vorin::Audio::DSP::StreamOperations {

namespace {

const float* ConstData(const IAudioStream* stream) {
    return stream ? stream->GetConstData() : nullptr;
}

float Moved(float position, float step) { return std::clamp(position + step, 0.0F, 1.0F); }

} // namespace

void Add(const IAudioStream* source, IAudioStream* target, int frames) {
    const float* from = ConstData(source);
    float* to = target ? target->GetData() : nullptr;
    if (!from || !to) {
        return;
    }
    const std::ptrdiff_t fromStride = source->GetStride();
    const std::ptrdiff_t toStride = target->GetStride();
    for (int i = 0; i < frames; ++i) {
        to[i * toStride] += from[i * fromStride];
    }
}

void Copy(const IAudioStream* source, IAudioStream* target, int frames) {
    float* to = target ? target->GetData() : nullptr;
    if (!to || frames < 1) {
        return;
    }
    const float silence = 0.0F;
    const float* from = ConstData(source);
    const std::ptrdiff_t fromStride = from ? source->GetStride() : 0;
    const std::ptrdiff_t toStride = target->GetStride();
    if (!from) {
        from = &silence;
    }
    if (from == to && fromStride == toStride) {
        return;
    }
    if (fromStride == 1 && toStride == 1) {
        std::memmove(to, from, static_cast<std::size_t>(frames) * sizeof(float));
        return;
    }
    for (int i = 0; i < frames; ++i) {
        to[i * toStride] = from[i * fromStride];
    }
}

void AddAll(const IAudioStreams& source, IAudioStreams& target, int frames) {
    const int channels = std::min(source.GetCount(), target.GetCount());
    for (int i = 0; i < channels; ++i) {
        Add(&source.Get(i), &target.Get(i), frames);
    }
}

void CopyAll(const IAudioStreams& source, IAudioStreams& target, int frames) {
    const int channels = std::min(source.GetCount(), target.GetCount());
    for (int i = 0; i < channels; ++i) {
        Copy(&source.Get(i), &target.Get(i), frames);
    }
}

void Clear(IAudioStreams& streams, int frames) {
    for (int i = 0; i < streams.GetCount(); ++i) {
        Copy(nullptr, &streams.Get(i), frames);
    }
}

bool CrossFade(const IAudioStreams& from, const IAudioStreams& to, IAudioStreams& target,
               int frames, float& position, float step) {
    const int channels = std::min({from.GetCount(), to.GetCount(), target.GetCount()});
    const float start = position;
    for (int i = 0; i < frames; ++i) {
        position = Moved(position, step);
    }
    for (int channel = 0; channel < channels; ++channel) {
        const IAudioStream& a = from.Get(channel);
        const IAudioStream& b = to.Get(channel);
        IAudioStream& out = target.Get(channel);
        const float* aData = a.GetConstData();
        const float* bData = b.GetConstData();
        float* outData = out.GetData();
        if (!aData || !bData || !outData) {
            continue;
        }
        float weight = start;
        for (std::ptrdiff_t i = 0; i < frames; ++i) {
            const float x = aData[i * a.GetStride()];
            const float y = bData[i * b.GetStride()];
            outData[i * out.GetStride()] = x + (y - x) * weight;
            weight = Moved(weight, step);
        }
    }
    return step < 0 ? position > 0.0F : position < 1.0F;
}

} // namespace Vorin::Audio::DSP::StreamOperations
