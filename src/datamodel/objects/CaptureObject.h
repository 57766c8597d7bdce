#pragma once

#include "core/Capture.h"
#include "core/Disconnect.h"
#include "core/Value.h"
#include "core/ValueFactory.h"
#include "datamodel/CurveInfo.h"
#include "datamodel/CustomPropertyInfo.h"
#include "datamodel/ParamInfo.h"
#include "datamodel/StringInfo.h"
#include "datamodel/SurfaceInfo.h"
#include "math/Function.h"

namespace Vorin::DataModel {

/// A value that can be watched, and that tells while somebody holds it.
template <class T>
class TIConstCaptureValue : public virtual Core::TIConstValue<T>,
                            public virtual Core::IConstCapture {};

/// A value that can be set, and held while it is being set.
template <class T>
class TICaptureValue : public virtual Core::TIValue<T>,
                       public virtual TIConstCaptureValue<T>,
                       public virtual Core::ICapture {};

/// A model object: a value of type `T`, the info `I` that describes it, its change event, and the
/// gesture of whoever holds it. Everything that a user sees or turns is one of these.
///
/// The kinds are named below. A model object belongs to one thread unless its class says
/// otherwise.
template <class T, class I>
class TIConstCaptureObject : public virtual TIConstCaptureValue<T> {
public:
    /// Lives as long as the object.
    virtual const I& GetInfo() const = 0;
};

/// A model object to read and write. Holding it neither stops others from writing nor filters
/// events.
template <class T, class I>
class TICaptureObject : public virtual TIConstCaptureObject<T, I>,
                        public virtual TICaptureValue<T> {};

/// A value of which each reader gets a copy of its own, as it must where threads meet.
template <class T>
class TIConstCaptureValueFactory : public virtual Core::TIConstValueFactory<T>,
                                   public virtual Core::IConstCapture {};

template <class T>
class TICaptureValueFactory : public virtual Core::TIValueFactory<T>,
                              public virtual TIConstCaptureValueFactory<T>,
                              public virtual Core::ICapture {};

template <class T, class I>
class TIConstCaptureObjectFactory : public virtual TIConstCaptureValueFactory<T> {
public:
    /// Lives as long as the object.
    virtual const I& GetInfo() const = 0;
};

template <class T, class I>
class TICaptureObjectFactory : public virtual TIConstCaptureObjectFactory<T, I>,
                               public virtual TICaptureValueFactory<T> {};

/// A model object made from another one, of which it lets go by `Disconnect`.
template <class T, class I>
class TIConstCaptureObjectWrapper : public virtual Core::IDisconnect,
                                    public virtual TIConstCaptureObject<T, I> {};

template <class T, class I>
class TICaptureObjectWrapper : public virtual TIConstCaptureObjectWrapper<T, I>,
                               public virtual TICaptureObject<T, I> {};

namespace Objects {

using IConstCaptureParam = TIConstCaptureObject<double, IConstParamInfo>;
using ICaptureParam = TICaptureObject<double, IConstParamInfo>;

using IConstCaptureCurve = TIConstCaptureObject<const Math::IFunction&, IConstCurveInfo>;
using ICaptureCurve = TICaptureObject<const Math::IFunction&, IConstCurveInfo>;

using IConstCaptureSurface = TIConstCaptureObject<const Math::IBinaryFunction&, IConstSurfaceInfo>;
using ICaptureSurface = TICaptureObject<const Math::IBinaryFunction&, IConstSurfaceInfo>;

using IConstCaptureString = TIConstCaptureObject<const char*, IConstStringInfo>;
using ICaptureString = TICaptureObject<const char*, IConstStringInfo>;

using IConstCaptureProperty =
    TIConstCaptureObject<const IDynamicPropertyValue&, IConstCustomPropertyInfo>;
using ICaptureProperty = TICaptureObject<const IDynamicPropertyValue&, IConstCustomPropertyInfo>;

} // namespace Objects

} // namespace Vorin::DataModel
