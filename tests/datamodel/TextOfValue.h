#pragma once

#include "containers/CharString.h"
#include "datamodel/ParamInfo.h"

#include <string>

namespace Vorin::DataModel::Objects {

/// What `valueToText` makes of a value.
inline std::string TextOf(const IParamValueToText& valueToText, double value) {
    Containers::CCharString out("what stood there before");
    valueToText.ValueToText(value, out);
    return out.Get();
}

} // namespace Vorin::DataModel::Objects
