#include "printing/estimate_document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace norvale {
namespace {

using testing::ElementsAre;

TEST(Documents, HoldThePagesAndGiveTheSameTextBack) {
  Page page;
  page.PrintLine("one");
  page.PrintLine();
  page.PrintLine("3/4\" \xBD");
  page.NewPage();
  page.NewPage();  // an empty page stays one
  page.Print("last");
  EXPECT_EQ(page.Place(), (PagePlace{2, 0}));
  page.NewPage();
  Document document = MakeDocument("Title", page);
  EXPECT_THAT(document.pages, ElementsAre(ElementsAre("one", "", "3/4\" \xBD"), ElementsAre(), ElementsAre("last")));
  EXPECT_EQ(DocumentText(document), page.Utf8());

  document.marks = {{0, 2}};
  Append(document, Document{document});
  EXPECT_EQ(DocumentText(document), page.Utf8() + page.Utf8());
  EXPECT_THAT(document.marks, ElementsAre(PagePlace{0, 2}, PagePlace{3, 2}));
}

TEST(UnpricedLines, AreTheRowsForWhichNothingIsCharged) {
  const PriceItem stock;
  const auto line = [](std::size_t at, const char* text, const PriceItem* found, float price) {
    PrintedLine printed;
    printed.description = text, printed.stock = found, printed.price = price, printed.place = {1, at};
    return printed;
  };
  const std::vector<UnpricedLine> unpriced =
      UnpricedLines({line(3, "priced", &stock, 2), line(6, "not listed", nullptr, 0), line(8, "for nothing", &stock, 0),
                     line(11, "board", nullptr, 0), line(11, "board with its wrap", &stock, 4), line(13, "board without", nullptr, 0)});
  std::vector<std::string> texts;
  for (const UnpricedLine& found : unpriced) texts.push_back(found.description + (found.isListed ? " at 0.00" : ""));
  EXPECT_THAT(texts, ElementsAre("not listed", "for nothing at 0.00", "board without"));
}

}  // namespace
}  // namespace norvale
