#include "entry/frm_checklst.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QEventLoop>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QVBoxLayout>
#include <QValidator>
#include <algorithm>
#include <utility>

#include "base/text.h"
#include "data/plan_type.h"
#include "desktop/frm_keys.h"
#include "desktop/frm_ring.h"
#include "desktop/frm_text.h"
#include "entry/frm_display.h"
#include "entry/frm_newest.h"
#include "entry/plan_search.h"

namespace norvale {

namespace {

constexpr const char* kTitle = "Norvale: Plan CheckList";
constexpr const char* kLoadingLine = " Loading Estimate Information...";

struct BoxInfo {
  ChecklistBox box;
  const char* name;
  const char* caption;
  int width;  // characters
};
constexpr std::array<BoxInfo, 4> kBoxInfo = {{
    {ChecklistBox::txtcustnum, "txtcustnum", "Number:", 5},
    {ChecklistBox::txtCustName, "txtCustName", "Customer Name:", 35},
    {ChecklistBox::txtPlanNbr, "txtPlanNbr", "Plan:", 15},
    {ChecklistBox::txtdate, "txtdate", "Date:", 10},
}};

struct ButtonName {
  const char* button;
  const char* ring;
};
constexpr std::array<ButtonName, kChecklistButtons> kButtonNames = {{
    {"cmdOK", "lblOK"},
    {"cmdCANCEL", "lblCANCEL"},
    {"cmdNEXT", "lblNEXT"},
    {"cmdPREV", "lblPREV"},
    {"cmdFind", "lblfind"},
    {"cmdDelete", "lbldelete"},
    {"cmdchange", "lblchange"},
}};

// What a field takes, key by key and when something is pasted into it. What stood in it before may be anything.
class FieldKeys : public QValidator {
 public:
  FieldKeys(ChecklistBox box, QObject* parent) : QValidator(parent), box_(box) {}

  State validate(QString& text, int& /*at*/) const override {
    const auto isTaken = [this](QChar letter) { return TakesCharacter(box_, letter.unicode()); };
    return std::all_of(text.cbegin(), text.cend(), isTaken) ? Acceptable : Invalid;
  }

 private:
  ChecklistBox box_;
};

std::size_t At(ChecklistButton button) { return static_cast<std::size_t>(button); }

}  // namespace

frmChecklst::frmChecklst(Program& program, ChecklistPurpose purpose, PlanTasks tasks, QWidget* parent)
    : QDialog(parent), program_(program), tasks_(std::move(tasks)) {
  form_.isOpen = Try(program.messages, [&] { form_ = OpenChecklist(program, purpose); });
  MakeForm();
}

frmChecklst::frmChecklst(Program& program, PlanDraft draft, PlanTasks tasks, QWidget* parent)
    : QDialog(parent), program_(program), tasks_(std::move(tasks)), draft_(std::move(draft)) {
  form_.isOpen = Try(program.messages, [&] { form_ = ChecklistOfDraft(program, *draft_); });
  MakeForm();
}

void frmChecklst::MakeForm() {
  setObjectName(QStringLiteral("frmChecklst"));
  setWindowTitle(QString::fromLatin1(kTitle));
  setProperty(kHelpPage, QStringLiteral("checklist"));
  const int space = fontMetrics().height();

  auto* const grid = new QGridLayout;
  grid->setHorizontalSpacing(space);
  grid->setVerticalSpacing(space / 2);
  MakeBoxes(grid);
  lblDescription_ = new QLabel(this);
  lblDescription_->setObjectName(QStringLiteral("lblDescription"));
  lblDescription_->setAccessibleName(tr("Plan description"));
  lblDescription_->setProperty("role", QStringLiteral("quiet"));
  lblDescription_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  lblStatus_ = new QLabel(this);
  lblStatus_->setObjectName(QStringLiteral("lblStatus"));
  lblStatus_->setAccessibleName(tr("Status line"));
  lblStatus_->setTextFormat(Qt::PlainText);
  lblStatus_->setProperty("role", QStringLiteral("status"));
  lblStatus_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);

  auto* const body = new QVBoxLayout;
  body->setContentsMargins(space * 3 / 2, space, space * 3 / 2, space);
  body->setSpacing(space * 2 / 3);
  body->addLayout(grid);
  body->addWidget(MakeLevels());
  body->addWidget(MakeChecks());
  body->addWidget(lblDescription_);
  body->addStretch();
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  browseBand_ = MakeBrowseBand();
  layout->addWidget(browseBand_);
  layout->addLayout(body, 1);
  layout->addWidget(MakeOkBand());
  layout->addWidget(lblStatus_);
  SetTabOrder();
  ShowForm();
}

void frmChecklst::MakeBoxes(QGridLayout* grid) {
  for (std::size_t i = 0; i < kBoxes; ++i) {
    const BoxInfo& info = kBoxInfo[i];
    auto* const box = new QLineEdit(this);
    box->setObjectName(QString::fromLatin1(info.name));
    box->setAccessibleName(QString::fromLatin1(info.caption).chopped(1));
    box->setMaxLength(info.width);
    box->setMinimumWidth(fontMetrics().averageCharWidth() * (info.width + 3));
    if (info.box == ChecklistBox::txtcustnum || info.box == ChecklistBox::txtdate) box->setValidator(new FieldKeys(info.box, box));
    box->installEventFilter(this);
    connect(box, &QLineEdit::textEdited, this, &frmChecklst::TakeBoxes);
    auto* const label = new QLabel(QString::fromLatin1(info.caption), this);
    label->setBuddy(box);
    const int row = static_cast<int>(i) / 2;
    const int column = static_cast<int>(i) % 2 * 2;
    grid->addWidget(label, row, column, Qt::AlignLeft | Qt::AlignVCenter);
    grid->addWidget(box, row, column + 1);
    boxes_[i] = box;
  }
  boxes_[kDate]->setMaximumWidth(boxes_[kDate]->minimumWidth() * 3 / 2);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(3, 2);
}

QWidget* frmChecklst::MakeLevels() {
  auto* const part = new QWidget(this);
  auto* const row = new QHBoxLayout(part);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(fontMetrics().height());
  auto* const label = new QLabel(tr("Pricing level"), part);
  label->setObjectName(QStringLiteral("lblprice"));
  row->addWidget(label);
  for (std::size_t i = 0; i < kLevels; ++i) {
    auto* const option = new QRadioButton(QLatin1Char('&') + QString::number(i + 1), part);
    option->setObjectName(InArray("optprice", i));
    option->setAccessibleName(tr("Pricing level %1").arg(i + 1));
    option->setFocusPolicy(Qt::StrongFocus);
    const int level = static_cast<int>(i) + 1;
    connect(option, &QRadioButton::clicked, this, [this, level] {
      PickPriceLevel(form_, level);
      ShowForm();
    });
    row->addWidget(option);
    optprice_[i] = option;
  }
  row->addStretch();
  return part;
}

QWidget* frmChecklst::MakeChecks() {
  constexpr int kInColumn = 4;
  frachklist_ = new QGroupBox(QString(40, QLatin1Char(' ')) + QStringLiteral("P&lan Description") + QString(41, QLatin1Char(' ')), this);
  frachklist_->setObjectName(QStringLiteral("frachklist"));
  frachklist_->setAlignment(Qt::AlignHCenter);
  frachklist_->setAccessibleName(tr("Plan Description"));
  auto* const grid = new QGridLayout(frachklist_);
  const int space = fontMetrics().height();
  grid->setContentsMargins(space, space * 2 / 3, space, space * 2 / 3);
  grid->setHorizontalSpacing(space * 3 / 2);
  grid->setVerticalSpacing(space / 2);
  for (std::size_t i = 0; i < kPlanChecks; ++i) {
    const auto which = static_cast<PlanCheck>(i);
    const PlanCheckInfo& info = InfoOf(which);
    auto* const box = new QCheckBox(Shown(info.caption), frachklist_);
    box->setObjectName(Shown(info.name));
    box->setAccessibleName(Shown(Trim(info.caption)));
    box->setFocusPolicy(Qt::StrongFocus);
    box->installEventFilter(this);
    connect(box, &QCheckBox::clicked, this, [this, which] { Toggle(which); });
    grid->addWidget(box, static_cast<int>(i) % kInColumn, static_cast<int>(i) / kInColumn);
    checks_[i] = box;
  }
  return frachklist_;
}

RingLabel* frmChecklst::MakeButton(ChecklistButton button, QWidget* band) {
  const ButtonName& names = kButtonNames[At(button)];
  auto* const ring =
      new RingLabel(QString::fromLatin1(names.ring), QString::fromLatin1(names.button), Shown(CaptionOf(form_, button)), band);
  ring->Button()->setAutoDefault(false);
  connect(ring->Button(), &QPushButton::clicked, this, [this, button] { Press(button); });
  buttons_[At(button)] = ring;
  return ring;
}

QWidget* frmChecklst::MakeBrowseBand() {
  QWidget* const band = MakeBand(this);
  auto* const row = new QHBoxLayout(band);
  const int space = fontMetrics().height();
  row->setContentsMargins(space, space / 2, space, space / 2);
  row->setSpacing(space / 2);
  for (const ChecklistButton button : {ChecklistButton::Next, ChecklistButton::Prev, ChecklistButton::Find})
    row->addWidget(MakeButton(button, band));
  row->addStretch();
  for (const ChecklistButton button : {ChecklistButton::Change, ChecklistButton::Delete}) row->addWidget(MakeButton(button, band));
  return band;
}

QWidget* frmChecklst::MakeOkBand() {
  QWidget* const band = MakeBand(this);
  auto* const row = new QHBoxLayout(band);
  const int space = fontMetrics().height();
  row->setContentsMargins(space, space / 2, space, space / 2);
  row->setSpacing(space / 2);
  row->addStretch();
  for (const ChecklistButton button : {ChecklistButton::OK, ChecklistButton::Cancel}) row->addWidget(MakeButton(button, band));
  // Enter on the last field goes on to OK, ALT+P prints: the plan before is a page back.
  if (form_.purpose == ChecklistPurpose::PrintPlans) buttons_[At(ChecklistButton::Prev)]->Button()->setShortcut(QKeySequence());
  return band;
}

void frmChecklst::SetTabOrder() {
  std::vector<QWidget*> order;
  for (const ChecklistButton button :
       {ChecklistButton::Next, ChecklistButton::Prev, ChecklistButton::Find, ChecklistButton::Change, ChecklistButton::Delete})
    order.push_back(buttons_[At(button)]->Button());
  order.insert(order.end(), boxes_.begin(), boxes_.end());
  order.insert(order.end(), optprice_.begin(), optprice_.end());
  order.insert(order.end(), checks_.begin(), checks_.end());
  for (const ChecklistButton button : {ChecklistButton::OK, ChecklistButton::Cancel}) order.push_back(buttons_[At(button)]->Button());
  for (std::size_t i = 1; i < order.size(); ++i) setTabOrder(order[i - 1], order[i]);
}

int frmChecklst::exec() {
  if (!form_.isOpen) return Rejected;
  if (form_.purpose == ChecklistPurpose::NewPlan && !draft_) {
    if (tasks_.chooseCustomer(parentWidget())) TakeCurrentCustomer(program_.session, form_);
    ShowForm();
  }
  return QDialog::exec();
}

void frmChecklst::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (event->spontaneous()) return;
  ShowFocus();
  if (!draft_) return;
  // Once the form is seen below data entry.
  QMetaObject::invokeMethod(
      this,
      [this] {
        const PlanDraft draft = *std::exchange(draft_, std::nullopt);
        Run([this, &draft](const WorkflowWindows& windows) { return ResumePlanWorkflow(program_, form_, draft, windows); });
      },
      Qt::QueuedConnection);
}

void frmChecklst::reject() { Press(ChecklistButton::Cancel); }

void frmChecklst::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (isBusy_ && copyLoop_ == nullptr) return;
  // The fields of a search are no change: a plan is shown again before the form is left.
  if (form_.isFinding) Press(ChecklistButton::Cancel);
  form_.isFinding = false;  // where the files cannot be read any more
  Press(ChecklistButton::Cancel);
}

void frmChecklst::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_PageDown) return Press(ChecklistButton::Next);
  if (event->key() == Qt::Key_PageUp) return Press(ChecklistButton::Prev);
  QDialog::keyPressEvent(event);
}

bool frmChecklst::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    const auto check = std::find(checks_.begin(), checks_.end(), watched);
    if (check != checks_.end() && key != Qt::Key_Space) {
      KeyOnCheck(form_.entry.checks, static_cast<PlanCheck>(check - checks_.begin()), key);
      ShowForm();
    }
    return QDialog::eventFilter(watched, event);
  }
  if (event->type() == QEvent::FocusOut) {
    const auto box = std::find(boxes_.begin(), boxes_.end(), watched);
    if (box == boxes_.end()) return QDialog::eventFilter(watched, event);
    const auto& left = *static_cast<QFocusEvent*>(event);
    QWidget* const now = QApplication::focusWidget();
    const bool staysInForm = now != nullptr && now->window() == this;
    const bool isCancelling = now == buttons_[At(ChecklistButton::Cancel)]->Button() && left.reason() == Qt::MouseFocusReason;
    // After this event: a message must not open while the focus is on its way.
    if (staysInForm && !isCancelling)
      QMetaObject::invokeMethod(
          this, [this, i = static_cast<std::size_t>(box - boxes_.begin())] { LeaveBox(i); }, Qt::QueuedConnection);
  }
  return QDialog::eventFilter(watched, event);
}

void frmChecklst::LeaveBox(std::size_t box) {
  if (isBusy_ && copyLoop_ == nullptr) return;
  TakeBoxes();
  const ChecklistBox which = kBoxInfo[box].box;
  if (form_.isFinding) {
    Try(program_.messages, [&] { FindBy(program_, form_, which); });
    if (form_.isFinding) return;
    ShowForm();
    ShowFocus();
  } else if (which == ChecklistBox::txtcustnum) {
    Try(program_.messages, [&] { LookUpCustomer(program_, form_); });
    ShowForm();
  }
}

void frmChecklst::Toggle(PlanCheck box) {
  ToggleCheck(form_.entry.checks, box);
  ShowForm();
}

void frmChecklst::Press(ChecklistButton button) {
  if (copyLoop_ != nullptr) {
    if (button == ChecklistButton::Cancel) copyLoop_->quit();
    if (button == ChecklistButton::OK) PressOk();
    return;
  }
  if (isBusy_) return;
  if (button == ChecklistButton::OK) return PressOk();
  TakeBoxes();
  isBusy_ = true;
  Try(program_.messages, [&] { PressButton(program_, form_, button); });
  isBusy_ = false;
  ShowForm();
  // Who steps with a button goes on stepping with it.
  if (!buttons_[At(button)]->Button()->hasFocus() || (button != ChecklistButton::Next && button != ChecklistButton::Prev)) ShowFocus();
  EndIfClosed();
}

void frmChecklst::PressOk() {
  TakeBoxes();
  if (!IsEnabled(form_, ChecklistButton::OK)) return;
  if (form_.purpose == ChecklistPurpose::PrintPlans) return Print();
  const bool wasBusy = std::exchange(isBusy_, true);
  bool isAccepted = false;
  Try(program_.messages, [&] { isAccepted = AcceptChecklist(program_, form_); });
  isBusy_ = wasBusy;
  ShowForm();
  ShowFocus();
  if (!isAccepted) return;
  if (copyLoop_ != nullptr) {
    isCopyNamed_ = true;
    copyLoop_->quit();
    return;
  }
  Run([this](const WorkflowWindows& windows) { return RunPlanWorkflow(program_, form_, windows); });
}

void frmChecklst::Print() {
  isBusy_ = true;
  setWindowTitle(QStringLiteral("Plan Number: ") + boxes_[kPlan]->text());
  SetStatus(QString::fromLatin1(kLoadingLine));
  Try(program_.messages, [&] {
    if (const auto form = PreparePrint(program_, form_)) tasks_.printEstimate(*form, this);
  });
  isBusy_ = false;
  setWindowTitle(QString::fromLatin1(kTitle));
  ShowForm();
}

void frmChecklst::Run(const std::function<WorkflowEnd(const WorkflowWindows&)>& workflow) {
  isBusy_ = true;
  SetStatus(QString::fromLatin1(kLoadingLine));
  WorkflowEnd end = WorkflowEnd::StaysOnChecklist;
  Try(program_.messages, [&] { end = workflow(Windows()); });
  isBusy_ = false;
  if (end == WorkflowEnd::ClosesChecklist) form_.isOpen = false;
  if (form_.isOpen) activateWindow();
  ShowForm();
  ShowFocus();
  EndIfClosed();
}

WorkflowWindows frmChecklst::Windows() {
  WorkflowWindows windows;
  windows.measure = [this](PlanForm& form) { return Frmnewest(program_, form, this).exec() == Accepted; };
  // One form for the whole workflow: shown again, it is as it was left.
  windows.enterPlan = [this, display = std::shared_ptr<frmDisplay>()](PlanForm& form, bool isPlanChanged,
                                                                      const std::function<void()>& keepDraft) mutable {
    if (!display) {
      const DisplayTasks tasks{.printEstimate = tasks_.printEstimate, .keepDraft = keepDraft, .makeLivePanel = tasks_.makeLivePanel};
      display = std::make_shared<frmDisplay>(program_, form, isPlanChanged, tasks, this);
    }
    display->exec();
    return display->PlanCancelled();
  };
  windows.chooseCustomer = [this] { return tasks_.chooseCustomer(this); };
  windows.nameCopy = [this] { return NameCopy(); };
  return windows;
}

bool frmChecklst::NameCopy() {
  QEventLoop loop;
  copyLoop_ = &loop;
  isCopyNamed_ = false;
  activateWindow();
  ShowForm();
  form_.focus = ChecklistControl::txtPlanNbr;
  ShowFocus();
  loop.exec();
  copyLoop_ = nullptr;
  return isCopyNamed_;
}

void frmChecklst::TakeBoxes() {
  form_.entry.txtcustnum = Typed(boxes_[kNumber]->text());
  form_.entry.txtPlanNbr = Typed(boxes_[kPlan]->text());
  form_.entry.txtdate = Typed(boxes_[kDate]->text());
  if (form_.isFinding) form_.txtCustName = Typed(boxes_[kName]->text());
}

void frmChecklst::ShowForm() {
  const std::array<const std::string*, kBoxes> texts = {&form_.entry.txtcustnum, &form_.txtCustName, &form_.entry.txtPlanNbr,
                                                        &form_.entry.txtdate};
  for (std::size_t i = 0; i < kBoxes; ++i) {
    const QString text = Shown(*texts[i]);
    if (boxes_[i]->text() != text) boxes_[i]->setText(text);
    const FieldState state = StateOf(form_, kBoxInfo[i].box);
    boxes_[i]->setEnabled(state != FieldState::Shut);
    boxes_[i]->setReadOnly(state != FieldState::Open);
    boxes_[i]->setFocusPolicy(state == FieldState::Open ? Qt::StrongFocus : Qt::ClickFocus);
  }
  for (std::size_t i = 0; i < kLevels; ++i) {
    const bool isPicked = static_cast<int>(i) + 1 == form_.entry.priceLevel;
    optprice_[i]->setChecked(isPicked);
    optprice_[i]->setEnabled(MayPickPriceLevel(form_));
    optprice_[i]->setFocusPolicy(isPicked ? Qt::StrongFocus : Qt::ClickFocus);  // one stop; the arrows go from level to level
  }
  frachklist_->setEnabled(form_.entry.checks.isEnabled);
  for (std::size_t i = 0; i < kPlanChecks; ++i) checks_[i]->setChecked(form_.entry.checks.ticked[i]);
  lblDescription_->setText(Shown(PlanDescription(PlanTypeOf(form_.entry.checks))));
  bool isBrowsing = false;
  for (std::size_t i = 0; i < kChecklistButtons; ++i) {
    const auto button = static_cast<ChecklistButton>(i);
    buttons_[i]->setVisible(IsShown(form_, button));
    buttons_[i]->Button()->setEnabled(IsEnabled(form_, button));
    isBrowsing = isBrowsing || (IsShown(form_, button) && button != ChecklistButton::OK && button != ChecklistButton::Cancel);
  }
  browseBand_->setVisible(isBrowsing);
  SetStatus(Shown(HintOf(form_)));
}

void frmChecklst::ShowFocus() {
  QWidget* focus = nullptr;
  switch (form_.focus) {
    case ChecklistControl::txtcustnum:
      focus = boxes_[kNumber];
      break;
    case ChecklistControl::txtCustName:
      focus = boxes_[kName];
      break;
    case ChecklistControl::txtPlanNbr:
      focus = boxes_[kPlan];
      break;
    case ChecklistControl::txtdate:
      focus = boxes_[kDate];
      break;
    case ChecklistControl::FoundationBox: {
      const auto ticked = std::find_if(checks_.begin(), checks_.begin() + 4, [](const QCheckBox* box) { return box->isChecked(); });
      focus = ticked == checks_.begin() + 4 ? checks_.front() : *ticked;
      break;
    }
    case ChecklistControl::cmdOK:
      focus = buttons_[At(ChecklistButton::OK)]->Button();
      break;
    case ChecklistControl::cmdCANCEL:
      focus = buttons_[At(ChecklistButton::Cancel)]->Button();
      break;
  }
  focus->setFocus(Qt::OtherFocusReason);
}

void frmChecklst::SetStatus(const QString& text) {
  lblStatus_->setText(text);
  lblStatus_->repaint();
}

void frmChecklst::EndIfClosed() {
  if (!form_.isOpen) done(Accepted);
}

void OfferDraft(Program& program, const PlanTasks& tasks, QWidget* parent) {
  Try(program.messages, [&] {
    FoundDraft found = FindDraft(program.folder);
    if (!found.notice.empty()) program.messages.ShowMessage(found.notice);
    if (!found.draft) return;
    const DraftStanding standing = PlaceDraft(program.folder, program.session, *found.draft);
    if (standing == DraftStanding::Saved) return RemoveDraft(program.folder);
    const std::string name = LookUpPlanCustomer(program.folder, program.session, found.draft->plan.CustomerNumber);
    const std::string question = DraftQuestion(*found.draft, standing, name);
    while (program.messages.ShowMessage(question) != Answer::Yes)
      if (program.messages.ShowMessage(RemoveDraftQuestion(*found.draft)) == Answer::Yes) return RemoveDraft(program.folder);
    if (standing == DraftStanding::Changed) found.draft = AsNewPlan(*std::move(found.draft));
    frmChecklst(program, *std::move(found.draft), tasks, parent).exec();
  });
}

}  // namespace norvale
