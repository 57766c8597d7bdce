#include "datamodel/EnumToText.h"

#include "datamodel/ValueParsing.h"

#include <cmath>
#include <cstring>

namespace Vorin::DataModel::Objects {

CEnumToText::CEnumToText(const char* list, int firstLabelValue) : firstValue(firstLabelValue) {
    if (!list || !*list) {
        return;
    }
    while (const char* separator = std::strchr(list, ';')) {
        labels.emplace_back().Append(list, static_cast<int>(separator - list));
        list = separator + 1;
    }
    labels.emplace_back(list);
}

void CEnumToText::ValueToText(double value, Containers::CCharString& out) const {
    // In doubles throughout: a value that no int holds is out of bounds like any other.
    const double index = std::trunc(value + 0.5) - static_cast<double>(firstValue);
    if (index >= 0.0 && index < static_cast<double>(labels.size())) {
        out = labels[static_cast<std::size_t>(index)];
    } else {
        out = "Out Of Bounds";
    }
}

bool CEnumToText::TextToValue(const char* text, double& value) const {
    for (std::size_t i = 0; i < labels.size(); ++i) {
        // Written before the comparison: what a failure leaves behind is the last label's number.
        value = static_cast<double>(firstValue) + static_cast<double>(i);
        if (text && std::strcmp(text, labels[i].Get()) == 0) {
            return true;
        }
    }
    return ParseInteger(text, value);
}

} // namespace Vorin::DataModel::Objects
