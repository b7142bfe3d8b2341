#include "prices/frm_mat_default.h"

#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStandardItemModel>
#include <QStyle>
#include <algorithm>
#include <utility>

#include "base/text.h"
#include "desktop/frm_keys.h"
#include "desktop/frm_look.h"
#include "desktop/frm_ring.h"
#include "desktop/frm_text.h"

namespace norvale {

namespace {

constexpr const char* kHint = "hint";  // what the line at the foot says while the control has the focus

QString OnScreen(std::string_view text) { return Shown(ToUtf8(text)); }

std::string SentenceOnPlace(int list) {
  const std::string fate(FateOfAddedRow(list));
  if (fate.empty()) return "The take-off goes by the text of the rows in this list.";
  return "The take-off goes by the place of the rows in this list. A row that is added " + fate + (fate.back() == '.' ? "" : ".");
}

std::string Question(const std::string& listName, int list, const QString& text) {
  return "2 " + WithoutBars(listName + "\n\n" + SentenceOnPlace(list) + "\n\nAdd \"" + Typed(text.trimmed()) + "\" all the same ?") +
         "|Add Item";
}

}  // namespace

frmMatDefault::frmMatDefault(Program& program, QWidget* parent)
    : QDialog(parent), program_(program), editor_(LoadMaterialEditor(program.folder.Folder())) {
  setObjectName(QStringLiteral("frmMatDefault"));
  setWindowTitle(tr("Maintain Material Defaults"));
  setProperty(kHelpPage, QStringLiteral("material_lists"));

  const int space = fontMetrics().height();
  auto* const columns = new QHBoxLayout;
  columns->setSpacing(space * 3 / 2);
  columns->addWidget(MakeLists());
  columns->addWidget(MakeRows(), 1);
  lblHint_ = new QLabel(this);
  lblHint_->setObjectName(QStringLiteral("lblHint"));
  lblHint_->setProperty("role", QStringLiteral("quiet"));
  auto* const whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->setSpacing(0);
  whole->addWidget(MakeTitles());
  auto* const layout = new QVBoxLayout;
  layout->setContentsMargins(space, space, space, space);
  layout->setSpacing(space * 2 / 3);
  whole->addLayout(layout, 1);
  layout->addLayout(columns, 1);
  layout->addWidget(lblHint_);
  layout->addLayout(MakeButtons());

  for (QWidget* const control : findChildren<QWidget*>())
    if (control->property(kHint).isValid()) control->installEventFilter(this);
  resize(QSize(fontMetrics().averageCharWidth() * 100, space * 29).expandedTo(QSize(820, 560)));
  cboSelDefault_->setFocus();
  ShowList();
}

// --- Controls

QWidget* frmMatDefault::MakeTitles() {
  auto* const band = MakeBand(this);
  auto* const name = new QLabel(tr("Name: "), band);
  name->setObjectName(QStringLiteral("Label3"));
  lblListName_ = new QLabel(band);
  lblListName_->setObjectName(QStringLiteral("lblListName"));
  MakeTitle(lblListName_);
  lblListOf_ = new QLabel(band);
  lblListOf_->setObjectName(QStringLiteral("lblListOf"));
  const int space = fontMetrics().height();
  auto* const row = new QHBoxLayout(band);
  row->setContentsMargins(space, space / 2, space, space / 2);
  row->addWidget(name);
  row->addWidget(lblListName_, 1);
  row->addWidget(lblListOf_);
  return band;
}

QWidget* frmMatDefault::MakeLists() {
  auto* const part = new QWidget(this);
  lstLists_ = new QListWidget(part);
  lstLists_->setObjectName(QStringLiteral("lstLists"));
  lstLists_->setAccessibleName(tr("Lists"));
  lstLists_->setProperty(kHint, tr("Arrows or a letter go to a list   F1=Help   ESC=Cancel"));
  for (const int line : ListLines(editor_)) {
    auto* const item = new QListWidgetItem(OnScreen(CaptionName(editor_.MaterialScreens[static_cast<std::size_t>(line)])), lstLists_);
    item->setData(Qt::UserRole, line);
  }
  lstLists_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  lstLists_->setMinimumWidth(lstLists_->sizeHintForColumn(0) + style()->pixelMetric(QStyle::PM_ScrollBarExtent) +
                             fontMetrics().height() * 3 / 2);
  connect(lstLists_, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
    if (item != nullptr) GoTo(item->data(Qt::UserRole).toInt());
  });
  auto* const label = new QLabel(tr("L&ists "), part);
  label->setBuddy(lstLists_);
  auto* const layout = new QVBoxLayout(part);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(label);
  layout->addWidget(lstLists_);
  return part;
}

QWidget* frmMatDefault::MakeRows() {
  auto* const part = new QWidget(this);
  const int space = fontMetrics().height();

  cboSelDefault_ = new QComboBox(part);
  cboSelDefault_->setObjectName(QStringLiteral("cboSelDefault"));
  cboSelDefault_->setAccessibleName(tr("List Default"));
  cboSelDefault_->setProperty(kHint, tr("ALT+DOWN opens the rows   ENTER=Next box   F1=Help   ESC=Cancel"));
  connect(cboSelDefault_, &QComboBox::currentIndexChanged, this, &frmMatDefault::Pick);
  auto* const defaultLabel = new QLabel(tr("List De&fault "), part);
  defaultLabel->setObjectName(QStringLiteral("lblSelDefault"));
  defaultLabel->setBuddy(cboSelDefault_);

  lstComboLst_ = new QListWidget(part);
  lstComboLst_->setObjectName(QStringLiteral("lstComboLst"));
  lstComboLst_->setAccessibleName(tr("Material List"));
  lstComboLst_->setProperty(kHint, tr("ENTER or a click makes a row the default, which stands in bold   F1=Help   ESC=Cancel"));
  connect(lstComboLst_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) { Pick(lstComboLst_->row(item)); });
  connect(lstComboLst_, &QListWidget::itemActivated, this, [this](QListWidgetItem* item) { Pick(lstComboLst_->row(item)); });
  lblComboLst_ = new QLabel(part);
  lblComboLst_->setObjectName(QStringLiteral("lblComboLst"));
  lblComboLst_->setBuddy(lstComboLst_);

  lblPlace_ = new QLabel(part);
  lblPlace_->setObjectName(QStringLiteral("lblPlace"));
  lblPlace_->setProperty("role", QStringLiteral("quiet"));
  lblPlace_->setWordWrap(true);
  lblPlace_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  lblPlace_->setMinimumHeight(3 * fontMetrics().lineSpacing());

  auto* const grid = new QGridLayout(part);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(space / 2);
  grid->setVerticalSpacing(space / 2);
  grid->addWidget(defaultLabel, 1, 0);
  grid->addWidget(cboSelDefault_, 1, 1);
  grid->addWidget(lblComboLst_, 2, 0, Qt::AlignLeft | Qt::AlignTop);
  grid->addWidget(lstComboLst_, 2, 1);
  MakeAdding(grid, 3);
  grid->addWidget(lblPlace_, 6, 1);
  grid->setRowStretch(2, 1);
  grid->setColumnStretch(1, 1);
  return part;
}

void frmMatDefault::MakeAdding(QGridLayout* grid, int row) {
  txtAddItem_ = new QLineEdit(this);
  txtAddItem_->setObjectName(QStringLiteral("txtAddItem"));
  txtAddItem_->setAccessibleName(tr("New Row"));
  txtAddItem_->setMaxLength(static_cast<int>(decltype(MaterialRow::ListText)::kWidth));
  txtAddItem_->setProperty(kHint, tr("The row is added when you leave the box   ENTER=Add Item   F1=Help   ESC=Cancel"));
  connect(txtAddItem_, &QLineEdit::textEdited, this, &frmMatDefault::RefuseCharacters);
  connect(txtAddItem_, &QLineEdit::textChanged, this, &frmMatDefault::NoteOnWidth);
  auto* const label = new QLabel(tr("Ne&w Row "), this);
  label->setBuddy(txtAddItem_);
  lblWidth_ = new QLabel(this);
  lblWidth_->setObjectName(QStringLiteral("lblWidth"));
  lblWidth_->setProperty("role", QStringLiteral("quiet"));
  lblWidth_->setWordWrap(true);
  lblWidth_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  lblWidth_->setMinimumHeight(2 * fontMetrics().lineSpacing());

  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(MakeButton("cmdAddItem", tr("&Add Item "), tr("Adds what stands in the box before \"List End\"")));
  auto* const remove =
      MakeButton("cmdDelItem", tr("&Delete Item "),
                 tr("Rows cannot be removed: the plans on file go by their places. A row that is not chosen does no harm."));
  remove->setToolTip(remove->property(kHint).toString());
  buttons->addWidget(remove);
  buttons->addStretch();

  grid->addWidget(label, row, 0);
  grid->addWidget(txtAddItem_, row, 1);
  grid->addWidget(lblWidth_, row + 1, 1);
  grid->addLayout(buttons, row + 2, 1);
  NoteOnWidth();
}

QHBoxLayout* frmMatDefault::MakeButtons() {
  auto* const row = new QHBoxLayout;
  row->setSpacing(fontMetrics().height() / 2);
  auto* const previous = MakeButton("cmdPREV", tr("&Prev "), tr("Goes to the previous list"));
  auto* const next = MakeButton("cmdNEXT", tr("&Next "), tr("Goes to the next list"));
  auto* const save =
      MakeButton("cmdSave", tr("&Save "), tr("Writes all lists and closes the form; the file from before stays as NVdata02.BAK"));
  cmdCANCEL_ = MakeButton("cmdCANCEL", tr("&Cancel"), tr("Closes the form without writing"));
  connect(previous, &QPushButton::clicked, this, [this] { Step(-1); });
  connect(next, &QPushButton::clicked, this, [this] { Step(1); });
  connect(save, &QPushButton::clicked, this, &frmMatDefault::Save);
  connect(cmdCANCEL_, &QPushButton::clicked, this, &frmMatDefault::reject);
  row->addWidget(previous);
  row->addWidget(next);
  row->addStretch();
  row->addWidget(save);
  row->addWidget(cmdCANCEL_);
  return row;
}

QPushButton* frmMatDefault::MakeButton(const char* name, const QString& caption, const QString& hint) {
  auto* const button = new QPushButton(caption, this);
  button->setObjectName(QString::fromLatin1(name));
  button->setAccessibleName(QString(caption).remove(QLatin1Char('&')).trimmed());
  button->setAccessibleDescription(hint);
  button->setAutoDefault(false);
  button->setProperty(kHint, hint);
  return button;
}

// --- Events

void frmMatDefault::reject() {
  if (program_.messages.ShowMessage("2 Cancel Changes and Exit ?|CANCEL") == Answer::Yes) {
    QDialog::reject();
    return;
  }
  // What is typed must not stand in a box without the focus, where nothing would add it.
  if (!txtAddItem_->text().isEmpty()) txtAddItem_->setFocus();
}

bool frmMatDefault::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn && watched->property(kHint).isValid()) Hint(watched->property(kHint).toString());
  // A wheel turned over the closed box on the way down the form must not pick another default.
  if (watched == cboSelDefault_ && event->type() == QEvent::Wheel) return true;
  if (watched == txtAddItem_ && event->type() == QEvent::FocusOut) {
    QWidget* const now = QApplication::focusWidget();
    if (now != nullptr && now->window() == this && now != cmdCANCEL_) LeaveAddItem();
  }
  if (event->type() == QEvent::MouseButtonRelease && addition_) {
    qApp->removeEventFilter(this);
    QMetaObject::invokeMethod(this, &frmMatDefault::FinishAddition, Qt::QueuedConnection);
  }
  return QDialog::eventFilter(watched, event);
}

void frmMatDefault::Step(int direction) {
  FinishAddition();
  if (!MoveToList(editor_, direction)) {
    Hint(direction > 0 ? tr("This is the last list.") : tr("This is the first list."));
    return;
  }
  ShowList();
}

void frmMatDefault::GoTo(int line) {
  editor_.CurrentLine = line;
  ShowList();
}

void frmMatDefault::Pick(int index) {
  if (index < 0 || index >= static_cast<int>(shown_.size())) return;
  PickDefault(editor_, shown_[static_cast<std::size_t>(index)]);
  ShowDefault();
}

void frmMatDefault::LeaveAddItem() {
  if (txtAddItem_->text().trimmed().isEmpty()) {
    txtAddItem_->clear();
    lblComboLst_->setText(tr("List &Default"));
    cboSelDefault_->show();
    lstComboLst_->show();
    return;
  }
  const int list = CurrentList(editor_);
  addition_ = Addition{list, Typed(lblListName_->text()), txtAddItem_->text()};
  txtAddItem_->clear();
  if (FateOfAddedRow(list).empty()) {
    FinishAddition();
    return;
  }
  // The question opens behind the event that took the focus, and not while a mouse button is held on another control.
  if (QApplication::mouseButtons() == Qt::NoButton)
    QMetaObject::invokeMethod(this, &frmMatDefault::FinishAddition, Qt::QueuedConnection);
  else
    qApp->installEventFilter(this);
}

void frmMatDefault::FinishAddition() {
  const auto addition = std::exchange(addition_, std::nullopt);
  if (!addition) return;
  if (!FateOfAddedRow(addition->list).empty() &&
      program_.messages.ShowMessage(Question(addition->listName, addition->list, addition->text)) != Answer::Yes)
    return;
  if (AddRow(editor_, addition->list, FromUtf8(Typed(addition->text)).value_or("")) == RowAdding::IsListEnd)
    program_.messages.ShowMessage(Notice("\"List End\" closes each list and cannot be added as a row."));
  ShowList();
}

void frmMatDefault::RefuseCharacters() {
  const QString text = txtAddItem_->text();
  if (FromUtf8(Typed(text))) {
    kept_ = text;
    return;
  }
  const int cursor = txtAddItem_->cursorPosition();
  txtAddItem_->setText(kept_);
  txtAddItem_->setCursorPosition(std::max(0, cursor - static_cast<int>(text.size() - kept_.size())));
  program_.messages.ShowMessage(Notice("The material lists cannot hold that character. Type it another way."));
  txtAddItem_->setFocus();
}

void frmMatDefault::NoteOnWidth() {
  const auto length = txtAddItem_->text().trimmed().size();
  const bool isTooWide = length > static_cast<qsizetype>(kPlanTextWidth);
  QFont type = font();
  type.setBold(isTooWide);
  lblWidth_->setFont(type);
  lblWidth_->setText(isTooWide ? tr("%1 characters: a plan keeps the first %2 only.").arg(length).arg(kPlanTextWidth)
                               : tr("A new row needs a price under its key, else its lines print without one."));
  if (txtAddItem_->text().isEmpty()) kept_.clear();
}

void frmMatDefault::Save() {
  FinishAddition();
  const bool isSaved =
      Try(program_.messages, [this] { SaveMaterialRows(program_.folder.Files(), program_.folder.Folder(), editor_.MaterialRows); });
  if (isSaved) accept();
}

// --- Display

void frmMatDefault::ShowList() {
  const QSignalBlocker quietLists(lstLists_);
  const QSignalBlocker quietDefault(cboSelDefault_);
  shown_ = RowsOfList(editor_, CurrentList(editor_));
  cboSelDefault_->clear();
  lstComboLst_->clear();
  for (const std::size_t row : shown_) {
    const std::string text = editor_.MaterialRows[row].ListText.Trimmed();
    cboSelDefault_->addItem(OnScreen(text));
    auto* const item = new QListWidgetItem(OnScreen(text), lstComboLst_);
    if (text != kListEnd) continue;
    qobject_cast<QStandardItemModel*>(cboSelDefault_->model())->item(cboSelDefault_->count() - 1)->setEnabled(false);
    item->setFlags(Qt::NoItemFlags);
  }
  ShowDefault();

  for (int row = 0; row < lstLists_->count(); ++row) {
    if (lstLists_->item(row)->data(Qt::UserRole).toInt() != editor_.CurrentLine) continue;
    lstLists_->setCurrentRow(row);
    lblListOf_->setText(tr("List %1 of %2").arg(row + 1).arg(lstLists_->count()));
  }
  lblListName_->setText(OnScreen(CaptionName(editor_.MaterialScreens[static_cast<std::size_t>(editor_.CurrentLine)])));
  lblComboLst_->setText(tr("Material &List "));
  lblPlace_->setText(Shown(SentenceOnPlace(CurrentList(editor_))));
}

void frmMatDefault::ShowDefault() {
  const QSignalBlocker quiet(cboSelDefault_);
  const auto isDefault = DefaultRow(editor_, shown_);
  int current = -1;
  for (int i = 0; i < lstComboLst_->count(); ++i) {
    const bool isHere = shown_[static_cast<std::size_t>(i)] == isDefault;
    if (isHere) current = i;
    QListWidgetItem& item = *lstComboLst_->item(i);
    QFont type = lstComboLst_->font();
    type.setBold(isHere);
    item.setFont(type);
    item.setData(Qt::AccessibleTextRole, isHere ? tr("%1, the default").arg(item.text()) : item.text());
  }
  cboSelDefault_->setCurrentIndex(current);
  lstComboLst_->setCurrentRow(current);
}

void frmMatDefault::Hint(const QString& text) { lblHint_->setText(text); }

}  // namespace norvale
