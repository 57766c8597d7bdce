#include "audio/plugin/BlockProcessor.h"

namespace Vorin::Audio::Plugin {

void CBlockProcessor::Process(const CBlock& block) {
    DSP::CFilterBypassManager& bypassManager = host.GetBypassManager();
    bypassManager.SetBypass(block.bypass);
    const DSP::IConstInputRamp* ramp = host.PrepareBlock();
    const DSP::CProcessRecord record{&block.inputs, &block.outputs, block.frames, ramp, nullptr};
    if (block.silent && block.inputs.GetCount() > 0) {
        bypassManager.ProcessSilence(record);
    } else {
        bypassManager.Process(record);
    }
    host.NotifyProcessed(block.frames);
    if (ramp) {
        host.FinishRamp();
    }
    SyncOutputs();
}

void CBlockProcessor::SyncOutputs() {
    DSP::IOutputDataSync& sync = host.GetOutputDataSync();
    if (sync.IsRefreshNeeded()) {
        sync.Reset();
        host.GetFilter().UpdateOutputs();
        if (listener) {
            listener->OnOutputsUpdated();
        }
        outputTransferPending = true;
    }
    if (outputTransferPending) {
        outputTransferPending = !host.TransferOutputs(false);
    }
}

} // namespace Vorin::Audio::Plugin
