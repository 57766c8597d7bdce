#pragma once

namespace Vorin::DataModel::Objects {

/// What kind of number a parameter holds. Files and skins carry the numbers, so others may arrive:
/// any other value behaves as kParamReal.
enum EParamType : int {
    kParamBoolean = 0, ///< two states: min and max
    kParamInteger = 1, ///< also enumerations
    kParamReal = 2,
    kParamSwitch = 3 ///< two states: min and max
};

/// The printf format of a value of this type when none is given: no decimals, or two.
const char* GetDefaultFormat(EParamType type);

} // namespace Vorin::DataModel::Objects
