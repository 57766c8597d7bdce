#include "vst/interface/HostText.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

namespace VorinExt::VSTPlugin {
namespace {

/// An array of 8 bytes among others that nobody may touch.
struct CGuarded {
    std::array<char, 4> before{'#', '#', '#', '#'};
    std::array<char, 8> text{'?', '?', '?', '?', '?', '?', '?', '?'};
    std::array<char, 4> behind{'#', '#', '#', '#'};

    bool AreNeighboursWhole() const {
        const std::array<char, 4> whole{'#', '#', '#', '#'};
        return before == whole && behind == whole;
    }
};

TEST(HostTextTest, IsEmptyAtFirst) {
    CGuarded array;
    const CHostText text(array.text.data(), 8);
    EXPECT_STREQ(array.text.data(), "");
    EXPECT_EQ(text.GetLength(), 0);
    EXPECT_EQ(text.GetMaxLength(), 7);
}

TEST(HostTextTest, ATextThatFitsStandsWhole) {
    CGuarded array;
    CHostText text(array.text.data(), 8);
    text.Set("1234567");
    EXPECT_STREQ(array.text.data(), "1234567");
    text.Set("12");
    EXPECT_STREQ(array.text.data(), "12");
    EXPECT_EQ(text.GetLength(), 2);
    EXPECT_TRUE(array.AreNeighboursWhole());
}

TEST(HostTextTest, ATextThatIsTooLongIsCutAndEnded) {
    CGuarded array;
    CHostText text(array.text.data(), 8);
    text.Set("12345678");
    EXPECT_STREQ(array.text.data(), "1234567");
    text.Set(std::string(10000, 'x').c_str());
    EXPECT_STREQ(array.text.data(), "xxxxxxx");
    EXPECT_TRUE(array.AreNeighboursWhole());
}

TEST(HostTextTest, AppendGoesOnAndIsCutAtTheSameEnd) {
    CGuarded array;
    CHostText text(array.text.data(), 8);
    text.Set("OUT:");
    text.Append("Level");
    EXPECT_STREQ(array.text.data(), "OUT:Lev");
    text.Append("more");
    EXPECT_STREQ(array.text.data(), "OUT:Lev");
    text.Append(nullptr);
    EXPECT_EQ(text.GetLength(), 7);
    EXPECT_TRUE(array.AreNeighboursWhole());
}

TEST(HostTextTest, NullIsTheEmptyText) {
    CGuarded array;
    CHostText text(array.text.data(), 8);
    text.Set("12");
    text.Set(nullptr);
    EXPECT_STREQ(array.text.data(), "");
}

TEST(HostTextTest, AnArrayOfOneByteTakesTheEnd) {
    CGuarded array;
    CHostText text(array.text.data() + 1, 1);
    text.Set("12");
    EXPECT_EQ(array.text[0], '?');
    EXPECT_EQ(array.text[1], '\0');
    EXPECT_EQ(array.text[2], '?');
}

TEST(HostTextTest, WithoutAnArrayNothingIsWritten) {
    CGuarded array;
    for (const VstInt32 size : {0, -1, -2147483647 - 1}) {
        CHostText text(array.text.data(), size);
        text.Set("12");
        EXPECT_EQ(array.text[0], '?');
        EXPECT_EQ(text.GetMaxLength(), 0);
    }
    CHostText text(nullptr, 8);
    text.Set("12");
    text.Append("34");
    EXPECT_EQ(text.GetLength(), 0);
    EXPECT_EQ(text.GetMaxLength(), 0);
}

} // namespace
} // namespace VorinExt::VSTPlugin
