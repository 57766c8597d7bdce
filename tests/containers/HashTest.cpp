#include "containers/Hash.h"

#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Containers;

TEST(HashTest, EmptyTextGivesZero) { EXPECT_EQ(GetTextHash(""), 0u); }

TEST(HashTest, EachByteIsAddedToFiveTimesTheHash) {
    EXPECT_EQ(GetTextHash("a"), 97u);
    EXPECT_EQ(GetTextHash("ab"), 97u * 5u + 98u);
    EXPECT_EQ(GetTextHash("abc"), (97u * 5u + 98u) * 5u + 99u);
}

TEST(HashTest, BytesCountAsSignedCharacters) {
    EXPECT_EQ(GetTextHash("\xff"), 0xffffffffu);                 // -1
    EXPECT_EQ(GetTextHash("a\x80"), 97u * 5u - 128u);            // 485 - 128
    EXPECT_EQ(GetTextHash("\x80"), static_cast<unsigned>(-128)); // wraps
}

TEST(HashTest, LongTextsWrapAround) {
    // With all bytes 1 the hash is (5^n - 1) / 4; for n = 20 that is 23841857910156.
    const std::string text(20, '\1');
    EXPECT_EQ(GetTextHash(text.c_str()), static_cast<std::uint32_t>(23841857910156ull));
    const std::string hostile(100000, '\x7f');
    EXPECT_NE(GetTextHash(hostile.c_str()), GetTextHash((hostile + '\x7f').c_str()));
}

} // namespace
