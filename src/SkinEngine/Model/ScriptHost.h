#pragma once

namespace Vorin::AppEngine {

class ISkinModel;

/// Runs the scripts of a model. There is none to begin with.
class IScriptHost {
public:
    /// A value has changed that this script was given for. False when the script failed.
    virtual bool Run(const char* script) = 0;

    /// The model is linked: its objects can be reached.
    virtual void OnModelComplete(ISkinModel& model) = 0;

    virtual ~IScriptHost() = default;
};

} // namespace Vorin::AppEngine
