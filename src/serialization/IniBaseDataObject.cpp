#include "serialization/IniBaseDataObject.h"

#include "serialization/IniFile.h"
#include "serialization/IniText.h"
#include "serialization/KeyText.h"
#include "serialization/Limits.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>

namespace Vorin::Serialization {

namespace {

int DepthOf(const Containers::CCharString& section) {
    const char* text = section.Get();
    const auto slashes = std::count(text, text + section.GetLength(), '/');
    return section.IsEmpty() ? 1 : static_cast<int>(slashes) + 2;
}

} // namespace

CIniBaseDataObject::CIniBaseDataObject(CIniFile& viewedFile, const char* viewSection)
    : section(viewSection), keyPrefix(viewSection), ini(&viewedFile), depth(DepthOf(section)) {
    if (!keyPrefix.IsEmpty()) {
        keyPrefix.Append('/');
    }
}

const char* CIniBaseDataObject::FindText(const char* name) const {
    return name ? ini->GetValue(section.Get(), CKeyText(name, kIniKey).Get()) : nullptr;
}

Containers::CCharString CIniBaseDataObject::SectionOf(const char* name) const {
    Containers::CCharString nested(keyPrefix);
    nested.Append(CKeyText(name, kIniKey).Get());
    return nested;
}

bool CIniBaseDataObject::Exists(const char* name) const {
    return name && (FindText(name) || ini->HasSection(SectionOf(name).Get()));
}

bool CIniBaseDataObject::ReadString(const char* name, char*& value) const {
    const char* text = FindText(name);
    if (!text) {
        return false;
    }
    const std::string decoded = DecodeIniValue(text);
    value = new char[decoded.size() + 1];
    std::memcpy(value, decoded.c_str(), decoded.size() + 1);
    return true;
}

bool CIniBaseDataObject::ReadObject(const char* name, IDeSerialize& object) const {
    if (!name) {
        return false;
    }
    const Containers::CCharString nested = SectionOf(name);
    // A file may nest deeper than anything was written.
    return depth < kMaximumDepth && ini->HasSection(nested.Get()) &&
           object.DeSerialize(CIniBaseDataObject(*ini, nested.Get()));
}

bool CIniBaseDataObject::WriteString(const char* name, const char* value) {
    std::string storage;
    return WriteText(name, "STRING", value ? EncodeIniValue(value, storage) : "");
}

bool CIniBaseDataObject::WriteText(const char* name, const char* /*typeTag*/, const char* text) {
    if (!name) {
        return false;
    }
    const Containers::CCharString nested = SectionOf(name);
    if (ini->HasSection(nested.Get())) {
        ini->RemoveSection(nested.Get());
    }
    const CKeyText key(name, kIniKey);
    if (std::strlen(key.Get()) + 1 + std::strlen(text) > std::size_t{kMaximumTextBytes}) {
        ini->RemoveValue(section.Get(), key.Get());
        return false;
    }
    return ini->SetValue(section.Get(), key.Get(), text);
}

bool CIniBaseDataObject::WriteObject(const char* name, const ISerialize& object) {
    if (!name) {
        return false;
    }
    const Containers::CCharString nested = SectionOf(name);
    ini->RemoveValue(section.Get(), CKeyText(name, kIniKey).Get());
    ini->RemoveSection(nested.Get());
    constexpr int brackets = 2;
    if (depth >= kMaximumDepth || nested.GetLength() + brackets > kMaximumTextBytes ||
        !ini->AddSection(nested.Get())) {
        return false;
    }
    CIniBaseDataObject view(*ini, nested.Get());
    const bool done = object.Serialize(view);
    if (!done) {
        ini->RemoveSection(nested.Get());
    }
    return done;
}

bool CIniBaseDataObject::Remove(const char* name) {
    if (!name) {
        return false;
    }
    const CKeyText key(name, kIniKey);
    if (ini->GetValue(section.Get(), key.Get())) {
        ini->RemoveValue(section.Get(), key.Get());
    } else {
        ini->RemoveSection(SectionOf(name).Get());
    }
    return true;
}

bool CIniBaseDataObject::Clear() {
    ini->RemoveSection(section.Get());
    return section.IsEmpty() || ini->AddSection(section.Get());
}

} // namespace Vorin::Serialization
