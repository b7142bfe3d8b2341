// What any folder, however damaged, must put up with.
#pragma once

#include "support/memory_disk.h"

namespace norvale {

/// Reads, checks, starts, works on, and repairs the folder. Throws std::logic_error where a fault goes unnoticed, where a
/// repair leaves what it should mend, or where a record is lost. FileErrors are an answer and stay inside.
void ProbeDamagedFolder(const MemoryDisk& damaged);

}  // namespace norvale
