// The system's own header, without the names that it would take from ours; and how its texts and errors become ours.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#undef ReplaceFile
#undef Yield

namespace velmora {

/// UTF-8 as the system takes it; what is no UTF-8 comes with replacement characters.
std::wstring Wide(std::string_view utf8);
/// The way back; half a pair of surrogates becomes a replacement character.
std::string Narrow(std::wstring_view text);

/// One of <cerrno> for one of the system's errors.
int ErrnoOf(DWORD error);
/// Of the last call that failed.
int LastErrno();

} // namespace velmora
