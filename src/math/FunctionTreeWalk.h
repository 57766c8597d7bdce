#pragma once

#include "serialization/Serializable.h"

#include <functional>

namespace Vorin::Math {

/// Told of an object in a tree; false leaves out what is below it.
using FunctionTreeVisit = std::function<bool(const Serialization::ISerialize&)>;

/// Visits a function and everything in it that it would write, in the order of writing: each part
/// before what is below it. Trees of the same shape, as a clone has, are visited alike, so that the
/// n-th object of the one is the n-th of the other. Objects that only serve to write, such as those
/// around a list, are visited too; they do not outlive their visit.
void WalkFunctionTree(const Serialization::ISerialize& root, const FunctionTreeVisit& visit);

} // namespace Vorin::Math
