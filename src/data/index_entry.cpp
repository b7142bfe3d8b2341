#include "data/index_entry.h"

namespace norvale {

std::string CustomerPrefix(std::int16_t customerNumber) {
  constexpr std::size_t kPrefixWidth = 5;
  std::string number = std::to_string(customerNumber);
  if (number.size() < kPrefixWidth) number.insert(0, kPrefixWidth - number.size(), ' ');
  number.resize(kPrefixWidth);
  return number;
}

FixedText<20> EstimateKey(const EstimateRecord& plan) {
  FixedText<20> key;
  key.Assign(CustomerPrefix(plan.CustomerNumber) + plan.PlanNumber.Padded());
  return key;
}

}  // namespace norvale
