#pragma once

#include "serialization/DataStream.h"

namespace Vorin::Serialization {

/// A data object that keeps each value as a text: numbers as NumberText writes them, binary data in
/// Base64. Any text reads as a number of any type; data that is no Base64 reads as false.
class CTextDataObject : public virtual IReadWriteDataStream {
public:
    bool IsTolerant() const override { return false; }
    bool ReadBool(const char* name, bool& value) const override;
    bool ReadInt(const char* name, int& value) const override;
    bool ReadFloat(const char* name, float& value) const override;
    bool ReadDouble(const char* name, double& value) const override;
    bool ReadData(const char* name, void*& data, int& size) const override;

    bool WriteBool(const char* name, const bool& value) override;
    bool WriteInt(const char* name, const int& value) override;
    bool WriteFloat(const char* name, const float& value) override;
    bool WriteDouble(const char* name, const double& value) override;
    bool WriteData(const char* name, const void* data, int size) override;

protected:
    /// Null when there is no such value, or the name is null. Valid until the next write.
    virtual const char* FindText(const char* name) const = 0;

    /// Replaces what the name had. `typeTag` is what an XML file calls the type of the value.
    virtual bool WriteText(const char* name, const char* typeTag, const char* text) = 0;
};

} // namespace Vorin::Serialization
