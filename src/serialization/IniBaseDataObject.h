#pragma once

#include "containers/CharString.h"
#include "serialization/DataStream.h"

namespace Vorin::Serialization {

class CIniFile;

/// A data object over one section of an INI file. A value K is the key K of the section; a nested
/// object K is the section `section/K`, or K in the section without a name.
///
/// Keys that differ in the case of their letters alone are the same key. Numbers stand there as
/// NumberText writes them, binary data in Base64, texts as EncodeIniValue says, so that they come
/// back as written; null comes back as the empty text. Any text reads as a number of any type;
/// data that is no Base64 reads as false. Keys that cannot stand in a file are kept as CKeyText
/// says. A text too long for the limits, or a nesting too deep, is not written.
class CIniBaseDataObject : public virtual IReadWriteDataStream {
public:
    /// The file outlives the view. `viewSection` as it stands in the file.
    CIniBaseDataObject(CIniFile& viewedFile, const char* viewSection);
    CIniBaseDataObject(const CIniBaseDataObject&) = delete;
    CIniBaseDataObject& operator=(const CIniBaseDataObject&) = delete;

    bool IsTolerant() const override { return false; }
    bool ReadBool(const char* name, bool& value) const override;
    bool ReadInt(const char* name, int& value) const override;
    bool ReadFloat(const char* name, float& value) const override;
    bool ReadDouble(const char* name, double& value) const override;
    bool ReadString(const char* name, char*& value) const override;
    bool ReadData(const char* name, void*& data, int& size) const override;
    bool ReadObject(const char* name, IDeSerialize& object) const override;
    bool Exists(const char* name) const override;

    bool WriteBool(const char* name, const bool& value) override;
    bool WriteInt(const char* name, const int& value) override;
    bool WriteFloat(const char* name, const float& value) override;
    bool WriteDouble(const char* name, const double& value) override;
    bool WriteString(const char* name, const char* value) override;
    bool WriteData(const char* name, const void* data, int size) override;
    bool WriteObject(const char* name, const ISerialize& object) override;

    /// The key, or, when there is none, the section of that name with all below it.
    bool Remove(const char* name) override;
    bool Clear() override;

private:
    const char* FindText(const char* name) const;
    Containers::CCharString SectionOf(const char* name) const;
    bool WriteText(const char* name, const char* text);

    Containers::CCharString section;
    Containers::CCharString keyPrefix; // of the sections of nested objects
    CIniFile* ini;
    int depth;
};

} // namespace Vorin::Serialization
