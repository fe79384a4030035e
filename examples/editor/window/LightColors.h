#pragma once

#include "scene/Scene.h"

namespace Editor {

/// While it lives, a scene has the colours for white paper, whatever the window has.
class LightColors
{
public:
    explicit LightColors(Scene &scene)
        : m_scene(scene)
        , m_former(scene.theme())
    {
        apply(Theme::light());
    }
    ~LightColors() { apply(m_former); }

    LightColors(const LightColors &other) = delete;
    LightColors &operator=(const LightColors &other) = delete;

private:
    void apply(const Theme &theme)
    {
        if (&theme != &m_scene.theme())
            m_scene.setTheme(theme);
    }

    Scene &m_scene;
    const Theme &m_former;
};

} // namespace Editor
