#pragma once

#include "datamodel/links/BaseCaptureObjectLink.h"
#include "datamodel/objects/CaptureObject.h"

namespace Vorin::DataModel {

/// The target takes over each value of the source. For ends of the same value type.
template <class S, class T>
class TCaptureObjectLink : public TBaseCaptureObjectLink<S, T> {
protected:
    void OnSourceChanged() override { this->Write(this->source->GetValue()); }
};

namespace Objects {

/// A curve follows another one: it gets a clone of each new function.
class CCaptureCurveLink : public TCaptureObjectLink<IConstCaptureCurve, ICaptureCurve> {};

/// A text follows another one.
class CCaptureStringLink : public TCaptureObjectLink<IConstCaptureString, ICaptureString> {};

} // namespace Objects

} // namespace Vorin::DataModel
