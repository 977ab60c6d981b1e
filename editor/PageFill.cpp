#include "editor/PageFill.h"

namespace velmora {

PageFill FillOf(const TabDocument& document, int page) {
    const int perPage = document.setup.TabsPerPage;
    int filled = 0;
    for (int tab = (page - 1) * perPage + 1; tab <= page * perPage; ++tab)
        filled += IsEmptyTab(document, tab) ? 0 : 1;
    return filled == 0 ? PageFill::Empty : filled == perPage ? PageFill::Filled : PageFill::Partly;
}

} // namespace velmora
