#pragma once

#include "containers/NamedAttributes.h"
#include "datamodel/objects/Action.h"

#include <memory>

namespace Vorin::AppEngine {

class CSkinModelFactory;
class IObjectsUsage;

/// Makes the actions of one type: what an element "ACTION" asks for by its attribute "type".
class ICustomActionFactory {
public:
    /// Declares the identifiers that such an action refers to.
    virtual void DeclareIds(const Containers::IConstNamedAttributes& attributes,
                            IObjectsUsage& usage) const = 0;

    /// A new action; its connections are link commands of the model factory. Null when that fails,
    /// which is then in the log.
    virtual std::unique_ptr<DataModel::Objects::IAction>
    Create(const Containers::IConstNamedAttributes& attributes, CSkinModelFactory& factory) = 0;

    virtual ~ICustomActionFactory() = default;
};

} // namespace Vorin::AppEngine
