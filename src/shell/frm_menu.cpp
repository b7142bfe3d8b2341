#include "shell/frm_menu.h"

#include <QCloseEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <ctime>

#include "base/text.h"
#include "desktop/frm_keys.h"
#include "desktop/frm_look.h"
#include "desktop/frm_text.h"
#include "shell/menu_checks.h"

namespace norvale {

namespace {

constexpr QSize kLeastWindow(1024, 700);
constexpr int kCardsInRow = 3;
constexpr int kLinesOfCards = 2;

QFont CaptionFont(const QFont& usual) {
  QFont font = usual;
  font.setPointSizeF(usual.pointSizeF() * 1.15);
  font.setWeight(QFont::DemiBold);
  return font;
}

}  // namespace

MenuCard::MenuCard(const MenuButton& button, QWidget* parent) : QPushButton(Shown(button.caption), parent), button_(button) {
  setAccessibleName(Shown(button.caption));
  setAccessibleDescription(Shown(button.purpose));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAttribute(Qt::WA_Hover);
}

QSize MenuCard::sizeHint() const {
  const QFontMetrics usual = fontMetrics();
  const QFontMetrics caption(CaptionFont(font()));
  const int margin = usual.height();
  const int width = std::max(usual.horizontalAdvance(Shown(button_.purpose)), caption.horizontalAdvance(text()) + 2 * usual.height());
  return {width + 2 * margin, minimumSizeHint().height() + 4 * usual.height()};
}

QSize MenuCard::minimumSizeHint() const {
  const QFontMetrics usual = fontMetrics();
  const QFontMetrics caption(CaptionFont(font()));
  const int margin = usual.height();
  // The purpose may take two lines.
  return {caption.horizontalAdvance(text()) + margin, 4 * usual.height() + caption.height() + 2 * usual.height() + 3 * margin};
}

void MenuCard::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Colours& colours = ColoursOfLook();
  const QFontMetrics usual = fontMetrics();
  const int margin = usual.height();

  const qreal edge = hasFocus() ? 3 : 1;
  const QRectF outline = QRectF(rect()).adjusted(edge / 2 + 1, edge / 2 + 1, -edge / 2 - 1, -edge / 2 - 1);
  painter.setPen(QPen(hasFocus() ? colours.focus : colours.edge, edge));
  painter.setBrush(isDown() ? colours.cardDown : underMouse() ? colours.cardOver : colours.card);
  painter.drawRoundedRect(outline, 8, 8);

  const QFont captionFont = CaptionFont(font());
  const int captionHeight = QFontMetrics(captionFont).height();
  const QRect inside = rect().adjusted(margin, margin, -margin, -margin);
  const QString purpose = Shown(button_.purpose);
  const bool isOneLine = usual.horizontalAdvance(purpose) <= inside.width();
  const int textHeight = captionHeight + usual.height() * (isOneLine ? 1 : 2) + usual.height() / 4;
  const QRect textArea(inside.left(), inside.bottom() - textHeight, inside.width(), textHeight);
  // The picture stands in the middle of what the texts leave, not larger than is good for it.
  const QRect pictureArea(inside.left(), inside.top(), inside.width(), textArea.top() - inside.top() - margin / 2);
  const qreal side = std::min({static_cast<qreal>(pictureArea.height()), static_cast<qreal>(pictureArea.width()), usual.height() * 9.0});
  QRectF picture(0, 0, side, side);
  picture.moveCenter(QRectF(pictureArea).center());
  DrawPicture(painter, Shown(button_.picture), picture);

  painter.setFont(captionFont);
  painter.setPen(colours.text);
  painter.drawText(QRect(0, textArea.top(), width(), captionHeight), Qt::AlignHCenter | Qt::AlignTop, text());
  painter.setFont(font());
  painter.setPen(colours.quietText);
  painter.drawText(textArea, Qt::AlignHCenter | Qt::AlignBottom | Qt::TextWordWrap, purpose);

  if (button_.key == '\0') return;
  const int keySide = usual.height() * 3 / 2;
  const QRect key(inside.right() - keySide + margin / 3, inside.top() - margin / 3, keySide, keySide);
  painter.setPen(QPen(colours.edge, 1));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(key).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
  painter.setPen(colours.quietText);
  painter.drawText(key, Qt::AlignCenter, QString(QLatin1Char(button_.key)));
}

frmMenu::frmMenu(Program& program, MenuTask task) : program_(program), task_(std::move(task)), TimerClock_(new QTimer(this)) {
  setObjectName(QStringLiteral("frmMenu"));
  setWindowTitle(tr("Norvale Material Estimator"));
  setWindowFlags(Qt::Window);
  setProperty(kHelpPage, QStringLiteral("menu"));

  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(MakeHead());
  // All five share one place, which stays when none of them is seen.
  auto* const middle = new QWidget(this);
  auto* const place = new QVBoxLayout(middle);
  const int space = fontMetrics().height() * 2;
  place->setContentsMargins(space, space, space, space);
  for (const MenuPanel& menu : MenuPanels()) {
    Panel& panel = panels_[static_cast<std::size_t>(menu.menu)];
    panel = MakePanel(menu);
    place->addWidget(panel.box);
  }
  layout->addWidget(middle, 1);
  lblMessage_ = new QLabel(this);
  lblMessage_->setObjectName(QStringLiteral("lblMessage"));
  lblMessage_->setAccessibleName(tr("Status line"));
  lblMessage_->setTextFormat(Qt::PlainText);
  lblMessage_->setProperty("role", QStringLiteral("status"));
  lblMessage_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // its text never widens the window
  layout->addWidget(lblMessage_);

  TimerClock_->setObjectName(QStringLiteral("TimerClock"));
  connect(TimerClock_, &QTimer::timeout, this, &frmMenu::Tick);
  TimerClock_->start(1000);
  Tick();

  const QSize available = screen()->availableSize();
  setMinimumSize(kLeastWindow.boundedTo(available));
  resize(minimumSize());
  ShowMenu("Main");
}

QWidget* frmMenu::MakeHead() {
  auto* const head = new QWidget(this);
  head->setProperty("band", true);
  head->setAttribute(Qt::WA_StyledBackground);
  lblMenu_ = new QLabel(head);
  lblMenu_->setObjectName(QStringLiteral("lblMenu"));
  lblMenu_->setAccessibleName(tr("Menu"));
  MakeTitle(lblMenu_);
  lblDate_ = new QLabel(head);
  lblDate_->setObjectName(QStringLiteral("lblDate"));
  lblDate_->setAccessibleName(tr("Date"));
  lblTime_ = new QLabel(head);
  lblTime_->setObjectName(QStringLiteral("lblTime"));
  lblTime_->setAccessibleName(tr("Time"));
  auto* const clock = new QVBoxLayout;
  clock->setSpacing(0);
  clock->addWidget(lblDate_, 0, Qt::AlignRight);
  clock->addWidget(lblTime_, 0, Qt::AlignRight);
  auto* const row = new QHBoxLayout(head);
  const int space = fontMetrics().height();
  row->setContentsMargins(2 * space, space, 2 * space, space);
  row->addWidget(lblMenu_);
  row->addStretch();
  row->addLayout(clock);
  // The band keeps its height while the title is hidden.
  head->setFixedHeight(head->sizeHint().height() + space / 2);
  return head;
}

frmMenu::Panel frmMenu::MakePanel(const MenuPanel& menu) {
  Panel panel{.menu = &menu, .box = new QWidget(this), .buttons = {}};
  panel.box->setObjectName(Shown(menu.panel));
  panel.box->setAccessibleName(Shown(menu.title).trimmed());
  auto* const grid = new QGridLayout(panel.box);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(fontMetrics().height());
  for (std::size_t i = 0; i < menu.row.size(); ++i) {
    const MenuButton& button = menu.row[i];
    auto* const card = new MenuCard(button, panel.box);
    card->setObjectName(InArray(menu.buttons, i));
    card->installEventFilter(this);
    connect(card, &QPushButton::clicked, this, [this, &menu, choice = button.choice] { Choose(menu, choice); });
    grid->addWidget(card, static_cast<int>(i) / kCardsInRow, static_cast<int>(i) % kCardsInRow);
    panel.buttons.push_back(card);
  }
  if (menu.link != nullptr) {
    panel.buttons.push_back(MakeLink(menu, panel.box));
    const auto at = static_cast<int>(menu.row.size());
    grid->addWidget(panel.buttons.back(), at / kCardsInRow, at % kCardsInRow, Qt::AlignLeft | Qt::AlignBottom);
  }
  // Every menu has the same places, so that a button is where it was on the menu before.
  for (int column = 0; column < kCardsInRow; ++column) grid->setColumnStretch(column, 1);
  for (int line = 0; line < kLinesOfCards; ++line) grid->setRowStretch(line, 1);
  panel.box->hide();
  return panel;
}

QPushButton* frmMenu::MakeLink(const MenuPanel& menu, QWidget* box) {
  auto* const link = new QPushButton(Shown(menu.link->caption) + QStringLiteral("  (%1)").arg(QLatin1Char(menu.link->key)), box);
  link->setObjectName(QStringLiteral("cmd") + Shown(menu.link->caption));
  link->setAccessibleName(Shown(menu.link->caption));
  link->setAccessibleDescription(Shown(menu.link->purpose));
  link->setProperty("role", QStringLiteral("link"));
  link->installEventFilter(this);
  connect(link, &QPushButton::clicked, this, [this, &menu] { Choose(menu, menu.link->choice); });
  return link;
}

void frmMenu::ShowMenu(std::string_view name) {
  const MenuPanel* const menu = FindMenu(name);
  HidePanels();
  if (menu == nullptr) return;
  Panel& panel = panels_[static_cast<std::size_t>(menu->menu)];
  lblMenu_->setText(Shown(menu->title));
  lblMenu_->show();
  panel.box->show();
  panel.buttons.front()->setDefault(true);
  panel.buttons.front()->setFocus(Qt::TabFocusReason);
}

void frmMenu::SetStatusLine(std::string_view text, StatusMode mode) {
  status_.Set(text, mode);
  lblMessage_->setText(Shown(status_.Text()));
}

void frmMenu::reject() {
  if (Panel* const panel = ShownPanel(); panel != nullptr) panel->LastCard()->click();
}

bool frmMenu::eventFilter(QObject* watched, QEvent* event) {
  const auto panel = std::find_if(panels_.begin(), panels_.end(), [watched](const Panel& p) { return p.box == watched->parent(); });
  if (panel == panels_.end()) return QDialog::eventFilter(watched, event);
  if (event->type() == QEvent::FocusIn) {
    SetStatusLine(std::string(Trim(panel->menu->hint)) + " " + std::string(EntryHint), StatusMode::Message);
  } else if (event->type() == QEvent::KeyPress) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    const bool isPlain = (key.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
    if (isPlain && key.text().size() == 1) {
      if (const auto button = ButtonForKey(*panel->menu, key.text().front().unicode())) {
        panel->buttons[*button]->setFocus(Qt::ShortcutFocusReason);
        return true;
      }
    }
  }
  return QDialog::eventFilter(watched, event);
}

void frmMenu::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() != QEvent::ActivationChange || !isActiveWindow() || isBusy_) return;
  const auto menu = MenuOfModes(modes_);
  if (menu && panels_[static_cast<std::size_t>(*menu)].box->isHidden()) ShowMenu(MenuPanels()[static_cast<std::size_t>(*menu)].name);
}

void frmMenu::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (!isBusy_) AskToLeave();
}

frmMenu::Panel* frmMenu::ShownPanel() {
  const auto shown = std::find_if(panels_.begin(), panels_.end(), [](const Panel& panel) { return !panel.box->isHidden(); });
  return shown == panels_.end() ? nullptr : &*shown;
}

void frmMenu::HidePanels() {
  lblMenu_->hide();
  for (const Panel& panel : panels_) panel.box->hide();
}

void frmMenu::Choose(const MenuPanel& menu, MenuChoice choice) {
  if (isBusy_) return;
  if (menu.menu == Menu::Main) SetStatusLine("", StatusMode::Message);
  BeginChoice(modes_, choice);
  switch (choice) {
    case MenuChoice::EstimateMenu:
      ShowMenu("Estimate");
      return;
    case MenuChoice::CustomerMenu:
      ShowMenu("Customer");
      return;
    case MenuChoice::PrintMenu:
      ShowMenu("Print");
      return;
    case MenuChoice::UtilityMenu:
      ShowMenu("Utility");
      return;
    case MenuChoice::MainMenu:
      program_.session.CustomerSearchText.clear();
      ShowMenu("Main");
      return;
    case MenuChoice::LeaveProgram:
      AskToLeave();
      return;
    default:
      RunChoice(menu, choice);
  }
}

void frmMenu::RunChoice(const MenuPanel& menu, MenuChoice choice) {
  isBusy_ = true;
  HidePanels();
  SetStatusLine(EntryHint, StatusMode::Message);
  Try(program_.messages, [&] {
    if (const std::string refusal = RefusalOf(program_.folder, program_.session, choice); !refusal.empty())
      program_.messages.ShowMessage(refusal);
    else
      task_(choice, this);
  });
  EndChoice(modes_, choice);
  isBusy_ = false;
  // Where several forms close at once, some window managers give the keys to none of those that are left.
  activateWindow();
  ShowMenu(menu.name);
}

void frmMenu::AskToLeave() {
  isBusy_ = true;
  Panel* const panel = ShownPanel();
  QWidget* const focus = focusWidget();
  HidePanels();
  const Answer answer = program_.messages.ShowMessage("2 Leave NORVALE Program ? |End Program");
  isBusy_ = false;
  if (answer == Answer::Yes) {
    accept();
    return;
  }
  if (panel == nullptr) return;
  lblMenu_->show();
  panel->box->show();
  if (focus != nullptr) focus->setFocus(Qt::OtherFocusReason);
}

void frmMenu::Tick() {
  const std::time_t now = std::time(nullptr);
  const std::tm local = *std::localtime(&now);
  lblDate_->setText(Shown(ClockDate(local)));
  lblTime_->setText(Shown(ClockTime(local)));
}

}  // namespace norvale
