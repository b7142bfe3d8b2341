// Whole journeys of a plan by keyboard: from the menu to the bytes on the disk.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>

#include "data/estimate_file.h"
#include "data/plan_type.h"
#include "desktop/desktop_fixture.h"
#include "desktop/form_script.h"
#include "entry/draft.h"
#include "entry/frm_checklst.h"
#include "entry/frm_display.h"
#include "entry/frm_estsave.h"
#include "entry/frm_newest.h"
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

std::string Name(const char* array, std::size_t index) { return array + ("_" + std::to_string(index)); }

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
  for (std::size_t i = 0; i < kNumberAt.size(); ++i)
    PutNumber16(record, kNumberAt[i], std::stoi("0" + Text(display, Name("TxtDisp", i).c_str())));
  for (std::size_t i = 0; i < 10; ++i)
    PutNumber16(record, kFirstJoistAt + 2 * static_cast<int>(i), std::stoi("0" + Text(display, Name("TxtDispJoist", i).c_str())));
  for (std::size_t i = 0; i < kListAt.size(); ++i) {
    const auto* const list = Find<QComboBox>(display, Name("combo1", i).c_str());
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

bool IsBox(const std::string& name) { return name.starts_with("TxtDisp") || name.starts_with("combo1"); }

// Types into the boxes at hand and those behind, as Enter leads, and goes on to the next screen, down to the last.
void TypeScreens(QWidget& display) {
  std::string page;
  for (;;) {
    page = Find<QLabel>(display, "PageLabel")->text().toStdString();
    for (std::string box = Focus(); IsBox(box); box = Focus()) {
      const int index = std::stoi(box.substr(box.find('_') + 1));
      if (box.starts_with("combo1"))
        Key(Qt::Key_Down);
      else
        Keys(std::to_string(box.starts_with("TxtDispJoist") ? 10 + 2 * index : 100 + index).c_str());
      Key(Qt::Key_Return);
      if (Focus() == box) throw std::logic_error("Enter does not lead on from " + box);
    }
    if (!Find(display, "cmdDISP1")->isEnabled()) return;
    Key(Qt::Key_N, Qt::AltModifier);
    if (Find<QLabel>(display, "PageLabel")->text().toStdString() == page) return;
  }
}

// Presses Enter until that control has the focus.
void WalkTo(const char* control) {
  for (int step = 0; Focus() != control; ++step) {
    if (step == 40) throw std::logic_error(std::string("Enter does not lead to ") + control);
    Key(Qt::Key_Return);
  }
}

class PlanJourney : public DesktopTest {
 protected:
  PlanJourney() {
    StoreSamples();
    ShowActive(menu);
    Keys("e");
    Key(Qt::Key_Return);
  }

  ~PlanJourney() override { EXPECT_FALSE(std::filesystem::exists(scratch / kDraftFile)) << "every road ends without a draft"; }

  void OpenNew(FormScript& script) {
    ShowActive(menu);
    script.Run([] { Keys("w"), Key(Qt::Key_Return); });
    asked.ExpectAllAsked();
  }
  void OpenExisting(FormScript& script) {
    ShowActive(menu);
    script.Run([] { Keys("e"), Key(Qt::Key_Return); });
    asked.ExpectAllAsked();
  }

  [[nodiscard]] std::string LastRecord() const {
    const std::string all = ReadBytes(scratch / EstimateDataFile);
    return all.substr(all.size() - EstimateRecordSize);
  }

  // A plan of every value that its type can have, on file under Oak Street's number and `number`.
  EstimateRecord StoreFullPlan(const char* number, int type) {
    EstimateRecord plan = PlanOf(7, number);
    plan.PlanType = static_cast<std::int16_t>(type);
    plan.PriceLevel.Assign("1");
    plan.PlanDate.Assign("11-23-2026");
    PlanForm form = OpenPlanForm(PlanMode::New, false, plan, DeliveredScreenLines(), DeliveredMaterialRows());
    for (int box = 0; box < 54; ++box) SetNumberText(form, box, std::to_string(1000 + box));
    StorePlanFromForm(form, plan);
    PadTexts(plan);
    StoreAll(folder, {}, std::array{plan});
    return plan;
  }

  // The checklist is open on the first plan; goes to the one of that number and presses OK.
  static void OpenPlan(frmChecklst& form, const char* number) {
    for (int step = 0; Text(form, "txtPlanNbr") != number; ++step) {
      if (step == 20) throw std::logic_error(std::string("no plan ") + number);
      Key(Qt::Key_PageDown);
    }
    Key(Qt::Key_O, Qt::AltModifier);
  }
  static void LeaveIfOpen(frmChecklst& form) {
    if (!form.isVisible()) return;
    ShowActive(form);
    Key(Qt::Key_Escape);
  }
  void ExpectExitQuestion(const char* number) { asked.Expect("2 Exit Data Entry for Plan: " + std::string(number) + "|Exit", Answer::Yes); }
  static void Exit() { Key(Qt::Key_X, Qt::AltModifier); }

  frmMenu menu{program, [this](MenuChoice choice, QWidget* form) { RunTask(program, choice, form); }};
};

// Whether the checklist waits for the name of a copy.
bool IsNaming(QWidget& form) { return Text(form, "txtPlanNbr").empty() && !Find(form, "frachklist")->isEnabled(); }

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
  Keys(house.number);
  Key(Qt::Key_Return);
  Keys("11-23-2026");
  Key(Qt::Key_3, Qt::AltModifier);
  for (const char* const box : house.ticks) {
    WalkTo(box);
    Key(Qt::Key_Space);
  }
  EXPECT_EQ(Text(form, "txtCustName"), "Hill Homes");
  WalkTo("cmdOK");
}

void FillSheet(Frmnewest&) {
  for (int step = 0; Focus() != "cmdOK"; ++step) {
    if (step == 20) throw std::logic_error("Enter does not lead to OK");
    const std::string box = Focus();
    Keys(std::array{"1500", "120", "300", "400", "8", "163", "96", "16", "0"}[static_cast<std::size_t>(box.back() - '0')]);
    Key(Qt::Key_Return);
  }
  Key(Qt::Key_Return);
}

TEST_F(PlanJourney, ANewPlanOfEachFoundationGoesToTheFilesAndBack) {
  for (const House& house : kHouses) {
    SCOPED_TRACE(house.number);
    std::string expected(EstimateRecordSize, '\0');
    PutNumber16(expected, 0, 3);
    PutText(expected, 2, 15, house.number);
    PutText(expected, 17, 10, "11-23-2026");
    PutText(expected, kReservedAt, 42, "");
    PutNumber16(expected, 27, house.type);
    PutNumber16(expected, kEavesAt, 163);
    expected[kLevelAt] = '3';
    FormScript typed;
    typed.Then<frmAddress>([](frmAddress&) { Key(Qt::Key_O, Qt::AltModifier); })
        .Then<frmChecklst>([&](frmChecklst& form) {
          FillChecklist(form, house);
          Key(Qt::Key_Return);
        })
        .Then<Frmnewest>(FillSheet)
        .Then<frmDisplay>([&](frmDisplay& form) {
          EXPECT_EQ(form.windowTitle().toStdString(), DisplayTitle("Hill Homes", house.number));
          TypeScreens(form);
          EXPECT_EQ(Find<QLabel>(form, "PageLabel")->text(), QStringLiteral("Screen 11 Of 11"));
          expected = Shown(form, expected);
          Exit();
        })
        .Then<frmEstsave>([](frmEstsave&) { Key(Qt::Key_S); });
    OpenNew(typed);
    EXPECT_EQ(Difference(LastRecord(), expected), "");

    // Opened again it shows the same; one number is changed and saved in its place.
    ExpectExitQuestion(house.number);
    FormScript reopened;
    reopened
        .Then<frmChecklst>([&](frmChecklst& form) {
          OpenPlan(form, house.number);
          EXPECT_TRUE(form.isVisible()) << "an opened plan leads back to the checklist";
          EXPECT_EQ(Text(form, "txtPlanNbr"), house.number);
          LeaveIfOpen(form);
        })
        .Then<frmDisplay>([&](frmDisplay& form) {
          EXPECT_EQ(Difference(Shown(form, expected), expected), "");
          Type(form, "TxtDisp_47", "777.2");
          Exit();
        })
        .Then<frmEstsave>([](frmEstsave&) { Key(Qt::Key_S); });
    OpenExisting(reopened);
    PutNumber16(expected, kNumberAt[47], 778);
    EXPECT_EQ(Difference(LastRecord(), expected), "");
  }
  EXPECT_EQ(PlansOnDisk().size(), 5 + kHouses.size());
  EXPECT_TRUE(CheckFolder(SystemDisk(), scratch.Path()).empty());
}

TEST_F(PlanJourney, NothingIsOnFileWhereverItIsLeft) {
  StoreFullPlan("U", kTwoLevelSlab);
  const auto before = BytesOnDisk();
  const auto leaveChecklist = [](frmChecklst& form) {
    FillChecklist(form, kHouses[3]);
    Key(Qt::Key_Return);
    ShowActive(form);
    EXPECT_EQ(Text(form, "txtPlanNbr") + Text(form, "txtdate"), "N411-23-2026") << "what was typed is still there";
    Key(Qt::Key_Escape);
  };
  const auto goOn = [](frmAddress&) { Key(Qt::Key_O, Qt::AltModifier); };
  FormScript atChecklist;
  atChecklist.Then<frmAddress>([](frmAddress&) { Key(Qt::Key_Escape); }).Then<frmChecklst>([](frmChecklst& form) {
    EXPECT_EQ(Text(form, "txtcustnum"), "");
    Key(Qt::Key_Escape);
  });
  OpenNew(atChecklist);
  FormScript atSheet;
  atSheet.Then<frmAddress>(goOn).Then<frmChecklst>(leaveChecklist).Then<Frmnewest>([](Frmnewest&) { Key(Qt::Key_Escape); });
  OpenNew(atSheet);
  FormScript atScreens;
  atScreens.Then<frmAddress>(goOn)
      .Then<frmChecklst>([](frmChecklst& form) {
        FillChecklist(form, kHouses[3]);
        Key(Qt::Key_Return);
        EXPECT_FALSE(form.isVisible()) << "a new plan that is given up leads back to the menu";
      })
      .Then<Frmnewest>(FillSheet)
      .Then<frmDisplay>([](frmDisplay& form) {
        Key(Qt::Key_Escape);
        ShowActive(form);
        Key(Qt::Key_Escape);
      })
      .Then<frmEstsave>([](frmEstsave&) { Key(Qt::Key_Escape); })
      .Then<frmEstsave>([](frmEstsave&) { Key(Qt::Key_N); });
  OpenNew(atScreens);
  FormScript unchanged;
  unchanged.Then<frmChecklst>([](frmChecklst& form) { OpenPlan(form, "U"), LeaveIfOpen(form); }).Then<frmDisplay>([](frmDisplay&) {
    Exit();
  });
  OpenExisting(unchanged);
  EXPECT_EQ(BytesOnDisk(), before);
}

TEST_F(PlanJourney, AChangedTypeIsSavedInPlaceWithOrWithoutWhatItShuts) {
  for (const bool isCleared : {false, true}) {
    const char* const number = isCleared ? "T1" : "T0";
    EstimateRecord plan = StoreFullPlan(number, kTwoLevelSlab | kAttachedGarage);
    std::string shown;
    asked.Expect(std::string(kClearShutBoxesQuestion), isCleared ? Answer::Yes : Answer::No);
    ExpectExitQuestion(number);
    FormScript script;
    script
        .Then<frmChecklst>([&](frmChecklst& form) {
          while (Text(form, "txtPlanNbr") != number) Key(Qt::Key_PageDown);
          Key(Qt::Key_T, Qt::AltModifier);
          EXPECT_EQ(Focus(), "chkSlab15_20");
          Key(Qt::Key_Backtab);
          Key(Qt::Key_Space);
          WalkTo("cmdOK");
          Key(Qt::Key_Return);
          EXPECT_FALSE(form.isVisible());
        })
        .Then<frmDisplay>([&](frmDisplay& form) {
          EXPECT_TRUE(QTest::qWaitFor([&] { return (Text(form, "TxtDisp_42") == "") == isCleared; }, kLongestWait));
          EXPECT_TRUE(Find(form, "cmdDISP3")->isEnabled());
          shown = Shown(form, BytesOf(plan));
          Exit();
        })
        .Then<frmEstsave>([](frmEstsave&) { Key(Qt::Key_S); });
    OpenExisting(script);
    PutNumber16(shown, 27, kOneStorySlab | kAttachedGarage);
    EXPECT_EQ(Difference(LastRecord(), shown), "");
    EXPECT_EQ(shown[static_cast<std::size_t>(kNumberAt[42])] == '\0', isCleared);
  }
  EXPECT_EQ(PlansOnDisk().size(), 7U);
}

// Oak Street's plan S is opened, changed and saved as new; what is done between tells what becomes of it.
TEST_F(PlanJourney, ACopyGoesWhereItIsNamedAndNowhereElse) {
  const auto next = [] { Key(Qt::Key_N, Qt::AltModifier); };
  const auto ok = [] { Key(Qt::Key_O, Qt::AltModifier); };
  const auto esc = [] { Key(Qt::Key_Escape); };
  const struct {
    const char* what;
    bool isTypeChanged;
    std::function<void(frmAddress&)> choose;
    std::function<void(frmChecklst&)> name;  // none: the customer is backed out of
    int customer;                            // and number of the copy; 0: nothing is saved
    const char* number;
  } cases[] = {
      {"backed out of the customer", false, [&](frmAddress&) { esc(); }, {}, 0, ""},
      {"backed out of the number", false, [&](frmAddress&) { ok(); }, [&](frmChecklst&) { Keys("half"), esc(); }, 0, ""},
      {"closed the second checklist", true, [&](frmAddress&) { ok(); }, [](frmChecklst& form) { form.close(); }, 0, ""},
      {"to another customer", false, [&](frmAddress&) { next(), ok(); }, [&](frmChecklst&) { Keys("S"), ok(); }, 12, "S"},
      {"of another type", true, [&](frmAddress&) { ok(); }, [&](frmChecklst&) { Keys("S2"), ok(); }, 7, "S2"},
      {"by its own name", false, [&](frmAddress&) { ok(); }, [&](frmChecklst&) { Keys("S"), ok(); }, 7, "S"},
  };
  const EstimateRecord plan = StoreFullPlan("S", kTwoLevelCrawl);
  const auto plans = PlansOnDisk();
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
          while (Text(form, "txtPlanNbr") != "S") Key(Qt::Key_PageDown);
          if (c.isTypeChanged) Key(Qt::Key_T, Qt::AltModifier), Find(form, "chkPorch")->setFocus(), Key(Qt::Key_Space);
          ok();
          EXPECT_EQ(form.isVisible(), c.customer == 0 && !c.isTypeChanged);
          LeaveIfOpen(form);
        })
        .Then<frmDisplay>([&](frmDisplay& form) {
          Type(form, "TxtDisp_0", "333");
          Key(Qt::Key_Return);
          changed = Shown(form, BytesOf(plan));
          Exit();
        })
        .Then<frmEstsave>([](frmEstsave&) { Key(Qt::Key_A); })
        .Then<frmAddress>(c.choose);
    if (c.name)
      script.Then<frmChecklst>(
          [&](frmChecklst& form) {
            EXPECT_EQ(Text(form, "txtPlanNbr") + Focus(), "txtPlanNbr");
            EXPECT_FALSE(Find(form, "frachklist")->isEnabled());
            for (const char* const shut : {"cmdDelete", "cmdFind", "cmdNEXT", "cmdPREV", "cmdchange"})
              EXPECT_FALSE(Find(form, shut)->isEnabled()) << shut;
            c.name(form);
          },
          IsNaming);
    if (c.customer == 0) {
      ExpectExitQuestion("S");
      script
          .Then<frmDisplay>([&](frmDisplay& form) {
            EXPECT_EQ(Difference(Shown(form, BytesOf(plan)), changed), "") << "all that was typed is still there";
            EXPECT_EQ(session.CurrentCustomer, OnDisk(7));
            Exit();
          })
          .Then<frmEstsave>([](frmEstsave&) { Key(Qt::Key_N); });
    }
    OpenExisting(script);
    if (c.customer == 0) {
      EXPECT_EQ(BytesOnDisk(), before);
      continue;
    }
    PutNumber16(changed, 0, c.customer);
    PutText(changed, 2, 15, c.number);
    if (c.isTypeChanged) PutNumber16(changed, 27, kTwoLevelCrawl | kPorch);
    EXPECT_EQ(Difference(LastRecord(), changed), "");
    const bool isInPlace = c.customer == 7 && c.number == std::string("S");
    EXPECT_EQ(PlansOnDisk().size(), plans.size() + (isInPlace ? 0 : 1));
    EXPECT_EQ(ReadBytes(scratch / EstimateDataFile).substr(0, records.size() - (isInPlace ? EstimateRecordSize : 0)),
              records.substr(0, records.size() - (isInPlace ? EstimateRecordSize : 0)));
    EXPECT_TRUE(CheckFolder(SystemDisk(), scratch.Path()).empty());
  }
}

// Where the customer of a copy is picked he can get another number, and all his plans move in the index.
TEST_F(PlanJourney, AnOpenPlanFollowsItsCustomersNewNumber) {
  std::string changed = BytesOf(StoreFullPlan("S", kOneStoryCrawl));
  ExpectExitQuestion("S");
  ExpectExitQuestion("S");
  FormScript script;
  script.Then<frmChecklst>([&](frmChecklst& form) { OpenPlan(form, "S"), LeaveIfOpen(form); })
      .Then<frmDisplay>([&](frmDisplay& form) {
        Type(form, "TxtDisp_0", "333");
        Exit();
      })
      .Then<frmEstsave>([](frmEstsave&) { Key(Qt::Key_A); })
      .Then<frmAddress>([](frmAddress& form) {
        Type(form, "txtAddress_0", "2");
        Key(Qt::Key_N, Qt::AltModifier);
        Key(Qt::Key_Escape);
      })
      .Then<frmDisplay>([](frmDisplay&) { Exit(); })
      .Then<frmEstsave>([](frmEstsave&) { Key(Qt::Key_S); });
  OpenExisting(script);
  PutNumber16(changed, 0, 2);
  PutNumber16(changed, kNumberAt[0], 333);
  EXPECT_EQ(Difference(LastRecord(), changed), "");
  EXPECT_EQ(PlansOnDisk(), (std::vector<PlanName>{{0, "M"}, {2, "A"}, {2, "B"}, {2, "C"}, {2, "S"}, {3, "A"}}));
  EXPECT_TRUE(CheckFolder(SystemDisk(), scratch.Path()).empty());
}

TEST_F(PlanJourney, AFullDiskLeavesThePlanOnTheScreens) {
  const auto before = BytesOnDisk();
  const FileError full("norvale.jnl", "No space left on device");
  FormScript script;
  script.Then<frmAddress>([](frmAddress&) { Key(Qt::Key_O, Qt::AltModifier); })
      .Then<frmChecklst>([](frmChecklst& form) { FillChecklist(form, kHouses[0]), Key(Qt::Key_Return), LeaveIfOpen(form); })
      .Then<Frmnewest>(FillSheet)
      .Then<frmDisplay>([](frmDisplay&) { Exit(); })
      .Then<frmEstsave>([&](frmEstsave&) {
        disk.reason = full.Reason();
        asked.Expect(
            "0 What you type cannot be kept against a crash at the moment. Go on, and save soon.\n\nnorvale.draft.new: No space left on "
            "device|Norvale Help Notice");
        asked.Expect(FileErrorNotice(full));
        Key(Qt::Key_S);
      })
      .Then<frmDisplay>([&](frmDisplay& form) {
        EXPECT_EQ(BytesOnDisk(), before);
        disk.reason.clear();
        Type(form, "TxtDisp_47", "4321");
        Exit();
      })
      .Then<frmEstsave>([](frmEstsave&) { Key(Qt::Key_S); });
  OpenNew(script);
  EXPECT_EQ(PlansOnDisk().size(), 6U);
  EXPECT_EQ(FindEstimate(scratch.Path(), 3, "N1")->RoofSqFt, 4321);
}

// The folder as it is at that moment is what a program finds that is started after a kill.
TEST_F(PlanJourney, AKillLosesNothingThatStoodOnAnEarlierScreen) {
  for (const bool isNew : {true, false}) {
    SCOPED_TRACE(isNew);
    const char* const number = isNew ? "N4" : "S";
    std::string shown(EstimateRecordSize, '\0');
    if (!isNew) shown = BytesOf(StoreFullPlan("S", kTwoLevelCrawl | kBrickVeneer));
    const ScratchFolder killed;
    std::string page;
    const auto work = [&](frmDisplay& form) {
      for (int screen = 0; screen < 6; ++screen) {
        if (Focus().starts_with("TxtDisp_")) Keys("321");
        if (Focus().starts_with("combo1_")) Key(Qt::Key_Down);
        Key(Qt::Key_N, Qt::AltModifier);
      }
      shown = Shown(form, shown);
      page = Find<QLabel>(form, "PageLabel")->text().toStdString();
      std::filesystem::copy(scratch.Path(), killed.Path());
      Keys("99");
      Exit();
    };
    FormScript before;
    if (isNew) {
      before.Then<frmAddress>([](frmAddress&) { Key(Qt::Key_O, Qt::AltModifier); })
          .Then<frmChecklst>([](frmChecklst& form) { FillChecklist(form, kHouses[3]), Key(Qt::Key_Return), LeaveIfOpen(form); })
          .Then<Frmnewest>(FillSheet)
          .Then<frmDisplay>(work)
          .Then<frmEstsave>([](frmEstsave&) { Key(Qt::Key_N); });
      OpenNew(before);
    } else {
      ExpectExitQuestion(number);
      before.Then<frmChecklst>([](frmChecklst& form) { OpenPlan(form, "S"), LeaveIfOpen(form); })
          .Then<frmDisplay>(work)
          .Then<frmEstsave>([](frmEstsave&) { Key(Qt::Key_N); });
      OpenExisting(before);
    }

    DataFolder again(killed.Path());
    Session fresh;
    EXPECT_TRUE(StartFolder(again, fresh).faults.empty());
    Program restarted{again, fresh, asked};
    const std::size_t plans = ReadAllEstimates(killed.Path()).size();
    asked.Expect("2 The program ended while plan " + std::string(number) + " for " + (isNew ? "Hill Homes" : "Oak Street Builders") +
                     " was being " + (isNew ? "entered" : "changed") +
                     ". What stood there at the last change of screen is kept.\n\nGo on with it?|Unsaved Plan",
                 Answer::Yes);
    FormScript after;
    after
        .Then<frmDisplay>([&](frmDisplay& form) {
          EXPECT_EQ(Difference(Shown(form, shown), shown), "");
          EXPECT_EQ(Find<QLabel>(form, "PageLabel")->text().toStdString(), page);
          if (!isNew) ExpectExitQuestion(number);
          Exit();
        })
        .Then<frmEstsave>([](frmEstsave&) { Key(Qt::Key_S); });
    if (!isNew)
      after.Then<frmChecklst>([](frmChecklst& form) {
        auto* const leave = new QTimer(&form);  // data entry may still be on its way out
        QObject::connect(leave, &QTimer::timeout, &form, &QDialog::reject);
        leave->start(5);
      });
    after.Run([&] { OfferUnsavedPlan(restarted); });
    asked.ExpectAllAsked();
    if (isNew) {
      PutNumber16(shown, 0, 3);
      PutText(shown, 2, 15, number);
      PutText(shown, 17, 10, "11-23-2026");
      PutText(shown, kReservedAt, 42, "");
      PutNumber16(shown, 27, kHouses[3].type);
      PutNumber16(shown, kEavesAt, 163);
      shown[kLevelAt] = '3';
    }
    const std::string records = ReadBytes(killed / EstimateDataFile);
    EXPECT_EQ(Difference(records.substr(records.size() - EstimateRecordSize), shown), "");
    EXPECT_EQ(ReadAllEstimates(killed.Path()).size(), plans + (isNew ? 1 : 0));
    EXPECT_FALSE(std::filesystem::exists(killed / kDraftFile));
  }
}

TEST_F(PlanJourney, AnUnsavedPlanIsNeverWrittenOverOneThatWasChanged) {
  const auto keepDraft = [this] {
    EstimateRecord plan = StoreFullPlan("S", kTwoLevelCrawl);
    const EstimateRecord onFile = plan;
    PlanForm form = OpenPlanForm(PlanMode::Existing, false, plan, DeliveredScreenLines(), DeliveredMaterialRows());
    SetNumberText(form, 0, "321");
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
  script.Then<frmDisplay>([](frmDisplay&) { Exit(); })
      .Then<frmEstsave>([](frmEstsave&) { Key(Qt::Key_S); })
      .Then<frmAddress>([](frmAddress&) { Key(Qt::Key_O, Qt::AltModifier); })
      .Then<frmChecklst>([](frmChecklst&) { Keys("S3"), Key(Qt::Key_O, Qt::AltModifier); }, IsNaming);
  script.Run([this] { OfferUnsavedPlan(program); });
  EXPECT_EQ(FindEstimate(scratch.Path(), 7, "S")->RoofSqFt, 1);
  EXPECT_EQ(FindEstimate(scratch.Path(), 7, "S3")->RoofSqFt, 1047);
  EXPECT_EQ(FindEstimate(scratch.Path(), 7, "S3")->ExtWallLftFirstFloor, 321);
}

}  // namespace
}  // namespace norvale
