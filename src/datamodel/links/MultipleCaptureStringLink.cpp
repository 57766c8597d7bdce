#include "datamodel/links/MultipleCaptureStringLink.h"

namespace Vorin::DataModel::Objects {

void CMultipleCaptureStringLink::SetSeparator(const char* text) {
    isJoining = text != nullptr;
    separator = text;
    PassNow();
}

void CMultipleCaptureStringLink::OnSourceChanged() {
    if (!isJoining) {
        Write(GetSource(GetLastChanged()).GetValue());
        return;
    }
    // What a row brings about at its own sources is not joined again.
    if (IsUpdating()) {
        return;
    }
    Containers::CCharString joined;
    bool isFirst = true;
    for (int i = 0; i < GetSourcesCount(); ++i) {
        if (IsTarget(i)) {
            continue;
        }
        joined.Append(isFirst ? "" : separator.Get());
        joined.Append(GetSource(i).GetValue());
        isFirst = false;
        if (joined.GetLength() > kMaxLength) {
            return;
        }
    }
    Write(joined.Get());
}

} // namespace Vorin::DataModel::Objects
