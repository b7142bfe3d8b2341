// Records of random bytes, the same in every run.
#pragma once

#include <random>
#include <string>

#include "data/customer_record.h"
#include "data/estimate_record.h"

namespace norvale {

template <typename Record>
Record RandomRecord(std::mt19937& random, std::size_t size) {
  std::string bytes(size, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random() & 0xFF);
  Record record;
  DecodeValue(bytes.data(), record);
  return record;
}

inline EstimateRecord RandomPlan(std::mt19937& random) { return RandomRecord<EstimateRecord>(random, EstimateRecordSize); }

inline CustomerRecord RandomCustomer(std::mt19937& random, std::int16_t number) {
  auto customer = RandomRecord<CustomerRecord>(random, CustomerRecordSize);
  customer.CustomerRecordNumber = number;
  return customer;
}

}  // namespace norvale
