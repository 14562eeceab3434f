// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/guitarpro/GuitarPro.h"

#include "exchange/guitarpro/FileSong.h"
#include "exchange/guitarpro/Gp5Writer.h"
#include "exchange/guitarpro/GpifReader.h"
#include "exchange/guitarpro/GpifWriter.h"
#include "exchange/guitarpro/GpxContainer.h"
#include "exchange/guitarpro/SheetPlayer.h"
#include "platform/files/ZipArchive.h"
#include "platform/text/UserError.h"

namespace korvel::exchange {

namespace guitarpro {

namespace {

using platform::phrase;
using platform::UserError;

constexpr std::string_view kArchive = "PK";
constexpr const char* kScore = "score.gpif";
constexpr const char* kScoreInArchive = "Content/score.gpif";

TabSheet readArchive(std::string_view bytes) {
  const auto xml = platform::ZipArchive(bytes).read(kScoreInArchive);
  if (!xml) throw UserError(phrase("Exchange", "it is no file of Guitar Pro"));
  return GpifReader(*xml).read();
}

TabSheet readSheet(std::string_view bytes) {
  constexpr std::size_t kMostBytes = std::size_t{8} << 20;
  if (bytes.size() > kMostBytes)
    throw UserError(phrase("Exchange", "it is larger than any music; nothing was read"));
  if (bytes.starts_with(kArchive)) return readArchive(bytes);
  if (isGpx(bytes)) return GpifReader(fileInGpx(bytes, kScore)).read();
  if (const int version = versionOf(bytes)) return FileSong(bytes, version).read();
  throw UserError(phrase("Exchange", "it is no file of Guitar Pro"));
}

}  // namespace

}  // namespace guitarpro

Piece readGuitarPro(std::string_view bytes) {
  return guitarpro::playedOut(guitarpro::readSheet(bytes));
}

std::string guitarPro5(const Score& score) { return guitarpro::Gp5Writer(score).write(); }

std::string guitarPro7(const Score& score) {
  const platform::ZipEntry entries[] = {
      {"VERSION", "7.0", true}, {guitarpro::kScoreInArchive, guitarpro::GpifWriter(score).write()}};
  return platform::zipped(entries);
}

}  // namespace korvel::exchange
