#pragma once

#include "core/Capture.h"
#include "core/Connect.h"
#include "core/Update.h"
#include "datamodel/controls/ParamViewerConfig.h"
#include "datamodel/objects/CaptureObject.h"

namespace Vorin::DataModel::Controls {

/// A parameter as a position, and how the position comes about. As a capture it tells of the
/// viewer's own gesture. [gui]
class IParamViewer : public virtual Core::IConstCapture, public virtual IParamViewerConfig {
public:
    /// Fired when the position moved, be it by the value, the info or the config, and only then.
    virtual Core::IEventProvider& GetPositionEvents() = 0;

    /// What is shown.
    virtual Objects::IConstCaptureParam& GetObject() const = 0;

    /// Where the value stood at the last update, 0 to 1.
    virtual double GetPosition() const = 0;

    /// Whether anybody holds the object.
    virtual Core::IConstCapture& GetSourceCapture() = 0;

    /// Reads the value anew.
    virtual void Refresh() = 0;
};

/// What the viewer and the control of a parameter have in common.
///
/// The object outlives the viewer, or its connection to it.
class CBaseParamViewer : public virtual IParamViewer,
                         public virtual Core::IUpdate,
                         public CParamViewerConfig {
public:
    ~CBaseParamViewer() override;

    Core::IEventProvider& GetPositionEvents() override { return positionEvents; }
    Objects::IConstCaptureParam& GetObject() const override { return *object; }
    double GetPosition() const override { return position; }
    Core::IConstCapture& GetSourceCapture() override { return sourceCapture; }
    void Refresh() override { Update(); }

    Core::IEventProvider& GetCaptureEvents() override { return capture.GetCaptureEvents(); }
    Core::IEventProvider& GetReleaseEvents() override { return capture.GetReleaseEvents(); }
    bool IsCaptured() const override { return capture.IsCaptured(); }

    void Update() override;

protected:
    explicit CBaseParamViewer(Objects::IConstCaptureParam& source);

    /// Shows another object: takes over its info, which fires config and info events, then its
    /// value. The position moves once at most.
    void ConnectObject(Objects::IConstCaptureParam& source);

    Core::CCapture& GetOwnCapture() { return capture; }
    Core::CCapture& GetSourceMirror() { return sourceCapture; }

private:
    void ConnectEvents();
    void DisconnectEvents();
    void MirrorCapture();

    double position = 0.0;
    Core::CCapture capture;       // the viewer's own
    Core::CCapture sourceCapture; // follows the object's
    Objects::IConstCaptureParam* object;
    Core::CEventProvider positionEvents;
    Core::TCommand<CBaseParamViewer> valueChanged{this, &CBaseParamViewer::Update};
    Core::TCommand<Core::CCapture> sourceCaptured{&sourceCapture, &Core::CCapture::Capture};
    Core::TCommand<Core::CCapture> sourceReleased{&sourceCapture, &Core::CCapture::Release};
    Core::TCommand<CBaseParamViewer> configChanged{this, &CBaseParamViewer::Update};
};

/// Shows a parameter.
class CParamViewer : public CBaseParamViewer,
                     public virtual Core::TIConnect<Objects::IConstCaptureParam> {
public:
    explicit CParamViewer(Objects::IConstCaptureParam& source) : CBaseParamViewer(source) {}

    void Connect(Objects::IConstCaptureParam& source) override { ConnectObject(source); }
};

} // namespace Vorin::DataModel::Controls
