#include "audio/plugin/BlockProcessor.h"

namespace Vorin::Audio::Plugin {

void CBlockProcessor::Process(const CBlock& block) {
    DSP::CFilterBypassManager& bypassManager = internals.GetBypassManager();
    bypassManager.SetBypass(block.bypass);
    const DSP::IConstInputRamp* ramp = internals.PrepareBlock();
    const DSP::CProcessRecord record{&block.inputs, &block.outputs, block.frames, ramp, nullptr};
    if (block.silent && block.inputs.GetCount() > 0) {
        bypassManager.ProcessSilence(record);
    } else {
        bypassManager.Process(record);
    }
    internals.NotifyProcessed(block.frames);
    if (ramp) {
        internals.FinishRamp();
    }
    SyncOutputs();
}

void CBlockProcessor::SyncOutputs() {
    DSP::IOutputDataSync& sync = internals.GetOutputDataSync();
    if (sync.IsRefreshNeeded()) {
        sync.Reset();
        internals.GetFilter().UpdateOutputs();
        outputTransferPending = true;
    }
    if (outputTransferPending) {
        outputTransferPending = !internals.TransferOutputs(false);
    }
}

} // namespace Vorin::Audio::Plugin
