#pragma once

#include "audio/dsp/IOInfo.h"
#include "containers/DynamicCollection.h"
#include "containers/Vector.h"

namespace Vorin::Audio::DSP {

/// The channels that a filter takes and gives in one of its ways to run.
class IIOConfiguration {
public:
    virtual const Containers::IConstVector<IBusInfo>& GetInputBuses() const = 0;
    virtual const Containers::IConstVector<IBusInfo>& GetOutputBuses() const = 0;
    virtual const Containers::IConstVector<IInputInfo>& GetInputInfos() const = 0;
    virtual const Containers::IConstVector<IOutputInfo>& GetOutputInfos() const = 0;
    virtual ~IIOConfiguration() = default;
};

class CIOConfiguration : public virtual IIOConfiguration {
public:
    /// Channels without an info in the vectors, which may be null, come out as channels called
    /// "In", on both sides.
    CIOConfiguration(int inputs, int outputs,
                     const Containers::IConstVector<IInputInfo>* inputInfos = nullptr,
                     const Containers::IConstVector<IOutputInfo>* outputInfos = nullptr);

    const Containers::IConstVector<IBusInfo>& GetInputBuses() const override { return inputBuses; }
    const Containers::IConstVector<IBusInfo>& GetOutputBuses() const override {
        return outputBuses;
    }
    const Containers::IConstVector<IInputInfo>& GetInputInfos() const override { return inputs; }
    const Containers::IConstVector<IOutputInfo>& GetOutputInfos() const override { return outputs; }

private:
    CoreUtilities::TDynamicCollection<CBusInfo, IBusInfo> inputBuses;
    CoreUtilities::TDynamicCollection<CBusInfo, IBusInfo> outputBuses;
    CoreUtilities::TDynamicCollection<CInputInfo, IInputInfo> inputs;
    CoreUtilities::TDynamicCollection<COutputInfo, IOutputInfo> outputs;
};

/// A filter's configurations: itself the default one, with a list of others.
class IProcessInfo : public virtual IIOConfiguration {
public:
    /// The configurations that a filter may be asked for by index; may be empty.
    virtual const Containers::IConstVector<IIOConfiguration>& GetConfigurations() const = 0;
    /// The index of the default in that list, -1 when the default is this object itself.
    virtual int GetDefaultConfiguration() const = 0;
};

class CProcessInfo : public CIOConfiguration, public IProcessInfo {
public:
    using CIOConfiguration::CIOConfiguration;

    /// Adds one that can be asked for by index.
    void AddConfiguration(const CIOConfiguration& configuration);

    const Containers::IConstVector<IIOConfiguration>& GetConfigurations() const override {
        return variations;
    }
    int GetDefaultConfiguration() const override { return -1; }

private:
    /// TDynamicCollection needs a default to grow from.
    struct CVariation : CIOConfiguration {
        CVariation() : CIOConfiguration(0, 0) {}
        explicit CVariation(const CIOConfiguration& source) : CIOConfiguration(source) {}
    };

    CoreUtilities::TDynamicCollection<CVariation, IIOConfiguration> variations;
};

/// The configuration at `index`, or the default one for -1 and for an index beyond the list.
const IIOConfiguration& SelectConfiguration(const IProcessInfo& info, int index);

} // namespace Vorin::Audio::DSP
