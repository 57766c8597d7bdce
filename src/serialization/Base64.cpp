#include "serialization/Base64.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>

namespace Vorin::Serialization {

namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::uint8_t kNoDigit = 64;

constexpr std::array<std::uint8_t, 256> MakeDigits() {
    std::array<std::uint8_t, 256> digits{};
    digits.fill(kNoDigit);
    for (std::uint8_t digit = 0; digit < 64; ++digit) {
        digits[static_cast<unsigned char>(kAlphabet[digit])] = digit;
    }
    return digits;
}

constexpr std::array<std::uint8_t, 256> kDigits = MakeDigits();

std::uint32_t DigitOf(char c) { return kDigits[static_cast<unsigned char>(c)]; }

/// One to three bytes as four characters.
void EncodeGroup(const unsigned char* bytes, std::size_t count, char* target) {
    const std::uint32_t group = std::uint32_t{bytes[0]} << 16 |
                                (count > 1 ? std::uint32_t{bytes[1]} << 8 : 0) |
                                (count > 2 ? std::uint32_t{bytes[2]} : 0);
    target[0] = kAlphabet[group >> 18];
    target[1] = kAlphabet[group >> 12 & 63];
    target[2] = count > 1 ? kAlphabet[group >> 6 & 63] : '=';
    target[3] = count > 2 ? kAlphabet[group & 63] : '=';
}

/// Four characters as `count` bytes, 1 to 3.
bool DecodeGroup(const char* text, std::size_t count, char* target) {
    std::uint32_t group = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        const std::uint32_t digit = i <= count ? DigitOf(text[i]) : 0;
        if (digit == kNoDigit) {
            return false;
        }
        group = group << 6 | digit;
    }
    for (std::size_t i = 0; i < 3; ++i) {
        const std::uint32_t byte = group >> (16 - 8 * i) & 255;
        if (i < count) {
            target[i] = static_cast<char>(static_cast<unsigned char>(byte));
        } else if (byte != 0) {
            return false;
        }
    }
    return true;
}

} // namespace

Containers::CCharString Base64::Encode(const void* data, int size) {
    Containers::CCharString result;
    const auto* bytes = static_cast<const unsigned char*>(data);
    std::size_t left = bytes && size > 0 ? static_cast<std::size_t>(size) : 0;
    std::array<char, 4096> chunk;
    while (left > 0) {
        std::size_t used = 0;
        while (left > 0 && used < chunk.size()) {
            const std::size_t count = left < 3 ? left : 3;
            EncodeGroup(bytes, count, chunk.data() + used);
            bytes += count;
            left -= count;
            used += 4;
        }
        result.Append(chunk.data(), static_cast<int>(used));
    }
    return result;
}

bool Base64::Decode(const char* text, char*& data, int& size) {
    const std::size_t length = text ? std::strlen(text) : 1;
    if (length % 4 != 0 || length / 4 * 3 > std::size_t{std::numeric_limits<int>::max()}) {
        return false;
    }
    if (length == 0) {
        data = nullptr;
        size = 0;
        return true;
    }
    const std::size_t padding = text[length - 1] != '=' ? 0 : text[length - 2] != '=' ? 1 : 2;
    const std::size_t count = length / 4 * 3 - padding;
    std::unique_ptr<char[]> bytes(new char[count]);
    for (std::size_t done = 0; done < count; done += 3, text += 4) {
        if (!DecodeGroup(text, count - done < 3 ? count - done : 3, bytes.get() + done)) {
            return false;
        }
    }
    data = bytes.release();
    size = static_cast<int>(count);
    return true;
}

} // namespace Vorin::Serialization
