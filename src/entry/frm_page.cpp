#include "entry/frm_page.h"

#include <QGridLayout>
#include <QLabel>
#include <algorithm>

#include "base/text.h"
#include "desktop/frm_text.h"
#include "entry/frm_boxes.h"
#include "entry/frm_display_parts.h"
#include "entry/screens.h"

namespace norvale {

namespace {

// Columns of the lines.
enum Column { kCaption, kBox, kExtra, kHint };

QString ObjectName(const char* kind, std::string_view field) {
  return QLatin1String(kind) + QLatin1String(field.data(), static_cast<int>(field.size()));
}

QString SpokenName(const std::string& caption) {
  QString name = Shown(ToUtf8(caption));
  if (name.endsWith(QLatin1Char(':'))) name.chop(1);
  return name;
}

void ShowIn(QWidget* widget, bool visible) {
  if (widget->isHidden() == visible) widget->setVisible(visible);
}

}  // namespace

void PageWidths::Hold(const PageWidths& other) {
  caption = std::max(caption, other.caption);
  box = std::max(box, other.box);
  hint = std::max(hint, other.hint);
}

PlanPage::PlanPage(PlanForm& form, int screen, QWidget* parent) : QWidget(parent), form_(form), screen_(screen) {
  setObjectName(InArray("pctPage", static_cast<std::size_t>(screen)));
  auto* const grid = new QGridLayout(this);
  const int space = fontMetrics().height();
  grid->setContentsMargins(space * 3 / 2, space * 3 / 4, space, space / 4);
  grid->setHorizontalSpacing(Spacing());
  grid->setColumnStretch(kHint, 1);
  const auto [first, last] = LinesOn(form_, screen);
  rows_.reserve(static_cast<std::size_t>(last - first + 1));
  for (int line = first; line <= last; ++line) MakeLine(grid, line, line - first);
  const int lines = last - first + 1;
  if (ScreenOfNumber(form_, NumberBox::OverallLength) == screen) {
    lblLengths_ = new QLabel(tr("Where no garage or carport makes the house longer, enter its length twice."), this);
    lblLengths_->setObjectName(QStringLiteral("lblLengths"));
    lblLengths_->setProperty("role", QStringLiteral("quiet"));
    grid->addWidget(lblLengths_, lines, kCaption, 1, kHint + 1);
  }
  MakeBrackets(grid, first);
  grid->setRowStretch(lines + 1, 1);
}

void PlanPage::MakeLine(QGridLayout* grid, int line, int gridRow) {
  const LineState& placed = form_.lines[static_cast<std::size_t>(line)];
  Row& row = rows_.emplace_back(Row{.line = line, .field = placed.field});
  const std::string_view name = placed.field.Name();
  row.caption = new CutLabel(Shown(ToUtf8(placed.caption)), this);
  row.caption->setObjectName(ObjectName("lbl", name));
  if (placed.isIndented) row.caption->setContentsMargins(fontMetrics().height(), 0, 0, 0);
  grid->addWidget(row.caption, gridRow, kCaption);
  row.hint = new CutLabel(Shown(ToUtf8(placed.hint)), this);
  row.hint->setObjectName(ObjectName("lblHint", name));
  row.hint->setProperty("role", QStringLiteral("quiet"));
  grid->addWidget(row.hint, gridRow, kHint);

  // A screen file may name a box twice: it stands where it is named last.
  if (placed.field.IsList() && form_.lineOfList[placed.field.List()] == line) {
    MakeList(row);
    grid->addWidget(row.list, gridRow, kBox, 1, 2);
  } else if (placed.field.IsNumber() && form_.lineOfNumber[placed.field.Number()] == line) {
    MakeNumber(row);
    grid->addWidget(row.number, gridRow, kBox);
    if (const auto joist = JoistBoxBehind(placed.field.Number())) grid->addWidget(MakeJoist(row, *joist), gridRow, kExtra);
  }
}

void PlanPage::Name(QWidget* box, const Row& row, const char* kind) {
  const LineState& line = form_.lines[static_cast<std::size_t>(row.line)];
  box->setObjectName(ObjectName(kind, row.field.Name()));
  box->setAccessibleName(SpokenName(line.caption));
  box->setAccessibleDescription(Shown(ToUtf8(line.hint)));
}

void PlanPage::MakeList(Row& row) {
  auto* const box = row.list = new ChoiceList(this);
  const SelectionList list = row.field.List();
  Name(box, row, "cbo");
  for (const std::string& text : form_.lists[list].rows) box->addItem(Shown(ToUtf8(text)));
  connect(box, &QComboBox::activated, this, [this, list](int chosen) { Choose(list, chosen); });
  connect(box, &ChoiceList::Entered, this, [this, box, list, line = row.line] {
    choiceBefore_ = {form_.lists[list].ListIndex, form_.lists[list].unlistedText};
    emit Entered(box, line);
  });
  connect(box, &ChoiceList::UndoAsked, this, [this, list] { UndoChoice(list); });
}

void PlanPage::MakeNumber(Row& row) {
  auto* const edit = row.number = new NumberEdit(this);
  const NumberBox box = row.field.Number();
  Name(edit, row, "txt");
  edit->setFixedWidth(NumberWidth());
  connect(edit, &NumberEdit::Changed, this, [this, edit, box] {
    SetNumberText(form_, box, Typed(edit->text()));
    emit Changed();
  });
  connect(edit, &NumberEdit::Entered, this, [this, edit, box, line = row.line] {
    EnterNumberBox(form_, box);
    emit Entered(edit, line);
  });
  connect(edit, &NumberEdit::LeftForBox, this, [this, edit, box] { LeaveNumber(edit, box); });
  connect(edit, &NumberEdit::LeftForButton, this, [this, box] {
    RoundNumberBox(form_, box);
    ShowLines();
  });
}

QWidget* PlanPage::MakeJoist(Row& row, JoistBox box) {
  auto* const both = new QWidget(this);
  row.lblJoist = new QLabel(tr("joists"), both);
  row.lblJoist->setProperty("role", QStringLiteral("quiet"));
  auto* const edit = row.joist = new NumberEdit(both);
  edit->setObjectName(ObjectName("txt", RowOf(box).name));
  edit->setAccessibleName(tr("Joist length in feet of: %1").arg(SpokenName(form_.lines[static_cast<std::size_t>(row.line)].caption)));
  edit->setFixedWidth(NumberWidth());
  connect(edit, &NumberEdit::Changed, this, [this, edit, box] {
    SetJoistText(form_, box, Typed(edit->text()));
    emit Changed();
  });
  connect(edit, &NumberEdit::Entered, this, [this, edit, line = row.line] { emit Entered(edit, line); });
  connect(edit, &NumberEdit::LeftForBox, this, [this, edit, box] { LeaveJoist(edit, box); });
  connect(edit, &NumberEdit::LeftForButton, this, [this, box] {
    RoundJoistBox(form_, box);
    ShowLines();
  });
  auto* const layout = new QHBoxLayout(both);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(row.lblJoist);
  layout->addWidget(edit);
  layout->addStretch();
  return both;
}

void PlanPage::MakeBrackets(QGridLayout* grid, int firstLine) {
  const auto bracket = [&](const char* name, NumberBox first) -> BracketLabel* {
    if (ScreenOfNumber(form_, first) != screen_) return nullptr;
    auto* const label = new BracketLabel(this);
    label->setObjectName(QLatin1String(name));
    grid->addWidget(label, form_.lineOfNumber[first] - firstLine, kExtra, static_cast<int>(std::tuple_size_v<FiveRows>), 1);
    return label;
  };
  lblGirder_ = bracket("lblGirder", NumberBox::MajorGirderLft8);
  lblWiderGirder_ = bracket("lblWiderGirder", NumberBox::WiderGirderLft8);
}

void PlanPage::ShowLines() {
  for (const Row& row : rows_) ShowRow(row);
  ShowMembers();
}

void PlanPage::ShowRow(const Row& row) {
  const bool isCaptionEnabled = form_.lines[static_cast<std::size_t>(row.line)].enabled;
  row.caption->setEnabled(isCaptionEnabled);
  row.hint->setEnabled(isCaptionEnabled);
  if (row.list != nullptr) {
    const ListState& choice = form_.lists[row.field.List()];
    row.list->setEnabled(choice.enabled);
    if (row.list->currentIndex() != choice.ListIndex) row.list->setCurrentIndex(choice.ListIndex);
    if (const QString unlisted = Shown(ToUtf8(choice.unlistedText)); unlisted != row.list->placeholderText()) {
      row.list->setPlaceholderText(unlisted);
      row.list->setToolTip(unlisted.isEmpty() ? QString() : tr("The list no longer has %1.").arg(unlisted));
    }
  }
  if (row.number != nullptr) {
    const NumberState& number = form_.numbers[row.field.Number()];
    row.number->setEnabled(number.enabled);
    row.number->Show(Shown(number.text));
  }
  if (row.joist != nullptr) {
    const JoistState& joist = form_.joists[*JoistBoxBehind(row.field.Number())];
    row.joist->setEnabled(joist.enabled);
    row.joist->Show(Shown(joist.text));
    row.lblJoist->setEnabled(joist.enabled);
    ShowIn(row.joist, !joist.isHidden);
    ShowIn(row.lblJoist, !joist.isHidden);
  }
}

void PlanPage::ShowMembers() {
  if (lblGirder_ == nullptr && lblWiderGirder_ == nullptr) return;
  const ScreenFrame frame = FrameOf(form_);
  for (const auto& [label, text] : {std::pair{lblGirder_, &frame.girderMembers}, std::pair{lblWiderGirder_, &frame.widerGirderMembers}}) {
    if (label == nullptr) continue;
    label->setText(Shown(*text));
    ShowIn(label, !text->empty());
  }
}

const PlanPage::Row* PlanPage::RowOfLine(int line) const {
  const auto row = std::ranges::find(rows_, line, &Row::line);
  return row == rows_.end() ? nullptr : &*row;
}

QWidget* PlanPage::BoxOfLine(int line) const {
  const Row* const row = RowOfLine(line);
  if (row == nullptr) return nullptr;
  return row->list != nullptr ? static_cast<QWidget*>(row->list) : row->number;
}

NumberEdit* PlanPage::EditOf(std::variant<NumberBox, JoistBox> box) const {
  const auto* const joist = std::get_if<JoistBox>(&box);
  const NumberBox number = joist != nullptr ? RowOf(*joist).bay : std::get<NumberBox>(box);
  const auto row =
      std::ranges::find_if(rows_, [&](const Row& found) { return found.number != nullptr && found.field == LineField(number); });
  if (row == rows_.end()) return nullptr;
  return joist != nullptr ? row->joist : row->number;
}

QString PlanPage::CutHint(int line) const {
  const Row* const row = RowOfLine(line);
  return row != nullptr && row->hint->IsCut() ? row->hint->text() : QString();
}

void PlanPage::RoundBoxAtHand() {
  const QWidget* const focus = window()->focusWidget();
  for (const Row& row : rows_) {
    if (focus == nullptr) break;
    if (row.number == focus) RoundNumberBox(form_, row.field.Number());
    if (row.joist == focus) RoundJoistBox(form_, *JoistBoxBehind(row.field.Number()));
  }
  ShowLines();
}

void PlanPage::LeaveNumber(NumberEdit* edit, NumberBox box) {
  if (!edit->isVisibleTo(window())) return;  // the screen has changed meanwhile
  const BoxLeaving leaving = LeaveNumberBox(form_, box);
  ShowLines();
  emit Changed();
  if (!leaving.message.empty()) emit Refused(leaving.message, edit, leaving.focusReturns);
}

void PlanPage::LeaveJoist(NumberEdit* edit, JoistBox box) {
  if (!edit->isVisibleTo(window())) return;
  const BoxLeaving leaving = LeaveJoistBox(form_, box);
  ShowLines();
  emit Changed();
  if (!leaving.message.empty()) emit Refused(leaving.message, edit, leaving.focusReturns);
}

void PlanPage::Choose(SelectionList list, int row) {
  if (row == form_.lists[list].ListIndex) return;
  ClickSelectionList(form_, list, row);
  ShowLines();
  emit Changed();
}

void PlanPage::UndoChoice(SelectionList list) {
  if (choiceBefore_.row == form_.lists[list].ListIndex) return;
  ClickSelectionList(form_, list, choiceBefore_.row);
  form_.lists[list].unlistedText = choiceBefore_.unlistedText;
  ShowLines();
  emit Changed();
}

int PlanPage::Spacing() const { return fontMetrics().height() * 2 / 3; }

int PlanPage::NumberWidth() const { return fontMetrics().averageCharWidth() * 9; }

int PlanPage::BoxWidth(const Row& row) const {
  if (row.list != nullptr) return row.list->sizeHint().width();
  if (row.number == nullptr) return 0;
  return row.number->width() + (row.joist == nullptr ? 0 : Spacing() + row.joist->parentWidget()->sizeHint().width());
}

int PlanPage::LineHeight() const {
  int height = 0;
  for (const Row& row : rows_)
    if (row.list != nullptr) height = std::max(height, row.list->sizeHint().height());
  return height;
}

PageWidths PlanPage::Widths() const {
  PageWidths widths;
  for (const Row& row : rows_) widths.Hold({row.caption->sizeHint().width(), BoxWidth(row), row.hint->sizeHint().width()});
  return widths;
}

void PlanPage::Place(const PageWidths& widths, int apart) {
  auto* const grid = static_cast<QGridLayout*>(layout());
  grid->setVerticalSpacing(apart);
  grid->setColumnMinimumWidth(kCaption, widths.caption);
  // Columns in which nothing stands would lose the space between them.
  const int below = grid->rowCount() - 1;
  grid->addItem(new QSpacerItem(NumberWidth(), 0), below, kBox);
  grid->addItem(new QSpacerItem(widths.box - NumberWidth() - Spacing(), 0), below, kExtra);
}

void PlanPage::SetHintFont(const QFont& font) {
  for (const Row& row : rows_) row.hint->setFont(font);
}

}  // namespace norvale
