// The data files beside a database that holds the same records in one table with an index, both durable: 32,000 customers and
// 100,000 plans. A delete and a rebuild are held against a synced copy of the two plan files instead, because the format asks
// for them to be rewritten. Set NORVALE_BENCH_FOLDER to choose the disk.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>

#include "data/backup.h"
#include "data/batch_store.h"
#include "data/customer_file.h"
#include "data/estimate_file.h"
#include "data/folder_reader.h"
#include "data/folder_start.h"
#include "data/index_sort.h"
#include "data/keyed_files.h"

namespace norvale {
namespace {

constexpr int kCustomers = 32000;
constexpr int kPlans = 100000;
constexpr int kCustomersWithPlans = 31000;

std::string PlanText(int number) { return "P" + std::to_string(number); }

EstimateRecord PlanRecord(int customer, int number) {
  EstimateRecord plan;
  plan.CustomerNumber = static_cast<std::int16_t>(customer);
  plan.PlanNumber.Assign(PlanText(number));
  PadTexts(plan);
  return plan;
}

// A folder of its own on the disk; it goes when the program ends.
class BenchFolder {
 public:
  BenchFolder() {
    const char* const chosen = std::getenv("NORVALE_BENCH_FOLDER");
    path_ = std::filesystem::path(chosen != nullptr ? chosen : ".") / "norvale-bench-data";
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
  }
  ~BenchFolder() { std::filesystem::remove_all(path_); }
  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

 private:
  std::filesystem::path path_;
};

const std::filesystem::path& Folder() {
  static const BenchFolder folder;
  return folder.Path();
}

// The same plans in the same order for both: customer numbers at random, as plans are taken in.
const std::vector<EstimateRecord>& Plans() {
  static const std::vector<EstimateRecord> plans = [] {
    std::mt19937 random(1);
    std::vector<EstimateRecord> made;
    for (int i = 0; i < kPlans; ++i) made.push_back(PlanRecord(static_cast<int>(2 + random() % kCustomersWithPlans), i));
    return made;
  }();
  return plans;
}

struct DataFiles {
  DataFiles() : folder(Folder()) {
    (void)StartFolder(folder, session);
    std::vector<CustomerRecord> customers(kCustomers);
    for (int i = 0; i < kCustomers; ++i) {
      customers[static_cast<std::size_t>(i)].CustomerRecordNumber = static_cast<std::int16_t>(i + 1);
      customers[static_cast<std::size_t>(i)].CustomerName.Assign("Customer " + std::to_string(i + 1));
      PadTexts(customers[static_cast<std::size_t>(i)]);
    }
    StoreAll(folder, customers, Plans());
  }
  DataFolder folder;
  Session session;
};

DataFiles& Files() {
  static DataFiles files;
  return files;
}

// One table of plans with an index on customer and plan number; the record is a blob, as the data files hold it.
class Database {
 public:
  explicit Database(bool fresh) {
    Check(sqlite3_open((Folder() / "plans.sqlite").c_str(), &db_));
    Run("PRAGMA synchronous=FULL");
    if (!fresh) return;
    Run("CREATE TABLE plans(id INTEGER PRIMARY KEY, customer INTEGER, plan TEXT, record BLOB)");
    Run("CREATE INDEX plan_key ON plans(customer, plan)");
    Run("BEGIN");
    for (const EstimateRecord& plan : Plans()) Insert(plan.CustomerNumber, plan);
    Run("COMMIT");
  }
  ~Database() {
    for (sqlite3_stmt* statement : {insert_, update_, renumber_, first_, all_}) sqlite3_finalize(statement);
    sqlite3_close(db_);
  }
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  void Insert(int customer, const EstimateRecord& plan) {
    Bind(Prepared(insert_, "INSERT INTO plans(customer, plan, record) VALUES(?1, ?2, ?3)"), customer, plan);
    Step(insert_);
  }
  void Update(std::int64_t id, const EstimateRecord& plan) {
    Bind(Prepared(update_, "UPDATE plans SET record = ?3 WHERE id = ?4"), plan.CustomerNumber, plan);
    sqlite3_bind_int64(update_, 4, id);
    Step(update_);
  }
  void Renumber(std::int64_t id, int customer, const EstimateRecord& plan) {
    Bind(Prepared(renumber_, "UPDATE plans SET customer = ?1, plan = ?2, record = ?3 WHERE id = ?4"), customer, plan);
    sqlite3_bind_int64(renumber_, 4, id);
    Step(renumber_);
  }
  // Where the customer's first plan is; -1 where he has none.
  std::int64_t First(int customer) {
    Prepared(first_, "SELECT id FROM plans WHERE customer = ?1 ORDER BY plan LIMIT 1");
    sqlite3_bind_int(first_, 1, customer);
    const std::int64_t found = sqlite3_step(first_) == SQLITE_ROW ? sqlite3_column_int64(first_, 0) : -1;
    sqlite3_reset(first_);
    return found;
  }
  // Steps through all plans in order, a statement for each step, as a form does: the next one behind the last key.
  std::size_t StepAll() {
    Prepared(all_,
             "SELECT customer, plan, id, record FROM plans WHERE (customer, plan, id) > (?1, ?2, ?3) ORDER BY customer, plan, id LIMIT 1");
    int customer = -1;
    std::string plan;
    std::int64_t id = 0;
    std::size_t steps = 0;
    for (;; ++steps) {
      sqlite3_bind_int(all_, 1, customer);
      sqlite3_bind_text(all_, 2, plan.data(), static_cast<int>(plan.size()), SQLITE_TRANSIENT);
      sqlite3_bind_int64(all_, 3, id);
      if (sqlite3_step(all_) != SQLITE_ROW) break;
      customer = sqlite3_column_int(all_, 0);
      plan = reinterpret_cast<const char*>(sqlite3_column_text(all_, 1));
      id = sqlite3_column_int64(all_, 2);
      EstimateRecord record;
      DecodeValue(static_cast<const char*>(sqlite3_column_blob(all_, 3)), record);
      benchmark::DoNotOptimize(record);
      sqlite3_reset(all_);
    }
    sqlite3_reset(all_);
    return steps;
  }

 private:
  void Check(int result) const {
    if (result != SQLITE_OK && result != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(db_));
  }
  void Run(const char* sql) const { Check(sqlite3_exec(db_, sql, nullptr, nullptr, nullptr)); }
  sqlite3_stmt* Prepared(sqlite3_stmt*& statement, const char* sql) const {
    if (statement == nullptr) Check(sqlite3_prepare_v2(db_, sql, -1, &statement, nullptr));
    return statement;
  }
  void Bind(sqlite3_stmt* statement, int customer, const EstimateRecord& plan) {
    bytes_ = Encoded(plan, EstimateRecordSize);
    const std::string text = plan.PlanNumber.Trimmed();
    sqlite3_bind_int(statement, 1, customer);
    sqlite3_bind_text(statement, 2, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
    sqlite3_bind_blob(statement, 3, bytes_.data(), static_cast<int>(bytes_.size()), SQLITE_STATIC);
  }
  void Step(sqlite3_stmt* statement) const {
    Check(sqlite3_step(statement));
    Check(sqlite3_reset(statement));
  }

  sqlite3* db_ = nullptr;
  sqlite3_stmt* insert_ = nullptr;
  sqlite3_stmt* update_ = nullptr;
  sqlite3_stmt* renumber_ = nullptr;
  sqlite3_stmt* first_ = nullptr;
  sqlite3_stmt* all_ = nullptr;
  std::string bytes_;
};

Database& Base() {
  static Database database(true);
  return database;
}

std::mt19937& Chance() {
  static std::mt19937 random(99);
  return random;
}

// Puts the cursor on one of the plans, anywhere in the index.
void PutCursor(DataFiles& files) {
  files.session.EstimateCursor = IndexFile<EstimateFiles>::PositionOf(Chance()() % kPlans);
  benchmark::DoNotOptimize(MoveEstimate(files.folder, files.session, 0));
}

void AddAtHead(benchmark::State& state) {
  DataFiles& files = Files();
  int number = 999999;
  for (auto _ : state) {
    files.session.CurrentEstimate = PlanRecord(1, number--);
    AddEstimate(files.folder, files.session);
  }
}
void AddAtHeadSqlite(benchmark::State& state) {
  int number = 999999;
  for (auto _ : state) Base().Insert(1, PlanRecord(1, number--));
}

void AddAtTail(benchmark::State& state) {
  DataFiles& files = Files();
  static int number = 100000;
  for (auto _ : state) {
    files.session.CurrentEstimate = PlanRecord(32700, number++);
    AddEstimate(files.folder, files.session);
  }
}
void AddAtTailSqlite(benchmark::State& state) {
  static int number = 100000;
  for (auto _ : state) Base().Insert(32700, PlanRecord(32700, number++));
}

void UpdateInPlace(benchmark::State& state) {
  DataFiles& files = Files();
  for (auto _ : state) {
    state.PauseTiming();
    PutCursor(files);
    ++files.session.CurrentEstimate.RoofSqFt;
    state.ResumeTiming();
    if (UpdateEstimate(files.folder, files.session) != EstimateChange::Done) throw std::logic_error("no plan");
  }
}
void UpdateInPlaceSqlite(benchmark::State& state) {
  for (auto _ : state) {
    const auto which = Chance()() % kPlans;
    EstimateRecord plan = Plans()[which];
    plan.RoofSqFt = static_cast<std::int16_t>(Chance()() % 30000);
    Base().Update(static_cast<std::int64_t>(which) + 1, plan);
  }
}

void Renumber(benchmark::State& state) {
  DataFiles& files = Files();
  for (auto _ : state) {
    state.PauseTiming();
    PutCursor(files);
    files.session.CurrentEstimate.CustomerNumber = static_cast<std::int16_t>(2 + Chance()() % kCustomersWithPlans);
    state.ResumeTiming();
    if (UpdateEstimate(files.folder, files.session) != EstimateChange::Done) throw std::logic_error("no plan");
  }
}
void RenumberSqlite(benchmark::State& state) {
  for (auto _ : state) {
    const auto which = Chance()() % kPlans;
    Base().Renumber(static_cast<std::int64_t>(which) + 1, static_cast<int>(2 + Chance()() % kCustomersWithPlans), Plans()[which]);
  }
}

void FindFirst(benchmark::State& state) {
  DataFiles& files = Files();
  for (auto _ : state) {
    int number = static_cast<int>(2 + Chance()() % kCustomersWithPlans);
    FindFirstEstimateOfCustomer(files.folder, files.session, number);
    benchmark::DoNotOptimize(number);
  }
}
void FindFirstSqlite(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(Base().First(static_cast<int>(2 + Chance()() % kCustomersWithPlans)));
}
// The data files are opened for each operation; this is the database used in the same way.
void FindFirstSqliteOpened(benchmark::State& state) {
  Base();
  for (auto _ : state) benchmark::DoNotOptimize(Database(false).First(static_cast<int>(2 + Chance()() % kCustomersWithPlans)));
}

void StepAll(benchmark::State& state) {
  DataFiles& files = Files();
  std::size_t steps = 0;
  for (auto _ : state) {
    files.session.EstimateCursor = 1;
    for (steps = 1; MoveEstimate(files.folder, files.session, 1).notice.empty(); ++steps) benchmark::DoNotOptimize(files.session);
  }
  state.counters["steps"] = static_cast<double>(steps);
}
void StepAllSqlite(benchmark::State& state) {
  std::size_t steps = 0;
  for (auto _ : state) steps = Base().StepAll();
  state.counters["steps"] = static_cast<double>(steps);
}

// What `cp` does with the two plan files, and a sync of both copies. `overOld`: onto the copies of the time before, so that
// the disk must free as much as a delete makes it free.
void CopyBothFiles(benchmark::State& state, bool overOld) {
  Files();
  const auto copyOf = [](std::string_view name) { return Folder() / (std::string(name) + ".copy"); };
  const auto copyAll = [&] {
    for (const auto name : {EstimateDataFile, EstimateIndexFile}) {
      std::filesystem::copy_file(Folder() / name, copyOf(name), std::filesystem::copy_options::overwrite_existing);
      SystemDisk().Open(copyOf(name), Opening::Update)->Sync();
    }
    SystemDisk().SyncFolder(Folder());
  };
  const auto removeAll = [&] {
    for (const auto name : {EstimateDataFile, EstimateIndexFile}) std::filesystem::remove(copyOf(name));
  };
  if (overOld) copyAll();
  for (auto _ : state) {
    copyAll();
    if (overOld) continue;
    state.PauseTiming();
    removeAll();
    state.ResumeTiming();
  }
  removeAll();
}

void DeleteOne(benchmark::State& state) {
  state.SetLabel("beside CopyBothFiles/over_old");
  DataFiles& files = Files();
  for (auto _ : state) {
    state.PauseTiming();
    PutCursor(files);
    state.ResumeTiming();
    if (DeleteEstimate(files.folder, files.session) != EstimateChange::Done) throw std::logic_error("no plan");
  }
}

void Rebuild(benchmark::State& state) {
  state.SetLabel("beside CopyBothFiles/over_old");
  DataFiles& files = Files();
  for (auto _ : state) RebuildIndexes(files.folder);
}

// A backup of a folder that has changed, read back and checked, and looking whether it has.
void BackUp(benchmark::State& state, bool changed) {
  DataFiles& files = Files();
  state.SetLabel("beside CopyBothFiles/new");
  static std::chrono::local_seconds now = LocalNow();
  (void)MakeBackup(files.folder, BackupReason::Hand, now);
  for (auto _ : state) {
    state.PauseTiming();
    now += std::chrono::hours(1);
    if (changed) {
      files.session.CurrentEstimate = PlanRecord(1, static_cast<int>(now.time_since_epoch().count() % 100000));
      AddEstimate(files.folder, files.session);
    }
    state.ResumeTiming();
    if (MakeBackup(files.folder, BackupReason::Hand, now).has_value() != changed)
      throw std::logic_error("not the backup that was asked for");
  }
}

// The whole start: four files read through and checked.
void Start(benchmark::State& state) {
  DataFiles& files = Files();
  for (auto _ : state) {
    Session session;
    benchmark::DoNotOptimize(StartFolder(files.folder, session));
  }
}

// The look-ups of one print: plan, company, customer.
void LookUpForPrint(benchmark::State& state) {
  Files();
  for (auto _ : state) {
    const EstimateRecord& plan = Plans()[Chance()() % kPlans];
    benchmark::DoNotOptimize(FindEstimate(Folder(), plan.CustomerNumber, plan.PlanNumber.Trimmed()));
    benchmark::DoNotOptimize(FindCustomerRecord(Folder(), kCompanyNumber));
    benchmark::DoNotOptimize(FindCustomerRecord(Folder(), plan.CustomerNumber));
  }
}

// In this order: the first delete gathers records that lie in the order of their arrival, the later ones find them in that of
// the index.
BENCHMARK(FindFirst)->Unit(benchmark::kMicrosecond);
BENCHMARK(FindFirstSqlite)->Unit(benchmark::kMicrosecond);
BENCHMARK(FindFirstSqliteOpened)->Unit(benchmark::kMicrosecond);
BENCHMARK(StepAll)->Unit(benchmark::kMillisecond)->Iterations(2);
BENCHMARK(StepAllSqlite)->Unit(benchmark::kMillisecond)->Iterations(2);
BENCHMARK(LookUpForPrint)->Unit(benchmark::kMicrosecond);
BENCHMARK(AddAtHead)->Unit(benchmark::kMicrosecond)->UseRealTime()->Iterations(300);
BENCHMARK(AddAtHeadSqlite)->Unit(benchmark::kMicrosecond)->UseRealTime()->Iterations(300);
BENCHMARK(AddAtTail)->Unit(benchmark::kMicrosecond)->UseRealTime()->Iterations(300);
BENCHMARK(AddAtTailSqlite)->Unit(benchmark::kMicrosecond)->UseRealTime()->Iterations(300);
BENCHMARK(UpdateInPlace)->Unit(benchmark::kMicrosecond)->UseRealTime()->Iterations(300);
BENCHMARK(UpdateInPlaceSqlite)->Unit(benchmark::kMicrosecond)->UseRealTime()->Iterations(300);
BENCHMARK(Renumber)->Unit(benchmark::kMicrosecond)->UseRealTime()->Iterations(300);
BENCHMARK(RenumberSqlite)->Unit(benchmark::kMicrosecond)->UseRealTime()->Iterations(300);
BENCHMARK_CAPTURE(CopyBothFiles, new, false)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);
BENCHMARK_CAPTURE(CopyBothFiles, over_old, true)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);
BENCHMARK(DeleteOne)->Name("DeleteOne/first")->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);
BENCHMARK(DeleteOne)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);
BENCHMARK(Rebuild)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);
BENCHMARK_CAPTURE(BackUp, changed, true)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);
BENCHMARK_CAPTURE(BackUp, unchanged, false)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);
BENCHMARK(Start)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(5);

}  // namespace
}  // namespace norvale

BENCHMARK_MAIN();
