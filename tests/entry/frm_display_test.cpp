#include "entry/frm_display.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QClipboard>
#include <QComboBox>
#include <QWheelEvent>
#include <functional>

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

QComboBox& List(QWidget& form, SelectionList list) { return *Find<QComboBox>(form, ("cbo" + std::string(RowOf(list).name)).c_str()); }

class frmDisplayTest : public DesktopTest {
 protected:
  // A plan of that type, in the session and, where it is not new, on the disk.
  void Open(PlanMode mode, int type) {
    EstimateRecord& plan = session.CurrentEstimate;
    plan = BlankPlan();
    plan.CustomerNumber = 3;
    plan.PlanNumber.Assign("A");
    plan.PlanType = static_cast<std::int16_t>(type);
    if (IsOpened(mode)) {
      StoreAll(folder, std::array{Customer(3, "Hill Homes")}, std::array{plan, PlanOf(3, "B")});
      ASSERT_TRUE(FindEstimateOfPlan(folder, session, 3, "A"));
    }
    record = OpenPlanForm(mode, false, plan, DeliveredScreenLines(), DeliveredMaterialRows());
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

  // Leaves a form by Exit and, at its prompt, by the keys.
  void LeaveBy(const char* keys) {
    if (IsOpened(record.mode)) asked.Expect(kExitQuestion, Answer::Yes);
    DriveModal<frmEstsave>([] { Keys("<Alt+X>"); }, [keys](frmEstsave&) { Keys(keys); });
  }
  // To the length of the outer walls, on the second screen, and types over it.
  static void TypeWalls(frmDisplay& form, const char* keys) {
    Keys("<Alt+2>");
    Find(form, "txtExtWallLftFirstFloor")->setFocus(Qt::TabFocusReason);
    Keys(keys);
  }
  void Take(frmDisplay& form, const std::vector<Step>& steps) {
    TakeSteps(steps, asked, [&form] { return See(form); });
  }
  // The screen, the control that has the focus, the text of a box, and what of it is selected.
  static std::string See(frmDisplay& form) {
    std::string seen = Text(form, "PageLabel").substr(7) + ", " + Focus();
    if (const auto* const box = qobject_cast<QLineEdit*>(QApplication::focusWidget()))
      seen += " " + box->text().toStdString() + "[" + box->selectedText().toStdString() + "]";
    return seen;
  }

  [[nodiscard]] EstimateRecord StoredPlan() const { return ReadAllEstimates(scratch.Path()).front(); }

  PlanForm record;
  int prints = 0;
  int drafts = 0;
};

TEST_F(frmDisplayTest, ANumberIsHeldToItsLimitsWhenItsBoxIsLeft) {
  const struct {
    const char *screen, *box, *typed, *shown, *message;
    const char* next = "";  // where there is no message
    const char* pasted = "";
  } cases[] = {
      {"<Alt+3>", "txtOutsideCornersFirstFloor", "", "", kRequired},
      {"<Alt+3>", "txtOutsideCornersFirstFloor", "1.01", "2", "", "txtHeatedLength"},
      {"<Alt+3>", "txtOutsideCornersFirstFloor", "1a2 b,3-", "123", "", "txtHeatedLength"},
      {"<Alt+3>", "txtOutsideCornersFirstFloor", "32768", "32768", kLarge},
      {"<Alt+3>", "txtOutsideCornersFirstFloor", "<Ctrl+V>", "1200", "", "txtHeatedLength", "1,200"},
      {"<Alt+3>", "txtOutsideCornersFirstFloor", "<Ctrl+V>", "6", kSmall, "", "-6"},
      {"<Alt+3>", "txtOverallLength", "", "", "", "cmdNext"},
      {"<Alt+7>", "txtJoistLengthFirstFloor1", "7", "8", "", "txtBayAreaLftFirstFloor2"},
      {"<Alt+7>", "txtJoistLengthFirstFloor1", "32767", "32767", kLarge},
  };
  for (const auto& c : cases)
    for (const char* const leave : {"<Return>", "<Tab>"}) {
      SCOPED_TRACE(std::string(c.box) + " " + c.typed);
      Open(PlanMode::New, kOneStoryCrawl);
      Run([&](frmDisplay& form) {
        Keys(c.screen);
        Find(form, c.box)->setFocus();
        QApplication::clipboard()->setText(QString::fromLatin1(c.pasted));
        Keys(c.typed);
        const bool isTold = *c.message != '\0';
        if (isTold) asked.Expect(c.message);
        Keys(leave);
        asked.ExpectAllAsked();
        EXPECT_EQ(Text(form, c.box), c.shown);
        EXPECT_EQ(Focus(), isTold ? c.box : c.next);
        EXPECT_EQ(Find<QLineEdit>(form, c.box)->selectedText().toStdString(), isTold ? c.shown : "");
      });
    }
}

TEST_F(frmDisplayTest, WhatWasAskedForOnceIsLetPass) {
  Open(PlanMode::New, kOneStoryCrawl);
  Run([this](frmDisplay& form) {
    Take(form, {{"<Alt+3><Tab>", "3 Of 11, txtOutsideCornersFirstFloor []", kRequired}, {"<Tab>", "3 Of 11, txtHeatedLength []"}});
    // By mouse to another box as well.
    asked.Expect(kRequired);
    for (const char* const seen : {"3 Of 11, txtHeatedLength []", "3 Of 11, txtOverallLength []"}) {
      QTest::mouseClick(Find(form, "txtOverallLength"), Qt::LeftButton);
      Take(form, {{"", seen}});
    }
  });
}

TEST_F(frmDisplayTest, ButtonsAndPagesAskNothingAboutTheBoxAtHand) {
  const std::pair<const char*, const char*> ways[] = {{"<Alt+N>", "4 Of 11"}, {"<Alt+V>", "2 Of 11"},    {"<PgDown>", "4 Of 11"},
                                                      {"<PgUp>", "2 Of 11"},  {"<Alt+9>", "9 Of 11"},    {"<Alt+->", "11 Of 11"},
                                                      {"cmdNext", "4 Of 11"}, {"cmdScreen_8", "9 Of 11"}};
  for (const auto& [way, screen] : ways)
    for (const char* const text : {"", "40000", "155.3"}) {
      Open(PlanMode::New, kOneStoryCrawl);
      Run([&, way = way, screen = screen](frmDisplay& form) {
        Keys("<Alt+3>");
        Keys(text);
        const int before = drafts;
        if (*way == '<') {
          Keys(way);
        } else {
          QTest::mousePress(Find(form, way), Qt::LeftButton);
          QApplication::processEvents();  // as a hand takes its time
          QTest::mouseRelease(Find(form, way), Qt::LeftButton);
        }
        EXPECT_EQ(See(form).substr(0, See(form).find(',')), screen);
        EXPECT_EQ(drafts, before + 1);
        EXPECT_EQ(record.numbers[NumberBox::OutsideCornersFirstFloor].text, *text == '1' ? "156" : text);
      });
    }
}

TEST_F(frmDisplayTest, ScreensAreMarkedAndThoseWithoutAUsableLinePassedOver) {
  Open(PlanMode::New, kOneStorySlab);
  Run([this](frmDisplay& form) {
    const auto mark = [&form](const char* name) { return Find(form, name)->accessibleName().toStdString(); };
    const auto buttons = [&form] {
      return std::vector{Find(form, "cmdNext")->isEnabled(), Find(form, "cmdPrev")->isEnabled(), Find(form, "cmdPrint")->isEnabled()};
    };
    EXPECT_FALSE(Find(form, "lblFramingGrade")->isEnabled());
    EXPECT_EQ(mark("cmdScreen_1") + "; " + mark("cmdScreen_3"), "Screen 2, needs input; Screen 4, nothing to enter for this plan type");
    EXPECT_EQ(buttons(), (std::vector{true, false, false})) << "no print until the last screen was reached";
    // The first two lists are shut.
    Take(form, {{"", "1 Of 11, cboShoePlates"}});
    TypeWalls(form, "150");
    Take(form, {{"<PgDown><PgDown>", "6 Of 11, txtIntWallLftFirstFloor []"},
                {"<PgUp><PgUp><PgUp><PgUp>", "1 Of 11, cboShoePlates"},
                {"<PgDown><PgDown><PgDown><PgDown><PgDown><PgDown><PgDown>", "11 Of 11, txtExtWallSidingFirstFloor 1200[1200]"}});
    EXPECT_EQ(mark("cmdScreen_1"), "Screen 2, complete");
    EXPECT_EQ(buttons(), (std::vector{false, true, true}));
  });
}

TEST_F(frmDisplayTest, PrintLeadsToWhatIsMissing) {
  Open(PlanMode::Existing, kOneStoryCrawl);
  session.CurrentEstimate.FoundationType = 2;
  session.CurrentEstimate.DropGirderPly = 1;  // no drop girder
  record = OpenedForm(session.CurrentEstimate);
  Run([this](frmDisplay& form) {
    Take(form, {{"<Alt+P>", "2 Of 11, txtExtWallLftFirstFloor []", "0 Screen 2 Needs Additional Input|Norvale Help Notice"}});
    for (const NumberBox box : kAllNumberBoxes)
      if (box != NumberBox::ExtWallLftFirstFloor && record.numbers[box].enabled && RowOf(box).group != BoxGroup::DropGirder &&
          RowOf(box).group != BoxGroup::Sill)
        SetNumberText(record, box, "10");
    asked.Expect("0 Screen 6 Needs Additional Input|Norvale Help Notice");
    Take(form, {{"150<Alt+P>", "6 Of 11, txtSillLft8 []", "0 There are no entries for: LFT SILLS|Norvale Help Notice"},
                {"99999<Alt+P>", "6 Of 11, txtSillLft8 99999[99999]", kLarge},
                {"77.2<Alt+P>", "6 Of 11, cmdPrint"}});
    EXPECT_EQ(prints, 1);
    EXPECT_EQ(session.CurrentEstimate.SillLft[0], 78) << "the plan is in the record before it is printed";
    SetNumberText(record, NumberBox::ExtWallLftSecondFloor, "40000");
    Take(form, {{"<Alt+P>", "9 Of 11, txtExtWallLftSecondFloor 40000[40000]", kLarge},
                {"1", "9 Of 11, txtExtWallLftSecondFloor 1[]"}});  // opened to be mended
    record.joists[JoistBox::SecondFloorBay1].text = "-5";
    record.joists[JoistBox::SecondFloorBay1].isHidden = true;
    Take(form, {{"<Alt+P>", "9 Of 11, txtJoistLengthSecondFloor1 -5[-5]", kSmall}});
  });
}

TEST_F(frmDisplayTest, ExitSavesWhatIsChosen) {
  const struct {
    PlanMode mode;
    const char* keys;
    bool stays;
    bool cancelled;
    int onDisk = 0;
  } cases[] = {
      {PlanMode::Existing, "s", false, true, 150}, {PlanMode::Existing, "a", false, false},    {PlanMode::Existing, "n", false, true},
      {PlanMode::Existing, "c", true, false},      {PlanMode::Existing, "<Esc>", true, false}, {PlanMode::New, "s", false, false},
      {PlanMode::New, "n", false, true},           {PlanMode::New, "<Esc>", true, false},
  };
  for (const auto& c : cases) {
    Open(c.mode, kOneStoryCrawl);
    const auto leave = [&](frmDisplay& form) {
      TypeWalls(form, "149.3");
      LeaveBy(c.keys);
      EXPECT_EQ(form.isVisible(), c.stays);
      EXPECT_EQ(Focus() == "txtExtWallLftFirstFloor", c.stays);
    };
    EXPECT_EQ(Run(leave), c.cancelled);
    if (IsOpened(c.mode)) {
      EXPECT_EQ(StoredPlan().ExtWallLftFirstFloor, c.onDisk);
    }
    EXPECT_EQ(record.numbers[NumberBox::ExtWallLftFirstFloor].text, "150");
  }
}

TEST_F(frmDisplayTest, AFormWithoutChangesIsLeftWithoutAQuestion) {
  for (const PlanMode mode : {PlanMode::New, PlanMode::Existing}) {
    Open(mode, kTwoLevelCrawl);
    EXPECT_TRUE(Run([](frmDisplay&) {
      for (int i = 0; i < 12; ++i) Keys("<PgDown>");
      Keys("<Esc>");
    })) << "looking at a plan is no change";
  }
  const auto stay = [this](frmDisplay& form) {
    asked.Expect(kExitQuestion, Answer::No);
    form.close();
    EXPECT_TRUE(form.isVisible()) << "the checklist has changed it";
  };
  Run(stay, true);
}

TEST_F(frmDisplayTest, ASaveThatFailsKeepsTheForm) {
  Open(PlanMode::Existing, kOneStoryCrawl);
  Run([this](frmDisplay& form) {
    const auto save = [this](const std::string& message) {
      asked.Expect(kExitQuestion, Answer::Yes);
      if (!message.empty()) asked.Expect(message);
      DriveModal<frmEstsave>([] { Keys("<Esc>"); }, [](frmEstsave& prompt) { Click(prompt, "pctSaveOpt_0"); });
    };
    TypeWalls(form, "99999");
    save(kLarge);
    EXPECT_EQ(See(form), "2 Of 11, txtExtWallLftFirstFloor 99999[99999]");
    Keys("150");
    disk.reason = "No space left on device";
    save(FileErrorNotice(FileError("norvale.jnl", disk.reason)));
    EXPECT_TRUE(form.isVisible());
    disk.reason.clear();
    save("");
  });
  EXPECT_EQ(StoredPlan().ExtWallLftFirstFloor, 150);
}

TEST_F(frmDisplayTest, CtrlZGivesBackWhatStoodThere) {
  Open(PlanMode::Existing, kOneStoryCrawl);
  session.CurrentEstimate.ExtWallLftFirstFloor = 150;
  session.CurrentEstimate.RoofingIndex = 2;
  session.CurrentEstimate.Roofing.Assign("GONE FROM THE LIST");
  record = OpenedForm(session.CurrentEstimate);
  Run([this](frmDisplay& form) {
    asked.Expect(kLarge);
    TypeWalls(form, "40000<Backtab>7<Ctrl+Z>");
    EXPECT_EQ(record.numbers[NumberBox::ExtWallLftFirstFloor].text, "150") << "not what the message was about";
    List(form, SelectionList::Roofing).setFocus(Qt::TabFocusReason);
    Keys("<End>");
    EXPECT_EQ(ShownText(record.lists[SelectionList::Roofing]), "STANDING SEAM METAL");
    Keys("<Ctrl+Z>");
    EXPECT_EQ(ShownText(record.lists[SelectionList::Roofing]), "GONE FROM THE LIST");
    EXPECT_EQ(List(form, SelectionList::Roofing).placeholderText(), QStringLiteral("GONE FROM THE LIST"));
    EXPECT_EQ(List(form, SelectionList::Roofing).currentIndex(), -1);
  });
}

TEST_F(frmDisplayTest, ListsAreWorkedByKeysAndNotByTheWheel) {
  Open(PlanMode::New, kOneStoryCrawl);
  Run([this](frmDisplay& form) {
    QComboBox& list = List(form, SelectionList::FramingGrade);
    QWheelEvent turn(QPointF(5, 5), list.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&list, &turn);
    EXPECT_EQ(list.currentIndex(), 0);
    EXPECT_EQ(record.mark, ChangeMark::None);
    Keys("#2 D<Tab>3/4");
    EXPECT_EQ(ShownText(record.lists[SelectionList::FramingGrade]) + ", " + ShownText(record.lists[SelectionList::FloorSheathing]),
              "#2 DOUG FIR-LARCH, 4X8- 3/4 T&G PLYWOOD");
    // The major girder opens the lines below it.
    Keys("<Alt+4>");
    List(form, SelectionList::GirderPly).setFocus();
    Keys("<Home>");
    EXPECT_FALSE(Find(form, "txtMajorGirderLft8")->isEnabled() || Find(form, "lblMajorGirderLft8")->isEnabled() ||
                 Find(form, "lblGirder")->isVisible());
    Keys("<Down><Down>");
    EXPECT_TRUE(Find(form, "txtMajorGirderLft8")->isEnabled() && Find(form, "lblMajorGirderLft8")->isEnabled());
    EXPECT_EQ(Text(form, "lblGirder") + Text(form, "lblWiderGirder"), "3 Mbr4 Mbr");
    Keys("<Alt+1>");
    for (const char* const open : {"<F4>", "<Alt+Down>"}) {
      list.setFocus();
      Keys(open);
      EXPECT_TRUE(list.view()->isVisible());
      list.hidePopup();
    }
  });
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
    EXPECT_EQ(panel, nullptr) << "off until it is asked for";
    TypeWalls(form, "<Alt+L>");
    EXPECT_EQ(Focus(), "txtExtWallLftFirstFloor");
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

// The keys that choose a row of the list at hand and go on.
std::string Row(int row) {
  std::string keys = "<Home>";
  for (int i = 0; i < row; ++i) keys += "<Down>";
  return keys + "<Return>";
}

// Types what the sample holds into the box that has the focus and goes on with Enter.
void TypeOver(const PlanForm& record, const PlanForm& sample, AskedMessages& asked) {
  const LineField field = FieldOfControl(Focus());
  if (field.IsList()) return Keys(Row(sample.lists[field.List()].ListIndex).c_str());
  const auto joist = JoistOfControl(Focus());
  const std::string& text = joist ? sample.joists[*joist].text : sample.numbers[field.Number()].text;
  Keys(text.empty() ? "<Del>" : text.c_str());
  // A row of a table that stays empty is asked for while the others are empty, too.
  PlanForm copy = record;
  const bool isAsked = !joist && !LeaveNumberBox(copy, field.Number()).message.empty();
  if (isAsked) asked.Expect(kRequired);
  Keys(isAsked ? "<Return><Return>" : "<Return>");
}

// Every section from ADD to ADD, and the joists.
void TypeRoof(frmROOF& form, const EstimateRecord& sample) {
  for (const RoofPlane& section : sample.RoofPlanes) {
    if (section.SectionType == 0) continue;
    EXPECT_EQ(Focus(), "cmdADD");
    Keys("<Return><Backtab>");
    const std::string type = "optRoof_" + std::to_string(section.SectionType);
    for (int step = 0; Focus() != type && step < kRoofTypes; ++step) Keys("<Down>");
    std::string keys = "<Return>";
    for (const int inches : {section.SectionLength, section.RafterRun, section.LoadWallRun})
      keys += (inches == 0 ? "" : std::to_string(inches / 12) + "-" + std::to_string(inches % 12)) + "<Return>";
    Keys((keys + Row(section.RafterIndex) + Row(section.PitchIndex) + Row(section.FramingType)).c_str());
  }
  std::string keys = "<Alt+D>";
  for (const auto* row : {&sample.CeilingJoistLft2X6, &sample.CeilingJoistLft2X8})
    for (const int feet : *row) keys += (feet == 0 ? "" : std::to_string(feet)) + "<Return>";
  Keys(keys.c_str());
  EXPECT_EQ(Focus(), "cmdJOIST");
  Click(form, "cmdJOIST");
}

TEST_F(frmDisplayTest, ASamplePlanTypedInIsTheSampleByteForByte) {
  for (const char* const name : {"plan-crawl-field-framed", "plan-crawl-stick-roof", "plan-slab-vinyl-two-story"}) {
    SCOPED_TRACE(name);
    const auto file = std::filesystem::path(NORVALE_SOURCE_DIR) / "samples" / (std::string(name) + ".json");
    EstimateRecord sample = ImportTables(ReadWholeFile(file)).plans.front();
    PadTexts(sample);
    const PlanForm want = OpenedForm(sample);
    EstimateRecord& plan = session.CurrentEstimate;
    plan = BlankPlan();
    plan.CustomerNumber = sample.CustomerNumber, plan.PlanNumber = sample.PlanNumber, plan.PlanDate = sample.PlanDate;
    plan.PlanType = sample.PlanType, plan.PriceLevel = sample.PriceLevel, plan.EavesLft = sample.EavesLft;
    record = OpenPlanForm(PlanMode::New, false, plan, DeliveredScreenLines(), DeliveredMaterialRows());
    record.CarportSqFtUnmulled = sample.CarportSqFtUnmulled;  // no box holds it
    EXPECT_FALSE(Run([&](frmDisplay& form) {
      if (sample.RoofPlanes[0].SectionType != 0) {
        asked.Expect(std::string(kTransferAreaQuestion), Answer::No);
        DriveModal<frmROOF>([&] { Click(form, "cmdRoof"); }, [&](frmROOF& roof) { TypeRoof(roof, sample); });
        Find(form, "cboFramingGrade")->setFocus();
      }
      for (int steps = 0; steps < 200 && Focus() != "cmdPrev"; ++steps)
        Focus() == "cmdNext" ? Keys("<Return>") : TypeOver(record, want, asked);
      EXPECT_EQ(record.CurrentScreen, ScreenCount);
      EXPECT_EQ(CheckBeforePrint(record).screen, -1);
      LeaveBy("s");
    }));
    StorePlanFromForm(record, plan);
    AddEstimate(folder, session);
    ASSERT_TRUE(FindEstimateOfPlan(folder, session, sample.CustomerNumber, sample.PlanNumber.Trimmed()));
    EXPECT_EQ(ExportTables({}, {session.CurrentEstimate}), ExportTables({}, {sample}));
    EXPECT_EQ(session.CurrentEstimate, sample);
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
            EXPECT_TRUE(page->rect().contains(QRect(control->mapTo(page, QPoint()), control->size()))) << name;
            EXPECT_GE(control->height(), control->sizeHint().height()) << name;
            // A number box is as wide as its numbers, whatever its hint says.
            const bool isNumber = qobject_cast<const NumberEdit*>(control) != nullptr;
            EXPECT_GE(control->width(), isNumber ? 0 : control->sizeHint().width()) << name;
          }
        }
        for (const QPushButton* const button : form.findChildren<QPushButton*>())
          EXPECT_GE(button->width(), button->isVisible() ? button->sizeHint().width() : 0) << button->objectName().toStdString();
        Keys("<Esc>");
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
    Keys("1999.2<Return>400<Return>6<Return>120<Return>20<Return>14.5<Return>2<Return>24<Return>10<Return>");
    EXPECT_EQ(Text(form, "txtfootage_0") + Focus(), "2000cmdOK");
    Keys("<Return>");
  };
  EXPECT_EQ(RunSheet(kOneStorySlab | kAttachedGarage, type), QDialog::Accepted);
  EXPECT_EQ(record.numbers[NumberBox::HeatedSqFtFirstFloor].text + " " + record.numbers[NumberBox::GarageSqFt].text + " " +
                record.numbers[NumberBox::GableSqFt].text,
            "2000 400 85");
  EXPECT_EQ(record.lists[SelectionList::RoofOverhang].ListIndex, 0);
  EXPECT_EQ(session.CurrentEstimate.EavesLft, 120);
}

TEST_F(FrmnewestTest, AsksForAMissingWidthOnceAndRefusesWhatIsTooLarge) {
  const auto type = [this](Frmnewest& form) {
    Type(form, "txtfootage_4", "6");
    Type(form, "txtfootage_8", "3");
    const auto focus = [] { return Focus(); };
    TakeSteps({{"<Tab>", "GableWidths_0"}, {"24<Alt+O>", "GableWidths_1", kRequired}}, asked, focus);
    Type(form, "txtfootage_0", "32768");
    // With 32767 it is the roof over it that is too large.
    TakeSteps({{"<Alt+O>", "txtfootage_0", kLarge}, {"32767<Alt+O>", "txtfootage_0", kLarge}}, asked, focus);
    Keys("1000<Alt+O>");
  };
  EXPECT_EQ(RunSheet(kOneStorySlab, type), QDialog::Accepted);
  EXPECT_EQ(record.numbers[NumberBox::GableSqFt].text, "72");
}

TEST_F(FrmnewestTest, IsDroppedWithoutAWordOnlyWhileItIsEmpty) {
  EXPECT_EQ(RunSheet(kOneStorySlab, [](Frmnewest&) { Keys("<Esc>"); }), QDialog::Rejected);
  const auto leave = [this](Frmnewest& form) {
    Keys("1000");
    for (const Answer answer : {Answer::No, Answer::Yes}) {
      EXPECT_TRUE(form.isVisible());
      asked.Expect("2 Leave the preliminary measurements without using them?|prelim measurements", answer);
      form.close();
    }
  };
  EXPECT_EQ(RunSheet(kOneStorySlab, leave), QDialog::Rejected);
  EXPECT_EQ(record.mark, ChangeMark::None);
}

TEST_F(FrmnewestTest, CanBeFilledInAgainForAnOpenedPlan) {
  Open(PlanMode::Existing, kOneStorySlab);
  Run([this](frmDisplay& form) {
    asked.Expect(std::string(kPreliminaryNotice));
    const auto fill = [](Frmnewest& sheet) { Type(sheet, "txtfootage_5", "120"), Click(sheet, "cmdOK"); };
    DriveModal<Frmnewest>([&] { Click(form, "cmdPreliminary"); }, fill);
    Keys("<Alt+9>");
    EXPECT_EQ(Text(form, "txtFasciaLft"), "120");
    LeaveBy("s");
  });
  EXPECT_EQ(StoredPlan().EavesLft, 120);
}

}  // namespace
}  // namespace norvale
