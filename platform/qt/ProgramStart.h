// How a program with windows is called: with words, from a terminal or from none.
#pragma once

#include <QtGlobal>

#include <string>
#include <vector>

namespace velmora {

/// Behind the program's name, in UTF-8; once there is an application, without the options that are the toolkit's.
std::vector<std::string> WordsOfCall(int argc, char** argv);
/// Standard output and error become those of the terminal that called, on a system where a program with windows has
/// none of its own.
void TakeTerminalOfCaller();
/// While an application is made: says on standard error that there is no display, and ends the program.
void EndWithoutDisplay(QtMsgType type, const QMessageLogContext& context, const QString& text);

} // namespace velmora
