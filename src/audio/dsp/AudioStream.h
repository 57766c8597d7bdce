#pragma once

#include <vector>

namespace Vorin::Audio::DSP {

/// One channel of 32-bit float audio in any stride. A frame n of the channel stands at `n *
/// stride`.
class IAudioStream {
public:
    /// Null when the channel is absent.
    virtual const float* GetConstData() const = 0;
    /// Null when the channel is absent or may not be written.
    virtual float* GetData() = 0;
    virtual int GetFramesCount() const = 0;
    virtual int GetStride() const = 0;
    virtual ~IAudioStream() = default;
};

/// A view of somebody else's samples. The samples must outlive their use.
class CAudioStream : public IAudioStream {
public:
    CAudioStream() = default;
    CAudioStream(float* audio, int samplesCount, int step = 1, int start = 0)
        : data(audio), offset(start), samples(samplesCount), stride(step) {}

    /// Points at other samples; offset and stride stay. [audio]
    void Set(float* audio, int samplesCount) {
        data = audio;
        samples = samplesCount;
    }

    const float* GetConstData() const override { return data ? data + offset : nullptr; }
    float* GetData() override { return data ? data + offset : nullptr; }
    int GetFramesCount() const override { return stride == 0 ? samples : samples / stride; }
    int GetStride() const override { return stride; }

private:
    float* data = nullptr;
    int offset = 0;
    int samples = 0;
    int stride = 1;
};

/// A channel that owns its samples.
class CDynamicAudioStream : public IAudioStream {
public:
    /// Keeps the content that fits; new samples are zero. Allocates only beyond what was reserved.
    void SetFramesCount(int frames) { data.resize(Size(frames)); }

    /// Makes room, so that SetFramesCount up to `frames` doesn't allocate.
    void Reserve(int frames) { data.reserve(Size(frames)); }

    const float* GetConstData() const override { return data.data(); }
    float* GetData() override { return data.data(); }
    int GetFramesCount() const override { return static_cast<int>(data.size()); }
    int GetStride() const override { return 1; }

private:
    static std::size_t Size(int frames) {
        return frames > 0 ? static_cast<std::size_t>(frames) : 0;
    }

    std::vector<float> data;
};

/// An endless silence as an input, an absent channel as an output: one zero, read with stride 0.
class CEmptyStream : public IAudioStream {
public:
    explicit CEmptyStream(int framesCount = 0) : frames(framesCount) {}

    const float* GetConstData() const override { return &zero; }
    float* GetData() override { return nullptr; }
    int GetFramesCount() const override { return frames; }
    int GetStride() const override { return 0; }

private:
    float zero = 0.0F;
    int frames = 0;
};

} // namespace Vorin::Audio::DSP
