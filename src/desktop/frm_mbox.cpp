#include "desktop/frm_mbox.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "desktop/frm_keys.h"
#include "desktop/frm_ring.h"
#include "desktop/frm_text.h"

namespace norvale {

namespace {

struct ButtonNames {
  Answer answer;
  const char* button;
  const char* ring;
  const char* caption;
};
constexpr std::array<ButtonNames, 4> kButtons = {{
    {Answer::Ok, "cmdOK", "lblOK", "&OK"},
    {Answer::Yes, "cmdYES", "lblYes", "&Yes"},
    {Answer::No, "cmdNO", "lblNO", "&No"},
    {Answer::Cancel, "cmdCANCEL", "lblCANCEL", "&Cancel"},
}};

// The text, wrapped at a width that reads well; a text higher than the screen allows scrolls.
QWidget* MessageText(const Message& message, QWidget* parent) {
  auto* const lblMSG = new QLabel(Shown(message.text));
  lblMSG->setObjectName(QStringLiteral("lblMSG"));
  lblMSG->setAccessibleName(QObject::tr("Message"));
  lblMSG->setTextFormat(Qt::PlainText);
  lblMSG->setWordWrap(true);
  lblMSG->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  const QFontMetrics metrics = lblMSG->fontMetrics();
  const int most = metrics.averageCharWidth() * 70;
  const int least = metrics.averageCharWidth() * 36;
  const QRect whole = metrics.boundingRect(QRect(0, 0, most, 0), Qt::TextWordWrap, lblMSG->text());
  lblMSG->setMinimumWidth(std::clamp(whole.width() + 4, least, most));
  lblMSG->setMaximumWidth(most);
  const int height = lblMSG->heightForWidth(lblMSG->minimumWidth());
  const int highest = parent->screen()->availableGeometry().height() * 6 / 10;
  if (height <= highest) {
    lblMSG->setMinimumHeight(height);
    return lblMSG;
  }
  auto* const scroll = new QScrollArea;
  scroll->setFrameShape(QFrame::NoFrame);
  scroll->setWidgetResizable(true);
  scroll->setWidget(lblMSG);
  scroll->setFixedHeight(highest);
  scroll->setMinimumWidth(most + 2 * metrics.height());
  return scroll;
}

}  // namespace

frmMbox::frmMbox(const Message& message, QWidget* parent) : QDialog(parent), answer_(message.escape) {
  setObjectName(QStringLiteral("frmMbox"));
  setWindowTitle(Shown(message.title));
  setProperty(kHelpPage, QStringLiteral("messages"));
  setAccessibleDescription(Shown(message.text));

  auto* const textPart = new QVBoxLayout;
  const int space = fontMetrics().height();
  textPart->setContentsMargins(space * 3 / 2, space * 3 / 2, space * 3 / 2, space * 3 / 2);
  textPart->addWidget(MessageText(message, this));

  QWidget* const band = MakeBand(this);
  auto* const row = new QHBoxLayout(band);
  row->setContentsMargins(space, space * 2 / 3, space, space * 2 / 3);
  row->setSpacing(space / 2);
  row->addStretch();
  for (const Answer answer : message.buttons) {
    const auto& names = *std::find_if(kButtons.begin(), kButtons.end(), [answer](const ButtonNames& n) { return n.answer == answer; });
    auto* const ring =
        new RingLabel(QString::fromLatin1(names.ring), QString::fromLatin1(names.button), QString::fromLatin1(names.caption), band);
    QPushButton* const button = ring->Button();
    button->installEventFilter(this);
    connect(button, &QPushButton::clicked, this, [this, answer] { Give(answer); });
    row->addWidget(ring);
    buttons_.push_back(button);
  }
  row->addStretch();

  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addLayout(textPart, 1);
  layout->addWidget(band);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  buttons_.front()->setFocus();
}

void frmMbox::Give(Answer answer) {
  answer_ = answer;
  accept();
}

void frmMbox::reject() { QDialog::reject(); }  // `answer_` is still the one for Esc

bool frmMbox::eventFilter(QObject* watched, QEvent* event) {
  auto* const button = qobject_cast<QPushButton*>(watched);
  if (button != nullptr && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Left || key == Qt::Key_Up) return StepFocus(-1), true;
    if (key == Qt::Key_Right || key == Qt::Key_Down) return StepFocus(+1), true;
  }
  return QDialog::eventFilter(watched, event);
}

void frmMbox::keyPressEvent(QKeyEvent* event) {
  // The underlined letter presses its button, with ALT or without.
  const QString typed = event->text().toUpper();
  for (QPushButton* const button : buttons_) {
    const QString caption = button->text();
    if (!typed.isEmpty() && caption.mid(caption.indexOf(QLatin1Char('&')) + 1, 1).toUpper() == typed) {
      button->click();
      return;
    }
  }
  QDialog::keyPressEvent(event);
}

void frmMbox::StepFocus(int direction) {
  const auto at = std::find_if(buttons_.begin(), buttons_.end(), [](const QPushButton* button) { return button->hasFocus(); });
  const auto count = static_cast<int>(buttons_.size());
  const int from = at == buttons_.end() ? 0 : static_cast<int>(at - buttons_.begin());
  buttons_[static_cast<std::size_t>((from + direction + count) % count)]->setFocus(Qt::TabFocusReason);
}

Answer ScreenMessages::ShowMessage(const std::string& text) {
  frmMbox box(ParseMessage(text), QApplication::activeWindow());
  box.exec();
  return box.GivenAnswer();
}

}  // namespace norvale
