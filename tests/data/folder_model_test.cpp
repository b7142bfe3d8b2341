// Random operations, held against a model that keeps the files as plain bytes and reaches every state by the slowest means
// there are: exchange of neighbours, and a copy of everything.
#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <random>

#include "support/data_fixture.h"

namespace norvale {
namespace {

template <typename Files>
struct ModelPair {
  std::vector<typename Files::Record> records;  // in the order of the file
  std::vector<typename Files::Entry> index;

  typename Files::Record& RecordOf(const typename Files::Entry& entry) {
    return records.at((static_cast<std::size_t>(entry.RecordPosition) - 1) / Files::kRecordSize);
  }

  [[nodiscard]] bool IsLower(std::size_t a, std::size_t b) const { return Files::KeyOf(index[a]) < Files::KeyOf(index[b]); }

  std::size_t SiftUp(std::size_t at) {
    for (; at > 0 && IsLower(at, at - 1); --at) std::swap(index[at], index[at - 1]);
    return at;
  }

  std::size_t SiftDown(std::size_t at) {
    for (; at + 1 < index.size() && IsLower(at + 1, at); ++at) std::swap(index[at], index[at + 1]);
    return at;
  }

  std::size_t Add(const typename Files::Record& record) {
    index.push_back(Files::EntryFor(record, PositionOfRecord<Files>(records.size())));
    records.push_back(record);
    return SiftUp(index.size() - 1);
  }

  std::size_t Update(std::size_t at, const typename Files::Record& record) {
    RecordOf(index[at]) = record;
    index[at] = Files::EntryFor(record, index[at].RecordPosition);
    return SiftDown(SiftUp(at));
  }

  void Delete(std::size_t at) {
    ModelPair left;
    for (std::size_t i = 0; i < index.size(); ++i) {
      if (i == at) continue;
      left.index.push_back(index[i]);
      left.index.back().RecordPosition = PositionOfRecord<Files>(left.records.size());
      left.records.push_back(RecordOf(index[i]));
    }
    *this = left;
  }

  // An index is sorted by its bytes, with a number's high byte first.
  void Rebuild() {
    index.clear();
    for (std::size_t i = 0; i < records.size(); ++i) index.push_back(Files::EntryFor(records[i], PositionOfRecord<Files>(i)));
    const auto bytes = [](const typename Files::Entry& entry) {
      std::string text = Encoded(entry, Files::kEntrySize);
      if constexpr (std::is_same_v<Files, CustomerFiles>) std::swap(text[0], text[1]);
      return text;
    };
    std::sort(index.begin(), index.end(), [&](const auto& a, const auto& b) { return bytes(a) < bytes(b); });
  }

  [[nodiscard]] std::string RecordBytes() const { return Joined(records, Files::kRecordSize); }
  [[nodiscard]] std::string IndexBytes() const { return Joined(index, Files::kEntrySize); }

  template <typename Item>
  static std::string Joined(const std::vector<Item>& items, std::size_t size) {
    std::string bytes;
    for (const Item& item : items) bytes += Encoded(item, size);
    return bytes;
  }
};

class FolderModel {
 public:
  ModelPair<CustomerFiles> customers;
  ModelPair<EstimateFiles> plans;

  // Gives the customer's plans another number, one after another in the order of the index.
  void MovePlans(std::int16_t from, std::int16_t to) {
    std::vector<std::int32_t> positions;
    for (const EstimateIndexEntry& entry : plans.index)
      if (plans.RecordOf(entry).CustomerNumber == from) positions.push_back(entry.RecordPosition);
    for (const std::int32_t position : positions) {
      const auto entry = std::find_if(plans.index.begin(), plans.index.end(), [&](const auto& e) { return e.RecordPosition == position; });
      EstimateRecord plan = plans.RecordOf(*entry);
      plan.CustomerNumber = to;
      plans.RecordOf(*entry) = plan;
      // To the end and up again: behind all that are not higher.
      plans.index.erase(entry);
      plans.index.push_back(EstimateFiles::EntryFor(plan, position));
      plans.SiftUp(plans.index.size() - 1);
    }
  }

  [[nodiscard]] FolderBytes Bytes() const {
    FolderBytes bytes{{std::string(CustomerDataFile), customers.RecordBytes()},
                      {std::string(CustomerIndexFile), customers.IndexBytes()},
                      {std::string(EstimateDataFile), plans.RecordBytes()},
                      {std::string(EstimateIndexFile), plans.IndexBytes()}};
    std::erase_if(bytes, [](const auto& file) { return file.second.empty(); });
    return bytes;
  }
};

class FolderModelTest : public testing::Test {
 protected:
  FolderModelTest() : folder_("", disk_) {
    (void)StartFolder(folder_, session_);
    CustomerRecord company;
    PadTexts(company);
    model_.customers.Add(company);
  }

  int Random(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random_); }

  EstimateRecord RandomPlan() {
    const std::array<std::string_view, 8> numbers = {"", " A", "A", "A100", "B", "B ", "ZZ", "\xC4"};
    EstimateRecord plan = PlanOf(static_cast<std::int16_t>(Random(0, 3) == 0 ? Random(0, 32767) : Random(0, 12)),
                                 numbers[static_cast<std::size_t>(Random(0, 7))], static_cast<std::int16_t>(++marks_));
    PadTexts(plan);
    return plan;
  }

  [[nodiscard]] std::size_t PlanAtCursor() const {
    return (static_cast<std::size_t>(session_.EstimateCursor) - 1) / EstimateIndexEntrySize;
  }
  [[nodiscard]] std::size_t CustomerAtCursor() const {
    return (static_cast<std::size_t>(session_.CustomerCursor) - 1) / CustomerIndexEntrySize;
  }

  void PutPlanCursor() {
    // Both ends come up as often as everything between them.
    const int last = static_cast<int>(model_.plans.index.size()) - 1;
    const int at = Random(0, 2) == 0 ? 0 : Random(0, 1) == 0 ? last : Random(0, last);
    session_.EstimateCursor = IndexFile<EstimateFiles>::PositionOf(static_cast<std::size_t>(at));
    ASSERT_TRUE(MoveEstimate(folder_, session_, 0).hasRecord);
  }

  void PutCustomerCursor() {
    const int last = static_cast<int>(model_.customers.index.size()) - 1;
    const int at = Random(0, 2) == 0 ? 1 : Random(0, 1) == 0 ? last : Random(1, last);
    session_.CustomerCursor = IndexFile<CustomerFiles>::PositionOf(static_cast<std::size_t>(at));
    ASSERT_TRUE(ReadCustomerAtCursor(folder_, session_));
  }

  void AddPlan() {
    session_.CurrentEstimate = RandomPlan();
    const std::size_t at = model_.plans.Add(session_.CurrentEstimate);
    AddEstimate(folder_, session_);
    EXPECT_EQ(PlanAtCursor(), at);
  }

  void UpdatePlan() {
    PutPlanCursor();
    const EstimateRecord other = RandomPlan();
    if (Random(0, 1) == 0) {
      session_.CurrentEstimate = other;
    } else {
      session_.CurrentEstimate.RoofSqFt = other.RoofSqFt;
    }
    const std::size_t at = model_.plans.Update(PlanAtCursor(), session_.CurrentEstimate);
    ASSERT_EQ(UpdateEstimate(folder_, session_), EstimateChange::Done);
    EXPECT_EQ(PlanAtCursor(), at);
  }

  void DeletePlan() {
    PutPlanCursor();
    model_.plans.Delete(PlanAtCursor());
    ASSERT_EQ(DeleteEstimate(folder_, session_), EstimateChange::Done);
    EXPECT_EQ(session_.EstimateCursor, 1);
  }

  void StepPlans() {
    PutPlanCursor();
    const auto count = static_cast<int>(model_.plans.index.size());
    const int direction = Random(0, 1) == 0 ? 1 : -1;
    const int wanted = static_cast<int>(PlanAtCursor()) + direction;
    const StepResult step = MoveEstimate(folder_, session_, direction);
    EXPECT_EQ(step.notice, wanted < 0 ? "0 Beginning Of File|" : wanted >= count ? "0 End Of File|" : "");
    const auto at = static_cast<std::size_t>(std::clamp(wanted, 0, count - 1));
    EXPECT_EQ(PlanAtCursor(), at);
    EXPECT_TRUE(session_.CurrentEstimate == model_.plans.RecordOf(model_.plans.index[at]));
  }

  void FindPlans() {
    const auto wanted =
        Random(0, 2) == 0 ? model_.plans.RecordOf(Random(0, 1) == 0 ? model_.plans.index.front() : model_.plans.index.back()).CustomerNumber
                          : static_cast<std::int16_t>(Random(0, 14));
    int number = wanted;
    FindFirstEstimateOfCustomer(folder_, session_, number);
    const auto first = std::find_if(model_.plans.index.begin(), model_.plans.index.end(),
                                    [&](const auto& entry) { return model_.plans.RecordOf(entry).CustomerNumber == wanted; });
    if (first == model_.plans.index.end()) {
      EXPECT_EQ(number, -1);
    } else {
      EXPECT_EQ(number, wanted);
      EXPECT_EQ(PlanAtCursor(), static_cast<std::size_t>(first - model_.plans.index.begin()));
    }
  }

  void NewCustomer() {
    const std::int16_t last = model_.customers.index.back().CustomerKey;
    ASSERT_EQ(AddBlankCustomer(folder_, session_), AddCustomer::Added);
    CustomerRecord blank;
    PadTexts(blank);
    if (last < 32766) {
      blank.CustomerRecordNumber = static_cast<std::int16_t>(last + 1);
    } else {
      // The lowest that nobody has.
      const auto& index = model_.customers.index;
      while (std::any_of(index.begin(), index.end(), [&](const auto& e) { return e.CustomerKey == blank.CustomerRecordNumber; }))
        ++blank.CustomerRecordNumber;
    }
    EXPECT_EQ(CustomerAtCursor(), model_.customers.Add(blank));
    EXPECT_EQ(AddBlankCustomer(folder_, session_), AddCustomer::AlreadyAdding);
    if (Random(0, 2) == 0) {
      model_.customers.Delete(CustomerAtCursor());
      ASSERT_TRUE(AbandonNewCustomer(folder_, session_));
      return;
    }
    SaveUnderAnotherNumber();
    EXPECT_FALSE(session_.customerIsNew);
  }

  void SaveUnderAnotherNumber() {
    const std::array<std::string_view, 4> names = {"Oak Builders", "SOAKED LTD", "Reed", "Hill oak"};
    CustomerRecord& customer = session_.CurrentCustomer;
    const std::int16_t old = customer.CustomerRecordNumber;
    const std::size_t at = CustomerAtCursor();
    customer.CustomerName.Assign(names[static_cast<std::size_t>(Random(0, 3))]);
    if (Random(0, 1) == 0) customer.CustomerRecordNumber = static_cast<std::int16_t>(Random(0, 2) == 0 ? Random(0, 32767) : Random(1, 14));
    const std::int16_t number = customer.CustomerRecordNumber;
    const auto& index = model_.customers.index;
    const bool inUse = number != old && std::any_of(index.begin(), index.end(), [&](const auto& e) { return e.CustomerKey == number; });
    const auto expected = number < 1 || number > 32766 ? SaveCustomerResult::NumberReserved
                          : inUse                      ? SaveCustomerResult::NumberInUse
                                                       : SaveCustomerResult::Saved;
    const CustomerRecord saved = customer;
    ASSERT_EQ(SaveCustomer(folder_, session_), expected) << number;
    if (expected != SaveCustomerResult::Saved) {
      session_.CurrentCustomer = model_.customers.RecordOf(index[at]);
      ASSERT_EQ(SaveCustomer(folder_, session_), SaveCustomerResult::Saved);
      return;
    }
    EXPECT_EQ(CustomerAtCursor(), model_.customers.Update(at, saved));
    if (number != old) model_.MovePlans(old, number);
  }

  void SaveSome() {
    PutCustomerCursor();
    SaveUnderAnotherNumber();
  }

  void RemoveCustomer() {
    PutCustomerCursor();
    const std::size_t at = CustomerAtCursor();
    const std::int16_t number = model_.customers.index[at].CustomerKey;
    model_.customers.Delete(at);
    model_.MovePlans(number, 0);
    ASSERT_EQ(DeleteCustomer(folder_, session_), DeleteCustomerResult::Deleted);
    EXPECT_EQ(session_.CustomerCursor, kFirstCustomerPosition);
  }

  void SearchCustomers() {
    PutCustomerCursor();
    session_.CustomerSearchText = Random(0, 3) == 0 ? "" : Random(0, 3) == 0 ? "NOBODY" : "OAK";
    const std::size_t from = CustomerAtCursor();
    const int direction = Random(0, 1) == 0 ? 1 : -1;
    const auto matches = [&](std::size_t i) {
      return Has(UpperCase(model_.customers.RecordOf(model_.customers.index[i]).CustomerName.Padded()), session_.CustomerSearchText);
    };
    const std::size_t count = model_.customers.index.size();
    std::size_t wanted = from + static_cast<std::size_t>(direction);
    while (wanted >= 1 && wanted < count && !matches(wanted)) wanted += static_cast<std::size_t>(direction);
    const bool outside = wanted < 1 || wanted >= count;
    std::string notice;
    if (outside && session_.CustomerSearchText.empty()) {
      wanted = direction > 0 ? count - 1 : 1;
      notice = direction > 0 ? "0 End Of File|" : "0 Beginning Of File|";
    } else if (outside) {
      wanted = from;
      notice = "0 No more " + session_.CustomerSearchText + " matches found. Try " + (direction > 0 ? "PREV" : "NEXT") + ".|";
    }
    EXPECT_EQ(MoveCustomer(folder_, session_, direction).notice, notice);
    EXPECT_EQ(CustomerAtCursor(), wanted);

    std::size_t first = 1;
    while (first < count && !matches(first)) ++first;
    const std::int32_t before = session_.CustomerCursor;
    if (!session_.CustomerSearchText.empty()) {
      const StepResult found = FindCustomer(folder_, session_, 0);
      EXPECT_EQ(session_.CustomerFound, first < count);
      EXPECT_EQ(session_.CustomerCursor, first < count ? IndexFile<CustomerFiles>::PositionOf(first) : before);
      EXPECT_EQ(found.notice, first < count ? "" : "0 End of file, Find unable to locate " + session_.CustomerSearchText + "|");
    }
    session_.CustomerSearchText.clear();
    const int number = Random(0, 14);
    const auto holder = std::find_if(model_.customers.index.begin() + 1, model_.customers.index.end(),
                                     [&](const auto& entry) { return entry.CustomerKey == number; });
    (void)FindCustomer(folder_, session_, number);
    EXPECT_EQ(session_.CustomerFound, holder != model_.customers.index.end());
    if (session_.CustomerFound) {
      EXPECT_EQ(session_.CurrentCustomer.CustomerRecordNumber, number);
    }
  }

  void Rebuild() {
    RebuildIndexes(folder_);
    model_.customers.Rebuild();
    model_.plans.Rebuild();
  }

  void Agree(int step) {
    ASSERT_TRUE(BytesOf(disk_) == model_.Bytes()) << "step " << step;  // too long to be shown
    if (model_.customers.index.size() > 1) {
      const CustomerIndexEntry& entry = model_.customers.index.at(CustomerAtCursor());
      ASSERT_EQ(session_.CurrentCustomerEntry, entry) << "step " << step;
      ASSERT_TRUE(session_.CurrentCustomer == model_.customers.RecordOf(entry)) << "step " << step;
      ASSERT_EQ(session_.CustomerRecordCursor, entry.RecordPosition) << "step " << step;
    } else {
      ASSERT_TRUE(session_.CurrentCustomer == CustomerRecord{}) << "step " << step;
    }
    const std::vector<Fault> faults = CheckFolder(disk_, "");
    ASSERT_TRUE(faults.empty()) << "step " << step << ": " << faults.front().text;
  }

  MemoryDisk disk_;
  DataFolder folder_;
  Session session_;
  FolderModel model_;
  std::mt19937 random_{20240611};
  int marks_ = 0;
};

TEST_F(FolderModelTest, ThousandsOfRandomOperationsAgreeWithTheModel) {
  constexpr int kSteps = 6000;
  for (int step = 0; step < kSteps && !HasFatalFailure(); ++step) {
    // Now and then the folder runs empty, and fills up again.
    const bool fills = step / 500 % 2 == 0;
    const int what = Random(0, 99);
    const bool hasPlans = !model_.plans.index.empty();
    const bool hasCustomers = model_.customers.index.size() > 1;
    if (what < (fills ? 30 : 8) || !hasPlans)
      AddPlan();
    else if (what < 42)
      UpdatePlan();
    else if (what < (fills ? 50 : 56))
      DeletePlan();
    else if (what < 60)
      StepPlans();
    else if (what < 65)
      FindPlans();
    else if (what < (fills ? 80 : 68) || !hasCustomers)
      NewCustomer();
    else if (what < 86)
      SaveSome();
    else if (what < (fills ? 90 : 96))
      RemoveCustomer();
    else if (what < 98)
      SearchCustomers();
    else
      Rebuild();
    Agree(step);
  }
  std::cout << kSteps << " operations, " << model_.plans.index.size() << " plans and " << model_.customers.index.size()
            << " customers at the end\n";
}

TEST_F(FolderModelTest, EmptyFilesSayTheirEnds) {
  EXPECT_EQ(MoveEstimate(folder_, session_, 1).notice, "0 End Of File|");
  EXPECT_EQ(MoveEstimate(folder_, session_, -1).notice, "0 Beginning Of File|");
  EXPECT_EQ(session_.EstimateCursor, 1);
  EXPECT_EQ(DeleteEstimate(folder_, session_), EstimateChange::NothingOnFile);
  EXPECT_EQ(UpdateEstimate(folder_, session_), EstimateChange::NothingOnFile);
  int number = 1;
  FindFirstEstimateOfCustomer(folder_, session_, number);
  EXPECT_EQ(number, -1);
  EXPECT_FALSE(MoveCustomer(folder_, session_, -1).hasRecord);
  EXPECT_EQ(session_.CustomerCursor, kFirstCustomerPosition);
  EXPECT_EQ(DeleteCustomer(folder_, session_), DeleteCustomerResult::NoCustomer);
  EXPECT_FALSE(AbandonNewCustomer(folder_, session_));
}

TEST_F(FolderModelTest, FindsAPlanByAnyPartOfItsNumber) {
  for (const auto& plan : {PlanOf(12345, "OAK 7"), PlanOf(2, "lane-12")}) {
    session_.CurrentEstimate = plan;
    AddEstimate(folder_, session_);
  }
  const std::int32_t before = session_.EstimateCursor;
  // The customer's digits are no part of the plan number.
  const StepResult miss = FindEstimateByPlanText(folder_, session_, "345");
  EXPECT_EQ(miss.notice, "0 End of file, Find unable to locate 345|");
  EXPECT_EQ(session_.EstimateCursor, before);
  EXPECT_TRUE(FindEstimateByPlanText(folder_, session_, "oak").hasRecord);
  EXPECT_EQ(session_.CurrentEstimate.CustomerNumber, 12345);
  EXPECT_TRUE(FindEstimateByPlanText(folder_, session_, "LANE").hasRecord);
  EXPECT_EQ(session_.EstimateCursor, 1);
}

TEST_F(FolderModelTest, ReservedTextStaysAndOtherZerosBecomeBlanks) {
  session_.CurrentEstimate = {};
  session_.CurrentEstimate.ReservedText.bytes[3] = 'r';
  AddEstimate(folder_, session_);
  EXPECT_EQ(session_.CurrentEstimate.ReservedText.Raw().substr(0, 4), std::string_view("\0\0\0r", 4));
  EXPECT_EQ(session_.CurrentEstimate.PlanDate.Raw(), "          ");
  EXPECT_EQ(disk_.Bytes(EstimateIndexFile).substr(0, 20), "    0               ");
}

}  // namespace
}  // namespace norvale
