#pragma once

#include "containers/NamedAttributes.h"
#include "serialization/DataStream.h"
#include "serialization/MemDataObject.h"
#include "serialization/NamedAttributesSerializers.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

/// What the fuzz targets have in common.
namespace Fuzz {

/// Stops the program, which the fuzzer reports.
inline void Require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

/// Reads each of some keys as each type, and the nested objects likewise.
class CExplorer : public virtual Vorin::Serialization::IDeSerialize {
public:
    explicit CExplorer(int levelsLeft) : levels(levelsLeft) {}

    bool DeSerialize(const Vorin::Serialization::IReadDataStream& stream) override {
        for (const char* key : {"a", "b", "o", "", "a b", "ItemsCount"}) {
            ReadAsEachType(stream, key);
        }
        Vorin::Serialization::CMemDataObject memory;
        memory.DeSerialize(stream);
        Vorin::Containers::CNamedAttributes attributes;
        Vorin::Serialization::CSerializableNamedAttributes(attributes).DeSerialize(stream);
        return true;
    }

private:
    void ReadAsEachType(const Vorin::Serialization::IReadDataStream& stream, const char* key) {
        bool truth = false;
        int integer = 0;
        float single = 0;
        double number = 0;
        char* text = nullptr;
        void* data = nullptr;
        int size = 0;
        const bool exists = stream.Exists(key);
        const bool isRead = stream.ReadInt(key, integer);
        Require(!isRead || exists);
        stream.ReadBool(key, truth);
        stream.ReadFloat(key, single);
        stream.ReadDouble(key, number);
        stream.ReadString(key, text);
        stream.ReadData(key, data, size);
        Require(size >= 0);
        delete[] text;
        delete[] static_cast<char*>(data);
        if (levels > 0) {
            CExplorer nested(levels - 1);
            stream.ReadObject(key, nested);
        }
    }

    int levels;
};

inline void Explore(const Vorin::Serialization::IReadDataStream& stream) {
    CExplorer(3).DeSerialize(stream);
}

/// Writes over, removes and adds.
inline void Change(Vorin::Serialization::IReadWriteDataStream& stream) {
    int value = 0;
    Require(stream.WriteInt("a", 7) && stream.ReadInt("a", value) && value == 7);
    Require(stream.WriteObject("o", Vorin::Serialization::CMemDataObject()));
    Require(stream.Exists("o"));
    Require(stream.Remove("b"));
    stream.WriteString("new key", " x\n");
    char* text = nullptr;
    Require(stream.ReadString("new key", text));
    const std::unique_ptr<char[]> owned(text);
    Require(text[0] == ' ' && text[1] == 'x' && text[2] == '\n' && text[3] == '\0');
}

} // namespace Fuzz
