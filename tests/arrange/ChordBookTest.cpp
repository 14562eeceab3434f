// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/hands/HandShapes.h"
#include "arrange/harmony/HarmonyOfChord.h"
#include "support/Testing.h"
#include "support/store/ScratchStore.h"
#include "support/store/StandardStore.h"
#include "workflow/session/StoreSeeding.h"

namespace korvel {
namespace {

struct ChordBookTest : testing::Test {
  /// The store as a first start leaves it, read back from its file.
  void SetUp() override {
    initializeData(QBTabMgr::db());
    QBTabMgr::clearDb();
    m_song = QBTabMgr::db().createSong("Chord book", nullptr, nullptr, nullptr);
  }

  std::string nameOf(const std::string& frets) {
    QBChord* chord = test::addChord(m_song, frets);
    readHarmony(*chord);
    return chord->fullHarmonyName();
  }

  test::ScratchStore m_store;
  QBSong* m_song = nullptr;
};

// Each line has names and their shapes; words in parentheses are remarks.
TEST_F(ChordBookTest, everyShapeGetsTheNameInTheBook) {
  int shapes = 0;
  std::istringstream lines(test::readFile(KORVEL_TEST_DATA "/chords/book.txt"));
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line.substr(0, line.find('(')));
    for (std::string name, frets; words >> name >> frets; ++shapes)
      EXPECT_EQ(nameOf(frets), name) << frets;
  }
  EXPECT_GE(shapes, 150);
}

TEST_F(ChordBookTest, easiestShapeIsTheOneThatBeginnersLearn) {
  const auto easiest = [](const char* name) {
    const auto shapes = shapesOf(parseChordName(QBTabMgr::db(), name), OpenStrings(), 12);
    return shapes.empty() ? "none" : shorthandOf(shapes.front());
  };
  const std::map<const char*, const char*> known{
      {"C", "x32010"},  {"D", "xx0232"},  {"E", "022100"},   {"F", "133211"},  {"G", "320003"},
      {"A", "x02220"},  {"Am", "x02210"}, {"Em", "022000"},  {"Dm", "xx0231"}, {"E7", "020100"},
      {"G7", "320001"}, {"C7", "x32310"}, {"Am7", "x02010"}, {"F#m", "244222"}};
  for (const auto& [name, frets] : known) EXPECT_EQ(easiest(name), frets) << name;
}

TEST_F(ChordBookTest, anotherTuningGivesAnotherName) {
  QBTabMgr::db().selectTuning(QBTabMgr::db().findTuningByOrder(2));
  EXPECT_EQ(nameOf("000xxx"), "D5");
}

TEST_F(ChordBookTest, oneToneHasNoNameAndLeavesTheChordAlone) {
  QBChord* chord = test::addChord(m_song, "x3xx1x");
  EXPECT_EQ(readHarmony(*chord), nullptr);
  EXPECT_FALSE(chord->hasBaseTone());
}

TEST_F(ChordBookTest, harmonyFoundBeforeKeepsOutRicherOnesAndIsNeverCleared) {
  QBChord* chord = test::addChord(m_song, "x32010");
  readHarmony(*chord);
  chord->hold()->addTone(4, 0, 1.0);
  EXPECT_EQ(readHarmony(*chord)->type(), "") << "maj7 explains more, but has a larger order";
  chord->hold()->removeTonesByNote(4);
  chord->hold()->removeTonesByNote(11);
  readHarmony(*chord);
  EXPECT_EQ(chord->fullHarmonyName(), "C5");
  chord->hold()->removeTonesByNote(7);
  readHarmony(*chord);
  EXPECT_EQ(chord->fullHarmonyName(), "C5");
}

TEST_F(ChordBookTest, typesHaveOrdersOfTheirOwnAndNoToneTwice) {
  std::set<int> orders;
  for (const auto& harmony : QBTabMgr::db().harmonies()) {
    EXPECT_TRUE(orders.insert(harmony->order()).second) << harmony->type();
    const int tones = static_cast<int>(harmony->allTones().size());
    EXPECT_EQ(harmony->order() / 100, tones) << harmony->type();
    int distinct = 0;
    for (int note = 0; note < 12; ++note) distinct += harmony->includesNote(0, note) ? 1 : 0;
    EXPECT_EQ(distinct, tones) << harmony->type();
  }
}

}  // namespace
}  // namespace korvel
