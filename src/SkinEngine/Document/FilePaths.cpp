#include "SkinEngine/Document/FilePaths.h"

#include <filesystem>

namespace Vorin::AppEngine {

std::string NormalizePath(const std::string& path) {
    return std::filesystem::path(path).lexically_normal().string();
}

std::string GetFolder(const std::string& path) {
    // Also without a "/", where `rfind` gives -1.
    return path.substr(0, path.rfind('/') + 1);
}

std::string GetRelativePath(const std::string& path, const std::string& folder) {
    const std::string relative =
        folder.empty() ? path : std::filesystem::path(path).lexically_relative(folder).string();
    return relative.empty() ? path : relative;
}

std::optional<std::string> ResolveFilePath(const Containers::IConstNamedAttributes& attributes,
                                           const char* name, const char* baseDirectory) {
    const char* value = attributes.GetValue(name);
    if (!value) {
        return std::nullopt;
    }
    return NormalizePath((std::filesystem::path(baseDirectory) / value).string());
}

} // namespace Vorin::AppEngine
