// The worked examples of the guide, done by the program: what a page says to enter is entered, what it says is printed must
// come out, and its sums must be right.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>
#include <regex>
#include <sstream>

#include "base/files.h"
#include "base/numbers.h"
#include "entry/checklist.h"
#include "entry/plan_form.h"
#include "entry/screens.h"
#include "prices/delivered.h"
#include "takeoff/print_estimate.h"

namespace norvale {
namespace {

using testing::HasSubstr;

struct Example {
  std::vector<std::pair<std::string, std::string>> entries;
  std::vector<std::string> sums;     // "40 x 0.9 = 36"
  std::vector<std::string> printed;  // lines of the list
};

Example ReadExample(const std::string& page) {
  Example example;
  std::istringstream lines(page);
  bool isExample = false;
  bool isPrinted = false;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("## ")) isExample = line.starts_with("## Example");
    if (!isExample) continue;
    if (line.starts_with("```")) {
      isPrinted = !isPrinted;
      continue;
    }
    if (isPrinted) example.printed.push_back(line);
    if (line.starts_with("| ")) {
      const std::size_t bar = line.find(" | ");
      example.entries.emplace_back(line.substr(2, bar - 2), line.substr(bar + 3, line.size() - bar - 5));
    }
    static const std::regex kSum("`([^`]*=[^`]*)`");
    for (std::sregex_iterator sum(line.begin(), line.end(), kSum), end; sum != end; ++sum) example.sums.push_back((*sum)[1]);
  }
  if (!example.entries.empty()) example.entries.erase(example.entries.begin());  // the heading
  return example;
}

// Numbers with + and -, x and / before them, in the order of the text.
double ValueOf(std::istringstream& text) {
  const auto number = [&text] {
    double value = 0;
    text >> value;
    return value;
  };
  double sum = 0;
  double product = number();
  for (char sign = 0; text >> sign;) {
    const double next = number();
    if (sign == 'x')
      product *= next;
    else if (sign == '/')
      product /= next;
    else
      sum += product, product = sign == '-' ? -next : next;
  }
  return sum + product;
}

void ExpectRight(const std::string& sum) {
  const std::size_t equals = sum.find(" = ");
  ASSERT_NE(equals, std::string::npos) << sum;
  const std::string said = sum.substr(equals + 3);
  std::istringstream left(sum.substr(0, equals));
  const std::size_t point = said.find('.');
  const double unit = point == std::string::npos ? 1 : std::pow(0.1, static_cast<double>(said.size() - point - 1));
  EXPECT_NEAR(ValueOf(left), Val(said), point == std::string::npos ? 1e-9 : unit / 2 + 1e-9) << sum;
}

// An operator who follows the page with a new plan.
class Estimator {
 public:
  Estimator() : data_{.waste = DesignTimeWasteFactors(), .lists = DeliveredMaterialRows(), .prices = {}} {
    print_.plan = BlankPlan();
    print_.sectionMask = kWholeMask;
  }

  void Enter(const std::string& entry, const std::string& value) {
    static const std::string kWaste = "Waste, ";
    static const std::string kPrice = "Price of ";
    if (entry == "Kind of house")
      ChooseHouse(value);
    else if (entry == "Joist feet")
      SetJoistText(form_, JoistBoxBehind(lastNumber_).value(), value);
    else if (entry.starts_with(kWaste))
      SetWaste(entry.substr(kWaste.size()), std::stoi(value));
    else if (entry.starts_with(kPrice))
      SetPrice(entry.substr(kPrice.size()), value);
    else
      FillBox(entry + ":", value);
  }

  std::string List() {
    StorePlanFromForm(form_, print_.plan);
    Page page;
    PrintEstimate(print_, data_, page);
    return page.Utf8();
  }

 private:
  void ChooseHouse(const std::string& boxes) {
    PlanChecks checks;
    std::istringstream words(boxes);
    for (std::string word; std::getline(words >> std::ws, word, ',');) {
      std::size_t box = 0;
      while (box < kPlanChecks && Trim(InfoOf(static_cast<PlanCheck>(box)).caption) != word) ++box;
      ASSERT_LT(box, kPlanChecks) << word;
      ToggleCheck(checks, static_cast<PlanCheck>(box));
    }
    print_.plan.PlanType = PlanTypeOf(checks);
    form_ = OpenPlanForm(PlanMode::New, false, print_.plan, DeliveredScreenLines(), DeliveredMaterialRows());
  }

  void FillBox(const std::string& caption, const std::string& value) {
    const auto line = std::ranges::find(form_.lines, caption, &LineState::caption);
    ASSERT_NE(line, form_.lines.end()) << caption;
    if (line->field.IsNumber()) {
      const NumberBox box = line->field.Number();
      EXPECT_TRUE(form_.numbers[box].enabled) << caption;
      SetNumberText(form_, box, value);
      lastNumber_ = box;
      return;
    }
    const SelectionList box = line->field.List();
    const std::vector<std::string>& rows = form_.lists[box].rows;
    const auto row = std::ranges::find(rows, value);
    ASSERT_NE(row, rows.end()) << caption << " " << value;
    // What the kind of house has fixed need not be chosen, but must be what the page says.
    if (form_.lists[box].enabled) ClickSelectionList(form_, box, static_cast<int>(row - rows.begin()));
    EXPECT_EQ(ShownText(form_.lists[box]), value) << caption;
  }

  void SetWaste(const std::string& panelAndLabel, int percent) {
    static const std::map<std::string, std::string> kPanels = {{"1st Floor", "pct1st"},
                                                               {"2nd Floor", "pct2nd"},
                                                               {"Roof System", "pctRoof"},
                                                               {"Exterior & Trim", "pctTrim"},
                                                               {"Flooring, Sheetrock, Interior Trim", "pctFSIT"}};
    const std::size_t colon = panelAndLabel.find(": ");
    const std::string panel = kPanels.at(panelAndLabel.substr(0, colon));
    const auto& items = DeliveredWasteItems();
    const auto item = std::ranges::find_if(
        items, [&](const WasteItem& each) { return each.panel == panel && each.label == panelAndLabel.substr(colon + 2); });
    ASSERT_NE(item, items.end()) << panelAndLabel;
    data_.waste.percent.at(static_cast<std::size_t>(item->item)) = static_cast<std::int16_t>(percent);
  }

  void SetPrice(const std::string& key, const std::string& price) {
    const PriceItem* const delivered = DeliveredPrices().Find(key);
    ASSERT_NE(delivered, nullptr) << key;
    PriceItem item = *delivered;
    item.PriceItemPrice[0] = price;
    data_.prices = PriceList({item});
  }

  EstimatePrint print_;
  TakeoffData data_;
  PlanForm form_;
  NumberBox lastNumber_{};
};

TEST(GuideExamples, ComeOutAsTheirPagesSay) {
  int pages = 0;
  for (const auto& file : std::filesystem::directory_iterator(std::filesystem::path(NORVALE_SOURCE_DIR) / "docs" / "guide")) {
    if (!file.path().filename().string().starts_with("list")) continue;
    SCOPED_TRACE(file.path());
    ++pages;
    const Example example = ReadExample(ReadWholeFile(file.path()));
    ASSERT_FALSE(example.entries.empty() || example.sums.empty() || example.printed.empty());
    for (const std::string& sum : example.sums) ExpectRight(sum);
    Estimator estimator;
    for (const auto& [entry, value] : example.entries) {
      estimator.Enter(entry, value);
      if (HasFatalFailure()) return;
    }
    const std::string list = estimator.List();
    std::size_t at = 0;
    for (const std::string& line : example.printed) {
      at = list.find("\n" + line + "\n", at);
      ASSERT_NE(at, std::string::npos) << "no line \"" << line << "\" in\n" << list;
      ++at;
    }
    // The last sum of the page is what is printed.
    const std::string last = example.sums.back();
    EXPECT_THAT(example.printed.back(), HasSubstr(" " + last.substr(last.find(" = ") + 3)));
  }
  EXPECT_GE(pages, 9) << "each section has its page";
}

}  // namespace
}  // namespace norvale
