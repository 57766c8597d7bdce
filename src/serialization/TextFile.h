#pragma once

#include <string>

namespace Vorin::Serialization {

/// The whole of a regular file of at most `kMaximumDocumentBytes`. False, and `content` as it was,
/// for anything else: a pipe or a device would not end.
bool ReadTextFile(const char* path, std::string& content);

/// Replaces the file by `content`, opened with the mode "w".
bool WriteTextFile(const char* path, const std::string& content);

} // namespace Vorin::Serialization
