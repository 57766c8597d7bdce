#pragma once

#include "datamodel/controls/FunctionViewer.h"

namespace Vorin::DataModel::Controls {

/// A curve as a function from position to position. [gui]
class ICurveViewer : public virtual TIFunctionViewer<Objects::IConstCaptureCurve> {
public:
    /// Whether x runs upwards and y to the right, with its config and changed events.
    virtual void SetSwapped(bool swap) = 0;
    virtual bool IsSwapped() const = 0;

    virtual const IParamViewerConfig& GetXConfig() const = 0;
    virtual IParamViewerConfig& GetXConfig() = 0;
    virtual const IParamViewerConfig& GetYConfig() const = 0;
    virtual IParamViewerConfig& GetYConfig() = 0;

    /// The position on the y axis of the curve's value at a position on the x axis. `clamp` keeps
    /// it within 0 to 1; else it may be any number, NaN too where the curve has none.
    virtual double GetValue(bool clamp, double position) const = 0;
};

/// Shows a curve. Drawing reads it through `GetValue` a point at a time.
class CCurveViewer final : public TFunctionViewer<ICurveViewer, Objects::IConstCaptureCurve> {
public:
    explicit CCurveViewer(Objects::IConstCaptureCurve& source) : TFunctionViewer(source) {}

    void SetSwapped(bool swap) override {
        if (swap != swapped) {
            swapped = swap;
            NotifyConfig();
        }
    }
    bool IsSwapped() const override { return swapped; }

    const CParamViewerConfig& GetXConfig() const override { return Axis<0>(); }
    CParamViewerConfig& GetXConfig() override { return Axis<0>(); }
    const CParamViewerConfig& GetYConfig() const override { return Axis<1>(); }
    CParamViewerConfig& GetYConfig() override { return Axis<1>(); }

    double GetValue(bool clamp, double position) const override;

private:
    bool swapped = false;
};

} // namespace Vorin::DataModel::Controls
