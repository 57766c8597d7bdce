#include "graphics/text/FontManager.h"

#include "graphics/text/TextPicture.h"

#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

namespace Vorin::Graphics::Testing {
namespace {

TEST(FontManagerTest, EqualDescriptionsShareAnEntryThatGoesWithItsLastUser) {
    CFontManager& manager = CFontManager::Get();
    const int before = manager.GetFontCount();
    {
        const CSharedFont first(MakeFont(13));
        EXPECT_EQ(manager.GetFontCount(), before + 1);
        EXPECT_EQ(manager.GetReferenceCount(MakeFont(13)), 1);
        const CSharedFont second(MakeFont(13));
        const CSharedFont third(second);
        EXPECT_EQ(&first.GetEntry(), &second.GetEntry());
        EXPECT_EQ(&first.GetEntry(), &third.GetEntry());
        EXPECT_EQ(manager.GetFontCount(), before + 1);
        EXPECT_EQ(manager.GetReferenceCount(MakeFont(13)), 3);
    }
    EXPECT_EQ(manager.GetFontCount(), before);
    EXPECT_EQ(manager.GetReferenceCount(MakeFont(13)), 0);
}

TEST(FontManagerTest, ASetterSwapsTheEntry) {
    CFontManager& manager = CFontManager::Get();
    const CSharedFont other(MakeFont(14));
    CSharedFont font(MakeFont(13));
    font.SetHeight(14);
    EXPECT_EQ(&font.GetEntry(), &other.GetEntry());
    EXPECT_EQ(manager.GetReferenceCount(MakeFont(13)), 0);
    CSharedFont assigned(MakeFont(20));
    assigned = font;
    EXPECT_EQ(manager.GetReferenceCount(MakeFont(14)), 3);
    EXPECT_EQ(manager.GetReferenceCount(MakeFont(20)), 0);
}

TEST(FontManagerTest, AcquireAndReleaseCount) {
    CFontManager& manager = CFontManager::Get();
    CFont* first = manager.Acquire(MakeFont(31));
    CFont* second = manager.Acquire(MakeFont(31));
    EXPECT_EQ(first, second);
    manager.Release(first);
    EXPECT_EQ(manager.GetReferenceCount(MakeFont(31)), 1);
    manager.Release(second);
    EXPECT_EQ(manager.GetReferenceCount(MakeFont(31)), 0);
    manager.Release(nullptr);
}

TEST(FontManagerTest, ASurfaceKeepsAFontThatNobodyElseHas) {
    CTestPicture picture({60, 30});
    {
        CSharedFont font(MakeFont(20));
        picture->SetFont(&font);
    }
    EXPECT_EQ(CFontManager::Get().GetReferenceCount(MakeFont(20)), 0);
    picture->SetTextMode(1);
    picture->DrawText("A", {0, 0});
    EXPECT_FALSE(picture.IsBlack());
}

TEST(FontManagerTest, FontsOfManyTextsAreOne) {
    const int before = CFontManager::Get().GetFontCount();
    std::vector<std::unique_ptr<CTextDrawer>> drawers;
    for (int i = 0; i < 300; ++i) {
        drawers.push_back(std::make_unique<CTextDrawer>());
        drawers.back()->SetFont(new CSharedFont(MakeFont(12)), Core::kOwn);
    }
    EXPECT_EQ(CFontManager::Get().GetFontCount(), before + 1);
    drawers.clear();
    EXPECT_EQ(CFontManager::Get().GetFontCount(), before);
}

/// A folder for font files that is gone after the test.
class FontFileTest : public ::testing::Test {
protected:
    FontFileTest() {
        folder =
            std::filesystem::temp_directory_path() /
            ("ondara-fonts-" + std::to_string(::testing::UnitTest::GetInstance()->random_seed()) +
             ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(folder);
    }
    ~FontFileTest() override {
        std::error_code error;
        std::filesystem::remove_all(folder, error);
    }

    std::string Write(const char* name, const std::string& bytes) const {
        std::ofstream(folder / name, std::ios::binary) << bytes;
        return (folder / name).string();
    }

    static std::string ReadFile(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// DejaVu Sans Mono under a name of the same length, in each table that has it.
    static std::string MakeRenamedFont() {
        std::string bytes = ReadFile("/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf");
        const std::string names[][2] = {
            {"DejaVu", "Quxono"},
            {std::string("\0D\0e\0j\0a\0V\0u", 12), std::string("\0Q\0u\0x\0o\0n\0o", 12)}};
        for (const auto& [from, to] : names) {
            for (std::size_t at = bytes.find(from); at != std::string::npos;
                 at = bytes.find(from, at)) {
                bytes.replace(at, from.size(), to);
            }
        }
        return bytes;
    }

    std::filesystem::path folder;
};

CFontValues MakeQuxono() {
    CFontValues values = MakeFont(20);
    values.face = "Quxono Sans Mono";
    return values;
}

TEST_F(FontFileTest, AFaceIsKnownFromItsLoadToItsLastUnload) {
    const std::string path = Write("quxono.ttf", MakeRenamedFont());
    CSharedFont font(MakeQuxono());
    CSharedFont mono([] {
        CFontValues values = MakeFont(20);
        values.face = "DejaVu Sans Mono";
        return values;
    }());
    // Without the file another face stands in, in which the two letters are not equally wide.
    ASSERT_NE(font.MeasureText("iiii"), font.MeasureText("mmmm"));
    CFontManager& manager = CFontManager::Get();
    ASSERT_TRUE(manager.LoadFont(path.c_str()));
    EXPECT_EQ(font.MeasureText("iiii"), font.MeasureText("mmmm")) << "also for a font that exists";
    EXPECT_EQ(font.MeasureText("mmmm"), mono.MeasureText("mmmm"));
    ASSERT_TRUE(manager.LoadFont(path.c_str()));
    EXPECT_TRUE(manager.UnloadFont(path.c_str()));
    EXPECT_EQ(font.MeasureText("iiii"), font.MeasureText("mmmm"));
    EXPECT_TRUE(manager.UnloadFont(path.c_str()));
    EXPECT_NE(font.MeasureText("iiii"), font.MeasureText("mmmm"));
    EXPECT_FALSE(manager.UnloadFont(path.c_str()));
}

TEST_F(FontFileTest, WhatIsNoFontFileIsRefused) {
    CFontManager& manager = CFontManager::Get();
    const std::string font = ReadFile("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf");
    ASSERT_GT(font.size(), 1000u);
    for (const std::string& path :
         {(folder / "missing.ttf").string(), folder.string(), Write("empty.ttf", ""),
          Write("text.ttf", "This is no font."), Write("noise.ttf", std::string(5000, '\x7f')),
          Write("cut.ttf", font.substr(0, 100)), Write("header.ttf", font.substr(0, 12)),
          std::string("/dev/null"), std::string("/dev/zero"), std::string()}) {
        EXPECT_FALSE(manager.LoadFont(path.c_str())) << path;
        EXPECT_FALSE(manager.UnloadFont(path.c_str())) << path;
    }
    EXPECT_FALSE(manager.LoadFont(nullptr));
    EXPECT_FALSE(manager.UnloadFont(nullptr));
    EXPECT_FALSE(manager.LoadFont("relative/nowhere.ttf"));
}

TEST_F(FontFileTest, ADamagedFontDoesNoHarm) {
    const std::string font = MakeRenamedFont();
    for (std::size_t length = font.size() / 16; length < font.size(); length += font.size() / 16) {
        const std::string path = Write("cut.ttf", font.substr(0, length));
        if (CFontManager::Get().LoadFont(path.c_str())) {
            CTestPicture picture({100, 40});
            CSharedFont shared(MakeQuxono());
            picture->SetFont(&shared);
            picture->DrawTextInRect("Qux \xc3\xa4", {0, 0, 100, 40}, {});
            EXPECT_TRUE(CFontManager::Get().UnloadFont(path.c_str()));
        }
    }
}

TEST_F(FontFileTest, AFileMayGoWhileItIsLoaded) {
    const std::string path =
        std::filesystem::canonical(Write("quxono.ttf", MakeRenamedFont())).string();
    ASSERT_TRUE(CFontManager::Get().LoadFont(path.c_str()));
    std::filesystem::remove(path);
    CSharedFont font(MakeQuxono());
    EXPECT_GT(font.MeasureText("A").width, 0);
    EXPECT_TRUE(CFontManager::Get().UnloadFont(path.c_str()));
}

} // namespace
} // namespace Vorin::Graphics::Testing
