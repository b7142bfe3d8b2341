#include "printing/price_list_print.h"

#include <gtest/gtest.h>

namespace norvale {
namespace {

TEST(PriceListPrint, ItemsStandUnderTheHeadingWithRulesToWriteOn) {
  const std::vector<PriceItem> items = {{"2X4- 16 SPF UTILITY & BETTER, SELECTED",
                                         "LBR-2X4-16-SPF-UTB01",
                                         {"7.04", "6.69", "1234567.89", "", "0.5"},
                                         "A text of twenty-five chars"},
                                        {"PLYCLIPS", "", {"1", "2", "3", "4", "5"}, ""}};
  EXPECT_EQ(DocumentText(PriceListDocument(items, "  Hill Lumber & Supply ", "03-07-2026")),
            "  03-07-2026       Material SKU / Description / Price List             Page 01\n"
            "--------------------------------------------------------------------------------\n"
            "                             Hill Lumber & Supply\n"
            "\n"
            "Norvale Material Item        SKU                   Description\n"
            "Level 1         Level 2         Level 3         Level 4         Level 5\n"
            "--------------------------------------------------------------------------------\n"
            "\n"
            "2X4- 16 SPF UTILITY & BETTER,  LBR-2X4-16-SPF-UTB01  A text of twenty-five chars\n"
            " _________ 7.04  _________ 6.69  ___ 1234567.89  _____________   __________ 0.5\n"
            "\n"
            "PLYCLIPS\n"
            " ____________ 1  ____________ 2  ____________ 3  ____________ 4  ____________ 5\n"
            "\n"
            "\f");
  EXPECT_TRUE(PriceListDocument({}, "Hill", "03-07-2026").pages.empty());
}

TEST(PriceListPrint, SeventeenItemsAreAPage) {
  const std::vector<PriceItem> items(17 * 2 + 1);
  const Document document = PriceListDocument(items, "", "03-07-2026");
  ASSERT_EQ(document.pages.size(), 3U);
  EXPECT_EQ(document.pages[0].size(), 59U);
  EXPECT_EQ(document.pages[2].size(), 11U);
  EXPECT_TRUE(document.pages[2].front().ends_with("Page 03"));
}

}  // namespace
}  // namespace norvale
