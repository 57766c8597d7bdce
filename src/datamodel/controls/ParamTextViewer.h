#pragma once

#include "containers/CharString.h"
#include "core/Connect.h"
#include "core/Update.h"
#include "datamodel/ParamDataToText.h"
#include "datamodel/objects/CaptureObject.h"

namespace Vorin::DataModel::Controls {

/// A parameter as text. The text lives until it changes; it is never null. [gui]
class IParamTextViewer : public virtual TIConstCaptureValue<const char*> {};

/// What the text viewer and the text control of a parameter have in common. Captured is what the
/// parameter is.
///
/// The object outlives the viewer, or its connection to it.
class CBaseParamTextViewer : public virtual IParamTextViewer, public virtual Core::IUpdate {
public:
    ~CBaseParamTextViewer() override;

    CBaseParamTextViewer(const CBaseParamTextViewer&) = delete;
    CBaseParamTextViewer& operator=(const CBaseParamTextViewer&) = delete;

    Core::IEventProvider& GetValueChangedEvents() override { return valueEvents; }
    const char* GetValue() const override { return text.Get(); }
    Core::IEventProvider& GetCaptureEvents() override { return captureEvents; }
    Core::IEventProvider& GetReleaseEvents() override { return releaseEvents; }
    bool IsCaptured() const override { return object->IsCaptured(); }

    /// Writes the value anew; fires when that gives another text.
    void Update() override;

    Objects::IConstCaptureParam& GetObject() const { return *object; }

    /// How the text is made. A change of it, as one of the value or the info, is an update.
    Objects::CParamDataToText& GetDataToText() { return dataToText; }

protected:
    explicit CBaseParamTextViewer(Objects::IConstCaptureParam& source);

    /// Shows another parameter, with one event at most. One with whole values gets the format
    /// "%.0f"; for any other the format stays as it is, since it may have been chosen.
    void ConnectObject(Objects::IConstCaptureParam& source);

    /// Puts a text in place of the written one, up to the next update. Fires nothing.
    void SetText(const char* newText) { text = newText; }
    void NotifyChanged() { valueEvents.Notify(); }

private:
    void ConnectEvents();
    void DisconnectEvents();
    void TakeObject();
    void OnInfoChanged();

    Objects::CParamDataToText dataToText{"%.1f", false, "{text_value} {unit}"};
    Containers::CCharString text;
    Objects::IConstCaptureParam* object;
    Core::CEventProvider valueEvents;
    Core::CEventProvider captureEvents;
    Core::CEventProvider releaseEvents;
    Core::TCommand<CBaseParamTextViewer> update{this, &CBaseParamTextViewer::Update};
    Core::TCommand<Core::CEventProvider> sourceCaptured{&captureEvents,
                                                        &Core::CEventProvider::Notify};
    Core::TCommand<Core::CEventProvider> sourceReleased{&releaseEvents,
                                                        &Core::CEventProvider::Notify};
    Core::TCommand<CBaseParamTextViewer> infoChanged{this, &CBaseParamTextViewer::OnInfoChanged};
};

/// Shows a parameter as text.
class CParamTextViewer : public CBaseParamTextViewer,
                         public virtual Core::TIConnect<Objects::IConstCaptureParam> {
public:
    explicit CParamTextViewer(Objects::IConstCaptureParam& source) : CBaseParamTextViewer(source) {}

    void Connect(Objects::IConstCaptureParam& source) override { ConnectObject(source); }
};

} // namespace Vorin::DataModel::Controls
