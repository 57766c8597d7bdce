#include "serialization/TextDataObject.h"

#include "serialization/Base64.h"
#include "serialization/NumberText.h"

namespace Vorin::Serialization {

bool CTextDataObject::ReadBool(const char* name, bool& value) const {
    const char* text = FindText(name);
    value = text ? NumberText::ReadBool(text) : value;
    return text;
}

bool CTextDataObject::ReadInt(const char* name, int& value) const {
    const char* text = FindText(name);
    value = text ? NumberText::ReadInt(text) : value;
    return text;
}

bool CTextDataObject::ReadFloat(const char* name, float& value) const {
    const char* text = FindText(name);
    value = text ? NumberText::ReadFloat(text) : value;
    return text;
}

bool CTextDataObject::ReadDouble(const char* name, double& value) const {
    const char* text = FindText(name);
    value = text ? NumberText::ReadDouble(text) : value;
    return text;
}

bool CTextDataObject::ReadData(const char* name, void*& data, int& size) const {
    const char* text = FindText(name);
    char* bytes = nullptr;
    if (!text || !Base64::Decode(text, bytes, size)) {
        return false;
    }
    data = bytes;
    return true;
}

bool CTextDataObject::WriteBool(const char* name, const bool& value) {
    return WriteText(name, "BOOL", NumberText::Write(value).Get());
}

bool CTextDataObject::WriteInt(const char* name, const int& value) {
    return WriteText(name, "INTEGER", NumberText::Write(value).Get());
}

bool CTextDataObject::WriteFloat(const char* name, const float& value) {
    return WriteText(name, "FLOAT", NumberText::Write(value).Get());
}

bool CTextDataObject::WriteDouble(const char* name, const double& value) {
    return WriteText(name, "DOUBLE", NumberText::Write(value).Get());
}

bool CTextDataObject::WriteData(const char* name, const void* data, int size) {
    if (size < 0 || (size > 0 && !data)) {
        Remove(name);
        return false;
    }
    return WriteText(name, "DATA", Base64::Encode(data, size).Get());
}

} // namespace Vorin::Serialization
