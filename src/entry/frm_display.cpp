#include "entry/frm_display.h"

#include <QBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QSplitter>
#include <QStackedWidget>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "base/text.h"
#include "data/estimate_file.h"
#include "data/plan_type.h"
#include "desktop/frm_keys.h"
#include "desktop/frm_look.h"
#include "desktop/frm_ring.h"
#include "desktop/frm_text.h"
#include "entry/checklist.h"
#include "entry/frm_boxes.h"
#include "entry/frm_display_parts.h"
#include "entry/frm_estsave.h"
#include "entry/frm_live_panel.h"
#include "entry/frm_newest.h"
#include "entry/frm_page.h"
#include "entry/frm_roof.h"
#include "entry/plan_form.h"
#include "entry/screens.h"

namespace norvale {

namespace {

constexpr QSize kLeastWindow(1024, 700);
constexpr const char* kKeysLine = " TAB or SHIFT+TAB To Move; ALT+DN=List F1=Help ALT+F2=Calculator  ESC=Exit";
constexpr const char* kPrintLine = "Loading Print Information ...";

}  // namespace

frmDisplay::frmDisplay(Program& program, PlanForm& form, bool isPlanChanged, DisplayTasks tasks, QWidget* parent)
    : QDialog(parent), program_(program), form_(form), isPlanChanged_(isPlanChanged), tasks_(std::move(tasks)) {
  setObjectName(QStringLiteral("frmDisplay"));
  const Session& session = program.session;
  setWindowTitle(
      Shown(DisplayTitle(ToUtf8(session.CurrentCustomer.CustomerName.Trimmed()), ToUtf8(session.CurrentEstimate.PlanNumber.Trimmed()))));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  setProperty(kHelpPage, QStringLiteral("plans"));

  ShowScreen(form_, 0);
  Page_ = new QStackedWidget;
  Page_->setObjectName(QStringLiteral("Page"));
  for (int screen = 0; screen <= ScreenCount; ++screen) MakePage(screen);
  splitter_ = new QSplitter(Qt::Horizontal, this);
  splitter_->addWidget(Page_);
  splitter_->setCollapsible(0, false);

  liveTimer_ = new QTimer(this);
  liveTimer_->setSingleShot(true);
  liveTimer_->setInterval(0);
  connect(liveTimer_, &QTimer::timeout, this, [this] {
    if (live_ == nullptr || live_->isHidden()) return;
    EstimateRecord plan = program_.session.CurrentEstimate;
    StorePlanFromForm(form_, plan);
    live_->ShowPlan(plan);
  });

  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  QWidget* const head = MakeHead();
  QWidget* const band = MakeButtons();
  QWidget* const foot = MakeFoot();
  layout->addWidget(head);
  layout->addWidget(splitter_, 1);
  layout->addWidget(band);
  layout->addWidget(foot);
  ShowForm();
  FitLines(head->sizeHint().height() + band->sizeHint().height() + foot->height());
  const QSize available = screen()->availableSize();
  setMinimumSize(kLeastWindow.boundedTo(available));
  resize(minimumSize());
}

QWidget* frmDisplay::MakeHead() {
  auto* const head = new QWidget(this);
  head->setProperty("band", true);
  head->setAttribute(Qt::WA_StyledBackground);
  PageLabel_ = new QLabel(head);
  PageLabel_->setObjectName(QStringLiteral("PageLabel"));
  MakeTitle(PageLabel_);
  const EstimateRecord& plan = program_.session.CurrentEstimate;
  auto* const lblPlan = new CutLabel(Shown(ToUtf8(plan.PlanNumber.Trimmed() + "   " + PlanDescription(form_.PlanType))), head);
  lblPlan->setObjectName(QStringLiteral("lblPlan"));
  lblPlan->setAccessibleName(tr("Plan"));
  auto* const titles = new QVBoxLayout;
  titles->setSpacing(0);
  titles->addWidget(PageLabel_);
  titles->addWidget(lblPlan);
  auto* const row = new QHBoxLayout(head);
  const int space = fontMetrics().height();
  row->setContentsMargins(space * 3 / 2, space / 2, space * 3 / 2, space / 2);
  row->setSpacing(space / 4);
  row->addLayout(titles, 1);
  row->addSpacing(space);
  for (int screen = 0; screen <= ScreenCount; ++screen) {
    auto* const mark = new ScreenMark(screen, head);
    connect(mark, &QAbstractButton::clicked, this, [this, screen] { GoTo(screen); });
    // Not the mark's own: its key would take the focus from the box at hand.
    connect(new QShortcut(mark->Key(), this), &QShortcut::activated, this, [this, screen] { GoTo(screen); });
    row->addWidget(mark);
    marks_[static_cast<std::size_t>(screen)] = mark;
  }
  return head;
}

void frmDisplay::MakePage(int screen) {
  auto* const page = new PlanPage(form_, screen);
  connect(page, &PlanPage::Changed, this, &frmDisplay::FormChanged);
  connect(page, &PlanPage::Entered, this, &frmDisplay::BoxEntered);
  connect(page, &PlanPage::Refused, this, [this](const std::string& message, NumberEdit* edit, bool focusReturns) {
    Tell(message);
    if (focusReturns) edit->TakeFocusBack();
  });
  page->ShowLines();
  Page_->addWidget(page);
  pages_[static_cast<std::size_t>(screen)] = page;
}

QPushButton* frmDisplay::MakeButton(const char* ring, const char* name, const QString& caption, QBoxLayout* row) {
  auto* const label = new RingLabel(QString::fromLatin1(ring), QString::fromLatin1(name), caption, this);
  label->Button()->setAutoDefault(false);
  row->addWidget(label);
  return label->Button();
}

QWidget* frmDisplay::MakeButtons() {
  QWidget* const band = MakeBand(this);
  auto* const row = new QHBoxLayout(band);
  const int space = fontMetrics().height();
  row->setContentsMargins(space * 3 / 2 - 3, space / 3, space * 3 / 2 - 3, space / 3);
  row->setSpacing(space / 4);
  cmdNext_ = MakeButton("lblNext", "cmdNext", tr("&Next Screen"), row);
  cmdPrev_ = MakeButton("lblPrev", "cmdPrev", tr("Pre&v Screen"), row);
  cmdPrint_ = MakeButton("lblPrint", "cmdPrint", tr("&Print"), row);
  cmdExit_ = MakeButton("lblExit", "cmdExit", tr("E&xit"), row);
  row->addStretch();
  cmdRoof_ = MakeButton("lblRoof", "cmdRoof", tr("Stick Built Roof"), row);
  cmdRoof_->setShortcut(QKeySequence(Qt::ALT | Qt::Key_R));
  cmdRoof_->setToolTip(tr("ALT+R"));
  cmdPreliminary_ = MakeButton("lblPreliminary", "cmdPreliminary", tr("Prelim&inary..."), row);
  connect(cmdNext_, &QPushButton::clicked, this, [this] { Go(+1); });
  connect(cmdPrev_, &QPushButton::clicked, this, [this] { Go(-1); });
  connect(cmdPrint_, &QPushButton::clicked, this, &frmDisplay::Print);
  connect(cmdExit_, &QPushButton::clicked, this, &frmDisplay::Exit);
  connect(cmdRoof_, &QPushButton::clicked, this, &frmDisplay::OpenRoof);
  connect(cmdPreliminary_, &QPushButton::clicked, this, &frmDisplay::OpenPreliminary);
  return band;
}

QWidget* frmDisplay::MakeFoot() {
  auto* const foot = new QWidget(this);
  lblStatus_ = new QLabel(QString::fromLatin1(kKeysLine), foot);
  lblStatus_->setObjectName(QStringLiteral("lblStatus"));
  lblStatus_->setAccessibleName(tr("Status line"));
  lblStatus_->setTextFormat(Qt::PlainText);
  lblStatus_->setProperty("role", QStringLiteral("quiet"));
  lblStatus_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // its text never widens the window
  cmdLive_ = new QPushButton(tr("&Live List"), foot);
  cmdLive_->setObjectName(QStringLiteral("cmdLive"));
  cmdLive_->setAccessibleName(tr("Live List"));
  cmdLive_->setAutoDefault(false);
  cmdLive_->setCheckable(true);
  cmdLive_->setVisible(static_cast<bool>(tasks_.makeLivePanel));
  connect(cmdLive_, &QPushButton::toggled, this, &frmDisplay::ToggleLive);
  auto* const row = new QHBoxLayout(foot);
  const int space = fontMetrics().height();
  row->setContentsMargins(space * 3 / 2, space / 4, space * 3 / 2, space / 4);
  row->addWidget(lblStatus_, 1);
  row->addWidget(cmdLive_);
  foot->setFixedHeight(cmdLive_->sizeHint().height() + space / 2);
  return foot;
}

// The least window shows every screen whole: with more room lines stand further apart, with less what to enter is written
// smaller.
void frmDisplay::FitLines(int heightOfFrame) {
  std::array<PageWidths, kScreens> widths;
  PageWidths all;
  int mostLines = 0;
  int lineHeight = 0;
  for (std::size_t screen = 0; screen < kScreens; ++screen) {
    widths[screen] = pages_[screen]->Widths();
    all.Hold(widths[screen]);
    mostLines = std::max(mostLines, pages_[screen]->LineCount());
    lineHeight = std::max(lineHeight, pages_[screen]->LineHeight());
  }
  const QMargins margins = pages_[0]->layout()->contentsMargins();
  const int spacing = fontMetrics().height() * 2 / 3;
  const int width = kLeastWindow.width() - margins.left() - margins.right() - 2 * spacing;
  const int height = kLeastWindow.height() - heightOfFrame - margins.top() - margins.bottom();
  const int apart = std::clamp((height - mostLines * lineHeight) / mostLines, 2, fontMetrics().height() / 2);
  // Captions, boxes and texts begin at the same place on every screen, where that leaves room for the texts.
  const bool isAligned = all.Whole() <= width;
  double scale = 1;
  for (std::size_t screen = 0; screen < kScreens; ++screen) {
    const PageWidths& page = widths[screen];
    pages_[screen]->Place(isAligned ? all : page, apart);
    if (page.Whole() > width) scale = std::min(scale, static_cast<double>(width - page.caption - page.box) / page.hint);
  }
  if (scale == 1) return;
  constexpr double kLeastScale = 0.75;
  QFont small = font();
  small.setPointSizeF(font().pointSizeF() * std::max(scale, kLeastScale));
  for (PlanPage* const page : pages_) page->SetHintFont(small);
}

int frmDisplay::exec() {
  planCancelled_ = false;
  return QDialog::exec();
}

void frmDisplay::reject() { Exit(); }

void frmDisplay::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (event->spontaneous() || isShownOnce_) return;
  isShownOnce_ = true;
  FocusLine(FirstUsableLine(form_, form_.CurrentScreen));
  // Once the form is seen.
  QMetaObject::invokeMethod(this, &frmDisplay::AskAboutShutBoxes, Qt::QueuedConnection);
}

void frmDisplay::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow()) ShowStatus();
}

void frmDisplay::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_PageDown) return Go(+1);
  if (event->key() == Qt::Key_PageUp) return Go(-1);
  QDialog::keyPressEvent(event);
}

void frmDisplay::ShowForm() {
  Page_->setCurrentIndex(form_.CurrentScreen);
  CurrentPage()->ShowLines();
  ShowFrame();
}

PlanPage* frmDisplay::CurrentPage() const { return pages_[static_cast<std::size_t>(form_.CurrentScreen)]; }

void frmDisplay::ShowFrame() {
  const ScreenFrame frame = FrameOf(form_);
  PageLabel_->setText(Shown(frame.PageLabel));
  for (int screen = 0; screen <= ScreenCount; ++screen) {
    using State = ScreenMark::State;
    const State state = !HasUsableLine(form_, screen) ? State::Unused : IsScreenComplete(form_, screen) ? State::Complete : State::Open;
    marks_[static_cast<std::size_t>(screen)]->Set(state, screen == form_.CurrentScreen);
  }
  cmdNext_->setEnabled(frame.canGoNext);
  cmdPrev_->setEnabled(frame.canGoBack);
  cmdPrint_->setEnabled(form_.isPrintEnabled && static_cast<bool>(tasks_.printEstimate));
  cmdRoof_->setVisible(frame.showsRoofButton);
}

void frmDisplay::FormChanged() {
  ShowFrame();
  liveTimer_->start();
}

void frmDisplay::BoxEntered(QWidget* box, int line) {
  boxAtHand_ = box;
  lineAtHand_ = line;
  ShowStatus();
}

void frmDisplay::ShowStatus() {
  const QString hint = CurrentPage()->CutHint(lineAtHand_);
  lblStatus_->setText(hint.isEmpty() ? QString::fromLatin1(kKeysLine) : QLatin1Char(' ') + hint);
}

void frmDisplay::BackToBox() {
  if (boxAtHand_ != nullptr && boxAtHand_->isEnabled() && boxAtHand_->isVisibleTo(this)) boxAtHand_->setFocus(Qt::OtherFocusReason);
}

void frmDisplay::FocusLine(int line) {
  QWidget* focus = CurrentPage()->BoxOfLine(line);
  // A screen without a box that can be used.
  if (focus == nullptr) focus = cmdNext_->isEnabled() ? cmdNext_ : cmdPrev_;
  focus->setFocus(Qt::OtherFocusReason);
}

void frmDisplay::FocusFault(std::variant<NumberBox, JoistBox> box) {
  const auto* const joist = std::get_if<JoistBox>(&box);
  const NumberBox number = joist != nullptr ? RowOf(*joist).bay : std::get<NumberBox>(box);
  // A box that is shut or hidden holds it: opened, so that it can be corrected.
  if (joist != nullptr) {
    form_.joists[*joist].enabled = true;
    form_.joists[*joist].isHidden = false;
  } else {
    form_.numbers[number].enabled = true;
  }
  if (const int screen = ScreenOfNumber(form_, number); screen >= 0) {
    form_.CurrentScreen = screen;  // one with nothing else to enter would be passed over
    ShowScreen(form_, 0);
    ScreenChanged(form_.lineOfNumber[number]);
  }
  ShowForm();
  NumberEdit* const edit = CurrentPage()->EditOf(box);
  if (edit == nullptr) return;
  edit->setFocus(Qt::OtherFocusReason);
  edit->selectAll();  // it may have had the focus all along
}

void frmDisplay::Tell(const std::string& message) { program_.messages.ShowMessage(WithTitle(message)); }

void frmDisplay::Go(int delta) {
  CurrentPage()->RoundBoxAtHand();
  if (form_.CurrentScreen + delta < 0 || form_.CurrentScreen + delta > ScreenCount) return;
  ScreenChanged(ShowScreen(form_, delta));
}

void frmDisplay::GoTo(int screen) {
  CurrentPage()->RoundBoxAtHand();
  ScreenChanged(GoToScreen(form_, screen));
}

void frmDisplay::ScreenChanged(int line) {
  // Away from the old page first: it would hand its focus to any box of the new one.
  Page_->setFocus(Qt::OtherFocusReason);
  ShowForm();
  FocusLine(line);
  FormChanged();
  if (tasks_.keepDraft) Try(program_.messages, tasks_.keepDraft);
}

bool frmDisplay::ToldNumberFault() {
  const auto fault = FirstNumberFault(form_);
  if (!fault) return false;
  Tell(fault->message);
  FocusFault(fault->box);
  return true;
}

void frmDisplay::Print() {
  CurrentPage()->RoundBoxAtHand();
  if (ToldNumberFault()) return;
  const PrintCheck check = CheckBeforePrint(form_);
  ShowForm();
  if (check.screen >= 0) {
    Tell(check.message);
    ScreenChanged(GoToScreen(form_, check.screen));
    const ScreenCheck found = CheckScreenComplete(form_, check.screen);
    if (!found.message.empty()) Tell(found.message);
    if (found.focus) CurrentPage()->EditOf(*found.focus)->setFocus(Qt::OtherFocusReason);  // each has a line: see RefusalOfPlan
    return;
  }
  lblStatus_->setText(QString::fromLatin1(kPrintLine));
  StorePlanFromForm(form_, program_.session.CurrentEstimate);
  Try(program_.messages, [this] { tasks_.printEstimate(form_, this); });
  ShowStatus();
}

void frmDisplay::Exit() {
  CurrentPage()->RoundBoxAtHand();
  switch (StepOfExit(form_, isPlanChanged_)) {
    case ExitStep::Leave:
      return Leave(true);
    case ExitStep::AskToExit: {
      const std::string number = ToUtf8(program_.session.CurrentEstimate.PlanNumber.Trimmed());
      if (program_.messages.ShowMessage(ExitQuestion(number)) != Answer::Yes) return BackToBox();
      break;
    }
    case ExitStep::AskToSave:
      break;
  }
  frmEstsave prompt(form_.mode, this);
  prompt.exec();
  const SaveOutcome outcome = OutcomeOfSave(form_.mode, prompt.Choice());
  if (outcome.staysOnForm) return BackToBox();
  const bool keepsPlan = outcome.updatesRecord || !outcome.PlanCancelled;
  if (keepsPlan && ToldNumberFault()) return;
  if (outcome.updatesRecord && !SaveInPlace()) return BackToBox();
  Leave(outcome.PlanCancelled);
}

bool frmDisplay::SaveInPlace() {
  EstimateChange change = EstimateChange::NothingOnFile;
  const bool isDone = Try(program_.messages, [&] {
    StorePlanFromForm(form_, program_.session.CurrentEstimate);
    change = UpdateEstimate(program_.folder, program_.session);
  });
  if (!isDone) return false;
  if (change == EstimateChange::NothingOnFile) Tell("0 This plan is no longer on file. Save it as a new one.|");
  return change == EstimateChange::Done;
}

void frmDisplay::Leave(bool planCancelled) {
  planCancelled_ = planCancelled;
  done(planCancelled ? Rejected : Accepted);
}

void frmDisplay::OpenPreliminary() {
  if (program_.messages.ShowMessage(std::string(kPreliminaryNotice)) != Answer::Ok) return BackToBox();
  Frmnewest(program_, form_, this).exec();
  ShowForm();
  FormChanged();
  if (tasks_.keepDraft) Try(program_.messages, tasks_.keepDraft);
}

void frmDisplay::OpenRoof() {
  frmROOF(program_, program_.session.CurrentEstimate, form_, this).exec();
  ShowForm();
  FormChanged();
  if (tasks_.keepDraft) Try(program_.messages, tasks_.keepDraft);
}

void frmDisplay::AskAboutShutBoxes() {
  if (!form_.isTypeChanged || wasAskedAboutShutBoxes_ || ShutBoxesWithValues(form_).empty()) return;
  wasAskedAboutShutBoxes_ = true;
  if (program_.messages.ShowMessage(std::string(kClearShutBoxesQuestion)) == Answer::Yes) ClearShutBoxes(form_);
  ShowForm();
  FormChanged();
}

void frmDisplay::ToggleLive(bool shown) {
  if (shown && live_ == nullptr) {
    live_ = tasks_.makeLivePanel(this);
    const int space = fontMetrics().height();
    live_->setContentsMargins(0, space * 3 / 4, space * 3 / 2, space / 4);
    splitter_->addWidget(live_);
    splitter_->setStretchFactor(1, 1);
    // What to enter is cut off first: the status line shows it for the box at hand.
    const int page = std::max(Page_->minimumSizeHint().width(), std::min(Page_->sizeHint().width(), width() * 6 / 10));
    splitter_->setSizes({page, width() - page});
  }
  live_->setVisible(shown);
  liveTimer_->start();
  // Typing goes on where it was.
  BackToBox();
  // Once everything has its place.
  QMetaObject::invokeMethod(this, &frmDisplay::ShowStatus, Qt::QueuedConnection);
}

}  // namespace norvale
