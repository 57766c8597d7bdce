// Where a host enters the library.
#include "vst/Product.h"
#include "vst/VSTPlug.h"

#include <exception>
#include <memory>

using namespace VorinExt::VSTPlugin;

namespace {

AEffect* Create(audioMasterCallback master) {
    if (!master || master(nullptr, audioMasterVersion, 0, 0, nullptr, 0.0F) == 0) {
        return nullptr;
    }
    auto config = CreateProductConfig();
    if (!config.filter) {
        return nullptr;
    }
    auto plug = std::make_unique<CVSTPlug>(master, std::move(config), GetStaticSettings());
    plug->setUniqueID(kUniqueID);
    return plug.release()->getAeffect(); // effClose deletes it
}

} // namespace

extern "C" {

/// Null when the host has no callback, is no host of this interface, or memory is short.
[[gnu::visibility("default")]] AEffect* VSTPluginMain(audioMasterCallback master) {
    try {
        return Create(master);
    } catch (const std::exception&) {
        return nullptr;
    }
}

/// The same by the name that some hosts look for.
[[gnu::visibility("default")]] AEffect* main_macho(audioMasterCallback master) {
    return VSTPluginMain(master);
}
}
