#include "datamodel/links/MultipleCaptureCurveLink.h"

#include "math/FunctionsOperation.h"

#include <cstring>

namespace Vorin::DataModel::Objects {

namespace {

using Library = Math::FunctionsLibrary;
using Functions = Math::TNFunctionsAggregate<Math::IFunction>;

// As deep as folds are nested, which the limit bounds too.
int CountParts(const Math::IFunction& function) {
    int parts = 1;
    if (const auto* functions = dynamic_cast<const Functions*>(&function)) {
        for (int i = 0; i < functions->GetCount(); ++i) {
            const Math::IFunction* part = functions->GetFunction(i);
            parts += part ? CountParts(*part) : 0;
        }
    }
    return parts;
}

} // namespace

// Null when the fold gets too large.
template <class F>
std::unique_ptr<Math::IFunction>
CMultipleCaptureCurveLink::Fold(const CMultipleCaptureCurveLink& link) {
    auto folded = std::make_unique<F>();
    int parts = 1;
    for (int i = 0; i < link.GetSourcesCount(); ++i) {
        if (link.IsTarget(i)) {
            continue;
        }
        const Math::IFunction& function = link.GetSource(i).GetValue();
        parts += CountParts(function);
        if (parts > kMaxParts) {
            return nullptr;
        }
        const int slot = folded->GetCount();
        folded->SetCount(slot + 1);
        folded->SetFunction(slot, function.Clone(), Core::kOwn);
    }
    return folded;
}

void CMultipleCaptureCurveLink::SetMuxFunction(const char* word) {
    struct CWord {
        const char* word;
        Maker maker;
    };
    static constexpr CWord kWords[] = {
        {"+", &Fold<Math::TFunctionsOperation<&Library::Sum>>},
        {"-", &Fold<Math::TFunctionsOperation<&Library::Difference>>},
        {"*", &Fold<Math::TFunctionsOperation<&Library::Product>>},
        {"/", &Fold<Math::TFunctionsOperation<&Library::Division>>},
    };
    maker = nullptr;
    for (const CWord& entry : kWords) {
        if (word && std::strcmp(word, entry.word) == 0) {
            maker = entry.maker;
        }
    }
    PassNow();
}

void CMultipleCaptureCurveLink::OnSourceChanged() {
    if (!maker) {
        Write(GetSource(GetLastChanged()).GetValue());
        return;
    }
    // What a fold brings about at its own sources is not folded in again.
    if (IsUpdating()) {
        return;
    }
    if (const std::unique_ptr<Math::IFunction> folded = maker(*this)) {
        Write(*folded);
    }
}

} // namespace Vorin::DataModel::Objects
