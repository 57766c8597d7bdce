#include "audio/dsp/IOConfiguration.h"

namespace Vorin::Audio::DSP {

namespace {

constexpr const char* kUnnamedChannel = "In";

template <class Info, class Interface>
void Describe(CoreUtilities::TDynamicCollection<Info, Interface>& channels, int count,
              const Containers::IConstVector<Interface>* infos) {
    for (int i = 0; i < count; ++i) {
        if (infos && i < infos->GetCount()) {
            const Interface& info = infos->Get(i);
            channels.Add(Info(info.GetName(), info.GetUnit(), info.GetComment()));
        } else {
            channels.Add(Info(kUnnamedChannel));
        }
    }
}

} // namespace

CIOConfiguration::CIOConfiguration(int inputsCount, int outputsCount,
                                   const Containers::IConstVector<IInputInfo>* inputInfos,
                                   const Containers::IConstVector<IOutputInfo>* outputInfos) {
    Describe(inputs, inputsCount, inputInfos);
    Describe(outputs, outputsCount, outputInfos);
}

void CProcessInfo::AddConfiguration(const CIOConfiguration& configuration) {
    variations.Add(CVariation(configuration));
}

const IIOConfiguration& SelectConfiguration(const IProcessInfo& info, int index) {
    const auto& list = info.GetConfigurations();
    if (index >= 0 && index < list.GetCount()) {
        return list.Get(index);
    }
    const int byDefault = info.GetDefaultConfiguration();
    if (byDefault >= 0 && byDefault < list.GetCount()) {
        return list.Get(byDefault);
    }
    return info;
}

} // namespace Vorin::Audio::DSP
