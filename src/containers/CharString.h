#pragma once

#include "containers/DynamicVector.h"

namespace Vorin::Containers {

/// An owning text of bytes, ended by a zero byte: what all text is held in.
///
/// Copied on assignment. Never holds a zero byte inside, so `GetLength` is what `strlen` of `Get`
/// gives. A null text counts as empty. Texts handed in may point into this string. A text that
/// would not fit an `int` is not taken: the string stays as it was.
class CCharString {
public:
    CCharString() = default;
    CCharString(const char* text) { *this = text; }
    CCharString(const CCharString&) = default;
    CCharString(CCharString&&) noexcept = default;
    CCharString& operator=(const CCharString&) = default;
    CCharString& operator=(CCharString&&) noexcept = default;
    CCharString& operator=(const char* text);

    /// The text, never null. Valid until the next change.
    const char* Get() const { return bytes.GetSize() > 0 ? bytes.GetData() : ""; }
    const char* c_str() const { return Get(); }

    /// In bytes, without the final zero.
    int GetLength() const { return bytes.GetSize() > 0 ? bytes.GetSize() - 1 : 0; }
    bool IsEmpty() const { return GetLength() == 0; }

    /// The bytes allocated, final zero included.
    int GetCapacity() const { return bytes.GetCapacity(); }

    void Append(const char* text);

    /// Appends at most `length` bytes, up to the first zero byte.
    void Append(const char* text, int length);
    void Append(char character) { Append(&character, 1); }

    /// Keeps the memory for the next text.
    void Clear();

    friend bool operator==(const CCharString& a, const CCharString& b) { return a == b.Get(); }
    friend bool operator==(const CCharString& a, const char* b);

private:
    TDynamicVector<char, CExpGrowthStrategy, TMemoryCopier<char>> bytes;
};

} // namespace Vorin::Containers
