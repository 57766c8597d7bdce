#pragma once

#include "datamodel/ParamDataToText.h"
#include "datamodel/links/BaseCaptureObjectLink.h"
#include "datamodel/objects/CaptureObject.h"

namespace Vorin::DataModel::Objects {

/// Shows a parameter as text in a string object: the value and unit as the parameter's own info has
/// them, unless the value text says otherwise.
class CCaptureParamToStringLink
    : public TBaseCaptureObjectLink<IConstCaptureParam, ICaptureString> {
public:
    CCaptureParamToStringLink() = default;
    ~CCaptureParamToStringLink() override { Switch(false); }

    /// What makes the text; it follows the source's info while the link is enabled. A change of it
    /// while the link runs rewrites the text.
    CParamDataToText& GetValueToText() { return valueToText; }

protected:
    void OnSourceChanged() override;
    void OnConnectSource() override;
    void OnDisconnectSource() override;

private:
    void TakeInfo() { valueToText.SetInfo(source->GetInfo()); }
    void HandleInfoChanged() { TakeInfo(); }
    void HandleTextChanged() { PassNow(); }

    using CLink = CCaptureParamToStringLink;
    CParamDataToText valueToText{"%.1f", false, "{text_value} {unit}"};
    Core::TCommand<CLink> infoChanged{this, &CLink::HandleInfoChanged};
    Core::TCommand<CLink> textChanged{this, &CLink::HandleTextChanged};
};

} // namespace Vorin::DataModel::Objects
