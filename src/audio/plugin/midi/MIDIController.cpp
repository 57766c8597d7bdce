#include "audio/plugin/midi/MIDIController.h"

namespace Vorin::Audio::Plugin {

CMIDIController::CMIDIController(const IConstInfos& inputInfos,
                                 IMIDICCSettings& globalInputSettings,
                                 const IConstInfos& outputInfos,
                                 IMIDICCSettings& globalOutputSettings)
    : inputCCSettings(inputInfos), outputCCSettings(outputInfos),
      inputFollower(inputCCSettings, globalInputSettings),
      outputFollower(outputCCSettings, globalOutputSettings), output(outputInfos, outputCCSettings),
      learner(lastMessage) {}

void CMIDIController::NotifyIfKept() {
    inputFollower.NotifyIfKept();
    outputFollower.NotifyIfKept();
    inputCCSettings.NotifyIfKept();
    outputCCSettings.NotifyIfKept();
    lastMessage.NotifyIfKept();
}

} // namespace Vorin::Audio::Plugin
