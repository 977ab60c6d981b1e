// How full a page is: what the page strip shows and says of it.
#pragma once

#include "document/TabDocument.h"

namespace velmora {

enum class PageFill { Empty, Partly, Filled };

/// Of a page from 1 to `NoOfPages`.
PageFill FillOf(const TabDocument& document, int page);

} // namespace velmora
