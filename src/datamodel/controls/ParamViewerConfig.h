#pragma once

#include "core/Command.h"
#include "core/EventProvider.h"
#include "core/Reverse.h"
#include "datamodel/ParamInfo.h"
#include "datamodel/ParamValueCurve.h"
#include "math/Function.h"

namespace Vorin::DataModel::Controls {

/// How one display maps values to positions from 0 to 1 and back: scale, response curve, direction,
/// steps and zoom.
///
/// Widgets work in positions only, the model in values only. 0 to 1 is the visible part: zoomed in,
/// values outside it have positions outside 0 to 1. Every setter that changes something ends with
/// the config event. [gui]
class IParamViewerConfig : public virtual Core::IReverse {
public:
    /// The reverse event comes before the config event.
    void SetReversed(bool reverse) override = 0;

    /// What the values are. Outlives the config, or its stay there.
    virtual const Objects::IConstParamInfo& GetInfo() const = 0;

    /// A number outside the table gives a straight line. Fires always.
    virtual void SetResponseCurve(Objects::EParamValueCurve curve) = 0;

    /// A curve of the caller's: `forward` on the way to a value, `inverse` on the way back. They
    /// live until others are set; null is a straight line. Fires always.
    virtual void SetResponseFunctions(const Math::IFunction* forwardFunction,
                                      const Math::IFunction* inverseFunction) = 0;

    /// Equal ratios of values at equal distances, in place of what the info says. It takes a range
    /// that lies on one side of 0: in any other, every value is at position 0 and every position
    /// means min.
    virtual void SetLogScale(bool enable) = 0;

    /// Whether values are laid out by the info's position mapper, or evenly.
    virtual void SetUseParameterCurve(bool enable) = 0;

    /// How many times the range exceeds what is visible, at least 1. The zoom event comes before
    /// the config event. NaN is ignored.
    virtual void SetZoom(double newZoom) = 0;
    virtual double GetZoom() const = 0;

    /// Which part is visible, from 0, the lowest, to 1. The zoom position event comes before the
    /// config event. NaN is ignored.
    virtual void SetZoomPosition(double newZoomPosition) = 0;
    virtual double GetZoomPosition() const = 0;

    /// More steps when zoomed in: each becomes as many as the zoom has in whole, or, with a base
    /// factor above 1, as the largest power of it within the zoom, but no more than the maximum,
    /// where -1 is none.
    virtual void SetEnablePositionsZoom(bool enable) = 0;
    virtual bool GetEnablePositionsZoom() const = 0;
    virtual void SetPositionsZoomBaseFactor(int factor) = 0;
    virtual void SetMaxPositionsZoom(int maximum) = 0;

    /// The number of different positions without zoom, -1 for a continuum. Unless it is a real, a
    /// parameter has no more than values; a negative count asks for just these.
    virtual void SetPositionsCount(int count) = 0;
    virtual int GetPositionsCount() const = 0;

    /// The number of positions over the whole range at this zoom; negative for a continuum.
    virtual int GetZoomedPositionsCount() const = 0;

    /// How many of them are visible, the last in part; -1 for a continuum.
    virtual double GetVisiblePositionsCount() const = 0;

    /// Back to as many positions as the parameter has values.
    virtual void ResetPositionsCount() = 0;

    /// `clamp` keeps a position within 0 to 1. The minimum is the end that position 0 shows when
    /// nothing is zoomed: the range's max when reversed.
    virtual double GetDefaultPosition(bool clamp) const = 0;
    virtual double GetMinPosition(bool clamp) const = 0;
    virtual double GetMaxPosition(bool clamp) const = 0;

    /// A value without a position, as NaN is, gives 0 when clamped and else NaN, or a step. In an
    /// empty range, or one wider than a double tells, every value is at position 0 (reversed, at 1)
    /// and every position means min.
    virtual double ValueToPosition(bool clamp, double value) const = 0;

    /// Not clamped: a position outside 0 to 1 may give a value outside the range. A value of the
    /// parameter's type.
    virtual double PositionToValue(double position) const = 0;

    /// Fired after any change of the mapping, be it of the config or of the info.
    virtual Core::IEventProvider& GetConfigEvents() = 0;
    virtual Core::IEventProvider& GetZoomEvents() = 0;
    virtual Core::IEventProvider& GetZoomPositionEvents() = 0;

    /// Fired when the config is given another info. A change within the info is a config event.
    virtual Core::IEventProvider& GetInfoEvents() = 0;
};

/// A new one is linear, continuous for a real parameter, not zoomed, and laid out by the info's
/// mapper.
class CParamViewerConfig : public virtual IParamViewerConfig {
public:
    static constexpr int kContinuous = -1;
    static constexpr int kNoMaxPositionsZoom = -1;

    /// Listens to the info, which outlives the config or its stay here.
    explicit CParamViewerConfig(const Objects::IConstParamInfo& source);
    ~CParamViewerConfig() override;

    CParamViewerConfig(const CParamViewerConfig&) = delete;
    CParamViewerConfig& operator=(const CParamViewerConfig&) = delete;

    /// Takes up another info, adapts the steps to it, and fires config and then info events, also
    /// for the same one. The previous info has to be alive still.
    void SetInfo(const Objects::IConstParamInfo& source);

    void SetReversed(bool reverse) override;
    bool IsReversed() const override { return reversed; }
    Core::IEventProvider& GetReverseEvents() override { return reverseEvents; }

    const Objects::IConstParamInfo& GetInfo() const override { return *info; }
    void SetResponseCurve(Objects::EParamValueCurve curve) override;
    void SetResponseFunctions(const Math::IFunction* forwardFunction,
                              const Math::IFunction* inverseFunction) override;
    void SetLogScale(bool enable) override;
    void SetUseParameterCurve(bool enable) override;
    void SetZoom(double newZoom) override;
    double GetZoom() const override { return zoom; }
    void SetZoomPosition(double newZoomPosition) override;
    double GetZoomPosition() const override { return zoomPosition; }
    void SetEnablePositionsZoom(bool enable) override;
    bool GetEnablePositionsZoom() const override { return enablePositionsZoom; }
    void SetPositionsZoomBaseFactor(int factor) override;
    void SetMaxPositionsZoom(int maximum) override;
    void SetPositionsCount(int count) override;
    int GetPositionsCount() const override { return positionsCount; }
    int GetZoomedPositionsCount() const override;
    double GetVisiblePositionsCount() const override;
    void ResetPositionsCount() override;
    double GetDefaultPosition(bool clamp) const override;
    double GetMinPosition(bool clamp) const override;
    double GetMaxPosition(bool clamp) const override;
    double ValueToPosition(bool clamp, double value) const override;
    double PositionToValue(double position) const override;
    Core::IEventProvider& GetConfigEvents() override { return configEvents; }
    Core::IEventProvider& GetZoomEvents() override { return zoomEvents; }
    Core::IEventProvider& GetZoomPositionEvents() override { return zoomPositionEvents; }
    Core::IEventProvider& GetInfoEvents() override { return infoEvents; }

private:
    template <class T>
    void Store(T& field, T value);
    void Recompute();
    void CacheRange();
    void CacheFactors();
    int GetNaturalCount() const;
    double ComputePositionsZoom() const;
    bool HasIdentityResponse() const;
    bool HasLinearMapper() const;
    double MapToPosition(double value) const;
    double MapToValue(double position) const;
    double Normalise(double value) const;
    double Denormalise(double position) const;
    double ToStep(double position) const;
    double ToType(double value) const;

    int positionsCount = kContinuous;
    bool reversed = false;
    bool logScale = false;
    const Objects::IConstParamInfo* info;
    Core::CEventProvider reverseEvents;
    Core::CEventProvider zoomEvents;
    Core::CEventProvider zoomPositionEvents;
    Core::CEventProvider configEvents;
    Core::CEventProvider infoEvents;
    Objects::CParamValueCurveFunctions curveFunctions; // empty when the functions are the caller's
    const Math::IFunction* forward;
    const Math::IFunction* inverse;
    double zoom = 1.0;
    double zoomPosition = 0.0;
    double positionsZoomBaseFactor = 1.0;
    double maxPositionsZoom = kNoMaxPositionsZoom;

    // Follow the info.
    Objects::EParamType type = Objects::kParamReal;
    double min = 0.0;
    double max = 0.0;
    double inverseRange = 0.0;    // 0 for an empty range, or one too wide
    double inverseLogRatio = 0.0; // 0 when there is no logarithm
    double ratio = 0.0;           // max by min; 0 when that is no number

    // Follow all the rest. Plain is a mapping of nothing but range and zoom, such as most graphs
    // have: reading a curve through it need not ask mapper and functions for every point.
    bool isPlain = false;
    double zoomOffset = 0.0;
    double inverseZoom = 1.0;
    double positionsZoom = 1.0;

    Core::TCommand<CParamViewerConfig> recompute{this, &CParamViewerConfig::Recompute};
    bool enablePositionsZoom = false;
    bool useParameterCurve = true;
};

inline double CParamViewerConfig::ValueToPosition(bool clamp, double value) const {
    const double whole = isPlain ? (value - min) * inverseRange : MapToPosition(value);
    const double visible = whole * zoom - zoomOffset;
    if (!clamp) {
        return visible;
    }
    return visible > 0.0 ? (visible < 1.0 ? visible : 1.0) : 0.0; // 0 for NaN
}

inline double CParamViewerConfig::PositionToValue(double position) const {
    const double whole = (position + zoomOffset) * inverseZoom;
    return isPlain ? (max - min) * whole + min : MapToValue(whole);
}

} // namespace Vorin::DataModel::Controls
