// States: what a chunk holds, what becomes of one that is refused, and the default preset.

#include "vst/VSTTestKit.h"

#include <filesystem>

namespace VorinExt::VSTPlugin::Testing {
namespace {

class VSTPlugStateTest : public CPlugTest {
protected:
    void SetUp() override {
        filter.inputs = {MakeParam("Drive", "dB", 0.0, 10.0, 5.0), MakeParam("Mix")};
    }
};

TEST_F(VSTPlugStateTest, AChunkHasItsFieldsInTheirOrder) {
    Make(true);
    gui.state = 42;
    plug->setParameter(1, 0.25F);
    const std::string chunk = GetChunk();
    std::size_t at = 0;
    for (const char* word :
         {"<Preset ", "version=\"3\"", "progName=\"Default Settings\"", "MIDIInputDefault=\"1\"",
          "MIDIOutputDefault=\"1\"", "<inputParams count=\"3\" p0=\"0\" p1=\"2.5\" p2=\"0\"",
          "<model", "<GUI state=\"42\""}) {
        const std::size_t found = chunk.find(word, at);
        ASSERT_NE(found, std::string::npos) << word << " in " << chunk;
        at = found;
    }
    EXPECT_EQ(chunk.back(), '\0');
}

TEST_F(VSTPlugStateTest, AChunkBringsEverythingBack) {
    Make(true);
    gui.state = 42;
    plug->setParameter(0, 1.0F);
    plug->setParameter(1, 0.25F);
    plug->setParameter(2, 0.75F);
    const std::string chunk = GetChunk();
    gui.state = 1;
    Make(true);
    ASSERT_EQ(SetChunk(chunk), 1);
    EXPECT_EQ(gui.Take(), "begin;read;end;");
    EXPECT_EQ(gui.state, 42);
    EXPECT_EQ(plug->getParameter(0), 1.0F);
    EXPECT_EQ(plug->getParameter(1), 0.25F);
    EXPECT_EQ(plug->getParameter(2), 0.75F);
    EXPECT_EQ(filter.inputValues, (std::vector<double>{2.5, 0.75})); // nothing runs
    EXPECT_EQ(host.Take(), "");                                      // and nobody is told
    EXPECT_EQ(GetChunk(), chunk);
}

TEST_F(VSTPlugStateTest, AStateReachesARunningFilterWithTheNextBlock) {
    Make();
    Start();
    Run(64);
    ASSERT_EQ(SetChunk("<Preset><inputParams count=\"3\" p1=\"1\" p2=\"1\"/></Preset>"), 1);
    EXPECT_EQ(filter.inputValues, (std::vector<double>{5.0, 0.0}));
    Run(64);
    EXPECT_EQ(filter.inputValues, (std::vector<double>{1.0, 1.0}));
}

TEST_F(VSTPlugStateTest, ASizeOfZeroIsRefused) {
    Make();
    char byte = '<';
    EXPECT_EQ(plug->setChunk(&byte, 0, false), 0);
    EXPECT_EQ(plug->setChunk(nullptr, 5, false), 0);
    EXPECT_EQ(plug->setChunk(&byte, -1, true), 0);
}

TEST_F(VSTPlugStateTest, AStateThatTheDisplayRefusesChangesNothing) {
    Make(true);
    gui.state = 7;
    plug->setParameter(1, 0.1F);
    const std::string before = GetChunk();
    gui.isReadable = false;
    EXPECT_EQ(SetChunk("<Preset progName=\"X\" MIDIInputDefault=\"0\"><inputParams count=\"3\" "
                       "p0=\"1\" p1=\"9\" p2=\"1\"/><GUI state=\"99\"/></Preset>"),
              0);
    EXPECT_EQ(gui.state, 7);
    EXPECT_EQ(GetChunk(), before);
}

TEST_F(VSTPlugStateTest, AStateThatCannotBeWrittenIsAChunkOfOneZeroByte) {
    Make(true);
    gui.isWritable = false;
    EXPECT_EQ(GetChunk(), std::string(1, '\0'));
}

TEST_F(VSTPlugStateTest, AnInstanceThatKeepsNoStateSavesNoneAndTakesNone) {
    Make(true, nullptr, false);
    plug->setParameter(1, 0.1F);
    const std::string chunk = GetChunk();
    EXPECT_EQ(chunk.find("inputParams"), std::string::npos);
    EXPECT_EQ(chunk.find("progName"), std::string::npos);
    EXPECT_EQ(gui.Take(), "");
    EXPECT_EQ(SetChunk("<Preset><inputParams count=\"3\" p1=\"9\"/></Preset>"), 1);
    EXPECT_EQ(plug->getParameter(1), 0.1F);
    EXPECT_EQ(gui.Take(), "");
    EXPECT_EQ(SetChunk("no XML"), 0);
}

TEST_F(VSTPlugStateTest, WhetherItIsAPresetChangesNothing) {
    Make();
    void* data = nullptr;
    const VstInt32 size = plug->getChunk(&data, true);
    const std::string preset(static_cast<const char*>(data), static_cast<std::size_t>(size));
    EXPECT_EQ(preset, GetChunk());
    std::string chunk = preset;
    EXPECT_EQ(plug->setChunk(chunk.data(), size, true), 1);
}

TEST_F(VSTPlugStateTest, AValueThatIsMissingKeepsTheOneBefore) {
    Make();
    plug->setParameter(1, 0.75F);
    plug->setParameter(2, 0.5F);
    ASSERT_EQ(SetChunk("<Preset><inputParams p2=\"1\"/></Preset>"), 1);
    EXPECT_EQ(plug->getParameter(1), 0.75F);
    EXPECT_EQ(plug->getParameter(2), 1.0F);
}

TEST_F(VSTPlugStateTest, ValuesThatAreMissingAltogetherGoToTheirDefaults) {
    Make();
    plug->setParameter(0, 1.0F);
    plug->setParameter(1, 0.0F);
    plug->setParameter(2, 1.0F);
    ASSERT_EQ(SetChunk("<Preset/>"), 1);
    EXPECT_EQ(plug->getParameter(0), 0.0F);
    EXPECT_EQ(plug->getParameter(1), 0.5F);
    EXPECT_EQ(plug->getParameter(2), 0.0F);
    EXPECT_NE(GetChunk().find("progName=\"Default\""), std::string::npos);
}

TEST_F(VSTPlugStateTest, AFreshInstanceHasTheDefaultPreset) {
    std::filesystem::create_directories(folder.Path("user/Presets"));
    folder.Write("user/Presets/Default.preset",
                 "<Preset version=\"3\" progName=\"Mine\"><inputParams count=\"3\" p0=\"1\" "
                 "p1=\"7.5\" p2=\"1\"/></Preset>");
    Make();
    EXPECT_EQ(plug->getParameter(0), 1.0F);
    EXPECT_EQ(plug->getParameter(1), 0.75F);
    EXPECT_EQ(plug->getParameter(2), 1.0F);
    EXPECT_NE(GetChunk().find("progName=\"Mine\""), std::string::npos);
}

TEST_F(VSTPlugStateTest, ADefaultPresetThatCannotBeReadLeavesTheDefaults) {
    std::filesystem::create_directories(folder.Path("user/Presets"));
    folder.Write("user/Presets/Default.preset", "no XML");
    Make();
    EXPECT_EQ(plug->getParameter(1), 0.5F);
    EXPECT_NE(GetChunk().find("progName=\"Default Settings\""), std::string::npos);
}

TEST_F(VSTPlugStateTest, TwoInstancesShareTheirSettings) {
    Make();
    CFakeFilterRecord second;
    auto other = std::make_unique<CVSTPlug>(
        &CFakeHost::Callback,
        Plugin::CAudioPluginConfig{.filter = MakeFilter(second), .gui = nullptr}, settings);
    plug.reset();
    settings.GetSettings().SetSkinFile("/a/skin.xml");
    EXPECT_STREQ(settings.GetSettings().GetSkinFile().Get(), "/a/skin.xml");
    void* data = nullptr;
    EXPECT_GT(other->getChunk(&data, false), 100);
}

TEST_F(VSTPlugStateTest, NothingIsWrittenByMakingAndUsingAnInstance) {
    Make(true);
    Start();
    Run(64);
    SetChunk(GetChunk());
    plug.reset();
    EXPECT_TRUE(folder.List().empty());
}

} // namespace
} // namespace VorinExt::VSTPlugin::Testing
