#include "desktop/frm_mbox.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QScreen>

#include "desktop/form_driver.h"
#include "desktop/frm_help.h"

namespace norvale {
namespace {

// Shows the message, drives the box and returns the character that it answers.
template <typename Drive>
char AnswerOf(const std::string& text, Drive drive) {
  ScreenMessages messages;
  char answer = '?';
  DriveModal<frmMbox>([&] { answer = static_cast<char>(messages.ShowMessage(text)); }, drive);
  return answer;
}

TEST(frmMbox, EachKindHasItsButtonsAndKeys) {
  const struct {
    const char* text;
    std::string buttons;
    std::vector<std::pair<const char*, char>> answers;  // by their keys
  } rows[] = {
      {"0 A", "cmdOK ", {{"<Return>", '1'}, {"<Esc>", '1'}, {kCloseWindow, '1'}, {"o", '1'}}},
      {"1 A",
       "cmdYES cmdNO cmdCANCEL ",
       {{"<Return>", '6'},
        {"<Esc>", '0'},
        {kCloseWindow, '0'},
        {"<Right>y", '6'},
        {"n", '7'},
        {"c", '0'},
        {"q<Return>", '6'},
        {"<Right><Return>", '7'},
        {"<Right><Right><Space>", '0'},
        {"<Left><Enter>", '0'},
        {"<Tab><Return>", '7'},
        {"<Tab><Backtab><Return>", '6'}}},
      {"2 A", "cmdYES cmdNO ", {{"<Return>", '6'}, {"<Esc>", '7'}, {kCloseWindow, '7'}, {"<Alt+N>", '7'}}},
      {"3 A", "cmdOK cmdCANCEL ", {{"<Return>", '1'}, {"<Esc>", '0'}, {kCloseWindow, '0'}, {"<Down><Return>", '0'}}},
      {"9 A", "cmdOK cmdYES cmdNO cmdCANCEL ", {{"<Return>", '1'}, {"<Esc>", '0'}, {"y", '6'}, {"n", '7'}}},
  };
  for (const auto& row : rows)
    for (const auto& [keys, answer] : row.answers) {
      const auto press = [&, keys = keys](frmMbox& box) {
        std::string buttons;
        for (const QPushButton* const button : box.findChildren<QPushButton*>()) buttons += button->objectName().toStdString() + " ";
        EXPECT_EQ(buttons, row.buttons);
        keys == kCloseWindow ? static_cast<void>(box.close()) : Keys(keys);
      };
      EXPECT_EQ(AnswerOf(row.text, press), answer) << row.text << keys;
    }
}

TEST(frmMbox, AButtonIsClicked) {
  EXPECT_EQ(AnswerOf("1 A", [](frmMbox& box) { Click(box, "cmdNO"); }), '7');
}

TEST(frmMbox, ShowsTheTextAsItIsAndItsButtonsClearOfIt) {
  for (const int words : {1, 40, 200, 3000}) {
    std::string text = "<b>as typed</b> & so";
    for (int i = 0; i < words; ++i) text += " lumber";
    AnswerOf("1 " + text + "|The title", [&](frmMbox& box) {
      SCOPED_TRACE(words);
      auto* const label = Find<QLabel>(box, "lblMSG");
      EXPECT_EQ(label->text().toStdString(), text);
      EXPECT_EQ(label->textFormat(), Qt::PlainText);
      EXPECT_EQ(box.windowTitle(), QStringLiteral("The title"));
      QWidget* const seen = label->window() == label->parentWidget() ? label : label->parentWidget();
      const int end = seen->mapTo(&box, QPoint(0, seen->height())).y();
      EXPECT_LE(end, Find(box, "cmdNO")->mapTo(&box, QPoint(0, 0)).y());
      EXPECT_LE(box.height(), box.screen()->availableGeometry().height());
      EXPECT_GE(label->height(), label->heightForWidth(label->width())) << "a line is cut off";
      Keys("<Esc>");
    });
  }
}

TEST(frmMbox, TheRingFollowsTheFocusAndHelpOpensItsPage) {
  AnswerOf("2 A", [](frmMbox& box) {
    const auto rings = [&box] {
      std::string colours;
      for (const char* const ring : {"lblYes", "lblNO"})  // between the ring's edge and the button
        colours += Find(box, ring)->grab().toImage().pixelColor(Find(box, ring)->width() / 2, 1).name().toStdString();
      return colours;
    };
    EXPECT_EQ(rings(), "#ffffe0#000040");
    Keys("<Right>");
    EXPECT_EQ(rings(), "#000040#ffffe0");
    DriveModal<frmHelp>([] { Keys("<F1>"); },
                        [](frmHelp& help) {
                          EXPECT_THAT(Find(help, "txtHelp")->property("plainText").toString().toStdString(),
                                      testing::StartsWith("Messages\n"));
                          Keys("<Esc>");
                        });
    Keys("y");
  });
}

}  // namespace
}  // namespace norvale
