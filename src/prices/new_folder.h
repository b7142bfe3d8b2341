// The files that a working folder needs, and laying those that it lacks.
#pragma once

#include <string>
#include <vector>

#include "data/data_folder.h"

namespace norvale {

struct FolderContents {
  std::vector<std::string> missing;  // files that hold what the program cannot make afresh from others
  bool holdsNone = false;            // not one of the program's files is there
};

FolderContents LookIntoFolder(const DataFolder& folder);

/// Writes each of the delivered files that is not there. What is there stays as it is.
void LayDeliveredFiles(DataFolder& folder);

}  // namespace norvale
