#pragma once

#include "containers/CharString.h"
#include "datamodel/objects/CaptureObject.h"
#include "datamodel/objects/CaptureState.h"

namespace Vorin::DataModel::Objects {

/// A text to read. One thread.
///
/// Never null; null counts as the empty text. `GetValue` is valid until the next change.
class CConstCaptureString : public TCaptureState<>, public virtual IConstCaptureString {
public:
    CConstCaptureString() = default;

    /// Copies the info; the value starts at its default text.
    explicit CConstCaptureString(const IConstStringInfo& source) : value(source.GetDefaultText()) {
        info.CopyFrom(source);
    }

    const char* GetValue() const override { return value.Get(); }
    const IConstStringInfo& GetInfo() const override { return info; }

    /// To change the info.
    CStringInfo& GetInfo() { return info; }

protected:
    /// For derived classes that make the value. Does not notify. The text may be a part of the
    /// value.
    void StoreText(const char* text) { value = text; }

    bool IsStored(const char* text) const { return value == (text ? text : ""); }

private:
    CStringInfo info;
    Containers::CCharString value;
};

/// A text to read and write.
class CCaptureString : public TCapturable<CConstCaptureString>, public virtual ICaptureString {
public:
    using TCapturable::TCapturable;

    /// When the text differs: OnValueChanged, then the change event.
    void SetValue(const char* text) override {
        if (!IsStored(text)) {
            OnValueChanged(text);
            NotifyValueChanged();
        }
    }

    /// Stores the text. A derived class calls this one first and then does what else is to be done
    /// before listeners hear of the change.
    virtual void OnValueChanged(const char* text) { StoreText(text); }
};

} // namespace Vorin::DataModel::Objects
