#include "SoundFile.h"

#include "OutputFile.h"
#include "SoundLength.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <sndfile.h>
#include <sys/stat.h>

namespace Workbench {

namespace {

/// A message of libsndfile as the end of one line of ours.
std::string Told(const char* message) {
    std::string text(message ? message : "unknown error");
    while (!text.empty() && (text.back() == '.' || text.back() == '\n')) {
        text.pop_back();
    }
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

/// A file in memory, as libsndfile writes to it.
struct CMemoryFile {
    std::string bytes;
    sf_count_t position = 0;

    static sf_count_t GetLength(void* self) {
        return static_cast<sf_count_t>(static_cast<CMemoryFile*>(self)->bytes.size());
    }
    static sf_count_t Seek(sf_count_t offset, int whence, void* self) {
        auto& file = *static_cast<CMemoryFile*>(self);
        const sf_count_t base =
            whence == SEEK_SET ? 0 : (whence == SEEK_CUR ? file.position : GetLength(self));
        return file.position = std::max<sf_count_t>(base + offset, 0);
    }
    static sf_count_t Read(void* target, sf_count_t count, void* self) {
        auto& file = *static_cast<CMemoryFile*>(self);
        const sf_count_t got = std::clamp<sf_count_t>(GetLength(self) - file.position, 0, count);
        std::memcpy(target, file.bytes.data() + file.position, static_cast<std::size_t>(got));
        file.position += got;
        return got;
    }
    static sf_count_t Write(const void* source, sf_count_t count, void* self) {
        auto& file = *static_cast<CMemoryFile*>(self);
        const auto end = static_cast<std::size_t>(file.position + count);
        if (file.bytes.size() < end) {
            file.bytes.resize(end);
        }
        std::memcpy(file.bytes.data() + file.position, source, static_cast<std::size_t>(count));
        file.position += count;
        return count;
    }
    static sf_count_t Tell(void* self) { return static_cast<CMemoryFile*>(self)->position; }
};

} // namespace

void CSoundFile::CClose::operator()(sf_private_tag* opened) const { sf_close(opened); }

COutcome CSoundFile::Open(const std::string& filePath) {
    path = filePath;
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) {
        return COutcome::BadInput(path + ": cannot be read: " + std::strerror(errno));
    }
    if (S_ISDIR(status.st_mode)) {
        return COutcome::BadInput(path + ": is a folder, not a sound file");
    }
    if (S_ISREG(status.st_mode) && status.st_size == 0) {
        return COutcome::BadInput(path + ": is empty, not a sound file");
    }
    SF_INFO info{};
    file.reset(sf_open(path.c_str(), SFM_READ, &info));
    if (!file) {
        return COutcome::BadInput(
            path + ": cannot be read as a sound file: " + Told(sf_strerror(nullptr)));
    }
    sampleRate = info.samplerate;
    channels = info.channels;
    frames = info.frames;
    const int container = info.format & SF_FORMAT_TYPEMASK;
    seeksExactly = container != SF_FORMAT_OGG && container != SF_FORMAT_MPEG;
    if (frames <= 0) {
        return COutcome::BadInput(path + ": holds no sound: 0 frames");
    }
    return S_ISREG(status.st_mode) ? CheckWhole() : COutcome();
}

COutcome CSoundFile::CheckWhole() const {
    CSoundLength length;
    if (MeasureSound(path, length) && length.announced > length.present) {
        return COutcome::BadInput(path + ": is cut short: it announces " +
                                  std::to_string(length.announced) + " bytes of sound and has " +
                                  std::to_string(length.present));
    }
    return {};
}

COutcome CSoundFile::Seek(std::int64_t frame) {
    if (frame == position) {
        return {}; // a pipe could not do that much
    }
    if (!seeksExactly) {
        return SkipTo(frame);
    }
    if (sf_seek(file.get(), frame, SEEK_SET) != frame) {
        return COutcome::BadInput(path + ": cannot be read from frame " + std::to_string(frame) +
                                  " on: " + Told(sf_strerror(file.get())));
    }
    position = frame;
    return {};
}

COutcome CSoundFile::SkipTo(std::int64_t frame) {
    constexpr int portion = 65536;
    std::vector<float> unused(portion);
    while (position < frame) {
        const int wanted = static_cast<int>(std::min<std::int64_t>(frame - position, portion));
        int got = 0;
        if (COutcome outcome = Read(unused.data(), unused.data(), wanted, got); !outcome) {
            return outcome;
        }
    }
    return {};
}

COutcome CSoundFile::Read(float* left, float* right, int count, int& got) {
    interleaved.resize(static_cast<std::size_t>(count) * static_cast<std::size_t>(channels));
    got = static_cast<int>(sf_readf_float(file.get(), interleaved.data(), count));
    position += got;
    if (sf_error(file.get()) != SF_ERR_NO_ERROR) {
        return COutcome::BadInput(path + ": is damaged at frame " + std::to_string(position) +
                                  ": " + Told(sf_strerror(file.get())));
    }
    if (got < count && position < frames) {
        return COutcome::BadInput(path + ": is cut short: it announces " + std::to_string(frames) +
                                  " frames and has " + std::to_string(position));
    }
    const int second = channels > 1 ? 1 : 0;
    for (int i = 0; i < got; ++i) {
        const float* frame = interleaved.data() + static_cast<std::ptrdiff_t>(i) * channels;
        left[i] = frame[0];
        right[i] = frame[second];
    }
    return {};
}

COutcome WriteWav(const std::string& path, const std::vector<float>& left,
                  const std::vector<float>& right, int sampleRate) {
    CMemoryFile memory;
    SF_VIRTUAL_IO io{&CMemoryFile::GetLength, &CMemoryFile::Seek, &CMemoryFile::Read,
                     &CMemoryFile::Write, &CMemoryFile::Tell};
    SF_INFO info{};
    info.samplerate = sampleRate;
    info.channels = 2;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_24;
    SNDFILE* sound = sf_open_virtual(&io, SFM_WRITE, &info, &memory);
    if (!sound) {
        return COutcome::BadInput(path + ": cannot be made: " + Told(sf_strerror(nullptr)));
    }
    std::vector<float> frames;
    frames.reserve(left.size() * 2);
    for (std::size_t i = 0; i < left.size(); ++i) {
        frames.push_back(left[i]);
        frames.push_back(right[i]);
    }
    const auto count = static_cast<sf_count_t>(left.size());
    const bool whole = sf_writef_float(sound, frames.data(), count) == count;
    if (sf_close(sound) != 0 || !whole) {
        return COutcome::BadInput(path + ": cannot be made: the sound could not be encoded");
    }
    return WriteOutput(path, memory.bytes);
}

} // namespace Workbench
