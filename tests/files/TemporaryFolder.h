#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace TestFiles {

/// A folder of a test's own that is gone, with all that is in it, once the test is.
class CTemporaryFolder {
public:
    CTemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "ondara-XXXXXX").string();
        if (!mkdtemp(name.data())) {
            throw std::runtime_error("no temporary folder can be made: " + name);
        }
        path = name;
        // A run under another user has to get in.
        std::filesystem::permissions(path, std::filesystem::perms(0755));
    }
    CTemporaryFolder(const CTemporaryFolder&) = delete;
    CTemporaryFolder& operator=(const CTemporaryFolder&) = delete;
    ~CTemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }

    const std::string& GetPath() const { return path.native(); }

    std::string Path(const std::string& name) const { return (path / name).string(); }

    /// The path of what was written.
    std::string Write(const std::string& name, std::string_view bytes) const {
        std::ofstream file(path / name, std::ios::binary);
        file << bytes;
        if (!file.flush()) {
            throw std::runtime_error("cannot be written: " + Path(name));
        }
        return Path(name);
    }

    std::string Read(const std::string& name) const {
        std::ifstream file(path / name, std::ios::binary);
        if (!file) {
            throw std::runtime_error("cannot be read: " + Path(name));
        }
        std::ostringstream bytes;
        bytes << file.rdbuf();
        return bytes.str();
    }

    bool Has(const std::string& name) const { return std::filesystem::exists(path / name); }

    /// Everything in it: the path of each file with its bytes, of each folder with "/".
    std::map<std::string, std::string> List() const {
        std::map<std::string, std::string> found;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(path)) {
            const std::string name = std::filesystem::relative(entry.path(), path).string();
            found[name] = entry.is_regular_file() ? Read(name) : "/";
        }
        return found;
    }

private:
    std::filesystem::path path;
};

} // namespace TestFiles
