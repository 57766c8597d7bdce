#include "vst/Product.h"

#include "filters/OndaraFilter.h"

namespace VorinExt::VSTPlugin {

using namespace Vorin::Audio;
using namespace Vorin::Audio::Plugin;

namespace {

constexpr char kVendor[] = "Halvane";
constexpr char kProduct[] = "Ondara";
constexpr double kDefaultRefreshRate = 50.0; // of the display, in Hz

} // namespace

CAudioPluginConfig CreateProductConfig() {
    static const DSP::CFilterProductInfo info(kVendor, kProduct, "2.0", "", "", 0, "Ondara Mini");
    return {.filter = PluginsFilters::CreateOndaraFilter(),
            .gui = nullptr,
            .productInfo = &info,
            .storeState = true};
}

IStaticSettings& GetStaticSettings() {
    static TAudioPluginConfig<CAudioPluginDllFilePaths> settings(CPackageInfo(kVendor, kProduct),
                                                                 kDefaultRefreshRate);
    return settings;
}

} // namespace VorinExt::VSTPlugin
