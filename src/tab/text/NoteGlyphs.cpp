// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/text/NoteGlyphs.h"

#include <string_view>

#include "platform/text/Blanks.h"
#include "tab/text/QBTabMatrix.h"

namespace korvel {
namespace {

std::string_view rulerOf(int beat, int beattype) {
  if (beat == 3 && beattype == 4) return " 1 . + . 2 . + . 3 . + . ";
  if (beat == 4 && beattype == 4) return " 1 . + . 2 . + . 3 . + . 4 . + . ";
  if (beat == 6 && beattype == 8) return " 1 . 2 . 3 . 4 . 5 . 6 . ";
  if (beat == 12 && beattype == 8) return " 1 . 2 . 3 . 4 . 5 . 6 . 7 . 8 . 9 .10 .11 .12 .";
  return {};
}

bool isDotted(int duration) {
  return duration == 3 || duration == 6 || duration == 7 || (duration >= 12 && duration < 16);
}

}  // namespace

void setMetric(QBTabMatrix& matrix, int x, int y, int duration) {
  if (duration < 0) return;
  if (duration == 0) return matrix.setString(x, y, "x");
  matrix.setString(x, y - 2, duration < 16 ? "|" : "o");
  if (duration < 4) matrix.setString(x, y - 1, "-");
  if (duration == 1) matrix.setString(x, y, "-");
  if (duration >= 8 && duration < 16) matrix.setString(x, y - 1, "o");
  if (isDotted(duration)) matrix.setString(x + 1, duration == 3 ? y - 1 : y - 2, ".");
}

std::string metricString(int counter, int duration, int beat, int beattype, int /*groupSize*/) {
  const std::string_view ruler = rulerOf(beat, beattype);
  const int length = static_cast<int>(ruler.size());
  std::string text;
  for (int k = 0; k < duration; ++k) {
    const int start = 2 * (counter + k);
    // Strictly less, as intended: the ruler of 12/8 ends without a blank, so its last slot, which
    // would read " .", is never shown.
    if (start + 2 >= length) break;
    const std::string_view slot = ruler.substr(static_cast<std::size_t>(start), 2);
    text += k == 0 ? platform::trimmed(slot) : slot;
  }
  return text;
}

}  // namespace korvel
