// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exporting/ScoreFile.h"

#include <array>
#include <ctime>

#include "export/score/ScoreWriter.h"

namespace korvel {
namespace {

std::string today() {
  const std::time_t now = std::time(nullptr);
  std::tm date{};
  localtime_r(&now, &date);
  std::array<char, 16> text{};
  return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d", &date)};
}

}  // namespace

std::string musicXmlOf(Score score) {
  score.program = "Korvel " KORVEL_VERSION;
  score.date = today();
  return ScoreWriter(score).write();
}

}  // namespace korvel
