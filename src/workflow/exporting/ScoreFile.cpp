// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exporting/ScoreFile.h"

#include "export/score/ScoreWriter.h"
#include "platform/text/LocalTime.h"

namespace korvel {

std::string musicXmlOf(Score score) {
  score.program = "Korvel " KORVEL_VERSION;
  score.date = platform::localTime("%Y-%m-%d");
  return ScoreWriter(score).write();
}

}  // namespace korvel
