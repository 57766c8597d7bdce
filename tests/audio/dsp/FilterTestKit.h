#pragma once

#include "audio/dsp/AudioStreams.h"
#include "audio/dsp/Filter.h"
#include "audio/dsp/FilterPropertiesVariations.h"

#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <random>
#include <vector>

namespace Vorin::Audio::DSP {

/// Input values made by hand: parameters alone.
class CTestValues : public IConstFilterProperties {
public:
    CTestValues(std::initializer_list<double> values) : CTestValues(std::vector<double>(values)) {}
    explicit CTestValues(const std::vector<double>& values)
        : params(static_cast<int>(values.size()), values.data()) {}

    const IConstParamsValues& GetInputParams() const override { return params; }
    const IConstStrings& GetInputStrings() const override { return strings; }
    const IConstCurves& GetInputCurves() const override { return curves; }
    const IConstSurfaces& GetInputSurfaces() const override { return surfaces; }
    const IConstPropertyValues& GetInputProperties() const override { return properties; }
    int GetIOConfiguration() const override { return -1; }

private:
    CParamsValues params;
    CStrings strings;
    TClonedVector<Math::IFunction> curves;
    TClonedVector<Math::IBinaryFunction> surfaces;
    TClonedVector<DataModel::Objects::IDynamicPropertyValue> properties;
};

/// Input values by order; none at all when the list is empty.
class CTestVariations : public IConstFilterPropertiesVariations {
public:
    CTestVariations(std::initializer_list<CTestValues> values) : orders(values) {}
    explicit CTestVariations(std::vector<CTestValues> values) : orders(std::move(values)) {}

    int GetCount() const override { return static_cast<int>(orders.size()); }
    const IConstFilterProperties& GetVariation(int order) const override {
        return orders[static_cast<std::size_t>(order)];
    }

private:
    std::vector<CTestValues> orders;
};

class CTestRamp : public IConstInputRamp {
public:
    CTestRamp(CTestVariations start, CTestVariations end)
        : atStart(std::move(start)), atEnd(std::move(end)) {}

    const IConstFilterPropertiesVariations& GetAtStart() const override { return atStart; }
    const IConstFilterPropertiesVariations& GetAtEnd() const override { return atEnd; }

private:
    CTestVariations atStart;
    CTestVariations atEnd;
};

/// Channels of samples as a list of streams.
class CTestChannels : public IAudioStreams {
public:
    CTestChannels(std::initializer_list<std::vector<float>> channels) {
        for (const std::vector<float>& samples : channels) {
            Add(samples);
        }
    }
    CTestChannels(int channels, int frames, float value = 0.0F) {
        for (int i = 0; i < channels; ++i) {
            Add(std::vector<float>(static_cast<std::size_t>(frames), value));
        }
    }

    int GetCount() const override { return static_cast<int>(streams.size()); }
    const IAudioStream& Get(int index) const override {
        return streams[static_cast<std::size_t>(index)];
    }
    IAudioStream& Get(int index) override { return streams[static_cast<std::size_t>(index)]; }

    std::vector<float> Samples(int channel) const {
        const IAudioStream& stream = Get(channel);
        return {stream.GetConstData(), stream.GetConstData() + stream.GetFramesCount()};
    }

private:
    void Add(const std::vector<float>& samples) {
        CDynamicAudioStream stream;
        stream.SetFramesCount(static_cast<int>(samples.size()));
        std::copy(samples.begin(), samples.end(), stream.GetData());
        streams.push_back(stream);
    }

    std::vector<CDynamicAudioStream> streams;
};

inline CProcessRecord MakeRecord(IAudioStreams& inputs, IAudioStreams& outputs, int frames,
                                 const IConstInputRamp* ramp = nullptr) {
    return {.inputs = &inputs, .outputs = &outputs, .frames = frames, .ramp = ramp};
}

inline std::uint32_t BitsOf(float value) {
    std::uint32_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

inline std::vector<std::uint32_t> BitsOf(const std::vector<float>& values) {
    std::vector<std::uint32_t> bits(values.size());
    std::memcpy(bits.data(), values.data(), values.size() * sizeof(float));
    return bits;
}

inline std::vector<float> MakeTestNoise(int frames, unsigned seed) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> value(-1.0F, 1.0F);
    std::vector<float> noise(static_cast<std::size_t>(frames));
    for (float& sample : noise) {
        sample = value(random);
    }
    return noise;
}

/// 1, 2, 3, ... from `first` on: every frame tells which one it is.
inline std::vector<float> MakeCount(int frames, int first = 1) {
    std::vector<float> count(static_cast<std::size_t>(frames));
    for (std::size_t i = 0; i < count.size(); ++i) {
        count[i] = static_cast<float>(first) + static_cast<float>(i);
    }
    return count;
}

} // namespace Vorin::Audio::DSP
