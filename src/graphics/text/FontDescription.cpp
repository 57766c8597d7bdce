#include "graphics/text/FontDescription.h"

#include <functional>

namespace Vorin::Graphics {

std::size_t CFontValuesHash::operator()(const CFontValues& values) const {
    std::size_t hash = std::hash<std::string>()(values.face);
    const auto mix = [&hash](std::size_t value) {
        hash ^= value + 0x9e3779b97f4a7c15u + (hash << 6) + (hash >> 2);
    };
    mix(std::hash<int>()(values.width));
    mix(std::hash<int>()(values.height));
    mix(std::hash<int>()(values.quality));
    mix(std::hash<int>()(values.weight));
    mix((values.italic ? 1u : 0u) | (values.underline ? 2u : 0u) | (values.strikeOut ? 4u : 0u));
    mix(std::hash<float>()(values.escapement)); // the same for 0 and -0, which are equal
    return hash;
}

CFontDescription& CFontDescription::operator=(const CFontDescription& other) {
    if (this != &other) {
        SetValues(other.values);
    }
    return *this;
}

void CFontDescription::SetFace(const char* face) {
    const char* name = face ? face : "";
    if (values.face != name) {
        values.face = std::string(name); // `face` may be a part of what is replaced
        NotifyChanged();
    }
}

void CFontDescription::SetEscapement(float degrees) {
    // Deliberately not `!=`: NaN is neither less nor greater, and would equal no other description.
    if (degrees < values.escapement || degrees > values.escapement) {
        values.escapement = degrees;
        NotifyChanged();
    }
}

void CFontDescription::SetValues(const CFontValues& newValues) {
    if (!(values == newValues)) {
        values = newValues;
        NotifyChanged();
    }
}

void CFontDescription::NotifyChanged() {
    OnChanged();
    changed.Notify();
}

} // namespace Vorin::Graphics
