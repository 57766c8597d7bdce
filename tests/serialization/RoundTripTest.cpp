#include "files/Locale.h"
#include "serialization/IniDataObject.h"
#include "serialization/MemDataObject.h"
#include "serialization/NumberText.h"
#include "serialization/StreamHelpers.h"
#include "serialization/XmlDataObject.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Serialization;
using TestFiles::CLocale;

/// A tree of values of all types. What it reads are the values of the keys it has.
class CTree : public virtual ISerializable {
public:
    struct CValue {
        std::string key;
        EDataType type = kIntData;
        bool truth = false;
        int integer = 0;
        float single = 0;
        double number = 0;
        bool isNull = false;
        std::string bytes;
        std::unique_ptr<CTree> object;
    };

    bool Serialize(IWriteDataStream& stream) const override {
        bool done = true;
        for (const CValue& value : values) {
            done = Write(stream, value) && done;
        }
        return done;
    }

    bool DeSerialize(const IReadDataStream& stream) override {
        bool done = true;
        for (CValue& value : values) {
            done = Read(stream, value) && done;
        }
        return done;
    }

    /// The same keys and types, other values.
    std::unique_ptr<CTree> Shape() const {
        auto shape = std::make_unique<CTree>();
        for (const CValue& value : values) {
            CValue other;
            other.key = value.key;
            other.type = value.type;
            other.bytes = "before";
            other.integer = 12345;
            if (value.object) {
                other.object = value.object->Shape();
            }
            shape->values.push_back(std::move(other));
        }
        return shape;
    }

    /// Text media read a null text as the empty one.
    void ExpectEqual(const CTree& other, bool keepsNull) const {
        ASSERT_EQ(values.size(), other.values.size());
        for (std::size_t i = 0; i < values.size(); ++i) {
            const CValue& a = values[i];
            const CValue& b = other.values[i];
            switch (a.type) {
            case kObjectData:
                a.object->ExpectEqual(*b.object, keepsNull);
                break;
            case kBoolData:
                EXPECT_EQ(a.truth, b.truth) << a.key;
                break;
            case kIntData:
                EXPECT_EQ(a.integer, b.integer) << a.key;
                break;
            case kFloatData:
                EXPECT_EQ(std::bit_cast<std::uint32_t>(a.single),
                          std::bit_cast<std::uint32_t>(b.single))
                    << a.key << " " << a.single;
                break;
            case kDoubleData:
                EXPECT_EQ(std::bit_cast<std::uint64_t>(a.number),
                          std::bit_cast<std::uint64_t>(b.number))
                    << a.key << " " << a.number;
                break;
            default:
                EXPECT_EQ(a.bytes, b.bytes) << a.key;
                EXPECT_EQ(a.isNull && keepsNull, b.isNull) << a.key;
            }
        }
    }

    std::vector<CValue> values;

private:
    static bool Write(IWriteDataStream& stream, const CValue& value) {
        const char* key = value.key.c_str();
        switch (value.type) {
        case kObjectData:
            return stream.WriteObject(key, *value.object);
        case kBoolData:
            return stream.WriteBool(key, value.truth);
        case kIntData:
            return stream.WriteInt(key, value.integer);
        case kFloatData:
            return stream.WriteFloat(key, value.single);
        case kDoubleData:
            return stream.WriteDouble(key, value.number);
        case kStringData:
            return stream.WriteString(key, value.isNull ? nullptr : value.bytes.c_str());
        default:
            return stream.WriteData(key, value.bytes.data(), static_cast<int>(value.bytes.size()));
        }
    }

    static bool Read(const IReadDataStream& stream, CValue& value) {
        const char* key = value.key.c_str();
        switch (value.type) {
        case kObjectData:
            return stream.ReadObject(key, *value.object);
        case kBoolData:
            return stream.ReadBool(key, value.truth);
        case kIntData:
            return stream.ReadInt(key, value.integer);
        case kFloatData:
            return stream.ReadFloat(key, value.single);
        case kDoubleData:
            return stream.ReadDouble(key, value.number);
        case kStringData: {
            const auto text = StringOf(stream, key);
            value.isNull = text == "(null)";
            value.bytes = value.isNull ? "" : text.value_or("missing");
            return text.has_value();
        }
        default: {
            const auto data = DataOf(stream, key);
            value.bytes = data.value_or("missing");
            return data.has_value();
        }
        }
    }
};

class CGenerator {
public:
    explicit CGenerator(unsigned seed) : random(seed) {}

    std::unique_ptr<CTree> Make(int depth) {
        auto tree = std::make_unique<CTree>();
        const int count = 1 + Number(9);
        for (int i = 0; i < count; ++i) {
            tree->values.push_back(MakeValue(i));
        }
        if (depth > 1) {
            CTree::CValue nested;
            nested.key = "nested";
            nested.type = kObjectData;
            nested.object = Make(depth - 1);
            tree->values.push_back(std::move(nested));
        }
        return tree;
    }

private:
    int Number(int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); }

    CTree::CValue MakeValue(int index) {
        static const char* const kWords[] = {"k", "a b", "1x", "<&>", "gr\xc3\xbcn", "a=b/c]", " "};
        CTree::CValue value;
        value.key = kWords[Number(7)] + std::to_string(index);
        value.type = static_cast<EDataType>(1 + Number(6));
        value.truth = Number(2) == 1;
        value.integer = static_cast<int>(random());
        value.single = Special(std::bit_cast<float>(static_cast<std::uint32_t>(random())));
        value.number =
            Special(std::bit_cast<double>(std::uint64_t{random()} << 32 | std::uint64_t{random()}));
        if (value.type == kStringData) {
            value.isNull = Number(8) == 0;
            value.bytes = value.isNull ? "" : MakeText();
        } else if (value.type == kBinaryData) {
            for (int left = Number(40); left > 0; --left) {
                value.bytes += static_cast<char>(static_cast<unsigned char>(Number(256)));
            }
        }
        return value;
    }

    template <class T>
    T Special(T any) {
        const T specials[] = {std::numeric_limits<T>::quiet_NaN(),
                              -std::numeric_limits<T>::quiet_NaN(),
                              std::numeric_limits<T>::infinity(),
                              -std::numeric_limits<T>::infinity(),
                              T(-0.0),
                              std::numeric_limits<T>::denorm_min(),
                              std::numeric_limits<T>::max(),
                              T(1234.5)};
        const int choice = Number(16);
        // A payload of NaN has no text.
        return choice < 8 ? specials[choice] : std::isnan(any) ? T(1) / T(3) : any;
    }

    std::string MakeText() {
        static const char* const kParts[] = {" ",
                                             "\n",
                                             "\t",
                                             "\r",
                                             "\"",
                                             "'",
                                             "<b>",
                                             "&amp;",
                                             "]]>",
                                             "\xc3\xbc",
                                             "\\n",
                                             "a",
                                             "B",
                                             "=",
                                             ";",
                                             "1,5",
                                             "\xf0\x9d\x84\x9e",
                                             "\xc4\xb0"};
        std::string text;
        for (int left = Number(7); left > 0; --left) {
            text += kParts[Number(18)];
        }
        return text;
    }

    std::mt19937 random;
};

void ExpectMemoryRoundTrip(const CTree& tree) {
    CMemDataObject memory;
    ASSERT_TRUE(tree.Serialize(memory));
    const auto read = tree.Shape();
    ASSERT_TRUE(read->DeSerialize(memory));
    tree.ExpectEqual(*read, true);
}

void ExpectXmlRoundTrip(const CTree& tree, EXmlMode mode) {
    CXmlDataObject document("Root", mode);
    ASSERT_TRUE(tree.Serialize(document));
    Vorin::Containers::CCharString text;
    ASSERT_TRUE(document.SaveString(text));
    CXmlDataObject parsed("Root", mode);
    ASSERT_TRUE(parsed.Parse(text.Get(), text.GetLength()));
    const auto read = tree.Shape();
    ASSERT_TRUE(read->DeSerialize(parsed));
    tree.ExpectEqual(*read, false);
}

/// The whole tree as a memory object in the document: null texts stay null.
void ExpectMemoryInXmlRoundTrip(const CTree& tree, EXmlMode mode) {
    CMemDataObject memory;
    ASSERT_TRUE(tree.Serialize(memory));
    CXmlDataObject document("Root", mode);
    ASSERT_TRUE(memory.Serialize(document));
    Vorin::Containers::CCharString text;
    ASSERT_TRUE(document.SaveString(text));
    CXmlDataObject parsed("Root", mode);
    ASSERT_TRUE(parsed.Parse(text.Get(), text.GetLength()));
    CMemDataObject readMemory;
    ASSERT_TRUE(readMemory.DeSerialize(parsed));
    const auto read = tree.Shape();
    ASSERT_TRUE(read->DeSerialize(readMemory));
    tree.ExpectEqual(*read, true);
}

void ExpectIniRoundTrip(const CTree& tree) {
    CIniDataObject document;
    ASSERT_TRUE(tree.Serialize(document));
    Vorin::Containers::CCharString text;
    ASSERT_TRUE(document.SaveString(text));
    CIniDataObject parsed;
    ASSERT_TRUE(parsed.Parse(text.Get(), text.GetLength()));
    const auto read = tree.Shape();
    ASSERT_TRUE(read->DeSerialize(parsed));
    tree.ExpectEqual(*read, false);
}

void ExpectRoundTrips() {
    for (unsigned seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        const auto tree = CGenerator(seed).Make(seed == 0 ? 20 : 4);
        ExpectMemoryRoundTrip(*tree);
        for (const EXmlMode mode : {kXmlAttributes, kXmlElements, kXmlTypedElements}) {
            ExpectXmlRoundTrip(*tree, mode);
            ExpectMemoryInXmlRoundTrip(*tree, mode);
        }
        ExpectIniRoundTrip(*tree);
    }
    EXPECT_STREQ(NumberText::Write(0.5).Get(), "0.5");
    EXPECT_EQ(NumberText::ReadDouble("0.5"), 0.5);
    EXPECT_EQ(NumberText::ReadDouble("1234.5"), 1234.5);
}

TEST(RoundTripTest, TreesInTheClassicLocale) { ExpectRoundTrips(); }

TEST(RoundTripTest, TreesWhereTheDecimalPointIsAComma) {
    const CLocale locale("de_DE.UTF-8");
    ASSERT_TRUE(locale.isThere) << "localedef and the locales package are needed";
    char printed[8];
    std::snprintf(printed, sizeof(printed), "%.1f", 0.5);
    ASSERT_STREQ(printed, "0,5");
    ExpectRoundTrips();
}

TEST(RoundTripTest, TreesWhereTheLetterIHasAnotherLowerCase) {
    const CLocale locale("tr_TR.UTF-8");
    ASSERT_TRUE(locale.isThere) << "localedef and the locales package are needed";
    char printed[8];
    std::snprintf(printed, sizeof(printed), "%.1f", 0.5);
    ASSERT_STREQ(printed, "0,5");
    CIniDataObject object;
    object.WriteInt("TITLE", 1);
    EXPECT_EQ(IntOf(object, "title"), 1);
    EXPECT_EQ(NumberText::ReadDouble("INF"), std::numeric_limits<double>::infinity());
    ExpectRoundTrips();
}

} // namespace
