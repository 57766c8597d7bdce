#pragma once

#include "core/EventCounter.h"
#include "datamodel/objects/CaptureCurve.h"
#include "datamodel/objects/CaptureParam.h"
#include "math/FunctionsLibrary.h"
#include "math/LibraryFunction.h"
#include "system/ManualClock.h"
#include "system/SystemTestTools.h"

#include <gtest/gtest.h>

namespace Vorin::DataModel::Objects::Testing {

using Square = Math::TFunction<&Math::FunctionsLibrary::Square>;
using Negate = Math::TFunction<&Math::FunctionsLibrary::Negate>;

inline CParamInfo MakeInfo(const char* name, double min, double max, double initial,
                           const char* unit = "") {
    return CParamInfo(kParamReal, name, unit, "", nullptr, nullptr, min, max, initial);
}

/// A parameter that says what the test wants, also what no parameter would keep.
class CAnyParam : public TCaptureState<>, public virtual IConstCaptureParam {
public:
    double GetValue() const override { return value; }
    const IConstParamInfo& GetInfo() const override { return info; }

    void SetValue(double newValue) {
        value = newValue;
        NotifyValueChanged();
    }

    CParamInfo info;

private:
    double value = 0.0;
};

/// A clock and a timer that the test moves together.
class COverTimeTest : public testing::Test {
protected:
    void TickAfter(int milliseconds) {
        clock.Advance(milliseconds);
        timers.Tick();
    }

    System::CManualClock clock;
    System::Testing::CFakeTimerProvider timers;
};

} // namespace Vorin::DataModel::Objects::Testing
