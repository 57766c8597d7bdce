#pragma once

#include "audio/dsp/BaseCoreDSPFilter.h"
#include "containers/DynamicCollection.h"
#include "math/Constant.h"

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

namespace Vorin::Audio::DSP {

/// A mono filter with one element in each group of outputs: its input times "Gain", plus "Offset".
/// It writes down what it is asked to do, and shows the sum of its input in its outputs.
class CTestMonoFilter : public CBaseCoreDSPFilter {
public:
    CTestMonoFilter() {
        SetInputParamInfos(InputParams());
        SetOutputParamInfos(OutputParams());
        SetOutputStringInfos(OutputStrings());
        SetOutputCurveInfos(OutputCurves());
        SetOutputSurfaceInfos(OutputSurfaces());
        SetOutputPropertyInfos(OutputProperties());
        ShowSum(0.0);
        for (CMarks* marks : {&stringChanges, &curveChanges, &surfaceChanges, &propertyChanges}) {
            marks->SetCount(1);
        }
    }

    IFilter* Clone() const override { return new CTestMonoFilter(*this); }
    const IConstFilterProductInfo& GetProductInfo() const override {
        static const CFilterProductInfo info("Maker", "Mono", "1.5", "", "Test", 3, "");
        return info;
    }
    const IProcessInfo& GetIOConfigurations() const override {
        static const CProcessInfo info(1, 1);
        return info;
    }
    int GetTailSamples() const override { return tail; }
    int GetLatency() const override { return latency; }
    IOutputDataSync* GetOutputDataSync() override { return hasSync ? &sync : nullptr; }
    void PublishOutputs() override {
        calls += "publish;";
        ShowSum(sum);
        for (CMarks* marks : {&stringChanges, &curveChanges, &surfaceChanges, &propertyChanges}) {
            marks->At(0).SetDirty();
        }
    }

    const IConstParamsValues& GetOutputParamValues() const override { return outputValues; }
    const IConstParamInfos& GetPrivateOutputParamInfos() const override {
        return PrivateOutputParams();
    }
    const IConstParamsValues& GetPrivateOutputParamValues() const override { return privateValues; }
    const IConstStrings& GetOutputStrings() const override { return strings; }
    IChanges& GetOutputStringChanges() override { return stringChanges; }
    const IConstCurves& GetOutputCurves() const override { return curves; }
    IChanges& GetOutputCurveChanges() override { return curveChanges; }
    const IConstSurfaces& GetOutputSurfaces() const override { return surfaces; }
    IChanges& GetOutputSurfaceChanges() override { return surfaceChanges; }
    const IConstPropertyValues& GetOutputProperties() const override { return properties; }
    IChanges& GetOutputPropertyChanges() override { return propertyChanges; }

    double GetRate() const { return GetSampleRate(); }

    int tail = 0;
    int latency = 0;
    bool hasSync = true;
    bool isActiveWhenSilent = false;
    COutputDataSync sync;
    std::string calls;
    double gain = 1.0;
    double offset = 0.0;
    double sum = 0.0;

protected:
    void OnInit() override { calls += "init;"; }
    void OnReset() override {
        calls += "reset;";
        sum = 0.0;
    }
    void OnInputParams(const IConstParamsValues& values, int order) override {
        gain = values.GetValue(0);
        offset = values.GetValue(1);
        calls += "params" + std::to_string(order) + "(" + Text(gain) + "," + Text(offset) + ");";
    }
    void OnSilence(int frames) override { calls += "silence" + std::to_string(frames) + ";"; }
    void OnUpdateOutputParams() override { calls += "updateParams;"; }
    void OnUpdateOutputs() override { calls += "update;"; }
    void OnProcessDone(const CProcessRecord& record) override {
        calls += "done" + std::to_string(record.inputs ? record.inputs->GetCount() : -1) + ";";
    }
    bool IsActiveWhenSilent() const override { return isActiveWhenSilent; }
    void OnProcess(IAudioStreams& inputs, IAudioStreams& outputs, int frames,
                   const IConstInputRamp* ramp) override {
        calls += "process" + std::to_string(frames) + ";";
        if (ramp) {
            SetInputParams(ramp->GetAtStart());
        }
        if (inputs.GetCount() > 0 && outputs.GetCount() > 0) {
            Run(inputs.Get(0), outputs.Get(0), frames);
        }
        if (ramp) {
            SetInputParams(ramp->GetAtEnd());
        }
    }

private:
    using CMarks = CoreUtilities::TDynamicCollection<Core::CDirty, Core::IDirty>;
    template <class C, class I>
    using TInfos = CoreUtilities::TDynamicCollection<C, I>;

    static std::string Text(double value) {
        char text[32];
        std::snprintf(text, sizeof text, "%g", value);
        return text;
    }

    static DataModel::Objects::CParamInfo Param(const char* name, double initial) {
        return DataModel::Objects::CParamInfo(DataModel::Objects::kParamReal, name, "", "", nullptr,
                                              nullptr, -10.0, 10.0, initial);
    }

    template <class Infos, class... Items>
    static Infos ListOf(const Items&... items) {
        Infos infos;
        (infos.Add(items), ...);
        return infos;
    }

    using CParams = TInfos<DataModel::Objects::CParamInfo, DataModel::Objects::IConstParamInfo>;

    static const IConstParamInfos& InputParams() {
        static const CParams infos = ListOf<CParams>(Param("Gain", 2.0), Param("Offset", 0.5));
        return infos;
    }
    static const IConstParamInfos& OutputParams() {
        static const CParams infos = ListOf<CParams>(Param("Sum", 0.0));
        return infos;
    }
    static const IConstParamInfos& PrivateOutputParams() {
        static const CParams infos = ListOf<CParams>(Param("Hidden", 0.0));
        return infos;
    }
    static const IConstStringInfos& OutputStrings() {
        using namespace DataModel::Objects;
        using CInfos = TInfos<CStringInfo, IConstStringInfo>;
        static const CInfos infos = ListOf<CInfos>(CStringInfo("Note", ""));
        return infos;
    }
    static const IConstCurveInfos& OutputCurves() {
        using namespace DataModel::Objects;
        using CInfos = TInfos<CCurveInfo, IConstCurveInfo>;
        static const CInfos infos =
            ListOf<CInfos>(CCurveInfo("Shape", "", Param("X", 0.0), Param("Y", 0.0)));
        return infos;
    }
    static const IConstSurfaceInfos& OutputSurfaces() {
        using namespace DataModel::Objects;
        using CInfos = TInfos<CSurfaceInfo, IConstSurfaceInfo>;
        static const CInfos infos = ListOf<CInfos>(
            CSurfaceInfo("Field", "", Param("X", 0.0), Param("Y", 0.0), Param("Z", 0.0)));
        return infos;
    }
    static const IConstPropertyInfos& OutputProperties() {
        using namespace DataModel::Objects;
        using CInfos = TInfos<CCustomPropertyInfo, IConstCustomPropertyInfo>;
        static const CInfos infos = ListOf<CInfos>(CCustomPropertyInfo("Extra", ""));
        return infos;
    }

    void Run(const IAudioStream& input, IAudioStream& output, int frames) {
        for (int i = 0; i < frames; ++i) {
            const float x = input.GetConstData()[i * input.GetStride()];
            sum += static_cast<double>(x);
            if (output.GetData()) {
                output.GetData()[i * output.GetStride()] =
                    static_cast<float>(static_cast<double>(x) * gain + offset);
            }
        }
    }

    void ShowSum(double value) {
        outputValues.SetValue(0, value);
        privateValues.SetValue(0, -value);
        strings.Clear();
        strings.Add(Text(value).c_str());
        curves.Clear();
        curves.Add(Math::CConstantFunction(value));
        surfaces.Clear();
        surfaces.Add(Math::CConstantBinaryFunction(value));
        properties.Clear();
        properties.Add(DataModel::Objects::CEmptyDynamicPropertyValue());
    }

    CParamsValues outputValues{1};
    CParamsValues privateValues{1};
    CStrings strings;
    TClonedVector<Math::IFunction> curves;
    TClonedVector<Math::IBinaryFunction> surfaces;
    TClonedVector<DataModel::Objects::IDynamicPropertyValue> properties;
    CMarks stringChanges;
    CMarks curveChanges;
    CMarks surfaceChanges;
    CMarks propertyChanges;
};

/// A mono filter that the test can reach inside the stereo one, by the order of creation.
class CReachableFilter : public CTestMonoFilter {
public:
    CReachableFilter() { created.push_back(this); }

    static inline std::vector<CReachableFilter*> created;
};

} // namespace Vorin::Audio::DSP
