// The delivered tables as texts, put into the program by the build (cmake/EmbedTables.cmake). UTF-8, one heading row,
// fields separated by tabs.
#pragma once

#include <string_view>

namespace norvale {

extern const std::string_view kDeliveredScreens;
extern const std::string_view kDeliveredLists;
extern const std::string_view kDeliveredPrices;
extern const std::string_view kDeliveredWaste;
extern const std::string_view kDeliveredRenamed;

}  // namespace norvale
