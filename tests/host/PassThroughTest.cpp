// That the audio comes out as it went in, to the bit, however the host lays out its buffers.

#include "host/Host.h"

#include <algorithm>
#include <limits>

namespace TestHost {
namespace {

/// The values of which a careless copy changes the bits.
std::vector<std::uint32_t> OddBits() {
    return {0x00000000U, 0x80000000U, 0x00000001U, 0x80000001U, 0x007fffffU, 0x807fffffU,
            0x00800000U, 0x7f7fffffU, 0xff7fffffU, 0x7f800000U, 0xff800000U, 0x7f800001U,
            0xff800001U, 0x7fa5a5a5U, 0x7fc00000U, 0xffc00000U, 0x7fc12345U, 0x7fffffffU,
            0xffffffffU, 0x3f800000U, 0xbf800000U, 0x2edbe6ffU};
}

/// Samples of any bits, the odd ones among them, between words that must stay.
class CChannel {
public:
    CChannel(VstInt32 frames, unsigned seed) : count(static_cast<std::size_t>(frames)) {
        std::mt19937 random(seed);
        const std::vector<std::uint32_t> odd = OddBits();
        std::vector<std::uint32_t> bits(count + 2 * kGuards, kGuard);
        for (std::size_t i = 0; i < count; ++i) {
            bits[kGuards + i] = random() % 4 == 0 ? odd[random() % odd.size()]
                                                  : static_cast<std::uint32_t>(random());
        }
        samples.resize(bits.size());
        std::memcpy(samples.data(), bits.data(), bits.size() * sizeof(float));
    }

    float* Get() { return samples.data() + kGuards; }

    std::vector<std::uint32_t> Bits() const {
        std::vector<std::uint32_t> bits(count);
        if (count > 0) {
            std::memcpy(bits.data(), samples.data() + kGuards, count * sizeof(float));
        }
        return bits;
    }

    bool AreGuardsWhole() const {
        return std::all_of(samples.begin(), samples.begin() + kGuards, IsGuard) &&
               std::all_of(samples.end() - kGuards, samples.end(), IsGuard);
    }

private:
    static constexpr std::uint32_t kGuard = 0x7fbadbadU; // a NaN that says so
    static constexpr std::ptrdiff_t kGuards = 16;

    static bool IsGuard(const float& sample) { return BitsOf(sample) == kGuard; }

    std::size_t count;
    std::vector<float> samples;
};

class PassThroughTest : public CHostTest {
protected:
    /// Two channels through buffers of their own, in place, and in place with the channels crossed.
    void ExpectPassed(VstInt32 frames, unsigned seed) {
        const CChannel left(frames, seed);
        const CChannel right(frames, seed + 1);
        {
            CChannel in[] = {left, right};
            CChannel out[] = {{frames, seed + 2}, {frames, seed + 3}};
            Process(in[0].Get(), in[1].Get(), out[0].Get(), out[1].Get(), frames);
            Expect(out[0], left, "left", frames);
            Expect(out[1], right, "right", frames);
            Expect(in[0], left, "left input", frames);
            Expect(in[1], right, "right input", frames);
        }
        {
            CChannel both[] = {left, right};
            Process(both[0].Get(), both[1].Get(), both[0].Get(), both[1].Get(), frames);
            Expect(both[0], left, "left in place", frames);
            Expect(both[1], right, "right in place", frames);
        }
        {
            CChannel both[] = {left, right};
            Process(both[0].Get(), both[1].Get(), both[1].Get(), both[0].Get(), frames);
            Expect(both[1], left, "left crossed", frames);
            Expect(both[0], right, "right crossed", frames);
        }
        {
            CChannel one = left;
            CChannel out[] = {{frames, seed + 2}, {frames, seed + 3}};
            Process(one.Get(), one.Get(), out[0].Get(), out[1].Get(), frames);
            Expect(out[0], left, "left of one input", frames);
            Expect(out[1], left, "right of one input", frames);
        }
    }

    void Process(float* inLeft, float* inRight, float* outLeft, float* outRight, VstInt32 frames) {
        float* inputs[] = {inLeft, inRight};
        float* outputs[] = {outLeft, outRight};
        plugin.Process(inputs, outputs, frames);
    }

    static void Expect(const CChannel& channel, const CChannel& expected, const char* what,
                       VstInt32 frames) {
        EXPECT_TRUE(channel.Bits() == expected.Bits()) << what << " of " << frames;
        EXPECT_TRUE(channel.AreGuardsWhole()) << what << " of " << frames;
    }
};

TEST_F(PassThroughTest, KeepsEveryBitOfEverySample) {
    plugin.Start(48000.0F, 512);
    unsigned seed = 1;
    for (const VstInt32 frames : {1, 2, 3, 7, 63, 64, 65, 511, 512, 0}) {
        ExpectPassed(frames, seed);
        seed += 4;
    }
}

TEST_F(PassThroughTest, KeepsThemInBlocksLargerThanAnnounced) {
    plugin.Start(48000.0F, 16);
    for (const VstInt32 frames : {17, 1000, 20000}) {
        ExpectPassed(frames, 5);
    }
    plugin.Start(48000.0F, 1 << 30); // more than any block
    ExpectPassed(20000, 9);
}

TEST_F(PassThroughTest, KeepsThemWhileBypassedAndInEveryMode) {
    plugin.Start();
    std::mt19937 random(11);
    for (unsigned round = 0; round < 60; ++round) {
        plugin.Set(static_cast<VstInt32>(random() % kParamsCount),
                   static_cast<float>(random() % 101) / 100.0F);
        ExpectPassed(static_cast<VstInt32>(1 + random() % 600), round);
    }
}

TEST_F(PassThroughTest, KeepsThemBeforeResumeAndAfterSuspend) {
    ExpectPassed(100, 3);
    plugin.Start();
    plugin.Stop();
    ExpectPassed(100, 4);
}

TEST_F(PassThroughTest, AHostWithoutOutputsForAnOscilloscopeStillHearsItsInputs) {
    plugin.Start();
    VstSpeakerArrangement stereo{};
    stereo.type = kSpeakerArrStereo;
    stereo.numChannels = 2;
    VstSpeakerArrangement none{};
    none.type = kSpeakerArrEmpty;
    EXPECT_EQ(plugin.Ask(effSetSpeakerArrangement, 0, reinterpret_cast<VstIntPtr>(&stereo), &none),
              1);
    EXPECT_EQ(plugin.Get()->numInputs, 2);
    EXPECT_EQ(plugin.Get()->numOutputs, 2);
    ExpectPassed(333, 7);
}

TEST_F(PassThroughTest, TheAccumulatingCallAddsToWhatIsThere) {
    plugin.Start(48000.0F, 64);
    for (const VstInt32 frames : {1, 64, 300}) {
        std::vector<float> in(static_cast<std::size_t>(frames), 0.25F);
        std::vector<float> left(in.size() + 1, 1.0F);
        std::vector<float> right(in.size() + 1, -2.0F);
        float* inputs[] = {in.data(), in.data()};
        float* outputs[] = {left.data(), right.data()};
        plugin.Get()->process(plugin.Get(), inputs, outputs, frames);
        std::vector<float> expectedLeft(in.size(), 1.25F);
        expectedLeft.push_back(1.0F);
        std::vector<float> expectedRight(in.size(), -1.75F);
        expectedRight.push_back(-2.0F);
        EXPECT_EQ(left, expectedLeft);
        EXPECT_EQ(right, expectedRight);
    }
}

} // namespace
} // namespace TestHost
