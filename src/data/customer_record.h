// One customer, as he lies in `customer.db`. The company that runs the program is customer 0, the first record.
#pragma once

#include "data/fields.h"

namespace norvale {

inline constexpr std::size_t CustomerRecordSize = 293;
inline constexpr std::int16_t kCompanyNumber = 0;

struct CustomerRecord {
  FixedText<35> CustomerName{};
  FixedText<35> AddressLine1{};
  FixedText<35> AddressLine2{};
  FixedText<22> City{};
  FixedText<2> State{};
  FixedText<9> Zip{};
  FixedText<14> Telephone{};
  FixedText<14> Fax{};
  FixedText<25> Contact{};
  FixedText<50> Note1{};
  FixedText<50> Note2{};
  std::int16_t CustomerRecordNumber{};

  bool operator==(const CustomerRecord&) const = default;
};

template <>
struct RecordFields<CustomerRecord> {
  static constexpr auto table = std::tuple{
      Field{"CustomerName", 0, &CustomerRecord::CustomerName},
      Field{"AddressLine1", 35, &CustomerRecord::AddressLine1},
      Field{"AddressLine2", 70, &CustomerRecord::AddressLine2},
      Field{"City", 105, &CustomerRecord::City},
      Field{"State", 127, &CustomerRecord::State},
      Field{"Zip", 129, &CustomerRecord::Zip},
      Field{"Telephone", 138, &CustomerRecord::Telephone},
      Field{"Fax", 152, &CustomerRecord::Fax},
      Field{"Contact", 166, &CustomerRecord::Contact},
      Field{"Note1", 191, &CustomerRecord::Note1},
      Field{"Note2", 241, &CustomerRecord::Note2},
      Field{"CustomerRecordNumber", 291, &CustomerRecord::CustomerRecordNumber},
  };
};

static_assert(FieldsTile(RecordFields<CustomerRecord>::table, CustomerRecordSize), "no gap, no overlap, the whole record");

}  // namespace norvale
