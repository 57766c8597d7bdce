#pragma once

#include "core/RefreshTime.h"
#include "datamodel/objects/CaptureObject.h"

namespace Vorin::DataModel {

/// Brings a copy of a value up to date.
class IProxyValueUpdate {
public:
    /// Takes the value over now, when there is a new one, and then notifies.
    virtual void UpdateValue() = 0;

    /// While off, `UpdateValue` does nothing, and what is new waits.
    virtual void SetUpdateEnabled(bool enable) = 0;

    virtual ~IProxyValueUpdate() = default;
};

/// A model object `O` that shows another one, its target, later or on another thread.
template <class O>
class TIConstCaptureObjectProxy : public virtual O, public virtual IProxyValueUpdate {};

/// One that brings itself up to date at each refresh time.
template <class O>
class TIConstCaptureObjectTimerProxy : public virtual TIConstCaptureObjectProxy<O>,
                                       public virtual Core::IRefreshTime {
public:
    /// For the timer: takes over gesture and value.
    virtual void OnTimer() = 0;
};

/// The same with a way to write: `O` is the interface to read, `W` the one to read and write.
template <class O, class W>
class TICaptureObjectProxy : public virtual W, public virtual TIConstCaptureObjectProxy<O> {};

template <class O, class W>
class TICaptureObjectTimerProxy : public virtual TIConstCaptureObjectTimerProxy<O>,
                                  public virtual TICaptureObjectProxy<O, W> {};

} // namespace Vorin::DataModel
