#pragma once

#include "containers/NamedAttributes.h"

#include <optional>
#include <string>

namespace Vorin::AppEngine {

/// A path without "." , ".." and doubled separators, as far as the text alone can tell. The empty
/// path stays empty.
std::string NormalizePath(const std::string& path);

/// The text up to and including the last "/".
std::string GetFolder(const std::string& path);

/// A path as seen from a folder, as far as the text alone can tell; else the path itself.
std::string GetRelativePath(const std::string& path, const std::string& folder);

/// The attribute as a path: relative to the folder `baseDirectory`, which ends in "/" or is empty,
/// and normalized. Nothing when there is no such attribute. Every file that a skin names is
/// resolved so, against `CSkinParser::GetRootFilePath`: the folder of the root document, not that
/// of an included one.
std::optional<std::string> ResolveFilePath(const Containers::IConstNamedAttributes& attributes,
                                           const char* name, const char* baseDirectory);

} // namespace Vorin::AppEngine
