// What the tools ask of the screens above them. Whoever owns the function puts it here at start-up; a hook that stands
// empty does nothing.
#pragma once

namespace kelu {

struct ToolHooks {
    void (*hotkey_dispatch)(int context) = nullptr; ///< performs the actions of a context
    void (*quick_pan)() = nullptr;                  ///< runs while its key is held
    void (*build_draw_menu)() = nullptr;            ///< the drawing menu's slots come back
    void (*freeze_menu)() = nullptr;                ///< takes the picture that stands dim behind a pop-up
    void (*text_tool)() = nullptr;                  ///< the tool TEXT from its first node on
};
inline ToolHooks tool_hooks;

template <class... Arguments>
void call_hook(void (*hook)(Arguments...), Arguments... arguments)
{
    if (hook) hook(arguments...);
}

} // namespace kelu
