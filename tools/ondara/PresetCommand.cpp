#include "Commands.h"

#include "Numbers.h"
#include "PresetFile.h"
#include "Printable.h"

#include <cstdio>

namespace Workbench {

using namespace Vorin;
using namespace Vorin::Audio::Plugin;
using namespace Vorin::DataModel::Objects;

namespace {

constexpr const char* kPresetHelp = R"(usage: ondara preset show FILE
       ondara preset check FILE...

Looks into presets, and into states that a host has kept.

  show    print name, version, parameters, and the MIDI settings that differ from the default
  check   say for each file whether the plug-in would load it
)";

std::string Number(double value) {
    std::string text;
    AppendNumber(text, value);
    return text;
}

void PrintParam(const IHostParam& param) {
    const IConstParamInfo& info = param.GetInfo();
    Containers::CCharString text;
    info.GetValueToText().ValueToText(param.GetValue(), text);
    const std::string unit = info.GetUnit();
    std::printf("  %-20s %s%s  (%s)\n", info.GetName(), Number(param.GetValue()).c_str(),
                unit.empty() ? "" : (" " + unit).c_str(), text.Get());
}

/// False when the setting is what a new one is.
bool PrintSetting(const char* name, const IMIDICCSetting& setting, const IMIDICCSetting& fresh) {
    if (setting.IsMIDIEnabled() == fresh.IsMIDIEnabled() && setting.GetType() == fresh.GetType() &&
        setting.GetChannel() == fresh.GetChannel() && setting.GetNumber() == fresh.GetNumber() &&
        setting.IsAutomationEnabled() == fresh.IsAutomationEnabled() &&
        setting.GetCurve() == fresh.GetCurve() && setting.GetMin() == fresh.GetMin() &&
        setting.GetMax() == fresh.GetMax()) {
        return false;
    }
    const std::string channel = setting.GetChannel() == 0
                                    ? "any channel"
                                    : "channel " + std::to_string(setting.GetChannel());
    std::printf("  %-20s %s, %s, %s %d, %s to %s, curve \"%s\"%s\n", name,
                setting.IsMIDIEnabled() ? "on" : "off", channel.c_str(),
                GetMIDICCTypeName(setting.GetType()), setting.GetNumber(),
                Number(setting.GetMin()).c_str(), Number(setting.GetMax()).c_str(),
                GetParamValueCurveName(setting.GetCurve()),
                setting.IsAutomationEnabled() ? "" : ", not automated");
    return true;
}

void PrintMIDIInputs(CPresetFile& preset) {
    if (preset.GetMIDI().GetInputDefaultFlag().GetValue()) {
        std::puts("\nMIDI input: as the global settings say");
        return;
    }
    std::puts("\nMIDI input:");
    bool isAnyPrinted = false;
    for (int i = 0; i < preset.GetInputs().GetCount(); ++i) {
        const IConstParamInfo& info = preset.GetInputs().Get(i).GetInfo();
        isAnyPrinted |= PrintSetting(info.GetName(), preset.GetMIDI().GetInputSettings().Get(i),
                                     CInputMIDICCSetting(info));
    }
    if (!isAnyPrinted) {
        std::puts("  every setting is the default");
    }
}

COutcome Show(const std::string& path) {
    CPresetFile preset;
    if (COutcome outcome = preset.Load(path); !outcome) {
        return outcome;
    }
    std::printf("name: %s\nversion: %d\n\nparameters:\n", Printable(preset.GetName()).c_str(),
                preset.GetVersion());
    for (int i = 0; i < preset.GetInputs().GetCount(); ++i) {
        PrintParam(preset.GetInputs().Get(i));
    }
    PrintMIDIInputs(preset);
    return {};
}

COutcome Check(const std::vector<std::string>& paths) {
    std::size_t refused = 0;
    for (const std::string& path : paths) {
        CPresetFile preset;
        const COutcome outcome = preset.Load(path);
        refused += outcome ? 0U : 1U;
        std::printf("%s\n", Printable(outcome ? path + ": would load" : outcome.message).c_str());
    }
    if (refused > 0) {
        return COutcome::BadInput(std::to_string(refused) + " of " + std::to_string(paths.size()) +
                                  " would not load");
    }
    return {};
}

} // namespace

COutcome RunPreset(CArguments& arguments) {
    std::vector<std::string> words;
    while (arguments.Next()) {
        if (arguments.Get() == "--help" || arguments.Get() == "-h") {
            std::fputs(kPresetHelp, stdout);
            return {};
        }
        if (arguments.IsOption()) {
            return COutcome::WrongUsage(arguments.Get() +
                                        ": is not understood; see ondara preset --help");
        }
        words.push_back(arguments.Get());
    }
    if (words.empty() || (words[0] != "show" && words[0] != "check")) {
        return COutcome::WrongUsage((words.empty() ? "preset" : words[0]) +
                                    ": say show or check; see ondara preset --help");
    }
    const std::vector<std::string> paths(words.begin() + 1, words.end());
    if (paths.empty() || (words[0] == "show" && paths.size() > 1)) {
        return COutcome::WrongUsage(words[0] + ": name " +
                                    (words[0] == "show" ? "one file" : "the files to check") +
                                    "; see ondara preset --help");
    }
    return words[0] == "show" ? Show(paths[0]) : Check(paths);
}

} // namespace Workbench
