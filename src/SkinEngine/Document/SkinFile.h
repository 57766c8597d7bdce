#pragma once

#include <string>
#include <string_view>

namespace Vorin::AppEngine {

/// Reads a whole file of a skin into `content`. Only regular files of at most
/// `SkinLimits::kFileBytes` are read: a pipe would not end. On failure `problem` tells what is
/// wrong, to stand behind the path.
bool ReadSkinFile(const std::string& path, std::string& content, std::string& problem);

/// The line, counted from 1, of the first byte that is no UTF-8 or is NUL, and what is wrong with
/// it; 0 when there is none, or when the text is in an encoding of its own. The XML reader reads
/// ahead so far that it cannot tell the line of the one, and takes the other for the end of the
/// file.
int FindInvalidByte(std::string_view text, const char*& problem);

} // namespace Vorin::AppEngine
