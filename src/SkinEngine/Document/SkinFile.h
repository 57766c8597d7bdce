#pragma once

#include <string>

namespace Vorin::AppEngine {

/// Reads a whole file of a skin into `content`. Only regular files of at most
/// `SkinLimits::kFileBytes` are read: a pipe would not end. On failure `problem` tells what is
/// wrong, to stand behind the path.
bool ReadSkinFile(const std::string& path, std::string& content, std::string& problem);

} // namespace Vorin::AppEngine
