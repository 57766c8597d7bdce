#include "audio/plugin/midi/MIDICCOutput.h"

#include "audio/plugin/midi/MIDICCMapping.h"

#include <algorithm>
#include <cstddef>

namespace Vorin::Audio::Plugin {

namespace {

constexpr double kLargestCC = 127.0;

} // namespace

CMIDICCOutput::CMIDICCOutput(const IConstInfos& outputInfos,
                             const COutputMIDICCSettings& outputSettings)
    : infos(outputInfos), settings(outputSettings),
      lastOutputCC(
          static_cast<std::size_t>(std::min(outputInfos.GetCount(), outputSettings.GetCount()))) {
    Reset();
}

bool CMIDICCOutput::Make(int index, double value, MIDI::IMIDIEvent& event) {
    if (index < 0 || index >= static_cast<int>(lastOutputCC.size())) {
        return false;
    }
    const IMIDICCSetting& setting = settings.Get(index);
    if (!setting.IsMIDIEnabled() || event.GetSize() < MIDI::CMIDIEvent::kLargestSize) {
        return false;
    }
    const double way = FromValue(infos.Get(index), setting, value) * kLargestCC;
    const int cc = static_cast<int>(0.5 + std::min(way, kLargestCC));
    std::atomic<int>& last = lastOutputCC[static_cast<std::size_t>(index)];
    if (last.exchange(cc, std::memory_order_relaxed) == cc) {
        return false;
    }
    event.SetType(MIDI::kMIDIController);
    event.SetChannel(std::max(setting.GetChannel() - 1, 0));
    event.SetData1(setting.GetNumber());
    event.SetData2(cc);
    event.SetDeltaFrames(0);
    return true;
}

void CMIDICCOutput::Reset() {
    for (std::atomic<int>& last : lastOutputCC) {
        last.store(kNone, std::memory_order_relaxed);
    }
}

} // namespace Vorin::Audio::Plugin
