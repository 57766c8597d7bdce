#include "serialization/IniDataObject.h"

#include "serialization/Limits.h"
#include "serialization/StreamHelpers.h"

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Serialization;

std::string TextOf(const CIniDataObject& object) {
    Vorin::Containers::CCharString text;
    return object.SaveString(text) ? text.Get() : "(none)";
}

bool Parse(CIniDataObject& object, const std::string& text) {
    return object.Parse(text.data(), static_cast<int>(text.size()));
}

const CWrites kOneInt([](IWriteDataStream& stream) { return stream.WriteInt("n", 1); });

TEST(IniDataObjectTest, ValuesStandAsKeysAndObjectsAsSections) {
    CIniDataObject object;
    EXPECT_TRUE(object.WriteInt("i", -5));
    EXPECT_TRUE(object.WriteBool("b", true));
    EXPECT_TRUE(object.WriteFloat("f", 0.5f));
    EXPECT_TRUE(object.WriteDouble("d", 0.1));
    EXPECT_TRUE(object.WriteString("s", "a; b = [c]"));
    EXPECT_TRUE(object.WriteData("x", "foob", 4));
    EXPECT_TRUE(object.WriteObject("o", CWrites([](IWriteDataStream& stream) {
                                       return stream.WriteInt("n", 1) &&
                                              stream.WriteObject("p", kOneInt);
                                   })));
    EXPECT_EQ(TextOf(object), "i=-5\nb=1\nf=0.5\nd=0.10000000000000000555\ns=a; b = [c]\n"
                              "x=Zm9vYg==\n\n\n[o]\nn=1\n\n\n[o/p]\nn=1\n");
}

TEST(IniDataObjectTest, TextsComeBackAsWritten) {
    CIniDataObject object;
    const char* texts[] = {
        "",      " ",      " a ",   "\ta\t",        "a\nb",    "\r\n",        "\"",
        "\"a\"", "a\"b\"", "\\n",   "C:\\new\\x",   "\"\\n\"", "<<<END",      "; x",
        "# x",   "[x]",    "a=b=c", "\x01\x1f\x7f", "\xff",    "gr\xc3\xbcn", "\\",
        "\"\\",  "x\\",    "a  b",  "\xef\xbb\xbf", "\n",      "\"\n\"",      "\v\f"};
    int index = 0;
    for (const char* text : texts) {
        EXPECT_TRUE(object.WriteString(("k" + std::to_string(index++)).c_str(), text));
    }
    CIniDataObject read;
    ASSERT_TRUE(Parse(read, TextOf(object)));
    index = 0;
    for (const char* text : texts) {
        const std::string key = "k" + std::to_string(index++);
        EXPECT_EQ(StringOf(object, key.c_str()), text);
        EXPECT_EQ(StringOf(read, key.c_str()), text);
    }
    EXPECT_EQ(TextOf(read), TextOf(object));
}

TEST(IniDataObjectTest, OrdinaryTextsStandUnquoted) {
    CIniDataObject object;
    object.WriteString("a", "C:\\new folder\\x \"y\"");
    object.WriteString("b", " x\n");
    EXPECT_EQ(TextOf(object), "a=C:\\new folder\\x \"y\"\nb=\" x\\n\"\n");
}

TEST(IniDataObjectTest, WhatIsNoTextInQuotesIsTakenAsItStands) {
    CIniDataObject object;
    ASSERT_TRUE(Parse(object, "a=\"C:\\new\"\nb=\"x\\q\"\nc=\"\nd=\"a\"b\"\ne=\"\\\"\nf=\"\\x0\"\n"
                              "g=\"plain\"\nh=\"\\x00\"\n"));
    EXPECT_EQ(StringOf(object, "a"), "C:\new"); // it is one: "\n" is an escape
    EXPECT_EQ(StringOf(object, "b"), "\"x\\q\"");
    EXPECT_EQ(StringOf(object, "c"), "\"");
    EXPECT_EQ(StringOf(object, "d"), "\"a\"b\"");
    EXPECT_EQ(StringOf(object, "e"), "\"\\\"");
    EXPECT_EQ(StringOf(object, "f"), "\"\\x0\"");
    EXPECT_EQ(StringOf(object, "g"), "plain");
    EXPECT_EQ(StringOf(object, "h"), "\"\\x00\"");
}

TEST(IniDataObjectTest, KeysThatCannotStandInAFileComeBack) {
    CIniDataObject object;
    const char* keys[] = {"a=b", "a]b",  "[a]",   ";a",           "#a",   " a ", "",
                          "a/b", "a\nb", "_x20_", "\xef\xbb\xbf", "\xff", "=",   "\x01",
                          "\"",  "Zg==", "/"};
    int index = 0;
    for (const char* key : keys) {
        EXPECT_TRUE(object.WriteInt(key, index++));
        EXPECT_TRUE(object.WriteObject((std::string(key) + "o").c_str(), kOneInt));
    }
    CIniDataObject read;
    ASSERT_TRUE(Parse(read, TextOf(object)));
    index = 0;
    for (const char* key : keys) {
        EXPECT_EQ(IntOf(read, key), index++) << key;
        CReads one([](const IReadDataStream& stream) { return IntOf(stream, "n") == 1; });
        EXPECT_TRUE(read.ReadObject((std::string(key) + "o").c_str(), one)) << key;
    }
}

TEST(IniDataObjectTest, KeysAreTheSameInUpperAndLowerCase) {
    CIniDataObject object;
    object.WriteInt("Key", 1);
    EXPECT_EQ(IntOf(object, "kEY"), 1);
    object.WriteInt("KEY", 2);
    EXPECT_EQ(TextOf(object), "Key=2\n");
    object.WriteObject("Section", kOneInt);
    EXPECT_TRUE(object.Exists("SECTION"));
    object.Remove("section");
    EXPECT_EQ(TextOf(object), "Key=2\n");
}

TEST(IniDataObjectTest, SlashInAKeyIsNoNesting) {
    CIniDataObject object;
    object.WriteObject("a/b", kOneInt);
    EXPECT_FALSE(object.Exists("a"));
    object.WriteObject("a", CWrites([](IWriteDataStream& stream) {
                           return stream.WriteObject("b", CWrites([](IWriteDataStream& nested) {
                                                         return nested.WriteInt("n", 2);
                                                     }));
                       }));
    CReads one([](const IReadDataStream& stream) { return IntOf(stream, "n") == 1; });
    EXPECT_TRUE(object.ReadObject("a/b", one));
}

TEST(IniDataObjectTest, MissingKeyIsFalse) {
    const CIniDataObject object;
    bool truth = true;
    float single = 4;
    CReads any([](const IReadDataStream&) { return true; });
    EXPECT_FALSE(object.ReadBool("a", truth));
    EXPECT_FALSE(object.ReadFloat("a", single));
    EXPECT_EQ(IntOf(object, "a"), std::nullopt);
    EXPECT_EQ(DoubleOf(object, "a"), std::nullopt);
    EXPECT_EQ(StringOf(object, "a"), std::nullopt);
    EXPECT_EQ(DataOf(object, "a"), std::nullopt);
    EXPECT_FALSE(object.ReadObject("a", any));
    EXPECT_FALSE(object.Exists("a"));
    EXPECT_EQ(IntOf(object, nullptr), std::nullopt);
    EXPECT_FALSE(object.ReadObject(nullptr, any));
    EXPECT_TRUE(truth);
    EXPECT_EQ(single, 4);
}

TEST(IniDataObjectTest, AnyTextReadsAsANumberButNotAsData) {
    CIniDataObject object;
    ASSERT_TRUE(Parse(object, "a=abc\nb=1e999\nc=99999999999\nd=Zg=\ne=nan\n"));
    EXPECT_EQ(IntOf(object, "a"), 0);
    EXPECT_EQ(DoubleOf(object, "b"), std::numeric_limits<double>::max());
    EXPECT_EQ(IntOf(object, "c"), std::numeric_limits<int>::max());
    EXPECT_EQ(DataOf(object, "d"), std::nullopt);
    EXPECT_TRUE(std::isnan(DoubleOf(object, "e").value_or(0)));
}

TEST(IniDataObjectTest, EmptyAndNullTextsAndDataComeBackEmpty) {
    CIniDataObject object;
    EXPECT_TRUE(object.WriteString("s", nullptr));
    EXPECT_TRUE(object.WriteData("x", nullptr, 0));
    CIniDataObject read;
    ASSERT_TRUE(Parse(read, TextOf(object)));
    EXPECT_EQ(StringOf(read, "s"), "");
    EXPECT_EQ(DataOf(read, "x"), "");
}

TEST(IniDataObjectTest, RemoveTakesTheKeyOrElseTheSectionWithAllBelow) {
    CIniDataObject object;
    ASSERT_TRUE(Parse(object, "k=1\n[k]\nn=1\n[k/l]\nn=1\n[K/L/m]\nn=1\n[kk]\nn=1\n"));
    EXPECT_TRUE(object.Remove("k"));
    EXPECT_TRUE(object.Exists("k")); // the section
    EXPECT_TRUE(object.Remove("k"));
    EXPECT_FALSE(object.Exists("k"));
    EXPECT_EQ(TextOf(object), "[kk]\nn=1\n");
    EXPECT_TRUE(object.Remove("absent"));
    EXPECT_FALSE(object.Remove(nullptr));
}

TEST(IniDataObjectTest, ObjectWrittenAgainHasNothingOfTheOldOne) {
    CIniDataObject object;
    ASSERT_TRUE(Parse(object, "o=5\n[o]\nold=1\n[o/deep]\nold=1\n"));
    EXPECT_TRUE(object.WriteObject("o", kOneInt));
    EXPECT_EQ(TextOf(object), "[o]\nn=1\n");
    EXPECT_TRUE(object.WriteInt("o", 7));
    EXPECT_EQ(TextOf(object), "o=7\n");
}

TEST(IniDataObjectTest, EmptyObjectComesBack) {
    CIniDataObject object;
    object.WriteObject("o", CWrites([](IWriteDataStream&) { return true; }));
    CIniDataObject read;
    ASSERT_TRUE(Parse(read, TextOf(object)));
    CReads any([](const IReadDataStream& stream) { return !stream.Exists("n"); });
    EXPECT_TRUE(read.ReadObject("o", any));
}

TEST(IniDataObjectTest, ClearEmptiesTheObjectAlone) {
    CIniDataObject object;
    ASSERT_TRUE(Parse(object, "a=1\n[p]\nb=1\n"));
    EXPECT_TRUE(object.WriteObject("o", CWrites([](IWriteDataStream& stream) {
                                       stream.WriteObject("deep", kOneInt);
                                       stream.WriteInt("x", 1);
                                       return stream.Clear() && stream.WriteInt("y", 2);
                                   })));
    EXPECT_EQ(TextOf(object), "a=1\n\n\n[p]\nb=1\n\n\n[o]\ny=2\n");
    EXPECT_TRUE(object.Clear());
    EXPECT_EQ(TextOf(object), "");
    EXPECT_TRUE(object.WriteInt("z", 1));
}

TEST(IniDataObjectTest, FailedWriteLeavesTheKeyRemoved) {
    CIniDataObject object;
    object.WriteInt("a", 1);
    EXPECT_FALSE(object.WriteData("a", nullptr, 3));
    EXPECT_FALSE(object.Exists("a"));
    EXPECT_FALSE(object.WriteObject("a", CWrites([](IWriteDataStream& stream) {
                                        stream.WriteInt("n", 1);
                                        return false;
                                    })));
    EXPECT_FALSE(object.Exists("a"));
    object.WriteInt("a", 1);
    EXPECT_FALSE(object.WriteString("a", std::string(kMaximumTextBytes, 'x').c_str()));
    EXPECT_FALSE(object.Exists("a"));
    EXPECT_FALSE(object.WriteInt(nullptr, 1));
    EXPECT_FALSE(object.WriteObject(nullptr, kOneInt));
}

bool WriteNested(IWriteDataStream& stream, int levels) {
    return levels == 0 || stream.WriteObject("o", CWrites([levels](IWriteDataStream& nested) {
                                                 return WriteNested(nested, levels - 1);
                                             }));
}

TEST(IniDataObjectTest, ObjectsNestToTheDepthThatIsRead) {
    CIniDataObject object;
    EXPECT_TRUE(WriteNested(object, kMaximumDepth - 1));
    EXPECT_FALSE(WriteNested(object, kMaximumDepth));
}

TEST(IniDataObjectTest, FileRoundTrip) {
    const std::string path = testing::TempDir() + "IniDataObjectTest.ini";
    CIniDataObject object;
    object.WriteString("s", " x\n");
    ASSERT_TRUE(object.SaveFile(path.c_str()));
    CIniDataObject read;
    ASSERT_TRUE(read.LoadFile(path.c_str()));
    EXPECT_EQ(StringOf(read, "s"), " x\n");
    std::remove(path.c_str());
    EXPECT_FALSE(read.LoadFile(path.c_str()));
    EXPECT_FALSE(read.Exists("s"));
    EXPECT_FALSE(object.SaveFile("/nowhere/at/all.ini"));
    EXPECT_FALSE(read.LoadFile("/dev/zero"));
}

TEST(IniDataObjectTest, CommentsAndHandWrittenBlanksAreTaken) {
    CIniDataObject object;
    ASSERT_TRUE(Parse(object, "\xef\xbb\xbf; head\n\n  a =  1  \r\n\r\n# in\r\n[ s ]\r\nb=2"));
    EXPECT_EQ(IntOf(object, "a"), 1);
    CReads two([](const IReadDataStream& stream) { return IntOf(stream, "b") == 2; });
    EXPECT_TRUE(object.ReadObject("s", two));
    EXPECT_NE(TextOf(object).find("; head"), std::string::npos);
}

TEST(IniHostileTest, HundredThousandKeys) {
    const auto keys = [](int count) {
        std::string text;
        for (int i = 0; i < count; ++i) {
            text += "k" + std::to_string(i) + "=" + std::to_string(i) + "\n";
        }
        return text;
    };
    CIniDataObject object;
    ASSERT_TRUE(Parse(object, keys(100000)));
    EXPECT_EQ(IntOf(object, "k99999"), 99999);
    EXPECT_TRUE(object.WriteInt("k5", 1)); // still as many
    EXPECT_NE(TextOf(object), "(none)");
    object.WriteInt("one more", 1);
    EXPECT_EQ(TextOf(object), "(none)");
    EXPECT_FALSE(Parse(object, keys(100001)));
    EXPECT_FALSE(object.Exists("k0"));
    EXPECT_EQ(TextOf(object), "");
}

TEST(IniHostileTest, HundredThousandTimesTheSameKeyOrSection) {
    std::string text;
    for (int i = 0; i < 100000; ++i) {
        text += i % 2 ? "[s]\n" : "k=1\n";
    }
    CIniDataObject object;
    EXPECT_TRUE(Parse(object, text));
    EXPECT_EQ(IntOf(object, "k"), 1);
    EXPECT_TRUE(object.Remove("s"));
}

TEST(IniHostileTest, MegabyteLine) {
    CIniDataObject object;
    const std::string most = "k=" + std::string(kMaximumTextBytes - 2, 'x');
    EXPECT_TRUE(Parse(object, most + "\n"));
    EXPECT_EQ(StringOf(object, "k").value_or("").size(), most.size() - 2);
    EXPECT_FALSE(Parse(object, most + "x\n"));
    EXPECT_FALSE(object.Exists("k"));
}

TEST(IniHostileTest, ZeroBytesAreRefused) {
    CIniDataObject object;
    EXPECT_FALSE(Parse(object, std::string("a=1\0b=2\n", 8)));
    EXPECT_FALSE(object.Exists("a"));
    EXPECT_FALSE(Parse(object, std::string("\xff\xfe"
                                           "a\0=\0",
                                           6))); // UTF-16
    EXPECT_FALSE(object.Parse(nullptr, 5));
}

TEST(IniHostileTest, FileOfSeventeenMegabytes) {
    std::string text;
    for (int i = 0; i < 17; ++i) {
        text += "k" + std::to_string(i) + "=" + std::string(1024 * 1024 - 8, 'x') + "\n";
    }
    CIniDataObject object;
    EXPECT_FALSE(Parse(object, text));
    text.resize(kMaximumDocumentBytes);
    EXPECT_TRUE(Parse(object, text));
}

TEST(IniHostileTest, OddLinesAreTakenOrLeftOut) {
    CIniDataObject object;
    for (const char* text : {"",
                             "[",
                             "]",
                             "[]",
                             "[]\n=",
                             "=",
                             "=x",
                             "[a",
                             "[a]b",
                             "[a\n]",
                             "k",
                             ";",
                             "#",
                             ";\n\n;",
                             "k=<<<\n",
                             "k=<<<x\ny\nx\n",
                             "[ ]\nk=1",
                             "\r",
                             "\r\r\n",
                             "\"",
                             "k=\"",
                             "[[a]]",
                             "[a/]\nk=1",
                             "[/]\nk=1",
                             "[/a]\nk=1",
                             "; a\n  \n\n  ; b\n\nk=1",
                             ";a\r\n;b\r\n\r\n;c"}) {
        EXPECT_TRUE(Parse(object, text)) << text;
        const std::string printed = TextOf(object);
        EXPECT_TRUE(Parse(object, printed)) << text;
        object.Clear();
        EXPECT_TRUE(object.WriteInt("k", 1)) << text;
    }
}

TEST(IniHostileTest, TruncatedAtEveryByteAndOneBitFlippedAtATime) {
    CIniDataObject source;
    for (int i = 0; i < 20; ++i) {
        source.WriteString(("k" + std::to_string(i)).c_str(), " text with\nlines and \"quotes\" ");
        source.WriteObject(("o" + std::to_string(i)).c_str(), kOneInt);
    }
    const std::string sample = TextOf(source);
    ASSERT_GT(sample.size(), 900u);
    const auto tryIt = [](const std::string& text) {
        CIniDataObject object;
        if (Parse(object, text)) {
            StringOf(object, "k3");
            CReads any([](const IReadDataStream& stream) { return IntOf(stream, "n") != 2; });
            object.ReadObject("o3", any);
        } else {
            ASSERT_FALSE(object.Exists("k3"));
        }
    };
    for (std::size_t length = 0; length < sample.size(); ++length) {
        tryIt(sample.substr(0, length));
    }
    for (std::size_t at = 0; at < sample.size(); ++at) {
        for (int bit = 0; bit < 8; ++bit) {
            std::string flipped = sample;
            flipped[at] = static_cast<char>(static_cast<unsigned char>(flipped[at]) ^ (1u << bit));
            tryIt(flipped);
        }
    }
}

} // namespace
