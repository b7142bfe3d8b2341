// Random operations, held against a model: the customers and the plans in the order of their index.
#include <gtest/gtest.h>

#include <random>

#include "data/folder_reader.h"
#include "support/data_fixture.h"

namespace norvale {
namespace {

std::int16_t KeyOf(const CustomerRecord& customer) { return customer.CustomerRecordNumber; }
std::string KeyOf(const EstimateRecord& plan) { return EstimateKey(plan).Padded(); }

template <typename Record>
struct Model : std::vector<Record> {
  static bool IsLower(const Record& one, const Record& other) { return KeyOf(one) < KeyOf(other); }

  std::size_t Add(const Record& record) {
    const auto place = this->insert(std::upper_bound(this->begin(), this->end(), record, IsLower), record);
    return static_cast<std::size_t>(place - this->begin());
  }

  // It moves no further than its key asks for.
  std::size_t Update(std::size_t at, const Record& record) {
    this->at(at) = record;
    for (; at > 0 && IsLower(record, this->at(at - 1)); --at) std::swap(this->at(at), this->at(at - 1));
    for (; at + 1 < this->size() && IsLower(this->at(at + 1), record); ++at) std::swap(this->at(at), this->at(at + 1));
    return at;
  }

  void Delete(std::size_t at) { this->erase(this->begin() + static_cast<std::ptrdiff_t>(at)); }

  // The record file where the records stand in the order of the index.
  [[nodiscard]] std::string Bytes(std::size_t recordSize) const {
    std::string bytes;
    for (const Record& record : *this) bytes += Encoded(record, recordSize);
    return bytes;
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
  std::int32_t RandomCursor(std::size_t count, int first) {
    const int last = static_cast<int>(count) - 1;
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
    return std::any_of(customers_.begin(), customers_.end(), [number](const auto& c) { return c.CustomerRecordNumber == number; });
  }

  void PutPlanCursor() {
    session_.EstimateCursor = RandomCursor<EstimateFiles>(plans_.size(), 0);
    ASSERT_TRUE(MoveEstimate(folder_, session_, 0).hasRecord);
    ASSERT_EQ(session_.CurrentEstimate, plans_[PlanAtCursor()]);
  }

  void PutCustomerCursor() {
    session_.CustomerCursor = RandomCursor<CustomerFiles>(customers_.size(), 1);
    ASSERT_TRUE(ReadCustomerAtCursor(folder_, session_));
  }

  void AddPlan() {
    session_.CurrentEstimate = RandomPlan();
    const std::size_t at = plans_.Add(session_.CurrentEstimate);
    AddEstimate(folder_, session_);
    EXPECT_EQ(PlanAtCursor(), at);
    EXPECT_EQ(session_.CurrentEstimateEntry.RecordPosition, PositionOfRecord<EstimateFiles>(plans_.size() - 1)) << "behind the others";
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
    EXPECT_TRUE(disk_.Bytes(EstimateDataFile) == plans_.Bytes(EstimateRecordSize));
  }

  // Behind all that are not higher.
  void MovePlans(std::int16_t from, std::int16_t to) {
    const auto moves = [from](const EstimateRecord& plan) { return plan.CustomerNumber == from; };
    std::vector<EstimateRecord> moved;
    std::copy_if(plans_.begin(), plans_.end(), std::back_inserter(moved), moves);
    std::erase_if(static_cast<std::vector<EstimateRecord>&>(plans_), moves);
    for (EstimateRecord& plan : moved) {
      plan.CustomerNumber = to;
      plans_.Add(plan);
    }
  }

  void NewCustomer() {
    CustomerRecord blank;
    PadTexts(blank);
    const int last = customers_.back().CustomerRecordNumber;
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
    const bool isNew = session_.customerIsNew;
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
    if (customer.CustomerRecordNumber != old && !isNew) MovePlans(old, number);
  }

  void RemoveCustomer() {
    PutCustomerCursor();
    const std::size_t at = CustomerAtCursor();
    MovePlans(customers_[at].CustomerRecordNumber, 0);
    customers_.Delete(at);
    ASSERT_EQ(DeleteCustomer(folder_, session_), DeleteCustomerResult::Deleted);
    EXPECT_EQ(session_.CustomerCursor, kFirstCustomerPosition);
    EXPECT_TRUE(disk_.Bytes(CustomerDataFile) == customers_.Bytes(CustomerRecordSize));
  }

  void ChangeCompany() {
    OpenCompany(folder_, session_);
    EXPECT_EQ(session_.CurrentCustomer, customers_[0]);
    session_.CurrentCustomer.CustomerName.Assign("Hill Lumber " + std::to_string(++marks_));
    customers_.Update(0, session_.CurrentCustomer);
    SaveCompany(folder_, session_);
    EXPECT_EQ(session_.CompanyRecord, customers_[0]);
    CloseCompany(folder_, session_);
    EXPECT_EQ(session_.CustomerCursor, kFirstCustomerPosition);
  }

  // Plans of one key stand by their position's bytes then, low byte first.
  void Rebuild() {
    RebuildIndexes(folder_);
    const auto rebuilt = ReadAllEstimates("", disk_);
    ASSERT_TRUE(std::is_permutation(rebuilt.begin(), rebuilt.end(), plans_.begin(), plans_.end()));
    plans_.assign(rebuilt.begin(), rebuilt.end());
    const std::string index = disk_.Bytes(EstimateIndexFile);
    for (std::size_t at = 24; at < index.size(); at += 24) ASSERT_LT(index.substr(at - 24, 24), index.substr(at, 24));
  }

  void Agree() {
    ASSERT_TRUE(ReadAllCustomers("", disk_) == customers_);  // too long to be shown
    ASSERT_TRUE(ReadAllEstimates("", disk_) == plans_);
    ASSERT_TRUE(CheckFolder(disk_, "").empty());
    if (customers_.size() > 1) {
      const CustomerIndexEntry& entry = session_.CurrentCustomerEntry;
      ASSERT_EQ(session_.CurrentCustomer, customers_.at(CustomerAtCursor()));
      ASSERT_EQ(Encoded(entry, 6), disk_.Bytes(CustomerIndexFile).substr(6 * CustomerAtCursor(), 6));
      ASSERT_EQ(session_.CustomerRecordCursor, entry.RecordPosition);
    } else {
      ASSERT_EQ(session_.CurrentCustomer, CustomerRecord{});
    }
  }

  MemoryDisk disk_;
  DataFolder folder_{"", disk_};
  Session session_;
  Model<CustomerRecord> customers_;
  Model<EstimateRecord> plans_;
  std::mt19937 random_{20240611};
  int marks_ = 0;
};

TEST_F(FolderModelTest, ThousandsOfRandomOperationsAgreeWithTheModel) {
  for (int step = 0; step < 3000 && !HasFatalFailure(); ++step) {
    SCOPED_TRACE(step);
    // Now and then the folder runs empty, and fills up again.
    const bool fills = step / 500 % 2 == 0;
    const int what = Random(0, 99);
    if (what < (fills ? 30 : 8) || plans_.empty()) {
      AddPlan();
    } else if (what < 45) {
      ChangePlan();
    } else if (what < (fills ? 55 : 65)) {
      DeletePlan();
    } else if (what < (fills ? 80 : 68) || customers_.size() == 1) {
      NewCustomer();
    } else if (what < 86) {
      PutCustomerCursor();
      SaveUnderAnotherNumber();
    } else if (what < (fills ? 90 : 96)) {
      RemoveCustomer();
    } else if (what < 98) {
      ChangeCompany();
    } else {
      Rebuild();
    }
    Agree();
  }
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

TEST_F(FolderSearch, ACustomersNumberIsHisAloneAndWithinItsLimits) {
  ASSERT_EQ(AddBlankCustomer(folder, session), AddCustomer::Added);
  EXPECT_EQ(session.CurrentCustomer.CustomerRecordNumber, 13);
  for (const auto& [number, result] : {std::pair{0, SaveCustomerResult::NumberReserved},
                                       {32767, SaveCustomerResult::NumberReserved},
                                       {7, SaveCustomerResult::NumberInUse},
                                       {32766, SaveCustomerResult::Saved}}) {
    session.CurrentCustomer.CustomerRecordNumber = static_cast<std::int16_t>(number);
    EXPECT_EQ(SaveCustomer(folder, session), result) << number;
  }
  ASSERT_EQ(AddBlankCustomer(folder, session), AddCustomer::Added);
  EXPECT_EQ(session.CurrentCustomer.CustomerRecordNumber, 1);  // the lowest that nobody has
}

TEST_F(FolderSearch, OfTwoCustomersWithOneNumberTheFirstHasThePlans) {
  std::string index = disk->Bytes(CustomerIndexFile);
  index.replace(12, 2, index.substr(6, 2));  // the numbers are 0, 3, 3, 7 and 12 now
  disk->SetBytes(CustomerIndexFile, index);
  const std::unique_ptr<MemoryDisk> damaged = disk->Copy();
  for (const auto& [entry, isDeleted, owner] : {std::tuple{1, false, 50}, {2, false, 3}, {1, true, 0}, {2, true, 3}}) {
    const std::unique_ptr<MemoryDisk> copy = damaged->Copy();
    DataFolder changed("", *copy);
    session.CustomerCursor = 1 + 6 * entry;
    ASSERT_TRUE(ReadCustomerAtCursor(changed, session));
    session.CurrentCustomer.CustomerRecordNumber = 50;
    if (isDeleted) {
      ASSERT_EQ(DeleteCustomer(changed, session), DeleteCustomerResult::Deleted);
    } else {
      ASSERT_EQ(SaveCustomer(changed, session), SaveCustomerResult::Saved);
    }
    const auto plans = ReadEstimatesOfCustomer("", owner, *copy);
    EXPECT_TRUE(std::any_of(plans.begin(), plans.end(), [](const auto& plan) { return plan.RoofSqFt == 2; })) << entry << isDeleted;
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
