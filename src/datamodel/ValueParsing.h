#pragma once

#include "datamodel/ParamType.h"

namespace Vorin::DataModel::Objects {

/// Reading a number at the start of a text, after white space; what follows the number is ignored,
/// so "12 dB" is 12. Null or no number is false, with `value` left alone. [any]

/// With the decimal point of the calling thread's locale.
bool ParseReal(const char* text, double& value);

/// What lies outside the range of long reads as the nearer end of it.
bool ParseInteger(const char* text, double& value);

/// By the type of a parameter. The two-state types take an integer, or else exactly one of the
/// words "true", "yes", "false" and "no", all of which deliberately give 1.
bool ParseByType(EParamType type, const char* text, double& value);

} // namespace Vorin::DataModel::Objects
