#pragma once

namespace Vorin::Serialization {

/// What a document of strangers may hold at most. A document over a limit is refused as a whole;
/// what would not be read back is not written either.
inline constexpr int kMaximumDocumentBytes = 16 * 1024 * 1024;
inline constexpr int kMaximumDepth = 64; // the root is 1
inline constexpr int kMaximumElements = 100'000;
inline constexpr int kMaximumAttributes = 256; // of one element
inline constexpr int kMaximumTextBytes = 1024 * 1024;

/// The most items that a reader of a counted list takes: a count alone proves nothing.
inline constexpr int kMaximumItems = 1'000'000;

} // namespace Vorin::Serialization
