#include "printing/frm_prtsel.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "base/numbers.h"
#include "base/text.h"
#include "data/plan_type.h"
#include "desktop/frm_keys.h"
#include "desktop/frm_look.h"
#include "desktop/frm_ring.h"
#include "desktop/frm_text.h"
#include "printing/frm_print_out.h"

namespace norvale {

namespace {

constexpr std::array<const char*, 3> kWorkSheets = {"Both", "Specifications", "Measurements"};
constexpr std::array<const char*, 3> kLists = {"Itemized list", "Order summary by yard section", "Order summary in list order"};

// A check or option box in which Enter is the default button's.
void LeaveEnterToDefault(QWidget* control) { control->setProperty(kTakesEnter, true); }

QString AboutPlan(const Session& session) {
  const EstimateRecord& plan = session.CurrentEstimate;
  return Shown("Plan " + ToUtf8(plan.PlanNumber.Trimmed() + ":  " + PlanDescription(plan.PlanType)));
}

QString AboutOf(PrintKind kind, const Session& session) {
  switch (kind) {
    case PrintKind::CustomerList:
      return QObject::tr("Customer list");
    case PrintKind::EstimateList:
      return QObject::tr("Estimate list");
    case PrintKind::Worksheet:
      return QObject::tr("Worksheet for a plan that has no data yet");
    case PrintKind::Estimate:
      break;
  }
  return AboutPlan(session);
}

}  // namespace

frmPrtSel::frmPrtSel(Program& program, PrintKind kind, const PlanForm* form, Printers& printers, QWidget* parent)
    : QDialog(parent), program_(program), kind_(kind), printers_(printers), setup_(LoadPrintSetup()) {
  setObjectName(QStringLiteral("frmPrtSel"));
  setWindowTitle(QStringLiteral("Print"));
  setProperty(kHelpPage, QStringLiteral("printing"));
  const int space = fontMetrics().height();

  // The frames that the kind does not ask for are there, out of sight.
  auto* const left = new QVBoxLayout;
  left->addWidget(MakeCustRange());
  left->addWidget(MakePlanType());
  left->addWidget(MakePrintSelect(BoxesOf(form != nullptr ? PartsOf(*form) : PartsOf(program.session.CurrentEstimate))));
  left->addStretch();
  auto* const right = new QVBoxLayout;
  right->addWidget(MakeWorkSheet());
  right->addWidget(MakeUnpriced(), 1);
  if (kind_ != PrintKind::Estimate) right->addStretch();
  auto* const frames = new QHBoxLayout;
  frames->setSpacing(space);
  frames->addLayout(left);
  frames->addLayout(right, 1);

  auto* const body = new QVBoxLayout;
  body->setContentsMargins(space * 3 / 2, space, space * 3 / 2, space);
  body->setSpacing(space);
  body->addLayout(frames, 1);
  body->addLayout(MakeCopies());
  body->addLayout(MakeButtons());
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(MakeHead(AboutOf(kind_, program.session)));
  layout->addLayout(body, 1);

  const bool isList = kind_ == PrintKind::CustomerList || kind_ == PrintKind::EstimateList;
  findChild<QGroupBox*>(QStringLiteral("fraCustRange"))->setVisible(isList);
  findChild<QGroupBox*>(QStringLiteral("fraPlanType"))->setVisible(kind_ == PrintKind::Worksheet);
  findChild<QGroupBox*>(QStringLiteral("fraWorkSheet"))->setVisible(kind_ == PrintKind::Worksheet);
  findChild<QGroupBox*>(QStringLiteral("FraPrintSelect"))->setVisible(kind_ == PrintKind::Estimate);
  fraUnpriced_->setVisible(kind_ == PrintKind::Estimate);
  ShowUnpriced();
}

QWidget* frmPrtSel::MakeHead(const QString& about) {
  QWidget* const head = MakeBand(this);
  auto* const lblTitle = new QLabel(QStringLiteral("Norvale Print Screen"), head);
  lblTitle->setObjectName(QStringLiteral("lblTitle"));
  MakeTitle(lblTitle);
  auto* const lblAbout = new QLabel(about, head);
  lblAbout->setObjectName(QStringLiteral("lblAbout"));
  lblAbout->setTextFormat(Qt::PlainText);
  auto* const column = new QVBoxLayout(head);
  const int space = fontMetrics().height();
  column->setContentsMargins(space * 3 / 2, space * 2 / 3, space * 3 / 2, space * 2 / 3);
  column->setSpacing(space / 4);
  column->addWidget(lblTitle);
  column->addWidget(lblAbout);
  return head;
}

QWidget* frmPrtSel::MakeCustRange() {
  auto* const frame = new QGroupBox(QStringLiteral(" Customer Numbers "), this);
  frame->setObjectName(QStringLiteral("fraCustRange"));
  const auto option = [frame](const char* name, const QString& caption) {
    auto* const made = new QRadioButton(caption, frame);
    made->setObjectName(QString::fromLatin1(name));
    made->setAccessibleName(QString(caption).remove(QLatin1Char('&')));
    LeaveEnterToDefault(made);
    return made;
  };
  optCustAll_ = option("optCustAll", QStringLiteral("Print &All"));
  optCustSel_ = option("optCustSel", QStringLiteral("Print &Selected"));
  const auto box = [this, frame](const char* name, const QString& spoken) {
    auto* const made = new QLineEdit(frame);
    made->setObjectName(QString::fromLatin1(name));
    made->setAccessibleName(spoken);
    made->setMaxLength(6);
    made->setMaximumWidth(fontMetrics().averageCharWidth() * 12);
    made->installEventFilter(this);
    return made;
  };
  txtCustFrom_ = box("txtCustFrom", tr("From customer number"));
  txtCustTo_ = box("txtCustTo", tr("To customer number, or LAST"));
  auto* const lblFrom = new QLabel(tr("&From:"), frame);
  lblFrom->setBuddy(txtCustFrom_);
  auto* const lblTo = new QLabel(tr("&To:"), frame);
  lblTo->setBuddy(txtCustTo_);

  auto* const row = new QHBoxLayout;
  row->setContentsMargins(fontMetrics().height() * 3 / 2, 0, 0, 0);
  row->addWidget(lblFrom);
  row->addWidget(txtCustFrom_);
  row->addSpacing(fontMetrics().height());
  row->addWidget(lblTo);
  row->addWidget(txtCustTo_);
  row->addStretch();
  auto* const column = new QVBoxLayout(frame);
  column->addWidget(optCustAll_);
  column->addWidget(optCustSel_);
  column->addLayout(row);
  connect(optCustAll_, &QRadioButton::toggled, this, &frmPrtSel::ChooseRange);
  optCustAll_->setChecked(true);
  return frame;
}

QWidget* frmPrtSel::MakePlanType() {
  auto* const frame = new QGroupBox(QStringLiteral(" &Plan Type "), this);
  frame->setObjectName(QStringLiteral("fraPlanType"));
  auto* const column = new QVBoxLayout(frame);
  for (std::size_t i = 0; i < kPlanChecks; ++i) {
    auto* const box = new QCheckBox(Shown(InfoOf(kPlanDescBoxes[i]).caption), frame);
    box->setObjectName(InArray("chkPlanDesc", i));
    box->setAccessibleName(box->text().trimmed());
    LeaveEnterToDefault(box);
    // `clicked` is the operator's; a box that another one clears excludes nothing itself.
    connect(box, &QCheckBox::clicked, this, [this, i] { TogglePlanDesc(i); });
    column->addWidget(box);
    chkPlanDesc_[i] = box;
  }
  return frame;
}

QWidget* frmPrtSel::MakeWorkSheet() {
  auto* const frame = new QGroupBox(QStringLiteral(" &Worksheet Type "), this);
  frame->setObjectName(QStringLiteral("fraWorkSheet"));
  auto* const column = new QVBoxLayout(frame);
  for (std::size_t i = 0; i < kWorkSheets.size(); ++i) {
    auto* const option = new QRadioButton(QString::fromLatin1(kWorkSheets[i]), frame);
    option->setObjectName(InArray("optWorkSheet", i));
    option->setAccessibleName(option->text());
    LeaveEnterToDefault(option);
    column->addWidget(option);
    optWorkSheet_[i] = option;
  }
  optWorkSheet_.front()->setChecked(true);
  return frame;
}

QWidget* frmPrtSel::MakePrintSelect(const PrintBoxes& boxes) {
  auto* const frame = new QGroupBox(QStringLiteral(" &Sub-Systems to Print "), this);
  frame->setObjectName(QStringLiteral("FraPrintSelect"));
  auto* const column = new QVBoxLayout(frame);
  for (const std::size_t which : kPrintBoxesOnScreen) {
    auto* const box = new QCheckBox(Shown(CaptionOfPrintBox(which)), frame);
    box->setObjectName(InArray("chkPrtSel", which));
    box->setAccessibleName(QString(box->text()).replace(QLatin1String("&&"), QLatin1String("&")));
    box->setEnabled(boxes.enabled[which]);
    box->setChecked(boxes.ticked[which]);
    LeaveEnterToDefault(box);
    connect(box, &QCheckBox::toggled, this, &frmPrtSel::ShowUnpriced);
    if (which == kPricingBox) column->addSpacing(fontMetrics().height() / 2);
    column->addWidget(box);
    chkPrtSel_[which] = box;
  }
  return frame;
}

QWidget* frmPrtSel::MakeUnpriced() {
  fraUnpriced_ = new QGroupBox(tr(" Lines without a price "), this);
  fraUnpriced_->setObjectName(QStringLiteral("fraUnpriced"));
  lblUnpriced_ = new QLabel(fraUnpriced_);
  lblUnpriced_->setObjectName(QStringLiteral("lblUnpriced"));
  lblUnpriced_->setTextFormat(Qt::PlainText);
  lblUnpriced_->setWordWrap(true);
  lstUnpriced_ = new QTreeWidget(fraUnpriced_);
  lstUnpriced_->setObjectName(QStringLiteral("lstUnpriced"));
  lstUnpriced_->setAccessibleName(tr("Lines without a price"));
  lstUnpriced_->setHeaderLabels({tr("Quantity"), tr("Description"), tr("For")});
  lstUnpriced_->setRootIsDecorated(false);
  lstUnpriced_->setUniformRowHeights(true);
  lstUnpriced_->setMinimumWidth(fontMetrics().averageCharWidth() * 64);
  auto* const column = new QVBoxLayout(fraUnpriced_);
  column->addWidget(lblUnpriced_);
  column->addWidget(lstUnpriced_, 1);
  return fraUnpriced_;
}

QLayout* frmPrtSel::MakeCopies() {
  txtPrintCopies_ = new QLineEdit(QStringLiteral("1"), this);
  txtPrintCopies_->setObjectName(QStringLiteral("txtPrintCopies"));
  txtPrintCopies_->setAccessibleName(tr("Copies"));
  txtPrintCopies_->setMaxLength(3);
  txtPrintCopies_->setMaximumWidth(fontMetrics().averageCharWidth() * 8);
  txtPrintCopies_->installEventFilter(this);
  auto* const lblCopies = new QLabel(QStringLiteral("&Copies:"), this);
  lblCopies->setBuddy(txtPrintCopies_);
  cboList_ = new QComboBox(this);
  cboList_->setObjectName(QStringLiteral("cboList"));
  cboList_->setAccessibleName(tr("List"));
  for (const char* const list : kLists) cboList_->addItem(QString::fromLatin1(list));
  auto* const lblList = new QLabel(tr("&List:"), this);
  lblList->setBuddy(cboList_);
  lblPrinter_ = new QLabel(this);
  lblPrinter_->setObjectName(QStringLiteral("lblPrinter"));
  lblPrinter_->setTextFormat(Qt::PlainText);
  lblPrinter_->setProperty("role", QStringLiteral("quiet"));
  ShowPrinter();
  auto* const row = new QHBoxLayout;
  const int space = fontMetrics().height();
  row->setSpacing(space / 2);
  row->addWidget(lblCopies);
  row->addWidget(txtPrintCopies_);
  row->addSpacing(space);
  row->addWidget(lblList);
  row->addWidget(cboList_);
  row->addStretch();
  row->addWidget(lblPrinter_);
  // Only an estimate is printed in copies, and only it has a summary.
  for (QWidget* const control : std::initializer_list<QWidget*>{lblCopies, txtPrintCopies_, lblList, cboList_})
    control->setVisible(kind_ == PrintKind::Estimate);
  return row;
}

void frmPrtSel::ShowPrinter() {
  lblPrinter_->setText(setup_.printer.isEmpty() ? tr("Printer: the system's default") : tr("Printer: %1").arg(setup_.printer));
}

QLayout* frmPrtSel::MakeButtons() {
  const auto button = [this](const char* name, const QString& caption, const QString& spoken) {
    auto* const made = new QPushButton(caption, this);
    made->setObjectName(QString::fromLatin1(name));
    made->setAccessibleName(spoken);
    made->setAutoDefault(false);
    made->ensurePolished();
    made->setMinimumWidth(made->sizeHint().width());  // the look's own least width is for short captions
    return made;
  };
  auto* const cmdpsetup = button("cmdpsetup", QStringLiteral("Select Printer"), tr("Select Printer"));
  connect(cmdpsetup, &QPushButton::clicked, this, &frmPrtSel::SelectPrinter);
  auto* const cmdPreview = button("cmdPreview", tr("Pre&view"), tr("Preview"));
  connect(cmdPreview, &QPushButton::clicked, this, &frmPrtSel::Preview);
  auto* const cmdSaveAs = button("cmdSaveAs", tr("Sav&e As..."), tr("Save as PDF, text or CSV"));
  connect(cmdSaveAs, &QPushButton::clicked, this, &frmPrtSel::SaveAs);
  cmdPrintOK_ = button("cmdPrintOK", QStringLiteral("Print "), tr("Print"));
  cmdPrintOK_->setDefault(true);
  connect(cmdPrintOK_, &QPushButton::clicked, this, &frmPrtSel::PressOk);
  cmdPrintCancel_ = button("cmdPrintCancel", QStringLiteral("Cancel "), tr("Cancel"));
  connect(cmdPrintCancel_, &QPushButton::clicked, this, &QDialog::reject);

  auto* const row = new QHBoxLayout;
  row->setSpacing(fontMetrics().height() / 2);
  row->addWidget(cmdpsetup);
  row->addWidget(cmdPreview);
  row->addWidget(cmdSaveAs);
  row->addStretch();
  row->addSpacing(fontMetrics().height());
  row->addWidget(cmdPrintOK_);
  row->addWidget(cmdPrintCancel_);
  return row;
}

void frmPrtSel::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  QWidget* first = optCustAll_;
  if (kind_ == PrintKind::Worksheet) first = chkPlanDesc_.front();
  if (kind_ == PrintKind::Estimate)
    for (const std::size_t box : kPrintBoxesOnScreen)
      if (QCheckBox* const tick = chkPrtSel_[box]; tick->isEnabled()) {
        first = tick;
        break;
      }
  first->setFocus(Qt::TabFocusReason);
}

PrintRequest frmPrtSel::Request() const {
  PrintRequest request;
  request.kind = kind_;
  if (kind_ == PrintKind::Estimate) request.sections = PrintSections(Boxes());
  request.paper = static_cast<EstimatePaper>(cboList_->currentIndex());
  request.range = RangeOf(Range());
  request.planType = PlanTypeOf(planChecks_);
  const auto chosen = std::ranges::find_if(optWorkSheet_, [](const QRadioButton* option) { return option->isChecked(); });
  request.worksheet = static_cast<WorksheetKind>(chosen - optWorkSheet_.begin());
  return request;
}

int frmPrtSel::Copies() const { return kind_ == PrintKind::Estimate ? CopiesOf(Typed(txtPrintCopies_->text())) : 1; }

RangeBoxes frmPrtSel::Range() const {
  return {.isAll = optCustAll_->isChecked(), .txtCustFrom = Typed(txtCustFrom_->text()), .txtCustTo = Typed(txtCustTo_->text())};
}

PrintBoxes frmPrtSel::Boxes() const {
  PrintBoxes boxes;
  for (std::size_t i = 0; i < kPrintBoxes; ++i) {
    boxes.enabled[i] = chkPrtSel_[i]->isEnabled();
    boxes.ticked[i] = chkPrtSel_[i]->isChecked();
  }
  return boxes;
}

bool frmPrtSel::eventFilter(QObject* watched, QEvent* event) {
  auto* const box = qobject_cast<QLineEdit*>(watched);
  if (box == nullptr || event->type() != QEvent::FocusOut) return QDialog::eventFilter(watched, event);
  QWidget* const now = QApplication::focusWidget();
  const bool staysInForm = now != nullptr && now->window() == this;
  // A range that is upside down may be put right in either box.
  const bool goesBack = box == txtCustTo_ && now == txtCustFrom_;
  // After this event: a message must not open while the focus is on its way.
  if (staysInForm && !goesBack && now != cmdPrintCancel_)
    QMetaObject::invokeMethod(
        this, [this, box] { LeaveBox(box); }, Qt::QueuedConnection);
  return QDialog::eventFilter(watched, event);
}

void frmPrtSel::LeaveBox(QLineEdit* box) {
  if (!isVisible() || box->hasFocus()) return;
  if (box == txtPrintCopies_)
    box->setText(QString::number(Copies()));
  else
    CheckBox(box);
}

bool frmPrtSel::CheckBox(QLineEdit* box) {
  const RangeCheck check = box == txtCustFrom_ ? CheckCustFrom(Range()) : CheckCustTo(Range());
  box->setText(Shown(check.text));
  if (check.message.empty()) return true;
  program_.messages.ShowMessage(WithTitle(check.message));
  box->setFocus(Qt::OtherFocusReason);
  box->selectAll();
  return false;
}

bool frmPrtSel::IsReady() {
  if (kind_ == PrintKind::Worksheet && !HasFoundation(planChecks_)) {
    program_.messages.ShowMessage(WithTitle(kNoPlanType));
    chkPlanDesc_.front()->setFocus(Qt::OtherFocusReason);
    return false;
  }
  const bool isList = kind_ == PrintKind::CustomerList || kind_ == PrintKind::EstimateList;
  return !isList || (CheckBox(txtCustFrom_) && CheckBox(txtCustTo_));
}

void frmPrtSel::PressOk() {
  if (!IsReady()) return;
  txtPrintCopies_->setText(QString::number(Copies()));
  accept();
}

void frmPrtSel::ChooseRange(bool isAll) {
  txtCustFrom_->setEnabled(!isAll);
  txtCustTo_->setEnabled(!isAll);
  if (isAll) {
    txtCustFrom_->setText(Shown(RangeBoxes{}.txtCustFrom));
    txtCustTo_->setText(Shown(RangeBoxes{}.txtCustTo));
  } else {
    txtCustFrom_->setFocus(Qt::TabFocusReason);
    txtCustFrom_->selectAll();
  }
}

void frmPrtSel::TogglePlanDesc(std::size_t index) {
  ToggleCheck(planChecks_, kPlanDescBoxes[index]);
  ShowPlanDesc();
}

void frmPrtSel::ShowPlanDesc() {
  for (std::size_t i = 0; i < kPlanChecks; ++i) chkPlanDesc_[i]->setChecked(planChecks_.Has(kPlanDescBoxes[i]));
}

void frmPrtSel::ShowUnpriced() {
  if (kind_ != PrintKind::Estimate || lstUnpriced_ == nullptr || fraUnpriced_ == nullptr) return;
  lstUnpriced_->clear();
  const bool isPriced = chkPrtSel_[kPricingBox]->isChecked();
  lstUnpriced_->setVisible(isPriced);
  if (!isPriced) {
    lblUnpriced_->setText(tr("The list goes out without prices."));
    return;
  }
  try {
    const Prints prints = MakePrints(program_.folder, program_.session, Request(), TodayOnPaper());
    QList<QTreeWidgetItem*> rows;
    for (const UnpricedLine& line : prints.unpriced) {
      const QString quantity = Shown(ToUtf8(Digits(line.quantity) + " " + line.unit));
      rows.append(new QTreeWidgetItem({quantity, Shown(ToUtf8(line.description)), Shown(ToUtf8(line.label))}));
    }
    lstUnpriced_->addTopLevelItems(rows);
    for (int column = 0; column < 2; ++column) lstUnpriced_->resizeColumnToContents(column);
    lstUnpriced_->setVisible(!rows.isEmpty());
    if (rows.isEmpty())
      lblUnpriced_->setText(tr("Every line has a price."));
    else if (rows.size() == 1)
      lblUnpriced_->setText(tr("1 line goes out without a price and is in no total:"));
    else
      lblUnpriced_->setText(tr("%1 lines go out without a price and are in no total:").arg(rows.size()));
  } catch (const FileError& error) {
    lstUnpriced_->hide();
    lblUnpriced_->setText(Shown(error.what()));
  }
}

void frmPrtSel::SelectPrinter() {
  int copies = Copies();
  if (!printers_.HasAny()) {
    program_.messages.ShowMessage(Notice(kNoPrinter));
    return;
  }
  if (!printers_.Choose(setup_, copies, this)) return;
  txtPrintCopies_->setText(QString::number(std::max(1, copies)));
  SavePrintSetup(setup_);
  ShowPrinter();
}

void frmPrtSel::Preview() {
  if (!IsReady()) return;
  Try(program_.messages, [this] {
    const Prints prints = MakePrints(program_.folder, program_.session, Request(), TodayOnPaper());
    if (!prints.refusal.empty()) {
      program_.messages.ShowMessage(WithTitle(prints.refusal));
      return;
    }
    if (ShowPreview(program_, prints, setup_, printers_, this)) accept();
  });
}

void frmPrtSel::SaveAs() {
  if (!IsReady()) return;
  Try(program_.messages, [this] {
    const Prints prints = MakePrints(program_.folder, program_.session, Request(), TodayOnPaper());
    if (!prints.refusal.empty())
      program_.messages.ShowMessage(WithTitle(prints.refusal));
    else
      SavePrints(program_, prints, setup_.paper, this);
  });
}

}  // namespace norvale
