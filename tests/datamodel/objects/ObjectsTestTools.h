#pragma once

#include "core/EventProvider.h"
#include "datamodel/ParamInfo.h"
#include "math/Constant.h"
#include "system/SystemTestTools.h"

#include <functional>
#include <string>
#include <utility>

namespace Vorin::DataModel::Objects::Testing {

/// Runs a function at each event for as long as it lives; the provider lives longer.
class CListener {
public:
    CListener(Core::IEventProvider& source, std::function<void()> function)
        : provider(source), command(std::move(function)) {
        provider.Connect(command);
    }
    ~CListener() { provider.Disconnect(command); }
    CListener(const CListener&) = delete;
    CListener& operator=(const CListener&) = delete;

private:
    Core::IEventProvider& provider;
    System::Testing::CFunctionCommand command;
};

/// Writes down the events of a capture object in their order: "value ", "capture ", "release ".
class CEventLog {
public:
    template <class O>
    explicit CEventLog(O& object)
        : value(object.GetValueChangedEvents(), [this] { Note("value "); }),
          capture(object.GetCaptureEvents(), [this] { Note("capture "); }),
          release(object.GetReleaseEvents(), [this] { Note("release "); }) {}

    void Note(const char* text) { log += text; }

    /// The events since the last call.
    std::string Take() { return std::exchange(log, std::string()); }

private:
    std::string log;
    CListener value;
    CListener capture;
    CListener release;
};

inline CParamInfo MakeInfo(double min, double max, double initial = 0.0,
                           EParamType type = kParamReal) {
    return {type, "Level", "dB", "", nullptr, nullptr, min, max, initial};
}

/// A constant function that counts the living ones.
class CCountedFunction : public Math::CConstantFunction {
public:
    CCountedFunction(double initial, int& livingCount)
        : CConstantFunction(initial), living(livingCount) {
        ++living;
    }
    ~CCountedFunction() override { --living; }
    Math::IFunction* Clone() const override { return new CCountedFunction(GetValue(), living); }

private:
    int& living;
};

/// A function that cannot be cloned.
class CUniqueFunction : public Math::CConstantFunction {
public:
    Math::IFunction* Clone() const override { return nullptr; }
};

} // namespace Vorin::DataModel::Objects::Testing
