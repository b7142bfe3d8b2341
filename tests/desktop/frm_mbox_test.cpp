#include "desktop/frm_mbox.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QScreen>

#include "desktop/form_driver.h"
#include "desktop/frm_help.h"

namespace norvale {
namespace {

using testing::ElementsAreArray;

std::vector<std::string> ButtonsOf(QWidget& form) {
  std::vector<std::string> names;
  for (const QPushButton* const button : form.findChildren<QPushButton*>())
    if (button->isVisible()) names.push_back(button->objectName().toStdString());
  return names;
}

std::string RingColour(QWidget& form, const char* ring) {
  auto* const label = Find<QLabel>(form, ring);
  // Between the ring's edge and the button.
  return label->grab().toImage().pixelColor(label->width() / 2, 1).name().toStdString();
}

// Shows the message, drives the box and returns the character that it answers.
template <typename Drive>
char AnswerOf(const char* text, Drive drive) {
  ScreenMessages messages;
  char answer = '?';
  DriveModal<frmMbox>([&] { answer = static_cast<char>(messages.ShowMessage(text)); }, drive);
  return answer;
}

TEST(frmMbox, EachKindWithEachAnswer) {
  const struct {
    const char* text;
    std::vector<std::string> buttons;
    std::vector<std::pair<const char*, char>> answers;
    char escape;
  } rows[] = {
      {"0 A", {"cmdOK"}, {{"cmdOK", '1'}}, '1'},
      {"1 A", {"cmdYES", "cmdNO", "cmdCANCEL"}, {{"cmdYES", '6'}, {"cmdNO", '7'}, {"cmdCANCEL", '0'}}, '0'},
      {"2 A", {"cmdYES", "cmdNO"}, {{"cmdYES", '6'}, {"cmdNO", '7'}}, '7'},
      {"3 A", {"cmdOK", "cmdCANCEL"}, {{"cmdOK", '1'}, {"cmdCANCEL", '0'}}, '0'},
      {"9 A", {"cmdOK", "cmdYES", "cmdNO", "cmdCANCEL"}, {{"cmdOK", '1'}, {"cmdYES", '6'}, {"cmdNO", '7'}, {"cmdCANCEL", '0'}}, '0'},
  };
  for (const auto& row : rows) {
    for (const auto& [button, answer] : row.answers) {
      EXPECT_EQ(AnswerOf(row.text,
                         [&](frmMbox& box) {
                           EXPECT_THAT(ButtonsOf(box), ElementsAreArray(row.buttons)) << row.text;
                           Click(box, button);
                         }),
                answer)
          << row.text << button;
    }
    EXPECT_EQ(AnswerOf(row.text, [](frmMbox&) { Key(Qt::Key_Escape); }), row.escape) << row.text;
    EXPECT_EQ(AnswerOf(row.text, [](frmMbox& box) { box.close(); }), row.escape) << row.text;
    EXPECT_EQ(AnswerOf(row.text, [](frmMbox&) { Key(Qt::Key_Return); }), row.answers.front().second) << row.text;
  }
}

TEST(frmMbox, KeysStepAndPress) {
  const struct {
    std::vector<Qt::Key> keys;
    char answer;
  } rows[] = {
      {{Qt::Key_Right, Qt::Key_Return}, '7'},
      {{Qt::Key_Right, Qt::Key_Right, Qt::Key_Space}, '0'},
      {{Qt::Key_Left, Qt::Key_Enter}, '0'},
      {{Qt::Key_Tab, Qt::Key_Return}, '7'},
      {{Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Return}, '6'},
      {{Qt::Key_Right, Qt::Key_Y}, '6'},
      {{Qt::Key_N}, '7'},
      {{Qt::Key_C}, '0'},
      {{Qt::Key_Q, Qt::Key_Return}, '6'},
  };
  for (const auto& row : rows)
    EXPECT_EQ(AnswerOf("1 A",
                       [&](frmMbox&) {
                         for (const Qt::Key key : row.keys) Key(key);
                       }),
              row.answer)
        << row.keys.front();
}

TEST(frmMbox, ShowsTextAndTitle) {
  const struct {
    const char* text;
    const char* message;
    const char* title;
  } rows[] = {
      {"0 No bar", "No bar", "Norvale Message"},
      {"0 One|T", "One", "T"},
      {"0 Two|T|U", "Two", "T|U"},
      {"0 Ends in one|", "Ends in one", ""},
      {"0 <b>as typed</b> & so|T", "<b>as typed</b> & so", "T"},
  };
  for (const auto& row : rows)
    AnswerOf(row.text, [&](frmMbox& box) {
      EXPECT_EQ(Find<QLabel>(box, "lblMSG")->text().toStdString(), row.message);
      EXPECT_EQ(Find<QLabel>(box, "lblMSG")->textFormat(), Qt::PlainText);
      EXPECT_EQ(box.windowTitle().toStdString(), row.title);
      Key(Qt::Key_Return);
    });
}

TEST(frmMbox, ButtonsStayClearOfLongTexts) {
  int last = 0;
  for (const int words : {1, 40, 200, 3000}) {
    std::string text = "1 ";
    for (int i = 0; i < words; ++i) text += "lumber ";
    AnswerOf(text.c_str(), [&](frmMbox& box) {
      auto* const label = Find<QLabel>(box, "lblMSG");
      auto* const button = Find<QPushButton>(box, "cmdNO");
      QWidget* const seen = label->window() == label->parentWidget() ? label : label->parentWidget();
      const int end = seen->mapTo(&box, QPoint(0, seen->height())).y();
      EXPECT_LE(end, button->mapTo(&box, QPoint(0, 0)).y()) << words;
      EXPECT_LE(box.height(), box.screen()->availableGeometry().height()) << words;
      EXPECT_GE(label->height(), label->heightForWidth(label->width())) << words << ": a line is cut off";
      EXPECT_GE(box.height(), last) << words;
      last = box.height();
      Key(Qt::Key_Escape);
    });
  }
}

TEST(frmMbox, TheRingFollowsTheFocus) {
  AnswerOf("2 A", [](frmMbox& box) {
    EXPECT_EQ(RingColour(box, "lblYes"), "#ffffe0");
    EXPECT_EQ(RingColour(box, "lblNO"), "#000040");
    Key(Qt::Key_Right);
    EXPECT_EQ(RingColour(box, "lblYes"), "#000040");
    EXPECT_EQ(RingColour(box, "lblNO"), "#ffffe0");
    Key(Qt::Key_Return);
  });
}

TEST(frmMbox, HelpOpensItsPageAndReturns) {
  AnswerOf("2 A", [](frmMbox&) {
    DriveModal<frmHelp>([] { Key(Qt::Key_F1); },
                        [](frmHelp& help) {
                          EXPECT_THAT(Find(help, "txtHelp")->property("plainText").toString().toStdString(),
                                      testing::StartsWith("Messages\n"));
                          Key(Qt::Key_Escape);
                        });
    Key(Qt::Key_Y);
  });
}

}  // namespace
}  // namespace norvale
