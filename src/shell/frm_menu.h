// The program's home: five panels of large buttons, the status line and the clock.
#pragma once

#include <QDialog>
#include <QPushButton>
#include <array>
#include <functional>
#include <vector>

#include "desktop/program.h"
#include "shell/menu_table.h"
#include "shell/status_line.h"

class QLabel;
class QTimer;

namespace norvale {

/// Runs the task of a choice and returns when its form has closed.
using MenuTask = std::function<void(MenuChoice choice, QWidget* menu)>;

/// A large button with its picture, caption, purpose and key.
class MenuCard : public QPushButton {
  Q_OBJECT

 public:
  MenuCard(const MenuButton& button, QWidget* parent);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  const MenuButton& button_;
};

class frmMenu : public QDialog {
  Q_OBJECT

 public:
  frmMenu(Program& program, MenuTask task);

  /// Shows the menu of that name, in any case; an unknown name leaves all hidden.
  void ShowMenu(std::string_view name);

  void SetStatusLine(std::string_view text, StatusMode mode);

  [[nodiscard]] const MenuModes& Modes() const { return modes_; }

  /// Esc presses the last button of the panel.
  void reject() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  struct Panel {
    const MenuPanel* menu;
    QWidget* box;
    std::vector<QPushButton*> buttons;  // the cards, and behind them the link where there is one

    [[nodiscard]] QPushButton* LastCard() const { return buttons[menu->row.size() - 1]; }
  };

  QWidget* MakeHead();
  Panel MakePanel(const MenuPanel& menu);
  QPushButton* MakeLink(const MenuPanel& menu, QWidget* box);
  Panel* ShownPanel();
  void HidePanels();
  void Choose(const MenuPanel& menu, MenuChoice choice);
  void RunChoice(const MenuPanel& menu, MenuChoice choice);
  void AskToLeave();
  void Tick();

  Program& program_;
  MenuTask task_;
  MenuModes modes_;
  StatusLine status_;
  std::array<Panel, 5> panels_;
  QLabel* lblMenu_ = nullptr;
  QLabel* lblDate_ = nullptr;
  QLabel* lblTime_ = nullptr;
  QLabel* lblMessage_ = nullptr;
  QTimer* TimerClock_ = nullptr;
  bool isBusy_ = false;  // a task or the question runs above the menu
};

}  // namespace norvale
