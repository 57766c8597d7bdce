#include "audio/dsp/StreamOperations.h"

#include "audio/dsp/FilterTestKit.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace Vorin::Audio::DSP::StreamOperations {
namespace {

using Samples = std::vector<float>;

TEST(AddTest, AddsTheSourceToTheTarget) {
    Samples from{1, 2, 3};
    Samples to{10, 20, 30};
    const CAudioStream source(from.data(), 3);
    CAudioStream target(to.data(), 3);
    Add(&source, &target, 2);
    EXPECT_EQ(to, (Samples{11, 22, 30}));
}

TEST(AddTest, FollowsTheStrides) {
    Samples from{1, 9, 2, 9};
    Samples to{10, 0, 0, 20};
    const CAudioStream source(from.data(), 4, 2);
    CAudioStream target(to.data(), 4, 3);
    Add(&source, &target, 2);
    EXPECT_EQ(to, (Samples{11, 0, 0, 22}));
}

TEST(AddTest, ChangesNothingWithZeroOrNegativeFrames) {
    Samples from{1};
    Samples to{10};
    const CAudioStream source(from.data(), 1);
    CAudioStream target(to.data(), 1);
    for (const int frames : {0, -1, std::numeric_limits<int>::min()}) {
        Add(&source, &target, frames);
        EXPECT_EQ(to, Samples{10}) << frames;
    }
}

TEST(AddTest, ChangesNothingWithoutSourceOrTarget) {
    Samples samples{10};
    CAudioStream stream(samples.data(), 1);
    CEmptyStream unwritable;
    CAudioStream absent;
    Add(nullptr, &stream, 1);
    Add(&absent, &stream, 1);
    Add(&stream, nullptr, 1);
    Add(&stream, &unwritable, 1);
    Add(&stream, &absent, 1);
    EXPECT_EQ(samples, Samples{10});
}

TEST(CopyTest, FollowsTheStrides) {
    Samples from{1, 9, 2, 9, 3, 9};
    Samples to(3);
    const CAudioStream source(from.data(), 6, 2);
    CAudioStream target(to.data(), 3);
    Copy(&source, &target, 3);
    EXPECT_EQ(to, (Samples{1, 2, 3}));
    Samples wide(6, 7.0F);
    CAudioStream spread(wide.data(), 6, 2);
    Copy(&target, &spread, 3);
    EXPECT_EQ(wide, (Samples{1, 7, 2, 7, 3, 7}));
}

TEST(CopyTest, ReadsASourceOfStrideZeroAsOneValueForEver) {
    float value = 5.0F;
    Samples to(3);
    const CAudioStream source(&value, 3, 0);
    CAudioStream target(to.data(), 3);
    Copy(&source, &target, 3);
    EXPECT_EQ(to, (Samples{5, 5, 5}));
}

TEST(CopyTest, ClearsTheTargetForANullSource) {
    Samples to{1, 2, 3};
    CAudioStream target(to.data(), 3);
    Copy(nullptr, &target, 2);
    EXPECT_EQ(to, (Samples{0, 0, 3}));
    const CAudioStream absent;
    Copy(&absent, &target, 3);
    EXPECT_EQ(to, (Samples{0, 0, 0}));
}

TEST(CopyTest, DoesNothingWhenTheTargetIsTheSourceInTheSameStride) {
    Samples samples{1, 2, 3};
    const CAudioStream source(samples.data(), 3);
    CAudioStream target(samples.data(), 3);
    Copy(&source, &target, 3);
    EXPECT_EQ(samples, (Samples{1, 2, 3}));
}

TEST(CopyTest, DoesNothingForANullTarget) {
    Samples samples{1, 2, 3};
    const CAudioStream source(samples.data(), 3);
    CEmptyStream unwritable;
    Copy(&source, nullptr, 3);
    Copy(nullptr, nullptr, 3);
    Copy(&source, &unwritable, 3);
    EXPECT_EQ(*unwritable.GetConstData(), 0.0F);
}

TEST(CopyTest, DoesNothingWithZeroOrNegativeFrames) {
    Samples from{1};
    Samples to{10};
    const CAudioStream source(from.data(), 1);
    CAudioStream target(to.data(), 1);
    for (const int frames : {0, -1, std::numeric_limits<int>::min()}) {
        Copy(&source, &target, frames);
        Copy(nullptr, &target, frames);
        EXPECT_EQ(to, Samples{10}) << frames;
    }
}

TEST(ListTest, PairsChannelsAsFarAsBothListsReach) {
    CTestChannels two{{1, 2}, {3, 4}};
    CTestChannels three{{10, 10}, {10, 10}, {10, 10}};
    AddAll(two, three, 2);
    EXPECT_EQ(three.Samples(0), (Samples{11, 12}));
    EXPECT_EQ(three.Samples(1), (Samples{13, 14}));
    EXPECT_EQ(three.Samples(2), (Samples{10, 10}));
    CopyAll(three, two, 1);
    EXPECT_EQ(two.Samples(0), (Samples{11, 2}));
    EXPECT_EQ(two.Samples(1), (Samples{13, 4}));
}

TEST(ListTest, ClearsEveryChannel) {
    CTestChannels channels{{1, 2}, {3, 4}};
    Clear(channels, 1);
    EXPECT_EQ(channels.Samples(0), (Samples{0, 2}));
    EXPECT_EQ(channels.Samples(1), (Samples{0, 4}));
}

TEST(CrossFadeTest, WeighsEachFrameWithThePositionBeforeItsStep) {
    CTestChannels from{{8, 8, 8, 8}};
    CTestChannels to{{0, 0, 0, 0}};
    CTestChannels target{{9, 9, 9, 9}};
    float position = 0.25F;
    EXPECT_TRUE(CrossFade(from, to, target, 3, position, 0.125F));
    EXPECT_EQ(target.Samples(0), (Samples{6, 5, 4, 9}));
    EXPECT_EQ(position, 0.625F);
}

TEST(CrossFadeTest, StaysAtTheEndThatItHasReached) {
    CTestChannels from{{0, 0, 0, 0}};
    CTestChannels to{{8, 8, 8, 8}};
    CTestChannels target(1, 4);
    float position = 0.5F;
    EXPECT_FALSE(CrossFade(from, to, target, 4, position, 0.25F));
    EXPECT_EQ(target.Samples(0), (Samples{4, 6, 8, 8}));
    EXPECT_EQ(position, 1.0F);
    position = 0.25F;
    EXPECT_FALSE(CrossFade(from, to, target, 4, position, -0.25F));
    EXPECT_EQ(target.Samples(0), (Samples{2, 0, 0, 0}));
    EXPECT_EQ(position, 0.0F);
}

TEST(CrossFadeTest, GivesEachChannelTheSameCourse) {
    CTestChannels from{{0, 0}, {0, 0}, {0, 0}};
    CTestChannels to{{8, 8}, {16, 16}};
    CTestChannels target(3, 2, 9.0F);
    float position = 0.25F;
    EXPECT_TRUE(CrossFade(from, to, target, 2, position, 0.25F));
    EXPECT_EQ(target.Samples(0), (Samples{2, 4}));
    EXPECT_EQ(target.Samples(1), (Samples{4, 8}));
    EXPECT_EQ(target.Samples(2), (Samples{9, 9})); // beyond the smallest list
    EXPECT_EQ(position, 0.75F);
}

TEST(CrossFadeTest, MayWriteOverOneOfItsSources) {
    CTestChannels from{{8, 8}};
    CTestChannels to{{0, 4}};
    float position = 0.5F;
    EXPECT_TRUE(CrossFade(from, to, to, 2, position, 0.125F));
    EXPECT_EQ(to.Samples(0), (Samples{4, 5.5F}));
}

TEST(CrossFadeTest, EndsWithoutAnyChannel) {
    CTestChannels none{};
    float position = 0.0F;
    EXPECT_TRUE(CrossFade(none, none, none, 3, position, 0.25F));
    EXPECT_FALSE(CrossFade(none, none, none, 1, position, 0.25F));
}

TEST(CrossFadeTest, PassesOverAbsentStreams) {
    CEmptyStreams silence(1, 2);
    CTestChannels to{{8, 8}};
    CTestChannels target(1, 2);
    float position = 0.5F;
    EXPECT_TRUE(CrossFade(silence, to, target, 1, position, 0.25F));
    EXPECT_EQ(target.Samples(0), (Samples{4, 0}));
    EXPECT_FALSE(CrossFade(to, to, silence, 2, position, 0.25F));
    CAudioStream gone;
    CAudioStreams absent(&gone, 1);
    position = 0.0F;
    EXPECT_TRUE(CrossFade(absent, to, target, 2, position, 0.25F));
    EXPECT_EQ(target.Samples(0), (Samples{4, 0}));
}

TEST(CrossFadeTest, LeavesThePositionWithNoFrames) {
    CTestChannels channel{{1}};
    float position = 0.5F;
    EXPECT_TRUE(CrossFade(channel, channel, channel, 0, position, 0.25F));
    EXPECT_TRUE(CrossFade(channel, channel, channel, -4, position, 0.25F));
    EXPECT_EQ(position, 0.5F);
}

} // namespace
} // namespace Vorin::Audio::DSP::StreamOperations
