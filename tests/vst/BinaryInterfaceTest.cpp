// What needs another filter or display than the product's, asked for through the C interface alone.

#include "vst/VSTTestKit.h"

namespace VorinExt::VSTPlugin::Testing {
namespace {

class BinaryInterfaceTest : public CPlugTest {
protected:
    VstIntPtr Ask(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0, void* ptr = nullptr,
                  float opt = 0.0F) {
        return Record().dispatcher(&Record(), opcode, index, value, ptr, opt);
    }

    std::string AskText(VstInt32 opcode, VstInt32 index = 0) {
        char text[256] = "";
        Ask(opcode, index, 0, text);
        return text;
    }

    static CParamInfo Info(const char* name) {
        return {kParamReal, name, "", "", nullptr, nullptr, 0.0, 1.0, 0.0};
    }
};

TEST_F(BinaryInterfaceTest, AnInputNameOfThirtyCharactersComesOutAsTwentyThree) {
    filter.inputs = {Info("123456789012345678901234567890")};
    filter.outputs = {Info("123456789012345678901234567890")};
    Make();
    EXPECT_EQ(AskText(effGetParamName, 1), "12345678901234567890123");
    EXPECT_EQ(AskText(effGetParamName, 2), "OUT:1234567890123456789");
}

TEST_F(BinaryInterfaceTest, WithoutADisplayItHasNoEditorFlagAndNoConfigView) {
    Make();
    EXPECT_EQ(Record().flags & effFlagsHasEditor, 0);
    char question[] = "hasCockosViewAsConfig";
    EXPECT_EQ(Ask(effCanDo, 0, 0, question), 0);
}

TEST_F(BinaryInterfaceTest, WithADisplayItHasBoth) {
    Make(true);
    EXPECT_NE(Record().flags & effFlagsHasEditor, 0);
    char question[] = "hasCockosViewAsConfig";
    EXPECT_EQ(static_cast<unsigned>(Ask(effCanDo, 0, 0, question)), 0xbeef0000U);
}

TEST_F(BinaryInterfaceTest, TheSizeIsKnownBeforeTheEditorIsOpened) {
    gui.size = {320, 200};
    Make(true);
    ERect* rect = nullptr;
    EXPECT_EQ(Ask(effEditGetRect, 0, 0, &rect), 1);
    ASSERT_NE(rect, nullptr);
    EXPECT_EQ(rect->right, 320);
    EXPECT_EQ(rect->bottom, 200);
    EXPECT_EQ(gui.Take(), "open;show;");
}

TEST_F(BinaryInterfaceTest, ABlockOfNoFramesCountsAsSilent) {
    Make();
    Start();
    filter.Take();
    float sample = 1.0F;
    float* channels[] = {&sample, &sample};
    Record().processReplacing(&Record(), channels, channels, 0);
    EXPECT_NE(filter.Take().find("silence 0;"), std::string::npos);
    EXPECT_EQ(sample, 1.0F);
}

TEST_F(BinaryInterfaceTest, ABypassOfExactlyHalfIsNone) {
    Make();
    Record().setParameter(&Record(), 0, 0.5F);
    EXPECT_EQ(AskText(effGetParamDisplay, 0), "Off");
    Record().setParameter(&Record(), 0, 0.51F);
    EXPECT_EQ(AskText(effGetParamDisplay, 0), "On");
}

TEST_F(BinaryInterfaceTest, AnArrangementOfNoConfigurationLeavesThePinsActive) {
    Make();
    VstSpeakerArrangement five{};
    five.numChannels = 5;
    EXPECT_EQ(Ask(effSetSpeakerArrangement, 0, reinterpret_cast<VstIntPtr>(&five), &five), 0);
    VstPinProperties pin{};
    EXPECT_EQ(Ask(effGetInputProperties, 0, 0, &pin), 0);
    EXPECT_EQ(pin.flags, kVstPinIsActive);
}

TEST_F(BinaryInterfaceTest, AStateThatCannotBeWrittenIsAChunkOfOneZeroByte) {
    Make(true);
    gui.isWritable = false;
    void* data = nullptr;
    EXPECT_EQ(Ask(effGetChunk, 0, 0, &data), 1);
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(*static_cast<const char*>(data), '\0');
}

TEST_F(BinaryInterfaceTest, AStateThatCannotBeReadIsRefusedAndKeptOut) {
    Make();
    char text[] = "<Preset";
    EXPECT_EQ(Ask(effSetChunk, 0, sizeof text, text), 0);
    EXPECT_EQ(Ask(effSetChunk, 0, 0, text), 0);
}

TEST_F(BinaryInterfaceTest, BeyondTheLastParameterAllIsUnknownOrEmpty) {
    Make();
    const VstInt32 beyond = Record().numParams;
    EXPECT_EQ(AskText(effGetParamName, beyond), "Unknown");
    EXPECT_EQ(AskText(effGetParamLabel, beyond), "");
    EXPECT_EQ(AskText(effGetParamDisplay, beyond), "");
}

} // namespace
} // namespace VorinExt::VSTPlugin::Testing
