#include "desktop/frm_look.h"

#include <QApplication>
#include <QIcon>
#include <QLabel>
#include <QPainter>
#include <QPalette>
#include <QStyleFactory>
#include <QSvgRenderer>
#include <map>

// The pictures and the guide lie in a static library, which does not announce them by itself. Not within a namespace.
static void AnnounceResources() {
  Q_INIT_RESOURCE(pictures);
  Q_INIT_RESOURCE(guide);
}

namespace norvale {

namespace {

// The ring of the message box: 400000 and E0FFFF, blue first.
constexpr QColor kBand(0x00, 0x00, 0x40);
constexpr QColor kRing(0xFF, 0xFF, 0xE0);

const Colours kLight{.band = kBand,
                     .bandText = QColor(0xFF, 0xFF, 0xFF),
                     .bandQuiet = QColor(0x70, 0x76, 0x9C),
                     .ring = kRing,
                     .focus = QColor(0x1D, 0x5F, 0xB8),
                     .card = QColor(0xFF, 0xFF, 0xFF),
                     .cardOver = QColor(0xF3, 0xF7, 0xFC),
                     .cardDown = QColor(0xE2, 0xEB, 0xF6),
                     .edge = QColor(0xC9, 0xD1, 0xDB),
                     .text = QColor(0x1B, 0x24, 0x30),
                     .quietText = QColor(0x52, 0x5E, 0x6E),
                     .warning = QColor(0xB3, 0x26, 0x1E)};
const Colours kDark{.band = kBand,
                    .bandText = QColor(0xF0, 0xF3, 0xF8),
                    .bandQuiet = QColor(0x70, 0x76, 0x9C),
                    .ring = kRing,
                    .focus = QColor(0x7D, 0xB4, 0xF5),
                    .card = QColor(0x2A, 0x2F, 0x38),
                    .cardOver = QColor(0x32, 0x39, 0x44),
                    .cardDown = QColor(0x3B, 0x44, 0x52),
                    .edge = QColor(0x49, 0x52, 0x60),
                    .text = QColor(0xE9, 0xED, 0xF2),
                    .quietText = QColor(0xA9, 0xB4, 0xC2),
                    .warning = QColor(0xFF, 0x9A, 0x8F)};

const Colours& ColoursOf(Look look) { return look == Look::Dark ? kDark : kLight; }

struct Grounds {
  QColor window;
  QColor base;
  QColor button;
  QColor disabledBase;
  QColor disabledText;
  QColor selection;
};
const Grounds kLightGrounds{QColor(0xF1, 0xF3, 0xF6), QColor(0xFF, 0xFF, 0xFF), QColor(0xFF, 0xFF, 0xFF),
                            QColor(0xE8, 0xEB, 0xEF), QColor(0x7B, 0x86, 0x94), QColor(0x1D, 0x5F, 0xB8)};
const Grounds kDarkGrounds{QColor(0x1E, 0x22, 0x29), QColor(0x16, 0x19, 0x1F), QColor(0x2F, 0x35, 0x40),
                           QColor(0x24, 0x29, 0x31), QColor(0x7F, 0x8A, 0x98), QColor(0x2F, 0x6F, 0xC4)};

QPalette PaletteOf(const Colours& colours, const Grounds& grounds) {
  QPalette palette(grounds.button, grounds.window);
  const auto set = [&palette](QPalette::ColorRole role, const QColor& usual, const QColor& disabled) {
    palette.setColor(QPalette::Active, role, usual);
    palette.setColor(QPalette::Inactive, role, usual);
    palette.setColor(QPalette::Disabled, role, disabled);
  };
  set(QPalette::WindowText, colours.text, grounds.disabledText);
  set(QPalette::Text, colours.text, grounds.disabledText);
  set(QPalette::ButtonText, colours.text, grounds.disabledText);
  set(QPalette::PlaceholderText, colours.quietText, grounds.disabledText);
  set(QPalette::Base, grounds.base, grounds.disabledBase);
  set(QPalette::AlternateBase, grounds.window, grounds.disabledBase);
  set(QPalette::ToolTipBase, grounds.base, grounds.base);
  set(QPalette::ToolTipText, colours.text, colours.text);
  set(QPalette::Highlight, grounds.selection, grounds.disabledText);
  set(QPalette::HighlightedText, QColor(Qt::white), QColor(Qt::white));
  set(QPalette::Link, colours.focus, grounds.disabledText);
  return palette;
}

QString StyleSheetOf(Look look, const Colours& colours, const Grounds& grounds) {
  QString sheet = QStringLiteral(R"(
    QLineEdit, QTextBrowser, QComboBox, QSpinBox, QPlainTextEdit, QTreeWidget, QListWidget {
      border: 1px solid @edge; border-radius: 4px; padding: 3px 6px; background: @base; color: @text;
    }
    QLineEdit:focus, QTextBrowser:focus, QComboBox:focus, QSpinBox:focus, QPlainTextEdit:focus, QTreeWidget:focus, QListWidget:focus {
      border: 2px solid @focus; padding: 2px 5px;
    }
    QLineEdit:read-only { background: @window; }
    QLineEdit:disabled, QComboBox:disabled, QSpinBox:disabled { background: @disabledBase; color: @disabledText; }
    QListWidget::item { padding: 1px 0; }
    QListWidget::item:selected { background: @selection; color: white; }
    QListWidget::item:disabled { color: @disabledText; }
    QPushButton {
      border: 1px solid @edge; border-radius: 4px; padding: 5px 14px; min-width: 4em; background: @button; color: @text;
    }
    QPushButton[role="key"] { min-width: 1.5em; padding: 5px; }
    QPushButton:hover { background: @over; }
    QPushButton:pressed { background: @down; }
    QPushButton:checked { background: @down; border-color: @focus; }
    QPushButton:focus { border: 2px solid @focus; padding: 4px 13px; }
    QPushButton[role="link"] { border: 2px solid transparent; padding: 4px 8px; background: transparent; color: @focus; }
    QPushButton[role="link"]:hover { text-decoration: underline; }
    QPushButton[role="link"]:focus { border-color: @focus; padding: 4px 8px; }
    QPushButton:disabled { background: @disabledBase; color: @disabledText; }
    QComboBox::drop-down { border: none; width: 1.6em; }
    QComboBox::down-arrow { image: url(:/pictures/down-@look.svg); width: 0.8em; height: 0.8em; }
    QComboBox::down-arrow:disabled { image: none; }
    QCheckBox:focus, QRadioButton:focus { color: @focus; }
    QCheckBox::indicator, QRadioButton::indicator { width: @sidepx; height: @sidepx; border: 1px solid @quiet; background: @base; }
    QCheckBox::indicator { border-radius: 3px; }
    QRadioButton::indicator { border-radius: @radiuspx; }
    QCheckBox::indicator:checked { background: @focus; border-color: @focus; image: url(:/pictures/tick-@look.svg); }
    QRadioButton::indicator:checked { width: @dotpx; height: @dotpx; border: @rimpx solid @focus; }
    QCheckBox::indicator:disabled, QRadioButton::indicator:disabled { border-color: @edge; background: @disabledBase; }
    QCheckBox::indicator:checked:disabled { border-color: @disabledText; background: @disabledText; }
    QRadioButton::indicator:checked:disabled { border-color: @disabledText; }
    QTableView { border: 1px solid @edge; background: @base; }
    QTableView:focus { border: 1px solid @focus; }
    QHeaderView::section {
      border: none; border-bottom: 1px solid @edge; padding: 3px 4px; background: @base; color: @quiet;
    }
    QWidget[band="true"] { background: @band; }
    QWidget[band="true"] QLabel { color: @bandText; background: transparent; }
    QFrame[role="readout"] { border: 1px solid @edge; border-radius: 4px; background: @base; }
    QFrame[role="readout"]:focus { border: 2px solid @focus; }
    QLabel[role="quiet"] { color: @quiet; }
    QLabel[role="quiet"]:disabled { color: @disabledText; }
    QLabel[role="status"] { color: @quiet; border-top: 1px solid @edge; padding: 6px 16px; }
  )");
  const std::map<QString, QColor> colourOf = {
      {QStringLiteral("@edge"), colours.edge},
      {QStringLiteral("@base"), grounds.base},
      {QStringLiteral("@window"), grounds.window},
      {QStringLiteral("@text"), colours.text},
      {QStringLiteral("@focus"), colours.focus},
      {QStringLiteral("@button"), grounds.button},
      {QStringLiteral("@over"), colours.cardOver},
      {QStringLiteral("@down"), colours.cardDown},
      {QStringLiteral("@quiet"), colours.quietText},
      {QStringLiteral("@bandText"), colours.bandText},
      {QStringLiteral("@band"), colours.band},
      {QStringLiteral("@selection"), grounds.selection},
      {QStringLiteral("@disabledBase"), grounds.disabledBase},
      {QStringLiteral("@disabledText"), grounds.disabledText},
  };
  // Whole pixels: a circle whose radius is not half of its side is none.
  const int rim = std::max(3, QFontMetrics(QApplication::font()).height() / 4);
  const int dot = 2 * std::max(2, rim * 2 / 3);
  const std::pair<const char*, int> sizes[] = {{"@side", dot + 2 * rim - 2}, {"@radius", dot / 2 + rim}, {"@dot", dot}, {"@rim", rim}};
  for (const auto& [name, size] : sizes) sheet.replace(QLatin1String(name), QString::number(size));
  sheet.replace(QStringLiteral("@look"), look == Look::Dark ? QStringLiteral("dark") : QStringLiteral("light"));
  // The longer name first, where one begins with the other.
  for (auto at = colourOf.rbegin(); at != colourOf.rend(); ++at) sheet.replace(at->first, at->second.name());
  return sheet;
}

}  // namespace

Look LookInUse() {
  const QPalette palette = QGuiApplication::palette();
  return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness() ? Look::Dark : Look::Light;
}

void ApplyLook(QApplication& app, Look look) {
  AnnounceResources();
  const Grounds& grounds = look == Look::Dark ? kDarkGrounds : kLightGrounds;
  QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
  QApplication::setPalette(PaletteOf(ColoursOf(look), grounds));
  app.setStyleSheet(StyleSheetOf(look, ColoursOf(look), grounds));
  QApplication::setWindowIcon(QIcon(QStringLiteral(":/pictures/norvale.svg")));
}

const Colours& ColoursOfLook() { return ColoursOf(LookInUse()); }

void MakeTitle(QLabel* label) {
  QFont font = QApplication::font();
  font.setPointSizeF(font.pointSizeF() * 1.6);
  font.setWeight(QFont::DemiBold);
  label->setFont(font);
}

void DrawPicture(QPainter& painter, const QString& name, const QRectF& area) {
  QSvgRenderer picture(QStringLiteral(":/pictures/%1.svg").arg(name));
  const QSizeF size = QSizeF(picture.defaultSize()).scaled(area.size(), Qt::KeepAspectRatio);
  picture.render(&painter, QRectF(area.center() - QPointF(size.width() / 2, size.height() / 2), size));
}

}  // namespace norvale
