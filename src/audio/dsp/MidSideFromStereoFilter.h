#pragma once

#include "audio/dsp/ForwardingFilter.h"
#include "audio/dsp/MidSideMatrix.h"
#include "audio/dsp/Mux.h"
#include "audio/dsp/OutputInfos.h"
#include "audio/dsp/StreamOperations.h"
#include "datamodel/EnumToText.h"

#include <array>
#include <optional>

namespace Vorin::Audio::DSP {

/// A stereo filter that works in Left-Right or in Mid-Side, as a parameter of its own says; that
/// parameter stands first in the list. With a fixed mode there is no such parameter.
///
/// F is the stereo filter, held by value.
template <class F>
class TMidSideFromStereoFilterBase : public CForwardingFilter {
public:
    IFilter* Clone() const override = 0;

    void Init(const CFilterConfig& config, double sampleRate) override {
        inner.Init(config, sampleRate);
        if (config.applyDefaults && !fixedMode) {
            CDynamicParamsValues defaults(1);
            defaults.SetValue(0, ownParams.Get(0).GetDefault());
            OnInputParams(defaults, 0);
        }
        for (CDynamicAudioStream& stream : scratch) {
            stream.Reserve(config.blockSize);
        }
    }

    const IConstParamInfos& GetInputParamInfos() const override {
        return fixedMode ? inner.GetInputParamInfos() : inputParamInfos;
    }

    void SetInputParams(const IConstFilterPropertiesVariations& values) override {
        inner.SetInputParams(
            CFilterPropertiesVariationsAdapter(values, FirstInnerParam(), InnerParamsCount()));
        SetOwnParam(values);
    }

    /// Does nothing when the record has fewer channels than the filter's configuration.
    void Process(const CProcessRecord& record) override {
        const int inputs = inner.GetIOConfiguration().GetInputInfos().GetCount();
        const int outputs = inner.GetIOConfiguration().GetOutputInfos().GetCount();
        if (!HasChannels(record.inputs, inputs) || !HasChannels(record.outputs, outputs)) {
            return;
        }
        if (record.ramp) {
            SetOwnParam(record.ramp->GetAtStart());
        }
        CAudioStreamPair formed(scratch[0], scratch[1]);
        for (CDynamicAudioStream& stream : scratch) {
            stream.SetFramesCount(record.frames);
        }
        if (inputs > 1 && !HasData(*record.inputs)) {
            StreamOperations::Clear(formed, record.frames);
        } else if (inputs > 1) {
            matrix.Apply(record.inputs->Get(0), record.inputs->Get(1), scratch[0], scratch[1],
                         record.frames);
        }
        CProcessRecord innerRecord = record;
        innerRecord.inputs = &formed;
        ProcessInner(innerRecord, [this](const CProcessRecord& r) { inner.Process(r); });
        if (outputs > 1) {
            matrix.ApplyInverse(record.outputs->Get(0), record.outputs->Get(1), record.frames);
        }
        if (record.ramp) {
            SetOwnParam(record.ramp->GetAtEnd());
        }
    }

    bool ProcessSilence(const CProcessRecord& record) override {
        bool sounds = false;
        ProcessInner(
            record, [this, &sounds](const CProcessRecord& r) { sounds = inner.ProcessSilence(r); });
        if (record.ramp) {
            SetOwnParam(record.ramp->GetAtEnd());
        }
        return sounds;
    }

    const IConstParamInfos& GetOutputParamInfos() const override { return outputInfos.params; }
    const IConstParamInfos& GetPrivateOutputParamInfos() const override {
        return outputInfos.privateParams;
    }
    const IConstStringInfos& GetOutputStringInfos() const override { return outputInfos.strings; }
    const IConstCurveInfos& GetOutputCurveInfos() const override { return outputInfos.curves; }
    const IConstSurfaceInfos& GetOutputSurfaceInfos() const override {
        return outputInfos.surfaces;
    }
    const IConstPropertyInfos& GetOutputPropertyInfos() const override {
        return outputInfos.properties;
    }

protected:
    /// The two texts take the places of "(L)" and "(R)" in the names of the outputs.
    TMidSideFromStereoFilterBase(const DataModel::Objects::CParamInfo& modeInfo, const char* first,
                                 const char* second, bool isFixed = false)
        : fixedMode(isFixed), outputInfos(inner, first, second) {
        ownParams.Add(modeInfo);
    }

    TMidSideFromStereoFilterBase(const TMidSideFromStereoFilterBase& other)
        : CForwardingFilter(other), inner(other.inner), ownParams(other.ownParams),
          matrix(other.matrix), fixedMode(other.fixedMode), scratch(other.scratch),
          outputInfos(other.outputInfos) {}
    TMidSideFromStereoFilterBase& operator=(const TMidSideFromStereoFilterBase&) = delete;

    /// Order 0 is the parameter's value: 0 for Left-Right, 1 for Mid-Side. Any order above is a
    /// coefficient of its course through the block.
    void OnInputParams(const IConstParamsValues& values, int order) {
        const double value = values.GetValue(0);
        matrix.SetOrder(order, order == 0 ? value - 1.0 : value);
    }

    const IFilter& Target() const override { return inner; }
    IFilter& Target() override { return inner; }

private:
    /// Two streams as a list.
    class CAudioStreamPair : public IAudioStreams {
    public:
        CAudioStreamPair(IAudioStream& first, IAudioStream& second) : streams{&first, &second} {}

        int GetCount() const override { return 2; }
        const IAudioStream& Get(int index) const override {
            return *streams[static_cast<std::size_t>(index)];
        }
        IAudioStream& Get(int index) override { return *streams[static_cast<std::size_t>(index)]; }

    private:
        std::array<IAudioStream*, 2> streams;
    };

    static bool HasChannels(const IAudioStreams* streams, int count) {
        return count == 0 || (streams && streams->GetCount() >= count);
    }

    /// An input without samples is silence on both channels: there is no pair to form.
    static bool HasData(const IAudioStreams& inputs) {
        return inputs.Get(0).GetConstData() && inputs.Get(1).GetConstData();
    }

    int FirstInnerParam() const { return fixedMode ? 0 : 1; }
    int InnerParamsCount() const { return inner.GetInputParamInfos().GetCount(); }

    void SetOwnParam(const IConstFilterPropertiesVariations& values) {
        if (fixedMode) {
            return;
        }
        for (int order = 0; values.HasOrder(order); ++order) {
            const IConstParamsValues& params = values.GetVariation(order).GetInputParams();
            if (params.GetCount() > 0) {
                OnInputParams(params, order);
            }
        }
    }

    /// Hands the record to the inner filter with the ramp narrowed to the inner parameters.
    template <class Run>
    void ProcessInner(CProcessRecord record, Run run) {
        std::optional<CInputRampAdapter> innerRamp;
        if (record.ramp) {
            record.ramp = &innerRamp.emplace(*record.ramp, FirstInnerParam(), InnerParamsCount());
        }
        run(record);
    }

    F inner;
    CoreUtilities::TDynamicCollection<DataModel::Objects::CParamInfo,
                                      DataModel::Objects::IConstParamInfo>
        ownParams;
    CMidSideMatrix matrix;
    bool fixedMode;
    std::array<CDynamicAudioStream, 2> scratch;

    TConstVectorMux<DataModel::Objects::IConstParamInfo> inputParamInfos{
        ownParams, inner.GetInputParamInfos()};
    TOutputInfos<TStereoToMidSideInfo> outputInfos;
};

/// Left-Right or Mid-Side by the parameter "Stereo Mode"; the outputs count their channels as "(1)"
/// and "(2)", since either may be Left or Mid, Right or Side.
template <class F>
class TMSLRFromStereoFilter final : public TMidSideFromStereoFilterBase<F> {
public:
    TMSLRFromStereoFilter() : TMidSideFromStereoFilterBase<F>(MakeModeInfo(), "(1)", "(2)") {}
    TMSLRFromStereoFilter(const TMSLRFromStereoFilter& other) = default;

    IFilter* Clone() const override { return new TMSLRFromStereoFilter(*this); }

private:
    static DataModel::Objects::CParamInfo MakeModeInfo() {
        using namespace DataModel::Objects;
        return CParamInfo(kParamBoolean, "Stereo Mode", "", "Left-Right or Mid-Side",
                          new CEnumToText("Stereo;Mid-Side"), nullptr, 0.0, 1.0, 0.0);
    }
};

} // namespace Vorin::Audio::DSP
