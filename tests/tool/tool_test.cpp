// The companion command as a script meets it: its exit status and its two outputs.
#include <gtest/gtest.h>

#include <algorithm>

#include "base/csv.h"
#include "base/text.h"
#include "data/batch_store.h"
#include "data/folder_reader.h"
#include "data/folder_start.h"
#include "prices/delivered.h"
#include "support/random_records.h"
#include "tool/tool_call.h"

namespace norvale {
namespace {

namespace fs = std::filesystem;

class Tool : public testing::Test {
 protected:
  ScratchFolder scratch;
  const fs::path work = scratch / "folder";

  // The folder comes first; "@" in the words stands for the scratch folder.
  Outcome Call(std::string words, const std::string& out = {}) {
    for (std::size_t at = words.find('@'); at != std::string::npos; at = words.find('@', at + 1))
      words.replace(at, 1, scratch.Path().string());
    return CallTool(scratch, words, out);
  }

  Outcome Do(const std::string& words) { return Call("--folder '@/folder' --date 03-07-2026 " + words); }

  // A working folder with the customer 7, who has the plan A.
  void SetUp() override {
    WriteBytes(scratch / "small.json", R"({"customers": [{"CustomerRecordNumber": 7, "CustomerName": "Oak"}],
        "plans": [{"CustomerNumber": 7, "PlanNumber": "A", "PlanType": 4, "RoofSqFt": 2000, "RoofingIndex": 1}]})");
    ASSERT_EQ(Call("new-folder '@/folder'").status, 0);
    ASSERT_EQ(Do("import '@/small.json'").status, 0);
  }

  [[nodiscard]] std::vector<std::string> FourFiles(const fs::path& folder) const {
    std::vector<std::string> bytes;
    for (const auto name : {CustomerDataFile, CustomerIndexFile, EstimateDataFile, EstimateIndexFile})
      bytes.push_back(ReadBytes(folder / name));
    return bytes;
  }
};

TEST_F(Tool, FailuresAreOneLineAndPrintNothing) {
  struct Case {
    const char* spoil;  // shell commands in the working folder
    const char* words;
    const char* what;  // the line holds this
  };
  // The record position of the first plan's entry, and of customer 7's: far behind the end of the file.
  const char* const planNowhere = R"(printf '\001\167\000\000' | dd of=estimate.ix bs=1 seek=20 conv=notrunc status=none)";
  const char* const customerNowhere = R"(printf '\001\167\000\000' | dd of=customer.ix bs=1 seek=8 conv=notrunc status=none)";
  const char* const printA = "print estimate --customer 7 --plan A --prices";
  const Case cases[] = {
      {"rm NVdata03.db", printA, "NVdata03.db: "},
      {"rm NVdata03.db; mkdir NVdata03.db", printA, "NVdata03.db: "},
      {"seq 1401 >NVdata03.db", printA, "NVdata03.db: line 1401"},
      {"head -c 191 /dev/zero >NVdata04.dat", printA, "NVdata04.dat: "},
      {planNowhere, printA, "estimate.ix: "},
      {planNowhere, "export", "estimate.ix: "},
      {customerNowhere, printA, "customer.ix: "},
      {"rm estimate.dbr", printA, "estimate.dbr: "},
      {":", "print estimate --customer 7 --plan B", "plan \"B\" of customer 7: not on file"},
      {":", "print estimate --customer 0 --plan A", "plan \"A\" of customer 0: not on file"},
      {":", "print estimate --customer 7 --plan A234567890123456", "of customer 7: not on file"},
      {":", "print estimate --customer 7 --plan \xE4\xB8\xAD", "--plan: "},
      {":", "print estimate --customer 7 --plan A --output '@/nowhere/list.txt'", "/nowhere/list.txt"},
      {":", "print estimate --customer 7 --plan A --output '@/folder'", "/folder"},
      {"rm NVdata03.db", "print prices", "NVdata03.db: "},
      {"rm NVdata03.db", "print summary --customer 7 --plan A", "NVdata03.db: "},
      {"rm NVdata01.idx", "print worksheet --plan-type 1", "NVdata01.idx: missing or incomplete"},
      {"truncate -s 2800 NVdata02.idx", "print worksheet --plan-type 1", "NVdata02.idx: missing or incomplete"},
      {":", "print summary --customer 7 --plan B", "plan \"B\" of customer 7: not on file"},
      {":", "export --customer 8", "customer 8: not on file"},
      {":", "export --customer 7 --plan B", "plan \"B\" of customer 7: not on file"},
      {":", "import '@/none.json'", "/none.json: "},
      {":", "import '@/folder'", "/folder: "},
      {"echo {} {} >NVdata04.dat", "import '@/folder/NVdata04.dat'", "NVdata04.dat: line 1: "},
      {":", "import '@/bad.json'", "bad.json: plans[1].PlanName: "},
      {"rm NVdata03.db", "prices export", "NVdata03.db: "},
      {":", "prices import '@/none.csv'", "/none.csv: "},
      {":", "prices import '@/small.json'", "small.json: the quotation mark"},
      {":", "prices import '@/sku.csv' --by description", "sku.csv: the file has no column Description"},
      {":", "new-folder '@/folder'", "/folder: "},
      {":", "new-folder '@/small.json/x'", "/small.json/x: "},
  };
  WriteBytes(scratch / "bad.json", R"({"plans": [{"CustomerNumber": 7, "PlanNumber": "N"}, {"PlanName": "B"}]})");
  WriteBytes(scratch / "sku.csv", "SKU,Price\nA,1\n");
  fs::copy(work, scratch / "sound");
  for (const Case& c : cases) {
    fs::remove_all(work);
    fs::copy(scratch / "sound", work);
    ASSERT_EQ(std::system(("cd '" + work.string() + "' && " + c.spoil).c_str()), 0) << c.spoil;
    const auto before = FourFiles(work);
    SCOPED_TRACE(std::string(c.spoil) + " | " + c.words);
    const Outcome outcome = Do(c.words);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err.substr(0, 14), "norvale-tool: ") << outcome.err;
    EXPECT_NE(outcome.err.find(c.what), std::string::npos) << outcome.err;
    EXPECT_NE(outcome.err.find(": ", 14), std::string::npos) << outcome.err;
    EXPECT_EQ(std::count(outcome.err.begin(), outcome.err.end(), '\n'), 1) << outcome.err;
    EXPECT_EQ(FourFiles(work), before);
    EXPECT_FALSE(fs::exists(scratch / "nowhere"));
  }
  const Outcome full = Call("--folder '@/sound' print estimate --customer 7 --plan A", "/dev/full");
  EXPECT_EQ(full.status, 1);
  EXPECT_EQ(full.err.substr(0, 31), "norvale-tool: standard output: ");
}

TEST_F(Tool, EveryListCanBeAPdf) {
  for (const char* list :
       {"estimate --customer 7 --plan A", "summary --customer 7 --plan A", "customers", "estimates", "worksheet --plan-type 8", "prices"}) {
    const Outcome outcome = Do("print " + std::string(list) + " --format pdf");
#ifdef NORVALE_PDF
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(outcome.out.substr(0, 5), "%PDF-") << list;
    EXPECT_EQ(outcome.err, "") << list;
#else
    EXPECT_EQ(outcome.status, 1) << list;
    EXPECT_EQ(outcome.err, "norvale-tool: --format pdf: this norvale-tool was built without Qt, which makes the PDFs\n");
#endif
  }
}

TEST_F(Tool, WrongWordsTellTheUsage) {
  for (const char* words : {"",
                            "prin",
                            "print",
                            "print houses",
                            "print estimate",
                            "print estimate --customer 7",
                            "print estimate --plan A",
                            "print estimate --customer seven --plan A",
                            "print estimate --customer 70000 --plan A",
                            "print estimate --customer 7 --plan A --price",
                            "print estimate --customer 7 --plan A --sections 2048",
                            "print estimate --customer 7 --plan A --sections -1",
                            "print estimate --customer 7 --plan A --format xml",
                            "print estimate --customer 7 --plan A B",
                            "print worksheet",
                            "print worksheet --plan-type 16",
                            "print worksheet --plan-type 8192",
                            "print worksheet --plan-type 1 --kind all",
                            "print summary --customer 7 --plan A --order sku",
                            "export --plan A",
                            "import",
                            "prices",
                            "prices import",
                            "prices import F --by name",
                            "new-folder",
                            "--date 13-01-2026 export",
                            "--date 02-29-2026 export",
                            "--date 00-10-2026 export",
                            "--date 2026-01-02 export",
                            "--date 1-2-2026 export",
                            "--date '' export",
                            "--date 01-02-20x6 export",
                            "--date ' 1- 2-2026' export",
                            "--date +1-02-2026 export"}) {
    const Outcome outcome = Call(std::string("--folder '@/folder' ") + words);
    EXPECT_EQ(outcome.status, 2) << words;
    EXPECT_EQ(outcome.out, "") << words;
    EXPECT_EQ(outcome.err.substr(0, 14), "norvale-tool: ") << words << ": " << outcome.err;
    EXPECT_NE(outcome.err.find("Usage"), std::string::npos) << words << ": " << outcome.err;
  }
}

TEST_F(Tool, PrintsToItsOutputOrIntoAFile) {
  const Outcome sheet = Do("print estimate --customer 7 --plan A --sections 512");
  EXPECT_EQ(sheet.status, 0);
  EXPECT_EQ(sheet.err, "");
  EXPECT_EQ(sheet.out.substr(0, 10), "03-07-2026");
  EXPECT_TRUE(sheet.out.ends_with("End of Specifications\n\n\f")) << sheet.out;
  EXPECT_EQ(sheet.out.find("ITEMIZED LIST"), std::string::npos);
  EXPECT_EQ(Do("print estimate --customer 7 --plan A --sections 512 --copies 2").out, sheet.out + sheet.out);
  EXPECT_EQ(Do("print estimate --customer 7 --plan A --sections 512 --copies 0").out, sheet.out);

  const Outcome filed = Do("print estimate --customer 7 --plan A --sections 512 --output '@/list.txt'");
  EXPECT_EQ(filed.status, 0);
  EXPECT_EQ(filed.out + filed.err, "");
  EXPECT_EQ(ReadBytes(scratch / "list.txt"), sheet.out);

  fs::remove(work / "NVdata03.db");  // is not needed without prices
  WriteBytes(work / "NVdata04.dat", std::string(3, '\0'));
  EXPECT_EQ(Do("print estimate --customer 7 --plan A").status, 0);
  WriteBytes(work / "NVdata03.db", "");
  const Outcome unpriced = Do("print estimate --customer 7 --plan A --prices");
  EXPECT_EQ(unpriced.status, 0);
  EXPECT_EQ(unpriced.out, Do("print estimate --customer 7 --plan A").out);
}

TEST_F(Tool, ExportThenImportGivesTheSameFiles) {
  std::mt19937 random(7);
  std::vector<CustomerRecord> customers;
  for (const int number : {0, 31, 4, 32766}) customers.push_back(RandomCustomer(random, static_cast<std::int16_t>(number)));
  std::vector<EstimateRecord> plans;
  for (int i = 0; i < 40; ++i) {
    plans.push_back(RandomPlan(random));
    if (i % 4 == 0) plans.back().CustomerNumber = static_cast<std::int16_t>(i % 8 == 0 ? 4 : 99);  // 99 is not on file
    if (i % 8 == 0) plans.back().PlanNumber.Assign("TWICE");
  }
  {
    DataFolder folder(work);
    Session session;
    (void)StartFolder(folder, session);
    StoreAll(folder, customers, plans);
  }
  const auto plansHere = ReadAllEstimates(work);
  ASSERT_EQ(plansHere.size(), plans.size() + 1);

  const Outcome exported = Do("export");
  ASSERT_EQ(exported.status, 0) << exported.err;
  WriteBytes(scratch / "all.json", exported.out);
  for (const char* name : {"second", "third"}) {
    fs::create_directory(scratch / name);
    const std::string there = std::string("--folder '@/") + name + "' ";
    const Outcome imported = Call(there + "import '@/all.json'");
    ASSERT_EQ(imported.status, 0) << imported.err;
    EXPECT_EQ(imported.out + imported.err, "");
    EXPECT_TRUE(Call(there + "export").out == exported.out) << name;
    EXPECT_TRUE(ReadAllEstimates(scratch / name) == plansHere) << name;
    EXPECT_TRUE(ReadAllCustomers(scratch / name) == ReadAllCustomers(work)) << name;
    WriteBytes(scratch / "all.json", Call(there + "export").out);
  }
  EXPECT_TRUE(FourFiles(scratch / "second") == FourFiles(scratch / "third"));
  // The index is the same but for where the records lie; once they lie in its order, importing again changes nothing.
  ASSERT_EQ(Call("--folder '@/second' import '@/all.json'").status, 0);
  EXPECT_TRUE(FourFiles(scratch / "second") == FourFiles(scratch / "third"));
}

TEST_F(Tool, PricesComeFromATableAndShowInTheNextPrint) {
  EXPECT_EQ(Do("prices export --output '@/list.csv'").out, "");
  const std::string file = ReadBytes(work / "NVdata03.db");
  const auto printed = [this] { return Do("print estimate --customer 7 --plan A --prices").out; };
  const std::string before = printed();
  ASSERT_EQ(before.find("7,654.32"), std::string::npos);
  const std::string list = ReadBytes(scratch / "list.csv");
  EXPECT_EQ(Do("prices export").out, list);
  std::string update = "Description,Price 1\n";
  for (const PriceItem& item : DeliveredPrices().Items()) update += CsvCell(ToUtf8(item.PriceItemKey)) + ",7654.32\n";
  WriteBytes(scratch / "update.csv", update + "NOTHING OF OURS,1\n");
  const Outcome tried = Do("prices import '@/update.csv' --dry-run");
  EXPECT_EQ(tried.status, 0);
  EXPECT_EQ(ReadBytes(work / "NVdata03.db"), file);
  EXPECT_EQ(printed(), before);
  const Outcome done = Do("prices import '@/update.csv'");
  EXPECT_EQ(done.status, 0) << done.err;
  EXPECT_EQ(done.out, tried.out);
  EXPECT_NE(done.out.find("NOTHING OF OURS: no item has this description\n"), std::string::npos);
  EXPECT_NE(printed().find("7,654.32"), std::string::npos);
  // The list from before brings the file back as it was.
  EXPECT_EQ(Do("prices import '@/list.csv' --by sku").status, 0);
  EXPECT_EQ(ReadBytes(work / "NVdata03.db"), file);
  WriteBytes(scratch / "update.csv", "SKU,Price 1\nNONE,1\n");
  const Outcome none = Do("prices import '@/update.csv'");
  EXPECT_EQ(none.status, 1);
  EXPECT_NE(none.err.find("update.csv: no row names an item of the price list\n"), std::string::npos) << none.err;
}

}  // namespace
}  // namespace norvale
