#include "shell/menu_checks.h"

namespace norvale {

std::string RefusalOf(const DataFolder& folder, const Session& session, MenuChoice choice) {
  const auto size = [&folder](DataFile file) { return static_cast<std::int64_t>(OpenDataFile(folder, file)->Size()); };
  switch (choice) {
    case MenuChoice::ExistingEstimate:
    case MenuChoice::PrintEstimate:
      if (size(DataFile::EstimateIndex) <= 1) return WithTitle("0 No Estimates on file to edit!|");
      break;
    case MenuChoice::ExistingCustomer:
      if (size(DataFile::CustomerIndex) <= session.CustomerCursor) return WithTitle("0 No Customers in file to Edit!|");
      break;
    default:
      break;
  }
  return {};
}

}  // namespace norvale
