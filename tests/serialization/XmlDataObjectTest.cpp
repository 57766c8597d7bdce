#include "serialization/XmlDataObject.h"

#include "serialization/Limits.h"
#include "serialization/MemDataObject.h"
#include "serialization/StreamHelpers.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>

#include <gtest/gtest.h>
#include <tinyxml2.h>

namespace {

using namespace Vorin::Serialization;

std::string TextOf(const CXmlDataObject& object) {
    Vorin::Containers::CCharString text;
    return object.SaveString(text) ? text.Get() : "(none)";
}

bool Parse(CXmlDataObject& object, const std::string& text) {
    return object.Parse(text.data(), static_cast<int>(text.size()));
}

/// A document with that content in its root, after a way through text.
class CReread : public CXmlDataObject {
public:
    explicit CReread(const CXmlDataObject& source) : CXmlDataObject("Root", source.GetMode()) {
        EXPECT_TRUE(::Parse(*this, TextOf(source)));
    }
};

constexpr char kHead[] = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n";

class XmlModesTest : public testing::TestWithParam<EXmlMode> {};

INSTANTIATE_TEST_SUITE_P(Modes, XmlModesTest,
                         testing::Values(kXmlAttributes, kXmlElements, kXmlTypedElements));

void WriteOneOfEach(IWriteDataStream& stream) {
    EXPECT_TRUE(stream.WriteInt("i", -5));
    EXPECT_TRUE(stream.WriteBool("b", true));
    EXPECT_TRUE(stream.WriteFloat("f", 0.5f));
    EXPECT_TRUE(stream.WriteDouble("d", 0.1));
    EXPECT_TRUE(stream.WriteString("s", "a & b"));
    EXPECT_TRUE(stream.WriteData("x", "foob", 4));
    EXPECT_TRUE(stream.WriteObject(
        "o", CWrites([](IWriteDataStream& nested) { return nested.WriteInt("n", 1); })));
}

TEST(XmlDataObjectTest, AttributeModeHoldsValuesAsAttributes) {
    CXmlDataObject object("Root", kXmlAttributes);
    WriteOneOfEach(object);
    EXPECT_EQ(TextOf(object), std::string(kHead) +
                                  "<Root i=\"-5\" b=\"1\" f=\"0.5\" d=\"0.10000000000000000555\""
                                  " s=\"a &amp; b\" x=\"Zm9vYg==\">\n"
                                  "    <o n=\"1\"/>\n"
                                  "</Root>\n");
}

TEST(XmlDataObjectTest, ElementModeHoldsValuesAsChildren) {
    CXmlDataObject object("Root", kXmlElements);
    WriteOneOfEach(object);
    EXPECT_EQ(TextOf(object), std::string(kHead) + "<Root>\n"
                                                   "    <i>-5</i>\n"
                                                   "    <b>1</b>\n"
                                                   "    <f>0.5</f>\n"
                                                   "    <d>0.10000000000000000555</d>\n"
                                                   "    <s>a &amp; b</s>\n"
                                                   "    <x>Zm9vYg==</x>\n"
                                                   "    <o>\n"
                                                   "        <n>1</n>\n"
                                                   "    </o>\n"
                                                   "</Root>\n");
}

TEST(XmlDataObjectTest, TypedModeHoldsValuesAsChildrenOfTheirType) {
    CXmlDataObject object("Root", kXmlTypedElements);
    WriteOneOfEach(object);
    EXPECT_EQ(TextOf(object), std::string(kHead) +
                                  "<Root>\n"
                                  "    <INTEGER name=\"i\">-5</INTEGER>\n"
                                  "    <BOOL name=\"b\">1</BOOL>\n"
                                  "    <FLOAT name=\"f\">0.5</FLOAT>\n"
                                  "    <DOUBLE name=\"d\">0.10000000000000000555</DOUBLE>\n"
                                  "    <STRING name=\"s\">a &amp; b</STRING>\n"
                                  "    <DATA name=\"x\">Zm9vYg==</DATA>\n"
                                  "    <OBJECT name=\"o\">\n"
                                  "        <INTEGER name=\"n\">1</INTEGER>\n"
                                  "    </OBJECT>\n"
                                  "</Root>\n");
}

TEST_P(XmlModesTest, IntReadsAsFloat) {
    CXmlDataObject object("Root", GetParam());
    object.WriteInt("a", 1);
    float value = 0;
    EXPECT_TRUE(object.ReadFloat("a", value));
    EXPECT_EQ(value, 1.0f);
}

TEST_P(XmlModesTest, KeyWrittenTwiceStandsOnceAtTheEnd) {
    CXmlDataObject object("Root", GetParam());
    object.WriteInt("a", 1);
    object.WriteInt("b", 2);
    object.WriteString("a", "three");
    const std::string text = TextOf(object);
    EXPECT_EQ(StringOf(object, "a"), "three");
    EXPECT_EQ(text.find("three"), text.rfind("three"));
    EXPECT_EQ(text.find(">1<"), std::string::npos);
    EXPECT_EQ(text.find("\"1\""), std::string::npos);
    EXPECT_GT(text.find("three"), text.find('2'));
}

TEST_P(XmlModesTest, KeyChangesItsTypeBetweenObjectAndValue) {
    CXmlDataObject object("Root", GetParam());
    const CWrites nested([](IWriteDataStream& stream) { return stream.WriteInt("n", 1); });
    CReads any([](const IReadDataStream&) { return true; });
    object.WriteObject("a", nested);
    object.WriteInt("a", 5);
    EXPECT_EQ(IntOf(object, "a"), 5);
    object.WriteObject("a", nested);
    EXPECT_TRUE(object.ReadObject("a", any));
    object.Remove("a");
    EXPECT_FALSE(object.Exists("a"));
    EXPECT_FALSE(object.ReadObject("a", any));
}

TEST_P(XmlModesTest, EmptyDataIsAnEmptyTextAndReadsBackAsNoBytes) {
    CXmlDataObject object("Root", GetParam());
    EXPECT_TRUE(object.WriteData("x", nullptr, 0));
    EXPECT_EQ(StringOf(object, "x"), "");
    EXPECT_EQ(DataOf(object, "x"), "");
    EXPECT_EQ(DataOf(CReread(object), "x"), "");
}

TEST_P(XmlModesTest, RemoveOfAnAbsentKeyIsTrue) {
    CXmlDataObject object("Root", GetParam());
    EXPECT_TRUE(object.Remove("a"));
    EXPECT_FALSE(object.Remove(nullptr));
}

TEST_P(XmlModesTest, DoublesReadBackExactly) {
    CXmlDataObject object("Root", GetParam());
    object.WriteDouble("a", 0.1);
    object.WriteDouble("nan", std::numeric_limits<double>::quiet_NaN());
    object.WriteDouble("inf", -std::numeric_limits<double>::infinity());
    const CReread read(object);
    EXPECT_EQ(DoubleOf(read, "a"), 0.1);
    EXPECT_TRUE(std::isnan(DoubleOf(read, "nan").value_or(0)));
    EXPECT_EQ(DoubleOf(read, "inf"), -std::numeric_limits<double>::infinity());
}

TEST_P(XmlModesTest, MissingKeyIsFalseAndLeavesTheValue) {
    CXmlDataObject object("Root", GetParam());
    bool truth = true;
    int integer = 3;
    float single = 4;
    EXPECT_FALSE(object.ReadBool("a", truth));
    EXPECT_FALSE(object.ReadInt("a", integer));
    EXPECT_FALSE(object.ReadFloat("a", single));
    EXPECT_EQ(DoubleOf(object, "a"), std::nullopt);
    EXPECT_EQ(StringOf(object, "a"), std::nullopt);
    EXPECT_EQ(DataOf(object, "a"), std::nullopt);
    EXPECT_FALSE(object.Exists("a"));
    EXPECT_FALSE(object.Exists(nullptr));
    EXPECT_TRUE(truth);
    EXPECT_EQ(integer, 3);
    EXPECT_EQ(single, 4);
}

TEST_P(XmlModesTest, BadNumberIsZeroAndRead) {
    CXmlDataObject object("Root", GetParam());
    object.WriteString("a", "abc");
    EXPECT_EQ(IntOf(object, "a"), 0);
    EXPECT_EQ(DoubleOf(object, "a"), 0.0);
    object.WriteString("a", "");
    EXPECT_EQ(IntOf(object, "a"), 0);
    object.WriteString("a", "1e999");
    EXPECT_EQ(DoubleOf(object, "a"), std::numeric_limits<double>::max());
    object.WriteString("a", "99999999999");
    EXPECT_EQ(IntOf(object, "a"), std::numeric_limits<int>::max());
}

TEST_P(XmlModesTest, BadBase64IsNotRead) {
    CXmlDataObject object("Root", GetParam());
    for (const char* text : {"Zg=", "Zm9*", "Zg==Zg==", " Zm9v", "Zm9v\n"}) {
        object.WriteString("x", text);
        EXPECT_EQ(DataOf(object, "x"), std::nullopt) << text;
    }
}

TEST_P(XmlModesTest, TextsComeBackAsWritten) {
    CXmlDataObject object("Root", GetParam());
    const char* texts[] = {"",
                           " ",
                           "  \t ",
                           "\n",
                           "\r",
                           "\r\n",
                           "\n\n a \n\n",
                           " a  b ",
                           "\ta\t",
                           "'\"<>&amp;&lt;&#10;]]>",
                           "<a b='c'/>",
                           "<!-- -->",
                           "<![CDATA[x]]>",
                           "gr\xc3\xbc\xc3\x9f \xe2\x82\xac \xf0\x9d\x84\x9e",
                           "\x7f",
                           "&",
                           "&#",
                           "&;",
                           "a\rb\nc\td",
                           "\xef\xbb\xbf",
                           "%d %s",
                           "\xef\xbf\xbd"};
    int index = 0;
    for (const char* text : texts) {
        EXPECT_TRUE(object.WriteString(("k" + std::to_string(index++)).c_str(), text));
    }
    const CReread read(object);
    const CReread again(static_cast<const CXmlDataObject&>(read));
    index = 0;
    for (const char* text : texts) {
        const std::string key = "k" + std::to_string(index++);
        EXPECT_EQ(StringOf(object, key.c_str()), text);
        EXPECT_EQ(StringOf(read, key.c_str()), text);
        EXPECT_EQ(StringOf(again, key.c_str()), text);
    }
    EXPECT_EQ(TextOf(read), TextOf(object));
}

TEST_P(XmlModesTest, WhatXmlCannotCarryBecomesTheReplacementCharacter) {
    CXmlDataObject object("Root", GetParam());
    const std::string mark = "\xef\xbf\xbd";
    object.WriteString("c", "a\x01z\x1f");
    object.WriteString("u", "\xff"
                            "a\xc3");        // bytes that begin no character
    object.WriteString("n", "\xef\xbf\xbe"); // U+FFFE
    object.WriteString("s", "\xed\xa0\x80"); // a surrogate
    object.WriteString("l", "\xc0\xaf");     // "/" in too long a form
    const CReread read(object);
    EXPECT_EQ(StringOf(object, "c"), "a" + mark + "z" + mark);
    EXPECT_EQ(StringOf(read, "c"), "a" + mark + "z" + mark);
    EXPECT_EQ(StringOf(read, "u"), mark + "a" + mark);
    EXPECT_EQ(StringOf(read, "n"), mark);
    EXPECT_EQ(StringOf(read, "s"), mark + mark + mark);
    EXPECT_EQ(StringOf(read, "l"), mark + mark);
}

TEST_P(XmlModesTest, NullTextComesBackEmpty) {
    CXmlDataObject object("Root", GetParam());
    EXPECT_TRUE(object.WriteString("s", nullptr));
    EXPECT_EQ(StringOf(object, "s"), "");
    EXPECT_EQ(StringOf(CReread(object), "s"), "");
}

TEST_P(XmlModesTest, KeysThatAreNoNamesComeBack) {
    CXmlDataObject object("Root", GetParam());
    const char* keys[] = {"a b",  "1x", "",  "<",           "a=\"b\"", "&",   "\n",   "\x01",
                          "\xff", "-",  ".", "gr\xc3\xbcn", "_x20_",   "xml", "name", "Zg=="};
    int index = 0;
    for (const char* key : keys) {
        EXPECT_TRUE(object.WriteInt(key, index)) << key;
        const std::string objectKey = std::string(key) + "o";
        EXPECT_TRUE(object.WriteObject(objectKey.c_str(), CWrites([key](IWriteDataStream& stream) {
                                           return stream.WriteString("key", key);
                                       })));
        ++index;
    }
    const CReread read(object);
    index = 0;
    for (const char* key : keys) {
        EXPECT_EQ(IntOf(read, key), index++) << key;
        CReads any([](const IReadDataStream& stream) { return stream.Exists("key"); });
        EXPECT_TRUE(read.ReadObject((std::string(key) + "o").c_str(), any)) << key;
    }
}

TEST_P(XmlModesTest, ManyKeysAreFoundReplacedAndRemoved) {
    constexpr int count = 10000;
    CXmlDataObject object("Root", GetParam());
    const auto keyOf = [](int number) { return "k" + std::to_string(number); };
    for (int i = 0; i < count; ++i) {
        ASSERT_TRUE(object.WriteInt(keyOf(i).c_str(), i));
    }
    for (int i = 0; i < count; i += 2) {
        ASSERT_TRUE(object.WriteInt(keyOf(i).c_str(), -i));
    }
    for (int i = 1; i < count; i += 4) {
        ASSERT_TRUE(object.Remove(keyOf(i).c_str()));
    }
    const CReread read(object);
    for (int i = 0; i < count; ++i) {
        const std::optional<int> expected = i % 2 == 0   ? std::optional<int>(-i)
                                            : i % 4 == 1 ? std::nullopt
                                                         : std::optional(i);
        ASSERT_EQ(IntOf(object, keyOf(i).c_str()), expected) << i;
        ASSERT_EQ(IntOf(read, keyOf(i).c_str()), expected) << i;
    }
}

TEST_P(XmlModesTest, TwoViewsOfOneElementSeeEachOthersChanges) {
    tinyxml2::XMLDocument document;
    tinyxml2::XMLElement* element = document.NewElement("e");
    document.InsertEndChild(element);
    CXmlBaseDataObject first(element, GetParam());
    CXmlBaseDataObject second(element, GetParam());
    for (int i = 0; i < 600; ++i) {
        ASSERT_TRUE(first.WriteInt(("k" + std::to_string(i)).c_str(), i));
    }
    for (int i = 0; i < 600; ++i) {
        const std::string key = "k" + std::to_string(i);
        ASSERT_EQ(IntOf(second, key.c_str()), i);
        ASSERT_TRUE(second.WriteInt(key.c_str(), i + 1));
        ASSERT_EQ(IntOf(first, key.c_str()), i + 1);
        ASSERT_TRUE(first.Remove(key.c_str()));
        ASSERT_FALSE(second.Exists(key.c_str()));
    }
    first.WriteInt("a", 1);
    second.Clear();
    EXPECT_FALSE(first.Exists("a"));
}

TEST_P(XmlModesTest, FailedWriteLeavesTheKeyRemoved) {
    CXmlDataObject object("Root", GetParam());
    object.WriteInt("a", 1);
    EXPECT_FALSE(object.WriteData("a", nullptr, 3));
    EXPECT_FALSE(object.Exists("a"));
    object.WriteInt("a", 1);
    EXPECT_FALSE(object.WriteObject("a", CWrites([](IWriteDataStream& stream) {
                                        stream.WriteInt("n", 1);
                                        return false;
                                    })));
    EXPECT_FALSE(object.Exists("a"));
    const std::string tooLong(kMaximumTextBytes + 1, 'x');
    object.WriteInt("a", 1);
    EXPECT_FALSE(object.WriteString("a", tooLong.c_str()));
    EXPECT_FALSE(object.Exists("a"));
}

TEST_P(XmlModesTest, LongestTextComesBackAlsoWhenItsFormIsLonger) {
    CXmlDataObject object("Root", GetParam());
    const std::string text(kMaximumTextBytes, '&');
    const std::string lines(kMaximumTextBytes, '\r');
    EXPECT_TRUE(object.WriteString("a", text.c_str()));
    EXPECT_TRUE(object.WriteString("b", lines.c_str()));
    const CReread read(object);
    EXPECT_TRUE(StringOf(read, "a") == text);
    EXPECT_TRUE(StringOf(read, "b") == lines);
}

TEST_P(XmlModesTest, ClearRemovesAllValuesAndKeepsTheObject) {
    CXmlDataObject object("Root", GetParam());
    WriteOneOfEach(object);
    CXmlDataObject outer("Root", GetParam());
    EXPECT_TRUE(outer.WriteObject("o", CWrites([](IWriteDataStream& stream) {
                                      WriteOneOfEach(stream);
                                      return stream.Clear() && stream.WriteInt("left", 1);
                                  })));
    EXPECT_TRUE(object.Clear());
    for (const char* key : {"i", "b", "f", "d", "s", "x", "o"}) {
        EXPECT_FALSE(object.Exists(key));
    }
    CReads left([](const IReadDataStream& stream) {
        return stream.Exists("left") && !stream.Exists("i") && !stream.Exists("o");
    });
    EXPECT_TRUE(outer.ReadObject("o", left));
}

TEST_P(XmlModesTest, WithoutAnElementEveryReadAndWriteIsFalse) {
    CXmlBaseDataObject view(nullptr, GetParam());
    CReads any([](const IReadDataStream&) { return true; });
    EXPECT_FALSE(view.WriteInt("a", 1));
    EXPECT_FALSE(view.WriteString("a", "x"));
    EXPECT_FALSE(view.WriteData("a", "x", 1));
    EXPECT_FALSE(view.WriteObject("a", CWrites([](IWriteDataStream&) { return true; })));
    EXPECT_FALSE(view.Remove("a"));
    EXPECT_FALSE(view.Clear());
    EXPECT_FALSE(view.Exists("a"));
    EXPECT_EQ(IntOf(view, "a"), std::nullopt);
    EXPECT_EQ(StringOf(view, "a"), std::nullopt);
    EXPECT_EQ(DataOf(view, "a"), std::nullopt);
    EXPECT_FALSE(view.ReadObject("a", any));
}

bool WriteObjectsNested(IWriteDataStream& stream, int levels) {
    return levels == 0 || stream.WriteObject("o", CWrites([levels](IWriteDataStream& nested) {
                                                 return WriteObjectsNested(nested, levels - 1);
                                             }));
}

TEST_P(XmlModesTest, ObjectsNestToTheDepthThatIsRead) {
    CXmlDataObject object("Root", GetParam());
    EXPECT_TRUE(WriteObjectsNested(object, kMaximumDepth - 1));
    CXmlDataObject read("Root", GetParam());
    EXPECT_TRUE(Parse(read, TextOf(object)));
    EXPECT_FALSE(WriteObjectsNested(object, kMaximumDepth));
    EXPECT_FALSE(object.Exists("o"));
}

TEST_P(XmlModesTest, MemoryObjectKeepsItsKeysAndTypes) {
    CMemDataObject source;
    WriteOneOfEach(source);
    source.WriteString("null", nullptr);
    source.WriteString("any key <&>", "x");
    CXmlDataObject object("Root", GetParam());
    ASSERT_TRUE(source.Serialize(object));
    CMemDataObject target;
    ASSERT_TRUE(target.DeSerialize(CReread(object)));
    EXPECT_EQ(target.GetCount(), 9);
    EXPECT_EQ(IntOf(target, "i"), -5);
    EXPECT_EQ(DoubleOf(target, "i"), std::nullopt);
    float single = 0;
    EXPECT_TRUE(target.ReadFloat("f", single));
    EXPECT_EQ(single, 0.5f);
    EXPECT_EQ(DoubleOf(target, "d"), 0.1);
    EXPECT_EQ(StringOf(target, "s"), "a & b");
    EXPECT_EQ(StringOf(target, "null"), "(null)");
    EXPECT_EQ(StringOf(target, "any key <&>"), "x");
    EXPECT_EQ(DataOf(target, "x"), "foob");
    CReads nested([](const IReadDataStream& stream) { return IntOf(stream, "n") == 1; });
    EXPECT_TRUE(target.ReadObject("o", nested));
}

TEST(XmlDataObjectTest, AttributeModeReadsChildElementsToo) {
    CXmlDataObject object("Root", kXmlAttributes);
    ASSERT_TRUE(Parse(object, "<Root a='1'><a>2</a><b>3</b><b>4</b></Root>"));
    EXPECT_EQ(IntOf(object, "a"), 1);
    EXPECT_EQ(IntOf(object, "b"), 3);
    EXPECT_TRUE(object.Exists("b"));
    object.Remove("a");
    EXPECT_FALSE(object.Exists("a"));
}

TEST(XmlDataObjectTest, AttributesBeyondTheLimitBecomeChildElements) {
    CXmlDataObject object("Root", kXmlAttributes);
    for (int i = 0; i < kMaximumAttributes + 2; ++i) {
        ASSERT_TRUE(object.WriteInt(("k" + std::to_string(i)).c_str(), i));
    }
    const CReread read(object);
    for (int i = 0; i < kMaximumAttributes + 2; ++i) {
        EXPECT_EQ(IntOf(read, ("k" + std::to_string(i)).c_str()), i);
    }
    EXPECT_NE(TextOf(object).find("<k256>256</k256>"), std::string::npos);
    EXPECT_NE(TextOf(object).find(" k255=\"255\""), std::string::npos);
}

TEST(XmlDataObjectTest, WrongRootGivesNoRoot) {
    CXmlDataObject object("Preset", kXmlAttributes);
    object.WriteInt("a", 1);
    EXPECT_FALSE(Parse(object, "<Root a='1'/>"));
    EXPECT_EQ(object.GetRoot(), nullptr);
    EXPECT_FALSE(object.Exists("a"));
    EXPECT_FALSE(object.WriteInt("a", 1));
    EXPECT_EQ(TextOf(object), "(none)");
    EXPECT_TRUE(object.New());
    EXPECT_TRUE(object.WriteInt("a", 1));
    EXPECT_TRUE(Parse(object, "<Preset a='2'/>"));
    EXPECT_EQ(IntOf(object, "a"), 2);
}

TEST(XmlDataObjectTest, FileRoundTrip) {
    const std::string path = testing::TempDir() + "XmlDataObjectTest.xml";
    CXmlDataObject object("Root", kXmlAttributes);
    object.WriteString("s", " x\n");
    ASSERT_TRUE(object.SaveFile(path.c_str()));
    CXmlDataObject read("Root", kXmlAttributes);
    ASSERT_TRUE(read.LoadFile(path.c_str()));
    EXPECT_EQ(StringOf(read, "s"), " x\n");
    std::remove(path.c_str());
    EXPECT_FALSE(read.LoadFile(path.c_str()));
    EXPECT_EQ(read.GetRoot(), nullptr);
    EXPECT_FALSE(object.SaveFile("/nowhere/at/all.xml"));
    EXPECT_FALSE(object.SaveFile(nullptr));
    EXPECT_FALSE(read.LoadFile(nullptr));
    EXPECT_FALSE(read.LoadFile(testing::TempDir().c_str())); // a folder
    EXPECT_FALSE(read.LoadFile("/dev/zero"));
}

TEST(XmlDataObjectTest, CommentsOfADocumentSurviveSaving) {
    CXmlDataObject object("Root", kXmlElements);
    ASSERT_TRUE(Parse(object, "<!-- head --><Root><!-- in --><a><!-- x -->5</a></Root>"));
    EXPECT_EQ(IntOf(object, "a"), 5);
    EXPECT_NE(TextOf(object).find("<!-- head -->"), std::string::npos);
    EXPECT_NE(TextOf(object).find("<!-- in -->"), std::string::npos);
}

TEST(XmlDataObjectTest, WhatIsNotReadBackIsNotSaved) {
    CXmlDataObject object("Root", kXmlElements);
    for (int i = 0; i < kMaximumElements - 1; ++i) {
        ASSERT_TRUE(object.WriteInt(("k" + std::to_string(i)).c_str(), i));
    }
    CXmlDataObject read("Root", kXmlElements);
    EXPECT_TRUE(Parse(read, TextOf(object)));
    object.WriteInt("one more", 1);
    EXPECT_EQ(TextOf(object), "(none)");
    CXmlDataObject large("Root", kXmlElements);
    const std::string megabyte(kMaximumTextBytes, 'x');
    for (int i = 0; i < 16; ++i) {
        ASSERT_TRUE(large.WriteString(("k" + std::to_string(i)).c_str(), megabyte.c_str()));
    }
    EXPECT_EQ(TextOf(large), "(none)");
}

} // namespace
