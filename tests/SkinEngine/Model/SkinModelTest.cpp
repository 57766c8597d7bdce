#include "ModelTest.h"

#include "datamodel/objects/CaptureProperty.h"

namespace ModelTests {
namespace {

using SkinModelTest = CModelTest;

TEST_F(SkinModelTest, KnowsEveryKindOfObjectByItsInterfaces) {
    Objects::CCaptureParam param;
    Objects::CCaptureCurve curve;
    Objects::CCaptureSurface surface;
    Objects::CCaptureString string;
    Objects::CCaptureProperty property;
    Objects::CAction action;
    CSkinCollection collection("k");
    const auto owner = Core::kDontOwn;
    EXPECT_TRUE(model->AddParam("p", &param, owner));
    EXPECT_TRUE(model->AddCurve("c", &curve, owner));
    EXPECT_TRUE(model->AddSurface("u", &surface, owner));
    EXPECT_TRUE(model->AddString("s", &string, owner));
    EXPECT_TRUE(model->AddProperty("o", &property, owner));
    EXPECT_TRUE(model->AddAction("a", &action, owner));
    EXPECT_TRUE(model->AddCollection("k", &collection, owner));
    EXPECT_TRUE(model->AddConstParam("p2", &param, owner));
    EXPECT_TRUE(model->AddConstCurve("c2", &curve, owner));
    EXPECT_TRUE(model->AddConstSurface("u2", &surface, owner));
    EXPECT_TRUE(model->AddConstString("s2", &string, owner));
    EXPECT_TRUE(model->AddConstProperty("o2", &property, owner));
    EXPECT_TRUE(model->AddConstAction("a2", &action, owner));
    EXPECT_TRUE(model->AddConstCollection("k2", &collection, owner));

    EXPECT_EQ(Find<Objects::ICaptureParam>("p"), &param);
    EXPECT_EQ(Find<Objects::IConstCaptureParam>("p"), &param);
    EXPECT_EQ(Find<Objects::IConstCaptureParam>("p2"), &param);
    EXPECT_EQ(Find<Objects::ICaptureParam>("p2"), nullptr) << "only to be read";
    EXPECT_EQ(Find<Objects::ICaptureCurve>("c"), &curve);
    EXPECT_EQ(Find<Objects::ICaptureCurve>("c2"), nullptr);
    EXPECT_EQ(Find<Objects::ICaptureSurface>("u"), &surface);
    EXPECT_EQ(Find<Objects::ICaptureSurface>("u2"), nullptr);
    EXPECT_EQ(Find<Objects::ICaptureString>("s"), &string);
    EXPECT_EQ(Find<Objects::ICaptureString>("s2"), nullptr);
    EXPECT_EQ(Find<Objects::ICaptureProperty>("o"), &property);
    EXPECT_EQ(Find<Objects::ICaptureProperty>("o2"), nullptr);
    EXPECT_EQ(Find<Objects::IAction>("a"), &action);
    EXPECT_EQ(Find<Objects::IAction>("a2"), nullptr);
    EXPECT_EQ(Find<DataModel::ICollection>("k"), &collection);
    EXPECT_EQ(Find<DataModel::ICollection>("k2"), nullptr);
    EXPECT_EQ(Find<DataModel::IConstCollection>("k2"), &collection);
    EXPECT_EQ(Find<Objects::IConstCaptureCurve>("p"), nullptr) << "of another kind";
    Unload();
}

TEST_F(SkinModelTest, RefusesNull) {
    EXPECT_FALSE(model->AddParam("p", nullptr, Core::kOwn));
    EXPECT_FALSE(model->AddParam(nullptr, new Objects::CCaptureParam, Core::kOwn));
    EXPECT_FALSE(Has("p"));
}

TEST_F(SkinModelTest, TakesARefusedObjectOverAllTheSame) {
    EXPECT_TRUE(model->AddParam("p", new Objects::CCaptureParam, Core::kOwn));
    EXPECT_FALSE(model->AddParam("p", new Objects::CCaptureParam, Core::kOwn));
}

TEST_F(SkinModelTest, GivesPlaceholdersForWhatItDoesNotKnow) {
    EXPECT_STREQ(model->GetParam("x").GetInfo().GetName(), "?");
    EXPECT_STREQ(model->GetConstParam("x").GetInfo().GetComment(), "Parameter not found");
    EXPECT_EQ(model->GetParam("x").GetInfo().GetMin(), 0.0);
    EXPECT_EQ(model->GetParam("x").GetInfo().GetMax(), 0.0);
    EXPECT_STREQ(model->GetCurve("x").GetInfo().GetName(), "Curve not found");
    EXPECT_STREQ(model->GetConstCurve("x").GetInfo().GetName(), "Curve not found");
    EXPECT_STREQ(model->GetSurface("x").GetInfo().GetName(), "Surface not found");
    EXPECT_STREQ(model->GetConstSurface("x").GetInfo().GetName(), "Surface not found");
    EXPECT_STREQ(model->GetString("x").GetValue(), "?");
    EXPECT_STREQ(model->GetConstString("x").GetInfo().GetName(), "String not found");
    const auto& action = dynamic_cast<Objects::CAction&>(model->GetAction("x"));
    EXPECT_STREQ(action.GetInfo().GetName(), "Action not found");
    model->GetParam("x").SetValue(5.0);
    EXPECT_EQ(model->GetParam("x").GetValue(), 0.0);
    model->GetAction("x").Execute();
}

TEST_F(SkinModelTest, IsDisabledUntilItIsLinked) {
    EXPECT_FALSE(model->IsEnabled());
    ASSERT_TRUE(Load("<PARAM id='a' max='9'/><PARAM id='b' max='9'/>"
                     "<PARAM_LINK from='a' to='b'/><PARAM id='c' max='9'/>"
                     "<PARAM_ANIMATED_LINK from='a' to='c' duration_ms='0'/>"));
    EXPECT_TRUE(model->IsEnabled());
    struct CListener {
        void OnChanged() { ++count; }
        int count = 0;
    } listener;
    Core::TCommand<CListener> command(&listener, &CListener::OnChanged);
    model->GetEnableEvents().Connect(command);
    model->SetEnabled(false);
    model->SetEnabled(false);
    EXPECT_EQ(listener.count, 1);
    Set("a", 5.0);
    Wait(100);
    EXPECT_EQ(Get("b"), 5.0) << "links go on";
    EXPECT_EQ(Get("c"), 0.0) << "what time drives rests";
    model->SetEnabled(true);
    EXPECT_EQ(listener.count, 2);
    Wait(100);
    EXPECT_EQ(Get("c"), 5.0);
    model->GetEnableEvents().Disconnect(command);
}

TEST_F(SkinModelTest, DisconnectEndsWhatGoesOn) {
    ASSERT_TRUE(Load("<PARAM id='a' max='9'/><PARAM id='b' max='9'/>"
                     "<PARAM_LINK from='a' to='b'/><FORMULA_PARAM id='f' formula='a+1'/>"));
    model->Disconnect();
    Set("a", 5.0);
    EXPECT_EQ(Get("b"), 0.0);
    EXPECT_EQ(Get("f"), 1.0);
    model->Disconnect();
}

TEST_F(SkinModelTest, WhatAnotherModelAttachesIsFoundAndGoesAgain) {
    CSkinModel inner;
    Objects::CCaptureParam before;
    Objects::CCaptureParam later;
    Objects::CCaptureParam own;
    inner.AddParam("before", &before, Core::kDontOwn);
    inner.SetPersistent("before");
    model->AddParam("own", &own, Core::kDontOwn);
    EXPECT_TRUE(inner.AttachTo(*model));
    EXPECT_TRUE(inner.AddParam("later", &later, Core::kDontOwn));
    EXPECT_EQ(Find<Objects::ICaptureParam>("before"), &before);
    EXPECT_EQ(Find<Objects::ICaptureParam>("later"), &later);
    EXPECT_FALSE(model->SetPersistent("before")) << "it is already";
    EXPECT_FALSE(inner.AddParam("own", &later, Core::kDontOwn)) << "the other one has it";
    EXPECT_TRUE(model->SetExposed("later"));
    inner.Disconnect();
    EXPECT_FALSE(Has("before"));
    EXPECT_FALSE(Has("later"));
    EXPECT_EQ(Find<Objects::ICaptureParam>("own"), &own);
    EXPECT_FALSE(model->GetExposure().IsExposed("later"));
    Unload();
}

TEST_F(SkinModelTest, ExposedObjectsCanBeReachedFromOutside) {
    ASSERT_TRUE(Load("<PARAM id='a' max='9' default='4' exposed='true'/>"));
    const ISkinModelExposure& exposure = model->GetExposure();
    auto* param = CastModelObject<Objects::ICaptureParam>(exposure.Get("a"));
    ASSERT_TRUE(param);
    EXPECT_EQ(param->GetValue(), 4.0);
    EXPECT_TRUE(exposure.Get("a.info"));
    EXPECT_FALSE(exposure.Get("alive"));
    EXPECT_FALSE(model->SetExposed("a"));
    EXPECT_FALSE(model->SetExposed("nobody"));
    EXPECT_TRUE(model->SetExposed("alive"));
}

TEST_F(SkinModelTest, LoadsAndUnloadsAThousandTimes) {
    // What leaks here the address sanitizer tells.
    const std::string content = R"(
        <PARAM id="a" max="9" default="1" persistent="true"/><PARAM id="b" max="9"/>
        <STRING id="s" default="x"/><STRING id="t"/><CURVE id="c"/><CURVE id="d"/>
        <FORMULA_PARAM id="f" formula="a+b*2"/><FORMULA_CURVE id="g" formula="c(x)+a*x"/>
        <FORMULA_SURFACE id="h" formula="x*y+a"/>
        <PARAM_LINK id="l" from="a" to="b"/><CURVE_LINK from="g" to="d"/>
        <STRING_LINK from="s" to="t"/><PARAM_CONNECTION id1="a" id2="b"/>
        <PARAM_ANIMATED_LINK from="f" to="b"/><PARAM_MULTI_LINK from="a;f" to="b"/>
        <CURVE_VALUE_PARAM id="v" curve_id="g" x_param_id="a"/>
        <CURVE_FROM_PARAM_OVER_TIME id="o" param_id="a" duration_ms="100"/>
        <SURFACE_FROM_CURVE_OVER_TIME id="w" curve_id="g" duration_ms="100"/>
        <PARAM_ANIMATOR id="n" param_id="a"/>
        <FUNCTION_INVOKE_ACTION id="u" function="OpenUrl" arg_url="s"/>
        <COLLECTION id="k" count="2"><PARAM id="$item_id$.p" max="9"/>
          <PARAM_LINK from="a" to="$item_id$.p"/></COLLECTION>
        <FOREACH id="e" collection_id="k"><FORMULA_PARAM id="$item_id$.f" formula="a"/></FOREACH>)";
    for (int i = 0; i < 1000; ++i) {
        ASSERT_TRUE(Load(content));
        Set("k.count", 1.0);
        if (i % 2 == 0) {
            Wait(2);
        }
    }
}

} // namespace
} // namespace ModelTests
