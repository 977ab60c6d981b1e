#include "workbook/OleFile.h"

namespace velmora {

bool IsOleFile(std::string_view bytes) {
    return bytes.starts_with("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1");
}

} // namespace velmora
