#include "Sounds.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <stdexcept>

namespace WorkbenchTests {

namespace {

std::runtime_error Failure(const std::string& path, SNDFILE* file) {
    return std::runtime_error(path + ": " + sf_strerror(file));
}

} // namespace

void WriteSound(const std::string& path, const CSound& sound, int format) {
    SF_INFO info{};
    info.samplerate = sound.rate;
    info.channels = static_cast<int>(sound.channels.size());
    info.format = format;
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    if (!file) {
        throw Failure(path, nullptr);
    }
    sf_command(file, SFC_SET_CLIPPING, nullptr, SF_TRUE);
    std::vector<float> frames;
    for (std::size_t i = 0; i < sound.channels.at(0).size(); ++i) {
        for (const auto& channel : sound.channels) {
            frames.push_back(channel.at(i));
        }
    }
    // In portions: the Vorbis encoder takes its stack from what it is handed at once.
    const auto width = sound.channels.size();
    constexpr std::size_t portion = 4096;
    for (std::size_t done = 0; done * width < frames.size(); done += portion) {
        const auto count = static_cast<sf_count_t>(std::min(portion, frames.size() / width - done));
        if (sf_writef_float(file, frames.data() + done * width, count) != count) {
            throw Failure(path, file);
        }
    }
    if (sf_close(file) != 0) {
        throw Failure(path, nullptr);
    }
}

CSound ReadSound(const std::string& path) {
    SF_INFO info{};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
    if (!file) {
        throw Failure(path, nullptr);
    }
    const auto width = static_cast<std::size_t>(info.channels);
    std::vector<float> frames(static_cast<std::size_t>(info.frames) * width);
    const sf_count_t got = sf_readf_float(file, frames.data(), info.frames);
    sf_close(file);
    if (got != info.frames) {
        throw std::runtime_error(path + ": ends early");
    }
    CSound sound{info.samplerate, std::vector<std::vector<float>>(width)};
    for (std::size_t i = 0; i < frames.size(); ++i) {
        sound.channels[i % width].push_back(frames[i]);
    }
    return sound;
}

CSound MakeSound(int rate, int channels, int frames) {
    CSound sound{rate, std::vector<std::vector<float>>(static_cast<std::size_t>(channels))};
    std::mt19937 random(4711);
    int number = 0;
    for (auto& channel : sound.channels) {
        ++number;
        const double hz = 3.7 + 1.3 * number;
        const double height = 0.9 - 0.1 * number;
        for (int i = 0; i < frames; ++i) {
            const double time = static_cast<double>(i) / rate;
            const double noise = static_cast<double>(random() % 20001) / 10000.0 - 1.0;
            double value = height * std::sin(6.2831853 * hz * time) + 0.08 * noise;
            if (random() % 997 == 0) {
                value = noise > 0 ? 1.75 : -1.75;
            }
            const bool silent = time > 0.3 && time < 0.33;
            channel.push_back(silent ? 0.0F : static_cast<float>(value));
        }
    }
    return sound;
}

CSound MakeMono(int rate, const std::vector<float>& samples) { return {rate, {samples}}; }

CSound Cut(const CSound& sound, int first, int count) {
    CSound part{sound.rate, {}};
    const int end = std::min(first + count, sound.GetFrames());
    for (const auto& channel : sound.channels) {
        part.channels.emplace_back(channel.begin() + first, channel.begin() + end);
    }
    return part;
}

} // namespace WorkbenchTests
