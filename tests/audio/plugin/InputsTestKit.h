#pragma once

#include "audio/dsp/BaseCoreDSPFilter.h"
#include "audio/dsp/SampleRateDependent.h"
#include "containers/DynamicCollection.h"
#include "math/Constant.h"
#include "runtime/ObjectsFactory.h"

#include <atomic>
#include <cstring>

namespace Vorin::Audio::Plugin {

/// A custom property: a number, and the rate that it is used at. It knows how many there are, and
/// whether one died on a thread where none may.
class CNumberProperty : public DataModel::Objects::IDynamicPropertyValue,
                        public DSP::ISampleRateDependent {
public:
    static constexpr char kType[] = "{8B0C5E0E-4A5B-4E0C-9F3D-0D6C1B6E7A11}";

    explicit CNumberProperty(double initial = 0.0, double initialRate = 0.0)
        : number(initial), rate(initialRate) {
        ++living;
    }
    CNumberProperty(const CNumberProperty&) = delete;
    CNumberProperty& operator=(const CNumberProperty&) = delete;
    ~CNumberProperty() override {
        --living;
        diedOnAudio += isAudioThread ? 1 : 0;
    }

    const char* GetType() const override { return kType; }
    bool Serialize(Serialization::IWriteDataStream& stream) const override {
        return stream.WriteDouble("number", number);
    }
    bool DeSerialize(const Serialization::IReadDataStream& stream) override {
        return stream.ReadDouble("number", number);
    }
    CNumberProperty* Clone() const override { return new CNumberProperty(number, rate); }
    double GetSampleRate() const override { return rate; }
    void SetSampleRate(double sampleRate) override { rate = sampleRate; }

    double GetNumber() const { return number; }

    static inline std::atomic<int> living{0};
    static inline std::atomic<int> diedOnAudio{0};
    static inline thread_local bool isAudioThread = false;

private:
    double number;
    double rate;
};

inline const Runtime::TRegisteredObjectFactory<CNumberProperty,
                                               DataModel::Objects::IDynamicPropertyValue>
    kNumberProperties(CNumberProperty::kType, DataModel::Objects::kDynamicPropertyInterface);

/// A custom property that nobody can make again from a document.
class CNamelessProperty : public DataModel::Objects::CEmptyDynamicPropertyValue {
public:
    CNamelessProperty* Clone() const override { return new CNamelessProperty; }
};

/// What a filter found among its inputs at one moment. Fixed in size: it is taken on the audio
/// thread.
struct CSeenInputs {
    int count = 0; // of the times that it looked
    double gain = 0.0;
    char texts[2][64] = {};
    double curve = 0.0;   // at 0
    double surface = 0.0; // at 0, 0
    double number = 0.0;  // -1 for a property of another class
    double rate = 0.0;
};

/// A filter that takes inputs of all five kinds: a parameter, two texts, and one of each other
/// kind. It looks at its inputs whenever it is told of them, and refers to them beyond that.
class CAllInputsFilter : public DSP::CBaseCoreDSPFilter {
public:
    CAllInputsFilter() {
        using namespace DataModel::Objects;
        const CParamInfo axis(kParamReal, "Axis", "", "", nullptr, nullptr, -1e9, 1e9, 0.0);
        params.Add(CParamInfo(kParamReal, "Gain", "", "", nullptr, nullptr, -1e9, 1e9, 1.0));
        strings.Add(CStringInfo("Name", "", false, "first"));
        strings.Add(CStringInfo("Remark", "", false, "second"));
        CCurveInfo curve("Shape", "", axis, axis);
        curve.SetDefaultValue(new Math::CConstantFunction(2.0), Core::kOwn);
        curves.Add(curve);
        CSurfaceInfo surface("Field", "", axis, axis, axis);
        surface.SetDefaultValue(new Math::CConstantBinaryFunction(3.0), Core::kOwn);
        surfaces.Add(surface);
        properties.Add(CCustomPropertyInfo("Extra", "", new CNumberProperty(4.0)));
        SetInputParamInfos(params);
        SetInputStringInfos(strings);
        SetInputCurveInfos(curves);
        SetInputSurfaceInfos(surfaces);
        SetInputPropertyInfos(properties);
    }
    CAllInputsFilter(const CAllInputsFilter&) = delete;
    CAllInputsFilter& operator=(const CAllInputsFilter&) = delete;

    DSP::IFilter* Clone() const override { return new CAllInputsFilter; }
    const DSP::IConstFilterProductInfo& GetProductInfo() const override {
        static const DSP::CFilterProductInfo info("", "", "", "", "", 0, "");
        return info;
    }
    const DSP::IProcessInfo& GetIOConfigurations() const override {
        static const DSP::CProcessInfo info(2, 2);
        return info;
    }
    void SetInputParams(const DSP::IConstFilterPropertiesVariations& values) override {
        Look(values, given);
        held = &values.GetVariation(0).GetInputCurves().Get(0);
    }

    CSeenInputs given;                     // by SetInputParams
    CSeenInputs atStart;                   // of the last ramp
    CSeenInputs atEnd;                     // of the last ramp
    const Math::IFunction* held = nullptr; // the curve that it uses between the calls
    double used = 0.0;                     // what that one gave in the last block

protected:
    void OnProcess(DSP::IAudioStreams&, DSP::IAudioStreams&, int,
                   const DSP::IConstInputRamp* ramp) override {
        if (ramp) {
            Look(ramp->GetAtStart(), atStart);
            SetInputParams(ramp->GetAtStart());
        }
        used = held ? held->Evaluate(0.0) : 0.0;
        if (ramp) {
            Look(ramp->GetAtEnd(), atEnd);
            SetInputParams(ramp->GetAtEnd());
        }
    }

private:
    template <class C, class I>
    using TInfos = CoreUtilities::TDynamicCollection<C, I>;

    static void Look(const DSP::IConstFilterPropertiesVariations& variations, CSeenInputs& seen) {
        const DSP::IConstFilterProperties& values = variations.GetVariation(0);
        ++seen.count;
        seen.gain = values.GetInputParams().GetValue(0);
        for (int i = 0; i < 2; ++i) {
            std::strncpy(seen.texts[i], values.GetInputStrings().GetValue(i), 63);
        }
        seen.curve = values.GetInputCurves().Get(0).Evaluate(0.0);
        seen.surface = values.GetInputSurfaces().Get(0).Evaluate(0.0, 0.0);
        const auto* property =
            dynamic_cast<const CNumberProperty*>(&values.GetInputProperties().Get(0));
        seen.number = property ? property->GetNumber() : -1.0;
        seen.rate = property ? property->GetSampleRate() : -1.0;
    }

    TInfos<DataModel::Objects::CParamInfo, DataModel::Objects::IConstParamInfo> params;
    TInfos<DataModel::Objects::CStringInfo, DataModel::Objects::IConstStringInfo> strings;
    TInfos<DataModel::Objects::CCurveInfo, DataModel::Objects::IConstCurveInfo> curves;
    TInfos<DataModel::Objects::CSurfaceInfo, DataModel::Objects::IConstSurfaceInfo> surfaces;
    TInfos<DataModel::Objects::CCustomPropertyInfo, DataModel::Objects::IConstCustomPropertyInfo>
        properties;
};

} // namespace Vorin::Audio::Plugin
