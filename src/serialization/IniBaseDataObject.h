#pragma once

#include "containers/CharString.h"
#include "serialization/TextDataObject.h"

namespace Vorin::Serialization {

class CIniFile;

/// A data object over one section of an INI file. A value K is the key K of the section; a nested
/// object K is the section `section/K`, or K in the section without a name.
///
/// Keys that differ in the case of their letters alone are the same key. Texts stand there as
/// EncodeIniValue says, so that they come back as written; null comes back as the empty text. Keys
/// that cannot stand in a file are kept as CKeyText says. A text too long for the limits, or a
/// nesting too deep, is not written.
class CIniBaseDataObject : public CTextDataObject {
public:
    /// The file outlives the view. `viewSection` as it stands in the file.
    CIniBaseDataObject(CIniFile& viewedFile, const char* viewSection);
    CIniBaseDataObject(const CIniBaseDataObject&) = delete;
    CIniBaseDataObject& operator=(const CIniBaseDataObject&) = delete;

    bool ReadString(const char* name, char*& value) const override;
    bool ReadObject(const char* name, IDeSerialize& object) const override;
    bool Exists(const char* name) const override;

    bool WriteString(const char* name, const char* value) override;
    bool WriteObject(const char* name, const ISerialize& object) override;

    /// The key, or, when there is none, the section of that name with all below it.
    bool Remove(const char* name) override;
    bool Clear() override;

private:
    const char* FindText(const char* name) const override;
    Containers::CCharString SectionOf(const char* name) const;
    bool WriteText(const char* name, const char* typeTag, const char* text) override;

    Containers::CCharString section;
    Containers::CCharString keyPrefix; // of the sections of nested objects
    CIniFile* ini;
    int depth;
};

} // namespace Vorin::Serialization
