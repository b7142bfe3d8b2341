#include "data/plan_type.h"

#include <array>
#include <string_view>
#include <utility>

#include "base/text.h"

namespace norvale {

namespace {

using BitText = std::pair<int, std::string_view>;

constexpr std::array<BitText, 4> kFoundations = {{
    {kOneStorySlab, "1S Slab W/ "},
    {kTwoLevelSlab, "2S Slab W/ "},
    {kOneStoryCrawl, "1S Crawl W/ "},
    {kTwoLevelCrawl, "2S Crawl W/ "},
}};

constexpr std::array<BitText, 5> kAdditions = {{
    {kAttachedGarage, "Att Garage, "},
    {kDetachedGarage, "Det Garage, "},
    {kCarport, "Carport, "},
    {kPorch, "Porch(s), "},
    {kBrickVeneer, "Exterior Brick Veneer, "},
}};

}  // namespace

std::string PlanDescription(std::int16_t planType) {
  std::string text;
  for (const auto& [bit, foundation] : kFoundations) {
    if ((planType & bit) == 0) continue;
    text = foundation;
    if ((planType & kHalfStory) != 0 && bit == kTwoLevelCrawl) text = "1-1/2S Crawl W/ ";
    if ((planType & kHalfStory) != 0 && bit == kTwoLevelSlab) text = "1-1/2S Slab W/ ";
    break;
  }
  for (const auto& [bit, addition] : kAdditions)
    if ((planType & bit) != 0) text += addition;
  for (const std::string_view end : {"W/ ", ", "})
    if (text.ends_with(end)) {
      text.resize(text.size() - end.size());
      break;
    }
  return std::string(TrimRight(text));
}

}  // namespace norvale
