#pragma once

#include "core/Holder.h"
#include "serialization/IniBaseDataObject.h"
#include "serialization/IniFile.h"

namespace Vorin::Serialization {

/// An INI file as a data object; the object itself is the section without a name.
///
/// A file that is refused (over a limit, with zero bytes) leaves no content, so that every read is
/// false and the reader keeps its state.
class CIniDataObject : public Core::THolder<CIniFile, 0>, public CIniBaseDataObject {
public:
    CIniDataObject();

    /// From a block of memory, without a final zero in `size`.
    bool Parse(const void* data, int size);
    bool LoadFile(const char* path);

    /// What is saved can be loaded: false for content that breaks a limit.
    bool SaveFile(const char* path) const;
    bool SaveString(Containers::CCharString& text) const;
};

} // namespace Vorin::Serialization
