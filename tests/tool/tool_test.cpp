// The companion command as a script meets it: its exit status and its two outputs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>

#include "base/csv.h"
#include "base/text.h"
#include "data/backup.h"
#include "data/batch_store.h"
#include "data/folder_reader.h"
#include "prices/delivered.h"
#include "prices/waste_factors.h"
#include "support/random_records.h"
#include "support/scratch_folder.h"

namespace norvale {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;
using testing::StartsWith;

struct Outcome {
  int status = -1;
  std::string out;
  std::string err;
};

class Tool : public testing::Test {
 protected:
  // Runs the command with these words of a shell, where "@" stands for the scratch folder.
  Outcome Call(const std::string& words, const std::string& output = "@/out") {
    std::string command = std::string("'") + NORVALE_TOOL + "' " + words + " >'" + output + "' 2>'@/err'";
    for (std::size_t at = command.find('@'); at != std::string::npos; at = command.find('@', at + 1))
      command.replace(at, 1, scratch.Path().string());
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadBytes(scratch / "out"), ReadBytes(scratch / "err")};
  }

  Outcome Do(const std::string& words) { return Call("--folder '@/folder' --date 03-07-2026 " + words); }

  // What a call prints that succeeds.
  std::string Out(const std::string& words) {
    const Outcome outcome = Do(words);
    EXPECT_EQ(outcome.status, 0) << words;
    EXPECT_EQ(outcome.err, "") << words;
    return outcome.out;
  }

  // A working folder with the customers 3 and 7, who has the plan B and two plans A.
  void SetUp() override {
    WriteBytes(scratch / "small.json",
               R"({"customers": [{"CustomerRecordNumber": 3}, {"CustomerRecordNumber": 7, "CustomerName": "Oak"}],
                   "plans": [{"CustomerNumber": 7, "PlanNumber": "B"},
                             {"CustomerNumber": 7, "PlanNumber": "A", "PlanType": 4, "RoofSqFt": 2000, "RoofingIndex": 1},
                             {"CustomerNumber": 7, "PlanNumber": "A"}]})");
    ASSERT_EQ(Call("new-folder '@/folder'").status, 0);
    ASSERT_EQ(Do("import '@/small.json'").status, 0);
  }

  [[nodiscard]] static std::vector<std::string> FourFiles(const fs::path& folder) {
    std::vector<std::string> bytes;
    for (const auto name : {CustomerDataFile, CustomerIndexFile, EstimateDataFile, EstimateIndexFile})
      bytes.push_back(ReadBytes(folder / name));
    return bytes;
  }

  ScratchFolder scratch;
  const fs::path work = scratch / "folder";
  const std::string printA = "print estimate --customer 7 --plan A";
};

TEST_F(Tool, FailuresAreOneLineAndChangeNothing) {
  // The record position of the first plan's entry, and of customer 7's: far behind the end of the file.
  const std::string planNowhere = R"(printf '\001\167\000\000' | dd of=estimate.ix bs=1 seek=20 conv=notrunc status=none)";
  const std::string customerNowhere = R"(printf '\001\167\000\000' | dd of=customer.ix bs=1 seek=14 conv=notrunc status=none)";
  const std::string tail = "estimate.dbr: the last 3 bytes, from position 4387, are no whole record";
  const struct {
    std::string spoil;  // shell commands in the working folder
    std::string words;
    std::string what;  // the line holds this
  } cases[] = {
      {"rm NVdata03.db", printA + " --prices", "NVdata03.db: "},
      {"rm NVdata03.db; mkdir NVdata03.db", printA + " --prices", "NVdata03.db: "},
      {"seq 1401 >NVdata03.db", printA + " --prices", "NVdata03.db: line 1401"},
      {"head -c 191 /dev/zero >NVdata04.dat", printA, "NVdata04.dat: "},
      {planNowhere, printA, "estimate.ix: "},
      {planNowhere, "export", "estimate.ix: "},
      {customerNowhere, printA, "customer.ix: "},
      {"rm estimate.dbr", printA, "estimate.dbr: "},
      {"rm estimate.ix", "export", "estimate.ix: does not name every record"},
      {"truncate -s 24 estimate.ix", "print estimate --customer 7 --plan B", "estimate.ix: does not name every record"},
      {"rm customer.ix", "print customers", "customer.ix: does not name every record"},
      {"rm -r ../folder", "export", "/folder: there is no such folder"},
      {":", "print estimate --customer 7 --plan N", "plan \"N\" of customer 7: not on file"},
      {":", "print estimate --customer 7 --plan A234567890123456", "of customer 7: not on file"},
      {":", "print estimate --customer 7 --plan \xE4\xB8\xAD", "--plan: "},
      {":", printA + " --output '@/nowhere/list.txt'", "/nowhere/list.txt"},
      {":", printA + " --output '@/folder'", "/folder"},
      {"rm NVdata03.db", "print prices", "NVdata03.db: "},
      {"rm NVdata03.db", "print summary --customer 7 --plan A", "NVdata03.db: "},
      {"rm NVdata01.idx", "print worksheet --plan-type 1", "NVdata01.idx: missing or incomplete"},
      {"truncate -s 2800 NVdata02.idx", "print worksheet --plan-type 1", "NVdata02.idx: missing or incomplete"},
      {"rm customer.*", "print customers", "customer.db: Customer File Is EMPTY!"},
      {"rm customer.* estimate.*", "print estimates --to 9", "customer.db: Customer File Is EMPTY!"},
      {":", "export --customer 8", "customer 8: not on file"},
      {":", "export --customer 7 --plan N", "plan \"N\" of customer 7: not on file"},
      {":", "import '@/none.json'", "/none.json: "},
      {":", "import '@/folder'", "/folder: "},
      {"echo {} {} >NVdata04.dat", "import '@/folder/NVdata04.dat'", "NVdata04.dat: line 1: "},
      {":", "import '@/bad.json'", "bad.json: plans[1].PlanName: "},
      {"printf xyz >>estimate.dbr", "import '@/small.json'", "/folder: the data files are damaged; \"check\" tells where"},
      {"rm NVdata03.db", "prices export", "NVdata03.db: "},
      {":", "prices import '@/none.csv'", "/none.csv: "},
      {":", "prices import '@/small.json'", "small.json: the quotation mark"},
      {":", "prices import '@/sku.csv' --by description", "sku.csv: the file has no column Description"},
      {":", "new-folder '@/folder'", "/folder: the folder is not empty"},
      {":", "new-folder '@/small.json/x'", "/small.json/x: "},
      {":", "delete customer 8", "customer 8: not on file"},
      {":", "delete plan --customer 3 --plan A", "plan \"A\" of customer 3: not on file"},
      {"printf xyz >>estimate.dbr", "delete customer 3", "/folder: " + tail + "; \"check --repair\" can mend it"},
      {":", "restore none", "none: there is no backup of that name"},
  };
  WriteBytes(scratch / "bad.json", R"({"plans": [{"CustomerNumber": 7, "PlanNumber": "N"}, {"PlanName": "B"}]})");
  WriteBytes(scratch / "sku.csv", "SKU,Price\nA,1\n");
  fs::copy(work, scratch / "sound");
  for (const auto& [spoil, words, what] : cases) {
    SCOPED_TRACE(spoil + " | " + words);
    fs::remove_all(work);
    fs::copy(scratch / "sound", work);
    ASSERT_EQ(std::system(("cd '" + work.string() + "' && " + spoil).c_str()), 0);
    const auto before = FourFiles(work);
    const Outcome outcome = Do(words);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, AllOf(HasSubstr(what), MatchesRegex("norvale-tool: [^\n]*: [^\n]*\n")));
    EXPECT_EQ(FourFiles(work), before);
    EXPECT_FALSE(fs::exists(scratch / "nowhere"));
  }
  for (const std::string& words : {std::string("check"), printA}) {  // little and much
    const Outcome full = Call("--folder '@/sound' " + words, "/dev/full");
    EXPECT_EQ(full.status, 1) << words;
    EXPECT_THAT(full.err, StartsWith("norvale-tool: standard output: "));
  }
}

TEST_F(Tool, WrongWordsTellTheUsage) {
  const auto expect = [this](const std::string& first, std::initializer_list<const char*> endings) {
    for (const std::string ending : endings) {
      const Outcome outcome = Call("--folder '@/folder' " + first + ending);
      EXPECT_EQ(outcome.status, 2) << first << ending;
      EXPECT_EQ(outcome.out, "") << first << ending;
      EXPECT_THAT(outcome.err, AllOf(StartsWith("norvale-tool: "), HasSubstr("Usage"))) << first << ending;
    }
  };
  expect("", {"", "print", "import", "export --plan A", "new-folder", "delete", "delete customer 0"});  // the company stays
  expect("print estimate ", {"--customer 7", "--plan A", "--customer 70000 --plan A"});
  expect(printA, {" --sections 2048", " --sections -1", " --format xml", " --plan B"});
  expect("print summary --customer 7 --plan A ", {"--order sku"});
  expect("print worksheet ", {"", "--plan-type 16", "--plan-type 8192", "--plan-type 4097", "--plan-type 1 --kind all"});
  expect("print ", {"customers --from 9 --to 3", "customers --from 0", "estimates --to 32768"});
  expect("prices ", {"", "import", "import F --by name"});
  expect("--date ", {"13-01-2026 export", "02-29-2026 export", "' 1- 2-2026' export", "+1-02-2026 export"});
}

TEST_F(Tool, PrintsToItsOutputOrIntoAFile) {
  const std::string sheet = Out(printA + " --sections 512");
  EXPECT_THAT(sheet, AllOf(StartsWith("03-07-2026"), EndsWith("End of Specifications\n\n\f"), Not(HasSubstr("ITEMIZED LIST"))));
  EXPECT_EQ(Out(printA + " --sections 512 --copies 2"), sheet + sheet);
  EXPECT_EQ(Out(printA + " --sections 512 --copies 0"), sheet);
  EXPECT_EQ(Out(printA + " --sections 512 --output '@/list.txt'"), "");
  EXPECT_EQ(ReadBytes(scratch / "list.txt"), sheet);

  fs::remove(work / "NVdata03.db");  // is not needed without prices
  WriteBytes(work / "NVdata04.dat", std::string(3, '\0'));
  const std::string unpriced = Out(printA);
  WriteBytes(work / "NVdata03.db", "");
  EXPECT_EQ(Out(printA + " --prices"), unpriced);
}

TEST_F(Tool, PrintsTheListsOfTheFolder) {
  EXPECT_THAT(Out("print customers --from 4"), AllOf(StartsWith("CUSTOMER LIST"), HasSubstr("Oak")));
  EXPECT_EQ(Out("print estimates --to 7 --output '@/list'"), "");
  EXPECT_THAT(ReadBytes(scratch / "list"), StartsWith("ESTIMATE LIST: Customer 1 to 7"));
  EXPECT_THAT(Out("print estimates --format csv"), StartsWith("customer,customer name,"));
  EXPECT_EQ(Out("delete customer 3") + Out("delete customer 7"), "");
  EXPECT_THAT(Out("print estimates"), StartsWith("ESTIMATE LIST: Customer 1 to LAST"));  // the company has the plans now
}

TEST_F(Tool, EveryListCanBeAPdf) {
  for (const char* list :
       {"estimate --customer 7 --plan A", "summary --customer 7 --plan A", "customers", "estimates", "worksheet --plan-type 8", "prices"}) {
    const std::string words = "print " + std::string(list) + " --format pdf";
#ifdef NORVALE_PDF
    EXPECT_THAT(Out(words), StartsWith("%PDF-")) << list;
#else
    EXPECT_EQ(Do(words).err, "norvale-tool: --format pdf: this norvale-tool was built without Qt, which makes the PDFs\n");
#endif
  }
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
    StoreAll(folder, customers, plans);
  }
  const std::string exported = Out("export");
  WriteBytes(scratch / "all.json", exported);
  for (const char* name : {"second", "third"}) {
    fs::create_directory(scratch / name);
    const std::string there = std::string("--folder '@/") + name + "' ";
    // The second import finds every record on file, in the order of the index.
    for (int times = 0; times < 2; ++times) {
      const Outcome imported = Call(there + "import '@/all.json'");
      EXPECT_EQ(imported.status, 0);
      EXPECT_EQ(imported.out + imported.err, "");
    }
    WriteBytes(scratch / "all.json", Call(there + "export").out);
    EXPECT_TRUE(ReadBytes(scratch / "all.json") == exported) << name;
    EXPECT_TRUE(ReadAllEstimates(scratch / name) == ReadAllEstimates(work)) << name;
    EXPECT_TRUE(ReadAllCustomers(scratch / name) == ReadAllCustomers(work)) << name;
  }
  EXPECT_TRUE(FourFiles(scratch / "second") == FourFiles(scratch / "third"));
}

TEST_F(Tool, PricesComeFromATableAndShowInTheNextPrint) {
  EXPECT_EQ(Out("prices export --output '@/list.csv'"), "");
  EXPECT_EQ(Out("prices export"), ReadBytes(scratch / "list.csv"));
  EXPECT_EQ(Out("print prices --format csv"), ReadBytes(scratch / "list.csv"));
  const std::string file = ReadBytes(work / "NVdata03.db");
  std::string update = "Description,Price 1\n";
  for (const PriceItem& item : DeliveredPrices().Items()) update += CsvCell(ToUtf8(item.PriceItemKey)) + ",7654.32\n";
  WriteBytes(scratch / "update.csv", update + "NOTHING OF OURS,1\n");
  const std::string told = Out("prices import '@/update.csv' --dry-run");
  EXPECT_THAT(told, HasSubstr("NOTHING OF OURS: no item has this description\n"));
  EXPECT_EQ(ReadBytes(work / "NVdata03.db"), file);
  EXPECT_EQ(Out("prices import '@/update.csv'"), told);
  EXPECT_THAT(Out(printA + " --prices"), HasSubstr("7,654.32"));
  // The list from before brings the file back as it was.
  (void)Out("prices import '@/list.csv' --by sku");
  EXPECT_EQ(ReadBytes(work / "NVdata03.db"), file);
  // Texts and prices of 0 are taken where that is said.
  WriteBytes(scratch / "update.csv", "Description,SKU,Price 1\n" + CsvCell(ToUtf8(DeliveredPrices().Items()[0].PriceItemKey)) + ",NEW,0\n");
  (void)Out("prices import '@/update.csv'");
  EXPECT_EQ(ReadBytes(work / "NVdata03.db"), file);
  (void)Out("prices import '@/update.csv' --texts");
  const std::string renamed = Out("prices export");
  EXPECT_THAT(renamed, HasSubstr(",NEW,"));
  (void)Out("prices import '@/update.csv' --zero-prices");
  EXPECT_NE(Out("prices export"), renamed);
  WriteBytes(scratch / "update.csv", "SKU,Price 1\nNONE,1\n");
  const Outcome none = Do("prices import '@/update.csv'");
  EXPECT_EQ(none.status, 1);
  EXPECT_THAT(none.err, HasSubstr("update.csv: no row names an item of the price list\n"));
}

TEST_F(Tool, AnImportLeavesTheWasteFactorsThatItDoesNotName) {
  WriteBytes(scratch / "waste.json", R"({"wasteFactors": {"12": 3}})");
  EXPECT_EQ(Out("import '@/waste.json'"), "");
  WriteBytes(scratch / "waste.json", R"({"wasteFactors": {"45": 7}})");
  EXPECT_EQ(Out("import '@/waste.json'"), "");
  WasteFactors expected = DesignTimeWasteFactors();
  expected.percent[12] = 3;
  expected.percent[45] = 7;
  EXPECT_EQ(LoadWasteFactors(work), expected);
}

TEST_F(Tool, DeleteTakesTheFirstOfSeveralPlansAndLeavesPlansToTheCompany) {
  EXPECT_EQ(Out("delete plan --customer 7 --plan A"), "");
  const auto left = ReadEstimatesOfCustomer(work, 7);
  ASSERT_EQ(left.size(), 2U);
  EXPECT_EQ(left[0].RoofSqFt, 0);
  EXPECT_EQ(Out("delete customer 7"), "");
  EXPECT_EQ(ReadEstimatesOfCustomer(work, 0).size(), 2U);
}

TEST_F(Tool, CheckTellsAndRepairMends) {
  EXPECT_EQ(Out("check"), "no faults\n");
  WriteBytes(work / "estimate.dbr", ReadBytes(work / "estimate.dbr") + "xyz");
  const std::string fault = "estimate.dbr: the last 3 bytes, from position 4387, are no whole record\n";
  const Outcome told = Do("check");
  EXPECT_EQ(told.status, 1);
  EXPECT_EQ(told.out, fault);
  EXPECT_EQ(told.err, "norvale-tool: " + work.string() + ": 1 fault\n");
  EXPECT_EQ(Out("check --repair"), fault + "1 fault mended\n");
  EXPECT_EQ(ReadBytes(work / "estimate.rest"), "xyz");
  EXPECT_EQ(Out("check"), "no faults\n");

  const std::string lines = ReadBytes(work / "NVdata01.idx");
  const struct {
    const char* name;
    std::string bytes;
    std::string fault;
  } others[] = {
      {"NVdata04.dat", std::string(192, ' '), "NVdata04.dat: "},
      {"NVdata01.idx", lines + "junk", "the last 4 bytes, from position 8555, are no whole row"},
      {"NVdata01.idx", lines.substr(91), "NVdata01.idx: incomplete; no plan can be opened"},
      {"NVdata02.idx", ReadBytes(work / "NVdata02.idx").substr(0, 2800), "NVdata02.idx: incomplete; no plan can be opened"},
      {"norvale.draft", "xx", "norvale.draft: cannot be read"},
  };
  for (const auto& [name, bytes, found] : others) {
    SCOPED_TRACE(found);
    const std::string before = ReadBytes(work / name);
    WriteBytes(work / name, bytes);
    const Outcome other = Do("check --repair");  // no repair for these, and no silence
    EXPECT_EQ(other.status, 1);
    EXPECT_THAT(other.out, HasSubstr(found));
    WriteBytes(work / name, before);
  }
}

TEST_F(Tool, BackupsAreMadeListedAndBroughtBack) {
  const std::string made = Out("backup");
  EXPECT_THAT(made, EndsWith("-hand  customers 2, plans 3\n"));
  EXPECT_EQ(Out("backup"), "nothing has changed since\n" + made);
  const auto before = FourFiles(work);
  EXPECT_EQ(Out("delete customer 3"), "");
  EXPECT_EQ(Out("backup --list"), made);
  EXPECT_EQ(Out("restore " + made.substr(0, made.find(' '))), "");
  EXPECT_EQ(FourFiles(work), before);
  EXPECT_THAT(Out("backup --list"), EndsWith("-restore  customers 1, plans 3\n" + made));
}

TEST_F(Tool, RebuildBringsLostIndexesBack) {
  const auto before = FourFiles(work);
  WriteBytes(work / "customer.ix", "");
  WriteBytes(work / "estimate.ix", before[3].substr(24));
  EXPECT_EQ(Out("rebuild"), "");
  EXPECT_EQ(ReadBytes(work / "customer.ix"), before[1]);
  EXPECT_EQ(Out("check"), "no faults\n");
}

TEST_F(Tool, AFolderInUseIsRefused) {
  const DataFolder held(work);
  const Outcome outcome = Do("rebuild");
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.err, "norvale-tool: " + work.string() + ": the folder is in use by another program; close it there first\n");
  EXPECT_THAT(Out("print customers"), HasSubstr("Oak"));
}

}  // namespace
}  // namespace norvale
