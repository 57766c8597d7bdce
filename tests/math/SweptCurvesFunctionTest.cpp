#include "math/SweptCurvesFunction.h"

#include "math/Constant.h"
#include "serialization/MemDataObject.h"
#include "serialization/StreamHelpers.h"
#include "serialization/XmlDataObject.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <string>

namespace Vorin::Math {
namespace {

using namespace Serialization;

using Square = TFunction<&FunctionsLibrary::Square>;
using Identity = TFunction<&FunctionsLibrary::Identity>;

class CMortalCurve : public CConstantFunction {
public:
    CMortalCurve(double initial, int& countedDeaths)
        : CConstantFunction(initial), deaths(countedDeaths) {}
    ~CMortalCurve() override { ++deaths; }

private:
    int& deaths;
};

/// At 0 s the constant 1, at 1 s x, at 2 s x², at 3 s the constant 100; -1 by default.
CSweptCurvesFunction MakeSwept() {
    CSweptCurvesFunction swept;
    swept.SetCapacity(4);
    swept.SetDefaultValue(new CConstantFunction(-1.0), Core::kOwn);
    EXPECT_TRUE(swept.AddPoint(0.0, new CConstantFunction(1.0)));
    EXPECT_TRUE(swept.AddPoint(1.0, new Identity));
    EXPECT_TRUE(swept.AddPoint(2.0, new Square));
    EXPECT_TRUE(swept.AddPoint(3.0, new CConstantFunction(100.0)));
    return swept;
}

TEST(SweptCurvesFunctionTest, MixesTheNeighboursOfATime) {
    const CSweptCurvesFunction swept = MakeSwept();
    EXPECT_EQ(swept.Evaluate(5.0, 0.0), 100.0);
    EXPECT_EQ(swept.Evaluate(5.0, 2.0), 100.0);
    EXPECT_EQ(swept.Evaluate(5.0, -1.0), 25.0);
    EXPECT_EQ(swept.Evaluate(5.0, -1.25), 20.0); // a quarter of the way from 25 to 5
    EXPECT_EQ(swept.Evaluate(5.0, -0.5), 62.5);
    EXPECT_EQ(swept.Evaluate(5.0, -2.0), 5.0);
    EXPECT_EQ(swept.Evaluate(5.0, -2.5), -1.0);
    EXPECT_EQ(swept.Evaluate(5.0, -9.0), -1.0);
    EXPECT_EQ(swept.Evaluate(5.0, std::nan("")), -1.0);
}

TEST(SweptCurvesFunctionTest, WithoutCurvesAndDefaultItIsZero) {
    CSweptCurvesFunction swept;
    EXPECT_EQ(swept.Evaluate(5.0, 0.0), 0.0);
    swept.SetDefaultValue(new Square, Core::kOwn);
    EXPECT_EQ(swept.Evaluate(5.0, 0.0), 25.0);
}

TEST(SweptCurvesFunctionTest, ANullCurveLeavesItsNeighbourAlone) {
    CSweptCurvesFunction swept;
    swept.SetCapacity(8);
    swept.SetDefaultValue(new CConstantFunction(-1.0), Core::kOwn);
    swept.AddPoint(0.0, new Square);
    swept.AddPoint(1.0, new Square);
    EXPECT_TRUE(swept.AddPoint(2.0, nullptr));
    swept.AddPoint(3.0, nullptr);
    swept.AddPoint(4.0, new Identity);
    EXPECT_EQ(swept.Evaluate(3.0, -2.75), 9.0); // between the square and none
    EXPECT_EQ(swept.Evaluate(3.0, -1.5), -1.0); // between two of none
    EXPECT_EQ(swept.Evaluate(3.0, -0.5), 3.0);
    swept.AddPoint(5.0, nullptr);
    EXPECT_EQ(swept.Evaluate(3.0, 0.0), -1.0);
}

TEST(SweptCurvesFunctionTest, OwnsItsCurvesAndThoseItRefuses) {
    int deaths = 0;
    {
        CMortalCurve borrowed(1.0, deaths);
        CSweptCurvesFunction swept;
        swept.SetCapacity(2);
        swept.AddPoint(1.0, new CMortalCurve(1.0, deaths));
        EXPECT_FALSE(swept.AddPoint(1.0, new CMortalCurve(2.0, deaths)));
        EXPECT_EQ(deaths, 1);
        EXPECT_FALSE(swept.AddPoint(0.0, &borrowed, Core::kDontOwn));
        EXPECT_TRUE(swept.AddPoint(2.0, &borrowed, Core::kDontOwn));
        swept.AddPoint(3.0, new CMortalCurve(3.0, deaths)); // over the first
        EXPECT_EQ(deaths, 2);
        swept.AddPoint(4.0, nullptr); // over the borrowed one
        EXPECT_EQ(deaths, 2);
        swept.SetCapacity(2);
        EXPECT_EQ(deaths, 3);
    }
    EXPECT_EQ(deaths, 4);
}

TEST(SweptCurvesFunctionTest, AfterWrapAroundTheCountOfPointsIsTheCapacity) {
    CSweptCurvesFunction swept = MakeSwept();
    swept.AddPoint(4.0, new CConstantFunction(7.0));
    swept.AddPoint(5.0, new CConstantFunction(9.0));
    EXPECT_EQ(swept.GetPointsCount(), 4);
    EXPECT_EQ(swept.GetCapacity(), 4);
    EXPECT_EQ(swept.Evaluate(0.0, -0.5), 8.0);
}

TEST(SweptCurvesFunctionTest, AClonesCurvesAreItsOwn) {
    CConstantFunction curve(2.0);
    CSweptCurvesFunction swept;
    swept.AddPoint(1.0, &curve, Core::kDontOwn);
    const std::unique_ptr<IBinaryFunction> clone(swept.Clone());
    curve.SetValue(3.0);
    EXPECT_EQ(swept.Evaluate(0.0, 0.0), 3.0);
    EXPECT_EQ(clone->Evaluate(0.0, 0.0), 2.0);
}

TEST(SweptCurvesFunctionTest, CurvesAndDefaultAreWrittenWithTheirTypes) {
    CSweptCurvesFunction swept = MakeSwept();
    swept.AddPoint(4.0, nullptr);
    for (const EXmlMode mode : {kXmlAttributes, kXmlElements, kXmlTypedElements}) {
        CXmlDataObject stream("Root", mode);
        ASSERT_TRUE(swept.Serialize(stream));
        CSweptCurvesFunction read;
        ASSERT_TRUE(read.DeSerialize(stream));
        for (int i = -50; i <= 4; ++i) {
            EXPECT_EQ(read.Evaluate(5.0, i / 10.0), swept.Evaluate(5.0, i / 10.0)) << i;
        }
    }
}

TEST(SweptCurvesFunctionTest, CurvesThatCannotBeReadAreTheIdentity) {
    CXmlDataObject written("Root", kXmlElements);
    ASSERT_TRUE(MakeSwept().Serialize(written));
    Containers::CCharString printed;
    ASSERT_TRUE(written.SaveString(printed));
    std::string text = printed.Get();
    const std::string type = CConstantFunction::kIdentifier;
    for (std::size_t at = text.find(type); at != std::string::npos; at = text.find(type)) {
        text.replace(at, type.size(), "{nobody}");
    }
    CXmlDataObject stream("Root", kXmlElements);
    ASSERT_TRUE(stream.Parse(text.data(), static_cast<int>(text.size())));
    CSweptCurvesFunction read;
    ASSERT_TRUE(read.DeSerialize(stream));
    EXPECT_EQ(read.Evaluate(5.0, 0.0), 5.0);
    EXPECT_EQ(read.Evaluate(5.0, -1.0), 25.0);
    EXPECT_EQ(read.GetDefaultValue(), GetNeutralFunction<IFunction>());
}

TEST(SweptCurvesFunctionTest, AnUnfitFormChangesNothing) {
    for (const char* key : {"version", "mask", "currentIndex", "pointsCount"}) {
        CMemDataObject stream;
        ASSERT_TRUE(MakeSwept().Serialize(stream));
        stream.WriteInt(key, 6);
        CSweptCurvesFunction swept;
        swept.AddPoint(1.0, new CConstantFunction(4.0));
        EXPECT_FALSE(swept.DeSerialize(stream)) << key;
        EXPECT_EQ(swept.Evaluate(0.0, 0.0), 4.0);
        EXPECT_EQ(swept.GetDefaultValue(), nullptr);
    }
    CSweptCurvesFunction swept;
    EXPECT_FALSE(swept.DeSerialize(CMemDataObject()));
    EXPECT_TRUE(swept.DeSerialize(TTolerant<CMemDataObject>()));
}

TEST(SweptCurvesFunctionTest, CapacityIsBoundedOnBothSides) {
    CSweptCurvesFunction swept;
    swept.SetCapacity(std::numeric_limits<int>::min());
    EXPECT_EQ(swept.GetCapacity(), 1);
    swept.SetCapacity(5);
    EXPECT_EQ(swept.GetCapacity(), 8);
    swept.SetDuration(2.0);
    EXPECT_EQ(swept.GetDuration(), 2.0);
}

} // namespace
} // namespace Vorin::Math
