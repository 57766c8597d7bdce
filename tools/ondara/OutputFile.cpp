#include "OutputFile.h"

#include "system/FileReplacement.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace Workbench {

using Vorin::System::FileReplacement;

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

/// A pipe or a device is written as it stands: it can't be replaced, and has no half state to keep.
bool IsSpecial(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode);
}

COutcome OutcomeOf(const std::string& path, int error) {
    if (error == EISDIR) {
        return COutcome::BadInput(path + ": is a folder, not a file to write to");
    }
    return error ? Failure(path, "cannot be written", error) : COutcome();
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
    if (path == "-" || IsSpecial(path)) {
        return {};
    }
    return OutcomeOf(path, FileReplacement::Check(path.c_str()));
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
    return OutcomeOf(path, FileReplacement::Write(path.c_str(), bytes.data(), bytes.size()));
}

} // namespace Workbench
