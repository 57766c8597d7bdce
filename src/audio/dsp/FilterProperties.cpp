#include "audio/dsp/FilterProperties.h"

#include "audio/dsp/Filter.h"
#include "audio/dsp/FilterPropertiesVariations.h"

#include <algorithm>

namespace Vorin::Audio::DSP {

namespace {

const DataModel::Objects::IDynamicPropertyValue&
DefaultOf(const DataModel::Objects::IConstCustomPropertyInfo& info) {
    static const DataModel::Objects::CEmptyDynamicPropertyValue none;
    const auto* value = info.GetDefaultValue();
    return value ? *value : none;
}

} // namespace

void CFilterProperties::Fill(const IFilter& filter) {
    const auto& paramInfos = filter.GetInputParamInfos();
    params.SetCount(paramInfos.GetCount());
    for (int i = 0; i < paramInfos.GetCount(); ++i) {
        params.SetValue(i, paramInfos.Get(i).GetDefault());
    }
    strings.Clear();
    const auto& stringInfos = filter.GetInputStringInfos();
    for (int i = 0; i < stringInfos.GetCount(); ++i) {
        strings.Add(stringInfos.Get(i).GetDefaultText());
    }
    curves.Clear();
    const auto& curveInfos = filter.GetInputCurveInfos();
    for (int i = 0; i < curveInfos.GetCount(); ++i) {
        curves.Add(curveInfos.Get(i).GetDefaultValue());
    }
    surfaces.Clear();
    const auto& surfaceInfos = filter.GetInputSurfaceInfos();
    for (int i = 0; i < surfaceInfos.GetCount(); ++i) {
        surfaces.Add(surfaceInfos.Get(i).GetDefaultValue());
    }
    properties.Clear();
    const auto& propertyInfos = filter.GetInputPropertyInfos();
    for (int i = 0; i < propertyInfos.GetCount(); ++i) {
        properties.Add(DefaultOf(propertyInfos.Get(i)));
    }
}

CFilterPropertiesAdapter::CFilterPropertiesAdapter(const IConstFilterProperties& properties)
    : source(&properties) {
    params.values = &properties.GetInputParams();
    params.count = params.values->GetCount();
}

void CFilterPropertiesAdapter::SetParamRange(int first, int count) {
    const int available = params.values->GetCount();
    params.first = std::clamp(first, 0, available);
    params.count = std::clamp(count, 0, available - params.first);
}

CFilterPropertiesVariationsAdapter::CFilterPropertiesVariationsAdapter(
    const IConstFilterPropertiesVariations& source, int firstParam, int paramsCount)
    : count(std::min(source.GetCount(), kMaxOrder + 1)) {
    for (int order = 0; order < count; ++order) {
        auto& adapter = orders[static_cast<std::size_t>(order)];
        adapter.emplace(source.GetVariation(order));
        adapter->SetParamRange(firstParam, paramsCount);
    }
}

} // namespace Vorin::Audio::DSP
