#include "audio/dsp/AudioStream.h"

#include "audio/dsp/AudioStreams.h"

#include <gtest/gtest.h>

#include <vector>

namespace Vorin::Audio::DSP {
namespace {

TEST(AudioStreamTest, ViewsSamplesFromAnOffsetInAStride) {
    std::vector<float> samples{0, 1, 2, 3, 4, 5};
    CAudioStream stream(samples.data(), 6, 2, 1);
    const IAudioStream& constStream = stream;
    EXPECT_EQ(constStream.GetConstData(), samples.data() + 1);
    EXPECT_EQ(stream.GetData(), samples.data() + 1);
    EXPECT_EQ(stream.GetStride(), 2);
    EXPECT_EQ(stream.GetFramesCount(), 3);
}

TEST(AudioStreamTest, HasAStrideOfOneUnlessSet) {
    std::vector<float> samples(4);
    const CAudioStream stream(samples.data(), 4);
    EXPECT_EQ(stream.GetStride(), 1);
    EXPECT_EQ(stream.GetFramesCount(), 4);
}

TEST(AudioStreamTest, ReportsItsWholeSampleCountAsFramesInAStrideOfZero) {
    float sample = 1.0F;
    const CAudioStream stream(&sample, 512, 0);
    EXPECT_EQ(stream.GetFramesCount(), 512);
    EXPECT_EQ(stream.GetStride(), 0);
}

TEST(AudioStreamTest, PointsAtOtherSamplesWithOffsetAndStrideKept) {
    std::vector<float> samples{0, 1, 2, 3};
    CAudioStream stream(nullptr, 0, 2, 1);
    EXPECT_EQ(stream.GetConstData(), nullptr);
    EXPECT_EQ(stream.GetData(), nullptr);
    stream.Set(samples.data(), 4);
    EXPECT_EQ(stream.GetData(), samples.data() + 1);
    EXPECT_EQ(stream.GetFramesCount(), 2);
}

TEST(DynamicAudioStreamTest, KeepsItsContentWhenItGrowsAndClearsWhatIsNew) {
    CDynamicAudioStream stream;
    EXPECT_EQ(stream.GetFramesCount(), 0);
    stream.SetFramesCount(2);
    stream.GetData()[0] = 1.0F;
    stream.GetData()[1] = 2.0F;
    stream.SetFramesCount(100);
    EXPECT_EQ(stream.GetFramesCount(), 100);
    EXPECT_EQ(stream.GetStride(), 1);
    EXPECT_EQ(stream.GetConstData()[0], 1.0F);
    EXPECT_EQ(stream.GetConstData()[1], 2.0F);
    EXPECT_EQ(stream.GetConstData()[99], 0.0F);
}

TEST(DynamicAudioStreamTest, StaysInPlaceWithinWhatWasReserved) {
    CDynamicAudioStream stream;
    stream.Reserve(64);
    stream.SetFramesCount(1);
    const float* place = stream.GetConstData();
    stream.SetFramesCount(64);
    stream.SetFramesCount(0);
    stream.SetFramesCount(33);
    EXPECT_EQ(stream.GetConstData(), place);
}

TEST(DynamicAudioStreamTest, TakesANegativeCountAsNone) {
    CDynamicAudioStream stream;
    stream.Reserve(-1);
    stream.SetFramesCount(-7);
    EXPECT_EQ(stream.GetFramesCount(), 0);
}

TEST(EmptyStreamTest, ReadsAsSilenceAndCannotBeWritten) {
    CEmptyStream stream(256);
    EXPECT_EQ(*stream.GetConstData(), 0.0F);
    EXPECT_EQ(stream.GetData(), nullptr);
    EXPECT_EQ(stream.GetStride(), 0);
    EXPECT_EQ(stream.GetFramesCount(), 256);
}

TEST(AudioStreamsTest, WrapsACallersArray) {
    float a = 1.0F;
    float b = 2.0F;
    CAudioStream array[] = {CAudioStream(&a, 1), CAudioStream(&b, 1)};
    CAudioStreams streams(array, 2);
    const IAudioStreams& constStreams = streams;
    EXPECT_EQ(streams.GetCount(), 2);
    EXPECT_EQ(&streams.Get(1), &array[1]);
    EXPECT_EQ(&constStreams.Get(0), &array[0]);
}

TEST(AudioStreamsTest, PresentsOneStreamAsAListOfOne) {
    CEmptyStream stream;
    CAudioStreamToStreams streams(&stream, Core::kDontOwn);
    EXPECT_EQ(streams.GetCount(), 1);
    EXPECT_EQ(&streams.Get(0), &stream);
}

TEST(AudioStreamsTest, PresentsNoStreamAsAnEmptyList) {
    EXPECT_EQ(CAudioStreamToStreams(nullptr, Core::kDontOwn).GetCount(), 0);
}

TEST(AudioStreamsTest, DeletesTheOneStreamWhenItOwnsIt) {
    class CWitness : public CEmptyStream {
    public:
        explicit CWitness(bool& flag) : destroyed(flag) {}
        ~CWitness() override { destroyed = true; }

    private:
        bool& destroyed;
    };
    bool destroyed = false;
    {
        CAudioStreamToStreams streams(new CWitness(destroyed), Core::kOwn);
        EXPECT_EQ(streams.GetCount(), 1);
    }
    EXPECT_TRUE(destroyed);
}

TEST(AudioStreamsTest, PresentsAnyNumberOfSilentChannels) {
    CEmptyStreams streams(3, 64);
    EXPECT_EQ(streams.GetCount(), 3);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(streams.Get(i).GetFramesCount(), 64);
        EXPECT_EQ(*streams.Get(i).GetConstData(), 0.0F);
    }
}

TEST(AudioStreamsTest, FindsNoStreamBeyondAListOrInNone) {
    CEmptyStreams streams(1, 4);
    EXPECT_EQ(StreamAt(&streams, 0), &streams.Get(0));
    EXPECT_EQ(StreamAt(&streams, 1), nullptr);
    EXPECT_EQ(StreamAt(nullptr, 0), nullptr);
}

} // namespace
} // namespace Vorin::Audio::DSP
