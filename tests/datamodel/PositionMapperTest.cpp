#include "datamodel/PositionMapper.h"

#include "core/NonFinite.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace Vorin::DataModel::Objects {
namespace {

TEST(QuantizeTest, TwoStateTypesTakeMinUpToTheMiddle) {
    for (const EParamType type : {kParamBoolean, kParamSwitch}) {
        EXPECT_EQ(Quantize(type, 0.0, 0.0, 1.0), 0.0);
        EXPECT_EQ(Quantize(type, 0.51, 0.0, 1.0), 1.0);
        EXPECT_EQ(Quantize(type, -7.0, 0.0, 1.0), 0.0);
        EXPECT_EQ(Quantize(type, 3.0, 2.0, 4.0), 2.0);
        EXPECT_EQ(Quantize(type, 3.1, 2.0, 4.0), 4.0);
        EXPECT_EQ(Quantize(type, 100.0, 2.0, 4.0), 4.0);
    }
}

TEST(QuantizeTest, ABooleanExactlyAtMidRangeIsMin) {
    EXPECT_EQ(Quantize(kParamBoolean, 0.5, 0.0, 1.0), 0.0);
    EXPECT_EQ(CLinearPositionMapper(kParamBoolean, 0.0, 1.0).PositionToValue(0.5), 0.0);
}

TEST(QuantizeTest, IntegersRoundHalvesAwayFromZero) {
    EXPECT_EQ(Quantize(kParamInteger, 0.0, 0.0, 9.0), 0.0);
    EXPECT_EQ(Quantize(kParamInteger, 1.49, 0.0, 9.0), 1.0);
    EXPECT_EQ(Quantize(kParamInteger, 1.5, 0.0, 9.0), 2.0);
    EXPECT_EQ(Quantize(kParamInteger, -1.49, -9.0, 9.0), -1.0);
    EXPECT_EQ(Quantize(kParamInteger, -1.5, -9.0, 9.0), -2.0);
    // The range does not clamp.
    EXPECT_EQ(Quantize(kParamInteger, 42.4, 0.0, 9.0), 42.0);
}

TEST(QuantizeTest, ASmallNegativeIntegerIsNotMinusZero) {
    EXPECT_FALSE(std::signbit(Quantize(kParamInteger, -0.25, -1.0, 1.0)));
}

TEST(QuantizeTest, RealsAndUnknownTypesStayAsTheyAre) {
    EXPECT_EQ(Quantize(kParamReal, 1.234, 0.0, 1.0), 1.234);
    EXPECT_EQ(Quantize(static_cast<EParamType>(77), 1.234, 0.0, 1.0), 1.234);
    EXPECT_EQ(Quantize(static_cast<EParamType>(-1), 1.234, 0.0, 1.0), 1.234);
}

TEST(QuantizeTest, NotFiniteValues) {
    EXPECT_TRUE(std::isnan(Quantize(kParamInteger, kNaN, 0.0, 1.0)));
    EXPECT_TRUE(std::isnan(Quantize(kParamReal, kNaN, 0.0, 1.0)));
    EXPECT_EQ(Quantize(kParamBoolean, kNaN, 0.0, 1.0), 1.0);
    EXPECT_EQ(Quantize(kParamInteger, kInfinity, 0.0, 1.0), kInfinity);
    EXPECT_EQ(Quantize(kParamInteger, -kInfinity, 0.0, 1.0), -kInfinity);
    EXPECT_EQ(Quantize(kParamInteger, 1e300, 0.0, 1.0), 1e300);
}

TEST(LinearPositionMapperTest, MapsTheRangeToZeroToOne) {
    const CLinearPositionMapper mapper(kParamReal, 2.0, 6.0);
    EXPECT_EQ(mapper.ValueToPosition(2.0), 0.0);
    EXPECT_EQ(mapper.ValueToPosition(3.0), 0.25);
    EXPECT_EQ(mapper.ValueToPosition(6.0), 1.0);
    EXPECT_EQ(mapper.PositionToValue(0.25), 3.0);
}

TEST(LinearPositionMapperTest, DoesNotClamp) {
    const CLinearPositionMapper mapper(kParamReal, 2.0, 6.0);
    EXPECT_EQ(mapper.ValueToPosition(10.0), 2.0);
    EXPECT_EQ(mapper.PositionToValue(-1.0), -2.0);
}

TEST(LinearPositionMapperTest, AnIntegerPositionRoundsUpAtTheHalf) {
    const CLinearPositionMapper mapper(kParamInteger, 0.0, 3.0);
    EXPECT_EQ(mapper.PositionToValue(0.5), 2.0); // 1.5
    EXPECT_NEAR(mapper.ValueToPosition(1.4), 1.0 / 3.0, 1e-15);
}

TEST(LinearPositionMapperTest, AnEmptyRangeMapsEveryPositionToMin) {
    const CLinearPositionMapper mapper(kParamReal, 5.0, 5.0);
    for (const double position : {-1.0, 0.0, 0.5, 1.0}) {
        EXPECT_EQ(mapper.PositionToValue(position), 5.0);
    }
    EXPECT_EQ(mapper.ValueToPosition(5.0), 0.0);
    EXPECT_EQ(mapper.ValueToPosition(7.5), 2.5); // the inverse of the range is 1
}

TEST(LinearPositionMapperTest, SettersMoveTheRange) {
    CLinearPositionMapper mapper(kParamReal, 0.0, 1.0);
    mapper.SetMax(10.0);
    EXPECT_EQ(mapper.ValueToPosition(5.0), 0.5);
    mapper.SetMin(-10.0);
    EXPECT_EQ(mapper.ValueToPosition(5.0), 0.75);
    mapper.SetType(kParamInteger);
    EXPECT_EQ(mapper.PositionToValue(0.52), 0.0); // 0.4
    mapper.SetMax(-10.0);
    EXPECT_EQ(mapper.ValueToPosition(-9.0), 1.0);
}

TEST(LinearPositionMapperTest, ACloneKeepsItsRange) {
    CLinearPositionMapper mapper(kParamReal, 0.0, 4.0);
    const std::unique_ptr<IParamPositionMapper> clone(mapper.Clone());
    mapper.SetMax(8.0);
    EXPECT_EQ(clone->ValueToPosition(1.0), 0.25);
}

TEST(DefaultFormatTest, OnlyRealsHaveDecimals) {
    EXPECT_STREQ(GetDefaultFormat(kParamBoolean), "%.0f");
    EXPECT_STREQ(GetDefaultFormat(kParamInteger), "%.0f");
    EXPECT_STREQ(GetDefaultFormat(kParamReal), "%.2f");
    EXPECT_STREQ(GetDefaultFormat(kParamSwitch), "%.0f");
    EXPECT_STREQ(GetDefaultFormat(static_cast<EParamType>(9)), "%.2f");
}

} // namespace
} // namespace Vorin::DataModel::Objects
