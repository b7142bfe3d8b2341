#include "printing/lists.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/batch_store.h"
#include "data/folder_start.h"
#include "support/scratch_folder.h"

namespace norvale {
namespace {

using testing::ElementsAre;

CustomerRecord Customer(int number, std::string_view name) {
  CustomerRecord customer;
  customer.CustomerRecordNumber = static_cast<std::int16_t>(number);
  customer.CustomerName.Assign(name);
  return customer;
}

EstimateRecord Plan(int customer, std::string_view number) {
  EstimateRecord plan;
  plan.CustomerNumber = static_cast<std::int16_t>(customer);
  plan.PlanNumber.Assign(number);
  return plan;
}

ListedPlan Listed(const std::string& number, int type) { return {number, "01-02-2026", static_cast<std::int16_t>(type)}; }

TEST(Lists, ACustomersRowKeepsAllOfItsTexts) {
  CustomerRecord wide = Customer(7, "Oak Street Builders of Dover DE");
  wide.Contact.Assign("Bartholomew-Christiansen");  // no blank to part it at
  wide.Telephone.Assign("302-555-0101");
  wide.Fax.Assign("302-555-0102");
  EXPECT_EQ(DocumentText(CustomerListDocument({Customer(3, "Hill Homes"), wide})),
            "CUSTOMER LIST                                                           Page 01\n"
            "\n"
            "  #   Customer Name               Contact          Telephone #    Fax #\n"
            "\n"
            "0003  Hill Homes\n"
            "0007  Oak Street Builders of      Bartholomew-Chri 302-555-0101   302-555-0102\n"
            "      Dover DE                    stiansen\n"
            "\f");
}

TEST(Lists, PlansStandUnderTheirCustomer) {
  CustomerRecord customer = Customer(7, "Oak Street Builders");
  customer.AddressLine1.Assign("1 Oak St");
  customer.AddressLine2.Assign("Rear");
  customer.City.Assign("Dover");
  customer.State.Assign("DE");
  customer.Zip.Assign("19901");
  EXPECT_EQ(
      DocumentText(EstimateListDocument({{customer, true, {Listed("A-12", 658), Listed(" B", 1)}}, {Customer(9, ""), false, {}}}, {5})),
      "ESTIMATE LIST: Customer 5 to LAST                                       Page 01\n"
      "\n"
      "CUSTOMER NAME: 0007  Oak Street Builders\n"
      "      ADDRESS: 1 Oak St\n"
      "               Rear\n"
      "CITY, ST  ZIP: Dover, DE  19901\n"
      " PLAN: 2S Slab W/ Att Garage, Porch(s), Exterior Brick Veneer\n"
      "                           PLAN NUMBER: A-12            DATE OF PLAN: 01-02-2026\n"
      " PLAN: 1S Slab             PLAN NUMBER:  B              DATE OF PLAN: 01-02-2026\n"
      "\n"
      "CUSTOMER NAME: 0009  (not on file)\n"
      "      ADDRESS:\n"
      "CITY, ST  ZIP:\n"
      "\f");
}

// No line is too wide, no page too long, no row parted, and every page has its heading.
TEST(Lists, PagesTurnBetweenRows) {
  std::vector<CustomerRecord> customers;
  std::vector<CustomerPlans> withPlans;
  for (int number = 1; number <= 200; ++number) {
    customers.push_back(Customer(number, number % 3 == 0 ? "A name that takes two lines wide" : "Short"));
    withPlans.push_back(
        {customers.back(), true, std::vector(static_cast<std::size_t>(number % 7), Listed("P", number % 2 == 0 ? 658 : 1))});
  }
  for (const auto& [list, rowBegin] :
       {std::pair{CustomerListDocument(customers), "0"}, std::pair{EstimateListDocument(withPlans, {1, 150}), "CUSTOMER NAME: "}}) {
    EXPECT_GT(list.pages.size(), 4U);
    for (std::size_t number = 1; number <= list.pages.size(); ++number) {
      const PageText& page = list.pages[number - 1];
      EXPECT_LE(page.size(), kPaperLines);
      EXPECT_TRUE(page.front().ends_with((number < 10 ? "Page 0" : "Page ") + std::to_string(number))) << page.front();
      EXPECT_TRUE(page.at(*rowBegin == '0' ? 4 : 2).starts_with(rowBegin)) << "a row goes on at the head of page " << number;
      for (const std::string& line : page) EXPECT_LE(line.size(), kPaperColumns) << line;
    }
  }
}

class ListedFolder : public testing::Test {
 protected:
  void Store(const std::vector<CustomerRecord>& customers, const std::vector<EstimateRecord>& plans) {
    DataFolder folder(scratch_.Path());
    Session session;
    (void)StartFolder(folder, session);
    StoreAll(folder, customers, plans);
  }

  // "7 Oak: A B" for each customer with his plans.
  std::vector<std::string> Read(CustomerRange range) {
    std::vector<std::string> told;
    const auto listed = ReadPlansToList(scratch_.Path(), range);
    for (const CustomerPlans& customer : listed.value()) {
      told.push_back(std::to_string(customer.customer.CustomerRecordNumber) + " " + customer.customer.CustomerName.Trimmed() +
                     (customer.isOnFile ? ":" : "?"));
      for (const ListedPlan& plan : customer.plans) told.back() += " " + plan.PlanNumber;
    }
    return told;
  }

  ScratchFolder scratch_;
};

TEST_F(ListedFolder, EveryPlanIsListedOnce) {
  Store({Customer(0, "Company"), Customer(3, "Hill"), Customer(7, "Oak"), Customer(12, "Elm")},
        {Plan(7, "B"), Plan(0, "M"), Plan(9, "Q"), Plan(7, "A"), Plan(12, "Z"), Plan(7, " C")});
  EXPECT_THAT(Read(kEverybody), ElementsAre("0 Company: M", "3 Hill:", "7 Oak:  C A B", "9 ? Q", "12 Elm: Z"));
  EXPECT_THAT(Read({4, 9}), ElementsAre("7 Oak:  C A B", "9 ? Q"));
  EXPECT_THAT(Read({13, 20}), ElementsAre());
  std::vector<int> numbers;
  const auto customers = ReadCustomersToList(scratch_.Path(), kEverybody);
  ASSERT_TRUE(customers);
  for (const CustomerRecord& customer : *customers) numbers.push_back(customer.CustomerRecordNumber);
  EXPECT_THAT(numbers, ElementsAre(3, 7, 12));
}

TEST_F(ListedFolder, AFolderWithoutCustomersHasItsOwnAnswer) {
  EXPECT_EQ(ReadCustomersToList(scratch_.Path(), kEverybody), std::nullopt);
  EXPECT_FALSE(ReadPlansToList(scratch_.Path(), kEverybody).has_value());
  Store({Customer(0, "Company")}, {Plan(0, "M")});
  EXPECT_EQ(ReadCustomersToList(scratch_.Path(), kEverybody), std::nullopt);
  EXPECT_FALSE(ReadPlansToList(scratch_.Path(), {}).has_value());
  EXPECT_THAT(Read(kEverybody), ElementsAre("0 Company: M"));
}

}  // namespace
}  // namespace norvale
