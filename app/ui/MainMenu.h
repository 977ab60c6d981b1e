// The commands of the main window, each once, with their places in the menus and on the toolbar.
#pragma once

#include "app/Program.h"

#include <span>
#include <vector>

class QWidget;

namespace velmora {

/// What a command may reach.
struct CommandContext {
    Program& program;
    QWidget& window;
};

/// True while the clipboard takes and gives whole tabs: in the sheet, with tabs marked or nothing selected in the box.
bool IsForTabs(const CommandContext& context);

struct MenuItem {
    const char* name;    ///< nullptr: a separator
    const char* caption; ///< with the mnemonic
    const char* shortcut;
    void (*command)(CommandContext& context);
};

struct Menu {
    const char* name;
    const char* caption;
    std::vector<MenuItem> items;
};

/// A button repeats a menu item; one that stands on the toolbar alone has a caption and a command.
struct ToolButton {
    const char* icon = nullptr;     ///< nullptr: a separator
    const char* item = nullptr;     ///< name of the menu item, or of a command that stands on the toolbar alone
    const char* caption = nullptr;  ///< of the latter
    const char* shortcut = nullptr; ///< of the latter
    void (*command)(CommandContext& context) = nullptr; ///< of the latter
    bool worded = false; ///< one of the most used, with its word beside it where there is room
};

/// Whether the page strip is shown; until that is chosen, where the window has room for it.
extern const SettingKey kPageStrip;

std::span<const Menu> Menus();
/// 19 places that never change, four of them separators, and what came later behind them.
std::span<const ToolButton> ToolButtons();

} // namespace velmora
