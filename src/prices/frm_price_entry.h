// What boxes of the price list let in: the keys of a price, texts that have room in the file.
#pragma once

#include <QObject>
#include <QString>

#include "base/message.h"
#include "prices/price_editor.h"

class QLineEdit;

namespace norvale {

/// Makes `box` take only the keys of a price. What is pasted becomes a price when the box is left, which is its owner's part.
void MakePriceBox(QLineEdit* box);

/// Makes `box` refuse what the column has no room for, and characters without a byte in the file. A text that is pasted and
/// too long is refused whole, with a message; a key too many is only not taken.
void MakeTextBox(QLineEdit* box, PriceColumn column, Messages& messages);

}  // namespace norvale
