#include "Program.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <grp.h>
#include <poll.h>
#include <stdexcept>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace WorkbenchTests {

namespace {

constexpr unsigned kMostSeconds = 100; // a run that hangs is killed
constexpr uid_t kNobody = 65534;

/// Both ends of a way out of the program: a pipe, or a terminal.
struct CChannel {
    int reader = -1;
    int writer = -1;
};

CChannel OpenPipe() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        throw std::runtime_error("no pipe can be opened");
    }
    return {ends[0], ends[1]};
}

CChannel OpenTerminal() {
    CChannel channel;
    channel.reader = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (channel.reader < 0 || grantpt(channel.reader) != 0 || unlockpt(channel.reader) != 0) {
        throw std::runtime_error("no terminal can be opened");
    }
    channel.writer = open(ptsname(channel.reader), O_RDWR | O_NOCTTY | O_CLOEXEC);
    return channel;
}

[[noreturn]] void BecomeProgram(char** words, const CSurroundings& surroundings, int out, int err) {
    const int output = surroundings.outputTo.empty()
                           ? out
                           : open(surroundings.outputTo.c_str(), O_WRONLY | O_CLOEXEC);
    bool ready = dup2(output, STDOUT_FILENO) >= 0 && dup2(err, STDERR_FILENO) >= 0;
    if (surroundings.fileSizeLimit >= 0) {
        const auto limit = static_cast<rlim_t>(surroundings.fileSizeLimit);
        const rlimit size{limit, limit};
        ready = ready && setrlimit(RLIMIT_FSIZE, &size) == 0;
        // Without its signal the limit is an error that the program gets to see.
        std::signal(SIGXFSZ, SIG_IGN);
    }
    // Opened with all rights: the folder that it is in may be closed to others.
    const int program = open(ONDARA_PROGRAM, O_RDONLY | O_CLOEXEC);
    ready = ready && program >= 0;
    if (surroundings.withoutRights && geteuid() == 0) {
        ready = ready && setgroups(0, nullptr) == 0 && setgid(kNobody) == 0 && setuid(kNobody) == 0;
    }
    setenv("LSAN_OPTIONS", "suppressions=" LEAK_SUPPRESSIONS ":print_suppressions=0", 0);
    alarm(kMostSeconds);
    if (ready) {
        fexecve(program, words, environ);
    }
    _exit(127);
}

/// Takes what has come. False once the other end is closed.
bool Take(int file, std::string& text) {
    std::array<char, 65536> buffer;
    const ssize_t got = read(file, buffer.data(), buffer.size());
    if (got < 0 && errno == EINTR) {
        return true;
    }
    if (got <= 0) { // a terminal reports its end as an error
        return false;
    }
    text.append(buffer.data(), static_cast<std::size_t>(got));
    return true;
}

void Collect(int out, int err, CRun& run) {
    std::array<pollfd, 2> files{{{out, POLLIN, 0}, {err, POLLIN, 0}}};
    while (files[0].fd >= 0 || files[1].fd >= 0) {
        if (poll(files.data(), files.size(), -1) < 0) {
            continue;
        }
        for (std::size_t i = 0; i < files.size(); ++i) {
            if (files[i].revents != 0 && !Take(files[i].fd, i == 0 ? run.out : run.err)) {
                files[i].fd = -1;
            }
        }
    }
}

} // namespace

CRun RunOndara(const std::vector<std::string>& words, const CSurroundings& surroundings) {
    std::vector<std::string> all = {ONDARA_PROGRAM};
    all.insert(all.end(), words.begin(), words.end());
    std::vector<char*> pointers;
    for (std::string& word : all) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);

    const CChannel out = OpenPipe();
    const CChannel err = surroundings.onTerminal ? OpenTerminal() : OpenPipe();
    const pid_t child = fork();
    if (child < 0) {
        throw std::runtime_error("no process can be started");
    }
    if (child == 0) {
        BecomeProgram(pointers.data(), surroundings, out.writer, err.writer);
    }
    close(out.writer);
    close(err.writer);
    CRun run;
    Collect(out.reader, err.reader, run);
    close(out.reader);
    close(err.reader);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    run.status = WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
    return run;
}

} // namespace WorkbenchTests
