// The system calls by which files are written: counted, and made to fail, or to be the program's last, where a test
// says.
#pragma once

namespace velmora {

/// What befalls a counted call.
enum class Fault {
    None,
    NoSpace,
    Quota,
    InputOutput,
    Interrupted,
    BrokenDisk, ///< an error in this call and in all that follow, but files go when they are removed
    KillBefore,
    KillIn, ///< half of a write; for other calls as KillBefore
    KillAfter
};

/// From now on calls are counted, from 1, and `fault` befalls the one numbered `at`.
void ArmFault(Fault fault, int at);
/// Ends what ArmFault began, and gives the number of calls since.
int DisarmFault();
/// Goes on counting, as if there had been no calls since.
void RearmFault();
/// While true, no file can be given to another owner, as for a person who is not root.
void RefuseOwners(bool refuse);

} // namespace velmora
