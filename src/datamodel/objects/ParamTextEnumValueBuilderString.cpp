#include "datamodel/objects/ParamTextEnumValueBuilderString.h"

#include "datamodel/EnumToText.h"

#include <cmath>
#include <memory>

namespace Vorin::DataModel::Objects {

void CParamTextEnumValueBuilderString::OnValueChanged(const char* text) {
    CCaptureString::OnValueChanged(text);
    const auto* labels = dynamic_cast<const CEnumToText*>(&paramInfo->GetValueToText());
    if (!labels) {
        return;
    }
    // In doubles: the value may be none that an int holds.
    const double index =
        std::trunc(param->GetValue() + 0.5) - static_cast<double>(labels->GetFirstValue());
    if (index >= 0.0 && index < static_cast<double>(labels->GetCount())) {
        auto edited = std::make_unique<CEnumToText>(*labels);
        edited->SetLabel(static_cast<int>(index), GetValue());
        paramInfo->SetValueToText(edited.release(), Core::kOwn);
    }
}

} // namespace Vorin::DataModel::Objects
