#include "serialization/IniDataObject.h"

#include "serialization/TextFile.h"

#include <cstddef>
#include <string>

namespace Vorin::Serialization {

CIniDataObject::CIniDataObject() : CIniBaseDataObject(GetHeld(), "") {}

bool CIniDataObject::Parse(const void* data, int size) {
    const std::size_t length = size > 0 ? static_cast<std::size_t>(size) : 0;
    return GetHeld().Parse(static_cast<const char*>(data), length);
}

bool CIniDataObject::LoadFile(const char* path) {
    std::string text;
    if (!ReadTextFile(path, text)) {
        GetHeld().Clear();
        return false;
    }
    return GetHeld().Parse(text.data(), text.size());
}

bool CIniDataObject::SaveFile(const char* path) const {
    std::string text;
    return GetHeld().Print(text) && WriteTextFile(path, text);
}

bool CIniDataObject::SaveString(Containers::CCharString& text) const {
    std::string printed;
    if (!GetHeld().Print(printed)) {
        return false;
    }
    text = printed.c_str();
    return true;
}

} // namespace Vorin::Serialization
