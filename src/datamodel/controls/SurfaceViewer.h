#pragma once

#include "datamodel/controls/FunctionViewer.h"

namespace Vorin::DataModel::Controls {

/// A surface as a function from two positions to one. [gui]
class ISurfaceViewer : public virtual TIFunctionViewer<Objects::IConstCaptureSurface> {
public:
    virtual const IParamViewerConfig& GetXConfig() const = 0;
    virtual IParamViewerConfig& GetXConfig() = 0;
    virtual const IParamViewerConfig& GetYConfig() const = 0;
    virtual IParamViewerConfig& GetYConfig() = 0;
    virtual const IParamViewerConfig& GetZConfig() const = 0;
    virtual IParamViewerConfig& GetZConfig() = 0;

    /// The position on the z axis of the surface's value at positions on the other two. `clamp`
    /// keeps it within 0 to 1; else it may be any number, NaN too where the surface has none.
    virtual double GetValue(bool clamp, double xPosition, double yPosition) const = 0;
};

/// Shows a surface.
class CSurfaceViewer final : public TFunctionViewer<ISurfaceViewer, Objects::IConstCaptureSurface> {
public:
    explicit CSurfaceViewer(Objects::IConstCaptureSurface& source) : TFunctionViewer(source) {}

    const CParamViewerConfig& GetXConfig() const override { return Axis<0>(); }
    CParamViewerConfig& GetXConfig() override { return Axis<0>(); }
    const CParamViewerConfig& GetYConfig() const override { return Axis<1>(); }
    CParamViewerConfig& GetYConfig() override { return Axis<1>(); }
    const CParamViewerConfig& GetZConfig() const override { return Axis<2>(); }
    CParamViewerConfig& GetZConfig() override { return Axis<2>(); }

    double GetValue(bool clamp, double xPosition, double yPosition) const override;
};

} // namespace Vorin::DataModel::Controls
