// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/guitarpro/GuitarPro.h"

#include "exchange/guitarpro/FileSong.h"
#include "exchange/guitarpro/Gp5Writer.h"
#include "exchange/guitarpro/SheetPlayer.h"
#include "platform/text/UserError.h"

namespace korvel::exchange {

Piece readGuitarPro(std::string_view bytes) {
  using namespace guitarpro;
  constexpr std::size_t kMostBytes = std::size_t{8} << 20;
  if (bytes.size() > kMostBytes)
    throw platform::UserError(
        platform::phrase("Exchange", "it is larger than any music; nothing was read"));
  if (const int version = versionOf(bytes)) return playedOut(FileSong(bytes, version).read());
  throw platform::UserError(platform::phrase("Exchange", "it is no file of Guitar Pro"));
}

std::string guitarPro5(const Score& score) { return guitarpro::Gp5Writer(score).write(); }

}  // namespace korvel::exchange
