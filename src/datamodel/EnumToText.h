#pragma once

#include "containers/CharString.h"
#include "datamodel/ParamValueToText.h"

#include <vector>

namespace Vorin::DataModel::Objects {

/// Labels for the integers from `firstValue` upward.
class CEnumToText : public virtual IParamValueToText {
public:
    CEnumToText() = default;

    /// Labels are parted by ";": a list with n of them has n + 1 labels. Null or "" has none.
    explicit CEnumToText(const char* list, int firstLabelValue = 0);

    /// The label of the rounded value, or "Out Of Bounds", also for NaN.
    void ValueToText(double value, Containers::CCharString& out) const override;

    /// The first label that equals the text, else an integer. When both fail, `value` is the number
    /// of the last label, and is left alone only when there are no labels.
    bool TextToValue(const char* text, double& value) const override;

    IParamValueToText* Clone() const override { return new CEnumToText(*this); }

    int GetCount() const { return static_cast<int>(labels.size()); }

    /// 0 <= index < GetCount()
    const char* GetLabel(int index) const { return labels[static_cast<std::size_t>(index)].Get(); }
    void SetLabel(int index, const char* label) { labels[static_cast<std::size_t>(index)] = label; }
    void AddLabel(const char* label) { labels.emplace_back(label); }

    int GetFirstValue() const { return firstValue; }
    void SetFirstValue(int value) { firstValue = value; }

private:
    std::vector<Containers::CCharString> labels;
    int firstValue = 0;
};

} // namespace Vorin::DataModel::Objects
