#include "entry/frm_newest.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "base/numbers.h"
#include "desktop/frm_keys.h"
#include "desktop/frm_look.h"
#include "desktop/frm_text.h"
#include "entry/frm_boxes.h"
#include "entry/number_entry.h"

namespace norvale {

namespace {

constexpr int kGablesInRow = 8;
constexpr auto kGablesBox = static_cast<std::size_t>(Footage::Gables);

}  // namespace

Frmnewest::Frmnewest(Program& program, PlanForm& form, QWidget* parent)
    : QDialog(parent), program_(program), form_(form), sheet_(OpenPreliminarySheet(form.PlanType)) {
  setObjectName(QStringLiteral("Frmnewest"));
  setWindowTitle(tr("prelim measurements"));
  setProperty(kHelpPage, QStringLiteral("plans"));

  auto* const heading = new QLabel(tr("Preliminary Roof & Gable Measurements"), this);
  heading->setObjectName(QStringLiteral("lblHeading"));
  MakeTitle(heading);
  auto* const grid = new QGridLayout;
  const int space = fontMetrics().height();
  grid->setHorizontalSpacing(space);
  grid->setVerticalSpacing(space / 5);
  MakeBoxes(grid);
  QWidget* const gables = MakeGables();
  lblResult_ = new QLabel(this);
  lblResult_->setObjectName(QStringLiteral("lblResult"));
  lblResult_->setAccessibleName(tr("What the sheet comes to"));
  lblResult_->setProperty("role", QStringLiteral("quiet"));
  cmdOK_ = new QPushButton(tr("&OK"), this);
  cmdOK_->setObjectName(QStringLiteral("cmdOK"));
  cmdOK_->setAccessibleName(tr("OK"));
  cmdOK_->setAutoDefault(false);
  cmdCANCEL_ = new QPushButton(tr("&Cancel"), this);
  cmdCANCEL_->setObjectName(QStringLiteral("cmdCANCEL"));
  cmdCANCEL_->setAccessibleName(tr("Cancel"));
  cmdCANCEL_->setAutoDefault(false);
  connect(cmdOK_, &QPushButton::clicked, this, &Frmnewest::HandOverSheet);
  connect(cmdCANCEL_, &QPushButton::clicked, this, &Frmnewest::reject);
  auto* const row = new QHBoxLayout;
  row->setSpacing(space / 2);
  row->addWidget(lblResult_, 1);
  row->addWidget(cmdOK_);
  row->addWidget(cmdCANCEL_);

  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(space * 3 / 2, space * 2 / 3, space * 3 / 2, space * 2 / 3);
  layout->addWidget(heading);
  layout->addSpacing(space / 3);
  layout->addLayout(grid);
  layout->addSpacing(space / 2);
  layout->addWidget(gables);
  layout->addStretch();
  layout->addSpacing(space / 2);
  layout->addLayout(row);
  ShowSheet();
  txtfootage_.front()->setFocus();
}

void Frmnewest::MakeBoxes(QGridLayout* grid) {
  for (std::size_t i = 0; i < kFootages; ++i) {
    const auto which = static_cast<Footage>(i);
    const QString caption = Shown(CaptionOf(which));
    auto* const label = new QLabel(caption, this);
    label->setObjectName(InArray("lblfootage", i));
    label->setEnabled(sheet_.enabled[i]);
    auto* const box = new NumberEdit(this);
    box->setObjectName(InArray("txtfootage", i));
    box->setAccessibleName(caption.chopped(1));
    box->setEnabled(sheet_.enabled[i]);
    box->setFixedWidth(fontMetrics().averageCharWidth() * 10);
    box->installEventFilter(this);
    connect(box, &NumberEdit::Changed, this, [this, box, i] {
      sheet_.txtfootage[i] = Typed(box->text());
      ShowSheet();
    });
    connect(box, &NumberEdit::LeftForBox, this, [this, i] { LeaveBox(i); });
    grid->addWidget(label, static_cast<int>(i), 0);
    grid->addWidget(box, static_cast<int>(i), 1);
    txtfootage_[i] = box;
  }
  txtfootage_[kGablesBox]->setProperty(kTakesEnter, true);
  grid->setColumnStretch(2, 1);
}

QWidget* Frmnewest::MakeGables() {
  auto* const part = new QWidget(this);
  auto* const grid = new QGridLayout(part);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(fontMetrics().height() / 2);
  grid->setVerticalSpacing(fontMetrics().height() / 4);
  lblNoGables_ = new QLabel(tr("Width of each gable in feet, in any order:"), part);
  lblNoGables_->setObjectName(QStringLiteral("lblGables"));
  grid->addWidget(lblNoGables_, 0, 0, 1, 2 * kGablesInRow);
  for (int i = 0; i < kMostGables; ++i) {
    const auto index = static_cast<std::size_t>(i);
    auto* const label = new QLabel(QString::number(i + 1), part);
    label->setProperty("role", QStringLiteral("quiet"));
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("40")));
    auto* const box = new NumberEdit(part);
    box->setObjectName(InArray("GableWidths", index));
    box->setAccessibleName(tr("Width of gable %1 in feet").arg(i + 1));
    box->setFixedWidth(fontMetrics().averageCharWidth() * 7);
    connect(box, &NumberEdit::Changed, this, [this, box, index] {
      sheet_.GableWidths[index] = Typed(box->text());
      ShowSheet();
    });
    connect(box, &NumberEdit::LeftForBox, this, [this, index] { LeaveGable(index); });
    grid->addWidget(label, 1 + i / kGablesInRow, 2 * (i % kGablesInRow));
    grid->addWidget(box, 1 + i / kGablesInRow, 2 * (i % kGablesInRow) + 1);
    GableWidths_[index] = box;
    lblGable_[index] = label;
  }
  grid->setColumnStretch(2 * kGablesInRow, 1);
  return part;
}

void Frmnewest::ShowSheet() {
  for (std::size_t i = 0; i < kFootages; ++i) txtfootage_[i]->Show(Shown(sheet_.txtfootage[i]));
  const std::size_t gables = sheet_.GableWidths.size();
  for (std::size_t i = 0; i < GableWidths_.size(); ++i) {
    GableWidths_[i]->setVisible(i < gables);
    lblGable_[i]->setVisible(i < gables);
    if (i < gables) GableWidths_[i]->Show(Shown(sheet_.GableWidths[i]));
  }
  lblNoGables_->setVisible(gables > 0);
  const Preliminary result = ComputePreliminary(sheet_);
  lblResult_->setText(tr("Fascia %1 ft, roof %2 sq ft, gables %3 sq ft")
                          .arg(Shown(Digits(result.fascia)), Shown(Digits(result.roofArea)), Shown(Digits(result.gableArea))));
}

bool Frmnewest::eventFilter(QObject* watched, QEvent* event) {
  // The widths are asked for right behind their number: their boxes must be there before the focus looks for the next one.
  if (watched == txtfootage_[kGablesBox] && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (isEnter || key == Qt::Key_Tab) {
      (void)LeaveFootage(sheet_, Footage::Gables);
      ShowSheet();
    }
    if (isEnter) return focusNextChild();
  }
  return QDialog::eventFilter(watched, event);
}

void Frmnewest::Tell(const std::string& message, NumberEdit* focus) {
  ShowSheet();
  if (message.empty()) return;
  program_.messages.ShowMessage(WithTitle(message));
  focus->TakeFocusBack();
}

void Frmnewest::LeaveBox(std::size_t box) { Tell(LeaveFootage(sheet_, static_cast<Footage>(box)), txtfootage_[box]); }

void Frmnewest::LeaveGable(std::size_t gable) {
  if (gable < sheet_.GableWidths.size()) Tell(LeaveGableWidth(sheet_, gable), GableWidths_[gable]);
}

bool Frmnewest::TakeEverything() {
  for (std::size_t box = 0; box < kFootages; ++box) {
    if (!sheet_.enabled[box]) continue;
    if (const std::string message = LeaveFootage(sheet_, static_cast<Footage>(box)); !message.empty())
      return Tell(message, txtfootage_[box]), false;
  }
  for (std::size_t gable = 0; gable < sheet_.GableWidths.size(); ++gable)
    if (const std::string message = LeaveGableWidth(sheet_, gable); !message.empty()) return Tell(message, GableWidths_[gable]), false;
  if (const auto gable = FirstGableWithoutWidth(sheet_); gable && !wasAskedForWidth_) {
    wasAskedForWidth_ = true;
    return Tell(std::string(kEntryRequired), GableWidths_[*gable]), false;
  }
  return true;
}

void Frmnewest::HandOverSheet() {
  if (!TakeEverything()) return;
  const Preliminary result = ComputePreliminary(sheet_);
  if (const auto refusal = RefusalOfPreliminary(result))
    return Tell(refusal->message, txtfootage_[static_cast<std::size_t>(refusal->focus)]);
  HandOver(result, form_, program_.session.CurrentEstimate);
  accept();
}

void Frmnewest::reject() {
  const auto isTyped = [](const std::string& text) { return !text.empty(); };
  const bool hasEntries = std::ranges::any_of(sheet_.txtfootage, isTyped) || std::ranges::any_of(sheet_.GableWidths, isTyped);
  if (hasEntries &&
      program_.messages.ShowMessage("2 Leave the preliminary measurements without using them?|prelim measurements") != Answer::Yes)
    return;
  QDialog::reject();
}

}  // namespace norvale
