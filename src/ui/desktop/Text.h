// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <string_view>

namespace korvel::ui {

/// UTF-8, as the other layers have all texts, with the line ends of either kind as "\n".
inline QString toText(std::string_view utf8) {
  QString text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
  return text.replace("\r\n", "\n");
}

}  // namespace korvel::ui
