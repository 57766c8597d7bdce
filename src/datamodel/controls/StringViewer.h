#pragma once

#include "core/Capture.h"
#include "core/Connect.h"
#include "datamodel/objects/CaptureObject.h"

namespace Vorin::DataModel::Controls {

/// What the viewer and the control of a string have in common: the string object as it is, under
/// one address that stays when the object is another one. [gui]
///
/// The object outlives the viewer, or its connection to it.
class CBaseStringViewer : public virtual Objects::IConstCaptureString {
public:
    ~CBaseStringViewer() override;

    CBaseStringViewer(const CBaseStringViewer&) = delete;
    CBaseStringViewer& operator=(const CBaseStringViewer&) = delete;

    Core::IEventProvider& GetValueChangedEvents() override { return valueEvents; }
    const char* GetValue() const override { return object->GetValue(); }
    const Objects::IConstStringInfo& GetInfo() const override { return object->GetInfo(); }
    Core::IEventProvider& GetCaptureEvents() override { return capture.GetCaptureEvents(); }
    Core::IEventProvider& GetReleaseEvents() override { return capture.GetReleaseEvents(); }
    bool IsCaptured() const override { return capture.IsCaptured(); }

    Objects::IConstCaptureString& GetObject() const { return *object; }

protected:
    explicit CBaseStringViewer(Objects::IConstCaptureString& source);

    /// Shows another string; fires when it reads differently.
    void ConnectObject(Objects::IConstCaptureString& source);

    Core::CCapture& GetOwnCapture() { return capture; }

private:
    void ConnectEvents();
    void DisconnectEvents();

    Core::CCapture capture; // follows the object's
    Core::CEventProvider valueEvents;
    Objects::IConstCaptureString* object;
    Core::TCommand<Core::CEventProvider> valueChanged{&valueEvents, &Core::CEventProvider::Notify};
    Core::TCommand<Core::CCapture> sourceCaptured{&capture, &Core::CCapture::Capture};
    Core::TCommand<Core::CCapture> sourceReleased{&capture, &Core::CCapture::Release};
};

/// Shows a string.
class CStringViewer : public CBaseStringViewer,
                      public virtual Core::TIConnect<Objects::IConstCaptureString> {
public:
    explicit CStringViewer(Objects::IConstCaptureString& source) : CBaseStringViewer(source) {}

    void Connect(Objects::IConstCaptureString& source) override { ConnectObject(source); }
};

} // namespace Vorin::DataModel::Controls
