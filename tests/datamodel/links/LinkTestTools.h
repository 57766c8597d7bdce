#pragma once

#include "core/Command.h"
#include "datamodel/objects/CaptureParam.h"
#include "math/LibraryFunction.h"
#include "system/ManualClock.h"
#include "system/RunLoop.h"
#include "system/RunLoopTimerProvider.h"

#include <functional>
#include <string>
#include <utility>

namespace Vorin::DataModel::Objects {

inline CParamInfo MakeInfo(double min, double max, EParamType type = kParamReal) {
    return CParamInfo(type, "", "", "", nullptr, nullptr, min, max, min);
}

/// A parameter with a range, that starts at `value`.
class CTestParam : public CCaptureParam {
public:
    explicit CTestParam(double min = 0.0, double max = 1.0, double initial = 0.0)
        : CCaptureParam(MakeInfo(min, max)) {
        SetValue(initial);
    }
};

/// Runs a function at each event of a provider, for as long as it lives.
class CReaction {
public:
    CReaction(Core::IEventProvider& source, std::function<void()> reaction)
        : provider(source), function(std::move(reaction)) {
        provider.Connect(command);
    }
    ~CReaction() { provider.Disconnect(command); }

    CReaction(const CReaction&) = delete;
    CReaction& operator=(const CReaction&) = delete;

private:
    void OnEvent() { function(); }

    Core::IEventProvider& provider;
    std::function<void()> function;
    Core::TCommand<CReaction> command{this, &CReaction::OnEvent};
};

/// Writes down what happens to an object: "v" a change of the value, "c" a capture, "r" a release.
class CObjectLog {
public:
    template <class O>
    explicit CObjectLog(O& object)
        : changed(object.GetValueChangedEvents(), [this] { log += 'v'; }),
          captured(object.GetCaptureEvents(), [this] { log += 'c'; }),
          released(object.GetReleaseEvents(), [this] { log += 'r'; }) {}

    /// The events since the last call.
    std::string Take() { return std::exchange(log, std::string()); }

private:
    std::string log;
    CReaction changed;
    CReaction captured;
    CReaction released;
};

/// A run loop with timers, on a clock that the test moves.
class CTestTime {
public:
    /// Step by step, pumping at each, as a host that idles does.
    void Wait(int milliseconds, int step = 10) {
        for (int passed = 0; passed < milliseconds; passed += step) {
            clock.Advance(step);
            loop.Pump();
        }
    }

    System::CManualClock clock;
    System::CRunLoop loop{clock};
    System::CRunLoopTimerProvider timers{loop};
};

template <double (*F)(double)>
Math::IFunction* MakeFunction() {
    return new Math::TFunction<F>;
}

using Library = Math::FunctionsLibrary;

} // namespace Vorin::DataModel::Objects
