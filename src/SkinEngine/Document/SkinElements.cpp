#include "SkinEngine/Document/SkinElements.h"

namespace Vorin::AppEngine {

namespace {

constexpr std::string_view kPreprocessorElements[] = {
    "DEFINE", "INCLUDE",  "INCLUDE_ONCE", "LOCAL_VARIABLE", "REPEAT",
    "SCRIPT", "TEMPLATE", "UNDEFINE",     "VARIABLE",
};

constexpr std::string_view kSkinElements[] = {
    "ACTION",
    "CELL",
    "COLLECTION",
    "COLOR_SCALE",
    "COLOR_SURFACE_3D",
    "COLUMN",
    "CURVE",
    "CURVE_FROM_PARAM_OVER_TIME",
    "CURVE_GRAPH",
    "CURVE_GRID",
    "CURVE_LINK",
    "CURVE_MULTI_LINK",
    "CURVE_VALUE_PARAM",
    "CURVE_XSCALE",
    "CURVE_YSCALE",
    "EXPOSED_OBJECTS",
    "FOREACH",
    "FORMULA_CURVE",
    "FORMULA_PARAM",
    "FORMULA_SURFACE",
    "FUNCTION_INVOKE_ACTION",
    "GRID",
    "GRID_3D",
    "IMAGE",
    "IMAGE_ACTION_BUTTON",
    "IMAGE_GROUP_BOX",
    "IMAGE_PARAM_BUTTON",
    "IMAGE_PARAM_KNOB",
    "IMAGE_PARAM_LINEAR_METER",
    "IMAGE_PARAM_MENU_BUTTON",
    "IMAGE_PARAM_METER",
    "IMAGE_PARAM_SLIDER",
    "IMAGE_PARAM_TOGGLE_SWITCH",
    "INVISIBLE_ACTION_BUTTON",
    "INVISIBLE_PARAM_BUTTON",
    "INVISIBLE_PARAM_MENU_BUTTON",
    "INVISIBLE_PARAM_TOGGLE_SWITCH",
    "LAYER_STACK",
    "LOAD_FONT",
    "MODEL",
    "PARAM",
    "PARAM_ANIMATED_LINK",
    "PARAM_ANIMATOR",
    "PARAM_CONNECTION",
    "PARAM_LINK",
    "PARAM_MULTI_LINK",
    "PARAM_TEXT",
    "PARAM_TEXT_CONTROL",
    "PARAM_TEXT_EDIT_BOX",
    "PARAM_TOOLTIP",
    "PARAM_TO_STRING_LINK",
    "PERSISTENT_OBJECTS",
    "PERSISTENT_PARAMS",
    "ROW",
    "RULER",
    "SKIN",
    "STRING",
    "STRING_LINK",
    "STRING_MULTI_LINK",
    "SURFACE_COLORMAP_2DPLOT",
    "SURFACE_FROM_CURVE_OVER_TIME",
    "SURFACE_VALUE_PARAM",
    "TABLE",
    "TABLE_ROW",
    "TEXT",
    "TEXT_EDIT_BOX",
    "TEXT_FIELD",
    "TOOLTIP",
    "VIEW_3D",
    "XYZ_IMAGE_PARAM_JOYSTICK",
    "XYZ_PARAM_SCRATCH_PAD",
    "XY_CURVES_3D",
    "XY_CURVES_GRAPH",
    "XY_PARAM_PAD",
    "XY_ZOOM_SELECT_PAD",
};

} // namespace

std::span<const std::string_view> GetPreprocessorElements() { return kPreprocessorElements; }

std::span<const std::string_view> GetSkinElements() { return kSkinElements; }

} // namespace Vorin::AppEngine
