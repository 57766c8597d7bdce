#pragma once

#include <span>
#include <string_view>

namespace Vorin::AppEngine {

/// The elements of the preprocessor, which handlers never see.
std::span<const std::string_view> GetPreprocessorElements();

/// The elements of the skin language that handlers can get, in alphabetical order. Widgets and
/// actions that a program adds are not among them.
std::span<const std::string_view> GetSkinElements();

} // namespace Vorin::AppEngine
