#pragma once

#include <string>

namespace Vorin::Serialization {

/// The whole of a regular file of at most `kMaximumDocumentBytes`. False, and `content` as it was,
/// for anything else: a pipe or a device would not end.
bool ReadTextFile(const char* path, std::string& content);

/// Replaces the file by `content`, as a whole or not at all, as FileReplacement does.
bool WriteTextFile(const char* path, const std::string& content);

} // namespace Vorin::Serialization
