#pragma once

#include "SkinEngine/Model/CustomActionFactory.h"
#include "core/Command.h"
#include "datamodel/objects/CaptureObject.h"

#include <functional>
#include <string>

namespace Vorin::AppEngine {

/// Shows the document of an URL to the user: a fixed one, or what a text object says when the
/// command runs. Without an open operation nothing happens.
class COpenUrlFunctionWrapperCommand : public Core::ICommand {
public:
    using Open = std::function<bool(const char* url)>;

    explicit COpenUrlFunctionWrapperCommand(Open openFunction, const char* fixedUrl = "")
        : open(std::move(openFunction)), url(fixedUrl) {}

    /// Null goes back to the fixed one. The text outlives its stay here.
    void SetUrlString(DataModel::Objects::IConstCaptureString* string) { urlString = string; }

    void Execute() override {
        if (open) {
            static_cast<void>(open(urlString ? urlString->GetValue() : url.c_str()));
        }
    }

private:
    Open open;
    std::string url;
    DataModel::Objects::IConstCaptureString* urlString = nullptr;
};

/// Actions of the type "OpenUrl": the attribute "url" is the URL itself.
class COpenURLActionFactory : public virtual ICustomActionFactory {
public:
    void DeclareIds(const Containers::IConstNamedAttributes& attributes,
                    IObjectsUsage& usage) const override;
    std::unique_ptr<DataModel::Objects::IAction>
    Create(const Containers::IConstNamedAttributes& attributes,
           CSkinModelFactory& factory) override;
};

} // namespace Vorin::AppEngine
