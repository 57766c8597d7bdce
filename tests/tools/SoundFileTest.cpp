// Files that are no sound, damaged sound or odd sound.

#include "ProgramTest.h"

#include "Picture.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <sys/stat.h>
#include <thread>

namespace WorkbenchTests {
namespace {

constexpr std::size_t kWavRate = 24; // the offset of the rate in a plain WAV file
constexpr std::size_t kWavHeader = 44;

void SetInteger(std::string& bytes, std::size_t place, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i) {
        bytes.at(place + i) = static_cast<char>(value >> (8 * i) & 0xFFU);
    }
}

class SoundFile : public CProgramTest {
protected:
    void ExpectBadInput(const std::string& name, const Words& options = {}) const {
        ExpectRefused(Words{"scope", Path(name), "-o", Path("out.json")} + options, 1, Path(name));
    }

    /// The bytes of a sound file.
    std::string Encode(const CSound& sound, const std::string& name, int format) const {
        WriteSound(Path(name), sound, format);
        return folder.Read(name);
    }

    /// Refuses a file as it does the whole one cut down to `size` bytes.
    void ExpectCutRefused(const std::string& name, const std::string& bytes, std::size_t size) {
        SCOPED_TRACE(std::to_string(size) + " of " + std::to_string(bytes.size()) + " bytes");
        folder.Write(name, bytes.substr(0, size));
        ExpectBadInput(name);
    }
};

TEST_F(SoundFile, ThatIsMissingIsRefused) {
    ExpectBadInput("missing.wav");
    ExpectBadInput("no folder/missing.wav");
    ExpectRefused({"scope", "-", "-o", Path("out.json")}, 1, "-: ");
}

TEST_F(SoundFile, ThatIsEmptyIsRefused) {
    folder.Write("empty.wav", "");
    ExpectBadInput("empty.wav");
}

TEST_F(SoundFile, ThatIsAFolderIsRefused) {
    std::filesystem::create_directory(Path("folder.wav"));
    ExpectBadInput("folder.wav");
}

TEST_F(SoundFile, ThatIsNoSoundIsRefused) {
    folder.Write("text.wav", "This is not a sound.\nIt has two lines.\n");
    ExpectBadInput("text.wav");
    std::string noise;
    std::mt19937 random(3);
    for (int i = 0; i < 5000; ++i) {
        noise += static_cast<char>(random());
    }
    folder.Write("noise.wav", noise);
    ExpectBadInput("noise.wav");
    folder.Write("zeros.flac", std::string(5000, '\0'));
    ExpectBadInput("zeros.flac");
}

TEST_F(SoundFile, ThatMayNotBeReadIsRefused) {
    MakeFile("secret.wav", MakeSound(8000, 1, 100), kWav16);
    ASSERT_EQ(chmod(Path("secret.wav").c_str(), 0), 0);
    // The output is one that could be written.
    const Words words = {"scope", Path("secret.wav"), "-o", "-", "--format", "json"};
    const CRun run = RunOndara(words, {.withoutRights = true});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_NE(run.err.find(Path("secret.wav")), std::string::npos) << run.err;
    EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1);
}

TEST_F(SoundFile, WithoutFramesIsRefused) {
    const CSound none{8000, {{}, {}}};
    WriteSound(Path("none.wav"), none, kWav16);
    ExpectBadInput("none.wav");
    WriteSound(Path("none.flac"), none, kFlac16);
    ExpectBadInput("none.flac");
}

TEST_F(SoundFile, ThatEndsInItsHeaderIsRefused) {
    const std::string wav = Encode(MakeSound(8000, 2, 500), "in.wav", kWav16);
    for (std::size_t size = 0; size <= kWavHeader; ++size) {
        ExpectCutRefused("in.wav", wav, size);
    }
    const std::string flac = Encode(MakeSound(8000, 2, 500), "in.flac", kFlac16);
    const std::string ogg = Encode(MakeSound(8000, 2, 500), "in.ogg", kOgg);
    for (const std::size_t size : {1U, 3U, 4U, 8U, 20U, 40U, 60U}) {
        ExpectCutRefused("in.flac", flac, size);
        ExpectCutRefused("in.ogg", ogg, size);
    }
}

TEST_F(SoundFile, ThatIsCutInItsDataIsRefused) {
    for (const int format : {kWav16, kWav24, kWavFloat}) {
        for (const int channels : {1, 2, 6}) {
            const std::string wav = Encode(MakeSound(8000, channels, 3000), "in.wav", format);
            for (const std::size_t size : {wav.size() / 4, wav.size() / 2, wav.size() - 30}) {
                ExpectCutRefused("in.wav", wav, size);
            }
        }
    }
    for (const int format : {kFlac16, kFlac24}) {
        const std::string flac = Encode(MakeSound(8000, 2, 20000), "in.flac", format);
        for (const std::size_t size : {flac.size() / 4, flac.size() / 2, flac.size() - 30}) {
            ExpectCutRefused("in.flac", flac, size);
        }
    }
}

TEST_F(SoundFile, ThatIsCutByOneFrameIsRefused) {
    const std::string wav = Encode(MakeSound(8000, 2, 3000), "in.wav", kWav16);
    ExpectCutRefused("in.wav", wav, kWavHeader + 2999 * 4);
    ExpectCutRefused("in.wav", wav, kWavHeader + 2999 * 4 + 1);
}

TEST_F(SoundFile, ThatIsCutBetweenTwoOfItsFramesIsRefused) {
    // Each FLAC frame begins with these bytes, and is whole before the next.
    const std::string flac = Encode(MakeSound(8000, 2, 20000), "in.flac", kFlac16);
    std::size_t place = flac.find("\xFF\xF8");
    int cuts = 0;
    while ((place = flac.find("\xFF\xF8", place + 1)) != std::string::npos) {
        ExpectCutRefused("in.flac", flac, place);
        ++cuts;
    }
    EXPECT_GE(cuts, 4);
}

TEST_F(SoundFile, ThatIsCutSaysHowMuchIsThere) {
    const std::string wav = Encode(MakeSound(8000, 2, 3000), "in.wav", kWav16);
    folder.Write("in.wav", wav.substr(0, kWavHeader + 4000));
    const CRun run = RunOndara({"scope", Path("in.wav"), "-o", Path("out.json")});
    EXPECT_NE(run.err.find("12000"), std::string::npos) << run.err;
    EXPECT_NE(run.err.find("4000"), std::string::npos) << run.err;
}

TEST_F(SoundFile, ThatIsCutIsRefusedInEachFormatThatTellsItsLength) {
    const int containers[] = {SF_FORMAT_AIFF,
                              SF_FORMAT_AU,
                              SF_FORMAT_W64,
                              SF_FORMAT_RF64,
                              SF_FORMAT_CAF,
                              SF_FORMAT_WAVEX,
                              SF_FORMAT_WAV | SF_ENDIAN_BIG};
    for (const int container : containers) {
        SCOPED_TRACE(container);
        const std::string bytes =
            Encode(MakeSound(8000, 2, 3000), "in", container | SF_FORMAT_PCM_16);
        ExpectSuccess(RunOndara({"scope", Path("in"), "-o", Path("whole.json")}));
        ExpectCutRefused("in", bytes, bytes.size() / 2);
        ExpectCutRefused("in", bytes, bytes.size() * 9 / 10);
    }
}

TEST_F(SoundFile, FromAPipeThatCouldNotTellItsLengthIsRead) {
    const CSound sound = MakeSound(8000, 2, 3000);
    std::string wav = Encode(sound, "whole.wav", kWav16);
    const std::string expected = RunScope(Path("whole.wav"), "json");
    // What writers leave there that stream and can't come back to the header.
    for (const std::uint32_t size : {0xFFFFFFFFU, 0x80000000U, 0x7FFFF000U}) {
        SetInteger(wav, 40, size);
        folder.Write("in.wav", wav);
        EXPECT_EQ(RunScope(Path("in.wav"), "json"), expected) << size;
    }
}

TEST_F(SoundFile, FromAPipeIsRead) {
    const CSound sound = MakeSound(8000, 2, 3000);
    const std::string wav = Encode(sound, "whole.wav", kWav16);
    ASSERT_EQ(mkfifo(Path("pipe").c_str(), 0600), 0);
    std::thread writer([&] { folder.Write("pipe", wav); });
    const CRun run = RunOndara({"scope", Path("pipe"), "-o", "-", "--format", "json"});
    writer.join();
    ExpectSuccess(run);
    EXPECT_EQ(run.out, RunScope(Path("whole.wav"), "json"));
}

TEST_F(SoundFile, WithOtherChunksAroundItsDataIsRead) {
    const CSound sound = MakeSound(8000, 2, 3000);
    const std::string wav = Encode(sound, "whole.wav", kWav16);
    const std::string expected = RunScope(Path("whole.wav"), "json");
    std::string chunks;
    for (int i = 0; i < 200; ++i) {
        std::string chunk = "junk";
        chunk += std::string("\x10\0\0\0", 4) + std::string(16, 'x');
        chunks += chunk;
    }
    std::string longer = wav.substr(0, 36) + chunks + wav.substr(36);
    SetInteger(longer, 4, static_cast<std::uint32_t>(longer.size() - 8));
    folder.Write("in.wav", longer);
    EXPECT_EQ(RunScope(Path("in.wav"), "json"), expected);
    ExpectCutRefused("in.wav", longer, longer.size() - 4000);
    std::string trailed = wav + chunks;
    SetInteger(trailed, 4, static_cast<std::uint32_t>(trailed.size() - 8));
    folder.Write("trailed.wav", trailed);
    EXPECT_EQ(RunScope(Path("trailed.wav"), "json"), expected);
}

TEST_F(SoundFile, RunsAtAllRatesFrom8HzTo384kHz) {
    std::string wav = Encode(MakeSound(8000, 2, 600), "in.wav", kWav16);
    for (const std::uint32_t rate :
         {8U, 9U, 16U, 50U, 1000U, 11025U, 22050U, 96000U, 100000U, 176400U, 200000U, 384000U}) {
        SetInteger(wav, kWavRate, rate);
        folder.Write("in.wav", wav);
        const CReadDocument document = ReadScope(Path("in.wav"), {"--flush"});
        EXPECT_EQ(document.rate, rate);
        EXPECT_EQ(document.frames, 600.0);
        EXPECT_EQ(document.curves.size(), 4U);
    }
}

TEST_F(SoundFile, WithARateBeyondAllReasonIsRefused) {
    std::string wav = Encode(MakeSound(8000, 2, 600), "in.wav", kWav16);
    for (const std::uint32_t rate : {0U, 5000000U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        SCOPED_TRACE(rate);
        SetInteger(wav, kWavRate, rate);
        folder.Write("in.wav", wav);
        ExpectBadInput("in.wav");
    }
}

TEST_F(SoundFile, IsFoundUnderAnyName) {
    const CSound sound = MakeSound(8000, 1, 600);
    const std::string expected = RunScope(MakeFile("in.wav", sound, kWav16), "json");
    for (const char* name : {"with blanks.wav", "100%s%n.wav",
                             "gr\xC3\xB6\xC3\x9F"
                             "er.wav",
                             "sound", "x.txt", "in.flac", "quote\"'.wav"}) {
        EXPECT_EQ(RunScope(MakeFile(name, sound, kWav16), "json"), expected) << name;
        std::filesystem::remove(Path(name));
        ExpectBadInput(name);
    }
}

TEST_F(SoundFile, WhoseNameHasTwoLinesIsRefusedInOneLine) {
    ExpectRefused({"scope", Path("two\nlines.wav"), "-o", Path("out.json")}, 1, "lines.wav");
}

TEST_F(SoundFile, ThatStartsTooLateIsRefused) {
    MakeFile("in.wav", MakeSound(8000, 1, 800), kWav16);
    ExpectBadInput("in.wav", {"--start", "0.1"});
    ExpectBadInput("in.wav", {"--start", "10000000"});
    ExpectBadInput("in.wav", {"--seconds", "0"});
    ExpectBadInput("in.wav", {"--seconds", "0.00001"});
}

TEST_F(SoundFile, WithDamagedBytesNeverBreaksTheProgram) {
    const std::pair<const char*, int> files[] = {
        {"in.wav", kWav16}, {"in.flac", kFlac16}, {"in.ogg", kOgg}};
    std::mt19937 random(5);
    for (const auto& [name, format] : files) {
        const std::string whole = Encode(MakeSound(8000, 2, 900), name, format);
        for (int i = 0; i < 40; ++i) {
            std::string bytes = whole;
            const std::size_t most = i % 2 == 0 ? 60 : bytes.size();
            const std::size_t place = random() % most;
            bytes[place] = static_cast<char>(random());
            folder.Write(name, bytes);
            const CRun run = RunOndara({"scope", Path(name), "-o", "-", "--format", "json"});
            SCOPED_TRACE(std::string(name) + ", byte " + std::to_string(place));
            if (run.status == 0) {
                EXPECT_EQ(run.err, "");
                EXPECT_EQ(ReadJsonCurves(run.out).curves.size(), 4U);
            } else {
                EXPECT_EQ(run.status, 1);
                EXPECT_EQ(run.out, "");
                EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
                EXPECT_NE(run.err.find(Path(name)), std::string::npos) << run.err;
            }
        }
    }
}

/// Float files hold whatever a float can be.
class OddSamples : public CProgramTest {
protected:
    static constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
    static constexpr float kInfinity = std::numeric_limits<float>::infinity();

    std::string MakeOdd(std::vector<float> samples) const {
        return MakeFile("in.wav", MakeMono(10, samples), kWavFloat);
    }

    /// All formats and views take the file.
    void ExpectRuns(const std::string& path) const {
        for (const char* view : {"flow", "loop", "trigger"}) {
            for (const char* mode : {"stereo", "mid-side"}) {
                const Words options = {"--view", view, "--stereo-mode", mode};
                EXPECT_EQ(ReadScope(path, options).curves.size(), 4U);
                EXPECT_EQ(ReadCsvCurves(RunScope(path, "csv", options)).size(), 4U);
                EXPECT_EQ(ReadPng(RunScope(path, "png", options)).width, 800);
            }
        }
    }
};

TEST_F(OddSamples, NaNIsNullInJsonAndNanInCsv) {
    const std::string path = MakeOdd({0.5F, 0.5F, kNaN, 0.5F, 0.5F, 0.5F, 0.5F, 0.5F, 0.5F, kNaN});
    ExpectRuns(path);
    const auto curve = ReadScope(path, {"--points", "10"}).curves.at(0);
    EXPECT_TRUE(std::isnan(curve.y[9]));
    EXPECT_EQ(curve.y[0], 0.5);
    EXPECT_NE(RunScope(path, "json").find("[0,null]"), std::string::npos);
    EXPECT_NE(RunScope(path, "csv").find("Waveform (1),0,nan\n"), std::string::npos);
}

TEST_F(OddSamples, NaNCountsInTheLowestBin) {
    const std::string path = MakeOdd(std::vector<float>(10, kNaN));
    const auto curve = ReadScope(path, {"--points", "151"}).curves.at(1);
    EXPECT_EQ(curve.y.front(), 1.0);
    EXPECT_EQ(std::count(curve.y.begin(), curve.y.end(), 0.0), 150);
}

TEST_F(OddSamples, InfinitiesAreBeyondEveryNumberInJson) {
    // The newest rise stands before the last sample; what lies left of the trace is held at the
    // oldest sample, which is the infinite one.
    for (const float sign : {1.0F, -1.0F}) {
        const std::string path = MakeOdd(
            {sign * kInfinity, -0.5F, -0.5F, 0.5F, -0.5F, -0.5F, -0.5F, -0.5F, -0.5F, 0.5F});
        ExpectRuns(path);
        const Words options = {"--view", "trigger", "--points", "10"};
        EXPECT_EQ(ReadScope(path, options).curves.at(0).y[0],
                  static_cast<double>(sign * kInfinity));
        const std::string json = sign < 0 ? "[-1,-1e999]" : "[-1,1e999]";
        const std::string csv = sign < 0 ? "(1),-1,-inf\n" : "(1),-1,inf\n";
        EXPECT_NE(RunScope(path, "json", options).find(json), std::string::npos);
        EXPECT_NE(RunScope(path, "csv", options).find(csv), std::string::npos);
    }
}

TEST_F(OddSamples, InfinitiesCountAtTheEndsOfTheHistogram) {
    const std::string path = MakeOdd({kInfinity, kInfinity, -kInfinity});
    const auto curve = ReadScope(path, {"--points", "151"}).curves.at(1);
    EXPECT_EQ(curve.y.front(), 0.5);
    EXPECT_EQ(curve.y.back(), 1.0);
}

TEST_F(OddSamples, DenormalsComeThroughExactly) {
    const float least = std::numeric_limits<float>::denorm_min();
    std::vector<float> samples(10, -1e-40F);
    samples[9] = least;
    const std::string path = MakeOdd(samples);
    ExpectRuns(path);
    const Words options = {"--points", "10"};
    EXPECT_EQ(ReadScope(path, options).curves.at(0).y[9], static_cast<double>(least));
    EXPECT_EQ(ReadCsvCurves(RunScope(path, "csv", options)).at(0).y[0],
              static_cast<double>(-1e-40F));
}

TEST_F(OddSamples, OneSidedNaNLeavesTheOtherSideAlone) {
    const CSound sound{10, {std::vector<float>(10, kNaN), std::vector<float>(10, 0.25F)}};
    const auto curves = ReadScope(MakeFile("in.wav", sound, kWavFloat)).curves;
    EXPECT_TRUE(std::isnan(curves.at(0).y.back()));
    EXPECT_EQ(curves.at(2).y.back(), 0.25);
}

TEST_F(OddSamples, AnyMixtureRuns) {
    std::mt19937 random(9);
    std::vector<float> samples;
    const float odd[] = {kNaN,   kInfinity, -kInfinity, std::numeric_limits<float>::max(),
                         -3e38F, 1e-40F,    -0.0F,      0.0F,
                         1.0F};
    for (int i = 0; i < 10000; ++i) {
        samples.push_back(odd[random() % std::size(odd)]);
    }
    ExpectRuns(MakeFile("in.wav", MakeMono(8000, samples), kWavFloat));
}

} // namespace
} // namespace WorkbenchTests
