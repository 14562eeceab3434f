// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "arrange/harmony/Scanner.h"
#include "arrange/harmony/Token.h"
#include "platform/persistence/Ref.h"

namespace korvel {

class QBHarmony;
class QBTabMgr;

/// Reads a chord declaration file into the store. A declaration is
///
///     <*> <m7> <order> <402> <steps> <0> <3> <4> <3> <->
///
/// a mark that begins with "*", the type, an ignored token, the order, an ignored token, and the
/// steps up to a mark that begins with "-" or to the end. Tokens that are no number count as 0.
class Parser {
 public:
  /// Into that store.
  Parser(QBTabMgr& db, const std::filesystem::path& file);

  /// Creates the harmonies from here to the first declaration that is malformed, or to the end.
  std::vector<platform::Ref<QBHarmony>> parseHarmonies();

  /// Creates the harmony of the next declaration; null, and nothing is created, when its mark or
  /// one of the four tokens after that is missing.
  QBHarmony* isHarmony();

  // Each of these reads one token.
  std::optional<Token> isValue();
  bool isNewLine();
  bool isNewSoundItem();

 private:
  void addSteps(QBHarmony& harmony);

  QBTabMgr& m_db;
  Scanner scanner;
};

}  // namespace korvel
