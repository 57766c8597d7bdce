// Any bytes as an INI file: read as settings would be, changed, saved, and what was saved is read
// again.
#include "fuzz/Explore.h"
#include "serialization/IniDataObject.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace Vorin::Serialization;
    CIniDataObject object;
    if (!object.Parse(data, static_cast<int>(size))) {
        Fuzz::Require(!object.Exists("a"));
    }
    Fuzz::Explore(object);
    Fuzz::Change(object);
    Vorin::Containers::CCharString text;
    if (object.SaveString(text)) {
        CIniDataObject again;
        Fuzz::Require(again.Parse(text.Get(), text.GetLength()));
        Fuzz::Explore(again);
    }
    return 0;
}
