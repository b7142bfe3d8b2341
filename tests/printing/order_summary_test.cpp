#include "printing/order_summary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"
#include "prices/delivered.h"

namespace norvale {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr std::string_view kFloor = "1st FLOOR - FLOOR SYSTEM";
constexpr std::string_view kRoof = "ROOF SYSTEM";

class OrderSummaries : public testing::Test {
 protected:
  // One row of a run, at a place of its own.
  PrintedLine& Row(std::string_view section, double quantity, const char* unit, const char* text, const PriceItem* stock,
                   const char* key = "") {
    PrintedLine& row = totals.lines.emplace_back();
    row.section = section, row.quantity = quantity, row.unit = unit, row.description = text;
    row.priceKey = *key != '\0' ? key : text;
    row.place = {0, totals.lines.size()};
    row.stock = stock;
    if (stock != nullptr) row.price = static_cast<float>(Val(stock->PriceItemPrice[0]));
    row.extension = static_cast<float>(row.price * quantity);
    totals.GrandTotal += row.extension;
    return row;
  }

  static std::vector<std::string> Told(const OrderSummary& summary) {
    std::vector<std::string> lines;
    for (const SummaryLine& line : summary.lines)
      lines.push_back(Digits(line.quantity) + " " + line.unit + " " + line.description + " " + (line.isPriced ? line.sku : "no price") +
                      " x" + std::to_string(line.sections.size()));
    return lines;
  }

  // In the order of a dealer's price list.
  const std::vector<PriceItem> items = {{"4X8- 7/16 OSB", "OSB", {"16.34"}, ""},
                                        {"4X8-7/16 OSB", "OSB", {"16.34"}, ""},
                                        {"2X10- 14 #2 SYP", "FR-1", {"0.125"}, ""},
                                        {"2X8 VINYL FASCIA", "KIT", {"3.00"}, ""},
                                        {"PLYCLIPS", "CLIP", {"20.00"}, ""}};
  EstimateTotals totals;
};

TEST_F(OrderSummaries, PutOneStockUnderOneLine) {
  Row(kFloor, 3, "pcs.", "4X8- 7/16 OSB", &items[0]);
  Row(kFloor, 5, "pcs.", "2X10- 14 #2 SYP", &items[2]);
  Row(kFloor, 0, "pcs.", "NOTHING OF IT", nullptr);
  Row(kRoof, 4, "pcs.", "7/16 OSB", &items[0], "4X8- 7/16 OSB");
  Row(kRoof, 2, "pcs.", "4X8-7/16 OSB", &items[1]);
  Row(kRoof, 7, "Lft.", "2X10- 14 #2 SYP", &items[2]);  // another unit is another stock
  Row(kRoof, 1, "Box", "PLYCLIPS", &items[4]);
  Row(kRoof, 2, "boxes", "PLYCLIPS", &items[4]);
  Row(kRoof, 6, "bd ft", "OAK", nullptr);
  Row(kRoof, 1, "bd ft", "OAK ", nullptr);
  EXPECT_THAT(Told(Summarise(totals, SummaryOrder::FirstAppearance)),
              ElementsAre("9 pcs. 4X8- 7/16 OSB OSB x2", "5 pcs. 2X10- 14 #2 SYP FR-1 x1", "7 Lft. 2X10- 14 #2 SYP FR-1 x1",
                          "3 boxes PLYCLIPS CLIP x1", "7 bd ft OAK no price x1"));
  EXPECT_THAT(Told(Summarise(totals, SummaryOrder::YardSections)),
              ElementsAre("5 pcs. 2X10- 14 #2 SYP FR-1 x1", "7 Lft. 2X10- 14 #2 SYP FR-1 x1", "9 pcs. 4X8- 7/16 OSB OSB x2",
                          "7 bd ft OAK no price x1", "3 boxes PLYCLIPS CLIP x1"));
  EXPECT_EQ(Summarise(totals, SummaryOrder::YardSections).unpriced, 1U);
}

TEST_F(OrderSummaries, ABoardWithItsWrapIsNamedAsItIsCharged) {
  const auto withWrap = [this](const PriceItem* board) {
    totals = {};
    Row(kRoof, 40, "Lft.", "2X8 #2 SYP", board);
    const PagePlace place = totals.lines.back().place;
    Row(kRoof, 40, "Lft.", "2X8 #2 SYP", &items[3], "2X8 VINYL FASCIA").place = place;
    return Told(Summarise(totals, SummaryOrder::FirstAppearance));
  };
  EXPECT_THAT(withWrap(nullptr), ElementsAre("40 Lft. 2X8 VINYL FASCIA KIT x1"));
  EXPECT_THAT(withWrap(&items[2]), ElementsAre("40 Lft. 2X8 #2 SYP FR-1 x1", "40 Lft. 2X8 VINYL FASCIA KIT x1"));
}

TEST_F(OrderSummaries, AddUpToTheItemisedTotal) {
  // 12 1/2 cents for each of two stocks: each line says 0.13, and the customer owes 0.25.
  Row(kFloor, 1, "pcs.", "2X10- 14 #2 SYP", &items[2]);
  Row(kFloor, 1, "Lft.", "2X10- 14 #2 SYP", &items[2]);
  const OrderSummary summary = Summarise(totals, SummaryOrder::FirstAppearance);
  EXPECT_DOUBLE_EQ(RoundingOf(summary), -0.01);
  const std::string text = DocumentText(OrderSummaryDocument({}, summary, true));
  EXPECT_THAT(text, HasSubstr("Rounding                                                   -0.01\n"));
  EXPECT_THAT(text, HasSubstr("GRAND TOTAL ----------------                                0.25\n"));
  EXPECT_THAT(DocumentText(OrderSummaryDocument({}, summary, false)), testing::Not(HasSubstr("TOTAL")));
}

TEST_F(OrderSummaries, PagesTurnBetweenStocksAndNothingIsCut) {
  std::vector<PriceItem> many(200);
  for (std::size_t i = 0; i < many.size(); ++i) {
    many[i] = {"2X10- " + std::to_string(i) + " #2 SYP", "SKU" + std::to_string(i), {"1234.50"}, ""};
    Row(kRoof, 100000, "pcs.", many[i].PriceItemKey.c_str(), &many[i]);
  }
  const Document document = OrderSummaryDocument({}, Summarise(totals, SummaryOrder::YardSections), true);
  EXPECT_GT(document.pages.size(), 7U);
  for (const PageText& page : document.pages) {
    EXPECT_LE(page.size(), kPaperLines);
    EXPECT_TRUE(page.at(9).starts_with("FRAMING LUMBER")) << page.at(9);
    for (std::size_t i = 11; i + 1 < page.size() && page[i].starts_with("  100000"); i += 2) {
      EXPECT_THAT(page[i], HasSubstr("1,234.50 123,450,000.00"));
      EXPECT_THAT(page[i + 1], HasSubstr("SKU"));
    }
  }
}

TEST(YardSections, HoldTheDeliveredStockAsItsNumbersDo) {
  const std::pair<const char*, YardSection> byNumber[] = {{"LBR STD TBR", YardSection::FramingLumber},
                                                          {"TRT", YardSection::TreatedLumber},
                                                          {"EWP", YardSection::EngineeredWood},
                                                          {"SHT", YardSection::Panels},
                                                          {"RFG FLS", YardSection::Roofing},
                                                          {"SDG VNL ALM", YardSection::Siding},
                                                          {"BRD MLD TRM", YardSection::BoardsAndMoulding},
                                                          {"GYP FLR", YardSection::SheetrockAndFlooring},
                                                          {"HDW NAL INS FLM WRP ADH", YardSection::Hardware}};
  for (const PriceItem& item : DeliveredPrices().Items()) {
    const auto number = item.PriceItemSku.substr(0, 3);
    const auto* const found = std::ranges::find_if(byNumber, [&](const auto& numbers) { return Has(numbers.first, number); });
    ASSERT_NE(found, std::end(byNumber)) << number;
    EXPECT_EQ(NameOf(YardSectionOf(item.PriceItemKey)), NameOf(found->second)) << item.PriceItemKey;
  }
  EXPECT_EQ(YardSectionOf("GARDEN GNOME"), YardSection::Other);
}

}  // namespace
}  // namespace norvale
