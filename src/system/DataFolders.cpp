#include "system/DataFolders.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include <dlfcn.h>
#include <link.h>
#include <pwd.h>
#include <unistd.h>

namespace Vorin::System {

namespace {

using Containers::CCharString;
using Path = std::filesystem::path;

constexpr char kProgramLink[] = "/proc/self/exe";
constexpr std::size_t kMostPasswordBytes = 1 << 20;

bool IsEmpty(const char* text) { return !text || !*text; }

bool IsFolder(const Path& path) {
    std::error_code error;
    return std::filesystem::is_directory(path, error);
}

CCharString TextOf(const Path& path) { return path.c_str(); }

/// A folder from the environment; what is not absolute is not meant, as the desktop's rules say.
Path FolderFromEnvironment(const char* name) {
    const char* text = std::getenv(name);
    return text && *text == '/' ? Path(text) : Path();
}

Path HomeFromPasswords() {
    std::vector<char> buffer(4096);
    passwd entry{};
    passwd* found = nullptr;
    while (getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &found) == ERANGE &&
           buffer.size() < kMostPasswordBytes) {
        buffer.resize(buffer.size() * 2);
    }
    return found && entry.pw_dir && *entry.pw_dir == '/' ? Path(entry.pw_dir) : Path();
}

Path UserDataFolder() {
    Path folder = FolderFromEnvironment("XDG_DATA_HOME");
    if (!folder.empty()) {
        return folder;
    }
    Path home = FolderFromEnvironment("HOME");
    if (home.empty()) {
        home = HomeFromPasswords();
    }
    return home.empty() ? Path() : home / ".local" / "share";
}

std::vector<Path> SystemDataFolders() {
    const char* text = std::getenv("XDG_DATA_DIRS");
    const std::string all = IsEmpty(text) ? "/usr/local/share:/usr/share" : text;
    std::vector<Path> folders;
    for (std::size_t begin = 0; begin <= all.size();) {
        const std::size_t end = std::min(all.find(':', begin), all.size());
        if (end > begin && all[begin] == '/') {
            folders.emplace_back(all.substr(begin, end - begin));
        }
        begin = end + 1;
    }
    return folders;
}

} // namespace

CCharString DataFolders::GetModuleFile(const void* address) {
    Dl_info info{};
    void* extra = nullptr;
    if (!address || dladdr1(address, &info, &extra, RTLD_DL_LINKMAP) == 0 || !extra) {
        return {};
    }
    // The program itself has no name here; what dladdr says of it is how it was called.
    const char* name = static_cast<const link_map*>(extra)->l_name;
    const Path path(IsEmpty(name) ? kProgramLink : name);
    std::error_code error;
    Path real = std::filesystem::canonical(path, error);
    if (error) { // the file was moved since it was loaded
        real = path.lexically_normal();
    }
    return real.is_absolute() ? TextOf(real) : CCharString();
}

CCharString DataFolders::GetFolderName(const char* moduleFile) {
    const std::string stem = IsEmpty(moduleFile) ? std::string() : Path(moduleFile).stem().string();
    return stem.empty() ? CCharString() : CCharString((stem + " data").c_str());
}

CCharString DataFolders::GetShippedFolder(const char* moduleFile, const char* vendor) {
    const CCharString name = GetFolderName(moduleFile);
    if (name.IsEmpty() || *moduleFile != '/') {
        return {};
    }
    const Path below = Path(vendor ? vendor : "").relative_path() / name.Get();
    const Path folder = Path(moduleFile).parent_path();
    std::vector<Path> places = {folder / name.Get(), folder.parent_path() / "share" / below};
    for (const Path& system : SystemDataFolders()) {
        places.push_back(system / below);
    }
    for (const Path& place : places) {
        if (IsFolder(place)) {
            return TextOf(place);
        }
    }
    return TextOf(places.front());
}

CCharString DataFolders::GetUserFolder(const char* moduleFile, const char* vendor) {
    const CCharString name = GetFolderName(moduleFile);
    const Path folder = UserDataFolder();
    if (name.IsEmpty() || folder.empty()) {
        return {};
    }
    return TextOf(folder / Path(vendor ? vendor : "").relative_path() / name.Get());
}

bool DataFolders::Create(const char* path) {
    if (IsEmpty(path) || *path != '/') {
        return false;
    }
    std::error_code error;
    std::filesystem::create_directories(path, error);
    return IsFolder(path);
}

CCharString DataFolders::Join(const char* folder, const char* name) {
    return IsEmpty(folder) || IsEmpty(name) ? CCharString() : TextOf(Path(folder) / name);
}

} // namespace Vorin::System
