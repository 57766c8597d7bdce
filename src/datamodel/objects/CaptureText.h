#pragma once

#include "containers/CharString.h"
#include "datamodel/objects/CaptureObject.h"
#include "datamodel/objects/CaptureState.h"

namespace Vorin::DataModel::Objects {

/// A text without an info, for what is shown and edited but is no model object. One thread.
///
/// Never null; null counts as the empty text. `GetValue` is valid until the next `SetValue`.
class CCaptureText : public TCapturable<TCaptureState<>>,
                     public virtual TICaptureValue<const char*> {
public:
    explicit CCaptureText(const char* initial = "") : value(initial) {}

    const char* GetValue() const override { return value.Get(); }

    /// Notifies always, also of the same text.
    void SetValue(const char* text) override {
        value = text;
        NotifyValueChanged();
    }

private:
    Containers::CCharString value;
};

} // namespace Vorin::DataModel::Objects
