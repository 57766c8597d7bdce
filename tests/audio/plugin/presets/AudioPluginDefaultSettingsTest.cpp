#include "audio/plugin/presets/AudioPluginDefaultSettings.h"

#include "audio/plugin/presets/AudioPluginConfig.h"
#include "files/Obstacles.h"
#include "files/TemporaryFolder.h"
#include "serialization/XmlDataObject.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <filesystem>
#include <limits>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace Vorin::Audio::Plugin {
namespace {

using DataModel::Objects::CParamInfo;
using DataModel::Objects::IConstParamInfo;
using TestFiles::CFullDisk;
using TestFiles::CTemporaryFolder;
using TestFiles::CWithoutRights;

using CInfos = CoreUtilities::TDynamicCollection<CParamInfo, IConstParamInfo>;

CInfos MakeInfos(int count) {
    CInfos infos;
    for (int i = 0; i < count; ++i) {
        infos.Add(CParamInfo(DataModel::Objects::kParamReal, "P", "", "", nullptr, nullptr, -1.0,
                             10.0 + i, 0.0));
    }
    return infos;
}

constexpr char kHead[] = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n";

/// Settings of two inputs and one output.
class AudioPluginDefaultSettingsTest : public ::testing::Test {
protected:
    std::unique_ptr<CAudioPluginDefaultSettings> Make(int inputs = 2, int outputs = 1) const {
        auto settings = std::make_unique<CAudioPluginDefaultSettings>(paths, 50.0);
        settings->SetParams(MakeInfos(inputs), MakeInfos(outputs));
        return settings;
    }

    /// All of it as it stands in a file.
    static std::string TextOf(const CAudioPluginDefaultSettings& settings) {
        Serialization::CXmlDataObject document("Root", Serialization::kXmlAttributes);
        Containers::CCharString text;
        EXPECT_TRUE(settings.Serialize(document) && document.SaveString(text));
        return text.Get();
    }

    static void Change(CAudioPluginDefaultSettings& settings) {
        settings.SetSkinFile("/skins/other.xml");
        settings.GetInputCCSettings().Get(0).SetNumber(74);
        settings.GetInputCCSettings().Get(1).SetMax(0.1);
        settings.GetOutputCCSettings().Get(0).SetChannel(16);
        EXPECT_TRUE(settings.SetOutputRefreshRate(25.5));
    }

    std::string File() const { return folder.Path("user/global.pref"); }
    void WriteFile(const std::string& content) const {
        std::filesystem::create_directories(folder.Path("user"));
        folder.Write("user/global.pref", content);
    }

    CTemporaryFolder folder;
    const CAudioPluginFilePathsBase paths{"/shipped", folder.Path("user").c_str()};
    const std::string fresh = TextOf(*Make());
};

TEST_F(AudioPluginDefaultSettingsTest, StartWithTheDefaults) {
    const auto settings = Make();
    EXPECT_STREQ(settings->GetSkinFile().Get(), "/shipped/Skins/default.xml");
    EXPECT_EQ(settings->GetOutputRefreshRate(), 50.0);
    ASSERT_EQ(settings->GetInputCCSettings().GetCount(), 2);
    ASSERT_EQ(settings->GetOutputCCSettings().GetCount(), 1);
    EXPECT_EQ(settings->GetInputCCSettings().Get(1).GetMin(), -1.0);
    EXPECT_FALSE(settings->GetInputCCSettings().Get(0).IsMIDIEnabled());
}

TEST_F(AudioPluginDefaultSettingsTest, TheirFileIsADocumentWithAttributesInOrder) {
    auto settings = Make(1, 0);
    settings->SetSkinFile("own.xml");
    ASSERT_TRUE(settings->Save());
    EXPECT_EQ(folder.Read("user/global.pref"),
              std::string(kHead) +
                  "<Root version=\"3\" skinFile=\"own.xml\" outputRefreshRate=\"50\">\n"
                  "    <inputCCSettings itemCount=\"1\">\n"
                  "        <item0 channel=\"0\" version=\"3\" number=\"0\" midiEnabled=\"0\" "
                  "automationEnabled=\"1\" curve=\"Linear\" min=\"-1\" max=\"10\" type=\"CC\"/>\n"
                  "    </inputCCSettings>\n"
                  "    <outputCCSettings itemCount=\"0\"/>\n"
                  "</Root>\n");
}

TEST_F(AudioPluginDefaultSettingsTest, WhatIsSavedIsLoaded) {
    const auto settings = Make();
    Change(*settings);
    ASSERT_TRUE(settings->Save());
    const auto other = Make();
    EXPECT_TRUE(other->Load());
    EXPECT_STREQ(other->GetSkinFile().Get(), "/skins/other.xml");
    EXPECT_EQ(other->GetInputCCSettings().Get(0).GetNumber(), 74);
    EXPECT_EQ(other->GetInputCCSettings().Get(1).GetMax(), 0.1);
    EXPECT_EQ(other->GetOutputCCSettings().Get(0).GetChannel(), 16);
    EXPECT_EQ(other->GetOutputRefreshRate(), 25.5);
    EXPECT_EQ(TextOf(*other), TextOf(*settings));
    EXPECT_NE(TextOf(*other), fresh);
}

TEST_F(AudioPluginDefaultSettingsTest, ASkinInTheUsersFolderIsKeptRelativeToIt) {
    const std::string skins = folder.Path("user/Skins");
    const std::pair<std::string, std::string> cases[] = {
        {skins + "/a.xml", "a.xml"},
        {skins + "/sub/a.xml", "sub/a.xml"},
        {skins + "//a.xml", "a.xml"},
        {skins + "more/a.xml", skins + "more/a.xml"},
        {skins, skins},
        {skins + "/", skins + "/"},
        {"/elsewhere/a.xml", "/elsewhere/a.xml"},
    };
    for (const auto& [path, kept] : cases) {
        const auto settings = Make();
        settings->SetSkinFile(path.c_str());
        EXPECT_EQ(settings->GetSkinFile().Get(), path);
        EXPECT_NE(TextOf(*settings).find("skinFile=\"" + kept + "\""), std::string::npos) << path;
        ASSERT_TRUE(settings->Save());
        const auto other = Make();
        EXPECT_TRUE(other->Load());
        EXPECT_EQ(std::filesystem::path(other->GetSkinFile().Get()).lexically_normal(),
                  std::filesystem::path(path).lexically_normal());
    }
}

TEST_F(AudioPluginDefaultSettingsTest, ARelativeSkinLiesInTheUsersFolderAndNoneIsTheDefault) {
    const auto settings = Make();
    settings->SetSkinFile("a.xml");
    EXPECT_EQ(settings->GetSkinFile().Get(), folder.Path("user/Skins/a.xml"));
    settings->SetSkinFile("");
    EXPECT_STREQ(settings->GetSkinFile().Get(), "/shipped/Skins/default.xml");
    settings->SetSkinFile("a.xml");
    settings->SetSkinFile(nullptr);
    EXPECT_STREQ(settings->GetSkinFile().Get(), "/shipped/Skins/default.xml");
}

TEST_F(AudioPluginDefaultSettingsTest, OnlyARateIsTakenAsOne) {
    const auto settings = Make();
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double bad : {0.0, -0.0, -50.0, 1000.1, 1e300, infinity, -infinity, std::nan("")}) {
        EXPECT_FALSE(settings->SetOutputRefreshRate(bad));
        EXPECT_EQ(settings->GetOutputRefreshRate(), 50.0);
    }
    for (const char* bad : {"0", "-1", "1001", "1e999", "nan", "inf", "fast", ""}) {
        WriteFile("<Root outputRefreshRate=\"" + std::string(bad) + "\"/>");
        EXPECT_FALSE(settings->Load());
        EXPECT_EQ(settings->GetOutputRefreshRate(), 50.0) << bad;
    }
    for (const double good : {0.5, 1000.0, 60.0}) {
        EXPECT_TRUE(settings->SetOutputRefreshRate(good));
        EXPECT_EQ(settings->GetOutputRefreshRate(), good);
    }
}

TEST_F(AudioPluginDefaultSettingsTest, WhatIsMissingOrUnknownLeavesTheDefaultAndTheRestIsRead) {
    const auto settings = Make();
    WriteFile("<Root unknown=\"1\" outputRefreshRate=\"30\"><more/></Root>");
    EXPECT_FALSE(settings->Load());
    EXPECT_STREQ(settings->GetSkinFile().Get(), "/shipped/Skins/default.xml");
    EXPECT_EQ(settings->GetOutputRefreshRate(), 30.0);

    WriteFile("<Root skinFile=\"\"><inputCCSettings itemCount=\"1\">"
              "<item0 channel=\"5\" version=\"3\" number=\"7\" midiEnabled=\"1\" "
              "automationEnabled=\"0\" curve=\"Exp\" min=\"0\" max=\"1\" type=\"CC\"/>"
              "</inputCCSettings></Root>");
    EXPECT_FALSE(settings->Load());
    EXPECT_STREQ(settings->GetSkinFile().Get(), "/shipped/Skins/default.xml");
    EXPECT_EQ(settings->GetInputCCSettings().Get(0).GetChannel(), 5);
    EXPECT_EQ(settings->GetInputCCSettings().Get(1).GetChannel(), 0);
}

TEST_F(AudioPluginDefaultSettingsTest, ASettingThatIsDamagedKeepsItsDefault) {
    const auto settings = Make();
    WriteFile("<Root><inputCCSettings itemCount=\"2147483647\">"
              "<item0 channel=\"17\" number=\"7\" midiEnabled=\"1\" automationEnabled=\"0\" "
              "min=\"0\" max=\"1\"/></inputCCSettings>"
              "<outputCCSettings itemCount=\"-1\"/></Root>");
    EXPECT_FALSE(settings->Load());
    EXPECT_EQ(TextOf(*settings), fresh);
}

TEST_F(AudioPluginDefaultSettingsTest, AFileCutAnywhereKeepsTheDefaultsAndIsRewrittenWhole) {
    const auto writer = Make();
    Change(*writer);
    ASSERT_TRUE(writer->Save());
    const std::string whole = folder.Read("user/global.pref");
    const std::size_t end = whole.rfind('>');
    for (std::size_t size = 0; size <= end; ++size) {
        WriteFile(whole.substr(0, size));
        const auto settings = Make();
        EXPECT_FALSE(settings->Load());
        EXPECT_EQ(TextOf(*settings), fresh) << size;
    }
    EXPECT_TRUE(writer->Save());
    EXPECT_EQ(folder.Read("user/global.pref"), whole);
    EXPECT_TRUE(Make()->Load());
}

TEST_F(AudioPluginDefaultSettingsTest, NoFileAndOtherFilesKeepTheDefaults) {
    const auto settings = Make();
    EXPECT_FALSE(settings->Load());
    for (const char* content : {"text", "<Preset skinFile=\"x\"/>", "<root skinFile=\"x\"/>",
                                "<!DOCTYPE Root><Root skinFile=\"x\"/>"}) {
        WriteFile(content);
        EXPECT_FALSE(settings->Load());
    }
    EXPECT_EQ(TextOf(*settings), fresh);
    EXPECT_TRUE(settings->Save());
    EXPECT_TRUE(Make()->Load());
}

TEST_F(AudioPluginDefaultSettingsTest, AFolderInThePlaceOfTheFileKeepsTheDefaultsAndStays) {
    std::filesystem::create_directories(File());
    const auto settings = Make();
    EXPECT_FALSE(settings->Load());
    EXPECT_EQ(TextOf(*settings), fresh);
    EXPECT_FALSE(settings->Save());
    EXPECT_EQ(folder.List().size(), 2U);
    std::filesystem::remove(File());
    EXPECT_TRUE(settings->Save());
}

TEST_F(AudioPluginDefaultSettingsTest, AFileThatMayNotBeReadKeepsTheDefaultsAndIsRewritten) {
    WriteFile("<Root outputRefreshRate=\"30\"/>");
    if (geteuid() == 0) {
        ASSERT_EQ(chown(folder.Path("user").c_str(), CWithoutRights::GetUser(), -1U), 0);
        ASSERT_EQ(chown(File().c_str(), CWithoutRights::GetUser(), -1U), 0);
    }
    std::filesystem::permissions(File(), std::filesystem::perms(0));
    const CWithoutRights anybody;
    const auto settings = Make();
    EXPECT_FALSE(settings->Load());
    EXPECT_EQ(settings->GetOutputRefreshRate(), 50.0);
    EXPECT_TRUE(settings->Save());
    EXPECT_EQ(folder.Read("user/global.pref"), fresh);
}

TEST_F(AudioPluginDefaultSettingsTest, AProtectedFolderKeepsTheFile) {
    WriteFile("<Root outputRefreshRate=\"30\"/>");
    std::filesystem::permissions(folder.Path("user"), std::filesystem::perms(0555));
    {
        const CWithoutRights anybody;
        EXPECT_FALSE(Make()->Save());
    }
    std::filesystem::permissions(folder.Path("user"), std::filesystem::perms(0755));
    EXPECT_EQ(folder.Read("user/global.pref"), "<Root outputRefreshRate=\"30\"/>");
    EXPECT_EQ(folder.List().size(), 2U);
}

TEST_F(AudioPluginDefaultSettingsTest, AFullDiskKeepsTheFile) {
    const auto settings = Make();
    ASSERT_TRUE(settings->Save());
    Change(*settings);
    {
        const CFullDisk full(100);
        EXPECT_FALSE(settings->Save());
    }
    EXPECT_EQ(folder.Read("user/global.pref"), fresh);
    EXPECT_EQ(folder.List().size(), 2U);
    EXPECT_TRUE(settings->Save());
    EXPECT_EQ(folder.Read("user/global.pref"), TextOf(*settings));
}

TEST_F(AudioPluginDefaultSettingsTest, WithoutAFolderNothingIsSaved) {
    const CAudioPluginFilePathsBase nowhere("", "");
    CAudioPluginDefaultSettings settings(nowhere, 50.0);
    EXPECT_FALSE(settings.Load());
    EXPECT_FALSE(settings.Save());
    settings.SetSkinFile("a.xml");
    EXPECT_STREQ(settings.GetSkinFile().Get(), "");
}

TEST_F(AudioPluginDefaultSettingsTest, WhatNoFileCanHoldIsNotSaved) {
    const auto settings = Make();
    ASSERT_TRUE(settings->Save());
    settings->GetOutputCCSettings().Get(0).SetCurve(
        static_cast<DataModel::Objects::EParamValueCurve>(13));
    EXPECT_FALSE(settings->Save());
    EXPECT_EQ(folder.Read("user/global.pref"), fresh);
}

TEST_F(AudioPluginDefaultSettingsTest, OutliveTheInfosTheyWereMadeOf) {
    auto infos = std::make_unique<CInfos>(MakeInfos(1));
    CAudioPluginDefaultSettings settings(paths, 50.0);
    settings.SetParams(*infos, MakeInfos(0));
    infos.reset();
    const auto& setting =
        dynamic_cast<const CInputMIDICCSetting&>(settings.GetInputCCSettings().Get(0));
    EXPECT_EQ(setting.GetInfo().GetMax(), 10.0);
    EXPECT_STREQ(setting.GetInfo().GetName(), "P");
}

TEST_F(AudioPluginDefaultSettingsTest, ThreadsMayChangeAndSaveAtOnce) {
    const auto settings = Make();
    const auto run = [&](const std::string& skin, double rate) {
        for (int turn = 0; turn < 20; ++turn) {
            settings->SetSkinFile(skin.c_str());
            settings->SetOutputRefreshRate(rate);
            settings->GetInputCCSettings().Get(0).SetNumber(turn);
            EXPECT_TRUE(settings->Save());
        }
    };
    const std::string one(100, '1');
    const std::string two(50, '2');
    std::thread first(run, "/" + one, 10.0);
    std::thread second(run, "/" + two, 20.0);
    first.join();
    second.join();
    EXPECT_EQ(folder.Read("user/global.pref"), TextOf(*settings));
    const std::string skin = settings->GetSkinFile().Get();
    EXPECT_TRUE(skin == "/" + one || skin == "/" + two);
}

/// Paths below a folder of the test's.
class CTestPaths : public CAudioPluginFilePathsBase {
public:
    explicit CTestPaths(const IPackageInfo& package)
        : CAudioPluginFilePathsBase("/shipped", package.GetSubPath()) {}
};
using CTestConfig = TAudioPluginConfig<CTestPaths>;

TEST_F(AudioPluginDefaultSettingsTest, AreReadOnceByTheFirstInstance) {
    WriteFile("<Root outputRefreshRate=\"30\"/>");
    CTestConfig config(CPackageInfo("Halvane", "Ondara", folder.Path("user").c_str()));
    {
        const CInfos first = MakeInfos(2);
        config.Init(first, MakeInfos(1));
    }
    EXPECT_EQ(config.GetSettings().GetOutputRefreshRate(), 30.0);
    EXPECT_EQ(config.GetSettings().GetInputCCSettings().GetCount(), 2);
    EXPECT_EQ(config.GetPaths().GetGlobalSettingsFile(), File());

    // What the first one changed the second one sees, and neither its infos nor the file count.
    config.GetSettings().GetInputCCSettings().Get(1).SetNumber(9);
    WriteFile("<Root outputRefreshRate=\"40\"/>");
    config.Init(MakeInfos(5), MakeInfos(5));
    EXPECT_EQ(config.GetSettings().GetOutputRefreshRate(), 30.0);
    EXPECT_EQ(config.GetSettings().GetInputCCSettings().GetCount(), 2);
    EXPECT_EQ(config.GetSettings().GetInputCCSettings().Get(1).GetNumber(), 9);
}

TEST_F(AudioPluginDefaultSettingsTest, HaveTheirDefaultsWhenTheFileCannotBeRead) {
    WriteFile("<Root outputRefreshRate=\"30\"");
    CTestConfig config(CPackageInfo("", "", folder.Path("user").c_str()), 75.0);
    config.Init(MakeInfos(1), MakeInfos(1));
    EXPECT_EQ(config.GetSettings().GetOutputRefreshRate(), 75.0);
    EXPECT_TRUE(config.GetSettings().Save());
    CTestConfig other(CPackageInfo("", "", folder.Path("user").c_str()));
    other.Init(MakeInfos(1), MakeInfos(1));
    EXPECT_EQ(other.GetSettings().GetOutputRefreshRate(), 75.0);
}

TEST_F(AudioPluginDefaultSettingsTest, AreReadyForEveryInstanceThatComesAtTheSameTime) {
    WriteFile("<Root outputRefreshRate=\"30\"/>");
    CTestConfig config(CPackageInfo("", "", folder.Path("user").c_str()));
    std::atomic<int> waiting{4};
    std::atomic<int> ready{0};
    std::vector<std::thread> threads;
    for (int i = 1; i <= 4; ++i) {
        threads.emplace_back([&, i] {
            const CInfos infos = MakeInfos(i);
            --waiting;
            while (waiting > 0) {
            }
            config.Init(infos, infos);
            IPluginDefaultSettings& settings = config.GetSettings();
            ready += settings.GetOutputRefreshRate() == 30.0 &&
                             settings.GetInputCCSettings().GetCount() > 0
                         ? 1
                         : 0;
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(ready, 4);
}

TEST_F(AudioPluginDefaultSettingsTest, TellOfEachChangeOfASetting) {
    class CCounter {
    public:
        void Count() { ++count; }
        int count = 0;
        Core::TCommand<CCounter> command{this, &CCounter::Count};
    } counter;
    const auto settings = Make();
    IMIDICCSetting& setting = settings->GetInputCCSettings().Get(0);
    setting.GetChangedEvent().Connect(counter.command);
    setting.SetNumber(3);
    settings->NotifyIfKept(); // nothing was kept
    EXPECT_EQ(counter.count, 1);
    ASSERT_TRUE(settings->Save());
    setting.SetNumber(4);
    EXPECT_TRUE(settings->Load());
    EXPECT_EQ(counter.count, 3);
    EXPECT_EQ(setting.GetNumber(), 3);
    setting.GetChangedEvent().Disconnect(counter.command);
}

} // namespace
} // namespace Vorin::Audio::Plugin
