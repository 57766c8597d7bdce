#pragma once

#include "core/Command.h"
#include "datamodel/links/CaptureForward.h"
#include "datamodel/links/LinkSwitch.h"
#include "datamodel/objects/ChangePass.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace Vorin::DataModel {

/// Listens to many sources and writes to one target; how is up to the derived class.
///
/// The target is held from when the first source is held to when the last one is released. A source
/// that is held only because the target is does not count, or links in a ring would hold each other
/// for ever. The rules of CLinkSwitch hold; without a source the link does nothing.
template <class S, class T>
class TMultipleCaptureObjectLink : public CLinkSwitch {
public:
    TMultipleCaptureObjectLink() = default;
    ~TMultipleCaptureObjectLink() override { Switch(false); }

    int GetSourcesCount() const { return static_cast<int>(items.size()); }
    T* GetTarget() const { return target; }

    /// Each starts the link anew if it is enabled. A null source is not added; a null target is
    /// none.
    void AddSource(S* source) {
        if (source) {
            ChangeSwitchedOff([this, source] {
                LetGoOfSources();
                items.push_back(std::make_unique<CItem>(*this, *source, GetSourcesCount()));
                lastChanged = GetSourcesCount() - 1;
            });
        }
    }

    /// Not to be called from what a change of a source sets off.
    void RemoveSources() {
        ChangeSwitchedOff([this] {
            LetGoOfSources();
            items.clear();
            lastChanged = -1;
        });
    }

    void SetTarget(T* newTarget) {
        ChangeSwitchedOff([this, newTarget] { target = newTarget; });
    }

    void Disconnect() override {
        RemoveSources();
        SetTarget(nullptr);
    }

protected:
    /// A source, the one at GetLastChanged(), or none in particular, has a value to pass on. There
    /// is a target, and at least one source. Not called while the link rests.
    virtual void OnSourceChanged() = 0;

    /// The link starts: takes note of the sources as they stand, without writing.
    virtual void Resync() {}

    void OnEnabled() override {
        if (!items.empty() && target && !updating) {
            OnSourceChanged();
        }
    }

    void TurnOn() override {
        for (const auto& item : items) {
            item->Connect();
        }
        for (const auto& item : items) {
            item->TakeCaptured();
        }
        ForwardCapture();
        if (IsEnabled() && !items.empty()) {
            Resync();
        }
        PassNow();
    }

    void TurnOff() override {
        ForwardRelease();
        if (!IsEnabled()) {
            LetGoOfSources();
        }
    }

    template <class V>
    void Write(V&& value) {
        const CChangePass pass;
        if (target && pass.IsAllowed()) {
            const CScopedFlag writing(updating);
            target->SetValue(value);
        }
    }

    /// 0 <= index < GetSourcesCount().
    S& GetSource(int index) const { return items[static_cast<std::size_t>(index)]->source; }

    /// The source that told of a change last, at first the last one of the list; -1 without one.
    int GetLastChanged() const { return lastChanged; }

    bool IsTarget(int index) const { return IdentityOf(&GetSource(index)) == IdentityOf(target); }
    bool IsUpdating() const { return updating; }

    T* target = nullptr; // not owned

private:
    class CItem {
    public:
        CItem(TMultipleCaptureObjectLink& owner, S& listenedTo, int position)
            : source(listenedTo), link(owner), index(position) {}

        void Connect() {
            if (!connected) {
                connected = true;
                source.GetValueChangedEvents().Connect(changedCommand);
                source.GetCaptureEvents().Connect(capturedCommand);
                source.GetReleaseEvents().Connect(releasedCommand);
            }
        }

        void LetGo() {
            captured = false;
            if (connected) {
                connected = false;
                source.GetValueChangedEvents().Disconnect(changedCommand);
                source.GetCaptureEvents().Disconnect(capturedCommand);
                source.GetReleaseEvents().Disconnect(releasedCommand);
            }
        }

        void TakeCaptured() { captured = source.IsCaptured() && !link.IsTarget(index); }

        S& source; // not owned
        bool captured = false;
        CCaptureForward forward; // open while the target is held because of this source

    private:
        void OnChanged() { link.HandleChanged(index); }
        void OnCaptured() {
            TakeCaptured();
            link.ForwardCapture();
        }
        void OnReleased() {
            captured = false;
            forward.Close();
            link.ReleaseWithLast();
        }

        TMultipleCaptureObjectLink& link;
        int index;
        bool connected = false;
        Core::TCommand<CItem> changedCommand{this, &CItem::OnChanged};
        Core::TCommand<CItem> capturedCommand{this, &CItem::OnCaptured};
        Core::TCommand<CItem> releasedCommand{this, &CItem::OnReleased};
    };

    void LetGoOfSources() {
        for (const auto& item : items) {
            item->LetGo();
        }
    }

    void HandleChanged(int index) {
        lastChanged = index;
        if (IsActive() && target) {
            OnSourceChanged();
        }
    }

    void ForwardCapture() {
        bool any = false;
        const CChangePass pass;
        if (!IsActive() || !target || !pass.IsAllowed()) {
            return;
        }
        for (const auto& item : items) {
            if (item->captured) {
                item->forward.Open(item->source, *target);
                any = true;
            }
        }
        if (any && !sourceCaptureForwarded) {
            sourceCaptureForwarded = true;
            target->Capture();
        }
    }

    void ReleaseWithLast() {
        for (const auto& item : items) {
            if (item->captured && target && !CCaptureForward::LeadsFrom(*target, item->source)) {
                return;
            }
        }
        ForwardRelease();
    }

    void ForwardRelease() {
        for (const auto& item : items) {
            item->forward.Close();
        }
        if (sourceCaptureForwarded) {
            sourceCaptureForwarded = false;
            if (target) {
                target->Release();
            }
        }
    }

    std::vector<std::unique_ptr<CItem>> items;
    int lastChanged = -1;
    bool updating = false; // the target is being written
    bool sourceCaptureForwarded = false;
};

} // namespace Vorin::DataModel
