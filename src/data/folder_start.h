// What the program does with the customer and plan files when it starts.
#pragma once

#include <vector>

#include "data/folder_check.h"
#include "data/session.h"

namespace norvale {

struct FolderStart {
  bool madeCompany = false;           // there were no customer files: they hold the blank company now
  bool rebuiltCustomerIndex = false;  // it was lost or did not agree with the records
  bool rebuiltEstimateIndex = false;
  std::vector<Fault> faults;  // what is left: to be told to the operator, with the offer of a repair

  /// Whether customers and plans may be changed before a repair.
  [[nodiscard]] bool MayWork() const;
};

/// Makes sure that the files exist and hold the company, makes an index afresh that does not agree with its records, and
/// reads the company into the session. Anything else that is wrong is only reported.
FolderStart StartFolder(DataFolder& folder, Session& session);

}  // namespace norvale
