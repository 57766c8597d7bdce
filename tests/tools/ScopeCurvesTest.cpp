// What the program shows, beside a plain computation of the same, value for value.

#include "PlainScope.h"
#include "ProgramTest.h"

#include <cmath>
#include <ostream>

namespace WorkbenchTests {
namespace {

constexpr int kPoints = 701;

/// Compares all points of all curves with what `sound`, as it was fed, has to give.
void ExpectPlain(const CReadDocument& document, const CSound& sound,
                 const CScopeSettings& settings) {
    EXPECT_EQ(document.rate, sound.rate);
    EXPECT_EQ(document.frames, sound.GetFrames());
    ASSERT_EQ(document.curves.size(), 4U);
    const CPlainScope plain(sound, settings);
    for (int i = 0; i < 4; ++i) {
        const CReadCurve& curve = document.curves[static_cast<std::size_t>(i)];
        for (std::size_t point = 0; point < curve.x.size(); ++point) {
            ASSERT_EQ(curve.y[point], plain.Evaluate(i, curve.x[point]))
                << curve.name << " at " << curve.x[point];
        }
    }
}

/// A file, and a way to look at it.
struct CScopeCase {
    const char* name;
    const char* file;
    int format;
    int rate;
    int channels;
    double seconds;
    CScopeSettings settings;
};

std::ostream& operator<<(std::ostream& stream, const CScopeCase& test) {
    return stream << test.name;
}

class ScopeCurves : public CProgramTest, public ::testing::WithParamInterface<CScopeCase> {};

TEST_P(ScopeCurves, AreWhatAPlainComputationGives) {
    const CScopeCase& test = GetParam();
    const int frames = static_cast<int>(test.seconds * test.rate);
    const std::string path =
        MakeFile(test.file, MakeSound(test.rate, test.channels, frames), test.format);
    const CSound decoded = ReadSound(path);
    ASSERT_EQ(decoded.GetFrames(), frames);
    for (const bool flush : {false, true}) {
        CScopeSettings settings = test.settings;
        settings.flush = flush;
        const Words options = Words{"--points", std::to_string(kPoints)} + settings.GetOptions();
        ExpectPlain(ReadScope(path, options), decoded, settings);
    }
}

const CScopeCase kCases[] = {
    {"Wav16Mono8k", "a.wav", kWav16, 8000, 1, 1.51, {}},
    {"Wav24Stereo44kLoop", "a.wav", kWav24, 44100, 2, 1.51, {.view = kLoop}},
    {"WavFloatStereo48kTrigger",
     "a.wav",
     kWavFloat,
     48000,
     2,
     1.51,
     {.view = kTrigger, .delayMilliseconds = 7.53, .triggerValue = 0.3}},
    {"WavFloatSix48k", "a.wav", kWavFloat, 48000, 6, 1.2, {.block = 333}},
    {"Wav16Six44kMidSide", "a.wav", kWav16, 44100, 6, 1.1, {.midSide = true}},
    {"WavStereoShorterThanTheTrace",
     "a.wav",
     kWavFloat,
     44100,
     2,
     0.3,
     {.view = kTrigger, .triggerValue = -0.2}},
    {"Flac16Mono8kLoop", "a.flac", kFlac16, 8000, 1, 1.51, {.view = kLoop, .block = 100}},
    {"Flac16Stereo44kTriggerDown",
     "a.flac",
     kFlac16,
     44100,
     2,
     1.51,
     {.view = kTrigger, .triggerValue = 0.25, .triggerDown = true}},
    {"Flac24Six48kMidSide",
     "a.flac",
     kFlac24,
     48000,
     6,
     1.2,
     {.delayMilliseconds = 300.0, .midSide = true}},
    {"OggMono8kTrigger", "a.ogg", kOgg, 8000, 1, 1.51, {.view = kTrigger, .triggerValue = -0.1}},
    {"OggStereo44k", "a.ogg", kOgg, 44100, 2, 1.51, {.refreshHz = 7.0}},
    {"OggSix48kLoop", "a.ogg", kOgg, 48000, 6, 1.1, {.view = kLoop, .midSide = true}},
    {"WavFloatStereo65536", "a.wav", kWavFloat, 65536, 2, 1.2, {.delayMilliseconds = 12.0}},
    {"Wav24Mono65536Trigger", "a.wav", kWav24, 65536, 1, 1.2, {.view = kTrigger}},
    {"Wav24Stereo192kTrigger",
     "a.wav",
     kWav24,
     192000,
     2,
     1.05,
     {.view = kTrigger, .delayMilliseconds = 150.0, .triggerValue = 0.4}},
    {"Wav16Mono384k", "a.wav", kWav16, 384000, 1, 0.3, {.view = kLoop}},
    {"Wav16Mono12Hz", "a.wav", kWav16, 12, 1, 5.0, {.view = kLoop}},
    {"Wav16Mono8Hz", "a.wav", kWav16, 8, 1, 5.0, {}},
    {"Bypassed", "a.wav", kWavFloat, 8000, 2, 1.51, {.view = kTrigger, .bypass = true}},
    {"BypassedForLongerThanItsTail", "a.wav", kWavFloat, 8000, 2, 3.0, {.bypass = true}},
    {"RefreshPerBlock", "a.wav", kWavFloat, 8000, 2, 0.5, {.block = 1, .refreshHz = 0.0}},
};

INSTANTIATE_TEST_SUITE_P(Files, ScopeCurves, ::testing::ValuesIn(kCases),
                         [](const auto& test) { return std::string(test.param.name); });

class ScopeViews : public CProgramTest {};

TEST_F(ScopeViews, AreWhatAPlainComputationGivesInEachMode) {
    const CSound sound = MakeSound(8000, 2, 11500);
    const std::string path = MakeFile("in.wav", sound, kWavFloat);
    for (const EView view : {kFlow, kLoop, kTrigger}) {
        for (const bool down : {false, true}) {
            for (const double level : {-0.55, 0.0, 0.55}) {
                for (const double delay : {0.0, 12.5, 300.0}) {
                    for (const bool midSide : {false, true}) {
                        const CScopeSettings settings{.view = view,
                                                      .delayMilliseconds = delay,
                                                      .triggerValue = level,
                                                      .triggerDown = down,
                                                      .midSide = midSide,
                                                      .flush = delay == 0.0};
                        const Words options = settings.GetOptions();
                        SCOPED_TRACE(::testing::PrintToString(options));
                        ExpectPlain(ReadScope(path, options), sound, settings);
                    }
                }
            }
        }
    }
}

TEST_F(ScopeViews, ALevelThatASampleMeetsIsNoCrossingByItself) {
    // Steps of an eighth: every level of the test is also the value of many samples.
    CSound sound = MakeSound(8000, 2, 9000);
    for (auto& channel : sound.channels) {
        for (float& value : channel) {
            value = std::round(value * 8.0F) / 8.0F;
        }
    }
    for (int frames = 8990; frames <= 9000; ++frames) {
        const CSound part = Cut(sound, 0, frames);
        const std::string path = MakeFile("in.wav", part, kWavFloat);
        for (const bool down : {false, true}) {
            for (const double level : {-0.25, 0.0, 0.5}) {
                const CScopeSettings settings{
                    .view = kTrigger, .triggerValue = level, .triggerDown = down, .flush = true};
                ExpectPlain(ReadScope(path, settings.GetOptions()), part, settings);
            }
        }
    }
}

TEST_F(ScopeViews, TakeAPartOfAFileFrameByFrame) {
    const std::pair<const char*, int> files[] = {
        {"a.wav", kWav24}, {"a.flac", kFlac16}, {"a.ogg", kOgg}};
    for (const auto& [name, format] : files) {
        const std::string path = MakeFile(name, MakeSound(8000, 2, 24000), format);
        const CSound decoded = ReadSound(path);
        const CScopeSettings settings{.flush = true};
        SCOPED_TRACE(name);
        ExpectPlain(ReadScope(path, settings.GetOptions() +
                                        Words{"--start", "0.70006", "--seconds", "1.2"}),
                    Cut(decoded, 5600, 9600), settings);
        ExpectPlain(ReadScope(path, settings.GetOptions() + Words{"--start", "2.999875"}),
                    Cut(decoded, 23999, 1), settings);
        ExpectPlain(ReadScope(path, settings.GetOptions() + Words{"--seconds", "0.001"}),
                    Cut(decoded, 0, 8), settings);
    }
}

class ScopeBlocks : public CProgramTest {};

TEST_F(ScopeBlocks, ChangeNothingOnceTheLastFrameIsFlushed) {
    const std::string path = MakeFile("in.wav", MakeSound(8000, 2, 11000), kWavFloat);
    for (const EView view : {kFlow, kLoop, kTrigger}) {
        for (const bool midSide : {false, true}) {
            for (const bool down : {false, true}) {
                for (const double delay : {0.0, 3.3, 300.0}) {
                    CScopeSettings settings{.view = view,
                                            .delayMilliseconds = delay,
                                            .triggerValue = 0.2,
                                            .triggerDown = down,
                                            .midSide = midSide,
                                            .block = 512,
                                            .flush = true};
                    const std::string expected = RunScope(path, "json", settings.GetOptions());
                    for (const int block : {1, 7, 64, 4096, 1000000}) {
                        settings.block = block;
                        EXPECT_TRUE(RunScope(path, "json", settings.GetOptions()) == expected)
                            << ::testing::PrintToString(settings.GetOptions());
                    }
                }
            }
        }
    }
}

TEST_F(ScopeBlocks, ChangeNothingInAnyFileFormat) {
    const std::pair<const char*, int> files[] = {
        {"a.wav", kWav16}, {"a.flac", kFlac24}, {"a.ogg", kOgg}};
    for (const auto& [name, format] : files) {
        const std::string path = MakeFile(name, MakeSound(44100, 2, 50000), format);
        const std::string expected = RunScope(path, "csv", {"--flush"});
        for (const char* block : {"1", "7", "64", "4096", "1000000"}) {
            EXPECT_TRUE(RunScope(path, "csv", {"--flush", "--block", block}) == expected)
                << name << " in blocks of " << block;
        }
    }
}

TEST_F(ScopeBlocks, ThatDivideThePeriodPublishTheSame) {
    // 8000 / 50 is 160, and 11000 is no multiple of it.
    const std::string path = MakeFile("in.wav", MakeSound(8000, 2, 11000), kWavFloat);
    const std::string expected = RunScope(path, "json", {"--block", "160"});
    for (const char* block : {"1", "2", "32", "80"}) {
        EXPECT_TRUE(RunScope(path, "json", {"--block", block}) == expected) << block;
    }
    EXPECT_FALSE(RunScope(path, "json", {"--block", "160", "--flush"}) == expected);
}

TEST_F(ScopeBlocks, ChangeNothingWhileTheBypassedFilterRuns) {
    // After a second of silence the filter takes its cheap path, which begins with a block.
    const std::string path = MakeFile("in.wav", MakeSound(8000, 2, 7000), kWavFloat);
    const std::string expected = RunScope(path, "json", {"--flush", "--bypass"});
    for (const char* block : {"1", "7", "4096", "1000000"}) {
        EXPECT_TRUE(RunScope(path, "json", {"--flush", "--bypass", "--block", block}) == expected)
            << block;
    }
}

} // namespace
} // namespace WorkbenchTests
