// Where a stock lies in the yard: an order is pulled and loaded section by section.
#pragma once

#include <string_view>

namespace norvale {

/// In the order in which an order lists them.
enum class YardSection {
  FramingLumber,
  TreatedLumber,
  EngineeredWood,
  Panels,
  Roofing,
  Siding,
  BoardsAndMoulding,
  SheetrockAndFlooring,
  Hardware,
  Other,
};

/// The heading of a section.
std::string_view NameOf(YardSection section);

/// The section of a stock, by the words of its description; a stock that none of them is in lies in `Other`.
YardSection YardSectionOf(std::string_view description);

}  // namespace norvale
