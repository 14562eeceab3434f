// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/harmony/Parser.h"

#include "model/book/QBHarmony.h"
#include "model/store/QBTabMgr.h"
#include "platform/text/Numerals.h"

namespace korvel {

Parser::Parser(QBTabMgr& db, const std::filesystem::path& file) : m_db(db), scanner(file) {}

std::vector<platform::Ref<QBHarmony>> Parser::parseHarmonies() {
  std::vector<platform::Ref<QBHarmony>> harmonies;
  while (QBHarmony* harmony = isHarmony()) harmonies.emplace_back(harmony);
  return harmonies;
}

QBHarmony* Parser::isHarmony() {
  if (!isNewLine()) return nullptr;
  const auto type = isValue();
  isValue();
  const auto order = isValue();
  // The scan ends for good, so when this token is there, so were the ones before it.
  if (!isValue()) return nullptr;
  QBHarmony* harmony = m_db.createHarmony(type->value, platform::intValue(order->value));
  addSteps(*harmony);
  return harmony;
}

void Parser::addSteps(QBHarmony& harmony) {
  int order = 0;
  for (auto step = isValue(); step && !step->value.starts_with('-'); step = isValue())
    harmony.addStep(order++, platform::intValue(step->value));
}

std::optional<Token> Parser::isValue() { return scanner.nextToken(); }

bool Parser::isNewLine() {
  const auto token = isValue();
  return token && token->value.starts_with('*');
}

bool Parser::isNewSoundItem() {
  const auto token = isValue();
  return token && token->value == "SoundItem";
}

}  // namespace korvel
