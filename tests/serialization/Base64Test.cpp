#include "serialization/Base64.h"

#include <memory>
#include <optional>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace {

using namespace Vorin::Serialization;

std::string Encoded(const std::string& bytes) {
    return Base64::Encode(bytes.data(), static_cast<int>(bytes.size())).Get();
}

std::optional<std::string> Decoded(const char* text) {
    char* data = nullptr;
    int size = 0;
    if (!Base64::Decode(text, data, size)) {
        return std::nullopt;
    }
    const std::unique_ptr<char[]> owned(data);
    return std::string(data ? data : "", static_cast<std::size_t>(size));
}

TEST(Base64Test, EncodesTheVectorsOfRfc4648) {
    EXPECT_EQ(Encoded(""), "");
    EXPECT_EQ(Encoded("f"), "Zg==");
    EXPECT_EQ(Encoded("fo"), "Zm8=");
    EXPECT_EQ(Encoded("foo"), "Zm9v");
    EXPECT_EQ(Encoded("foob"), "Zm9vYg==");
    EXPECT_EQ(Encoded("fooba"), "Zm9vYmE=");
    EXPECT_EQ(Encoded("foobar"), "Zm9vYmFy");
    EXPECT_EQ(Encoded("\xfb\xff\xbf"), "+/+/"); // the two signs of the standard alphabet
}

TEST(Base64Test, EveryLengthComesBack) {
    std::mt19937 random(1);
    for (std::size_t length = 0; length < 400; ++length) {
        std::string bytes(length, '\0');
        for (char& byte : bytes) {
            byte = static_cast<char>(static_cast<unsigned char>(random() & 255));
        }
        ASSERT_EQ(Decoded(Encoded(bytes).c_str()), bytes) << length;
    }
    const std::string large(1000001, '\x7f');
    EXPECT_EQ(Decoded(Encoded(large).c_str()), large);
}

TEST(Base64Test, NoBytesDecodeToNull) {
    char* data = reinterpret_cast<char*>(1);
    int size = 1;
    EXPECT_TRUE(Base64::Decode("", data, size));
    EXPECT_EQ(data, nullptr);
    EXPECT_EQ(size, 0);
    EXPECT_STREQ(Base64::Encode(nullptr, 0).Get(), "");
    EXPECT_STREQ(Base64::Encode("x", -1).Get(), "");
}

TEST(Base64Test, WrongLengthIsRefused) {
    for (const char* text : {"Z", "Zg", "Zg=", "Zm9vY", "Zm9vYg=", "="}) {
        EXPECT_EQ(Decoded(text), std::nullopt) << text;
    }
    EXPECT_EQ(Decoded(nullptr), std::nullopt);
}

TEST(Base64Test, WrongCharactersAreRefused) {
    for (const char* text : {"Zm9*", "Zm 9", "Zm9\n", "====", "Z===", "=m9v", "Zg==Zm9v", "Zg=v",
                             "Zm9v\xc3\xa4\xc3\xa4", "-_-_", "Zm9v    "}) {
        EXPECT_EQ(Decoded(text), std::nullopt) << text;
    }
}

TEST(Base64Test, BitsLeftOverByThePaddingAreRefused) {
    EXPECT_EQ(Decoded("Zg=="), "f");
    EXPECT_EQ(Decoded("Zh=="), std::nullopt);
    EXPECT_EQ(Decoded("Zm8="), "fo");
    EXPECT_EQ(Decoded("Zm9="), std::nullopt);
}

TEST(Base64Test, RefusalLeavesTheResultAlone) {
    char kept = 'k';
    char* data = &kept;
    int size = 7;
    EXPECT_FALSE(Base64::Decode("Zm9vZm9*", data, size));
    EXPECT_EQ(data, &kept);
    EXPECT_EQ(size, 7);
}

} // namespace
