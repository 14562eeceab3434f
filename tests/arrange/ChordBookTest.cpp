// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>

#include "arrange/harmony/HarmonyOfChord.h"
#include "model/book/QBHarmony.h"
#include "support/ScratchStore.h"
#include "support/StandardStore.h"
#include "workflow/session/StoreSeeding.h"

namespace korvel {
namespace {

// Shapes as a chord book prints them: the frets from the lowest string to the highest, 0 for an
// open string, x for one that is not played. Open position first, then barre chords.
constexpr const char* kBook = R"(
  C x32010      D xx0232      E 022100      F xx3211      G 320003      A x02220
  G 320033      F 133211      F# 244322     Ab 466544     Bb x13331     B x24442
  C x35553      C# x46664     Eb x68886

  Am x02210     Dm xx0231     Em 022000     Fm 133111     F#m 244222    Gm 355333
  Bbm x13321    Bm x24432     Cm x35543     C#m x46654    Ebm x68876

  E5 022xxx     A5 x022xx     D5 xx023x     F5 133xxx     G5 355xxx     C5 x355xx

  Dsus4 xx0233  Asus4 x02230  Esus4 022200  Gsus4 330013  Csus4 x33011  Fsus4 133311
  Bbsus4 x13341 Bsus4 x24452

  Ddim xx0131   Adim x0121x   Bdim x2343x   F#dim 2342xx
  Aaug x03221   Baug x21003   Bbaug x10332  Abaug 43211x

  C7 x32310     D7 xx0212     E7 020100     E7 022130     G7 320001     A7 x02020
  B7 x21202     F7 131211     F#7 242322    Bb7 x13131    C#7 x46464

  Am7 x02010    Am7 x02213    Dm7 xx0211    Em7 020000    Em7 022030    Bm7 x20202
  Fm7 131111    F#m7 242222   Gm7 353333    Bm7 x24232    Cm7 x35343

  Cmaj7 x32000  Dmaj7 xx0222  Emaj7 021100  Fmaj7 xx3210  Gmaj7 320002  Amaj7 x02120
  Fmaj7 132211  Bbmaj7 x13231 Bmaj7 x24342

  A7sus4 x02030 D7sus4 xx0213 E7sus4 020200 G7sus4 330011 F7sus4 131311 B7sus4 x24252
  C7sus4 x35363

  Cadd9 x32030  Cadd9 x32033  Dadd9 x54230  Eadd9 024100  Fadd9 xx3213  Gadd9 320203
  Aadd9 x02420  Amadd9 x02410 Emadd9 024000

  Bm7b5 x2323x  F#m7b5 2x221x Dm7b5 xx0111  Em7b5 012030  Am7b5 x01213  Cm7b5 x3434x
  Adim7 x01212  Bbdim7 x12020 Bdim7 x20101

  AmMaj7 x02110 DmMaj7 xx0221 EmMaj7 021000 CmMaj7 x35443
  A7#5 x03021   B7#5 x21203   C7#5 x32314   E7#5 030110   G7#5 321001   F#7b5 2x231x

  C9 x32330     C9 x32333     D9 x54555     E9 020102     G9 300201     A9 x02423
  B9 x21222     F9 131213     Am9 x02413    Em9 020002    Bm9 x20222    Cm9 x3133x
  Dm9 x5355x    Fm9 131113    Cmaj9 x3243x  Dmaj9 x5465x  Emaj9 021102  Fmaj9 xx3010
  Gmaj9 320202  Amaj9 x02424

  A7b9 x02323   B7b9 x21212   C7b9 x32323   D7b9 x54545   E7b9 020131
  B7#9 x2123x   C7#9 x3234x   E7#9 020133

  A11 x00000    C11 x33333    C11 x32331    E11 000100    Am11 555557   Em11 000002
  A13 x02022    B13 x21224    C13 x32335    E13 020120    G13 3x345x    G13 3x3455
)";

// Two chords of the same notes, which no shape can tell apart: the more common name, or for
// chords that repeat themselves the highest root, stands for both.
constexpr const char* kOfTwoNames = R"(
  Asus4 xx0230  Esus4 x02200                 (Dsus2, Asus2)
  C#m7 022120   Em7 320000    Bm7 xx0202     (E6, G6, D6)
  F#m7b5 x02212 Bm7b5 xx0201                 (Am6, Dm6)
  Abaug x32110  Adim7 x3424x                 (Caug, Cdim7)
  C5 x3x0xx     Am x3221x                    (a bare fifth, and C6 without its fifth)
)";

class ChordBookTest : public testing::Test {
 protected:
  /// The store as a first start leaves it, read back from its file.
  void SetUp() override {
    ASSERT_TRUE(initializeData(QBTabMgr::db()));
    QBTabMgr::clearDb();
    m_song = QBTabMgr::db().createSong("Chord book", nullptr, nullptr, nullptr);
  }

  std::string nameOf(const std::string& frets) {
    QBChord* chord = test::addChord(m_song, frets);
    readHarmony(*chord);
    return chord->fullHarmonyName();
  }

  /// Compares every "name frets" of a chart; words in parentheses are remarks. Answers how many.
  int compare(const char* chart) {
    int shapes = 0;
    std::istringstream lines(chart);
    for (std::string line; std::getline(lines, line);) {
      std::istringstream words(line.substr(0, line.find('(')));
      for (std::string name, frets; words >> name >> frets; ++shapes)
        EXPECT_EQ(nameOf(frets), name) << frets;
    }
    return shapes;
  }

  test::ScratchStore m_store;
  QBSong* m_song = nullptr;
};

TEST_F(ChordBookTest, everyShapeGetsTheNameInTheBook) { EXPECT_GE(compare(kBook), 60); }

TEST_F(ChordBookTest, commonNameStandsForTwoChordsOfTheSameNotes) { compare(kOfTwoNames); }

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
