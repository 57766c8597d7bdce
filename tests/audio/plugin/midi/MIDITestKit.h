#pragma once

#include "audio/plugin/midi/MIDIController.h"
#include "containers/DynamicCollection.h"
#include "core/Command.h"
#include "serialization/MemDataObject.h"
#include "serialization/XmlDataObject.h"

#include <functional>
#include <limits>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace Vorin::Audio::Plugin::Testing {

using DataModel::Objects::CParamInfo;
using DataModel::Objects::EParamType;
using DataModel::Objects::IConstParamInfo;
using DataModel::Objects::kParamReal;
using CInfos = CoreUtilities::TDynamicCollection<CParamInfo, IConstParamInfo>;

inline constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
inline constexpr double kInfinity = std::numeric_limits<double>::infinity();

inline CParamInfo MakeInfo(double min, double max, EParamType type = kParamReal) {
    return {type, "P", "", "", nullptr, nullptr, min, max, min};
}

/// `count` real parameters from 0 to 100.
inline CInfos MakeInfos(int count) {
    CInfos infos;
    for (int i = 0; i < count; ++i) {
        infos.Add(MakeInfo(0.0, 100.0));
    }
    return infos;
}

/// Counts the events of a provider, and tells a function of each.
class CListener : public Core::ICommand {
public:
    explicit CListener(Core::IEventProvider& events, std::function<void()> told = {})
        : provider(events), function(std::move(told)) {
        provider.Connect(*this);
    }
    CListener(const CListener&) = delete;
    CListener& operator=(const CListener&) = delete;
    ~CListener() override { provider.Disconnect(*this); }

    void Execute() override {
        ++count;
        if (function) {
            function();
        }
    }

    /// How many events came since the last call.
    int Take() { return std::exchange(count, 0); }

private:
    Core::IEventProvider& provider;
    std::function<void()> function;
    int count = 0;
};

using CFieldsTuple = std::tuple<int, int, bool, bool, double, double, int, int>;

/// Channel, number, MIDI, automation, min, max, curve, type.
inline CFieldsTuple FieldsOf(const IMIDICCSetting& setting) {
    return {setting.GetChannel(),    setting.GetNumber(),
            setting.IsMIDIEnabled(), setting.IsAutomationEnabled(),
            setting.GetMin(),        setting.GetMax(),
            setting.GetCurve(),      setting.GetType()};
}

/// Gives every field another value than a new setting has.
inline void ChangeAll(IMIDICCSetting& setting, int number = 74) {
    setting.SetMIDIEnabled(!setting.IsMIDIEnabled());
    setting.SetType(kMIDICCTypeNote);
    setting.SetChannel(16);
    setting.SetNumber(number);
    setting.SetAutomationEnabled(!setting.IsAutomationEnabled());
    setting.SetCurve(DataModel::Objects::kParamValueCurveSquareRoot);
    setting.SetMin(75.5);
    setting.SetMax(-0.1);
}

/// Remembers the values that parameters were given.
class CReceiver : public virtual IMIDIValueReceiver {
public:
    using CValue = std::pair<int, double>;

    void SetFromMIDI(int index, double value) override { values.emplace_back(index, value); }
    std::vector<CValue> Take() { return std::exchange(values, {}); }

private:
    std::vector<CValue> values;
};

inline void SetBytes(MIDI::CMIDIEvent& event, const std::vector<unsigned char>& bytes) {
    event.CopyFrom(bytes.data(), static_cast<int>(bytes.size()));
}

inline std::vector<int> BytesOf(const MIDI::CMIDIEvent& event) {
    const auto* bytes = static_cast<const unsigned char*>(event.GetData());
    return {bytes, bytes + event.GetSize()};
}

} // namespace Vorin::Audio::Plugin::Testing
