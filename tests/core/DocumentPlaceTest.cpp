#include "core/DocumentPlace.h"

#include <gtest/gtest.h>

namespace {

using Vorin::Core::CDocumentPlace;

std::shared_ptr<const std::string> FileNamed(const char* name) {
    return std::make_shared<const std::string>(name);
}

TEST(DocumentPlaceTest, IsNowhereAtFirst) {
    const CDocumentPlace place;
    EXPECT_TRUE(place.IsNowhere());
    EXPECT_STREQ(place.GetFile(), "");
    EXPECT_EQ(place.GetLine(), 0);
    EXPECT_FALSE(place.HasOrigin());
}

TEST(DocumentPlaceTest, OfATemplateIsTheCallWithTheTemplateBehind) {
    const CDocumentPlace own(FileNamed("lib.xml"), 3);
    const CDocumentPlace called = own.CalledFrom(CDocumentPlace(FileNamed("main.xml"), 8));
    EXPECT_STREQ(called.GetFile(), "main.xml");
    EXPECT_EQ(called.GetLine(), 8);
    ASSERT_TRUE(called.HasOrigin());
    EXPECT_STREQ(called.GetOriginFile(), "lib.xml");
    EXPECT_EQ(called.GetOriginLine(), 3);
    const CDocumentPlace again = called.CalledFrom(CDocumentPlace(FileNamed("skin.xml"), 9));
    EXPECT_EQ(again.GetLine(), 9);
    EXPECT_EQ(again.GetOriginLine(), 3);
}

} // namespace
