// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a store: it is refused and left alone, or opened, read and written. The first byte
// of the input says how the rest becomes a file: as it is; as patches to a sound store, which get
// past the header; or as changes to its rows and tables, which get past the checks of the file.
#include <algorithm>
#include <iterator>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "fuzz/Fuzzing.h"
#include "model/book/QBHarmony.h"
#include "model/book/QBToneOfHarmony.h"
#include "model/instruments/QBString.h"
#include "model/instruments/QBTuning.h"
#include "model/recorded/QBBlock.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBMeasure.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/store/KorvelModel.h"
#include "model/store/QBSettings.h"
#include "model/store/QBTabMgr.h"
#include "platform/sqlite/PageSums.h"
#include "platform/sqlite/Sqlite.h"
#include "platform/sqlite/StoreError.h"
#include "support/store/ScratchStore.h"

namespace korvel {
namespace {

using Input = std::span<const std::uint8_t>;

void fill() {
  QBTabMgr& db = QBTabMgr::db();
  QBTuning* tuning = db.createTuning("Standard", 1);
  tuning->createStandardStrings();
  db.createSettings("./")->setActiveTuning(tuning);
  QBHarmony* minor = db.createHarmony("m", 1);
  for (int order = 0; const int step : {0, 3, 4}) minor->addStep(order++, step);
  db.addPattern("xxx-x-", 3);
  QBSong* song = db.createSong("Song", tuning, nullptr, db.createAlbum("Album", false));
  QBMeasure* measure = db.createMeasure(song, 4, 4);
  for (int fret = 0; fret < 3; ++fret) {
    QBChord* chord = db.createChord(song, nullptr, fret);
    chord->setMeasure(measure);
    chord->setHarmony(minor);
    for (int string = 0; string < 6; ++string) chord->hold()->addTone(string, fret, 1000.0);
    db.createBlock(chord)->setData(platform::Bytes(100));
  }
  song->setTabulature("tablature");
  db.save();
}

/// Small pages, so that a patch is likely to hit something, and without sums, which would see each.
std::string makeSoundStore() {
  const test::ScratchStore store;
  fill();
  QBTabMgr::clearDb();
  platform::SqliteDatabase(store.path(), platform::SqliteDatabase::Mode::readWrite)
      .execute("PRAGMA page_size = 1024; VACUUM");
  std::string bytes = test::readFile(store.path());
  std::fill_n(bytes.begin() + 1024 - platform::PageSums::kSize, platform::PageSums::kSize, '\0');
  return bytes;
}

const std::string& soundStore() {
  static const std::string bytes = makeSoundStore();
  return bytes;
}

std::size_t takeNumber(Input& input, std::size_t bytes) {
  std::size_t value = 0;
  for (; bytes > 0 && !input.empty(); --bytes, input = input.subspan(1))
    value = value << 8 | input.front();
  return value;
}

std::string patched(Input input) {
  std::string bytes = soundStore();
  if (takeNumber(input, 1) % 8 == 0) bytes.resize(takeNumber(input, 3) % (bytes.size() + 1));
  while (!input.empty() && !bytes.empty()) {
    const std::size_t at = takeNumber(input, 3) % bytes.size();
    const std::size_t wanted = takeNumber(input, 1) % 16;
    const std::size_t count = std::min({wanted, input.size(), bytes.size() - at});
    std::copy_n(input.begin(), count, bytes.begin() + static_cast<std::ptrdiff_t>(at));
    input = input.subspan(count);
  }
  return bytes;
}

constexpr int kMostChanges = 20;
constexpr const char* kEdges[] = {"-1",          "2147483647",          "2147483648",
                                  "-2147483648", "9223372036854775807", "-9223372036854775808"};

std::string takeValue(Input& input) {
  switch (takeNumber(input, 1) % 5) {
    case 0:
      return "NULL";
    case 1:
      return kEdges[takeNumber(input, 1) % std::size(kEdges)];
    case 2:
      return std::to_string(takeNumber(input, 1) % 8);
    case 3:
      return "x'" + std::string(takeNumber(input, 1) % 4 * 2, 'f') + "'";
    default:
      return "1e" + std::to_string(takeNumber(input, 2) % 400);
  }
}

std::string takeChange(Input& input) {
  const auto& entities = korvelModel().entities();
  const auto& entity = entities[takeNumber(input, 1) % entities.size()];
  std::vector<std::string> columns{"id"};
  for (const auto& attribute : entity.attributes) columns.push_back(attribute.name);
  for (const auto& toOne : entity.toOnes) columns.push_back(toOne.name);
  const std::string table = platform::sqlName(entity.name);
  const std::string column = platform::sqlName(columns[takeNumber(input, 1) % columns.size()]);
  switch (takeNumber(input, 1) % 8) {
    case 0:
      return "ALTER TABLE " + table + " DROP COLUMN " + column;
    case 1:
      return "DROP TABLE " + table;
    case 2:
      return "DROP INDEX " + platform::sqlName(entity.name + "_" + columns.back());
    case 3:
      return "PRAGMA user_version = " + takeValue(input);
    case 4:
      return "INSERT INTO " + table + "(" + column + ") VALUES(" + takeValue(input) + ")";
    default:
      return "UPDATE " + table + " SET " + column + " = " + takeValue(input) +
             " WHERE id = " + std::to_string(takeNumber(input, 1) % 20);
  }
}

std::string changed(Input input) {
  const test::ScratchFolder folder;
  const std::string file = folder.file("changed");
  test::writeFile(file, soundStore());
  {
    platform::SqliteDatabase store(file, platform::SqliteDatabase::Mode::readWrite);
    platform::SqliteTransaction change(store);
    for (int i = 0; i < kMostChanges && !input.empty(); ++i) {
      try {
        store.execute(takeChange(input));
      } catch (const platform::StoreError&) {
        continue;  // not a change that SQLite allows
      }
    }
    change.commit();
  }
  return test::readFile(file);
}

std::string storeOf(Input input) {
  switch (takeNumber(input, 1) % 4) {
    case 0:
      return std::string(input.begin(), input.end());
    case 1:
      return patched(input);
    default:
      return changed(input);
  }
}

/// Everything that opening a program's store reads, and then a song as drawing reads it.
void readAll(platform::ManagedContext& context) {
  std::size_t read = 0;
  for (const platform::EntityDescription& entity : korvelModel().entities())
    read += context.fetch(entity.name).size();
  for (const auto& tuning : context.fetchAll<QBTuning>("QBTuning"))
    read += tuning->strings().size() + tuning->songs().size();
  for (const auto& harmony : context.fetchAll<QBHarmony>("QBHarmony"))
    read += harmony->tones().size();
  for (const auto& album : context.fetchAll<QBAlbum>("QBAlbum")) {
    for (QBSong* song : album->songs()) {
      read += song->tabulature().size();
      for (QBChord* chord : song->chords()) {
        if (chord->hold()) read += chord->hold()->tones().size();
        if (chord->block()) read += chord->block()->data().size();
      }
    }
  }
  fuzz::require(read < 1000000, "a small file holds little");
}

void change(platform::ManagedContext& context) {
  auto* album = static_cast<QBAlbum*>(context.insert("QBAlbum"));
  album->setName("new");
  for (const auto& song : context.fetchAll<QBSong>("QBSong")) song->setAlbum(album);
  for (const auto& tone : context.fetchAll<QBTone>("QBTone")) context.remove(*tone);
  context.save();
}

void openStore(const std::string& bytes) {
  const test::ScratchFolder folder;
  const std::string file = folder.file("Korvel.sqlite");
  test::writeFile(file, bytes);
  std::unique_ptr<platform::SqliteDatabase> store;
  try {
    store = storeFile(file).open();
  } catch (const platform::StoreError&) {
    fuzz::require(test::readFile(file) == bytes, "a refused store is left as it was");
    return;
  }
  try {
    platform::ManagedContext context(std::move(store), korvelModel());
    readAll(context);
    change(context);
  } catch (const platform::StoreError&) {
    return;  // damage that shows only when the rows in question are read or written
  }
  storeFile(file).open();
}

}  // namespace
}  // namespace korvel

int LLVMFuzzerInitialize(int*, char***) {
  korvel::fuzz::workInMemory();
  korvel::soundStore();
  return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  korvel::openStore(korvel::storeOf({bytes, size}));
  return 0;
}
