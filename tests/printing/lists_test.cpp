#include "printing/lists.h"

#include <gtest/gtest.h>

#include <sstream>

namespace norvale {
namespace {

CustomerRecord Customer(int number, std::string_view name) {
  CustomerRecord customer;
  customer.CustomerRecordNumber = static_cast<std::int16_t>(number);
  customer.CustomerName.Assign(name);
  return customer;
}

EstimateRecord Plan(std::string_view number, int type) {
  EstimateRecord plan;
  plan.PlanNumber.Assign(number);
  plan.PlanDate.Assign("01-02-2026");
  plan.PlanType = static_cast<std::int16_t>(type);
  return plan;
}

std::vector<std::string> LinesOf(const Page& page) {
  std::vector<std::string> lines;
  std::istringstream text(page.Text());
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  return lines;
}

TEST(Lists, ACustomersRowKeepsAllOfItsTexts) {
  CustomerRecord wide = Customer(7, "Oak Street Builders of Dover DE");
  wide.Contact.Assign("Bartholomew-Christiansen");  // no blank to part it at
  wide.Telephone.Assign("302-555-0101");
  wide.Fax.Assign("302-555-0102");
  Page page;
  PrintCustomerList({Customer(0, "The company"), Customer(3, "Hill Homes"), wide, Customer(30, "Out of range")}, {3, 29}, page);
  EXPECT_EQ(page.Text(),
            "CUSTOMER LIST                                                           Page 01\n"
            "\n"
            "  #  Customer Name               Contact          Telephone #    Fax #\n"
            "\n"
            "0003 Hill Homes\n"
            "0007 Oak Street Builders of      Bartholomew-Chri 302-555-0101   302-555-0102\n"
            "     Dover DE                    stiansen\n"
            "\f");
}

TEST(Lists, PlansStandUnderTheirCustomer) {
  CustomerRecord customer = Customer(7, "Oak Street Builders");
  customer.AddressLine1.Assign("1 Oak St");
  customer.AddressLine2.Assign("Rear");
  customer.City.Assign("Dover");
  customer.State.Assign("DE");
  customer.Zip.Assign("19901");
  Page page;
  PrintEstimateList({{Customer(2, "Before"), {}}, {customer, {Plan("A-12", 658), Plan(" B", 1)}}}, {5, 32767}, page);
  EXPECT_EQ(page.Text(),
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
            "\f");
}

// No line is too wide, no page too long, no row parted, and every page has its heading.
TEST(Lists, PagesTurnBetweenRows) {
  std::vector<CustomerRecord> customers;
  std::vector<CustomerPlans> withPlans;
  for (int number = 1; number <= 200; ++number) {
    customers.push_back(Customer(number, number % 3 == 0 ? "A name that takes two lines wide" : "Short"));
    withPlans.push_back({customers.back(), std::vector(static_cast<std::size_t>(number % 7), Plan("P", number % 2 == 0 ? 658 : 1))});
  }
  Page customerPage;
  PrintCustomerList(customers, {}, customerPage);
  Page planPage;
  PrintEstimateList(withPlans, {1, 150}, planPage);
  for (const Page* page : {&customerPage, &planPage}) {
    int pages = 0;
    int lines = 0;
    for (std::string line : LinesOf(*page)) {
      if (line.starts_with('\f')) {
        line.erase(0, 1);
        lines = 0;
      }
      if (line.empty() && lines == 0) break;  // behind the last page
      ++lines;
      EXPECT_LE(line.size(), 80U) << line;
      EXPECT_LE(lines, 66);
      if (lines == 1) {
        ++pages;
        EXPECT_TRUE(line.ends_with((pages < 10 ? "Page 0" : "Page ") + std::to_string(pages))) << line;
      }
      // The second line of a row never comes first on a page.
      EXPECT_FALSE(lines <= 3 && line.starts_with("     ")) << line;
    }
    EXPECT_GT(pages, 4);
  }
}

}  // namespace
}  // namespace norvale
