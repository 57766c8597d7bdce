#pragma once

#include "audio/dsp/Filter.h"
#include "containers/CharString.h"
#include "containers/DynamicCollection.h"

#include <cstring>

namespace Vorin::Audio::DSP {

/// A mono filter's list of outputs as a stereo one: the elements of a range appear twice, the whole
/// range first with " (L)" behind each name, then again with " (R)"; those outside appear once.
template <class CInfo, class IConstInfo>
class TMonoToStereoInfo : public CoreUtilities::TDynamicCollection<CInfo, IConstInfo> {
public:
    using IMonoInfos = Containers::IConstVector<IConstInfo>;

    /// `lastDoubled` -1 stands for the last element.
    explicit TMonoToStereoInfo(const IMonoInfos& mono, int firstDoubled = 0, int lastDoubled = -1) {
        const int count = mono.GetCount();
        const int last = lastDoubled < 0 ? count - 1 : lastDoubled;
        AddRange(mono, 0, firstDoubled, "");
        AddRange(mono, firstDoubled, last + 1, " (L)");
        AddRange(mono, firstDoubled, last + 1, " (R)");
        AddRange(mono, last + 1, count, "");
    }

private:
    void AddRange(const IMonoInfos& mono, int from, int end, const char* suffix) {
        for (int i = from; i < end; ++i) {
            CInfo info;
            info.CopyFrom(mono.Get(i));
            Containers::CCharString name(info.GetName());
            name.Append(suffix);
            info.SetName(name.Get());
            this->Add(info);
        }
    }
};

/// A stereo list of outputs under other names for the two channels: "(L)" in a name becomes the
/// first text, "(R)" the second.
template <class CInfo, class IConstInfo>
class TStereoToMidSideInfo : public CoreUtilities::TDynamicCollection<CInfo, IConstInfo> {
public:
    TStereoToMidSideInfo(const Containers::IConstVector<IConstInfo>& stereo, const char* first,
                         const char* second) {
        for (int i = 0; i < stereo.GetCount(); ++i) {
            CInfo info;
            info.CopyFrom(stereo.Get(i));
            const auto left = Replaced(info.GetName(), "(L)", first);
            info.SetName(Replaced(left.Get(), "(R)", second).Get());
            this->Add(info);
        }
    }

private:
    static Containers::CCharString Replaced(const char* text, const char* what, const char* with) {
        Containers::CCharString result;
        while (const char* found = std::strstr(text, what)) {
            result.Append(text, static_cast<int>(found - text));
            result.Append(with);
            text = found + std::strlen(what);
        }
        result.Append(text);
        return result;
    }
};

/// The six groups of a filter's output infos, each as an instance of an adapter such as the two
/// above.
template <template <class, class> class TAdapter>
struct TOutputInfos {
    /// `arguments` go to each adapter behind the list that it adapts.
    template <class... Arguments>
    explicit TOutputInfos(const IFilter& filter, Arguments... arguments)
        : params(filter.GetOutputParamInfos(), arguments...),
          privateParams(filter.GetPrivateOutputParamInfos(), arguments...),
          strings(filter.GetOutputStringInfos(), arguments...),
          curves(filter.GetOutputCurveInfos(), arguments...),
          surfaces(filter.GetOutputSurfaceInfos(), arguments...),
          properties(filter.GetOutputPropertyInfos(), arguments...) {}

    TAdapter<DataModel::Objects::CParamInfo, DataModel::Objects::IConstParamInfo> params;
    TAdapter<DataModel::Objects::CParamInfo, DataModel::Objects::IConstParamInfo> privateParams;
    TAdapter<DataModel::Objects::CStringInfo, DataModel::Objects::IConstStringInfo> strings;
    TAdapter<DataModel::Objects::CCurveInfo, DataModel::Objects::IConstCurveInfo> curves;
    TAdapter<DataModel::Objects::CSurfaceInfo, DataModel::Objects::IConstSurfaceInfo> surfaces;
    TAdapter<DataModel::Objects::CCustomPropertyInfo, DataModel::Objects::IConstCustomPropertyInfo>
        properties;
};

} // namespace Vorin::Audio::DSP
