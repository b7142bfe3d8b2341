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
      visit(form, name);
      form.hide();
    };
    frmStart start;
    show(start, "frmStart");
    frmMenu menu(program, [](MenuChoice, QWidget*) {});
    menu.resize(1024, 700);
    for (const MenuPanel& panel : MenuPanels()) {
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

bool TakesTab(const QWidget& control, const QWidget& form) {
  return control.isVisible() && control.isEnabled() && control.window() == &form && (control.focusPolicy() & Qt::TabFocus) != 0 &&
         control.focusProxy() == nullptr;
}

void ExpectNames(const QWidget& form) {
  for (const QWidget* const control : form.findChildren<QWidget*>())
    if (TakesTab(*control, form)) {
      EXPECT_FALSE(control->accessibleName().isEmpty()) << control->objectName().toStdString();
      EXPECT_FALSE(control->objectName().isEmpty()) << control->metaObject()->className();
    }
}

void ExpectReadingOrder(const QWidget& form) {
  QPoint last(-1, -1);
  std::string lastName;
  for (const QWidget* at = form.nextInFocusChain(); at != &form; at = at->nextInFocusChain()) {
    if (!TakesTab(*at, form)) continue;
    const QPoint here = at->mapTo(&form, QPoint(0, at->height() / 2));
    const bool isOnLine = std::abs(here.y() - last.y()) < at->height() / 2;
    EXPECT_TRUE(isOnLine ? here.x() > last.x() : here.y() > last.y()) << lastName << " to " << at->objectName().toStdString();
    last = here;
    lastName = at->objectName().toStdString();
  }
  EXPECT_NE(lastName, "");
}

void ExpectNothingClipped(const QWidget& form) {
  EXPECT_LE(form.minimumSizeHint().width(), 1024);
  EXPECT_LE(form.minimumSizeHint().height(), 700);
  for (const QWidget* const control : form.findChildren<QWidget*>()) {
    if (!control->isVisible() || control->window() != &form) continue;
    if (qobject_cast<const QLabel*>(control) == nullptr && qobject_cast<const QPushButton*>(control) == nullptr) continue;
    SCOPED_TRACE(control->objectName().toStdString());
    const bool isStatusLine = control->objectName() == QLatin1String("lblMessage");
    EXPECT_GE(control->width(), isStatusLine ? 0 : control->minimumSizeHint().width());
    EXPECT_GE(control->height(), control->minimumSizeHint().height());
    EXPECT_TRUE(form.rect().contains(QRect(control->mapTo(&form, QPoint(0, 0)), control->size())));
  }
  if (auto* const status = form.findChild<QLabel*>(QStringLiteral("lblMessage"))) {
    EXPECT_LE(status->fontMetrics().horizontalAdvance(status->text()), status->contentsRect().width());
  }
}

TEST_F(LookTest, EachFormIsNamedInOrderAndWholeInBothLooksAndTwoSizesOfType) {
  for (const int points : {9, 14})
    for (const Look look : {Look::Light, Look::Dark}) {
      QFont font = usualFont;
      font.setPointSize(points);
      QApplication::setFont(font);
      ApplyLook(*qApp, look);
      ForEachForm([points](QWidget& form, const std::string& name) {
        SCOPED_TRACE(name + " at " + std::to_string(points) + " points");
        ExpectNames(form);
        ExpectReadingOrder(form);
        ExpectNothingClipped(form);
        EXPECT_TRUE(name == "frmHelp" || frmHelp::Pages().contains(form.property("helpPage").toString()));
      });
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
    const auto colour = [](QPalette::ColorRole role) { return QApplication::palette().color(role); };
    const struct {
      double least;
      QColor above;
      std::vector<QColor> grounds;
    } rows[] = {{7, colour(QPalette::WindowText), {colour(QPalette::Window)}},
                {7, colour(QPalette::Text), {colour(QPalette::Base)}},
                {4.5, colour(QPalette::HighlightedText), {colour(QPalette::Highlight)}},
                {7, colours.text, {colours.card, colours.cardOver, colours.cardDown}},
                {4.5, colours.quietText, {colours.card, colours.cardOver, colours.cardDown, colour(QPalette::Window)}},
                {7, colours.bandText, {colours.band}},
                {3, colours.focus, {colours.card, colour(QPalette::Window)}},
                {3, colours.ring, {colours.band}}};
    for (const auto& row : rows)
      for (const QColor& ground : row.grounds) EXPECT_GE(Contrast(row.above, ground), row.least) << row.above.name().toStdString();
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

TEST(FormKeys, EnterPassesOverWhatIsShut) {
  QDialog form;
  for (const char* const name : {"first", "shut", "last"}) {
    auto* const box = new QLineEdit(&form);
    box->setObjectName(QString::fromLatin1(name));
    box->setEnabled(box->objectName() != QLatin1String("shut"));
  }
  ShowActive(form);
  Type(form, "first", "1<Return>");
  EXPECT_EQ(Focus(), "last");
}

TEST(frmHelp, LinksOfTheGuideLeadToItsPages) {
  const QStringList pages = frmHelp::Pages();
  ASSERT_FALSE(pages.isEmpty());
  for (const QString& page : pages) {
    frmHelp help(page);
    auto* const text = Find<QTextBrowser>(help, "txtHelp");
    EXPECT_GT(text->toPlainText().size(), 300) << page.toStdString();
    for (QTextBlock block = text->document()->begin(); block.isValid(); block = block.next())
      for (auto at = block.begin(); !at.atEnd(); ++at) {
        const QString link = at.fragment().charFormat().anchorHref();
        EXPECT_TRUE(link.isEmpty() || pages.contains(link.chopped(3))) << page.toStdString() << " to " << link.toStdString();
        EXPECT_FALSE(at.fragment().charFormat().isImageFormat()) << "the form itself is on the screen";
      }
    emit text->anchorClicked(QUrl(QStringLiteral("customers.md")));
    EXPECT_TRUE(text->toPlainText().startsWith(QLatin1String("Customers"))) << page.toStdString();
  }
}

}  // namespace
}  // namespace norvale
