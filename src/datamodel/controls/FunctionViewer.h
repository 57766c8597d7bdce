#pragma once

#include "core/Capture.h"
#include "core/Connect.h"
#include "core/Update.h"
#include "datamodel/controls/ParamViewerConfig.h"
#include "datamodel/objects/CaptureObject.h"

#include <array>
#include <cstddef>
#include <tuple>
#include <utility>

namespace Vorin::DataModel::Controls {

/// A curve or surface as positions: what its viewers have in common. Captured is what the object
/// is. [gui]
template <class Object>
class TIFunctionViewer : public virtual Core::IConstCapture {
public:
    /// What is shown.
    virtual Object& GetObject() const = 0;

    /// As many positions on each axis as its parameter has values.
    virtual void ResetPositionsCount() = 0;

    /// Fired when it looks different: another value, object or config.
    virtual Core::IEventProvider& GetChangedEvents() = 0;

    /// Fired after any change of the config of an axis, ahead of the changed event.
    virtual Core::IEventProvider& GetConfigEvents() = 0;

    /// Fired when the zoom of an axis changes, ahead of the config event.
    virtual Core::IEventProvider& GetZoomEvents() = 0;
};

inline std::array<const Objects::IConstParamInfo*, 2>
GetAxes(const Objects::IConstCurveInfo& info) {
    return {&info.GetXInfo(), &info.GetYInfo()};
}

inline std::array<const Objects::IConstParamInfo*, 3>
GetAxes(const Objects::IConstSurfaceInfo& info) {
    return {&info.GetXInfo(), &info.GetYInfo(), &info.GetZInfo()};
}

/// The common part of the viewers: I is the viewer's interface, Object what it shows. It has a
/// config for each axis.
///
/// The object outlives the viewer, or its connection to it.
template <class I, class Object>
class TFunctionViewer : public virtual I,
                        public virtual Core::IUpdate,
                        public virtual Core::TIConnect<Object> {
public:
    ~TFunctionViewer() override {
        for (CParamViewerConfig& config : configs) {
            config.GetConfigEvents().Disconnect(axisChanged);
            config.GetZoomEvents().Disconnect(axisZoomed);
        }
        DisconnectEvents();
    }

    TFunctionViewer(const TFunctionViewer&) = delete;
    TFunctionViewer& operator=(const TFunctionViewer&) = delete;

    Core::IEventProvider& GetCaptureEvents() override { return captureEvents; }
    Core::IEventProvider& GetReleaseEvents() override { return releaseEvents; }
    bool IsCaptured() const override { return object->IsCaptured(); }

    Object& GetObject() const override { return *object; }
    void ResetPositionsCount() override {
        for (CParamViewerConfig& config : configs) {
            config.ResetPositionsCount();
        }
    }
    Core::IEventProvider& GetChangedEvents() override { return changedEvents; }
    Core::IEventProvider& GetConfigEvents() override { return configEvents; }
    Core::IEventProvider& GetZoomEvents() override { return zoomEvents; }

    /// Gives each config the info of its axis, with the events of that, then fires the changed
    /// event.
    void Connect(Object& source) override {
        DisconnectEvents();
        object = &source;
        ConnectEvents();
        const auto axes = GetAxes(object->GetInfo());
        for (std::size_t i = 0; i < configs.size(); ++i) {
            configs[i].SetInfo(*axes[i]);
        }
        Update();
    }

    /// Fires the changed event: the function is read at each call anyway.
    void Update() override { changedEvents.Notify(); }

protected:
    explicit TFunctionViewer(Object& source)
        : TFunctionViewer(source, GetAxes(source.GetInfo()),
                          std::make_index_sequence<kAxesCount>()) {}

    template <std::size_t Index>
    CParamViewerConfig& Axis() {
        return std::get<Index>(configs);
    }
    template <std::size_t Index>
    const CParamViewerConfig& Axis() const {
        return std::get<Index>(configs);
    }

    void NotifyConfig() {
        configEvents.Notify();
        changedEvents.Notify();
    }

private:
    using AxisInfos = decltype(GetAxes(std::declval<Object&>().GetInfo()));
    static constexpr std::size_t kAxesCount = std::tuple_size_v<AxisInfos>;

    template <std::size_t... Indexes>
    TFunctionViewer(Object& source, const AxisInfos& axes, std::index_sequence<Indexes...>)
        : object(&source), configs{{CParamViewerConfig(*axes[Indexes])...}} {
        for (CParamViewerConfig& config : configs) {
            config.GetConfigEvents().Connect(axisChanged);
            config.GetZoomEvents().Connect(axisZoomed);
        }
        ConnectEvents();
    }

    void ConnectEvents() {
        object->GetValueChangedEvents().Connect(valueChanged);
        object->GetCaptureEvents().Connect(sourceCaptured);
        object->GetReleaseEvents().Connect(sourceReleased);
    }

    void DisconnectEvents() {
        object->GetValueChangedEvents().Disconnect(valueChanged);
        object->GetCaptureEvents().Disconnect(sourceCaptured);
        object->GetReleaseEvents().Disconnect(sourceReleased);
    }

    using Self = TFunctionViewer<I, Object>;

    Object* object;
    std::array<CParamViewerConfig, kAxesCount> configs;
    Core::CEventProvider changedEvents;
    Core::CEventProvider captureEvents;
    Core::CEventProvider releaseEvents;
    Core::CEventProvider configEvents;
    Core::CEventProvider zoomEvents;
    Core::TCommand<Self> valueChanged{this, &Self::Update};
    Core::TCommand<Core::CEventProvider> sourceCaptured{&captureEvents,
                                                        &Core::CEventProvider::Notify};
    Core::TCommand<Core::CEventProvider> sourceReleased{&releaseEvents,
                                                        &Core::CEventProvider::Notify};
    Core::TCommand<Self> axisChanged{this, &Self::NotifyConfig};
    Core::TCommand<Core::CEventProvider> axisZoomed{&zoomEvents, &Core::CEventProvider::Notify};
};

} // namespace Vorin::DataModel::Controls
