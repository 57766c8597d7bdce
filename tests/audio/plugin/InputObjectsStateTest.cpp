// The texts, curves, surfaces and custom properties of a filter as a part of the plug-in's state.

#include "audio/plugin/AudioPluginInternals.h"
#include "audio/plugin/InputsTestKit.h"
#include "audio/plugin/TestPaths.h"
#include "files/TemporaryFolder.h"
#include "math/LibraryFunction.h"
#include "serialization/MemDataObject.h"
#include "serialization/XmlDataObject.h"

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <string>
#include <thread>

namespace Vorin::Audio::Plugin {
namespace {

using Math::CConstantBinaryFunction;
using Math::CConstantFunction;
using Serialization::CMemDataObject;
using Serialization::CXmlDataObject;

/// A display that refuses its part of a document unless it is marked as fit.
class CPickyGUI : public IPluginGUI {
public:
    void SetPresetsManager(IPresetsManager&) override {}
    void Open(void*) override {}
    void Show(bool) override {}
    void Close() override {}
    Core::C2DSize GetSize() const override { return {}; }
    Core::IEventProvider& GetSizeChangedEvents() override { return sizeChanged; }
    void BeginLoad() override {}
    void EndLoad() override {}
    bool Serialize(Serialization::IWriteDataStream& stream) const override {
        return stream.WriteInt("fit", 1);
    }
    bool DeSerialize(const Serialization::IReadDataStream& stream) override {
        int fit = 0;
        return stream.ReadInt("fit", fit) && fit == 1;
    }

private:
    Core::CEventProvider sizeChanged;
};

class InputObjectsStateTest : public ::testing::Test {
protected:
    InputObjectsStateTest() : InputObjectsStateTest(std::make_unique<CAllInputsFilter>()) {}
    explicit InputObjectsStateTest(std::unique_ptr<CAllInputsFilter> owned)
        : filter(*owned), internals({.filter = std::move(owned),
                                     .gui = std::make_unique<CPickyGUI>(),
                                     .productInfo = nullptr,
                                     .storeState = true},
                                    settings) {
        internals.Connect(inputs, outputs);
    }
    ~InputObjectsStateTest() override { internals.Disconnect(); }

    std::string Save() const {
        CXmlDataObject document("Preset", Serialization::kXmlAttributes);
        EXPECT_TRUE(internals.Serialize(document));
        Containers::CCharString text;
        EXPECT_TRUE(document.SaveString(text));
        return text.Get();
    }

    bool Restore(const std::string& text) {
        CXmlDataObject document("Preset", Serialization::kXmlAttributes);
        return document.Parse(text.data(), static_cast<int>(text.size())) &&
               internals.DeSerialize(document);
    }

    static std::string Preset(int version, const std::string& content) {
        return "<Preset version=\"" + std::to_string(version) + "\">" + content + "</Preset>";
    }

    void SetAll(int value) {
        inputs.Get(1).SetValue(value);
        objects.GetStrings().Get(0).SetValue(("text " + std::to_string(value)).c_str());
        objects.GetStrings().Get(1).SetValue("<&\"'\n>");
        objects.GetCurves().Get(0).SetValue(CConstantFunction(value + 0.1));
        objects.GetSurfaces().Get(0).SetValue(CConstantBinaryFunction(value + 0.2));
        objects.GetProperties().Get(0).SetValue(CNumberProperty(value + 0.3));
    }

    /// What the filter has after the next block.
    const CSeenInputs& Look() {
        internals.ApplyPending();
        return filter.given;
    }

    void ExpectAll(int value) {
        const CSeenInputs& seen = Look();
        EXPECT_EQ(seen.gain, value);
        EXPECT_EQ(seen.texts[0], "text " + std::to_string(value));
        EXPECT_STREQ(seen.texts[1], "<&\"'\n>");
        EXPECT_EQ(seen.curve, value + 0.1);
        EXPECT_EQ(seen.surface, value + 0.2);
        EXPECT_EQ(seen.number, value + 0.3);
    }

    void ExpectDefaults() {
        const CSeenInputs& seen = Look();
        EXPECT_STREQ(seen.texts[0], "first");
        EXPECT_STREQ(seen.texts[1], "second");
        EXPECT_EQ(seen.curve, 2.0);
        EXPECT_EQ(seen.surface, 3.0);
        EXPECT_EQ(seen.number, 4.0);
    }

    /// A document that is refused leaves everything as it was.
    void ExpectRefused(const std::string& content) {
        SCOPED_TRACE(content);
        SetAll(7);
        const std::string before = Save();
        EXPECT_FALSE(Restore(Preset(3, "<inputParams p1=\"5\"/>" + content)));
        EXPECT_EQ(Save(), before);
        EXPECT_EQ(internals.GetChangedSincePresetLoaded().GetValue(), 1.0);
        ExpectAll(7);
    }

    TestFiles::CTemporaryFolder folder;
    const std::string shipped = folder.Path("shipped");
    const std::string user = folder.Path("user");
    TAudioPluginConfig<CTestPaths> settings{CPackageInfo(shipped.c_str(), user.c_str())};
    CAllInputsFilter& filter;
    CAudioPluginInternals internals;
    CInputObjects& objects{internals.GetInputObjects()};
    CHostParams inputs{internals.GetInputInfos()};
    CHostParams outputs{internals.GetFilter().GetOutputParamInfos()};
};

constexpr char kStateAsXml[] = "    <inputParams count=\"2\" p0=\"0\" p1=\"1\"/>\n"
                               "    <inputStrings count=\"2\" s0=\"first\" s1=\"second\"/>\n"
                               "    <inputCurves itemCount=\"1\">\n"
                               "        <item0 isNull=\"0\" type=\"";

TEST_F(InputObjectsStateTest, WritesTheGroupsBehindTheParameters) {
    const std::string text = Save();
    EXPECT_NE(text.find(kStateAsXml), std::string::npos) << text;
    const auto curves = text.find("<inputCurves itemCount=\"1\">");
    const auto surfaces = text.find("<inputSurfaces itemCount=\"1\">");
    const auto properties = text.find("<inputCustomProperties itemCount=\"1\">");
    const auto model = text.find("<model/>");
    EXPECT_LT(curves, surfaces);
    EXPECT_LT(surfaces, properties);
    EXPECT_LT(properties, model);
    EXPECT_NE(model, std::string::npos) << text;
}

TEST_F(InputObjectsStateTest, ReadsBackWhatItWroteAsXml) {
    SetAll(7);
    const std::string saved = Save();
    SetAll(8);
    ExpectAll(8);
    ASSERT_TRUE(Restore(saved));
    ExpectAll(7);
    EXPECT_EQ(Save(), saved);
}

TEST_F(InputObjectsStateTest, ReadsBackWhatItWroteToMemory) {
    SetAll(7);
    CMemDataObject saved;
    ASSERT_TRUE(internals.Serialize(saved));
    SetAll(8);
    ASSERT_TRUE(internals.DeSerialize(saved));
    ExpectAll(7);
}

TEST_F(InputObjectsStateTest, ReadsObjectsOfOtherTypesThanTheDefaults) {
    objects.GetCurves().Get(0).SetValue(Math::TFunction<&Math::FunctionsLibrary::Cos>());
    const std::string saved = Save();
    SetAll(8);
    ASSERT_TRUE(Restore(saved));
    EXPECT_EQ(Look().curve, 1.0); // cos 0
}

TEST_F(InputObjectsStateTest, ShowsWhetherAnyOfThemChangedSinceTheLastLoad) {
    CHostParam& changed = internals.GetChangedSincePresetLoaded();
    const std::string saved = Save();
    const auto expectMark = [&](auto&& change) {
        ASSERT_TRUE(Restore(saved));
        EXPECT_EQ(changed.GetValue(), 0.0);
        change();
        EXPECT_EQ(changed.GetValue(), 1.0);
    };
    expectMark([&] { objects.GetStrings().Get(1).SetValue("new"); });
    expectMark([&] { objects.GetCurves().Get(0).SetValue(CConstantFunction(1.0)); });
    expectMark([&] { objects.GetSurfaces().Get(0).SetValue(CConstantBinaryFunction(1.0)); });
    expectMark([&] { objects.GetProperties().Get(0).SetValue(CNumberProperty(1.0)); });
    ASSERT_TRUE(Restore(saved));
    ASSERT_TRUE(internals.Configure({}, 96000.0));
    EXPECT_EQ(changed.GetValue(), 0.0); // another sample rate is no change of the user's
}

TEST_F(InputObjectsStateTest, AMissingGroupHasTheDefaultsFromVersion3On) {
    SetAll(7);
    ASSERT_TRUE(Restore(Preset(3, "")));
    ExpectDefaults();
}

TEST_F(InputObjectsStateTest, AnOlderDocumentLeavesMissingGroupsAsTheyAre) {
    SetAll(7);
    ASSERT_TRUE(Restore(Preset(2, "<inputParams p1=\"7\"/>")));
    ExpectAll(7);
    ASSERT_TRUE(Restore("<Preset><inputParams p1=\"7\"/></Preset>"));
    ExpectAll(7);
}

TEST_F(InputObjectsStateTest, AnOlderDocumentThatHasAGroupIsRead) {
    SetAll(7);
    ASSERT_TRUE(Restore(Preset(2, "<inputStrings count=\"2\" s0=\"old\"/>")));
    EXPECT_STREQ(Look().texts[0], "old");
    EXPECT_EQ(Look().curve, 7.1);
}

TEST_F(InputObjectsStateTest, MissingItemsKeepTheCurrentValues) {
    SetAll(7);
    ASSERT_TRUE(Restore(Preset(3, "<inputParams p1=\"7\"/>"
                                  "<inputStrings count=\"2\" s0=\"text 7\"/>"
                                  "<inputCurves itemCount=\"1\"/><inputSurfaces/>"
                                  "<inputCustomProperties itemCount=\"0\"/>")));
    ExpectAll(7);
}

TEST_F(InputObjectsStateTest, IgnoresItemsThatItDoesNotKnow) {
    ASSERT_TRUE(Restore(Preset(4, "<inputStrings count=\"3\" s0=\"a\" s1=\"b\" s2=\"c\"/>"
                                  "<inputCurves itemCount=\"2\"><item1 isNull=\"0\" "
                                  "type=\"unheard of\"/></inputCurves>")));
    EXPECT_STREQ(Look().texts[0], "a");
    EXPECT_EQ(Look().curve, 2.0);
}

TEST_F(InputObjectsStateTest, NullStandsForTheDefault) {
    SetAll(7);
    ASSERT_TRUE(Restore(Preset(3, "<inputCurves itemCount=\"1\"><item0 isNull=\"1\"/></inputCurves>"
                                  "<inputCustomProperties itemCount=\"1\"><item0 isNull=\"1\"/>"
                                  "</inputCustomProperties>")));
    EXPECT_EQ(Look().curve, 2.0);
    EXPECT_EQ(Look().number, 4.0);
}

TEST_F(InputObjectsStateTest, APropertyOfNoTypeReadsAsTheDefaultUnlessItIsStillThere) {
    objects.GetProperties().Get(0).SetValue(CNamelessProperty());
    const std::string saved = Save();
    ASSERT_TRUE(Restore(saved));
    EXPECT_EQ(Look().number, -1.0);
    objects.GetProperties().Get(0).SetValue(CNumberProperty(9.0));
    ASSERT_TRUE(Restore(saved));
    EXPECT_EQ(Look().number, 4.0);
}

TEST_F(InputObjectsStateTest, RefusesWhatNoPresetCanHave) {
    ExpectRefused("<inputStrings count=\"-1\"/>");
    ExpectRefused("<inputStrings count=\"3\" s0=\"a\" s1=\"b\"/>");
    ExpectRefused("<inputStrings count=\"2000000000\" s0=\"a\"/>");
    for (const std::string group : {"inputCurves", "inputSurfaces", "inputCustomProperties"}) {
        const auto make = [&](const std::string& count, const std::string& item) {
            return "<inputStrings count=\"2\" s0=\"a\" s1=\"b\"/><" + group + " itemCount=\"" +
                   count + "\">" + item + "</" + group + ">";
        };
        ExpectRefused(make("-1", ""));
        ExpectRefused(make("2", "<item0 isNull=\"1\"/>"));
        ExpectRefused(make("2000000000", ""));
        ExpectRefused(make("1", "<item0/>"));
        ExpectRefused(make("1", "<item0 isNull=\"0\" type=\"unheard of\"/>"));
        ExpectRefused(make("1", "<item0 isNull=\"0\" type=\"\"/>"));
        // A constant in a place where no constant fits.
        ExpectRefused(make("1", "<item0 isNull=\"0\" type=\"" +
                                    std::string(Math::CConstant::kIdentifier) + "\"/>"));
    }
    // A known type, without its content.
    ExpectRefused("<inputCustomProperties itemCount=\"1\"><item0 isNull=\"0\" type=\"" +
                  std::string(CNumberProperty::kType) + "\"/></inputCustomProperties>");
}

TEST_F(InputObjectsStateTest, ADocumentThatProvesDamagedLaterLeavesTheVeryObjects) {
    SetAll(7);
    objects.GetProperties().Get(0).SetValue(CNamelessProperty());
    const std::string before = Save();
    EXPECT_FALSE(Restore(Preset(3, "<inputStrings count=\"1\" s0=\"x\"/><GUI fit=\"0\"/>")));
    EXPECT_EQ(Save(), before);
    EXPECT_EQ(Look().number, -1.0);
    EXPECT_EQ(Look().texts[0], std::string("text 7"));
    EXPECT_EQ(internals.GetChangedSincePresetLoaded().GetValue(), 1.0);
}

TEST_F(InputObjectsStateTest, ResettingTakesAllOfThemToTheirDefaults) {
    SetAll(7);
    internals.GetPresetsManager().LoadDefaultPreset();
    ExpectDefaults();
    EXPECT_EQ(Look().gain, 1.0);
}

TEST_F(InputObjectsStateTest, ARestoredPropertyHasTheSampleRateInUse) {
    ASSERT_TRUE(internals.Configure({}, 44100.0));
    const std::string saved = Save();
    ASSERT_TRUE(Restore(saved));
    EXPECT_EQ(Look().rate, 44100.0);
}

// Two states alternate on one thread, while the filter never sees a mixture of them.
TEST_F(InputObjectsStateTest, AStateReachesTheFilterAsAWhole) {
    ASSERT_TRUE(internals.Configure({.blockSize = 64}, 48000.0));
    SetAll(8);
    const std::string high = Save();
    SetAll(7);
    const std::string low = Save();
    Look();
    std::atomic<bool> isDone{false};
    std::thread loader([&] {
        for (int i = 0; i < 200; ++i) {
            EXPECT_TRUE(Restore(i % 2 == 0 ? high : low));
        }
        isDone = true;
    });
    while (!isDone) {
        const CSeenInputs& seen = Look();
        EXPECT_EQ(seen.curve, seen.gain + 0.1);
        EXPECT_EQ(seen.surface, seen.gain + 0.2);
        EXPECT_EQ(seen.number, seen.gain + 0.3);
        EXPECT_EQ(seen.texts[0], seen.gain == 7.0 ? std::string("text 7") : "text 8");
    }
    loader.join();
    ExpectAll(7);
}

} // namespace
} // namespace Vorin::Audio::Plugin
