#include "serialization/Limits.h"
#include "serialization/MemDataObject.h"
#include "serialization/StreamHelpers.h"
#include "serialization/XmlDataObject.h"
#include "serialization/XmlText.h"

#include <cstddef>
#include <cstdio>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Serialization;

bool IsTaken(const std::string& text, EXmlMode mode = kXmlAttributes) {
    CXmlDataObject object("Root", mode);
    const bool isTaken = object.Parse(text.data(), static_cast<int>(text.size()));
    EXPECT_EQ(isTaken, object.GetRoot() != nullptr);
    return isTaken;
}

std::string Repeated(const std::string& part, int count) {
    std::string text;
    text.reserve(part.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        text += part;
    }
    return text;
}

/// A document of about 4 KB with all that a document can hold.
std::string Sample(EXmlMode mode) {
    CMemDataObject memory;
    for (int i = 0; i < 14; ++i) {
        const std::string key = "key" + std::to_string(i);
        memory.WriteDouble(key.c_str(), i / 7.0);
        memory.WriteString((key + "s").c_str(), "a \"text\" <with> all & sundry\n");
    }
    CXmlDataObject object("Root", mode);
    EXPECT_TRUE(memory.Serialize(object));
    EXPECT_TRUE(object.WriteString("note", " \t gr\xc3\xbcn "));
    Vorin::Containers::CCharString text;
    EXPECT_TRUE(object.SaveString(text));
    return std::string(text.Get()) + "<!-- end -->";
}

/// Parses and, when that works, reads as a state would.
void ParseAndRead(const std::string& text, EXmlMode mode) {
    CXmlDataObject object("Root", mode);
    if (!object.Parse(text.data(), static_cast<int>(text.size()))) {
        EXPECT_FALSE(object.Exists("ItemsCount"));
        EXPECT_EQ(StringOf(object, "note"), std::nullopt);
        return;
    }
    CMemDataObject memory;
    memory.WriteInt("before", 1);
    if (!memory.DeSerialize(object)) {
        EXPECT_EQ(memory.GetCount(), 1);
        EXPECT_EQ(IntOf(memory, "before"), 1);
    }
    StringOf(object, "note");
    DataOf(object, "note");
}

class XmlHostileTest : public testing::TestWithParam<EXmlMode> {};

INSTANTIATE_TEST_SUITE_P(Modes, XmlHostileTest,
                         testing::Values(kXmlAttributes, kXmlElements, kXmlTypedElements));

TEST_P(XmlHostileTest, DocumentTruncatedAtEveryByte) {
    const std::string sample = Sample(GetParam());
    ASSERT_GT(sample.size(), 2000u);
    ASSERT_TRUE(IsTaken(sample, GetParam()));
    const std::size_t end = sample.rfind("</Root>") + 7;
    for (std::size_t length = 0; length < end; ++length) {
        ASSERT_FALSE(IsTaken(sample.substr(0, length), GetParam())) << length;
    }
}

TEST_P(XmlHostileTest, OneBitFlippedAtATime) {
    const std::string sample = Sample(GetParam());
    for (std::size_t at = 0; at < sample.size(); ++at) {
        for (int bit = 0; bit < 8; ++bit) {
            std::string flipped = sample;
            flipped[at] = static_cast<char>(static_cast<unsigned char>(flipped[at]) ^ (1u << bit));
            ParseAndRead(flipped, GetParam());
        }
    }
}

TEST(XmlHostileTest, DocumentTypesAreRefused) {
    EXPECT_FALSE(IsTaken("<!DOCTYPE Root><Root/>"));
    EXPECT_FALSE(IsTaken("<!DOCTYPE Root [<!ENTITY a 'b'>]><Root>&a;</Root>"));
    EXPECT_FALSE(IsTaken("<Root><!DOCTYPE Root></Root>"));
    EXPECT_FALSE(IsTaken("<Root/><!ENTITY a 'b'>"));
    EXPECT_TRUE(IsTaken("<!-- <!DOCTYPE Root> --><Root><![CDATA[<!DOCTYPE Root>]]></Root>"));
}

TEST(XmlHostileTest, DepthSixtyFourIsTakenAndSixtyFiveIsNot) {
    const auto nested = [](int depth) {
        return "<Root>" + Repeated("<a>", depth - 1) + Repeated("</a>", depth - 1) + "</Root>";
    };
    EXPECT_TRUE(IsTaken(nested(64)));
    EXPECT_FALSE(IsTaken(nested(65)));
    EXPECT_FALSE(IsTaken("<Root>" + Repeated("<a>", 1000000)));
}

TEST(XmlHostileTest, DuplicatesOfAKey) {
    EXPECT_FALSE(IsTaken("<Root>" + Repeated("<a>1</a>", 200000) + "</Root>"));
    EXPECT_FALSE(IsTaken("<Root" + Repeated(" a='1'", 200000) + "/>"));
    EXPECT_FALSE(IsTaken("<Root a='1' a='2'/>"));
    CXmlDataObject object("Root", kXmlElements);
    const std::string text = "<Root>" + Repeated("<a>1</a><b>2</b>", 49999) + "</Root>";
    ASSERT_TRUE(object.Parse(text.data(), static_cast<int>(text.size())));
    EXPECT_EQ(IntOf(object, "a"), 1);
    EXPECT_TRUE(object.WriteInt("a", 7)); // a key stands once
    EXPECT_EQ(IntOf(object, "a"), 7);
    object.Remove("a");
    EXPECT_FALSE(object.Exists("a"));
    EXPECT_EQ(IntOf(object, "b"), 2);
    object.Remove("b");
    EXPECT_FALSE(object.Exists("b"));
}

TEST(XmlHostileTest, ElementsUpToTheLimit) {
    EXPECT_TRUE(IsTaken("<Root>" + Repeated("<a/>", kMaximumElements - 1) + "</Root>"));
    EXPECT_FALSE(IsTaken("<Root>" + Repeated("<a/>", kMaximumElements) + "</Root>"));
    EXPECT_FALSE(IsTaken("<Root>" + Repeated("<!---->", kMaximumElements + 1) + "</Root>"));
}

TEST(XmlHostileTest, AttributesUpToTheLimit) {
    std::string attributes;
    for (int i = 0; i < kMaximumAttributes; ++i) {
        attributes += " a" + std::to_string(i) + "=''";
    }
    EXPECT_TRUE(IsTaken("<Root" + attributes + "/>"));
    EXPECT_FALSE(IsTaken("<Root" + attributes + " b=''/>"));
}

TEST(XmlHostileTest, TextsUpToTheLimit) {
    const std::string most(kMaximumTextBytes, 'x');
    EXPECT_TRUE(IsTaken("<Root a='" + most + "'>" + most + "<![CDATA[" + most + "]]></Root>"));
    EXPECT_FALSE(IsTaken("<Root a='" + most + "x'/>"));
    EXPECT_FALSE(IsTaken("<Root>" + most + "x</Root>"));
    EXPECT_FALSE(IsTaken("<Root><![CDATA[" + most + "x]]></Root>"));
    EXPECT_FALSE(IsTaken("<Root>" + Repeated("&#x10FFFF;", kMaximumTextBytes / 2) + "</Root>"));
    EXPECT_FALSE(IsTaken("<Root>" + std::string(15 * 1024 * 1024, '&') + "</Root>"));
}

TEST(XmlHostileTest, DocumentOfSeventeenMegabytes) {
    const std::string text =
        "<Root>" + Repeated("<a>" + std::string(1024 * 1024, 'x') + "</a>", 17) + "</Root>";
    EXPECT_FALSE(IsTaken(text));
    EXPECT_TRUE(IsTaken("<Root>" + Repeated("<a>" + std::string(1000 * 1024, 'x') + "</a>", 16) +
                        "</Root>"));
    const std::string path = testing::TempDir() + "XmlHostileTest.xml";
    std::ofstream(path) << text;
    CXmlDataObject object("Root", kXmlElements);
    EXPECT_FALSE(object.LoadFile(path.c_str()));
    std::remove(path.c_str());
}

TEST(XmlHostileTest, WrongEncodingsAreRefused) {
    EXPECT_TRUE(IsTaken("\xef\xbb\xbf<Root/>"));
    EXPECT_TRUE(IsTaken("<Root a='gr\xc3\xbcn'/>"));
    EXPECT_FALSE(IsTaken("<Root a='gr\xfcn'/>"));                   // Latin-1
    EXPECT_FALSE(IsTaken(std::string("\xff\xfe<\0R\0/\0>\0", 10))); // UTF-16
    EXPECT_FALSE(IsTaken(std::string("<Root/>\0", 8)));             // a zero byte
    EXPECT_FALSE(IsTaken("<Root a='\xed\xa0\x80'/>"));              // a surrogate
    EXPECT_FALSE(IsTaken("<Root a='\x01'/>"));
}

TEST(XmlHostileTest, ReferencesToWhatNoDocumentHoldsAreRefused) {
    EXPECT_TRUE(IsTaken("<Root a='&amp;&lt;&gt;&quot;&apos;'>&#9;&#x10FFFF;&#xe4;</Root>"));
    for (const char* text : {"&#0;", "&#20;", "&#x14;", "&#xD800;", "&#xFFFE;", "&#x110000;",
                             "&#99999999999999999999;", "&;", "&", "&#;", "&#x;", "&#-9;", "&nbsp;",
                             "&amp", "&#x9", "& "}) {
        EXPECT_FALSE(IsTaken(std::string("<Root>") + text + "</Root>")) << text;
        EXPECT_FALSE(IsTaken(std::string("<Root a='") + text + "'/>")) << text;
    }
}

TEST(XmlHostileTest, WhatIsNoDocumentIsRefused) {
    for (const char* text : {"",
                             " ",
                             "Root",
                             "<Root>",
                             "</Root>",
                             "<Root/><Root/>",
                             "<Root></Boot>",
                             "x<Root/>",
                             "<Root/>x",
                             "<Root a/>",
                             "<Root a=1/>",
                             "<Root a='1'b='2'/>",
                             "<Root a='1/>",
                             "<Root",
                             "<Root/",
                             "<>",
                             "< Root/>",
                             "<Root><a></Root></a>",
                             "<Root><!-- </Root>",
                             "<?xml",
                             "<Root a='<'/>",
                             "<Root>]]></Root",
                             "<root/>",
                             "<Root></Root x>",
                             "<![CDATA[x]]><Root/>"}) {
        EXPECT_FALSE(IsTaken(text)) << text;
    }
    CXmlDataObject object("Root", kXmlAttributes);
    EXPECT_FALSE(object.Parse(nullptr, 0));
    EXPECT_FALSE(object.Parse(nullptr, 5));
    EXPECT_FALSE(object.Parse("<Root/>", -1));
}

TEST(XmlHostileTest, LongRunsCostNoMoreThanTheirLength) {
    const int megabytes = 15 * 1024 * 1024;
    EXPECT_FALSE(IsTaken(std::string(megabytes, '<')));
    EXPECT_FALSE(IsTaken("<Root " + std::string(megabytes, 'a')));
    EXPECT_FALSE(IsTaken("<Root>" + Repeated("<!--", megabytes / 4)));
    EXPECT_FALSE(IsTaken("<Root a='" + Repeated("&amp", megabytes / 4)));
    EXPECT_TRUE(IsTaken("<Root" + std::string(megabytes, ' ') + "/>"));
}

TEST(XmlHostileTest, HugeCountWithoutItemsIsRefused) {
    for (const char* count : {"-1", "2147483647", "1000001", "99999999999999999999", "1"}) {
        CXmlDataObject object("Root", kXmlAttributes);
        object.WriteString("ItemsCount", count);
        CMemDataObject memory;
        EXPECT_FALSE(memory.DeSerialize(object)) << count;
    }
}

TEST(XmlHostileTest, ScanAgreesOnNames) {
    EXPECT_TRUE(IsAcceptableXml("<a:b-c.d_1/>", 12));
    EXPECT_FALSE(IsAcceptableXml("<1a/>", 5));
    EXPECT_FALSE(IsAcceptableXml("<\xc3\x97/>", 5)); // a multiplication sign is no letter
}

} // namespace
