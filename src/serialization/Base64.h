#pragma once

#include "containers/CharString.h"

namespace Vorin::Serialization {

/// Bytes as text: the standard alphabet, with "=" padding, in one line.
struct Base64 {
    /// No bytes give the empty text. `data` may be null when `size` is 0 or less.
    static Containers::CCharString Encode(const void* data, int size);

    /// False unless the whole text is what `Encode` writes: its length a multiple of 4, nothing but
    /// the alphabet, padding at the end alone, and the bits that the padding leaves over 0. Then
    /// `data` is a new array of `size` bytes that the caller frees with `delete[]`; null for none.
    static bool Decode(const char* text, char*& data, int& size);
};

} // namespace Vorin::Serialization
