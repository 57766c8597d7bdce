#include "SkinEngine/Model/DynamicObjectsDictionary.h"

#include "containers/MemMessageLog.h"
#include "datamodel/objects/CaptureCurve.h"
#include "datamodel/objects/CaptureParam.h"
#include "datamodel/objects/CaptureSurface.h"

#include <gtest/gtest.h>

namespace ModelTests {
namespace {

using namespace Vorin;
using namespace Vorin::AppEngine;
using Objects::CCaptureParam;
using Objects::IConstCaptureParam;
using Objects::IConstParamInfo;

/// Counts its deaths.
class CMortal : public virtual Runtime::IDynamicObject {
public:
    explicit CMortal(int& deathCount) : deaths(deathCount) {}
    ~CMortal() override { ++deaths; }

private:
    int& deaths;
};

Objects::CParamInfo MakeGainInfo() {
    return {Objects::kParamReal, "Gain", "dB", "", nullptr, nullptr, -60.0, 12.0, -6.0};
}

class DynamicObjectsDictionaryTest : public ::testing::Test {
protected:
    bool AddParam(const char* id, CCaptureParam& param) {
        return objects.Add(id, new TModelObject<Objects::ICaptureParam>(param), Core::kOwn);
    }

    double Read(const char* id) const {
        auto* param = CastModelObject<IConstCaptureParam>(objects.Get(id));
        return param ? param->GetValue() : -12345.0;
    }

    std::string GetError() const {
        return log.GetCount() == 1 ? log.GetRecords()[0].text : std::to_string(log.GetCount());
    }

    CoreUtilities::CMemMessageLog log;
    CCaptureParam gain{MakeGainInfo()};
    CDynamicObjectsDictionary objects{&log};
};

TEST_F(DynamicObjectsDictionaryTest, FindsByExactIdentifier) {
    ASSERT_TRUE(AddParam("gain", gain));
    EXPECT_EQ(Read("gain"), -6.0);
    EXPECT_EQ(objects.Get("Gain"), nullptr);
    EXPECT_EQ(objects.Get(""), nullptr);
    EXPECT_EQ(objects.Get(nullptr), nullptr);
    EXPECT_EQ(objects.Get("gain.nothing"), nullptr);
    EXPECT_EQ(objects.Get(".info"), nullptr);
}

TEST_F(DynamicObjectsDictionaryTest, RefusesAnIdentifierThatStandsAndKeepsTheFirstObject) {
    CCaptureParam other;
    ASSERT_TRUE(AddParam("gain", gain));
    EXPECT_FALSE(AddParam("gain", other));
    EXPECT_EQ(GetError(),
              "'gain' : this object identifier already exists, use another identifier.");
    EXPECT_EQ(log.GetCount(Core::kErrorMessage), 1);
    EXPECT_EQ(Read("gain"), -6.0);
}

TEST_F(DynamicObjectsDictionaryTest, RefusesWithoutALogToo) {
    objects.SetLog(nullptr);
    ASSERT_TRUE(AddParam("gain", gain));
    EXPECT_FALSE(AddParam("gain", gain));
    EXPECT_EQ(log.GetCount(), 0);
}

TEST_F(DynamicObjectsDictionaryTest, DeletesWhatItOwns) {
    int deaths = 0;
    CMortal kept(deaths);
    EXPECT_TRUE(objects.Add("a", new CMortal(deaths), Core::kOwn));
    EXPECT_TRUE(objects.Add("b", new CMortal(deaths), Core::kOwn));
    EXPECT_TRUE(objects.Add("c", &kept, Core::kDontOwn));
    EXPECT_FALSE(objects.Add("a", new CMortal(deaths), Core::kOwn));
    EXPECT_EQ(deaths, 1) << "refused, and taken over all the same";
    EXPECT_FALSE(objects.Add(nullptr, new CMortal(deaths), Core::kOwn));
    EXPECT_EQ(deaths, 2);
    EXPECT_TRUE(objects.Remove("a"));
    EXPECT_FALSE(objects.Remove("a"));
    EXPECT_FALSE(objects.Remove(nullptr));
    EXPECT_EQ(deaths, 3);
    objects.Clear();
    EXPECT_EQ(deaths, 4);
}

TEST_F(DynamicObjectsDictionaryTest, TellsOfEachAddition) {
    struct CListener {
        void OnAdded(ISkinDynamicObjectsDictionary::Entry& entry) {
            told += std::string(entry.id) + (entry.object ? ";" : "?");
        }
        std::string told;
    } listener;
    Core::TArgCommand<CListener, ISkinDynamicObjectsDictionary::Entry&> command(
        &listener, &CListener::OnAdded);
    objects.GetAddedEvents().Connect(command);
    AddParam("a", gain);
    AddParam("b", gain);
    AddParam("a", gain);
    EXPECT_EQ(listener.told, "a;b;");
    objects.GetAddedEvents().Disconnect(command);
}

TEST_F(DynamicObjectsDictionaryTest, ParametersComeWithInfoDefaultMinAndMax) {
    AddParam("gain", gain);
    EXPECT_EQ(Read("gain.default"), -6.0);
    EXPECT_EQ(Read("gain.min"), -60.0);
    EXPECT_EQ(Read("gain.max"), 12.0);
    auto* max = CastModelObject<IConstCaptureParam>(objects.Get("gain.max"));
    auto* min = CastModelObject<IConstCaptureParam>(objects.Get("gain.min"));
    auto* initial = CastModelObject<IConstCaptureParam>(objects.Get("gain.default"));
    EXPECT_STREQ(max->GetInfo().GetName(), "Gain Max");
    EXPECT_STREQ(min->GetInfo().GetName(), "Gain Min");
    EXPECT_STREQ(initial->GetInfo().GetName(), "Gain Default");
    EXPECT_STREQ(max->GetInfo().GetUnit(), "dB");
    auto* info = CastModelObject<IConstParamInfo>(objects.Get("gain.info"));
    ASSERT_TRUE(info);
    EXPECT_STREQ(info->GetName(), "Gain");
    EXPECT_EQ(CastModelObject<Objects::ICaptureParam>(objects.Get("gain.max")), nullptr)
        << "these are to be read";
    EXPECT_EQ(objects.Get("gain.x_info"), nullptr);
}

TEST_F(DynamicObjectsDictionaryTest, WhatComesWithAParameterFollowsIt) {
    AddParam("gain", gain);
    EXPECT_EQ(Read("gain.max"), 12.0);
    int changes = 0;
    struct CCounter {
        void OnChanged() { ++*count; }
        int* count;
    } counter{&changes};
    Core::TCommand<CCounter> command(&counter, &CCounter::OnChanged);
    auto* max = CastModelObject<IConstCaptureParam>(objects.Get("gain.max"));
    max->GetValueChangedEvents().Connect(command);
    gain.GetInfo().SetMax(20.0);
    EXPECT_EQ(Read("gain.max"), 20.0);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(CastModelObject<IConstCaptureParam>(objects.Get("gain.max")), max);
    max->GetValueChangedEvents().Disconnect(command);
}

TEST_F(DynamicObjectsDictionaryTest, CurvesAndSurfacesComeWithTheInfosOfTheirAxes) {
    Objects::CCaptureCurve curve;
    curve.GetInfo().GetXInfo().SetName("Time");
    curve.GetInfo().GetYInfo().SetName("Level");
    Objects::CCaptureSurface surface;
    surface.GetInfo().GetZInfo().SetName("Height");
    objects.Add("c", new TModelObject<Objects::ICaptureCurve>(curve), Core::kOwn);
    objects.Add("s", new TModelObject<Objects::ICaptureSurface>(surface), Core::kOwn);
    const auto name = [&](const char* id) -> std::string {
        auto* info = CastModelObject<IConstParamInfo>(objects.Get(id));
        return info ? info->GetName() : "none";
    };
    EXPECT_EQ(name("c.x_info"), "Time");
    EXPECT_EQ(name("c.y_info"), "Level");
    EXPECT_EQ(name("c.z_info"), "none");
    EXPECT_EQ(name("s.x_info"), "");
    EXPECT_EQ(name("s.y_info"), "");
    EXPECT_EQ(name("s.z_info"), "Height");
    EXPECT_EQ(name("s.info"), "none");
}

TEST_F(DynamicObjectsDictionaryTest, WhatComesWithAnObjectHasItsIdentifierForItself) {
    AddParam("gain", gain);
    EXPECT_FALSE(AddParam("gain.max", gain));
    EXPECT_EQ(GetError(),
              "'gain.max' : this object identifier already exists, use another identifier.");
    EXPECT_TRUE(AddParam("gain.level", gain));
}

TEST_F(DynamicObjectsDictionaryTest, WhatStandsBeforeAnObjectThatBringsItIsTold) {
    EXPECT_TRUE(AddParam("gain.max", gain));
    EXPECT_FALSE(AddParam("gain", gain));
    EXPECT_EQ(GetError(),
              "'gain.max' : this object identifier already exists, use another identifier.");
    EXPECT_EQ(Read("gain"), -6.0);
    EXPECT_EQ(Read("gain.max"), -6.0) << "the one that was added";
}

TEST_F(DynamicObjectsDictionaryTest, EntriesComeInTheOrderOfTheirIdentifiers) {
    for (const char* id : {"b", "a.b", "c", "a"}) {
        AddParam(id, gain);
    }
    std::string ids;
    for (const auto& entry : objects.GetEntries()) {
        ids += std::string(entry.id) + ";";
    }
    EXPECT_EQ(ids, "a;a.b;b;c;");
    EXPECT_EQ(objects.GetCount(), 4);
}

} // namespace
} // namespace ModelTests
