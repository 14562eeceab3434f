// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

#include "arrange/harmony/Token.h"

namespace korvel {

/// Cuts a chord declaration file into tokens, the texts between "<" and ">". Bytes outside angle
/// brackets are comment. A "!" ends the scan wherever it stands, in a comment too.
class Scanner {
 public:
  /// Loads the whole file. One that is missing or unreadable has no tokens.
  explicit Scanner(const std::filesystem::path& file);

  /// The next byte; "!" at the end of the data, however often it is asked for.
  char readChar();

  /// The next token; none for ever once the scan has ended, and then an open token is dropped.
  /// A "<" inside an open token drops it and starts a new one.
  std::optional<Token> nextToken();

 private:
  std::string data;
  std::size_t rpos = 0;
};

}  // namespace korvel
