#pragma once

#include "containers/CharString.h"
#include "core/EventProvider.h"
#include "datamodel/NumberFormat.h"

#include <string_view>

namespace Vorin::DataModel::Objects {

/// How a parameter's value reads as text, and back. A clone can live on another thread.
class IParamValueToText {
public:
    /// Replaces `out` by the text of the value.
    virtual void ValueToText(double value, Containers::CCharString& out) const = 0;

    /// False when the text, which may be null, is no value.
    virtual bool TextToValue(const char* text, double& value) const = 0;

    /// A copy of its own, owned by the caller and freed with delete.
    virtual IParamValueToText* Clone() const = 0;

    virtual ~IParamValueToText() = default;
};

/// Writes a number into a pattern: "{value}" stands for the formatted number, "{{" for a brace, and
/// any other text for itself.
///
/// The number is rounded to significant digits, shortened by a unit prefix, printed by the format
/// and stripped of trailing zeros, in this order and each only when asked for. A copy has no
/// listeners.
class CParamValueToText : public virtual IParamValueToText {
public:
    /// Off, for SetSignificantDigits.
    static constexpr int kAllDigits = -1;

    /// A format that CNumberFormat does not accept is "%.2f".
    explicit CParamValueToText(const char* formatText = "%.2f", bool withUnitPrefix = false,
                               const char* patternText = "{value}");

    void ValueToText(double value, Containers::CCharString& out) const override;

    /// Reads a real number, whatever the pattern is. False leaves `value` alone.
    bool TextToValue(const char* text, double& value) const override;

    IParamValueToText* Clone() const override { return new CParamValueToText(*this); }

    /// Fired by each setter that changes something.
    Core::IEventProvider& GetChangedEvents() const { return changed; }

    const char* GetPattern() const { return pattern.Get(); }
    void SetPattern(const char* text);

    const char* GetFormat() const { return format.Get(); }
    /// False, with the previous format kept, when CNumberFormat does not accept the text.
    bool SetFormat(const char* text);

    /// A unit prefix out of p, µ, m, k, M, G, T behind the number, which is scaled to it. Zero,
    /// negative and infinite values and NaN have none.
    bool GetUseUnitPrefix() const { return useUnitPrefix; }
    void SetUseUnitPrefix(bool use);

    /// Below 1 nothing is rounded.
    int GetSignificantDigits() const { return significantDigits; }
    void SetSignificantDigits(int digits);

    /// Removes zeros at the end of the formatted text, then one "." or ",". It does not ask whether
    /// the zeros are decimals: "100" becomes "1", so it belongs to formats with decimals.
    bool GetDropTrailingZeros() const { return dropTrailingZeros; }
    void SetDropTrailingZeros(bool drop);

    /// A blank behind the number, in front of the prefix, also when there is none.
    bool GetPrefixSpace() const { return prefixSpace; }
    void SetPrefixSpace(bool space);

protected:
    /// Appends what a token, braces included, stands for; false when it stands for itself.
    virtual bool WriteToken(std::string_view token, double value,
                            Containers::CCharString& out) const;

    void WriteNumber(double value, Containers::CCharString& out) const;
    void NotifyChanged() { changed.Notify(); }

private:
    template <class T>
    void Store(T& field, T value) {
        if (field != value) {
            field = value;
            changed.Notify();
        }
    }

    Containers::CCharString pattern;
    CNumberFormat format;
    bool useUnitPrefix;
    mutable Core::CEventProvider changed;
    int significantDigits = kAllDigits;
    bool dropTrailingZeros = false;
    bool prefixSpace = false;
};

} // namespace Vorin::DataModel::Objects
