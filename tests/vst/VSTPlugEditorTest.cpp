#include "vst/VSTPlugEditor.h"

#include "vst/VSTTestKit.h"

#include <limits>

namespace VorinExt::VSTPlugin::Testing {
namespace {

class CEditedEffect : public AudioEffectX {
public:
    CEditedEffect() : AudioEffectX(&CFakeHost::Callback, 1, 0) {}
    void processReplacing(float**, float**, VstInt32) override {}
};

class VSTPlugEditorTest : public testing::Test {
protected:
    CFakeHost host;
    CFakeGUIRecord record;
    CFakeGUI gui{record};
    CEditedEffect effect;
    std::unique_ptr<VSTPlugEditor> editor = std::make_unique<VSTPlugEditor>(effect, gui);
    int window = 0;
};

TEST_F(VSTPlugEditorTest, OpensTheDisplayInTheHostsWindowAndShowsIt) {
    EXPECT_EQ(record.Take(), "");
    EXPECT_TRUE(editor->open(&window));
    EXPECT_EQ(record.Take(), "open window;show;");
    EXPECT_TRUE(editor->isOpen());
}

TEST_F(VSTPlugEditorTest, ItsSizeBeforeOpenIsThatOfADisplayInAWindowOfItsOwn) {
    ERect* rect = nullptr;
    EXPECT_TRUE(editor->getRect(&rect));
    EXPECT_EQ(record.Take(), "open;show;");
    ASSERT_NE(rect, nullptr);
    EXPECT_EQ(rect->top, 0);
    EXPECT_EQ(rect->left, 0);
    EXPECT_EQ(rect->right, 640);
    EXPECT_EQ(rect->bottom, 480);
    EXPECT_TRUE(editor->getRect(&rect));
    EXPECT_EQ(record.Take(), ""); // it stands by now
}

TEST_F(VSTPlugEditorTest, ItsSizeAfterCloseNeedsNoDisplayAgain) {
    editor->open(&window);
    editor->close();
    EXPECT_EQ(record.Take(), "open window;show;close;");
    EXPECT_FALSE(editor->isOpen());
    record.size = {800, 600};
    ERect* rect = nullptr;
    EXPECT_TRUE(editor->getRect(&rect));
    EXPECT_EQ(record.Take(), "");
    EXPECT_EQ(rect->right, 800);
    EXPECT_EQ(rect->bottom, 600);
}

TEST_F(VSTPlugEditorTest, OpensAgainInAnotherWindow) {
    editor->open(nullptr);
    editor->close();
    editor->open(&window);
    EXPECT_EQ(record.Take(), "open;show;close;open window;show;");
}

TEST_F(VSTPlugEditorTest, SizesOutsideTheHostsNumbersAreTheirEnds) {
    record.size = {100000, -5};
    ERect* rect = nullptr;
    editor->getRect(&rect);
    EXPECT_EQ(rect->right, 32767);
    EXPECT_EQ(rect->bottom, 0);
    record.size = {std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
    editor->getRect(&rect);
    EXPECT_EQ(rect->right, 0);
    EXPECT_EQ(rect->bottom, 32767);
}

TEST_F(VSTPlugEditorTest, AsksTheHostForAnotherSizeOnceItIsOpen) {
    record.sizeChanged.Notify();
    EXPECT_EQ(host.Take(), "");
    editor->open(&window);
    record.size = {30, 20};
    record.sizeChanged.Notify();
    EXPECT_EQ(host.Take(), "size 30 20;");
}

TEST_F(VSTPlugEditorTest, HearsNothingAfterItsEnd) {
    editor->open(&window);
    editor.reset();
    record.sizeChanged.Notify();
    EXPECT_EQ(host.Take(), "");
}

TEST_F(VSTPlugEditorTest, LeavesKeysAndKnobsToTheHost) {
    VstKeyCode key{};
    EXPECT_FALSE(editor->onKeyDown(key));
    EXPECT_FALSE(editor->onKeyUp(key));
    EXPECT_FALSE(editor->setKnobMode(kLinearMode));
    editor->idle();
    EXPECT_EQ(record.Take(), "");
}

} // namespace
} // namespace VorinExt::VSTPlugin::Testing
