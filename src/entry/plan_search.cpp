#include "entry/plan_search.h"

#include <limits>

#include "base/numbers.h"
#include "data/customer_file.h"

namespace norvale {

namespace {

// A search text that stays set would turn every later look-up by number into a search by name.
class CustomerSearch {
 public:
  CustomerSearch(Session& session, std::string text) : session_(session) { session_.CustomerSearchText = std::move(text); }
  ~CustomerSearch() { session_.CustomerSearchText.clear(); }
  CustomerSearch(const CustomerSearch&) = delete;
  CustomerSearch& operator=(const CustomerSearch&) = delete;

 private:
  Session& session_;
};

StepResult NotFound(std::string_view text) {
  return {.hasRecord = false, .notice = "0 End of file, Find unable to locate " + std::string(text) + "|"};
}

bool ShowFirstPlanOf(DataFolder& folder, Session& session, int customer) {
  FindFirstEstimateOfCustomer(folder, session, customer);
  return customer >= 0 && MoveEstimate(folder, session, 0).hasRecord;
}

}  // namespace

std::string LookUpPlanCustomer(DataFolder& folder, Session& session, int number) {
  const CustomerSearch byNumber(session, "");
  if (number == kCompanyNumber) {
    session.CurrentCustomer = session.CompanyRecord;
  } else {
    (void)FindCustomer(folder, session, number);
    if (!session.CustomerFound) {
      session.CurrentCustomer = {};
      return std::string(kNotOnFile);
    }
  }
  return ToUtf8(session.CurrentCustomer.CustomerName.Trimmed());
}

StepResult FindPlanByCustomerName(DataFolder& folder, Session& session, std::string_view name) {
  const auto wanted = FromUtf8(Trim(name));
  if (!wanted || wanted->empty()) return NotFound(Trim(name));
  const CustomerSearch byName(session, UpperCase(*wanted));
  StepResult step = FindCustomer(folder, session, 0);
  if (!session.CustomerFound) return NotFound(Trim(name));
  while (step.notice.empty() && step.hasRecord) {
    if (ShowFirstPlanOf(folder, session, session.CurrentCustomer.CustomerRecordNumber)) return {.hasRecord = true, .notice = ""};
    step = MoveCustomer(folder, session, +1);
  }
  return {};
}

StepResult FindPlanByCustomerNumber(DataFolder& folder, Session& session, std::string_view number) {
  const double value = Int(Val(number));
  const bool canBe = value >= 0 && value <= std::numeric_limits<std::int16_t>::max();
  if (canBe && ShowFirstPlanOf(folder, session, static_cast<int>(value))) return {.hasRecord = true, .notice = ""};
  return NotFound(Trim(number));
}

StepResult FindPlanByPlanNumber(DataFolder& folder, Session& session, std::string_view text) {
  const auto wanted = FromUtf8(text);
  if (!wanted) return NotFound(text);
  StepResult step = FindEstimateByPlanText(folder, session, *wanted);
  if (!step.notice.empty()) return NotFound(text);
  return step;
}

}  // namespace norvale
