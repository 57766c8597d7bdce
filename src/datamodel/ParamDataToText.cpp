#include "datamodel/ParamDataToText.h"

#include "datamodel/ValueParsing.h"

namespace Vorin::DataModel::Objects {

bool CParamDataToText::TextToValue(const char* text, double& value) const {
    return info.GetValueToText().TextToValue(text, value) ||
           ParseByType(info.GetType(), text, value);
}

void CParamDataToText::SetInfo(const IConstParamInfo& newInfo) {
    info.CopyFrom(newInfo);
    NotifyChanged();
}

bool CParamDataToText::WriteToken(std::string_view token, double value,
                                  Containers::CCharString& out) const {
    if (CParamValueToText::WriteToken(token, value, out)) {
        return true;
    }
    if (token == "{unit}") {
        out.Append(info.GetUnit());
    } else if (token == "{min}") {
        WriteNumber(info.GetMin(), out);
    } else if (token == "{max}") {
        WriteNumber(info.GetMax(), out);
    } else if (token == "{default}") {
        WriteNumber(info.GetDefault(), out);
    } else if (token == "{comment}") {
        out.Append(info.GetComment());
    } else if (token == "{name}") {
        out.Append(info.GetName());
    } else if (token == "{text_value}") {
        Containers::CCharString text;
        info.GetValueToText().ValueToText(value, text);
        out.Append(text.Get());
    } else {
        return false;
    }
    return true;
}

} // namespace Vorin::DataModel::Objects
