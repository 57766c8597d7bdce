// FUNCTION_INVOKE_ACTION and ACTION.

#include "SkinEngine/Model/ElementTable.h"
#include "SkinEngine/Model/LinkCommands.h"
#include "SkinEngine/Model/ModelElement.h"
#include "SkinEngine/Model/OpenUrlAction.h"

#include <cstring>

namespace Vorin::AppEngine {

namespace {

/// Whether a text in single quotes is meant as it stands, and what it is then.
bool ReadQuoted(const std::string& text, std::string& inner) {
    if (text.size() < 2 || text.front() != '\'' || text.back() != '\'') {
        return false;
    }
    inner = text.substr(1, text.size() - 2);
    return true;
}

bool IsOpenUrl(const CModelElement& element) {
    return std::strcmp(element.GetText("function"), "OpenUrl") == 0;
}

ICustomActionFactory* FindActionFactory(CModelElement& element) {
    const auto& factories = element.GetFactory().GetContext()->actionFactories;
    const auto found = factories.find(std::string(element.GetText("type")));
    return found == factories.end() ? nullptr : found->second.get();
}

} // namespace

bool MakeFunctionInvokeAction(CModelElement& element) {
    if (!element.RequireId("Cannot create action, id field is empty.")) {
        return false;
    }
    if (!*element.GetText("function")) {
        return element.Fail("Cannot create action, 'function' field is empty.");
    }
    if (!IsOpenUrl(element)) {
        return element.Fail(std::string(element.GetId()) + ": unkown function");
    }
    const char* argument = element.GetText("arg_url");
    if (!*argument) {
        return element.Fail("Cannot create action, 'arg_url' field is empty.");
    }
    std::string url;
    const bool isFixed = ReadQuoted(argument, url);
    auto made = std::make_unique<COpenUrlFunctionWrapperCommand>(element.GetServices().openUrl,
                                                                 url.c_str());
    auto& command = element.GetModel().Own(std::move(made));
    const Objects::CActionInfo info(element.GetText("name"), element.GetText("comment"));
    if (!element.Add<Objects::IAction>(
            std::make_unique<Objects::CAction>(info, &command, Core::kDontOwn))) {
        return false;
    }
    if (!isFixed) {
        using CConnect =
            TConnectCommand<COpenUrlFunctionWrapperCommand, Objects::IConstCaptureString>;
        element.AddLinkCommand(
            std::make_unique<CConnect>(element.GetFactory(), argument, command,
                                       &COpenUrlFunctionWrapperCommand::SetUrlString));
    }
    return true;
}

bool DeclareFunctionInvokeAction(CModelElement& element) {
    std::string url;
    if (IsOpenUrl(element) && !ReadQuoted(element.GetText("arg_url"), url)) {
        element.GetUsage().Declare(element.GetText("arg_url"));
    }
    return true;
}

bool MakeAction(CModelElement& element) {
    const std::string type = element.GetText("type");
    ICustomActionFactory* actions = FindActionFactory(element);
    if (!actions) {
        return element.Fail(type + ": unkown action type");
    }
    if (!element.RequireId(
            ("Cannot create action of type " + type + ": id field is empty.").c_str())) {
        return false;
    }
    std::unique_ptr<Objects::IAction> action =
        actions->Create(element.GetAttributes(), element.GetFactory());
    return action && element.Add<Objects::IAction>(std::move(action));
}

bool DeclareAction(CModelElement& element) {
    if (const ICustomActionFactory* actions = FindActionFactory(element)) {
        actions->DeclareIds(element.GetAttributes(), element.GetUsage());
    }
    return true;
}

void COpenURLActionFactory::DeclareIds(const Containers::IConstNamedAttributes& attributes,
                                       IObjectsUsage& usage) const {
    static_cast<void>(attributes);
    static_cast<void>(usage);
}

std::unique_ptr<Objects::IAction>
COpenURLActionFactory::Create(const Containers::IConstNamedAttributes& attributes,
                              CSkinModelFactory& factory) {
    const auto text = [&](const char* name) {
        const char* value = attributes.GetValue(name);
        return value ? value : "";
    };
    return std::make_unique<Objects::CAction>(
        Objects::CActionInfo(text("name"), text("comment")),
        new COpenUrlFunctionWrapperCommand(factory.GetServices().openUrl, text("url")), Core::kOwn);
}

} // namespace Vorin::AppEngine
