// When the screen shows what was asked for: after a paint event has been answered and sent to the display.
#pragma once

#include <functional>

class QWidget;

namespace velmora::bench {

/// Calls `done` once, after the next painting of a widget of class `className` or of the area that it scrolls.
void WhenPainted(const char* className, std::function<void()> done);
/// Handles events until such a widget has been painted.
void WaitUntilPainted(const char* className);
/// Prints the median time, in milliseconds, of some moves, each until a box is on the screen.
void MeasureMoves(const std::function<void(int)>& move);
/// The same for keys in a box: a letter and its deletion in turn.
void MeasureKeys(QWidget& box);
/// Ends the process at once, without taking anything down.
[[noreturn]] void End();

} // namespace velmora::bench
