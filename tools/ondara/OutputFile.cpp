#include "OutputFile.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace Workbench {

namespace {

COutcome Failure(const std::string& path, const char* what, int error) {
    return COutcome::BadInput(path + ": " + what + ": " + std::strerror(error));
}

bool WriteAll(int file, const std::string& bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t written = write(file, bytes.data() + done, bytes.size() - done);
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return false;
        }
        done += static_cast<std::size_t>(written);
    }
    return true;
}

/// The file that a name stands for behind its links, which stay as they are.
std::string Resolve(const std::string& path) {
    std::error_code missing;
    const auto real = std::filesystem::canonical(path, missing);
    return missing ? path : real.string();
}

/// A new file beside the one to be written, under a name of its own; it is gone when this dies,
/// unless it has taken the other's place.
class CTemporaryFile {
public:
    explicit CTemporaryFile(const std::string& target)
        : path(std::filesystem::path(target).replace_filename(".ondara-XXXXXX").string()) {
        file = mkstemp(path.data());
        error = errno;
    }
    CTemporaryFile(const CTemporaryFile&) = delete;
    CTemporaryFile& operator=(const CTemporaryFile&) = delete;
    ~CTemporaryFile() {
        if (file >= 0) {
            close(file);
            unlink(path.c_str());
        }
    }

    /// 0, or why there is no file.
    int GetError() const { return file >= 0 ? 0 : error; }

    bool Write(const std::string& bytes) const { return WriteAll(file, bytes); }

    /// Puts it in the target's place, with the rights that a new file gets.
    bool TakePlaceOf(const std::string& target) {
        const mode_t mask = umask(0);
        umask(mask);
        if (fchmod(file, 0666 & ~mask) != 0 || close(file) != 0) {
            error = errno;
            unlink(path.c_str());
            file = -1;
            return false;
        }
        file = -1;
        if (rename(path.c_str(), target.c_str()) != 0) {
            error = errno;
            unlink(path.c_str());
            return false;
        }
        return true;
    }

    int GetRenameError() const { return error; }

private:
    std::string path;
    int file = -1;
    int error = 0;
};

/// A pipe or a device is written as it stands: it can't be replaced, and has no half state to keep.
bool IsSpecial(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode);
}

COutcome WriteSpecial(const std::string& path, const std::string& bytes) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file) {
        return Failure(path, "cannot be written", errno);
    }
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    const bool closed = std::fclose(file) == 0;
    return written && closed ? COutcome() : Failure(path, "cannot be written", errno);
}

} // namespace

COutcome CheckWritable(const std::string& path) {
    struct stat status {};
    if (path == "-" || IsSpecial(path)) {
        return {};
    }
    if (stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode)) {
        return COutcome::BadInput(path + ": is a folder, not a file to write to");
    }
    const CTemporaryFile probe(Resolve(path));
    return probe.GetError() ? Failure(path, "cannot be written", probe.GetError()) : COutcome();
}

COutcome WriteOutput(const std::string& path, const std::string& bytes) {
    if (path == "-") {
        return WriteAll(STDOUT_FILENO, bytes)
                   ? COutcome()
                   : Failure("standard output", "cannot be written", errno);
    }
    if (IsSpecial(path)) {
        return WriteSpecial(path, bytes);
    }
    const std::string target = Resolve(path);
    CTemporaryFile file(target);
    if (file.GetError()) {
        return Failure(path, "cannot be written", file.GetError());
    }
    if (!file.Write(bytes)) {
        return Failure(path, "cannot be written", errno);
    }
    return file.TakePlaceOf(target) ? COutcome()
                                    : Failure(path, "cannot be written", file.GetRenameError());
}

} // namespace Workbench
