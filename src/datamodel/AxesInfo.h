#pragma once

#include "core/Command.h"
#include "core/Ownership.h"
#include "datamodel/ObjectInfo.h"
#include "datamodel/ParamInfo.h"

#include <array>
#include <cstddef>
#include <memory>
#include <type_traits>

namespace Vorin::DataModel::Objects {

/// What CCurveInfo and CSurfaceInfo have in common: a name, an info for each axis, and a default.
///
/// I is the read-only interface, F the interface of the default, Fallback the constant that stands
/// in for it, N the number of axes. A change of an axis fires the event of the whole. A copy has
/// axis infos of its own and no listeners.
template <class I, class F, class Fallback, std::size_t N>
class TAxesInfo : public CObjectInfo, public virtual I {
public:
    TAxesInfo() { ConnectAxes(); }

    template <class... Axes>
    TAxesInfo(const char* nameText, const char* commentText, const Axes&... axisInfos)
        : CObjectInfo(nameText, commentText) {
        static_assert(sizeof...(Axes) == N);
        std::size_t i = 0;
        (axes[i++].CopyFrom(axisInfos), ...);
        ConnectAxes();
    }

    TAxesInfo(const TAxesInfo& other)
        : CObjectInfo(other), axes(other.axes), defaultValue(other.defaultValue) {
        ConnectAxes();
    }

    TAxesInfo& operator=(const TAxesInfo& other) {
        TAxesInfo::CopyFrom(other);
        return *this;
    }

    /// The explicit default. Without one, a constant of the second axis's default as it was when
    /// the default was first asked for. Lives until another default is set.
    const F& GetDefaultValue() const override {
        if (const F* value = defaultValue.Get()) {
            return *value;
        }
        if (!fallback) {
            // Deliberately the second axis of a surface too.
            fallback = std::make_unique<Fallback>(axes[1].GetDefault());
        }
        return *fallback;
    }

    /// Null goes back to the constant. Fires always.
    void SetDefaultValue(F* value, Core::EOwnership ownership) {
        defaultValue.Set(value, ownership);
        if (value) {
            fallback.reset();
        }
        NotifyChanged();
    }

    using CObjectInfo::CopyFrom;

    /// Takes over all fields, with a clone of an explicit default, and fires once.
    void CopyFrom(const I& other) {
        // A default that the other one has only made up is made up here anew.
        const auto* alike = dynamic_cast<const TAxesInfo*>(&other);
        const F* value = alike ? alike->defaultValue.Get() : &other.GetDefaultValue();
        F* clone = value ? value->Clone() : nullptr;
        AssignTexts(other);
        isCopying = true;
        CopyAxes(other);
        isCopying = false;
        defaultValue.Set(clone, Core::kOwn);
        fallback.reset();
        NotifyChanged();
    }

protected:
    template <std::size_t Index>
    CParamInfo& Axis() {
        return std::get<Index>(axes);
    }
    template <std::size_t Index>
    const CParamInfo& Axis() const {
        return std::get<Index>(axes);
    }

private:
    void CopyAxes(const I& other) {
        axes[0].CopyFrom(other.GetXInfo());
        axes[1].CopyFrom(other.GetYInfo());
        if constexpr (N > 2) {
            axes[2].CopyFrom(other.GetZInfo());
        }
    }

    void ConnectAxes() {
        for (CParamInfo& axis : axes) {
            axis.GetInfoChangedEvents().Connect(axisChanged);
        }
    }

    void OnAxisChanged() {
        if (!isCopying) {
            NotifyChanged();
        }
    }

    Core::TCommand<TAxesInfo> axisChanged{this, &TAxesInfo::OnAxisChanged};
    std::array<CParamInfo, N> axes; // behind the command, which they call
    Core::TOwnershipWithClone<F> defaultValue;
    mutable std::unique_ptr<F> fallback;
    bool isCopying = false; // the axes' events stand for one event of the whole
};

} // namespace Vorin::DataModel::Objects
