// The working folder when the program starts: what lies in it, and what the operator is asked before it is used.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "base/message.h"
#include "data/data_folder.h"
#include "data/session.h"

namespace norvale {

/// The folder, locked and fit for work, with the company in the session; nothing where the program cannot or shall not go
/// on. The operator has been told why, or has decided it.
std::unique_ptr<DataFolder> OpenWorkingFolder(const std::filesystem::path& path, Session& session, Messages& messages,
                                              Disk& disk = SystemDisk());

/// The question before files are laid into a folder that holds none, or not all of them.
std::string LayQuestion(const std::vector<std::string>& missing, bool holdsNone);

}  // namespace norvale
