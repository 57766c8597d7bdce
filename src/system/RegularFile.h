#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace Vorin::System {

/// A file on a disk, open to be read while it lives. Nothing else is read: a pipe or a device might
/// never end, and not even to open one waits for somebody else. One thread.
class CRegularFile {
public:
    enum class EKind {
        kRegular,
        kFolder,
        kOther, ///< a pipe, a device, a socket
        kNone   ///< nothing that can be opened; see `GetError`
    };

    /// Null is a path with nothing behind it.
    explicit CRegularFile(const char* path);
    ~CRegularFile();

    CRegularFile(const CRegularFile&) = delete;
    CRegularFile& operator=(const CRegularFile&) = delete;

    EKind GetKind() const { return kind; }

    /// The bytes that the file had when it was opened. It may be growing since.
    std::int64_t GetSize() const { return size; }

    /// Reads on until `capacity` bytes are there or the file ends; `count` says how many there are.
    /// False, with some of them perhaps, on an error, and for what is no regular file.
    bool Read(void* bytes, std::size_t capacity, std::size_t& count);

    /// Reads the rest, whatever size the file had: it may be growing. False as `Read`, and with
    /// more than `limit` bytes, which is no error; `content` then has a part of them.
    bool ReadAll(std::string& content, std::size_t limit);

    /// The error number of what went wrong, as in `errno`; 0 for nothing.
    int GetError() const { return error; }

    /// The same in words, to stand behind the path: "cannot be read: ".
    std::string GetProblem() const;

private:
    int descriptor = -1;
    EKind kind = EKind::kNone;
    std::int64_t size = 0;
    int error = 0;
};

} // namespace Vorin::System
