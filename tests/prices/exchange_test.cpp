#include "prices/exchange.h"

#include <gtest/gtest.h>

#include "data/index_file.h"
#include "support/random_records.h"

namespace norvale {
namespace {

TEST(Exchange, RecordsOfRandomBytesComeBackAsTheyWere) {
  std::mt19937 random(20260307);
  std::vector<CustomerRecord> customers = {CustomerRecord{}};
  std::vector<EstimateRecord> plans = {EstimateRecord{}};
  for (std::int16_t i = 1; i <= 60; ++i) {
    customers.push_back(RandomCustomer(random, i == 60 ? 32766 : i));
    plans.push_back(RandomPlan(random));
    // Texts whose blanks and bytes of 0 stand in every order at their end, and unused roof rows between used ones.
    plans.back().ReservedText.bytes[41] = plans.back().PlanDate.bytes[9] = ' ';
    customers.back().Note2.bytes[49] = i % 2 == 0 ? '\0' : ' ';
    customers.back().Note2.bytes[48] = i % 3 == 0 ? '\0' : ' ';
    plans.back().RoofPlanes[static_cast<std::size_t>(i)] = {};
    for (std::size_t plane = 63; plane > 64U - static_cast<std::size_t>(i); --plane) plans.back().RoofPlanes[plane] = {};
  }
  const std::string text = ExportTables(customers, plans);
  const ExchangeTables tables = ImportTables(text);
  EXPECT_TRUE(tables.customers == customers);
  ASSERT_EQ(tables.plans.size(), plans.size());
  for (std::size_t i = 0; i < plans.size(); ++i)
    EXPECT_EQ(Encoded(tables.plans[i], EstimateRecordSize), Encoded(plans[i], EstimateRecordSize)) << i;
  EXPECT_TRUE(tables.wasteFactors.empty() && !tables.prices);
}

TEST(Exchange, AFieldLeftOutIsBlankOrZeroAndAFormerNameStillNamesItsField) {
  const auto tables = ImportTables(R"({"customers": [{"CustomerRecordNumber": 3}], "plans": [{"PlanNumber": "Gîte", "Joist5": [1,2,3,4,-5],
      "RoofPlanes": [{"RafterRun": 96}]}], "wasteFactors": {"14": -100}, "prices": [{"PriceItemKey": "A"}]})");
  EXPECT_EQ(tables.customers.at(0).CustomerName.Raw(), std::string(35, ' '));
  const EstimateRecord& plan = tables.plans.at(0);
  EXPECT_EQ(plan.PlanNumber.Raw(), "G\xEEte           ");
  EXPECT_EQ(plan.PriceLevel.Raw(), " ");
  EXPECT_EQ(plan.PlanType, 0);
  EXPECT_EQ(plan.JoistLengthSecondFloor, (FiveRows{1, 2, 3, 4, -5}));
  EXPECT_EQ(plan.RoofPlanes[0].RafterRun, 96);
  EXPECT_EQ(tables.wasteFactors, (std::map<std::size_t, std::int16_t>{{14, -100}}));
  EXPECT_EQ(tables.prices, std::vector{(PriceItem{"A", "", {}, ""})});
}

TEST(Exchange, WhatCannotBeTakenIsRefusedWithItsPlace) {
  std::string roof = R"({"plans": [{"RoofPlanes": [{})";
  for (int i = 1; i < 65; ++i) roof += ",{}";
  std::string prices = R"({"prices": [{})";
  for (int i = 1; i < 1401; ++i) prices += ",{}";
  const struct {
    std::string json;
    std::string place;
  } cases[] = {
      {"", "line 1"},
      {"{\n\"plans\": [\n}", "line 3"},
      {R"({"plans": []} {})", "line 1"},
      {R"({"plans": [{"Disp01": 1, "OutsideCornersFirstFloor": 1}]})", "plans[0].Disp01"},
      {"[]", "the file"},
      {R"({"plan": []})", "plan"},
      {R"({"plans": [{}, 5]})", "plans[1]"},
      {R"({"plans": [{"PlanType": 1, "PlanTyp": 1}]})", "plans[0].PlanTyp"},
      {R"({"plans": [{"PlanType": 1, "PlanType": 2}]})", "PlanType"},
      {R"({"plans": [{"PlanType": "1"}]})", "plans[0].PlanType"},
      {R"({"plans": [{"PlanType": 1.5}]})", "plans[0].PlanType"},
      {R"({"plans": [{"PlanType": null}]})", "plans[0].PlanType"},
      {R"({"plans": [{"PlanType": 32768}]})", "plans[0].PlanType"},
      {R"({"plans": [{"PlanType": 18446744073709551615}]})", "plans[0].PlanType"},
      {R"({"plans": [{"PlanNumber": "1234567890123456"}]})", "plans[0].PlanNumber"},
      {R"({"plans": [{"PlanNumber": "\u4e2d"}]})", "plans[0].PlanNumber"},
      {"{\"plans\": [{\"PlanNumber\": \"\xFF\"}]}", "line 1"},
      {R"({"plans": [{"JoistLengthSecondFloor": [1, 2, 3, 4]}]})", "plans[0].JoistLengthSecondFloor"},
      {R"({"plans": [{"JoistLengthSecondFloor": [1, 2, 3, 4, 5, 6]}]})", "plans[0].JoistLengthSecondFloor"},
      {R"({"plans": [{"JoistLengthSecondFloor": [1, 2, 3, 4, "5"]}]})", "plans[0].JoistLengthSecondFloor[4]"},
      {roof + "]}]}", "plans[0].RoofPlanes"},
      {R"({"plans": [{"RoofPlanes": [{}, {"PitchIndex": 256}]}]})", "plans[0].RoofPlanes[1].PitchIndex"},
      {R"({"plans": [{"RoofPlanes": [{"PitchIndex": -1}]}]})", "plans[0].RoofPlanes[0].PitchIndex"},
      {R"({"plans": [{"RoofPlanes": [{"Pitch": 1}]}]})", "plans[0].RoofPlanes[0].Pitch"},
      {R"({"customers": [{"CustomerRecordNumber": 1e999}]})", "the file"},
      {R"({"customers": [{"CustomerName": )" + std::string(200000, '[') + std::string(200000, ']') + "}]}", "customers[0].CustomerName"},
      {R"({"customers": [{"CustomerRecordNumber": -1}]})", "customers[0].CustomerRecordNumber"},
      {R"({"customers": [{}, {"CustomerRecordNumber": 0}]})", "customers[1].CustomerRecordNumber"},
      {R"({"customers": [{"State": "DEL"}]})", "customers[0].State"},
      {R"({"wasteFactors": []})", "wasteFactors"},
      {R"({"wasteFactors": {"95": 1}})", "wasteFactors.95"},
      {R"({"wasteFactors": {"14": 101}})", "wasteFactors.14"},
      {R"({"prices": [{"PriceItemPrice": ["1"]}]})", "prices[0].PriceItemPrice"},
      {R"({"prices": [{"PriceItemPrice": ["1", "2", "3", "4", 5]}]})", "prices[0].PriceItemPrice[4]"},
      {R"({"prices": [{"PriceItemSku": "123456789012345678901"}]})", "prices[0].PriceItemSku"},
      {R"({"prices": [{"Sku": ""}]})", "prices[0].Sku"},
      {prices + "]}", "prices"},
  };
  for (const auto& c : cases) {
    try {
      (void)ImportTables(c.json);
      ADD_FAILURE() << "taken: " << c.json;
    } catch (const ExchangeError& error) {
      EXPECT_EQ(std::string(error.what()).substr(0, c.place.size() + 2), c.place + ": ") << c.json << "\n" << error.what();
      EXPECT_EQ(std::string(error.what()).find('\n'), std::string::npos) << error.what();
    }
  }
}

}  // namespace
}  // namespace norvale
