#pragma once

#include "audio/plugin/midi/MIDICCSetting.h"

namespace Vorin::Audio::Plugin {

/// The value of a parameter that a controller stands for, from 0 to 1 along the controller's way.
///
/// The ends of the controller give the ends of the setting's range to the bit, whatever the curve;
/// what lies outside counts as the nearer end, NaN as the lower one. The result is a finite value
/// that the parameter's type can have. Where the parameter's scale gives no finite value in
/// between, it is the nearer end. [any, audio]
double ToValue(const DataModel::Objects::IConstParamInfo& info, const IMIDICCSetting& setting,
               double position);

/// The reverse: where the controller stands for a value, 0 to 1. Values outside the range of the
/// setting give its ends, NaN gives 0. [any, audio]
double FromValue(const DataModel::Objects::IConstParamInfo& info, const IMIDICCSetting& setting,
                 double value);

} // namespace Vorin::Audio::Plugin
