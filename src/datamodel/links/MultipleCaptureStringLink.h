#pragma once

#include "containers/CharString.h"
#include "datamodel/links/MultipleCaptureObjectLink.h"
#include "datamodel/objects/CaptureObject.h"

namespace Vorin::DataModel::Objects {

/// A text follows many others: it gets the one that changed last, or all of them in a row.
class CMultipleCaptureStringLink
    : public TMultipleCaptureObjectLink<IConstCaptureString, ICaptureString> {
public:
    /// In bytes. A row that is longer is not passed on: where it leads back into its own sources it
    /// grows with each change.
    static constexpr int kMaxLength = 1 << 20;

    /// What stands between the texts, in the order of the sources and leaving out the target
    /// itself. Null, as it is at first: the text that changed last.
    void SetSeparator(const char* text);

protected:
    void OnSourceChanged() override;

private:
    bool isJoining = false;
    Containers::CCharString separator;
};

} // namespace Vorin::DataModel::Objects
