// Compiled into every test program: however it is started, and whatever it starts, it sees the fonts of fonts.conf.in.
#include <cstdlib>

namespace {

[[maybe_unused]] const int kSet = ::setenv("FONTCONFIG_FILE", VELMORA_FONTS_CONF, 1);

} // namespace
