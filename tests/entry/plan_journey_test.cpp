// Whole journeys of a plan by keyboard: from the menu to the bytes on the disk.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>

#include "data/estimate_file.h"
#include "data/plan_type.h"
#include "desktop/desktop_fixture.h"
#include "desktop/form_script.h"
#include "entry/draft.h"
#include "entry/entry_form.h"
#include "entry/frm_checklst.h"
#include "entry/frm_display.h"
#include "entry/frm_estsave.h"
#include "entry/frm_newest.h"
#include "entry/frm_page.h"
#include "entry/plan_form.h"
#include "prices/delivered.h"
#include "shell/frm_address.h"
#include "shell/frm_menu.h"
#include "shell/frm_tasks.h"

namespace norvale {
namespace {

// Where each box lies in a record of 1462 bytes; -1: a list that keeps no row, or no text.
constexpr std::array<int, 54> kNumberAt = {315, 317, 319, 321, 373, 375, 377, 379, 381, 728, 730, 732, 734, 736, 407, 409, 411, 413,
                                           415, 441, 443, 445, 447, 449, 505, 507, 495, 497, 499, 501, 503, 513, 517, 519, 521, 525,
                                           527, 555, 557, 559, 561, 563, 587, 589, 509, 613, 615, 617, 711, 713, 717, 719, 721, 726};
constexpr int kFirstJoistAt = 760;
constexpr int kEavesAt = 723;
constexpr int kLevelAt = 725;
constexpr int kReservedAt = 780;
struct ListPlace {
  int row;
  int text;
};
constexpr std::array<ListPlace, 40> kListAt = {
    {{29, 31},   {51, 53},   {73, 75},   {95, 97},   {117, 119}, {139, 141}, {161, 163}, {183, 185}, {205, 207}, {227, 229},
     {249, 251}, {271, 273}, {293, 295}, {323, -1},  {325, -1},  {-1, 327},  {347, -1},  {349, -1},  {351, 353}, {383, -1},
     {385, 387}, {417, -1},  {419, 421}, {451, 453}, {473, 475}, {511, -1},  {515, -1},  {523, -1},  {529, -1},  {531, -1},
     {533, 535}, {565, 567}, {591, 593}, {619, -1},  {621, -1},  {623, 625}, {645, 647}, {667, 669}, {689, 691}, {715, -1}}};

std::string Control(const char* kind, std::string_view field) { return std::string(kind).append(field); }

void PutNumber16(std::string& record, int at, int value) {
  record[static_cast<std::size_t>(at)] = static_cast<char>(value & 0xFF);
  record[static_cast<std::size_t>(at) + 1] = static_cast<char>(value >> 8);
}

void PutText(std::string& record, int at, std::size_t width, std::string text) {
  text.resize(width, ' ');
  record.replace(static_cast<std::size_t>(at), width, text);
}

// What the operator sees on the screens, laid into the bytes of a record.
std::string Shown(QWidget& display, std::string record) {
  for (PlanPage* const page : display.findChildren<PlanPage*>()) page->ShowLines();
  for (std::size_t i = 0; i < kNumberAt.size(); ++i)
    PutNumber16(record, kNumberAt[i], std::stoi("0" + Text(display, Control("txt", kNumberBoxRows[i].name).c_str())));
  for (std::size_t i = 0; i < 10; ++i)
    PutNumber16(record, kFirstJoistAt + 2 * static_cast<int>(i),
                std::stoi("0" + Text(display, Control("txt", kJoistBoxRows[i].name).c_str())));
  for (std::size_t i = 0; i < kListAt.size(); ++i) {
    const auto* const list = Find<QComboBox>(display, Control("cbo", kSelectionListRows[i].name).c_str());
    const QString text = list->currentIndex() >= 0 ? list->currentText() : list->placeholderText();
    if (kListAt[i].row >= 0) PutNumber16(record, kListAt[i].row, list->currentIndex() + 1);
    if (kListAt[i].text >= 0) PutText(record, kListAt[i].text, 20, text.left(20).trimmed().toStdString());
  }
  return record;
}

std::string BytesOf(const EstimateRecord& plan) {
  std::string bytes(EstimateRecordSize, '\0');
  EncodeValue(bytes.data(), plan);
  return bytes;
}

// Every offset at which two records differ, so that a failure names the fields.
std::string Difference(const std::string& a, const std::string& b) {
  std::string places;
  if (a.size() != b.size()) return "sizes " + std::to_string(a.size()) + " and " + std::to_string(b.size());
  for (std::size_t i = 0; i < a.size(); ++i)
    if (a[i] != b[i]) places += " " + std::to_string(i);
  return places;
}

// Types into the boxes at hand and those behind, as Enter leads, from screen to screen down to the last.
void TypeScreens() {
  for (int step = 0; step < 300 && Focus() != "cmdPrev"; ++step) {
    const LineField field = FieldOfControl(Focus());
    if (const auto joist = JoistOfControl(Focus())) Keys(std::to_string(10 + 2 * static_cast<int>(*joist)).c_str());
    if (field.IsNumber()) Keys(std::to_string(100 + field.index).c_str());
    if (field.IsList()) Key(Qt::Key_Down);
    Key(Qt::Key_Return);
  }
}

// Presses Enter until that control has the focus.
void WalkTo(const char* control) {
  for (int step = 0; Focus() != control; ++step) {
    if (step == 40) throw std::logic_error(std::string("Enter does not lead to ") + control);
    Key(Qt::Key_Return);
  }
}

constexpr const char* kDraftRefused =
    "0 What you type cannot be kept against a crash at the moment. Go on, and save soon.\n\nnorvale.draft.new: No space left on "
    "device|Norvale Help Notice";

struct House {
  const char* number;
  std::vector<const char*> ticks;
  int type;
};
const std::vector<House> kHouses = {
    {"N1", {"chkSlab10"}, kOneStorySlab},
    {"N2", {"chkSlab15_20", "chkGarage_Attatch", "chk12field"}, kTwoLevelSlab | kAttachedGarage | kFieldFramedHalfStory},
    {"N3", {"chkCrawl10", "chkPorch", "chkectvinyl"}, kOneStoryCrawl | kPorch | kBrickVeneer},
    {"N4", {"chkCrawl15_20", "chkCarport", "chk12truss"}, kTwoLevelCrawl | kCarport | kAtticTrussHalfStory},
    {"N5", {"chkCrawl10", "chkGarage_Detatch", "chkwhvinyl"}, kOneStorySlab | kDetachedGarage},
};

void FillChecklist(frmChecklst& form, const House& house) {
  Keys((std::string(house.number) + "<Return>11-23-2026<Alt+3>").c_str());
  for (const char* const box : house.ticks) {
    WalkTo(box);
    Key(Qt::Key_Space);
  }
  EXPECT_EQ(Text(form, "txtCustName"), "Hill Homes");
  WalkTo("cmdOK");
  Key(Qt::Key_Return);
}

void FillSheet(Frmnewest&) {
  constexpr std::array kFootages = {"1500", "120", "300", "400", "8", "163", "96", "16", "0"};
  for (int step = 0; step < 20 && Focus() != "cmdOK"; ++step)
    Keys((kFootages.at(static_cast<std::size_t>(Focus().back() - '0')) + std::string("<Return>")).c_str());
  Keys("<Return>");
}

// What checklist and sheet put into the record of a new plan.
std::string HeadOf(const House& house) {
  std::string record(EstimateRecordSize, '\0');
  PutNumber16(record, 0, 3);
  PutText(record, 2, 15, house.number);
  PutText(record, 17, 10, "11-23-2026");
  PutText(record, kReservedAt, 42, "");
  PutNumber16(record, 27, house.type);
  PutNumber16(record, kEavesAt, 163);
  record[kLevelAt] = '3';
  return record;
}

// Whether the checklist waits for the name of a copy.
bool IsNaming(QWidget& form) { return Text(form, "txtPlanNbr").empty() && !Find(form, "frachklist")->isEnabled(); }

void Exit() { Keys("<Alt+X>"); }
void Ok() { Keys("<Alt+O>"); }

// The checklist is open on the first plan.
void GoToPlan(frmChecklst& form, const std::string& number) {
  for (int step = 0; step < 20 && Text(form, "txtPlanNbr") != number; ++step) Key(Qt::Key_PageDown);
  EXPECT_EQ(Text(form, "txtPlanNbr"), number);
}

void LeaveIfOpen(frmChecklst& form) {
  if (!form.isVisible()) return;
  ShowActive(form);
  Key(Qt::Key_Escape);
}

// The steps to the screens of a new plan, and of one on file, which leads back to the checklist.
FormScript NewPlan(const House& house) {
  FormScript script;
  script.Press<frmAddress>(Qt::Key_O, Qt::AltModifier)
      .Then<frmChecklst>([house](frmChecklst& form) { FillChecklist(form, house); })
      .Then<Frmnewest>(FillSheet);
  return script;
}
FormScript OpenedPlan(const std::string& number) {
  FormScript script;
  script.Then<frmChecklst>([number](frmChecklst& form) {
    GoToPlan(form, number);
    Ok();
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(Text(form, "txtPlanNbr"), number);
    LeaveIfOpen(form);
  });
  return script;
}

class PlanJourney : public DesktopTest {
 protected:
  PlanJourney() {
    StoreSamples();
    ShowActive(menu);
    Keys("e");
    Key(Qt::Key_Return);
  }

  ~PlanJourney() override { EXPECT_FALSE(std::filesystem::exists(scratch / kDraftFile)) << "every workflow ends without a draft"; }

  // By the menu's letter: "w" for a new plan, "e" for those on file.
  void Run(const char* choice, FormScript& script) {
    ShowActive(menu);
    script.Run([choice] { Keys(choice), Key(Qt::Key_Return); });
    asked.ExpectAllAsked();
  }
  void ExpectExitQuestion(const std::string& number) { asked.Expect("2 Exit Data Entry for Plan: " + number + "|Exit", Answer::Yes); }

  [[nodiscard]] static std::string LastRecord(const ScratchFolder& folder) {
    const std::string all = ReadBytes(folder / EstimateDataFile);
    return all.substr(all.size() - EstimateRecordSize);
  }

  // A plan of every value that its type can have, on file under Oak Street's number and `number`.
  EstimateRecord StoreFullPlan(const char* number, int type) {
    EstimateRecord plan = PlanOf(7, number);
    plan.PlanType = static_cast<std::int16_t>(type);
    plan.PriceLevel.Assign("1");
    plan.PlanDate.Assign("11-23-2026");
    PlanForm form = OpenPlanForm(PlanMode::New, false, plan, DeliveredScreenLines(), DeliveredMaterialRows());
    for (const NumberBox box : kAllNumberBoxes) SetNumberText(form, box, std::to_string(1000 + static_cast<int>(box)));
    StorePlanFromForm(form, plan);
    PadTexts(plan);
    StoreAll(folder, {}, std::array{plan});
    return plan;
  }

  frmMenu menu{program, [this](MenuChoice choice, QWidget* form) { RunTask(program, choice, form); }};
};

TEST_F(PlanJourney, ANewPlanOfEachFoundationGoesToTheFilesAndBack) {
  for (const House& house : kHouses) {
    SCOPED_TRACE(house.number);
    std::string expected = HeadOf(house);
    FormScript typed = NewPlan(house);
    typed
        .Then<frmDisplay>([&](frmDisplay& form) {
          EXPECT_EQ(form.windowTitle().toStdString(), DisplayTitle("Hill Homes", house.number));
          TypeScreens();
          EXPECT_EQ(Text(form, "PageLabel"), "Screen 11 Of 11");
          expected = Shown(form, expected);
          Exit();
        })
        .Press<frmEstsave>(Qt::Key_S);
    Run("w", typed);
    EXPECT_EQ(Difference(LastRecord(scratch), expected), "");

    // Opened again it shows the same; one number is changed and saved in its place.
    ExpectExitQuestion(house.number);
    FormScript reopened = OpenedPlan(house.number);
    reopened
        .Then<frmDisplay>([&](frmDisplay& form) {
          EXPECT_EQ(Difference(Shown(form, expected), expected), "");
          Type(form, "txtRoofSqFt", "777.2");
          Exit();
        })
        .Press<frmEstsave>(Qt::Key_S);
    Run("e", reopened);
    PutNumber16(expected, kNumberAt[47], 778);
    EXPECT_EQ(Difference(LastRecord(scratch), expected), "");
  }
  EXPECT_EQ(PlansOnDisk().size(), 5 + kHouses.size());
  EXPECT_TRUE(CheckFolder(SystemDisk(), scratch.Path()).empty());
}

TEST_F(PlanJourney, NothingIsOnFileWhereverItIsLeft) {
  StoreFullPlan("U", kTwoLevelSlab);
  const auto before = BytesOnDisk();
  FormScript atChecklist;
  atChecklist.Press<frmAddress>(Qt::Key_Escape).Press<frmChecklst>(Qt::Key_Escape);
  Run("w", atChecklist);
  FormScript atSheet;
  atSheet.Press<frmAddress>(Qt::Key_O, Qt::AltModifier)
      .Then<frmChecklst>([](frmChecklst& form) {
        FillChecklist(form, kHouses[3]);
        EXPECT_EQ(Text(form, "txtPlanNbr") + Text(form, "txtdate"), "N411-23-2026") << "what was typed is still there";
        LeaveIfOpen(form);
      })
      .Press<Frmnewest>(Qt::Key_Escape);
  Run("w", atSheet);
  FormScript atScreens = NewPlan(kHouses[3]);
  atScreens
      .Then<frmDisplay>([](frmDisplay& form) {
        Key(Qt::Key_Escape);
        ShowActive(form);
        Key(Qt::Key_Escape);
      })
      .Press<frmEstsave>(Qt::Key_Escape)
      .Press<frmEstsave>(Qt::Key_N);
  Run("w", atScreens);
  FormScript unchanged = OpenedPlan("U");
  unchanged.Then<frmDisplay>([](frmDisplay&) { Exit(); });
  Run("e", unchanged);
  ExpectExitQuestion("U");
  FormScript ofAnother;
  ofAnother
      .Then<frmChecklst>([](frmChecklst& form) {
        GoToPlan(form, "U");
        Type(form, "txtcustnum", "3");
        Ok();
        EXPECT_EQ(Text(form, "txtcustnum") + Text(form, "txtCustName"), "7Oak Street Builders") << "as it is on file";
        LeaveIfOpen(form);
      })
      .Then<frmDisplay>([](frmDisplay& form) {
        EXPECT_EQ(form.windowTitle().toStdString(), DisplayTitle("Hill Homes", "U"));
        Exit();
      })
      .Press<frmEstsave>(Qt::Key_N);
  Run("e", ofAnother);
  EXPECT_EQ(BytesOnDisk(), before);
}

TEST_F(PlanJourney, AChangedTypeIsSavedInPlaceWithOrWithoutWhatItShuts) {
  for (const bool isCleared : {false, true}) {
    const char* const number = isCleared ? "T1" : "T0";
    const EstimateRecord plan = StoreFullPlan(number, kTwoLevelSlab | kAttachedGarage);
    std::string shown;
    asked.Expect(std::string(kClearShutBoxesQuestion), isCleared ? Answer::Yes : Answer::No);
    ExpectExitQuestion(number);
    FormScript script;
    script
        .Then<frmChecklst>([&](frmChecklst& form) {
          GoToPlan(form, number);
          Key(Qt::Key_T, Qt::AltModifier);
          EXPECT_EQ(Focus(), "chkSlab15_20");
          Keys("<Backtab><Space>");
          WalkTo("cmdOK");
          Keys("<Return>");
          EXPECT_FALSE(form.isVisible());
        })
        .Then<frmDisplay>([&](frmDisplay& form) {
          Keys("<Alt+9>");
          EXPECT_TRUE(QTest::qWaitFor([&] { return (Text(form, "txtExtWallLftSecondFloor") == "") == isCleared; }, kLongestWait));
          EXPECT_TRUE(Find(form, "cmdPrint")->isEnabled());
          shown = Shown(form, BytesOf(plan));
          Exit();
        })
        .Press<frmEstsave>(Qt::Key_S);
    Run("e", script);
    PutNumber16(shown, 27, kOneStorySlab | kAttachedGarage);
    EXPECT_EQ(Difference(LastRecord(scratch), shown), "");
    EXPECT_EQ(shown[static_cast<std::size_t>(kNumberAt[42])] == '\0', isCleared);
  }
  EXPECT_EQ(PlansOnDisk().size(), 7U);
}

// Oak Street's plan S is opened, changed and saved as new; what is done between tells what becomes of it.
TEST_F(PlanJourney, ACopyGoesWhereItIsNamedAndNowhereElse) {
  const FileError full("norvale.jnl", "No space left on device");
  const struct {
    const char* what;
    bool isTypeChanged;
    std::function<void()> choose;
    std::function<void(frmChecklst&)> name;  // none: the customer is backed out of
    int customer = 0;                        // and number of the copy; 0: nothing is saved
    const char* number = "";
  } cases[] = {
      {"backed out of the customer", false, [] { Key(Qt::Key_Escape); }, {}},
      {"backed out of the number", false, Ok, [](frmChecklst&) { Keys("half<Esc>"); }},
      {"closed the second checklist", true, Ok, [](frmChecklst& form) { form.close(); }},
      {"the disk is full", false, Ok,
       [&](frmChecklst&) {
         disk.reason = full.Reason();
         asked.Expect(kDraftRefused);
         asked.Expect(FileErrorNotice(full));
         Keys("S2<Alt+O>");
       }},
      {"to another customer", false, [] { Keys("<Alt+N><Alt+O>"); }, [](frmChecklst&) { Keys("S<Alt+O>"); }, 12, "S"},
      {"of another type", true, Ok, [](frmChecklst&) { Keys("S2<Alt+O>"); }, 7, "S2"},
      {"by its own name", false, Ok, [](frmChecklst&) { Keys("S<Alt+O>"); }, 7, "S"},
  };
  const EstimateRecord plan = StoreFullPlan("S", kTwoLevelCrawl);
  const auto before = BytesOnDisk();
  const std::string records = ReadBytes(scratch / EstimateDataFile);
  const std::string index = ReadBytes(scratch / EstimateIndexFile);
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    WriteBytes(scratch / EstimateDataFile, records);
    WriteBytes(scratch / EstimateIndexFile, index);
    std::string changed;
    if (c.isTypeChanged) asked.Expect(std::string(kClearShutBoxesQuestion), Answer::No);
    ExpectExitQuestion("S");
    FormScript script;
    script
        .Then<frmChecklst>([&](frmChecklst& form) {
          GoToPlan(form, "S");
          if (c.isTypeChanged) Keys("<Alt+T>"), Find(form, "chkPorch")->setFocus(), Keys("<Space>");
          Ok();
          EXPECT_EQ(form.isVisible(), c.customer == 0 && !c.isTypeChanged);
          LeaveIfOpen(form);
        })
        .Then<frmDisplay>([&](frmDisplay& form) {
          Type(form, "txtExtWallLftFirstFloor", "333");
          Key(Qt::Key_Return);
          changed = Shown(form, BytesOf(plan));
          Exit();
        })
        .Press<frmEstsave>(Qt::Key_A)
        .Then<frmAddress>([&c](frmAddress&) { c.choose(); });
    const auto name = [&](frmChecklst& form) {
      EXPECT_EQ(Text(form, "txtPlanNbr") + Focus(), "txtPlanNbr");
      for (const char* const shut : {"frachklist", "cmdDelete", "cmdFind", "cmdNEXT", "cmdPREV", "cmdchange"})
        EXPECT_FALSE(Find(form, shut)->isEnabled()) << shut;
      c.name(form);
    };
    if (c.name) script.Then<frmChecklst>(name, IsNaming);
    const auto leave = [&](frmDisplay& form) {
      disk.reason.clear();
      EXPECT_EQ(Difference(Shown(form, BytesOf(plan)), changed), "") << "all that was typed is still there";
      EXPECT_EQ(session.CurrentCustomer, OnDisk(7));
      ExpectExitQuestion("S");
      Exit();
    };
    if (c.customer == 0) script.Then<frmDisplay>(leave).Press<frmEstsave>(Qt::Key_N);
    Run("e", script);
    if (c.customer == 0) {
      EXPECT_EQ(BytesOnDisk(), before);
      continue;
    }
    PutNumber16(changed, 0, c.customer);
    PutText(changed, 2, 15, c.number);
    if (c.isTypeChanged) PutNumber16(changed, 27, kTwoLevelCrawl | kPorch);
    const bool isInPlace = c.customer == 7 && c.number == std::string("S");
    const std::string others = records.substr(0, records.size() - (isInPlace ? EstimateRecordSize : 0));
    EXPECT_EQ(Difference(ReadBytes(scratch / EstimateDataFile), others + changed), "");
    EXPECT_TRUE(CheckFolder(SystemDisk(), scratch.Path()).empty());
  }
}

// Where the customer of a copy is picked he can get another number, and all his plans move in the index.
TEST_F(PlanJourney, AnOpenPlanFollowsItsCustomersNewNumber) {
  std::string changed = BytesOf(StoreFullPlan("S", kOneStoryCrawl));
  ExpectExitQuestion("S");
  ExpectExitQuestion("S");
  FormScript script = OpenedPlan("S");
  script
      .Then<frmDisplay>([](frmDisplay& form) {
        Type(form, "txtExtWallLftFirstFloor", "333");
        Exit();
      })
      .Press<frmEstsave>(Qt::Key_A)
      .Then<frmAddress>([](frmAddress& form) {
        Type(form, "txtAddress_0", "2");
        Keys("<Alt+N><Esc>");
      })
      .Then<frmDisplay>([](frmDisplay&) { Exit(); })
      .Press<frmEstsave>(Qt::Key_S);
  Run("e", script);
  PutNumber16(changed, 0, 2);
  PutNumber16(changed, kNumberAt[0], 333);
  EXPECT_EQ(Difference(LastRecord(scratch), changed), "");
  EXPECT_EQ(PlansOnDisk(), (std::vector<PlanName>{{0, "M"}, {2, "A"}, {2, "B"}, {2, "C"}, {2, "S"}, {3, "A"}}));
  EXPECT_TRUE(CheckFolder(SystemDisk(), scratch.Path()).empty());
}

// The folder as it is at that moment is what a program finds that is started after a kill.
TEST_F(PlanJourney, AKillLosesNothingThatStoodOnAnEarlierScreen) {
  for (const bool isNew : {true, false}) {
    SCOPED_TRACE(isNew);
    const std::string number = isNew ? "N4" : "S";
    std::string shown = isNew ? HeadOf(kHouses[3]) : BytesOf(StoreFullPlan("S", kTwoLevelCrawl | kBrickVeneer));
    const ScratchFolder killed;
    std::string page;
    FormScript before = isNew ? NewPlan(kHouses[3]) : OpenedPlan("S");
    before
        .Then<frmDisplay>([&](frmDisplay& form) {
          for (int screen = 0; screen < 6; ++screen) {
            if (FieldOfControl(Focus()).IsNumber()) Keys("321");
            if (FieldOfControl(Focus()).IsList()) Key(Qt::Key_Down);
            Keys("<Alt+N>");
          }
          shown = Shown(form, shown);
          page = Text(form, "PageLabel");
          std::filesystem::copy(scratch.Path(), killed.Path());
          Keys("99");
          if (!isNew) ExpectExitQuestion(number);
          Exit();
        })
        .Press<frmEstsave>(Qt::Key_N);
    Run(isNew ? "w" : "e", before);

    DataFolder again(killed.Path());
    Session fresh;
    EXPECT_TRUE(StartFolder(again, fresh).faults.empty());
    Program restarted{again, fresh, asked};
    const std::size_t plans = ReadAllEstimates(killed.Path()).size();
    asked.Expect("2 The program ended while plan " + number + " for " +
                     (isNew ? "Hill Homes was being entered" : "Oak Street Builders was being changed") +
                     ". What stood there at the last change of screen is kept.\n\nGo on with it?|Unsaved Plan",
                 Answer::Yes);
    FormScript after;
    after
        .Then<frmDisplay>([&](frmDisplay& form) {
          EXPECT_EQ(Difference(Shown(form, shown), shown), "");
          EXPECT_EQ(Text(form, "PageLabel"), page);
          if (!isNew) ExpectExitQuestion(number);
          Exit();
        })
        .Press<frmEstsave>(Qt::Key_S);
    const auto leave = [](frmChecklst& form) {
      auto* const timer = new QTimer(&form);  // data entry may still be on its way out
      QObject::connect(timer, &QTimer::timeout, &form, &QDialog::reject);
      timer->start(5);
    };
    if (!isNew) after.Then<frmChecklst>(leave);
    after.Run([&] { OfferUnsavedPlan(restarted); });
    asked.ExpectAllAsked();
    EXPECT_EQ(Difference(LastRecord(killed), shown), "");
    EXPECT_EQ(ReadAllEstimates(killed.Path()).size(), plans + (isNew ? 1 : 0));
    EXPECT_FALSE(std::filesystem::exists(killed / kDraftFile));
  }
}

TEST_F(PlanJourney, AnUnsavedPlanIsNeverWrittenOverOneThatWasChanged) {
  const auto keepDraft = [this] {
    EstimateRecord plan = StoreFullPlan("S", kTwoLevelCrawl);
    const EstimateRecord onFile = plan;
    PlanForm form = OpenPlanForm(PlanMode::Existing, false, plan, DeliveredScreenLines(), DeliveredMaterialRows());
    SetNumberText(form, NumberBox::ExtWallLftFirstFloor, "321");
    KeepDraft(folder, DraftOf(form, plan, onFile, false));
    ASSERT_TRUE(FindEstimateOfPlan(folder, session, 7, "S"));
    session.CurrentEstimate.RoofSqFt = 1;
    EXPECT_EQ(UpdateEstimate(folder, session), EstimateChange::Done);
  };
  const std::string question =
      "2 The program ended while plan S for Oak Street Builders was being changed. What stood there at the last change of screen is "
      "kept.\n\nThe plan on file has been changed or deleted since. Go on with what was typed, as a new plan?|Unsaved Plan";
  const std::string removal = "2 Throw away what was typed for plan S? It cannot be brought back.|Unsaved Plan";
  keepDraft();
  const auto before = BytesOnDisk();
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    asked.Expect(question, Answer::No);
    asked.Expect(removal, answer);
  }
  OfferUnsavedPlan(program);
  asked.ExpectAllAsked();
  EXPECT_EQ(BytesOnDisk(), before);
  EXPECT_FALSE(std::filesystem::exists(scratch / kDraftFile));

  keepDraft();
  asked.Expect(question, Answer::Yes);
  FormScript script;
  script.Then<frmDisplay>([](frmDisplay&) { Keys("<PgDown>"), Exit(); })
      .Press<frmEstsave>(Qt::Key_S)
      .Press<frmAddress>(Qt::Key_O, Qt::AltModifier)
      .Then<frmChecklst>([](frmChecklst&) { Keys("S3<Alt+O>"); }, IsNaming);
  script.Run([this] { OfferUnsavedPlan(program); });
  EXPECT_EQ(FindEstimate(scratch.Path(), 7, "S")->RoofSqFt, 1);
  EXPECT_EQ(FindEstimate(scratch.Path(), 7, "S3")->RoofSqFt, 1047);
  EXPECT_EQ(FindEstimate(scratch.Path(), 7, "S3")->HeaderLft, 1045) << "what the plan held is not computed anew";
  EXPECT_EQ(FindEstimate(scratch.Path(), 7, "S3")->ExtWallLftFirstFloor, 321);
}

TEST_F(PlanJourney, ADraftThatCannotBeReadIsToldAndKept) {
  WriteBytes(scratch / kDraftFile, "xx");
  asked.Expect(
      "0 A plan was being entered when the program ended, but its draft is damaged or of another version of Norvale.\n\n"
      "It is kept as norvale.draft.1. The plans on file are not touched.|Norvale Help Notice");
  OfferUnsavedPlan(program);
  asked.ExpectAllAsked();
  EXPECT_EQ(ReadBytes(scratch / "norvale.draft.1"), "xx");
}

}  // namespace
}  // namespace norvale
