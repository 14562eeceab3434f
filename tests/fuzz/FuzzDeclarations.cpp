// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a chord declaration file: tokens, and the harmonies made of them.
#include <string>

#include "arrange/harmony/Parser.h"
#include "arrange/harmony/Scanner.h"
#include "fuzz/Fuzzing.h"
#include "model/book/QBHarmony.h"
#include "model/book/QBToneOfHarmony.h"
#include "model/store/QBTabMgr.h"
#include "support/store/ScratchStore.h"

namespace korvel {
namespace {

void scan(const std::string& file) {
  Scanner scanner(file);
  while (const auto token = scanner.nextToken())
    fuzz::require(token->value.find_first_of("<>!") == std::string::npos, "a token is plain text");
  fuzz::require(!scanner.nextToken(), "the scan has ended for good");
}

void match(QBHarmony& harmony) {
  int included = 0;
  for (int note = 0; note < 12; ++note) included += harmony.includesNote(5, note) ? 1 : 0;
  fuzz::require((included > 0) == !harmony.allTones().empty(), "every tone is one of twelve notes");
  fuzz::require(harmony.countTones(5, 0xFFF) == static_cast<int>(harmony.allTones().size()),
                "all notes together have every tone");
}

/// Nothing was saved, so that the store is as it was afterwards.
void remove(const platform::Ref<QBHarmony>& harmony) {
  for (const auto& tone : harmony->tones().snapshot()) QBTabMgr::db().deleteInstance(tone);
  QBTabMgr::db().deleteInstance(harmony);
}

void readDeclarations(const std::string& bytes) {
  static const test::ScratchStore store;
  const std::string file = store.folder().file("declarations");
  test::writeFile(file, bytes);
  scan(file);
  for (const auto& harmony : Parser(QBTabMgr::db(), file).parseHarmonies()) {
    match(*harmony);
    remove(harmony);
  }
}

}  // namespace
}  // namespace korvel

int LLVMFuzzerInitialize(int*, char***) {
  korvel::fuzz::workInMemory();
  return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  korvel::readDeclarations(std::string(bytes, bytes + size));
  return 0;
}
