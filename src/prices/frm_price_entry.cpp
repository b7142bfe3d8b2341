#include "prices/frm_price_entry.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <algorithm>

#include "base/text.h"
#include "desktop/frm_text.h"

namespace norvale {

namespace {

class PriceKeys : public QObject {
 public:
  explicit PriceKeys(QLineEdit* box) : QObject(box), box_(box) { box->installEventFilter(this); }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
    const auto& key = *static_cast<QKeyEvent*>(event);
    // Keys that type nothing and shortcuts such as CTRL+V are the box's own.
    if (key.text().size() != 1 || key.text().at(0).unicode() < ' ' || (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0)
      return false;
    const QString text = box_->text();
    const qsizetype from = box_->hasSelectedText() ? box_->selectionStart() : box_->cursorPosition();
    const qsizetype to = box_->hasSelectedText() ? box_->selectionEnd() : box_->cursorPosition();
    return !TakesPriceKey(Typed(text.left(from)), key.text().at(0).toLatin1(), Typed(text.mid(to)));
  }

 private:
  QLineEdit* box_;
};

class TextLimit : public QObject {
 public:
  TextLimit(QLineEdit* box, PriceColumn column, Messages& messages) : QObject(box), box_(box), column_(column), messages_(messages) {
    connect(box, &QLineEdit::textChanged, this, [this](const QString& text) {
      if (IsFit(text)) kept_ = text;
    });
    connect(box, &QLineEdit::textEdited, this, [this] { Check(); });
  }

 private:
  [[nodiscard]] bool IsFit(const QString& text) const {
    const auto bytes = FromUtf8(Typed(text));
    return bytes && bytes->size() <= WidthOf(column_);
  }

  void Check() {
    const QString text = box_->text();
    if (IsFit(text)) return;
    const bool hasBytes = FromUtf8(Typed(text)).has_value();
    const auto more = static_cast<int>(text.size() - kept_.size());
    const int cursor = std::max(0, box_->cursorPosition() - std::max(more, 0));
    box_->setText(kept_);
    box_->setCursorPosition(cursor);
    if (hasBytes && more == 1) {
      QApplication::beep();
      return;
    }
    const std::string notice = Notice(hasBytes ? std::string(CaptionOf(column_)) + " takes " + std::to_string(WidthOf(column_)) +
                                                     " characters. The text is " + std::to_string(text.size()) + " long and is not taken."
                                               : "The price file cannot hold that character. Type it another way.");
    // After this event: a cell of a table closes its box, and this with it, when a message takes the focus.
    QMetaObject::invokeMethod(
        qApp,
        [&messages = messages_, box = QPointer<QLineEdit>(box_), notice] {
          messages.ShowMessage(notice);
          if (box) box->setFocus();
        },
        Qt::QueuedConnection);
  }

  QLineEdit* box_;
  PriceColumn column_;
  Messages& messages_;
  QString kept_;  // the last text that fits
};

}  // namespace

void MakePriceBox(QLineEdit* box) {
  box->setAlignment(Qt::AlignRight);
  new PriceKeys(box);
}

void MakeTextBox(QLineEdit* box, PriceColumn column, Messages& messages) { new TextLimit(box, column, messages); }

}  // namespace norvale
