#include "entry/frm_display.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QClipboard>
#include <QComboBox>
#include <QRadioButton>
#include <QWheelEvent>
#include <functional>
#include <map>

#include "data/estimate_file.h"
#include "desktop/desktop_fixture.h"
#include "desktop/form_driver.h"
#include "entry/entry_form.h"
#include "entry/frm_boxes.h"
#include "entry/frm_estsave.h"
#include "entry/frm_live_panel.h"
#include "entry/frm_newest.h"
#include "entry/frm_roof.h"
#include "entry/screens.h"
#include "prices/exchange.h"

namespace norvale {
namespace {

constexpr const char* kSmall = "0 This Entry is TOO SMALL for calculations!|Norvale Help Notice";
constexpr const char* kLarge = "0 This Entry is TOO LARGE for calculations!|Norvale Help Notice";
constexpr const char* kRequired = "0 This Entry is REQUIRED for calculations!|Norvale Help Notice";
constexpr const char* kExitQuestion = "2 Exit Data Entry for Plan: A|Exit";

QComboBox& List(QWidget& form, int list) { return *Find<QComboBox>(form, ("combo1_" + std::to_string(list)).c_str()); }

class frmDisplayTest : public DesktopTest {
 protected:
  // A plan of that type, in the session and, where it is not new, on the disk.
  void Open(PlanMode mode, int type, bool isTypeChanged = false) {
    EstimateRecord& plan = session.CurrentEstimate;
    plan = BlankPlan();
    plan.CustomerNumber = 3;
    plan.PlanNumber.Assign("A");
    plan.PlanType = static_cast<std::int16_t>(type);
    if (IsOpened(mode)) {
      const std::vector customers = {Customer(3, "Hill Homes")};
      const std::vector plans = {plan, PlanOf(3, "B")};
      StoreAll(folder, customers, plans);
      ASSERT_TRUE(FindEstimateOfPlan(folder, session, 3, "A"));
    }
    record = OpenPlanForm(mode, isTypeChanged, plan, DeliveredScreenLines(), DeliveredMaterialRows());
  }

  // Shows the form, drives it, and closes it where `drive` has not. Returns whether nothing is to be appended.
  template <typename Drive>
  bool Run(Drive drive, bool isPlanChanged = false, DisplayTasks tasks = {}) {
    if (!tasks.printEstimate) tasks.printEstimate = [this](const PlanForm&, QWidget*) { ++prints; };
    tasks.keepDraft = [this] { ++drafts; };
    frmDisplay form(program, record, isPlanChanged, std::move(tasks));
    DriveModal<frmDisplay>([&] { form.exec(); },
                           [&drive](frmDisplay& shown) {
                             drive(shown);
                             shown.done(0);
                           });
    return form.PlanCancelled();
  }

  // Leaves a form by Exit and, at its prompt, by the key.
  void LeaveBy(Qt::Key key) {
    if (IsOpened(record.mode)) asked.Expect(kExitQuestion, Answer::Yes);
    DriveModal<frmEstsave>([] { Key(Qt::Key_X, Qt::AltModifier); }, [key](frmEstsave&) { Key(key); });
  }

  [[nodiscard]] EstimateRecord StoredPlan() const { return ReadAllEstimates(scratch.Path()).front(); }

  PlanForm record;
  int prints = 0;
  int drafts = 0;
};

void GoToBox(frmDisplay& form, const PlanForm& record, int box) {
  QTest::mouseClick(Find(form, ("cmdScreen_" + std::to_string(ScreenOfNumber(record, box))).c_str()), Qt::LeftButton);
  Find(form, ("TxtDisp_" + std::to_string(box)).c_str())->setFocus();
}

void Paste(const char* text) {
  QApplication::clipboard()->setText(QString::fromLatin1(text));
  Key(Qt::Key_V, Qt::ControlModifier);
}

TEST_F(frmDisplayTest, ANumberIsHeldToItsLimitsWhenItsBoxIsLeft) {
  struct Case {
    const char* box;
    const char* typed;  // what no key gives is pasted
    const char* shown;
    const char* message;
  };
  constexpr const char* kLength = "TxtDisp_2";
  constexpr const char* kOverall = "TxtDisp_3";  // may be empty
  constexpr const char* kJoist = "TxtDispJoist_0";
  const std::map<std::string, std::string> next = {{kLength, kOverall}, {kOverall, "cmdDISP1"}, {kJoist, "TxtDisp_27"}};
  // clang-format off
  const Case cases[] = {
      {kLength, "", "", kRequired}, {kLength, "0", "", kRequired}, {kLength, "0.001", "", kRequired}, {kLength, "twelve", "", kRequired},
      {kLength, "0.01", "1", ""}, {kLength, "1", "1", ""}, {kLength, "1.01", "2", ""}, {kLength, "1a2 b,3-", "123", ""},
      {kLength, "1,200", "1200", ""}, {kLength, "32767", "32767", ""}, {kLength, "32768", "32768", kLarge}, {kLength, "-6", "6", kSmall},
      {kOverall, "", "", ""}, {kOverall, "32768", "32768", kLarge}, {kJoist, "0", "", ""}, {kJoist, "1", "8", ""}, {kJoist, "5", "8", ""},
      {kJoist, "7", "8", ""}, {kJoist, "8", "8", ""}, {kJoist, "9", "10", ""}, {kJoist, "-9", "10", kSmall}, {kJoist, "32767", "32767", kLarge}};
  // clang-format on
  for (const Case& c : cases)
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab}) {
      SCOPED_TRACE(std::string(c.box) + " " + c.typed);
      Open(PlanMode::New, kOneStoryCrawl);
      Run([&](frmDisplay& form) {
        GoToBox(form, record, c.box == kJoist ? 26 : 2);
        Find(form, c.box)->setFocus();
        const bool isPasted = *c.typed == '-' || *c.typed == 't' || c.typed == std::string("1,200");
        isPasted ? Paste(c.typed) : *c.typed == '\0' ? Key(Qt::Key_Delete) : Keys(c.typed);
        const bool isTold = *c.message != '\0';
        if (isTold) asked.Expect(c.message);
        Key(key);
        asked.ExpectAllAsked();
        EXPECT_EQ(Text(form, c.box), c.shown);
        EXPECT_EQ(Focus(), isTold ? c.box : next.at(c.box));
        EXPECT_EQ(Find<QLineEdit>(form, c.box)->selectedText().toStdString(), isTold ? c.shown : "");
      });
    }
}

TEST_F(frmDisplayTest, WhatWasAskedForOnceIsLetPass) {
  Open(PlanMode::New, kOneStoryCrawl);
  Run([this](frmDisplay& form) {
    GoToBox(form, record, 1);
    asked.Expect(kRequired);
    Key(Qt::Key_Tab);
    Key(Qt::Key_Tab);
    EXPECT_EQ(Focus(), "TxtDisp_2");
    // By mouse to another box as well; the third length may be empty.
    asked.Expect(kRequired);
    QTest::mouseClick(Find(form, "TxtDisp_3"), Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_EQ(Focus(), "TxtDisp_2");
    QTest::mouseClick(Find(form, "TxtDisp_3"), Qt::LeftButton);
    Key(Qt::Key_Tab);
    EXPECT_EQ(Focus(), "cmdDISP1");
    Key(Qt::Key_Escape);
  });
}

TEST_F(frmDisplayTest, ButtonsAndPagesAskNothingAboutTheBoxAtHand) {
  const struct {
    const char* name;
    std::function<void(frmDisplay&)> go;
    int screen;
  } ways[] = {
      {"ALT+N", [](frmDisplay&) { Key(Qt::Key_N, Qt::AltModifier); }, 3},
      {"ALT+V", [](frmDisplay&) { Key(Qt::Key_V, Qt::AltModifier); }, 1},
      {"page down", [](frmDisplay&) { Key(Qt::Key_PageDown); }, 3},
      {"page up", [](frmDisplay&) { Key(Qt::Key_PageUp); }, 1},
      {"a slow click", [](frmDisplay& form) { SlowClick(form, "cmdDISP1"); }, 3},
      {"ALT+9", [](frmDisplay&) { Key(Qt::Key_9, Qt::AltModifier); }, 8},
      {"ALT+-", [](frmDisplay&) { Key(Qt::Key_Minus, Qt::AltModifier); }, 10},
      {"a mark", [](frmDisplay& form) { QTest::mouseClick(Find(form, "cmdScreen_8"), Qt::LeftButton); }, 8},
  };
  for (const auto& way : ways)
    for (const char* const text : {"", "40000", "155.3"}) {
      Open(PlanMode::New, kOneStoryCrawl);
      Run([&](frmDisplay& form) {
        GoToBox(form, record, 1);
        Keys(text);
        const int before = drafts;
        way.go(form);
        EXPECT_EQ(record.CurrentScreen, way.screen) << way.name;
        EXPECT_EQ(Find<QLabel>(form, "PageLabel")->text().toStdString(), "Screen " + std::to_string(way.screen + 1) + " Of 11");
        EXPECT_EQ(drafts, before + 1) << way.name;
        EXPECT_EQ(record.TxtDisp[1].text, *text == '1' ? "156" : text) << way.name;
      });
    }
}

TEST_F(frmDisplayTest, ScreensAreMarkedAndThoseWithoutAUsableLinePassedOver) {
  Open(PlanMode::New, kOneStorySlab);
  Run([this](frmDisplay& form) {
    EXPECT_EQ(Focus(), "combo1_2") << "the first two lists are shut";
    EXPECT_FALSE(Find(form, "lblLine_0")->isEnabled());
    EXPECT_EQ(Find(form, "cmdScreen_1")->accessibleName(), QStringLiteral("Screen 2, needs input"));
    EXPECT_EQ(Find(form, "cmdScreen_3")->accessibleName(), QStringLiteral("Screen 4, nothing to enter for this plan type"));
    GoToBox(form, record, 0);
    Keys("150");
    EXPECT_EQ(Find(form, "cmdScreen_1")->accessibleName(), QStringLiteral("Screen 2, complete"));
    Key(Qt::Key_PageDown), Key(Qt::Key_PageDown);
    EXPECT_EQ(record.CurrentScreen, 5);
    EXPECT_EQ(Focus(), "TxtDisp_24");
    Key(Qt::Key_PageUp);
    EXPECT_EQ(record.CurrentScreen, 2);
    Key(Qt::Key_PageUp), Key(Qt::Key_PageUp), Key(Qt::Key_PageUp);
    EXPECT_EQ(record.CurrentScreen, 0);
    EXPECT_FALSE(Find(form, "cmdDISP2")->isEnabled());
    EXPECT_FALSE(Find(form, "cmdDISP3")->isEnabled()) << "until the last screen was reached";
    for (int i = 0; i < 9; ++i) Key(Qt::Key_PageDown);
    EXPECT_FALSE(Find(form, "cmdDISP1")->isEnabled());
    EXPECT_TRUE(Find(form, "cmdDISP3")->isEnabled());
  });
}

TEST_F(frmDisplayTest, PrintLeadsToWhatIsMissing) {
  Open(PlanMode::Existing, kOneStoryCrawl);
  session.CurrentEstimate.FoundationType = 2;
  session.CurrentEstimate.Combo19Index = 1;  // no drop girder
  record = OpenedForm(session.CurrentEstimate);
  Run([this](frmDisplay& form) {
    const auto print = [&](std::initializer_list<const char*> messages, const char* focus) {
      for (const char* const message : messages) asked.Expect(message);
      Click(form, "cmdDISP3");
      asked.ExpectAllAsked();
      EXPECT_EQ(Focus(), focus);
    };
    print({"0 Screen 2 Needs Additional Input|Norvale Help Notice"}, "TxtDisp_0");
    Keys("150");
    print({"0 Screen 3 Needs Additional Input|Norvale Help Notice"}, "TxtDisp_1");
    for (int box = 1; box < static_cast<int>(kNumberBoxes); ++box)
      if (record.TxtDisp[box].enabled && (box < 14 || box > 23)) SetNumberText(record, box, "10");
    print({"0 Screen 6 Needs Additional Input|Norvale Help Notice", "0 There are no entries for: LFT SILLS|Norvale Help Notice"},
          "TxtDisp_19");
    EXPECT_EQ(record.CurrentScreen, 5);
    Keys("99999");
    print({kLarge}, "TxtDisp_19");
    EXPECT_EQ(prints, 0);
    Keys("77.2");
    print({}, "cmdDISP3");
    EXPECT_EQ(prints, 1);
    EXPECT_EQ(session.CurrentEstimate.SillLft[0], 78) << "the plan is in the record before it is printed";
  });
}

TEST_F(frmDisplayTest, ExitSavesWhatIsChosen) {
  const struct {
    PlanMode mode;
    Qt::Key key;
    bool stays;
    bool cancelled;
    int onDisk;
  } cases[] = {
      {PlanMode::Existing, Qt::Key_S, false, true, 150},    {PlanMode::Existing, Qt::Key_A, false, false, 0},
      {PlanMode::Existing, Qt::Key_N, false, true, 0},      {PlanMode::Existing, Qt::Key_C, true, false, 0},
      {PlanMode::Existing, Qt::Key_Escape, true, false, 0}, {PlanMode::New, Qt::Key_S, false, false, 0},
      {PlanMode::New, Qt::Key_N, false, true, 0},           {PlanMode::New, Qt::Key_Escape, true, false, 0},
  };
  for (const auto& c : cases) {
    Open(c.mode, kOneStoryCrawl);
    EXPECT_EQ(Run([&](frmDisplay& form) {
                GoToBox(form, record, 0);
                Keys("149.3");
                LeaveBy(c.key);
                EXPECT_EQ(form.isVisible(), c.stays);
                EXPECT_EQ(Focus() == "TxtDisp_0", c.stays);
              }),
              c.cancelled);
    if (IsOpened(c.mode)) {
      EXPECT_EQ(StoredPlan().ExtWallLftFirstFloor, c.onDisk);
    }
    EXPECT_EQ(record.TxtDisp[0].text, "150");
  }
}

TEST_F(frmDisplayTest, AFormWithoutChangesIsLeftWithoutAQuestion) {
  for (const PlanMode mode : {PlanMode::New, PlanMode::Existing}) {
    Open(mode, kTwoLevelCrawl);
    EXPECT_TRUE(Run([](frmDisplay&) {
      for (int i = 0; i < 12; ++i) Key(Qt::Key_PageDown);
      Key(Qt::Key_Escape);
    })) << "looking at a plan is no change";
  }
  // Unless the checklist has changed it.
  const auto stay = [this](frmDisplay& form) {
    asked.Expect(kExitQuestion, Answer::No);
    form.close();
    EXPECT_TRUE(form.isVisible());
  };
  Run(stay, true);
}

TEST_F(frmDisplayTest, ASaveThatFailsKeepsTheForm) {
  Open(PlanMode::Existing, kOneStoryCrawl);
  Run([this](frmDisplay& form) {
    GoToBox(form, record, 0);
    Keys("99999");
    asked.Expect(kExitQuestion, Answer::Yes);
    asked.Expect(kLarge);
    DriveModal<frmEstsave>([&] { Click(form, "cmdDISP4"); }, [](frmEstsave& prompt) { Click(prompt, "pctSaveOpt_0"); });
    EXPECT_EQ(Focus(), "TxtDisp_0");
    Keys("150");
    disk.reason = "No space left on device";
    asked.Expect(kExitQuestion, Answer::Yes);
    asked.Expect(FileErrorNotice(FileError("norvale.jnl", disk.reason)));
    DriveModal<frmEstsave>([&] { Key(Qt::Key_Escape); }, [](frmEstsave&) { Key(Qt::Key_S); });
    EXPECT_TRUE(form.isVisible());
    disk.reason.clear();
    LeaveBy(Qt::Key_S);
  });
  EXPECT_EQ(StoredPlan().ExtWallLftFirstFloor, 150);
}

TEST_F(frmDisplayTest, AFormThatIsShownAgainKeepsItsMarks) {
  Open(PlanMode::New, kOneStoryCrawl);
  frmDisplay form(program, record, false, {});
  const auto show = [&](auto drive) { DriveModal<frmDisplay>([&] { form.exec(); }, drive); };
  show([this](frmDisplay& shown) {
    GoToBox(shown, record, 0);
    Keys("150");
    LeaveBy(Qt::Key_S);
  });
  EXPECT_FALSE(form.PlanCancelled());
  show([this](frmDisplay& shown) {
    EXPECT_EQ(Text(shown, "TxtDisp_0"), "150");
    EXPECT_EQ(record.CurrentScreen, 1);
    LeaveBy(Qt::Key_N);
  });
  EXPECT_TRUE(form.PlanCancelled());
}

TEST_F(frmDisplayTest, CtrlZGivesBackWhatStoodThere) {
  Open(PlanMode::Existing, kOneStoryCrawl);
  session.CurrentEstimate.ExtWallLftFirstFloor = 150;
  session.CurrentEstimate.RoofingIndex = 2;
  session.CurrentEstimate.Roofing.Assign("GONE FROM THE LIST");
  record = OpenedForm(session.CurrentEstimate);
  Run([this](frmDisplay& form) {
    GoToBox(form, record, 0);
    Keys("40000");
    asked.Expect(kLarge);
    Key(Qt::Key_Backtab);
    Keys("7");
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(record.TxtDisp[0].text, "150") << "not what the message was about";
    Find<QLineEdit>(form, "TxtDisp_0")->insert(QStringLiteral("151"));
    EXPECT_EQ(record.TxtDisp[0].text, "151") << "as the calculator carries a number over";
    Find(form, "combo1_7")->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(List(form, 7).placeholderText(), QStringLiteral("GONE FROM THE LIST"));
    Key(Qt::Key_End);
    EXPECT_EQ(ShownText(record.combo1[7]), "STANDING SEAM METAL");
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(ShownText(record.combo1[7]), "GONE FROM THE LIST");
    EXPECT_EQ(List(form, 7).currentIndex(), -1);
  });
}

TEST_F(frmDisplayTest, ListsAreWorkedByKeysAndNotByTheWheel) {
  Open(PlanMode::New, kOneStoryCrawl);
  Run([this](frmDisplay& form) {
    QComboBox& list = List(form, 0);
    list.setFocus();
    QWheelEvent turn(QPointF(5, 5), list.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&list, &turn);
    EXPECT_EQ(list.currentIndex(), 0);
    EXPECT_EQ(record.mark, ChangeMark::None);
    Keys("#2 D");
    EXPECT_EQ(ShownText(record.combo1[0]), "#2 DOUG FIR-LARCH");
    List(form, 1).setFocus();
    Keys("3/4");
    EXPECT_EQ(ShownText(record.combo1[1]), "4X8- 3/4 T&G PLYWOOD");
    // The major girder opens the lines below it.
    QTest::mouseClick(Find(form, "cmdScreen_3"), Qt::LeftButton);
    List(form, 17).setFocus();
    Key(Qt::Key_Home);
    EXPECT_FALSE(Find(form, "TxtDisp_4")->isEnabled() || Find(form, "lblLine_23")->isEnabled() || Find(form, "lblc1")->isVisible());
    Key(Qt::Key_Down), Key(Qt::Key_Down);
    EXPECT_TRUE(Find(form, "TxtDisp_4")->isEnabled() && Find(form, "lblLine_23")->isEnabled());
    EXPECT_EQ(Find<QLabel>(form, "lblc1")->text() + Find<QLabel>(form, "lblc2")->text(), QStringLiteral("3 Mbr4 Mbr"));
    QTest::mouseClick(Find(form, "cmdScreen_0"), Qt::LeftButton);
    for (const auto& [key, modifier] : {std::pair{Qt::Key_F4, Qt::NoModifier}, std::pair{Qt::Key_Down, Qt::AltModifier}}) {
      QTest::keyClick(&list, key, modifier);
      EXPECT_TRUE(list.view()->isVisible());
      list.hidePopup();
    }
  });
}

TEST_F(frmDisplayTest, AChangedTypeAsksOnceAboutWhatItShut) {
  for (const Answer answer : {Answer::Yes, Answer::No}) {
    Open(PlanMode::Existing, kOneStoryCrawl);
    session.CurrentEstimate.ExtWallLftSecondFloor = 140;
    record = OpenPlanForm(PlanMode::Existing, true, session.CurrentEstimate, DeliveredScreenLines(), DeliveredMaterialRows());
    asked.Expect(std::string(kClearShutBoxesQuestion), answer);
    Run([](frmDisplay&) { QApplication::processEvents(); }, true);
    asked.ExpectAllAsked();
    EXPECT_EQ(record.TxtDisp[42].text, answer == Answer::Yes ? "" : "140");
  }
}

class CountingPanel final : public LivePanel {
 public:
  using LivePanel::LivePanel;
  void ShowPlan(const EstimateRecord& plan) override {
    ++shown;
    walls = plan.ExtWallLftFirstFloor;
  }
  int shown = 0;
  int walls = 0;
};

TEST_F(frmDisplayTest, TheLiveListFollowsTheKeysWithoutBeingInTheirWay) {
  Open(PlanMode::New, kOneStoryCrawl);
  CountingPanel* panel = nullptr;
  const auto type = [&](frmDisplay& form) {
    GoToBox(form, record, 0);
    EXPECT_EQ(panel, nullptr) << "off until it is asked for";
    Key(Qt::Key_L, Qt::AltModifier);
    EXPECT_EQ(Focus(), "TxtDisp_0");
    ASSERT_NE(panel, nullptr);
    const int before = panel->shown;
    for (const char c : {'1', '5', '0'}) QTest::keyClick(QApplication::focusWidget(), c);
    EXPECT_EQ(panel->shown, before) << "not while keys wait";
    QApplication::processEvents();
    EXPECT_EQ(panel->shown, before + 1);
    EXPECT_EQ(panel->walls, 150);
    EXPECT_EQ(session.CurrentEstimate.ExtWallLftFirstFloor, 0) << "a copy";
  };
  Run(type, false,
      {.printEstimate = {}, .keepDraft = {}, .makeLivePanel = [&](QWidget* parent) { return panel = new CountingPanel(parent); }});
}

// --- A whole plan by keys

EstimateRecord Sample(const std::string& name) {
  EstimateRecord plan = ImportTables(ReadWholeFile(std::filesystem::path(NORVALE_SOURCE_DIR) / "samples" / (name + ".json"))).plans.front();
  PadTexts(plan);
  return plan;
}

std::string BytesOf(const EstimateRecord& plan) {
  std::string bytes(EstimateRecordSize, '\0');
  EncodeValue(bytes.data(), plan);
  return bytes;
}

// Chooses a row of the list that has the focus.
void PickRow(int row) {
  Key(Qt::Key_Home);
  for (int i = 0; i < row; ++i) Key(Qt::Key_Down);
}

// Types what the sample holds into the box that has the focus and goes on with Enter.
void TypeOver(PlanForm& record, const PlanForm& sample, AskedMessages& asked) {
  const std::string focus = Focus();
  const int index = std::stoi(focus.substr(focus.find('_') + 1));
  if (focus.starts_with("combo1")) {
    PickRow(sample.combo1[index].ListIndex);
    return Key(Qt::Key_Return);
  }
  const bool isJoist = focus.starts_with("TxtDispJoist");
  const std::string& text = isJoist ? sample.TxtDispJoist[index].text : sample.TxtDisp[index].text;
  text.empty() ? Key(Qt::Key_Delete) : Keys(text.c_str());
  // A row of a table that stays empty is asked for while the others are empty, too.
  PlanForm copy = record;
  const bool isAsked = !isJoist && !LeaveNumberBox(copy, index).message.empty();
  if (isAsked) asked.Expect(kRequired);
  Key(Qt::Key_Return);
  if (isAsked) Key(Qt::Key_Return);
}

void TypeRoof(frmROOF& form, const EstimateRecord& sample) {
  for (const RoofPlane& plane : sample.RoofPlanes) {
    if (plane.SectionType == 0) continue;
    Click(form, "cmdADD");
    Find<QRadioButton>(form, ("optRoof_" + std::to_string(plane.SectionType)).c_str())->click();
    Type(form, "txtSection", std::to_string(plane.SectionLength / 12).c_str());
    Type(form, "txtRafterRun", std::to_string(plane.RafterRun / 12).c_str());
    for (const auto& [list, row] :
         {std::pair{"cboRafter", plane.RafterIndex}, std::pair{"cboPitch", plane.PitchIndex}, std::pair{"cboRFType", plane.FramingType}}) {
      Find(form, list)->setFocus();
      PickRow(row);
    }
  }
  Click(form, "cmdDONE");
  Type(form, "txtTWOxSIX_0", std::to_string(sample.CeilingJoistLft2X6[0]).c_str());
  Click(form, "cmdJOIST");
}

TEST_F(frmDisplayTest, ASamplePlanTypedInIsTheSampleByteForByte) {
  for (const char* const name : {"plan-crawl-field-framed", "plan-slab-vinyl-two-story"}) {
    SCOPED_TRACE(name);
    EstimateRecord sample = Sample(name);
    const PlanForm want = OpenedForm(sample);
    EstimateRecord& plan = session.CurrentEstimate;
    plan = BlankPlan();
    plan.CustomerNumber = sample.CustomerNumber, plan.PlanNumber = sample.PlanNumber, plan.PlanDate = sample.PlanDate;
    plan.PlanType = sample.PlanType, plan.PriceLevel = sample.PriceLevel;
    record = OpenPlanForm(PlanMode::New, false, plan, DeliveredScreenLines(), DeliveredMaterialRows());
    {
      Frmnewest sheet(program, record);
      DriveModal<Frmnewest>([&] { sheet.exec(); },
                            [&](Frmnewest& form) {
                              Type(form, "txtfootage_5", std::to_string(sample.EavesLft).c_str());
                              Click(form, "cmdOK");
                            });
    }
    EXPECT_FALSE(Run([&](frmDisplay& form) {
      if (sample.RoofPlanes[0].SectionType != 0) {
        asked.Expect(std::string(kTransferAreaQuestion), Answer::No);
        DriveModal<frmROOF>([&] { Click(form, "cmdDOROOF"); }, [&](frmROOF& roof) { TypeRoof(roof, sample); });
        Find(form, "combo1_0")->setFocus();
      }
      for (int steps = 0; steps < 200; ++steps) {
        if (Focus() == "cmdDISP1")
          Key(Qt::Key_Return);
        else if (Focus() == "cmdDISP2")
          break;
        else
          TypeOver(record, want, asked);
      }
      EXPECT_EQ(record.CurrentScreen, ScreenCount);
      EXPECT_EQ(CheckBeforePrint(record).screen, -1);
      LeaveBy(Qt::Key_S);
    }));
    StorePlanFromForm(record, plan);
    AddEstimate(folder, session);
    ASSERT_TRUE(FindEstimateOfPlan(folder, session, sample.CustomerNumber, sample.PlanNumber.Trimmed()));
    EXPECT_EQ(ExportTables({}, {session.CurrentEstimate}), ExportTables({}, {sample}));
    EXPECT_EQ(BytesOf(session.CurrentEstimate), BytesOf(sample));
  }
}

// --- What is seen

TEST_F(frmDisplayTest, NothingIsCutOffInTheLeastWindow) {
  const QFont usual = QApplication::font();
  for (const int points : {usual.pointSize(), 14}) {
    QFont font = usual;
    font.setPointSize(points);
    QApplication::setFont(font);
    for (const int type : {kOneStorySlab | kAttachedGarage, kTwoLevelCrawl | kFieldFramedHalfStory | kCarport}) {
      Open(PlanMode::New, type);
      Run([&](frmDisplay& form) {
        form.resize(1024, 700);
        for (int screen = 0; screen <= ScreenCount; ++screen) {
          QTest::mouseClick(Find(form, ("cmdScreen_" + std::to_string(screen)).c_str()), Qt::LeftButton);
          QApplication::processEvents();
          const QWidget* const page = Find(form, ("pctPage_" + std::to_string(screen)).c_str());
          for (const QWidget* const control : page->findChildren<QWidget*>()) {
            if (!control->isVisible() || control->objectName().isEmpty()) continue;
            const std::string name = control->objectName().toStdString() + " at " + std::to_string(points);
            const QRect place(control->mapTo(page, QPoint()), control->size());
            EXPECT_TRUE(page->rect().contains(place)) << name;
            EXPECT_GE(control->height(), control->sizeHint().height()) << name;
            // A number box is as wide as its numbers, whatever its hint says.
            const bool isNumber = qobject_cast<const NumberEdit*>(control) != nullptr;
            EXPECT_GE(control->width(), isNumber ? 0 : control->sizeHint().width()) << name;
          }
        }
        for (const QPushButton* const button : form.findChildren<QPushButton*>())
          EXPECT_GE(button->width(), button->isVisible() ? button->sizeHint().width() : 0) << button->objectName().toStdString();
        Key(Qt::Key_Escape);
      });
    }
  }
  QApplication::setFont(usual);
}

// --- The preliminary sheet

class FrmnewestTest : public frmDisplayTest {
 protected:
  template <typename Drive>
  int RunSheet(int type, Drive drive) {
    Open(PlanMode::New, type);
    Frmnewest sheet(program, record);
    int result = -1;
    DriveModal<Frmnewest>([&] { result = sheet.exec(); }, drive);
    return result;
  }
};

TEST_F(FrmnewestTest, HandsOverWhatWasTypedWithEnter) {
  const auto type = [](Frmnewest& form) {
    EXPECT_FALSE(Find(form, "txtfootage_1")->isEnabled()) << "no porch";
    for (const char* const text : {"1999.2", "400", "6", "120", "20", "14.5", "2", "24", "10"}) {
      Keys(text);
      Key(Qt::Key_Return);
    }
    EXPECT_EQ(Text(form, "txtfootage_0"), "2000");
    EXPECT_EQ(Focus(), "cmdOK");
    Key(Qt::Key_Return);
  };
  EXPECT_EQ(RunSheet(kOneStorySlab | kAttachedGarage, type), QDialog::Accepted);
  EXPECT_EQ(record.TxtDisp[25].text, "2000");
  EXPECT_EQ(record.TxtDisp[34].text, "400");
  EXPECT_EQ(record.TxtDisp[51].text, "85");
  EXPECT_EQ(record.combo1[33].ListIndex, 0);
  EXPECT_EQ(session.CurrentEstimate.EavesLft, 120);
  EXPECT_EQ(record.mark, ChangeMark::Modified);
}

TEST_F(FrmnewestTest, AsksForAMissingWidthOnceAndRefusesWhatIsTooLarge) {
  const auto type = [this](Frmnewest& form) {
    Type(form, "txtfootage_4", "6");
    Type(form, "txtfootage_8", "3");
    Key(Qt::Key_Tab);
    EXPECT_EQ(Focus(), "GableWidths_0");
    Keys("24");
    asked.Expect(kRequired);
    Click(form, "cmdOK");
    EXPECT_EQ(Focus(), "GableWidths_1");
    Type(form, "txtfootage_0", "32768");
    asked.Expect(kLarge);
    Click(form, "cmdOK");
    EXPECT_EQ(Focus(), "txtfootage_0");
    Type(form, "txtfootage_0", "32767");
    asked.Expect(kLarge);  // the roof over it
    Click(form, "cmdOK");
    asked.ExpectAllAsked();
    Type(form, "txtfootage_0", "1000");
    Click(form, "cmdOK");
  };
  EXPECT_EQ(RunSheet(kOneStorySlab, type), QDialog::Accepted);
  EXPECT_EQ(record.TxtDisp[51].text, "72");
}

TEST_F(FrmnewestTest, IsDroppedWithoutAWordOnlyWhileItIsEmpty) {
  EXPECT_EQ(RunSheet(kOneStorySlab, [](Frmnewest&) { Key(Qt::Key_Escape); }), QDialog::Rejected);
  const auto leave = [this](Frmnewest& form) {
    Keys("1000");
    asked.Expect("2 Leave the preliminary measurements without using them?|prelim measurements", Answer::No);
    Key(Qt::Key_Escape);
    EXPECT_TRUE(form.isVisible());
    asked.Expect("2 Leave the preliminary measurements without using them?|prelim measurements", Answer::Yes);
    form.close();
  };
  EXPECT_EQ(RunSheet(kOneStorySlab, leave), QDialog::Rejected);
  EXPECT_EQ(record.mark, ChangeMark::None);
}

TEST_F(FrmnewestTest, CanBeFilledInAgainForAnOpenedPlan) {
  Open(PlanMode::Existing, kOneStorySlab);
  Run([this](frmDisplay& form) {
    asked.Expect(std::string(kPreliminaryNotice));
    DriveModal<Frmnewest>([&] { Click(form, "cmdPreliminary"); },
                          [](Frmnewest& sheet) {
                            Type(sheet, "txtfootage_5", "120");
                            Click(sheet, "cmdOK");
                          });
    EXPECT_EQ(Text(form, "TxtDisp_46"), "120");
    LeaveBy(Qt::Key_S);
  });
  EXPECT_EQ(StoredPlan().EavesLft, 120);
}

}  // namespace
}  // namespace norvale
