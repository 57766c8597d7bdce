#include "audio/plugin/InputObjects.h"

#include "audio/dsp/SampleRateDependent.h"

#include <utility>

namespace Vorin::Audio::Plugin {

using namespace DataModel::Objects;

namespace {

/// The same object for another rate; none when it depends on no rate, or has that one already.
template <class V>
Core::RefCountItemPtr<const V&> ForRate(const V& value, double sampleRate) {
    const auto* query = dynamic_cast<const DSP::ISampleRateDependent*>(&value);
    if (!query || !(query->GetSampleRate() < sampleRate || query->GetSampleRate() > sampleRate)) {
        return {};
    }
    std::unique_ptr<V> clone(value.Clone());
    if (auto* adapted = dynamic_cast<DSP::ISampleRateDependent*>(clone.get())) {
        adapted->SetSampleRate(sampleRate);
    }
    // The analyzer does not follow a reference count through its interface.
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks)
    return TInputItem<const V&>::Own(std::move(clone));
}

template <class Input>
void AdaptGroup(TMTInputs<Input>& group, double sampleRate) {
    for (int i = 0; i < group.GetCount(); ++i) {
        bool isDone = false;
        while (!isDone) {
            const auto current = group.Get(i).GetItem();
            const auto adapted = ForRate(current->GetValue(), sampleRate);
            // Another thread may set another value meanwhile, which is then the one to adapt.
            isDone = !adapted || group.Get(i).StoreInsteadOf(current, adapted);
        }
    }
}

} // namespace

template <class F, class... Values>
void CInputObjects::ForEachGroup(F visit, Values&... values) {
    visit(strings, values.strings.items...);
    visit(curves, values.curves.items...);
    visit(surfaces, values.surfaces.items...);
    visit(properties, values.properties.items...);
}

template <class F, class... Values>
void CInputObjects::ForEachGroup(F visit, Values&... values) const {
    visit(strings, values.strings.items...);
    visit(curves, values.curves.items...);
    visit(surfaces, values.surfaces.items...);
    visit(properties, values.properties.items...);
}

CInputObjects::CInputObjects(const DSP::IFilter& filter)
    : strings(filter.GetInputStringInfos()), curves(filter.GetInputCurveInfos()),
      surfaces(filter.GetInputSurfaceInfos()), properties(filter.GetInputPropertyInfos()),
      isEmpty(strings.GetCount() + curves.GetCount() + surfaces.GetCount() +
                  properties.GetCount() ==
              0) {
    ForEachGroup(
        [](auto& group, auto& items) { items.resize(static_cast<std::size_t>(group.GetCount())); },
        taken);
}

CSharedInputs CInputObjects::GetItems() const {
    CSharedInputs values;
    ForEachGroup(
        [](const auto& group, auto& items) {
            for (int i = 0; i < group.GetCount(); ++i) {
                items.push_back(group.Get(i).GetItem());
            }
        },
        values);
    return values;
}

void CInputObjects::Store(CSharedInputs& values) {
    ForEachGroup(
        [](auto& group, auto& items) {
            items.resize(static_cast<std::size_t>(group.GetCount()));
            for (std::size_t i = 0; i < items.size(); ++i) {
                if (!group.Get(static_cast<int>(i)).Store(items[i])) {
                    items[i] = {};
                }
            }
        },
        values);
    AdaptToSampleRate();
}

void CInputObjects::NotifyChanged(const CSharedInputs& values) {
    ForEachGroup(
        [](auto& group, const auto& items) {
            for (std::size_t i = 0; i < items.size(); ++i) {
                if (items[i]) {
                    group.Get(static_cast<int>(i)).NotifyChanged();
                }
            }
        },
        values);
}

void CInputObjects::SetDefaults() {
    ForEach([](auto& input) { input.SetDefault(); });
}

void CInputObjects::SetSampleRate(double newSampleRate) {
    sampleRate.store(newSampleRate);
    AdaptToSampleRate();
}

void CInputObjects::AdaptToSampleRate() {
    const double used = sampleRate.load();
    if (used > 0.0) {
        AdaptGroup(curves, used);
        AdaptGroup(surfaces, used);
        AdaptGroup(properties, used);
    }
}

void CInputObjects::TellKept() {
    ForEach([](auto& input) { input.TellKept(); });
}

bool CInputObjects::Take() {
    bool hasAll = true;
    ForEachGroup(
        [this, &hasAll](auto& group, auto& items) {
            for (std::size_t i = 0; i < items.size(); ++i) {
                const auto result = group.Get(static_cast<int>(i)).Take(items[i]);
                isTaken |= result == group.Get(static_cast<int>(i)).kTaken;
                hasAll &= result != group.Get(static_cast<int>(i)).kNotNow;
            }
        },
        taken);
    return hasAll;
}

bool CInputObjects::Commit(CSharedInputs& filterValues) {
    if (!std::exchange(isTaken, false)) {
        return false;
    }
    bool changed = false;
    ForEachGroup(
        [&changed](auto& group, auto& items, auto& filterItems) {
            for (std::size_t i = 0; i < items.size(); ++i) {
                if (items[i] && items[i].Get() != filterItems[i].Get()) {
                    filterItems[i] = std::move(items[i]);
                    group.Get(static_cast<int>(i)).NotifyFilterChange();
                    changed = true;
                }
                items[i] = {};
            }
        },
        taken, filterValues);
    return changed;
}

void CInputObjects::GiveBack() {
    if (!std::exchange(isTaken, false)) {
        return;
    }
    ForEachGroup(
        [](auto& group, auto& items) {
            for (std::size_t i = 0; i < items.size(); ++i) {
                if (items[i]) {
                    group.Get(static_cast<int>(i)).GiveBack();
                    items[i] = {};
                }
            }
        },
        taken);
}

} // namespace Vorin::Audio::Plugin
