// Any bytes as an XML document in all three modes: read as a state would, changed, saved, and what
// was saved is read again.
#include "fuzz/Explore.h"
#include "serialization/XmlDataObject.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace Vorin::Serialization;
    for (const EXmlMode mode : {kXmlAttributes, kXmlElements, kXmlTypedElements}) {
        CXmlDataObject object("Root", mode);
        if (!object.Parse(data, static_cast<int>(size))) {
            Fuzz::Require(!object.GetRoot() && !object.Exists("a") && !object.WriteInt("a", 1));
            continue;
        }
        Fuzz::Explore(object);
        Fuzz::Change(object);
        Vorin::Containers::CCharString text;
        if (object.SaveString(text)) {
            CXmlDataObject again("Root", mode);
            Fuzz::Require(again.Parse(text.Get(), text.GetLength()));
            Vorin::Containers::CCharString second;
            Fuzz::Require(again.SaveString(second) && second == text);
        }
    }
    return 0;
}
