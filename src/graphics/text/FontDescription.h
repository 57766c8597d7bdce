#pragma once

#include <cstddef>
#include <string>

#include "core/EventProvider.h"

namespace Vorin::Graphics {

/// The values of CFontDescription::SetQuality. Only the last one is special: it draws without
/// anti-aliasing.
enum {
    kFontQualityDefault = 0,
    kFontQualityAntiAlias = 1,
    kFontQualityClearType = 2,
    kFontQualityNoAntiAlias = 3,
};

inline constexpr int kFontWeightNormal = 400;
inline constexpr int kFontWeightBold = 700;

/// What names a font, as a plain value.
struct CFontValues {
    std::string face; ///< UTF-8; names of families, separated by commas; empty for the platform's
    int width = 0;
    int height = 0;
    int quality = kFontQualityDefault;
    int weight = kFontWeightNormal;
    bool italic = false;
    bool underline = false;
    bool strikeOut = false;
    float escapement = 0.0F;

    friend bool operator==(const CFontValues&, const CFontValues&) = default;
};

struct CFontValuesHash {
    std::size_t operator()(const CFontValues& values) const;
};

/// A font by its properties. GUI thread only.
///
/// A setter that changes something fires the changed event.
class IFontDescription {
public:
    virtual ~IFontDescription() = default;

    /// The name of a family. One that is not there is replaced by what the platform has instead.
    /// Null counts as the empty name. The text is valid until the next change.
    virtual void SetFace(const char* face) = 0;
    virtual const char* GetFace() const = 0;

    /// The width in relation to the height: of the same number the face has its own proportions,
    /// of half of it the letters are half as wide. 0 and less mean the face's own too.
    virtual void SetWidth(int width) = 0;
    virtual int GetWidth() const = 0;

    /// In pixels. Of 0 and less nothing is drawn; what is larger than any bitmap counts as that
    /// size.
    virtual void SetHeight(int height) = 0;
    virtual int GetHeight() const = 0;

    virtual void SetQuality(int quality) = 0;
    virtual int GetQuality() const = 0;

    /// 400 is normal, 700 bold.
    virtual void SetWeight(int weight) = 0;
    virtual int GetWeight() const = 0;

    virtual void SetItalic(bool italic) = 0;
    virtual bool IsItalic() const = 0;

    virtual void SetUnderline(bool underline) = 0;
    virtual bool IsUnderline() const = 0;

    virtual void SetStrikeOut(bool strikeOut) = 0;
    virtual bool IsStrikeOut() const = 0;

    /// The rotation in degrees, counterclockwise. NaN is not taken.
    virtual void SetEscapement(float degrees) = 0;
    virtual float GetEscapement() const = 0;

    virtual const CFontValues& GetValues() const = 0;
    virtual Core::IEventProvider& GetChangedEvent() = 0;
};

/// A description that stores its values. A copy starts without listeners.
class CFontDescription : public virtual IFontDescription {
public:
    CFontDescription() = default;
    explicit CFontDescription(CFontValues initial) : values(std::move(initial)) {}
    CFontDescription(const CFontDescription& other)
        : IFontDescription(), values(other.values), changed(other.changed) {}
    /// Takes over the values and fires when they differ.
    CFontDescription& operator=(const CFontDescription& other);

    void SetFace(const char* face) override;
    const char* GetFace() const override { return values.face.c_str(); }
    void SetWidth(int width) override { Change(values.width, width); }
    int GetWidth() const override { return values.width; }
    void SetHeight(int height) override { Change(values.height, height); }
    int GetHeight() const override { return values.height; }
    void SetQuality(int quality) override { Change(values.quality, quality); }
    int GetQuality() const override { return values.quality; }
    void SetWeight(int weight) override { Change(values.weight, weight); }
    int GetWeight() const override { return values.weight; }
    void SetItalic(bool italic) override { Change(values.italic, italic); }
    bool IsItalic() const override { return values.italic; }
    void SetUnderline(bool underline) override { Change(values.underline, underline); }
    bool IsUnderline() const override { return values.underline; }
    void SetStrikeOut(bool strikeOut) override { Change(values.strikeOut, strikeOut); }
    bool IsStrikeOut() const override { return values.strikeOut; }
    void SetEscapement(float degrees) override;
    float GetEscapement() const override { return values.escapement; }

    const CFontValues& GetValues() const override { return values; }
    /// Sets all at once: fires once.
    void SetValues(const CFontValues& newValues);
    Core::IEventProvider& GetChangedEvent() override { return changed; }

    friend bool operator==(const CFontDescription& a, const CFontDescription& b) {
        return a.values == b.values;
    }

protected:
    /// Called between a change and its event.
    virtual void OnChanged() {}

private:
    template <class T>
    void Change(T& stored, T value) {
        if (stored != value) {
            stored = value;
            NotifyChanged();
        }
    }
    void NotifyChanged();

    CFontValues values;
    Core::CEventProvider changed;
};

} // namespace Vorin::Graphics
