#include "entry/frm_display.h"

#include <QGridLayout>
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
#include "entry/frm_roof.h"
#include "entry/plan_form.h"
#include "entry/screens.h"

namespace norvale {

namespace {

constexpr QSize kLeastWindow(1024, 700);
constexpr const char* kKeysLine = " TAB or SHIFT+TAB To Move; ALT+DN=List F1=Help ALT+F2=Calculator  ESC=Exit";
constexpr const char* kPrintLine = "Loading Print Information ...";

// Columns of a screen's lines.
enum Column { kCaption, kBox, kExtra, kHint };

// The boxes whose lines the headings of the girder members stand beside.
constexpr int kFirstMemberBox = 4;
constexpr int kSecondMemberBox = 9;
constexpr int kMemberRows = 5;

// The number box in whose line a joist box stands.
int NumberBoxOf(int joistBox) { return joistBox < 5 ? joistBox + 26 : joistBox + 32; }

QString SpokenName(const std::string& caption) {
  QString name = Shown(ToUtf8(caption));
  if (name.endsWith(QLatin1Char(':'))) name.chop(1);
  return name;
}

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
  auto* const page = new QWidget;
  page->setObjectName(InArray("pctPage", static_cast<std::size_t>(screen)));
  auto* const grid = new QGridLayout(page);
  const int space = fontMetrics().height();
  grid->setContentsMargins(space * 3 / 2, space * 3 / 4, space, space / 4);
  grid->setHorizontalSpacing(Spacing());
  grid->setColumnStretch(kHint, 1);
  const int bounds = LineRange(form_, screen + kLineBounds);
  const int first = bounds / 256;
  const int last = bounds % 256;
  for (int line = first; line <= last; ++line) MakeLine(page, grid, line, line - first);
  const int rows = last - first + 1;
  // Label1 belongs to the lengths of the house.
  constexpr int kLengthsScreen = 2;
  if (screen == kLengthsScreen) {
    Label1_ = new QLabel(tr("Where no garage or carport makes the house longer, enter its length twice."), page);
    Label1_->setObjectName(QStringLiteral("Label1"));
    Label1_->setProperty("role", QStringLiteral("quiet"));
    grid->addWidget(Label1_, rows, kCaption, 1, kHint + 1);
  }
  const auto bracket = [&](const char* name, int box) {
    auto* const label = new BracketLabel(page);
    label->setObjectName(QString::fromLatin1(name));
    grid->addWidget(label, form_.LineOfNumber[box] - first, kExtra, kMemberRows, 1);
    return label;
  };
  if (ScreenOfNumber(form_, kFirstMemberBox) == screen) lblc1_ = bracket("lblc1", kFirstMemberBox);
  if (ScreenOfNumber(form_, kSecondMemberBox) == screen) lblc2_ = bracket("lblc2", kSecondMemberBox);
  grid->setRowStretch(rows + 1, 1);
  Page_->addWidget(page);
}

void frmDisplay::MakeLine(QWidget* page, QGridLayout* grid, int line, int row) {
  const CaptionLine& placed = form_.lblLine[line];
  const auto index = static_cast<std::size_t>(line);
  auto* const caption = new CutLabel(Shown(ToUtf8(placed.caption)), page);
  caption->setObjectName(InArray("lblLine", index));
  if (placed.isIndented) caption->setContentsMargins(fontMetrics().height(), 0, 0, 0);
  grid->addWidget(caption, row, kCaption);
  lblLine_[index] = caption;
  auto* const hint = new CutLabel(Shown(ToUtf8(placed.hint)), page);
  hint->setObjectName(InArray("lblHint", index));
  hint->setProperty("role", QStringLiteral("quiet"));
  grid->addWidget(hint, row, kHint);
  lblHint_[index] = hint;

  const int box = placed.control.index;
  if (placed.control.kind == ControlKind::Selection && form_.LineOfCombo[box] == line) {
    grid->addWidget(MakeList(page, box), row, kBox, 1, 2);
  } else if (placed.control.kind == ControlKind::Number && form_.LineOfNumber[box] == line) {
    grid->addWidget(MakeNumber(page, box), row, kBox);
    if (const int joist = JoistBoxOf(box); joist >= 0) grid->addWidget(MakeJoist(page, joist, SpokenName(placed.caption)), row, kExtra);
  }
}

QWidget* frmDisplay::MakeNumber(QWidget* page, int box) {
  auto* const edit = new NumberEdit(page);
  const auto index = static_cast<std::size_t>(box);
  const int line = form_.LineOfNumber[box];
  edit->setObjectName(InArray("TxtDisp", index));
  edit->setAccessibleName(SpokenName(form_.lblLine[line].caption));
  edit->setAccessibleDescription(Shown(ToUtf8(form_.lblLine[line].hint)));
  edit->setFixedWidth(NumberWidth());
  connect(edit, &NumberEdit::Changed, this, [this, edit, box] {
    SetNumberText(form_, box, Typed(edit->text()));
    FormChanged();
  });
  connect(edit, &NumberEdit::Entered, this, [this, edit, box, line] {
    EnterNumberBox(form_, box);
    BoxEntered(edit, line);
  });
  connect(edit, &NumberEdit::LeftForBox, this, [this, box] { LeaveNumber(box); });
  connect(edit, &NumberEdit::LeftForButton, this, [this, box] {
    RoundNumberBox(form_, box);
    ShowForm();
  });
  TxtDisp_[index] = edit;
  return edit;
}

QWidget* frmDisplay::MakeJoist(QWidget* page, int box, const QString& name) {
  auto* const both = new QWidget(page);
  auto* const label = new QLabel(tr("joists"), both);
  label->setProperty("role", QStringLiteral("quiet"));
  auto* const edit = new NumberEdit(both);
  const auto index = static_cast<std::size_t>(box);
  const int line = form_.LineOfNumber[NumberBoxOf(box)];
  edit->setObjectName(InArray("TxtDispJoist", index));
  edit->setAccessibleName(tr("Joist length in feet of: %1").arg(name));
  edit->setFixedWidth(NumberWidth());
  connect(edit, &NumberEdit::Changed, this, [this, edit, box] {
    SetJoistText(form_, box, Typed(edit->text()));
    FormChanged();
  });
  connect(edit, &NumberEdit::Entered, this, [this, edit, line] { BoxEntered(edit, line); });
  connect(edit, &NumberEdit::LeftForBox, this, [this, box] { LeaveJoist(box); });
  connect(edit, &NumberEdit::LeftForButton, this, [this, box] {
    RoundJoistBox(form_, box);
    ShowForm();
  });
  auto* const row = new QHBoxLayout(both);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(label);
  row->addWidget(edit);
  row->addStretch();
  TxtDispJoist_[index] = edit;
  lblJoist_[index] = label;
  return both;
}

QWidget* frmDisplay::MakeList(QWidget* page, int list) {
  auto* const box = new ChoiceList(page);
  const auto index = static_cast<std::size_t>(list);
  const int line = form_.LineOfCombo[list];
  box->setObjectName(InArray("combo1", index));
  box->setAccessibleName(SpokenName(form_.lblLine[line].caption));
  box->setAccessibleDescription(Shown(ToUtf8(form_.lblLine[line].hint)));
  for (const std::string& row : form_.combo1[list].rows) box->addItem(Shown(ToUtf8(row)));
  connect(box, &QComboBox::activated, this, [this, list](int row) { Choose(list, row); });
  connect(box, &ChoiceList::Entered, this, [this, box, list, line] {
    choiceBefore_ = {form_.combo1[list].ListIndex, form_.combo1[list].unlistedText};
    BoxEntered(box, line);
  });
  connect(box, &ChoiceList::UndoAsked, this, [this, list] { UndoChoice(list); });
  combo1_[index] = box;
  return box;
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
  cmdDISP1_ = MakeButton("lbldisp1", "cmdDISP1", tr("&Next Screen"), row);
  cmdDISP2_ = MakeButton("lbldisp2", "cmdDISP2", tr("Pre&v Screen"), row);
  cmdDISP3_ = MakeButton("lbldisp3", "cmdDISP3", tr("&Print"), row);
  cmdDISP4_ = MakeButton("lbldisp4", "cmdDISP4", tr("E&xit"), row);
  row->addStretch();
  cmdDOROOF_ = MakeButton("lblDOROOF", "cmdDOROOF", tr("Stick Built Roof"), row);
  cmdDOROOF_->setShortcut(QKeySequence(Qt::ALT | Qt::Key_R));
  cmdDOROOF_->setToolTip(tr("ALT+R"));
  cmdPreliminary_ = MakeButton("lblPreliminary", "cmdPreliminary", tr("Prelim&inary..."), row);
  connect(cmdDISP1_, &QPushButton::clicked, this, [this] { Go(+1); });
  connect(cmdDISP2_, &QPushButton::clicked, this, [this] { Go(-1); });
  connect(cmdDISP3_, &QPushButton::clicked, this, &frmDisplay::Print);
  connect(cmdDISP4_, &QPushButton::clicked, this, &frmDisplay::Exit);
  connect(cmdDOROOF_, &QPushButton::clicked, this, &frmDisplay::OpenRoof);
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

int frmDisplay::WidthOfBox(int line) const {
  const auto& [kind, index] = form_.lblLine[line].control;
  const auto at = static_cast<std::size_t>(index);
  if (kind == ControlKind::Selection && combo1_[at] != nullptr) return combo1_[at]->sizeHint().width();
  if (kind != ControlKind::Number || TxtDisp_[at] == nullptr) return 0;
  const int joist = JoistBoxOf(index);
  if (joist < 0) return TxtDisp_[at]->width();
  const QWidget* const extra = TxtDispJoist_[static_cast<std::size_t>(joist)]->parentWidget();
  return TxtDisp_[at]->width() + Spacing() + extra->sizeHint().width();
}

int frmDisplay::Spacing() const { return fontMetrics().height() * 2 / 3; }

int frmDisplay::NumberWidth() const { return fontMetrics().averageCharWidth() * 9; }

// The least window shows every screen whole: with more room lines stand further apart, with less what to enter is written
// smaller.
void frmDisplay::FitLines(int heightOfFrame) {
  struct Widths {
    int caption = 0;
    int box = 0;
    int hint = 0;

    void Hold(const Widths& other) {
      caption = std::max(caption, other.caption), box = std::max(box, other.box), hint = std::max(hint, other.hint);
    }
    [[nodiscard]] int Whole() const { return caption + box + hint; }
  };
  std::array<Widths, ScreenCount + 1> pages;
  Widths all;
  int mostLines = 0;
  int lineHeight = 0;
  for (int screen = 0; screen <= ScreenCount; ++screen) {
    const int bounds = LineRange(form_, screen + kLineBounds);
    Widths& page = pages[static_cast<std::size_t>(screen)];
    for (int line = bounds / 256; line <= bounds % 256; ++line) {
      const auto at = static_cast<std::size_t>(line);
      page.Hold({lblLine_[at]->sizeHint().width(), WidthOfBox(line), lblHint_[at]->sizeHint().width()});
      if (form_.lblLine[line].control.kind == ControlKind::Selection)
        if (const auto* const list = combo1_[static_cast<std::size_t>(form_.lblLine[line].control.index)])
          lineHeight = std::max(lineHeight, list->sizeHint().height());
    }
    all.Hold(page);
    mostLines = std::max(mostLines, bounds % 256 - bounds / 256 + 1);
  }

  const QMargins margins = Page_->widget(0)->layout()->contentsMargins();
  const int width = kLeastWindow.width() - margins.left() - margins.right() - 2 * Spacing();
  const int height = kLeastWindow.height() - heightOfFrame - margins.top() - margins.bottom();
  const int apart = std::clamp((height - mostLines * lineHeight) / mostLines, 2, fontMetrics().height() / 2);
  // Captions, boxes and texts begin at the same place on every screen, where that leaves room for the texts.
  const bool isAligned = all.Whole() <= width;
  double scale = 1;
  for (int screen = 0; screen <= ScreenCount; ++screen) {
    const Widths& page = pages[static_cast<std::size_t>(screen)];
    auto* const grid = static_cast<QGridLayout*>(Page_->widget(screen)->layout());
    grid->setVerticalSpacing(apart);
    grid->setColumnMinimumWidth(kCaption, isAligned ? all.caption : page.caption);
    // Columns in which nothing stands would lose the space between them.
    const int extra = (isAligned ? all.box : page.box) - NumberWidth() - Spacing();
    const int below = grid->rowCount() - 1;
    grid->addItem(new QSpacerItem(NumberWidth(), 0), below, kBox);
    grid->addItem(new QSpacerItem(extra, 0), below, kExtra);
    if (page.Whole() > width) scale = std::min(scale, static_cast<double>(width - page.caption - page.box) / page.hint);
  }
  if (scale == 1) return;
  constexpr double kLeastScale = 0.75;
  QFont small = font();
  small.setPointSizeF(font().pointSizeF() * std::max(scale, kLeastScale));
  for (QLabel* const hint : lblHint_)
    if (hint != nullptr) hint->setFont(small);
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
  FocusLine(LineRange(form_, form_.CurrentScreen));
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
  for (std::size_t line = 0; line < kScreenLines; ++line) {
    if (lblLine_[line] == nullptr) continue;
    lblLine_[line]->setEnabled(form_.lblLine[line].enabled);
    lblHint_[line]->setEnabled(form_.lblLine[line].enabled);
  }
  for (std::size_t list = 0; list < kSelectionLists; ++list) {
    ChoiceList* const box = combo1_[list];
    if (box == nullptr) continue;
    const SelectionBox& choice = form_.combo1[list];
    box->setEnabled(choice.enabled);
    if (box->currentIndex() != choice.ListIndex) box->setCurrentIndex(choice.ListIndex);
    const QString unlisted = Shown(ToUtf8(choice.unlistedText));
    box->setPlaceholderText(unlisted);
    box->setToolTip(unlisted.isEmpty() ? QString() : tr("The list no longer has %1.").arg(unlisted));
  }
  for (std::size_t box = 0; box < kNumberBoxes; ++box) {
    if (TxtDisp_[box] == nullptr) continue;
    TxtDisp_[box]->setEnabled(form_.TxtDisp[box].enabled);
    TxtDisp_[box]->Show(Shown(form_.TxtDisp[box].text));
  }
  for (std::size_t box = 0; box < kJoistBoxes; ++box) {
    if (TxtDispJoist_[box] == nullptr) continue;
    const JoistBox& joist = form_.TxtDispJoist[box];
    TxtDispJoist_[box]->setEnabled(joist.enabled);
    TxtDispJoist_[box]->Show(Shown(joist.text));
    TxtDispJoist_[box]->setVisible(!joist.isHidden);
    lblJoist_[box]->setVisible(!joist.isHidden);
    lblJoist_[box]->setEnabled(joist.enabled);
  }
  ShowFrame();
}

void frmDisplay::ShowFrame() {
  const ScreenFrame frame = FrameOf(form_);
  PageLabel_->setText(Shown(frame.PageLabel));
  if (Label1_ != nullptr) Label1_->setVisible(frame.showsLabel1);
  for (const auto& [label, text] : {std::pair{lblc1_, &frame.lblc1}, std::pair{lblc2_, &frame.lblc2}}) {
    if (label == nullptr) continue;
    label->setText(Shown(*text));
    label->setVisible(!text->empty());
  }
  for (int screen = 0; screen <= ScreenCount; ++screen) {
    using State = ScreenMark::State;
    const State state = !HasUsableLine(form_, screen) ? State::Unused : IsScreenComplete(form_, screen) ? State::Complete : State::Open;
    marks_[static_cast<std::size_t>(screen)]->Set(state, screen == form_.CurrentScreen);
  }
  cmdDISP1_->setEnabled(frame.canGoNext);
  cmdDISP2_->setEnabled(frame.canGoBack);
  cmdDISP3_->setEnabled(form_.isPrintEnabled && static_cast<bool>(tasks_.printEstimate));
  cmdDOROOF_->setVisible(frame.showsRoofButton);
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
  const auto* const hint = lineAtHand_ < 0 ? nullptr : static_cast<CutLabel*>(lblHint_[static_cast<std::size_t>(lineAtHand_)]);
  lblStatus_->setText(hint != nullptr && hint->IsCut() ? QLatin1Char(' ') + hint->text() : QString::fromLatin1(kKeysLine));
}

void frmDisplay::BackToBox() {
  if (boxAtHand_ != nullptr && boxAtHand_->isEnabled() && boxAtHand_->isVisibleTo(this)) boxAtHand_->setFocus(Qt::OtherFocusReason);
}

void frmDisplay::FocusLine(int line) {
  QWidget* focus = nullptr;
  if (line >= 0) {
    const LineControl& control = form_.lblLine[line].control;
    const auto index = static_cast<std::size_t>(control.index);
    if (control.kind == ControlKind::Selection) focus = combo1_[index];
    if (control.kind == ControlKind::Number) focus = TxtDisp_[index];
  }
  // A screen without a box that can be used.
  if (focus == nullptr) focus = cmdDISP1_->isEnabled() ? cmdDISP1_ : cmdDISP2_;
  focus->setFocus(Qt::OtherFocusReason);
}

void frmDisplay::FocusFault(bool isJoistBox, int box) {
  const int number = isJoistBox ? NumberBoxOf(box) : box;
  // A box that is shut or hidden holds it: opened, so that it can be mended.
  if (isJoistBox) {
    form_.TxtDispJoist[box].enabled = true;
    form_.TxtDispJoist[box].isHidden = false;
  } else {
    form_.TxtDisp[box].enabled = true;
  }
  if (const int screen = ScreenOfNumber(form_, number); screen >= 0) {
    form_.CurrentScreen = screen;  // one with nothing else to enter would be passed over
    ShowScreen(form_, 0);
    ScreenChanged(form_.LineOfNumber[static_cast<std::size_t>(number)]);
  }
  ShowForm();
  NumberEdit* const edit = isJoistBox ? TxtDispJoist_[static_cast<std::size_t>(box)] : TxtDisp_[static_cast<std::size_t>(box)];
  if (edit == nullptr) return;
  edit->setFocus(Qt::OtherFocusReason);
  edit->selectAll();  // it may have had the focus all along
}

void frmDisplay::Tell(const std::string& message) { program_.messages.ShowMessage(WithTitle(message)); }

bool frmDisplay::IsInSight(const QWidget* box) const { return box->isVisibleTo(this); }

void frmDisplay::LeaveNumber(int box) {
  NumberEdit* const edit = TxtDisp_[static_cast<std::size_t>(box)];
  if (!IsInSight(edit)) return;  // the screen has changed meanwhile
  const BoxLeaving leaving = LeaveNumberBox(form_, box);
  ShowForm();
  FormChanged();
  if (!leaving.message.empty()) Tell(leaving.message);
  if (leaving.focusReturns) edit->TakeFocusBack();
}

void frmDisplay::LeaveJoist(int box) {
  NumberEdit* const edit = TxtDispJoist_[static_cast<std::size_t>(box)];
  if (!IsInSight(edit)) return;
  const BoxLeaving leaving = norvale::LeaveJoistBox(form_, box);
  ShowForm();
  FormChanged();
  if (!leaving.message.empty()) Tell(leaving.message);
  if (leaving.focusReturns) edit->TakeFocusBack();
}

void frmDisplay::RoundBoxAtHand() {
  const QWidget* const focus = focusWidget();
  for (int box = 0; box < static_cast<int>(kNumberBoxes); ++box)
    if (focus != nullptr && TxtDisp_[static_cast<std::size_t>(box)] == focus) RoundNumberBox(form_, box);
  for (int box = 0; box < static_cast<int>(kJoistBoxes); ++box)
    if (focus != nullptr && TxtDispJoist_[static_cast<std::size_t>(box)] == focus) RoundJoistBox(form_, box);
  ShowForm();
}

void frmDisplay::Choose(int list, int row) {
  if (row == form_.combo1[list].ListIndex) return;
  ClickSelectionBox(form_, list, row);
  ShowForm();
  FormChanged();
}

void frmDisplay::UndoChoice(int list) {
  if (choiceBefore_.row == form_.combo1[list].ListIndex) return;
  ClickSelectionBox(form_, list, choiceBefore_.row);
  form_.combo1[list].unlistedText = choiceBefore_.unlistedText;
  ShowForm();
  FormChanged();
}

void frmDisplay::Go(int delta) {
  RoundBoxAtHand();
  if (form_.CurrentScreen + delta < 0 || form_.CurrentScreen + delta > ScreenCount) return;
  ScreenChanged(ShowScreen(form_, delta));
}

void frmDisplay::GoTo(int screen) {
  RoundBoxAtHand();
  ScreenChanged(GoToScreen(form_, screen));
}

void frmDisplay::ScreenChanged(int line) {
  // Away from the old page first: it would hand its focus to any box of the new one.
  Page_->setFocus(Qt::OtherFocusReason);
  Page_->setCurrentIndex(form_.CurrentScreen);
  FocusLine(line);
  ShowForm();
  FormChanged();
  if (tasks_.keepDraft) Try(program_.messages, tasks_.keepDraft);
}

bool frmDisplay::ToldNumberFault() {
  const auto fault = FirstNumberFault(form_);
  if (!fault) return false;
  Tell(fault->message);
  FocusFault(fault->isJoistBox, fault->box);
  return true;
}

void frmDisplay::Print() {
  RoundBoxAtHand();
  if (ToldNumberFault()) return;
  const PrintCheck check = CheckBeforePrint(form_);
  ShowForm();
  if (check.screen >= 0) {
    Tell(check.message);
    ScreenChanged(GoToScreen(form_, check.screen));
    const ScreenCheck found = CheckScreenComplete(form_, check.screen);
    if (!found.message.empty()) Tell(found.message);
    if (found.focus)
      TxtDisp_[static_cast<std::size_t>(*found.focus)]->setFocus(Qt::OtherFocusReason);  // each has a line: see RefusalOfPlan
    return;
  }
  lblStatus_->setText(QString::fromLatin1(kPrintLine));
  StorePlanFromForm(form_, program_.session.CurrentEstimate);
  Try(program_.messages, [this] { tasks_.printEstimate(form_, this); });
  ShowStatus();
}

void frmDisplay::Exit() {
  RoundBoxAtHand();
  switch (RoadOfExit(form_, isPlanChanged_)) {
    case ExitRoad::Leave:
      return Leave(true);
    case ExitRoad::AskToExit: {
      const std::string number = ToUtf8(program_.session.CurrentEstimate.PlanNumber.Trimmed());
      if (program_.messages.ShowMessage(ExitQuestion(number)) != Answer::Yes) return BackToBox();
      break;
    }
    case ExitRoad::AskToSave:
      break;
  }
  frmEstsave prompt(form_.mode, this);
  prompt.exec();
  const SaveRoad road = RoadOfSave(form_.mode, prompt.Choice());
  if (road.staysOnForm) return BackToBox();
  const bool keepsPlan = road.updatesRecord || !road.PlanCancelled;
  if (keepsPlan && ToldNumberFault()) return;
  if (road.updatesRecord && !SaveInPlace()) return BackToBox();
  Leave(road.PlanCancelled);
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
