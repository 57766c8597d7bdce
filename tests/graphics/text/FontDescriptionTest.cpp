#include "graphics/text/FontDescription.h"

#include "core/Command.h"

#include <limits>

#include <gtest/gtest.h>

namespace Vorin::Graphics {
namespace {

class FontDescriptionTest : public ::testing::Test {
protected:
    FontDescriptionTest() { font.GetChangedEvent().Connect(command); }
    ~FontDescriptionTest() override { font.GetChangedEvent().Disconnect(command); }

    int TakeChanges() {
        const int taken = changes;
        changes = 0;
        return taken;
    }
    void OnChanged() { ++changes; }

    CFontDescription font;
    int changes = 0;
    Core::TCommand<FontDescriptionTest> command{this, &FontDescriptionTest::OnChanged};
};

TEST_F(FontDescriptionTest, AChangeEventFollowesEachSetterThatChangesSomething) {
    font.SetFace("A");
    font.SetWidth(1);
    font.SetHeight(2);
    font.SetQuality(3);
    font.SetWeight(700);
    font.SetItalic(true);
    font.SetUnderline(true);
    font.SetStrikeOut(true);
    font.SetEscapement(45.0F);
    EXPECT_EQ(TakeChanges(), 9);
    font.SetFace("A");
    font.SetWidth(1);
    font.SetHeight(2);
    font.SetQuality(3);
    font.SetWeight(700);
    font.SetItalic(true);
    font.SetUnderline(true);
    font.SetStrikeOut(true);
    font.SetEscapement(45.0F);
    EXPECT_EQ(TakeChanges(), 0);
    EXPECT_STREQ(font.GetFace(), "A");
    EXPECT_EQ(font.GetWidth(), 1);
    EXPECT_EQ(font.GetHeight(), 2);
    EXPECT_EQ(font.GetQuality(), 3);
    EXPECT_EQ(font.GetWeight(), 700);
    EXPECT_TRUE(font.IsItalic());
    EXPECT_TRUE(font.IsUnderline());
    EXPECT_TRUE(font.IsStrikeOut());
    EXPECT_EQ(font.GetEscapement(), 45.0F);
}

TEST_F(FontDescriptionTest, NullIsTheEmptyFaceAndAFaceMayBeSetFromItself) {
    font.SetFace("DejaVu Sans");
    font.SetFace(font.GetFace() + 7);
    EXPECT_STREQ(font.GetFace(), "Sans");
    font.SetFace(nullptr);
    EXPECT_STREQ(font.GetFace(), "");
}

TEST_F(FontDescriptionTest, NaNIsNoEscapement) {
    font.SetEscapement(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(font.GetEscapement(), 0.0F);
    EXPECT_EQ(TakeChanges(), 0);
}

TEST(FontValuesTest, DescriptionsAreEqualWhenAllFieldsAreAndHashAlike) {
    std::vector<CFontValues> all(10);
    all[1].face = "A";
    all[2].width = 1;
    all[3].height = 1;
    all[4].quality = 1;
    all[5].weight = 700;
    all[6].italic = true;
    all[7].underline = true;
    all[8].strikeOut = true;
    all[9].escapement = 1.0F;
    const CFontValuesHash hash;
    for (std::size_t i = 0; i < all.size(); ++i) {
        for (std::size_t j = 0; j < all.size(); ++j) {
            EXPECT_EQ(all[i] == all[j], i == j);
            EXPECT_EQ(hash(all[i]) == hash(all[j]), i == j) << i << ' ' << j;
        }
    }
    CFontValues negativeZero;
    negativeZero.escapement = -0.0F;
    EXPECT_EQ(negativeZero, CFontValues());
    EXPECT_EQ(hash(negativeZero), hash(CFontValues()));
}

} // namespace
} // namespace Vorin::Graphics
