#pragma once

#include "datamodel/objects/CaptureObject.h"
#include "datamodel/objects/CaptureString.h"

namespace Vorin::DataModel::Objects {

/// The label of a parameter's present value as a text to edit: a text that is set becomes the label
/// of the value that the parameter has then. One thread.
///
/// The parameter's info has a CEnumToText as its value text, which is replaced by one with the new
/// label. With another value text, or a value that has no label, the text is only kept.
class CParamTextEnumValueBuilderString : public CCaptureString {
public:
    /// Parameter and info, which is the parameter's, outlive this object.
    CParamTextEnumValueBuilderString(const IConstCaptureParam& labelledParam,
                                     IParamInfo& labelledInfo)
        : param(&labelledParam), paramInfo(&labelledInfo) {}

    void OnValueChanged(const char* text) override;

private:
    const IConstCaptureParam* param;
    IParamInfo* paramInfo;
};

} // namespace Vorin::DataModel::Objects
