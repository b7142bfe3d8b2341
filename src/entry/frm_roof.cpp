#include "entry/frm_roof.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QShortcut>
#include <QStackedWidget>
#include <QStyle>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "base/numbers.h"
#include "desktop/frm_keys.h"
#include "desktop/frm_look.h"
#include "desktop/frm_text.h"
#include "entry/frm_boxes.h"
#include "entry/frm_roof_view.h"

namespace norvale {

namespace {

enum ListColumn { kNumberColumn, kTypeColumn, kAreaColumn };

constexpr int kLongestLength = 12;  // characters

struct LengthBox {
  const char* name;
  const char* label;
  std::string RoofForm::*text;
};
constexpr std::array<LengthBox, 3> kLengths = {{
    {"txtSection", "Lft of Section", &RoofForm::txtSection},
    {"txtRafterRun", "Lft of Rafter Run", &RoofForm::txtRafterRun},
    {"txtloadwall", "Lft from Peak to Load Bearing Wall  ( 2 piece rafters )", &RoofForm::txtloadwall},
}};

template <std::size_t N>
QComboBox* MakeCombo(QWidget* parent, const char* name, const QString& label, const std::array<std::string_view, N>& rows) {
  auto* const box = new ChoiceList(parent);
  box->setObjectName(QString::fromLatin1(name));
  box->setAccessibleName(label);
  for (const std::string_view row : rows) box->addItem(Shown(row));
  return box;
}

QString WithoutMnemonic(QString caption) { return caption.remove(QLatin1Char('&')); }

}  // namespace

frmROOF::frmROOF(Program& program, EstimateRecord& plan, PlanForm& form, QWidget* parent)
    : QDialog(parent), program_(program), plan_(plan), dataEntry_(form), form_(OpenRoofForm(plan)) {
  setObjectName(QStringLiteral("frmROOF"));
  setWindowTitle(tr("Norvale Roof Takeoff"));
  setProperty(kHelpPage, QStringLiteral("roof"));

  pages_ = new QStackedWidget(this);
  pages_->addWidget(sections_ = MakeSections());
  pages_->addWidget(pctjoist_ = MakeJoists());
  boxes_ = MakeBoxes();
  QWidget* const buttons = MakeButtons();
  QWidget* const list = MakeList();
  auto* const lblHint = new QLabel(tr("PGUP, PGDN=Section  CTRL+Z=Undo Remove  F1=Help  ALT+F2=Calculator  ESC=Exit"), this);
  lblHint->setObjectName(QStringLiteral("lblHint"));
  lblHint->setProperty("role", QStringLiteral("quiet"));

  const int space = fontMetrics().height();
  auto* const upper = new QHBoxLayout;
  upper->setSpacing(space);
  upper->addWidget(list);
  upper->addWidget(pages_, 1);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(space, space, space, space / 2);
  layout->setSpacing(space / 2);
  layout->addLayout(upper, 1);
  layout->addWidget(boxes_);
  layout->addSpacing(space / 4);
  layout->addWidget(buttons);
  layout->addWidget(lblHint);

  const auto onKey = [this](const QKeySequence& key, void (frmROOF::*press)()) {
    connect(new QShortcut(key, this), &QShortcut::activated, this, [this, press] {
      if (!form_.showsJoists) (this->*press)();
    });
  };
  onKey(Qt::Key_PageDown, &frmROOF::Next);
  onKey(Qt::Key_PageUp, &frmROOF::Previous);
  // Not while a box has the focus: there it takes back what was typed.
  onKey(QKeySequence::Undo, &frmROOF::Undo);

  resize(QSize(fontMetrics().averageCharWidth() * 150, space * 38).boundedTo(screen()->availableSize()));
  ShowForm();
}

QWidget* frmROOF::MakeSections() {
  auto* const page = new QWidget(this);
  pctVIEW_ = new RoofView(page);
  pctVIEW_->setObjectName(QStringLiteral("pctVIEW"));
  const int space = fontMetrics().height();
  auto* const layout = new QHBoxLayout(page);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(space);
  layout->addWidget(MakeTypes(), 0, Qt::AlignTop);
  layout->addWidget(pctVIEW_, 1);
  return page;
}

QWidget* frmROOF::MakeTypes() {
  auto* const types = new QWidget(this);
  auto* const layout = new QVBoxLayout(types);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(new QLabel(tr(" Select Roof Type"), types));
  for (int type = kGableSection; type <= kRoofTypes; ++type) {
    auto* const option = new QRadioButton(Shown(CaptionOfRoofType(type)), types);
    option->setObjectName(InArray("optRoof", static_cast<std::size_t>(type)));
    option->setAccessibleName(option->text());
    option->setFocusPolicy(Qt::ClickFocus);
    connect(option, &QRadioButton::toggled, this, [this, option](bool isOn) {
      // The keys come to the type that is chosen, and go on from there.
      option->setFocusPolicy(isOn ? Qt::StrongFocus : Qt::ClickFocus);
      if (isOn) TakeBoxes();
    });
    layout->addWidget(option);
    optRoof_[static_cast<std::size_t>(type) - 1] = option;
  }
  return types;
}

QWidget* frmROOF::MakeBoxes() {
  auto* const boxes = new QWidget(this);
  auto* const grid = new QGridLayout(boxes);
  grid->setContentsMargins(0, 0, 0, 0);
  const QFontMetrics metrics = fontMetrics();
  grid->setHorizontalSpacing(metrics.height() / 2);
  grid->setVerticalSpacing(metrics.height() / 3);
  for (std::size_t i = 0; i < kLengthBoxes; ++i) {
    const int row = static_cast<int>(i);
    auto* const box = new QLineEdit(boxes);
    box->setObjectName(QString::fromLatin1(kLengths[i].name));
    box->setAccessibleName(QString::fromLatin1(kLengths[i].label));
    box->setMaxLength(kLongestLength);
    box->setFixedWidth(metrics.averageCharWidth() * 10);
    box->installEventFilter(this);
    connect(box, &QLineEdit::textEdited, this, &frmROOF::TakeBoxes);
    auto* const label = new QLabel(QString::fromLatin1(kLengths[i].label), boxes);
    label->setBuddy(box);
    label->setWordWrap(true);
    auto* const reading = new QLabel(boxes);
    reading->setObjectName(box->objectName() + QStringLiteral("_reading"));
    reading->setAccessibleName(tr("%1 in feet and inches").arg(box->accessibleName()));
    reading->setMinimumWidth(metrics.horizontalAdvance(Shown(LengthReading(2730 * 12 + 11))));
    grid->addWidget(label, row, 0);
    grid->addWidget(box, row, 1);
    grid->addWidget(reading, row, 2);
    lengths_[i] = box;
    readings_[i] = reading;
  }
  const auto addCombo = [&](int row, const char* name, const QString& label, const auto& rows) {
    QComboBox* const box = MakeCombo(boxes, name, label, rows);
    connect(box, &QComboBox::currentIndexChanged, this, &frmROOF::TakeBoxes);
    auto* const caption = new QLabel(label, boxes);
    caption->setBuddy(box);
    grid->addWidget(caption, row, 4);
    grid->addWidget(box, row, 5);
    return box;
  };
  cboRafter_ = addCombo(0, "cboRafter", tr("Rafter Size"), kRafterSizes);
  cboPitch_ = addCombo(1, "cboPitch", tr("Roof Pitch"), kPitches);
  cboRFType_ = addCombo(2, "cboRFType", tr("Rafter Framing Type"), kRafterSpecies);
  // The longest caption takes three lines where the type is large.
  constexpr int kLargeType = 18;  // pixels
  auto* const longest = qobject_cast<QLabel*>(grid->itemAtPosition(kLengthBoxes - 1, 0)->widget());
  longest->setFixedWidth(metrics.horizontalAdvance(metrics.height() < kLargeType ? longest->text() + QStringLiteral("  ")
                                                                                 : QStringLiteral("Load Bearing Wall  ")));
  grid->setColumnStretch(3, 1);
  grid->setColumnStretch(6, 1);
  return boxes;
}

QWidget* frmROOF::MakeJoists() {
  auto* const panel = new QWidget(this);
  panel->setObjectName(QStringLiteral("pctjoist"));
  auto* const title = new QLabel(tr("Enter the footages for all Ceiling Joist"), panel);
  MakeTitle(title);
  title->setWordWrap(true);
  auto* const purpose =
      new QLabel(tr("Feet of bays under this roof, by the length and stock of their joists. Leave empty what it does not have."), panel);
  purpose->setProperty("role", QStringLiteral("quiet"));
  purpose->setWordWrap(true);
  auto* const grid = new QGridLayout;
  const QFontMetrics metrics = fontMetrics();
  grid->setHorizontalSpacing(metrics.height());
  grid->setVerticalSpacing(metrics.height() / 2);
  for (int column = 0; column < 2; ++column) {
    const QString stock = column == 0 ? tr("2 x 6") : tr("2 x 8");
    grid->addWidget(new QLabel(stock, panel), 0, column + 1);
    for (std::size_t row = 0; row < kCeilingJoistRows; ++row) {
      auto* const box = new NumberEdit(panel);
      const int feet = 8 + 2 * static_cast<int>(row);
      box->setObjectName(InArray(column == 0 ? "txtTWOxSIX" : "txtTWOxEIGHT", row));
      box->setAccessibleName(tr("Feet of %1 joists of %2 ft").arg(stock).arg(feet));
      box->setFixedWidth(metrics.averageCharWidth() * 12);
      const std::size_t index = static_cast<std::size_t>(column) * kCeilingJoistRows + row;
      connect(box, &NumberEdit::Changed, this, &frmROOF::TakeBoxes);
      connect(box, &NumberEdit::LeftForBox, this, [this, index] { CheckJoist(index); });
      if (column == 0) grid->addWidget(new QLabel(tr("Joists of %1 ft").arg(feet), panel), static_cast<int>(row) + 1, 0);
      grid->addWidget(box, static_cast<int>(row) + 1, column + 1);
      joists_[index] = box;
    }
  }
  grid->setColumnStretch(3, 1);
  auto* const row = new QHBoxLayout;
  row->addWidget(MakeButton("cmdJOIST", tr("&DONE"), &frmROOF::FinishWithJoists));
  row->addWidget(MakeButton("cmdCANCEL", tr("&CANCEL"), &frmROOF::BackToSections));
  row->addStretch();
  auto* const layout = new QVBoxLayout(panel);
  const int space = metrics.height();
  layout->setContentsMargins(space * 2, space, space, space);
  layout->addStretch(1);
  layout->addWidget(title);
  layout->addWidget(purpose);
  layout->addSpacing(space);
  layout->addLayout(grid);
  layout->addSpacing(space);
  layout->addLayout(row);
  layout->addStretch(2);
  return panel;
}

QWidget* frmROOF::MakeList() {
  auto* const side = new QWidget(this);
  lstSections_ = new QTreeWidget(side);
  lstSections_->setObjectName(QStringLiteral("lstSections"));
  lstSections_->setAccessibleName(tr("Roof sections"));
  lstSections_->setHeaderLabels({tr("#"), tr("Type"), tr("SF")});
  lstSections_->headerItem()->setTextAlignment(kAreaColumn, Qt::AlignRight | Qt::AlignVCenter);
  lstSections_->setRootIsDecorated(false);
  lstSections_->setUniformRowHeights(true);
  lstSections_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  QHeaderView* const header = lstSections_->header();
  header->setSectionsMovable(false);
  header->setStretchLastSection(false);
  header->setSectionResizeMode(kNumberColumn, QHeaderView::ResizeToContents);
  header->setSectionResizeMode(kTypeColumn, QHeaderView::Stretch);
  header->setSectionResizeMode(kAreaColumn, QHeaderView::ResizeToContents);
  connect(lstSections_, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
    if (isShowing_ || item == nullptr) return;
    // After this event: the list must not change while it reports a change.
    QMetaObject::invokeMethod(
        this, [this, section = lstSections_->currentIndex().row() + 1] { ChooseInList(section); }, Qt::QueuedConnection);
  });
  connect(lstSections_, &QTreeWidget::itemActivated, this, [this] { FocusBox(RoofBox::txtSection); });

  lblsection_ = new QLabel(side);
  lblsection_->setObjectName(QStringLiteral("lblsection"));
  lblsqft_ = new QLabel(side);
  lblsqft_->setObjectName(QStringLiteral("lblsqft"));
  lblsqft_->setAccessibleName(tr("Area of the section and of the roof"));
  QFont bold = lblsqft_->font();
  bold.setWeight(QFont::DemiBold);
  lblsection_->setFont(bold);
  lblsqft_->setFont(bold);
  auto* const head = new QHBoxLayout;
  head->addWidget(new QLabel(tr("SECTION #"), side));
  head->addWidget(lblsection_);
  head->addStretch();
  auto* const layout = new QVBoxLayout(side);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addLayout(head);
  layout->addWidget(lstSections_, 1);
  layout->addWidget(lblsqft_);
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  side->setFixedWidth(fontMetrics().horizontalAdvance(QStringLiteral("64  Gable w/ Valley  99999 ____")) + bar);
  return side;
}

QPushButton* frmROOF::MakeButton(const char* name, const QString& caption, void (frmROOF::*press)()) {
  auto* const button = new QPushButton(caption, this);
  button->setObjectName(QString::fromLatin1(name));
  button->setAccessibleName(WithoutMnemonic(caption));
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, press);
  return button;
}

QWidget* frmROOF::MakeButtons() {
  auto* const buttons = new QWidget(this);
  auto* const row = new QHBoxLayout(buttons);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(fontMetrics().height() / 2);
  row->addWidget(cmdADD_ = MakeButton("cmdADD", tr("&ADD NEW SECTION"), &frmROOF::Add));
  row->addWidget(cmdPREV_ = MakeButton("cmdPREV", tr("< &PREV"), &frmROOF::Previous));
  row->addWidget(cmdNEXT_ = MakeButton("cmdNEXT", tr("&NEXT >"), &frmROOF::Next));
  row->addWidget(cmdREMOVE_ = MakeButton("cmdREMOVE", tr("&REMOVE"), &frmROOF::Remove));
  row->addWidget(cmdUNDO_ = MakeButton("cmdUNDO", tr("&UNDO REMOVE"), &frmROOF::Undo));
  row->addStretch();
  row->addWidget(cmdDONE_ = MakeButton("cmdDONE", tr("&DONE"), &frmROOF::Done));
  return buttons;
}

// --- The record and the window

void frmROOF::TakeBoxes() {
  if (isShowing_) return;
  for (std::size_t i = 0; i < kLengthBoxes; ++i) form_.*kLengths[i].text = Typed(lengths_[i]->text());
  for (int type = kGableSection; type <= kRoofTypes; ++type)
    if (optRoof_[static_cast<std::size_t>(type) - 1]->isChecked()) form_.optRoof = type;
  form_.cboPitch = cboPitch_->currentIndex();
  form_.cboRafter = cboRafter_->currentIndex();
  form_.cboRFType = cboRFType_->currentIndex();
  for (std::size_t box = 0; box < kPanelBoxes; ++box) JoistText(form_, box) = Typed(joists_[box]->text());
  StoreSection(form_);
  ShowSums();
}

void frmROOF::ShowForm() {
  isShowing_ = true;
  const auto setText = [](QLineEdit* box, const std::string& text) {
    if (box->text() != Shown(text)) box->setText(Shown(text));
  };
  for (std::size_t i = 0; i < kLengthBoxes; ++i) setText(lengths_[i], form_.*kLengths[i].text);
  optRoof_[static_cast<std::size_t>(form_.optRoof) - 1]->setChecked(true);
  cboPitch_->setCurrentIndex(form_.cboPitch);
  cboRafter_->setCurrentIndex(form_.cboRafter);
  cboRFType_->setCurrentIndex(form_.cboRFType);
  for (std::size_t box = 0; box < kPanelBoxes; ++box) setText(joists_[box], JoistText(form_, box));
  isShowing_ = false;

  const bool isInSections = !form_.showsJoists;
  const bool hasSection = form_.CurrentSection > 0;
  const std::pair<QWidget*, bool> states[] = {{sections_, isInSections && hasSection},
                                              {boxes_, isInSections && hasSection},
                                              {lstSections_, isInSections},
                                              {cmdADD_, isInSections},
                                              {cmdPREV_, isInSections && CanGoToPreviousSection(form_)},
                                              {cmdNEXT_, isInSections && CanGoToNextSection(form_)},
                                              {cmdREMOVE_, isInSections && hasSection},
                                              {cmdUNDO_, isInSections && !form_.removed.empty()},
                                              {cmdDONE_, isInSections}};
  for (const auto& [control, isEnabled] : states)
    if (isEnabled) control->setEnabled(true);
  QWidget* const page = form_.showsJoists ? pctjoist_ : sections_;
  if (pages_->currentWidget() != page) pages_->setCurrentWidget(page);
  boxes_->setVisible(isInSections);
  // The focus first: a control that is shut while it has the focus would hand it on to anything.
  for (const auto& [control, isEnabled] : states)
    if (!isEnabled && control->hasFocus()) FocusBox(RoofBox::txtSection);
  for (const auto& [control, isEnabled] : states) control->setEnabled(isEnabled);
  ShowSums();
}

void frmROOF::ShowSums() {
  for (std::size_t box = 0; box < kLengthBoxes; ++box) ShowReading(box);
  lblsection_->setText(Shown(SectionLabel(form_)));
  lblsqft_->setText(Shown(AreaLabel(form_)));
  std::optional<RoofPlane> section;
  QStringList notes;
  if (form_.CurrentSection > 0) {
    section = form_.RoofPlanes[static_cast<std::size_t>(form_.CurrentSection) - 1];
    for (const std::string& note : SectionNotes(*section)) notes << Shown(note);
    const std::string species = SpeciesNote(section->FramingType, dataEntry_.lists[SelectionList::FramingGrade].rows);
    if (!species.empty()) notes << Shown(species);
  }
  pctVIEW_->Show(section, notes);
  ShowList();
}

void frmROOF::ShowReading(std::size_t box) {
  const RoofLength length = ReadLength(form_.*kLengths[box].text);
  const bool isRefused = !length.message.empty();
  QPalette palette = QApplication::palette();
  palette.setColor(QPalette::WindowText, isRefused ? ColoursOfLook().warning : ColoursOfLook().quietText);
  readings_[box]->setPalette(palette);
  readings_[box]->setText(isRefused ? tr("not a length") : length.inches == 0 ? QString() : Shown(LengthReading(length.inches)));
}

void frmROOF::ShowList() {
  isShowing_ = true;
  while (lstSections_->topLevelItemCount() > form_.SectionCount) delete lstSections_->takeTopLevelItem(form_.SectionCount);
  for (int row = 0; row < form_.SectionCount; ++row) {
    if (row == lstSections_->topLevelItemCount()) {
      auto* const added = new QTreeWidgetItem(lstSections_);
      added->setText(kNumberColumn, QString::number(row + 1));
      added->setTextAlignment(kAreaColumn, Qt::AlignRight | Qt::AlignVCenter);
    }
    const RoofPlane& section = form_.RoofPlanes[static_cast<std::size_t>(row)];
    QTreeWidgetItem* const item = lstSections_->topLevelItem(row);
    item->setText(kTypeColumn, Shown(CaptionOfRoofType(section.SectionType)));
    item->setText(kAreaColumn, Shown(Digits(Int(SectionArea(section)))));
  }
  if (form_.CurrentSection > 0) lstSections_->setCurrentItem(lstSections_->topLevelItem(form_.CurrentSection - 1));
  isShowing_ = false;
}

// --- The buttons

bool frmROOF::Took(const RoofStep& step) {
  if (step.IsDone()) {
    ShowForm();
    return true;
  }
  program_.messages.ShowMessage(WithTitle(step.message));
  ShowForm();
  if (step.focus) FocusBox(*step.focus);
  return false;
}

void frmROOF::FocusBox(RoofBox box) {
  if (form_.CurrentSection == 0) {
    cmdADD_->setFocus(Qt::OtherFocusReason);
    return;
  }
  QLineEdit* const edit = lengths_[static_cast<std::size_t>(box)];
  edit->setFocus(Qt::OtherFocusReason);
  edit->selectAll();
}

void frmROOF::StepBy(RoofStep (*step)(RoofForm&)) {
  const bool isFromButton = qobject_cast<QPushButton*>(focusWidget()) != nullptr;
  if (!Took(step(form_))) return;
  // With a key, the same box of the next section can be looked at; a button leads to the first one.
  auto* const box = qobject_cast<QLineEdit*>(focusWidget());
  if (box != nullptr)
    box->selectAll();
  else if (isFromButton)
    FocusBox(RoofBox::txtSection);
}

void frmROOF::Next() { StepBy(&NextSection); }

void frmROOF::Previous() { StepBy(&PreviousSection); }

void frmROOF::Add() {
  if (Took(AddSection(form_))) FocusBox(RoofBox::txtSection);
}

void frmROOF::Remove() {
  if (program_.messages.ShowMessage(WithTitle(kRemoveSectionQuestion)) != Answer::Yes) return;
  RemoveSection(form_);
  ShowForm();
}

void frmROOF::Undo() {
  if (!form_.removed.empty()) StepBy(&UndoRemove);
}

void frmROOF::ChooseInList(int section) {
  if (form_.showsJoists || section == form_.CurrentSection) return;
  Took(GoToSection(form_, section));
}

void frmROOF::Done() {
  const RoofDone done = FinishSections(form_);
  if (done.leaves) {
    CopyRoofToPlan(form_, plan_, dataEntry_);
    accept();
    return;
  }
  if (!Took(done.step)) return;
  joists_.front()->setFocus(Qt::OtherFocusReason);
}

void frmROOF::BackToSections() {
  CancelJoists(form_);
  ShowForm();
  FocusBox(RoofBox::txtSection);
}

void frmROOF::FinishWithJoists() {
  const JoistStep step = FinishJoists(form_);
  ShowForm();
  if (!step.IsDone()) {
    program_.messages.ShowMessage(WithTitle(step.message));
    joists_[step.focus.value_or(0)]->TakeFocusBack();
    return;
  }
  CopyRoofToPlan(form_, plan_, dataEntry_);
  // A roof without sections has no area to hand over.
  if (form_.SectionCount > 0 && program_.messages.ShowMessage(std::string(kTransferAreaQuestion)) == Answer::Yes)
    if (const std::string message = TransferRoofArea(form_, dataEntry_); !message.empty())
      program_.messages.ShowMessage(WithTitle(message));
  accept();
}

// --- Boxes that are left, and the way out

void frmROOF::CheckLength(std::size_t box) {
  if (!isVisible() || form_.showsJoists) return;
  const RoofLength length = ReadLength(form_.*kLengths[box].text);
  if (length.message.empty()) return;
  program_.messages.ShowMessage(WithTitle(length.message));
  FocusBox(static_cast<RoofBox>(box));
}

void frmROOF::CheckJoist(std::size_t box) {
  if (!isVisible() || !form_.showsJoists) return;
  const std::string message = LeaveCeilingJoist(JoistText(form_, box));
  ShowForm();
  if (message.empty()) return;
  program_.messages.ShowMessage(WithTitle(message));
  joists_[box]->TakeFocusBack();
}

bool frmROOF::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::FocusOut) return QDialog::eventFilter(watched, event);
  // Buttons look at the boxes themselves, and the way out is free.
  QWidget* const now = QApplication::focusWidget();
  const bool goesToBox = now != nullptr && now->window() == this && qobject_cast<QPushButton*>(now) == nullptr && now != lstSections_;
  if (!goesToBox) return QDialog::eventFilter(watched, event);
  // After this event: a message must not open while the focus is on its way.
  const auto length = std::find(lengths_.begin(), lengths_.end(), watched);
  if (length != lengths_.end())
    QMetaObject::invokeMethod(
        this, [this, box = static_cast<std::size_t>(length - lengths_.begin())] { CheckLength(box); }, Qt::QueuedConnection);
  return QDialog::eventFilter(watched, event);
}

bool frmROOF::MayDiscard() {
  return !IsRoofChanged(form_, plan_) || program_.messages.ShowMessage(WithTitle(kDiscardRoofQuestion)) == Answer::Yes;
}

void frmROOF::reject() {
  if (form_.showsJoists)
    BackToSections();
  else if (MayDiscard())
    QDialog::reject();
}

void frmROOF::closeEvent(QCloseEvent* event) {
  if (!MayDiscard()) {
    event->ignore();
    return;
  }
  event->accept();
  QDialog::reject();
}

void frmROOF::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  FocusBox(RoofBox::txtSection);
}

}  // namespace norvale
