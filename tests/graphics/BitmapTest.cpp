#include "graphics/Bitmap.h"

#include <gtest/gtest.h>

#include "graphics/DIBBitmap.h"

namespace Vorin::Graphics {
namespace {

class CChangeCounter : public Core::ICommand {
public:
    explicit CChangeCounter(Core::IEventProvider& source) : event(source) { event.Connect(*this); }
    ~CChangeCounter() override { event.Disconnect(*this); }
    CChangeCounter(const CChangeCounter&) = delete;
    CChangeCounter& operator=(const CChangeCounter&) = delete;
    void Execute() override { ++count; }

    int count = 0;

private:
    Core::IEventProvider& event;
};

TEST(BitmapTest, HandlesShareOneBitmap) {
    CDIBBitmap bitmap({4, 4}, 16);
    EXPECT_EQ(bitmap.GetReferenceCount(), 1);
    const auto second = bitmap.GetSharedBitmap();
    const auto third = second->GetSharedBitmap();
    EXPECT_EQ(bitmap.GetReferenceCount(), 3);
    EXPECT_EQ(third->GetReferenceCount(), 3);
    EXPECT_EQ(third->GetContext(), bitmap.GetContext());
    bitmap.CreatePixelAccess()->SetPixel({1, 1}, {80, 160, 240});
    EXPECT_EQ(third->CreatePixelAccess()->GetPixel({1, 1}), (RGB{10, 20, 30}));
}

TEST(BitmapTest, ThePixelsGoWithTheLastHandle) {
    std::weak_ptr<CBitmapContext> pixels;
    std::unique_ptr<ISharedBitmap> handle;
    {
        CDIBBitmap bitmap({4, 4}, 32);
        pixels = bitmap.GetContext();
        handle = bitmap.GetSharedBitmap();
    }
    EXPECT_EQ(handle->GetReferenceCount(), 1);
    EXPECT_FALSE(pixels.expired());
    handle.reset();
    EXPECT_TRUE(pixels.expired());
}

TEST(BitmapTest, AllHandlesGetOtherPixelsAndAreTold) {
    CDIBBitmap bitmap({4, 4}, 32);
    const auto handle = bitmap.GetSharedBitmap();
    CChangeCounter changes(handle->GetChangedEvent());
    bitmap.SetContext(CBitmapContext::Create({7, 5}, 8));
    EXPECT_EQ(changes.count, 1);
    EXPECT_EQ(handle->GetSize(), (Core::C2DSize{7, 5}));
    EXPECT_EQ(handle->GetBitsPerPixel(), 8);
    bitmap.SetContext(bitmap.GetContext());
    EXPECT_EQ(changes.count, 1) << "the same pixels";
    handle->Clear();
    EXPECT_EQ(changes.count, 2);
    handle->SetContext(nullptr);
    EXPECT_EQ(bitmap.GetSize(), Core::C2DSize{});
    EXPECT_EQ(handle->GetBitsPerPixel(), 0);
    bitmap.Clear();
    EXPECT_EQ(changes.count, 3) << "nothing to clear";
}

TEST(BitmapTest, ASurfaceKeepsThePixelsThatItDrawsOn) {
    std::unique_ptr<IDrawSurface> surface;
    {
        CDIBBitmap bitmap({8, 8}, 32);
        surface = bitmap.CreateSurface();
    }
    surface->DrawLine({0, 0}, {7, 7});
    surface->FillRectangle({0, 0, 8, 8});
    EXPECT_EQ(surface->GetBitmap()->GetSize(), (Core::C2DSize{8, 8}));
}

} // namespace
} // namespace Vorin::Graphics
