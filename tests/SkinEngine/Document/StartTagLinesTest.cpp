#include "SkinEngine/Document/StartTagLines.h"

#include <gtest/gtest.h>

namespace DocumentTests {
namespace {

using Vorin::AppEngine::CStartTagLines;

TEST(StartTagLinesTest, AreThoseWhereATagBegins) {
    CStartTagLines lines("<?xml version=\"1.0\"?>\n<a>\n<b\n x=\"1\"\n y='>'/><c/></a>\n");
    EXPECT_EQ(lines.Next(), 2);
    EXPECT_EQ(lines.Next(), 3);
    EXPECT_EQ(lines.Next(), 5);
    EXPECT_EQ(lines.Next(), 0);
    EXPECT_EQ(lines.Next(), 0);
}

TEST(StartTagLinesTest, DoNotCountWhatOnlyLooksLikeATag) {
    CStartTagLines lines("<a><!-- <x>\n--><!--><x>--><![CDATA[<x>\n]]><? <x> \n?>\n<b/></a>");
    EXPECT_EQ(lines.Next(), 1);
    EXPECT_EQ(lines.Next(), 5);
    EXPECT_EQ(lines.Next(), 0);
}

TEST(StartTagLinesTest, EndAsAnySystemEndsThem) {
    CStartTagLines lines("<a>\r\n<b/>\r<c/>\n\r<d/></a>");
    EXPECT_EQ(lines.Next(), 1);
    EXPECT_EQ(lines.Next(), 2);
    EXPECT_EQ(lines.Next(), 3);
    EXPECT_EQ(lines.Next(), 5);
}

TEST(StartTagLinesTest, OfBrokenOrWideTextAreNone) {
    for (const std::string_view text :
         {std::string_view(""), std::string_view("<!-- <x>"), std::string_view("<![CDATA[<x>"),
          std::string_view("<?<x>"), std::string_view("</x"), std::string_view("<\0a\0>\0", 6)}) {
        EXPECT_EQ(CStartTagLines(text).Next(), 0) << text;
    }
}

} // namespace
} // namespace DocumentTests
