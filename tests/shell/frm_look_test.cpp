// What must hold for every form in both looks: names for the blind, the way of the focus, nothing clipped.
#include "desktop/frm_look.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPainter>
#include <QTextBlock>
#include <QTextBrowser>
#include <cmath>

#include "desktop/desktop_fixture.h"
#include "desktop/form_driver.h"
#include "desktop/frm_help.h"
#include "desktop/frm_mbox.h"
#include "shell/frm_address.h"
#include "shell/frm_menu.h"
#include "shell/frm_start.h"

namespace norvale {
namespace {

class LookTest : public DesktopTest {
 protected:
  LookTest() { StoreSamples(); }
  ~LookTest() override {
    QApplication::setFont(usualFont);
    ApplyLook(*qApp, Look::Light);
  }

  // Calls `visit` with each form, shown, and with each panel of the menu.
  template <typename Visit>
  void ForEachForm(Visit visit) {
    const auto show = [&visit](QWidget& form, const std::string& name) {
      ShowActive(form);
      QApplication::processEvents();
      visit(form, name);
      form.hide();
    };
    frmStart start;
    show(start, "frmStart");
    frmMenu menu(program, [](MenuChoice, QWidget*) {});
    menu.resize(1024, 700);
    for (const MenuPanel& panel : MenuPanels()) {
      ShowActive(menu);
      menu.ShowMenu(panel.name);
      show(menu, std::string(panel.panel));
    }
    for (const char* const text : {"0 A notice|T", "1 Save?|T", "2 Delete this Customer?", "3 Go on?|T"}) {
      frmMbox box(ParseMessage(text));
      show(box, text);
    }
    for (const CustomerFormMode mode : {CustomerFormMode::Customer, CustomerFormMode::Company}) {
      frmAddress form(program, mode);
      show(form, std::string(TitleOf(mode)));
      form.close();
    }
    frmHelp help(QStringLiteral("menu"));
    show(help, "frmHelp");
  }

  const QFont usualFont = QApplication::font();
};

TEST_F(LookTest, EveryControlHasANameForTheBlind) {
  ForEachForm([](QWidget& form, const std::string& name) {
    for (const QWidget* const control : form.findChildren<QWidget*>()) {
      if (!control->isVisible() || (control->focusPolicy() & Qt::TabFocus) == 0 || control->focusProxy() != nullptr) continue;
      EXPECT_FALSE(control->accessibleName().isEmpty()) << name << ": " << control->objectName().toStdString();
      EXPECT_FALSE(control->objectName().isEmpty()) << name << ": " << control->metaObject()->className();
    }
  });
}

TEST_F(LookTest, TabGoesInReadingOrder) {
  ForEachForm([](QWidget& form, const std::string& name) {
    QPoint last(-1, -1);
    std::string lastName;
    const auto visible = [&form](const QWidget* control) {
      return control->isVisible() && control->isEnabled() && control->window() == &form && (control->focusPolicy() & Qt::TabFocus) != 0;
    };
    for (const QWidget* at = form.nextInFocusChain(); at != &form; at = at->nextInFocusChain()) {
      if (!visible(at)) continue;
      const QPoint here = at->mapTo(&form, QPoint(0, at->height() / 2));
      const bool isOnLine = std::abs(here.y() - last.y()) < at->height() / 2;
      EXPECT_TRUE(isOnLine ? here.x() > last.x() : here.y() > last.y())
          << name << ": " << lastName << " to " << at->objectName().toStdString();
      last = here;
      lastName = at->objectName().toStdString();
    }
    EXPECT_NE(lastName, "") << name;
  });
}

TEST_F(LookTest, NothingIsClipped) {
  for (const int points : {9, 14}) {
    for (const Look look : {Look::Light, Look::Dark}) {
      QFont font = usualFont;
      font.setPointSize(points);
      QApplication::setFont(font);
      ApplyLook(*qApp, look);
      ForEachForm([points](QWidget& form, const std::string& name) {
        const std::string where = name + " at " + std::to_string(points) + " points: ";
        EXPECT_LE(form.minimumSizeHint().width(), 1024) << where;
        EXPECT_LE(form.minimumSizeHint().height(), 700) << where;
        for (const QWidget* const control : form.findChildren<QWidget*>()) {
          if (!control->isVisible() || control->window() != &form) continue;
          const std::string at = where + control->objectName().toStdString();
          if (qobject_cast<const QLabel*>(control) != nullptr || qobject_cast<const QPushButton*>(control) != nullptr) {
            const bool isStatusLine = control->objectName() == QLatin1String("lblMessage");
            EXPECT_GE(control->width(), isStatusLine ? 0 : control->minimumSizeHint().width()) << at;
            EXPECT_GE(control->height(), control->minimumSizeHint().height()) << at;
            const QRect inForm(control->mapTo(&form, QPoint(0, 0)), control->size());
            EXPECT_TRUE(form.rect().contains(inForm)) << at;
          }
        }
        if (auto* const status = form.findChild<QLabel*>(QStringLiteral("lblMessage"))) {
          EXPECT_LE(status->fontMetrics().horizontalAdvance(status->text()), status->contentsRect().width()) << where;
        }
      });
    }
  }
}

// WCAG's contrast of a text with its ground; 4.5 reads well.
double Contrast(const QColor& a, const QColor& b) {
  const auto light = [](const QColor& colour) {
    const auto part = [](double c) { return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
  };
  const double x = light(a) + 0.05;
  const double y = light(b) + 0.05;
  return x > y ? x / y : y / x;
}

TEST_F(LookTest, TextsAndFocusStandOut) {
  for (const Look look : {Look::Light, Look::Dark}) {
    ApplyLook(*qApp, look);
    const Colours& colours = ColoursOfLook();
    const QPalette palette = QApplication::palette();
    EXPECT_GE(Contrast(palette.color(QPalette::WindowText), palette.color(QPalette::Window)), 7);
    EXPECT_GE(Contrast(palette.color(QPalette::Text), palette.color(QPalette::Base)), 7);
    EXPECT_GE(Contrast(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight)), 4.5);
    for (const QColor& ground : {colours.card, colours.cardOver, colours.cardDown}) {
      EXPECT_GE(Contrast(colours.text, ground), 7);
      EXPECT_GE(Contrast(colours.quietText, ground), 4.5);
    }
    EXPECT_GE(Contrast(colours.quietText, palette.color(QPalette::Window)), 4.5);
    EXPECT_GE(Contrast(colours.bandText, colours.band), 7);
    EXPECT_GE(Contrast(colours.focus, palette.color(QPalette::Window)), 3);
    EXPECT_GE(Contrast(colours.focus, colours.card), 3);
    EXPECT_GE(Contrast(colours.ring, colours.band), 3);
  }
}

TEST_F(LookTest, EachPictureOfTheMenuIsThere) {
  for (const MenuPanel& panel : MenuPanels())
    for (const MenuButton& button : panel.row) {
      QImage image(64, 64, QImage::Format_ARGB32);
      image.fill(Qt::transparent);
      const QImage empty = image;
      QPainter painter(&image);
      DrawPicture(painter, QString::fromLatin1(button.picture.data(), static_cast<qsizetype>(button.picture.size())), QRectF(0, 0, 64, 64));
      painter.end();
      EXPECT_NE(image, empty) << button.picture;
    }
}

TEST_F(LookTest, EveryFormHasItsPageOfTheGuide) {
  ForEachForm([](QWidget& form, const std::string& name) {
    if (name == "frmHelp") return;
    EXPECT_TRUE(frmHelp::Pages().contains(form.property("helpPage").toString())) << name;
  });
}

TEST(frmHelp, LinksOfTheGuideLeadToItsPages) {
  const QStringList pages = frmHelp::Pages();
  ASSERT_FALSE(pages.isEmpty());
  for (const QString& page : pages) {
    frmHelp help(page);
    auto* const text = Find<QTextBrowser>(help, "txtHelp");
    EXPECT_GT(text->toPlainText().size(), 300) << page.toStdString();
    EXPECT_FALSE(text->toPlainText().contains(QLatin1String("pictures/"))) << page.toStdString();
    for (QTextBlock block = text->document()->begin(); block.isValid(); block = block.next())
      for (auto at = block.begin(); !at.atEnd(); ++at) {
        const QString link = at.fragment().charFormat().anchorHref();
        EXPECT_TRUE(link.isEmpty() || pages.contains(link.chopped(3))) << page.toStdString() << " to " << link.toStdString();
      }
  }
}

}  // namespace
}  // namespace norvale
