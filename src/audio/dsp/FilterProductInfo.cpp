#include "audio/dsp/FilterProductInfo.h"

namespace Vorin::Audio::DSP {

CFilterProductInfo::CFilterProductInfo(const char* vendor, const char* name, const char* version,
                                       const char* copyrightText, const char* descriptionText,
                                       int categoryCode, const char* effectName)
    : copyright(copyrightText), description(descriptionText), category(categoryCode) {
    product.SetVendor(vendor);
    product.SetName(name);
    product.SetVersion(version);
    product.SetShortName(effectName);
}

const char* CFilterProductInfo::GetEffectName() const {
    const char* shortName = product.GetShortName();
    return shortName && *shortName ? shortName : GetName();
}

} // namespace Vorin::Audio::DSP
