// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exporting/ScoreFile.h"

#include <utility>

#include "exchange/guitarpro/GuitarPro.h"
#include "exchange/musicxml/CompressedMusicXml.h"
#include "exchange/plain/AbcWriter.h"
#include "exchange/plain/AlphaTexWriter.h"
#include "export/score/ScoreWriter.h"
#include "platform/text/LocalTime.h"

namespace korvel {

namespace {

Score signedScore(Score score) {
  score.program = "Korvel " KORVEL_VERSION;
  score.date = platform::localTime("%Y-%m-%d");
  return score;
}

}  // namespace

std::string musicXmlOf(Score score) { return ScoreWriter(signedScore(std::move(score))).write(); }

std::string compressedMusicXmlOf(Score score) {
  return exchange::compressedMusicXml(musicXmlOf(std::move(score)));
}

std::string guitarPro5Of(Score score) {
  return exchange::guitarPro5(signedScore(std::move(score)));
}

std::string guitarPro7Of(Score score) {
  return exchange::guitarPro7(signedScore(std::move(score)));
}

std::string alphaTexOf(const Score& score) { return exchange::alphaTex(score); }

std::string abcOf(const Score& score) { return exchange::abcNotation(score); }

}  // namespace korvel
