// Random operations, held against a model that reaches every state by the slowest means there are: exchange of neighbours, and a
// copy of everything.
#include <gtest/gtest.h>

#include <iostream>
#include <random>

#include "support/data_fixture.h"

namespace norvale {
namespace {

// A record file and its index: the records in the order of the index.
template <typename Files>
class ModelPair {
 public:
  struct Item {
    typename Files::Record record;
    std::size_t place;  // in the record file
    [[nodiscard]] typename Files::Entry Entry() const { return Files::EntryFor(record, PositionOfRecord<Files>(place)); }
  };

  std::vector<Item> items;

  std::size_t Add(const typename Files::Record& record) {
    items.push_back({record, items.size()});
    return SiftUp(items.size() - 1);
  }

  std::size_t Update(std::size_t at, const typename Files::Record& record) {
    items[at].record = record;
    at = SiftUp(at);
    for (; at + 1 < items.size() && IsLower(at + 1, at); ++at) std::swap(items[at], items[at + 1]);
    return at;
  }

  // What is left stands in the file as in the index.
  void Delete(std::size_t at) {
    items.erase(items.begin() + static_cast<std::ptrdiff_t>(at));
    for (std::size_t i = 0; i < items.size(); ++i) items[i].place = i;
  }

  // Gives the plans of a customer another number: behind all that are not higher.
  void MovePlans(std::int16_t from, std::int16_t to) {
    const auto leaves = [from](const Item& item) { return item.record.CustomerNumber == from; };
    std::vector<Item> moved;
    std::copy_if(items.begin(), items.end(), std::back_inserter(moved), leaves);
    std::erase_if(items, leaves);
    for (Item& item : moved) {
      item.record.CustomerNumber = to;
      items.push_back(item);
      SiftUp(items.size() - 1);
    }
  }

  // Among equals by the bytes of the position.
  void Rebuild() {
    std::sort(items.begin(), items.end(), [](const Item& a, const Item& b) {
      const auto one = a.Entry();
      const auto other = b.Entry();
      if (Files::KeyOf(one) != Files::KeyOf(other)) return Files::KeyOf(one) < Files::KeyOf(other);
      return Encoded(one, Files::kEntrySize) < Encoded(other, Files::kEntrySize);
    });
  }

  void PutBytes(FolderBytes& bytes) const {
    if (items.empty()) return;
    std::string& records = bytes[std::string(NameOf(Files::kRecords))];
    records.resize(items.size() * Files::kRecordSize);
    for (const Item& item : items) {
      EncodeValue(records.data() + item.place * Files::kRecordSize, item.record);
      bytes[std::string(NameOf(Files::kIndex))] += Encoded(item.Entry(), Files::kEntrySize);
    }
  }

 private:
  [[nodiscard]] bool IsLower(std::size_t a, std::size_t b) const {
    const auto one = items[a].Entry();
    const auto other = items[b].Entry();
    return Files::KeyOf(one) < Files::KeyOf(other);
  }

  std::size_t SiftUp(std::size_t at) {
    for (; at > 0 && IsLower(at, at - 1); --at) std::swap(items[at], items[at - 1]);
    return at;
  }
};

class FolderModelTest : public testing::Test {
 protected:
  FolderModelTest() {
    (void)StartFolder(folder_, session_);
    CustomerRecord company;
    PadTexts(company);
    customers_.Add(company);
  }

  int Random(int from, int to) { return std::uniform_int_distribution<int>(from, to)(random_); }

  // Both ends come up as often as everything between them.
  template <typename Files>
  std::int32_t RandomCursor(const ModelPair<Files>& pair, int first) {
    const int last = static_cast<int>(pair.items.size()) - 1;
    const int at = Random(0, 2) == 0 ? first : Random(0, 1) == 0 ? last : Random(first, last);
    return IndexFile<Files>::PositionOf(static_cast<std::size_t>(at));
  }

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
  [[nodiscard]] bool HasCustomer(std::int16_t number) const {
    return std::any_of(customers_.items.begin(), customers_.items.end(),
                       [number](const auto& item) { return item.record.CustomerRecordNumber == number; });
  }

  void PutPlanCursor() {
    session_.EstimateCursor = RandomCursor(plans_, 0);
    ASSERT_TRUE(MoveEstimate(folder_, session_, 0).hasRecord);
    ASSERT_EQ(session_.CurrentEstimate, plans_.items[PlanAtCursor()].record);
  }

  void PutCustomerCursor() {
    session_.CustomerCursor = RandomCursor(customers_, 1);
    ASSERT_TRUE(ReadCustomerAtCursor(folder_, session_));
  }

  void AddPlan() {
    session_.CurrentEstimate = RandomPlan();
    const std::size_t at = plans_.Add(session_.CurrentEstimate);
    AddEstimate(folder_, session_);
    EXPECT_EQ(PlanAtCursor(), at);
  }

  void ChangePlan() {
    PutPlanCursor();
    const EstimateRecord other = RandomPlan();
    if (Random(0, 1) == 0)
      session_.CurrentEstimate = other;
    else
      session_.CurrentEstimate.RoofSqFt = other.RoofSqFt;
    const std::size_t at = plans_.Update(PlanAtCursor(), session_.CurrentEstimate);
    ASSERT_EQ(UpdateEstimate(folder_, session_), EstimateChange::Done);
    EXPECT_EQ(PlanAtCursor(), at);
  }

  void DeletePlan() {
    PutPlanCursor();
    plans_.Delete(PlanAtCursor());
    ASSERT_EQ(DeleteEstimate(folder_, session_), EstimateChange::Done);
    EXPECT_EQ(session_.EstimateCursor, 1);
  }

  void NewCustomer() {
    CustomerRecord blank;
    PadTexts(blank);
    const int last = customers_.items.back().record.CustomerRecordNumber;
    blank.CustomerRecordNumber = static_cast<std::int16_t>(last < 32766 ? last + 1 : 1);  // else the lowest that nobody has
    while (HasCustomer(blank.CustomerRecordNumber)) ++blank.CustomerRecordNumber;
    ASSERT_EQ(AddBlankCustomer(folder_, session_), AddCustomer::Added);
    EXPECT_EQ(CustomerAtCursor(), customers_.Add(blank));
    EXPECT_EQ(AddBlankCustomer(folder_, session_), AddCustomer::AlreadyAdding);
    if (Random(0, 2) == 0) {
      customers_.Delete(CustomerAtCursor());
      ASSERT_TRUE(AbandonNewCustomer(folder_, session_));
    } else {
      SaveUnderAnotherNumber();
    }
    EXPECT_FALSE(session_.customerIsNew);
  }

  void SaveUnderAnotherNumber() {
    CustomerRecord& customer = session_.CurrentCustomer;
    const std::int16_t old = customer.CustomerRecordNumber;
    const std::size_t at = CustomerAtCursor();
    customer.CustomerName.Assign("Oak Builders " + std::to_string(++marks_));
    if (Random(0, 1) == 0) customer.CustomerRecordNumber = static_cast<std::int16_t>(Random(0, 2) == 0 ? Random(0, 32767) : Random(1, 14));
    const std::int16_t number = customer.CustomerRecordNumber;
    const auto expected = number < 1 || number > 32766           ? SaveCustomerResult::NumberReserved
                          : number != old && HasCustomer(number) ? SaveCustomerResult::NumberInUse
                                                                 : SaveCustomerResult::Saved;
    ASSERT_EQ(SaveCustomer(folder_, session_), expected) << number;
    if (expected != SaveCustomerResult::Saved) {
      customer.CustomerRecordNumber = old;
      ASSERT_EQ(SaveCustomer(folder_, session_), SaveCustomerResult::Saved);
    }
    EXPECT_EQ(CustomerAtCursor(), customers_.Update(at, customer));
    if (customer.CustomerRecordNumber != old) plans_.MovePlans(old, number);
  }

  void RemoveCustomer() {
    PutCustomerCursor();
    const std::size_t at = CustomerAtCursor();
    plans_.MovePlans(customers_.items[at].record.CustomerRecordNumber, 0);
    customers_.Delete(at);
    ASSERT_EQ(DeleteCustomer(folder_, session_), DeleteCustomerResult::Deleted);
    EXPECT_EQ(session_.CustomerCursor, kFirstCustomerPosition);
  }

  void ChangeCompany() {
    OpenCompany(folder_, session_);
    EXPECT_EQ(session_.CurrentCustomer, customers_.items[0].record);
    session_.CurrentCustomer.CustomerName.Assign("Hill Lumber " + std::to_string(++marks_));
    customers_.Update(0, session_.CurrentCustomer);
    SaveCompany(folder_, session_);
    EXPECT_EQ(session_.CompanyRecord, customers_.items[0].record);
    CloseCompany(folder_, session_);
    EXPECT_EQ(session_.CustomerCursor, kFirstCustomerPosition);
  }

  void Agree(int step) {
    FolderBytes expected;
    customers_.PutBytes(expected);
    plans_.PutBytes(expected);
    ASSERT_TRUE(BytesOf(disk_) == expected) << "step " << step;  // too long to be shown
    if (customers_.items.size() > 1) {
      const auto& item = customers_.items.at(CustomerAtCursor());
      ASSERT_EQ(session_.CurrentCustomerEntry, item.Entry()) << "step " << step;
      ASSERT_EQ(session_.CurrentCustomer, item.record) << "step " << step;
      ASSERT_EQ(session_.CustomerRecordCursor, item.Entry().RecordPosition) << "step " << step;
    } else {
      ASSERT_EQ(session_.CurrentCustomer, CustomerRecord{}) << "step " << step;
    }
    ASSERT_TRUE(CheckFolder(disk_, "").empty()) << "step " << step;
  }

  MemoryDisk disk_;
  DataFolder folder_{"", disk_};
  Session session_;
  ModelPair<CustomerFiles> customers_;
  ModelPair<EstimateFiles> plans_;
  std::mt19937 random_{20240611};
  int marks_ = 0;
};

TEST_F(FolderModelTest, ThousandsOfRandomOperationsAgreeWithTheModel) {
  constexpr int kSteps = 6000;
  for (int step = 0; step < kSteps && !HasFatalFailure(); ++step) {
    // Now and then the folder runs empty, and fills up again.
    const bool fills = step / 500 % 2 == 0;
    const int what = Random(0, 99);
    if (what < (fills ? 30 : 8) || plans_.items.empty()) {
      AddPlan();
    } else if (what < 45) {
      ChangePlan();
    } else if (what < (fills ? 55 : 65)) {
      DeletePlan();
    } else if (what < (fills ? 80 : 68) || customers_.items.size() == 1) {
      NewCustomer();
    } else if (what < 86) {
      PutCustomerCursor();
      SaveUnderAnotherNumber();
    } else if (what < (fills ? 90 : 96)) {
      RemoveCustomer();
    } else if (what < 98) {
      ChangeCompany();
    } else {
      RebuildIndexes(folder_);
      customers_.Rebuild();
      plans_.Rebuild();
    }
    Agree(step);
  }
  std::cout << kSteps << " operations, " << plans_.items.size() << " plans and " << customers_.items.size() << " customers at the end\n";
  const CustomerRecord company = session_.CompanyRecord;
  session_.CompanyRecord = {};
  (void)StartFolder(folder_, session_);
  EXPECT_EQ(session_.CompanyRecord, company);
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

TEST_F(FolderModelTest, ReservedTextStaysAndOtherZerosBecomeBlanks) {
  session_.CurrentEstimate = {};
  session_.CurrentEstimate.ReservedText.bytes[3] = 'r';
  AddEstimate(folder_, session_);
  EXPECT_EQ(session_.CurrentEstimate.ReservedText.Raw().substr(0, 4), std::string_view("\0\0\0r", 4));
  EXPECT_EQ(session_.CurrentEstimate.PlanDate.Raw(), "          ");
  EXPECT_EQ(disk_.Bytes(EstimateIndexFile).substr(0, 20), "    0               ");
}

class FolderSearch : public testing::Test {
 protected:
  std::unique_ptr<MemoryDisk> disk = SampleDisk();
  DataFolder folder{"", *disk};
  Session session;
};

TEST_F(FolderSearch, CustomersAreSteppedThroughAndFoundByNameOrNumber) {
  const struct {
    const char* text;
    int from;
    int step;  // 0 finds the first
    int to;
    const char* notice = "";
  } rows[] = {
      {"", 3, -1, 3, "0 Beginning Of File|"},
      {"", 3, 1, 5},
      {"", 12, -1, 7},
      {"", 12, 1, 12, "0 End Of File|"},
      {"OAK", 3, 1, 7},
      {"OAK", 7, 1, 12},
      {"OAK", 12, 1, 12, "0 No more OAK matches found. Try PREV.|"},
      {"OAK", 12, -1, 7},
      {"OAK", 7, -1, 7, "0 No more OAK matches found. Try NEXT.|"},
      {"OAK", 12, 0, 7},
      {"HILL", 12, 0, 3},
      {"NOBODY", 5, 0, 5, "0 End of file, Find unable to locate NOBODY|"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.text) + " from " + std::to_string(row.from) + " by " + std::to_string(row.step));
    session.CustomerSearchText.clear();
    ASSERT_TRUE(FindCustomer(folder, session, row.from).hasRecord);
    session.CustomerSearchText = row.text;
    const StepResult result = row.step == 0 ? FindCustomer(folder, session, 0) : MoveCustomer(folder, session, row.step);
    EXPECT_TRUE(result.hasRecord);
    EXPECT_EQ(result.notice, row.notice);
    EXPECT_EQ(session.CurrentCustomer.CustomerRecordNumber, row.to);
    if (row.step == 0) {
      EXPECT_EQ(session.CustomerFound, result.notice.empty());
    }
  }
  session.CustomerSearchText.clear();
  for (const int number : {-1, 0, 4, 13, 65543}) {  // 7 in 16 bits
    EXPECT_FALSE(FindCustomer(folder, session, number).hasRecord || session.CustomerFound) << number;
  }
}

TEST_F(FolderSearch, PlansAreSteppedThroughAndFoundByCustomerOrNumber) {
  const std::vector<int> marks = {6, 9, 2, 8, 3, 5, 1, 7, 4};  // in the order of the index
  for (int at = 0; at < 9; ++at) {
    for (const int step : {-1, 1}) {
      session.EstimateCursor = 1 + 24 * at;
      const int to = at + step;
      EXPECT_EQ(MoveEstimate(folder, session, step).notice, to < 0 ? "0 Beginning Of File|" : to > 8 ? "0 End Of File|" : "");
      EXPECT_EQ(session.CurrentEstimate.RoofSqFt, marks[static_cast<std::size_t>(std::clamp(to, 0, 8))]);
    }
  }
  for (const auto& [wanted, entry] : {std::pair{0, 0}, {3, 2}, {7, 3}, {9, 7}, {12, 8}, {1, -1}, {13, -1}, {-1, -1}, {65543, -1}}) {
    int number = wanted;
    session.EstimateCursor = 1;
    FindFirstEstimateOfCustomer(folder, session, number);
    EXPECT_EQ(number, entry < 0 ? -1 : wanted);
    EXPECT_EQ(session.EstimateCursor, 1 + 24 * std::max(entry, 0)) << wanted;
  }
  for (const auto& plan : {PlanOf(12345, "OAK 7"), PlanOf(2, "lane-12")}) {
    session.CurrentEstimate = plan;
    AddEstimate(folder, session);
  }
  EXPECT_TRUE(FindEstimateByPlanText(folder, session, "oak").hasRecord);
  EXPECT_EQ(session.CurrentEstimate.CustomerNumber, 12345);
  // The customer's digits are no part of the plan number.
  EXPECT_EQ(FindEstimateByPlanText(folder, session, "345").notice, "0 End of file, Find unable to locate 345|");
  EXPECT_EQ(session.CurrentEstimate.CustomerNumber, 12345);
  EXPECT_TRUE(FindEstimateByPlanText(folder, session, "LANE").hasRecord);
  EXPECT_EQ(session.CurrentEstimate.CustomerNumber, 2);
}

}  // namespace
}  // namespace norvale
