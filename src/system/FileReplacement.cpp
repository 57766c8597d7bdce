#include "system/FileReplacement.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

namespace Vorin::System {

namespace {

constexpr int kNameAttempts = 100;

struct CFree {
    void operator()(char* text) const { std::free(text); }
};

/// The file to be replaced: what the path stands for behind its links.
struct CTarget {
    explicit CTarget(const char* givenPath) {
        const std::unique_ptr<char, CFree> real(realpath(givenPath, nullptr));
        path = real ? real.get() : givenPath;
        struct stat status {};
        if (stat(path.c_str(), &status) != 0) {
            return;
        }
        exists = true;
        mode = (status.st_mode & 0777) | S_IRUSR | S_IWUSR;
        if (S_ISDIR(status.st_mode)) {
            error = EISDIR;
        } else if (!S_ISREG(status.st_mode)) {
            error = EINVAL;
        } else if (IsAllowed(R_OK) && !IsAllowed(W_OK)) {
            error = EACCES;
        }
    }

    bool IsAllowed(int access) const {
        return faccessat(AT_FDCWD, path.c_str(), access, AT_EACCESS) == 0;
    }

    std::string path;
    mode_t mode = 0; // of the file that is there
    bool exists = false;
    int error = 0; // why it can't be replaced
};

/// A name in the target's folder that is unlikely to be taken.
std::string NewNameBeside(const std::string& target) {
    static std::atomic<unsigned> counter{0};
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    char name[64];
    std::snprintf(name, sizeof(name), ".ondara-%lx-%lx-%x", static_cast<unsigned long>(getpid()),
                  static_cast<unsigned long>(now.tv_nsec), counter++);
    const std::size_t slash = target.rfind('/');
    return slash == std::string::npos ? name : target.substr(0, slash + 1) + name;
}

/// A new file beside the target; it is gone when this dies, unless it has taken the target's place.
class CNewFile {
public:
    explicit CNewFile(const CTarget& replacedFile) : target(replacedFile) {
        // Not by mkstemp: a file that it makes has rights of its own, and asking for those of any
        // new file (umask) changes them for a moment, for all threads of the process.
        for (int attempt = 0; file < 0 && attempt < kNameAttempts; ++attempt) {
            path = NewNameBeside(target.path);
            file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0666);
            if (file < 0 && errno != EEXIST) {
                break;
            }
        }
        error = file < 0 ? errno : 0;
        isThere = file >= 0;
    }
    CNewFile(const CNewFile&) = delete;
    CNewFile& operator=(const CNewFile&) = delete;
    ~CNewFile() {
        if (file >= 0) {
            close(file);
        }
        if (isThere) {
            unlink(path.c_str());
        }
    }

    int GetError() const { return error; }

    bool Write(const char* bytes, std::size_t size) {
        while (size > 0) {
            const ssize_t written = write(file, bytes, size);
            if (written < 0 && errno == EINTR) {
                continue;
            }
            if (written <= 0) {
                return Fail(written < 0 ? errno : EIO);
            }
            bytes += written;
            size -= static_cast<std::size_t>(written);
        }
        return true;
    }

    bool TakePlace() {
        if (target.exists && fchmod(file, target.mode) != 0) {
            return Fail(errno);
        }
        // The bytes before the name: else a crash of the machine could leave an empty file. EINVAL
        // comes from file systems that know no such order.
        if (fsync(file) != 0 && errno != EINVAL) {
            return Fail(errno);
        }
        const int closed = close(file);
        file = -1;
        if (closed != 0 || rename(path.c_str(), target.path.c_str()) != 0) {
            return Fail(errno);
        }
        isThere = false;
        return true;
    }

private:
    bool Fail(int why) {
        error = why;
        return false;
    }

    const CTarget& target;
    std::string path;
    int file = -1;
    bool isThere = false;
    int error = 0;
};

} // namespace

int FileReplacement::Write(const char* path, const char* bytes, std::size_t size) {
    if (!path || (!bytes && size > 0)) {
        return EINVAL;
    }
    const CTarget target(path);
    if (target.error) {
        return target.error;
    }
    CNewFile file(target);
    if (!file.GetError() && file.Write(bytes, size) && file.TakePlace()) {
        return 0;
    }
    return file.GetError();
}

int FileReplacement::Check(const char* path) {
    if (!path) {
        return EINVAL;
    }
    const CTarget target(path);
    return target.error ? target.error : CNewFile(target).GetError();
}

} // namespace Vorin::System
