#pragma once

#include "audio/dsp/Filter.h"
#include "audio/plugin/MTInput.h"
#include "audio/plugin/SharedValues.h"
#include "containers/Vector.h"

#include <atomic>
#include <memory>
#include <vector>

namespace Vorin::Audio::Plugin {

using CMTInputString = TMTInput<const char*, DataModel::Objects::IConstStringInfo>;
using CMTInputCurve = TMTInput<const Math::IFunction&, DataModel::Objects::IConstCurveInfo>;
using CMTInputSurface =
    TMTInput<const Math::IBinaryFunction&, DataModel::Objects::IConstSurfaceInfo>;
using CMTInputProperty = TMTInput<const DataModel::Objects::IDynamicPropertyValue&,
                                  DataModel::Objects::IConstCustomPropertyInfo>;

/// One group of inputs: an `Input` per info, of a count fixed at construction.
template <class Input>
class TMTInputs : public Containers::IVector<Input> {
public:
    template <class Infos>
    explicit TMTInputs(const Infos& infos) {
        for (int i = 0; i < infos.GetCount(); ++i) {
            inputs.push_back(std::make_unique<Input>(infos.Get(i)));
        }
    }

    int GetCount() const override { return static_cast<int>(inputs.size()); }
    const Input& Get(int index) const override { return *inputs[static_cast<std::size_t>(index)]; }
    Input& Get(int index) override { return *inputs[static_cast<std::size_t>(index)]; }

private:
    std::vector<std::unique_ptr<Input>> inputs;
};

using CMTInputStrings = TMTInputs<CMTInputString>;
using CMTInputCurves = TMTInputs<CMTInputCurve>;
using CMTInputSurfaces = TMTInputs<CMTInputSurface>;
using CMTInputProperties = TMTInputs<CMTInputProperty>;

/// The inputs of a filter that are no parameters, in their four groups, and how their values come
/// to the audio thread: all that are due are taken first, and then committed or given back.
class CInputObjects {
public:
    explicit CInputObjects(const DSP::IFilter& filter);
    CInputObjects(const CInputObjects&) = delete;
    CInputObjects& operator=(const CInputObjects&) = delete;

    /// True for a filter that has parameters alone. [any]
    bool IsEmpty() const { return isEmpty; }

    const CMTInputStrings& GetStrings() const { return strings; }
    const CMTInputCurves& GetCurves() const { return curves; }
    const CMTInputSurfaces& GetSurfaces() const { return surfaces; }
    const CMTInputProperties& GetProperties() const { return properties; }
    CMTInputStrings& GetStrings() { return strings; }
    CMTInputCurves& GetCurves() { return curves; }
    CMTInputSurfaces& GetSurfaces() { return surfaces; }
    CMTInputProperties& GetProperties() { return properties; }

    /// Calls `visit` with every input. [any]
    template <class F>
    void ForEach(F visit);

    /// References to all values as they are now. [any, not audio]
    CSharedInputs GetItems() const;
    /// Takes the values that are there and tells nobody; those that are no change, or are taken by
    /// nobody, are dropped from `values`. [any, not audio]
    void Store(CSharedInputs& values);
    /// Tells of the inputs that `values` has one for. [any, not audio]
    void NotifyChanged(const CSharedInputs& values);
    /// [any, not audio]
    void SetDefaults();
    /// Gives every object that answers to ISampleRateDependent this rate, in Hz, now and when it is
    /// stored. To everyone but the filter it is the same object still, so no change is told. [any,
    /// not audio]
    void SetSampleRate(double newSampleRate);
    /// [any, not audio]
    void TellKept();

    /// Takes what is due. False when another thread held a part of it. [audio]
    bool Take();
    /// Puts what was taken in the place of what the filter has; true when anything differs.
    /// [audio]
    bool Commit(CSharedInputs& filterValues);
    /// What was taken is due the next time. [audio]
    void GiveBack();

private:
    template <class F, class... Values>
    void ForEachGroup(F visit, Values&... values);
    template <class F, class... Values>
    void ForEachGroup(F visit, Values&... values) const;

    void AdaptToSampleRate();

    CMTInputStrings strings;
    CMTInputCurves curves;
    CMTInputSurfaces surfaces;
    CMTInputProperties properties;
    const bool isEmpty;
    // Sequentially consistent: whoever stores a value and whoever sets the rate cannot both miss
    // what the other one did.
    std::atomic<double> sampleRate{0.0};

    // The audio side.
    CSharedInputs taken;
    bool isTaken = false; // whether there is anything in it
};

template <class F>
void CInputObjects::ForEach(F visit) {
    const auto visitGroup = [&visit](auto& group) {
        for (int i = 0; i < group.GetCount(); ++i) {
            visit(group.Get(i));
        }
    };
    visitGroup(strings);
    visitGroup(curves);
    visitGroup(surfaces);
    visitGroup(properties);
}

} // namespace Vorin::Audio::Plugin
