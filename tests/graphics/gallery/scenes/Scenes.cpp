#include "Scene.h"

namespace Vorin::Graphics::Testing {

std::vector<CScene> GetScenes() {
    std::vector<CScene> all;
    for (const auto& scenes : {GetLineScenes(), GetImageScenes()})
        all.insert(all.end(), scenes.begin(), scenes.end());
    return all;
}

} // namespace Vorin::Graphics::Testing
