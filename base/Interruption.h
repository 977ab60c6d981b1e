// Ending in order when a person or the system interrupts a program that has no window.
#pragma once

namespace velmora {

/// From now on an interruption (Ctrl-C, a request to end, a lost terminal) first removes the temporary files, then ends
/// the program as it would have. To be called before there are threads; what the caller's starter ignores stays
/// ignored.
void RemoveTemporaryFilesWhenInterrupted();

/// What an interruption removes, for a program that ends at once by other ways. Nothing can be made any more.
void RemoveTemporaryFiles();

} // namespace velmora
