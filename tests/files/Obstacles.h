#pragma once

#include <csignal>
#include <cstdlib>
#include <optional>
#include <stdexcept>
#include <string>

#include <sys/resource.h>
#include <unistd.h>

namespace TestFiles {

/// While it lives no file of this process grows beyond so many bytes: a disk that is full.
class CFullDisk {
public:
    explicit CFullDisk(rlim_t bytes) : signalBefore(std::signal(SIGXFSZ, SIG_IGN)) {
        rlimit limit{};
        if (getrlimit(RLIMIT_FSIZE, &limit) != 0) {
            throw std::runtime_error("the limit of file sizes can't be read");
        }
        before = limit;
        limit.rlim_cur = bytes;
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0) {
            throw std::runtime_error("file sizes can't be limited");
        }
    }
    CFullDisk(const CFullDisk&) = delete;
    CFullDisk& operator=(const CFullDisk&) = delete;
    ~CFullDisk() {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, signalBefore);
    }

private:
    rlimit before{};
    void (*signalBefore)(int);
};

/// While it lives the process has no rights but those of anybody, even when it runs as root.
class CWithoutRights {
public:
    CWithoutRights() : before(geteuid()) {
        if (before == 0 && seteuid(kNobody) != 0) {
            throw std::runtime_error("the rights can't be given up");
        }
    }
    CWithoutRights(const CWithoutRights&) = delete;
    CWithoutRights& operator=(const CWithoutRights&) = delete;
    ~CWithoutRights() {
        if (before == 0 && seteuid(0) != 0) {
            std::abort();
        }
    }

    /// Whose files are one's own meanwhile.
    static uid_t GetUser() { return geteuid() == 0 ? kNobody : geteuid(); }

private:
    static constexpr uid_t kNobody = 65534;

    const uid_t before;
};

/// An environment variable with another value, or with none, while this lives.
class CEnvironment {
public:
    CEnvironment(const char* variable, std::optional<std::string> value) : name(variable) {
        if (const char* old = getenv(variable)) {
            before = old;
        }
        Set(value);
    }
    CEnvironment(const CEnvironment&) = delete;
    CEnvironment& operator=(const CEnvironment&) = delete;
    ~CEnvironment() { Set(before); }

private:
    void Set(const std::optional<std::string>& value) const {
        if (value) {
            setenv(name, value->c_str(), 1);
        } else {
            unsetenv(name);
        }
    }

    const char* name;
    std::optional<std::string> before;
};

} // namespace TestFiles
