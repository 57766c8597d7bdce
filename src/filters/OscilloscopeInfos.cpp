#include "filters/OscilloscopeInfos.h"

#include "datamodel/EnumToText.h"
#include "datamodel/ParamValueToText.h"

namespace PluginsFilters::OscilloscopeInfos {

using namespace Vorin::Audio::DSP;
using namespace Vorin::DataModel::Objects;
using Vorin::CoreUtilities::TDynamicCollection;

namespace {

using ParamInfos = TDynamicCollection<CParamInfo, IConstParamInfo>;
using CurveInfos = TDynamicCollection<CCurveInfo, IConstCurveInfo>;

CParamInfo Choice(EParamType type, const char* name, const char* labels, double max) {
    return CParamInfo(type, name, "", "", new CEnumToText(labels), nullptr, 0.0, max, 0.0);
}

CParamInfo Number(EParamType type, const char* name, const char* unit, const char* format,
                  double min, double max) {
    return CParamInfo(type, name, unit, "", new CParamValueToText(format, false, "{value}"),
                      nullptr, min, max, 0.0);
}

CParamInfo Axis(const char* name, const char* unit, double min, double max) {
    return CParamInfo(kParamReal, name, unit, "", nullptr, nullptr, min, max, 0.0);
}

ParamInfos MakeInputParams() {
    ParamInfos infos;
    infos.Add(Choice(kParamInteger, "View Mode", "Flow;Loop;Trigger", 2.0));
    infos.Add(Number(kParamSwitch, "Sync", "", "%.0f", 0.0, 1.0));
    infos.Add(Number(kParamReal, "Delay", "ms", "%.2f", 0.0, 300.0));
    infos.Add(Number(kParamReal, "Trigger Value", "", "%.2f", -1.0, 1.0));
    infos.Add(Choice(kParamReal, "Trigger Direction", "Up;Down", 1.0));
    return infos;
}

CurveInfos MakeOutputCurves() {
    CurveInfos infos;
    infos.Add(
        CCurveInfo("Waveform", "", Axis("Time", "s", -1.0, 0.0), Axis("Value", "", -1.0, 1.0)));
    infos.Add(CCurveInfo("Histogram", "", Axis("Values", "", -1.0, 1.0),
                         Axis("Normalized", "", 0.0, 1.0)));
    return infos;
}

CProcessInfo MakeIOConfigurations() {
    TDynamicCollection<CInputInfo, IInputInfo> inputs;
    inputs.Add(CInputInfo("In"));
    return CProcessInfo(1, 0, &inputs);
}

} // namespace

const IConstParamInfos& GetInputParams() {
    static const ParamInfos infos = MakeInputParams();
    return infos;
}

const IConstCurveInfos& GetOutputCurves() {
    static const CurveInfos infos = MakeOutputCurves();
    return infos;
}

const IProcessInfo& GetIOConfigurations() {
    static const CProcessInfo info = MakeIOConfigurations();
    return info;
}

const IConstFilterProductInfo& GetProduct() {
    static const CFilterProductInfo info("Halvane", "Oscilloscope", "2.0",
                                         "Copyright (c) 2026, Halvane", "Audio Oscilloscope", 7,
                                         "");
    return info;
}

} // namespace PluginsFilters::OscilloscopeInfos
