// Texts on their way to the screen and back.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace norvale {

inline QString Shown(std::string_view utf8) { return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size())); }

inline std::string Typed(const QString& text) { return text.toStdString(); }

/// The name of a control in an array of controls.
inline QString InArray(std::string_view array, std::size_t index) { return Shown(array) + QLatin1Char('_') + QString::number(index); }

}  // namespace norvale
