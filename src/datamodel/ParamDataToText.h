#pragma once

#include "datamodel/ParamInfo.h"
#include "datamodel/ParamValueToText.h"

namespace Vorin::DataModel::Objects {

/// Writes a value together with what its info says: besides "{value}" the pattern may contain
/// "{unit}", "{min}", "{max}", "{default}", "{comment}", "{name}" and "{text_value}", which is the
/// value as the info's own value text has it.
class CParamDataToText : public CParamValueToText {
public:
    explicit CParamDataToText(const char* formatText = "%.2f", bool withUnitPrefix = false,
                              const char* patternText = "{value}")
        : CParamValueToText(formatText, withUnitPrefix, patternText) {}

    /// Asks the info's own value text first, then parses by the info's type.
    bool TextToValue(const char* text, double& value) const override;

    IParamValueToText* Clone() const override { return new CParamDataToText(*this); }

    /// A private copy of what was set.
    const IConstParamInfo& GetInfo() const { return info; }
    void SetInfo(const IConstParamInfo& newInfo);

protected:
    bool WriteToken(std::string_view token, double value,
                    Containers::CCharString& out) const override;

private:
    CParamInfo info;
};

} // namespace Vorin::DataModel::Objects
