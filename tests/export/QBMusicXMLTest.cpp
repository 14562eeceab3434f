// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/shelf/QBMusicXML.h"

#include "export/shelf/QBSongToXML.h"
#include "export/shelf/SongXml.h"
#include "support/Approved.h"
#include "support/Testing.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

std::size_t countOf(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
    ++count;
  return count;
}

// A chord of a dotted quarter, two tones of it silenced, and durations of every type.
TEST(QBMusicXML, isWrittenTagByTag) {
  const test::StandardStore store;
  const std::string file = store.folder().file("plain.xml");
  QBMusicXML document(file);
  document.addMeasure(6, 8);
  QBMusicXMLTag& low = document.addNote(1, 6);
  QBMusicXML::addTone(low, QBMusicXML::addNotations(low), 0, 0);
  QBMusicXMLTag& high = document.addNoteAsChord(1, 6);
  QBMusicXML::addTone(high, QBMusicXML::addNotations(high), 5, 11);
  document.addNoteAsRest(1, 12);
  ASSERT_TRUE(document.toFile(file));
  test::expectApproved(test::readFile(file), "export/plain.xml");
  const std::string score = document.toString();
  EXPECT_TRUE(score.starts_with("<score-partwise version=\"3.0\">\r\n<part-list>"));
  EXPECT_TRUE(score.ends_with("</part>\r\n</score-partwise>\r\n")) << "without the declaration";
  EXPECT_FALSE(document.toFile(store.folder().file("no folder/plain.xml")));
}

TEST(QBMusicXML, hasNoHalfNotesAndFollowsTheSelectedTuning) {
  std::string types;
  for (int duration = 0; duration <= 17; ++duration)
    types += QBMusicXML::computeTypeByDuration(duration).substr(0, 1);
  EXPECT_EQ(types, "u1eeqqqqwwwwwwwwwu");
  const test::StandardStore store;
  EXPECT_EQ(QBMusicXML::computeOctave(0, 7), 2);
  EXPECT_EQ(QBMusicXML::computeOctave(0, 8), 3);
  QBTabMgr::db().selectTuning(store.dropD());
  EXPECT_EQ(QBMusicXML::computeOctave(0, 9), 2);
}

struct QBSongToXMLTest : testing::Test {
  QBSong* songOf(int chords) {
    QBSong* song = m_store.song("Long");
    for (int i = 0; i < chords; ++i) test::addChord(song, i % 2 ? "x02210" : "3xxxxx", 1 + i % 3);
    return song;
  }

  test::StandardStore m_store;
};

TEST_F(QBSongToXMLTest, writesTheFirst450ChordsAndNoFewer) {
  QBSong* song = songOf(451);
  const auto& chords = song->allChords();
  for (QBTone* tone : chords[0]->hold()->tones()) tone->setActive(false);
  chords[1]->hold()->tones().snapshot()[4]->setActive(false);
  chords[2]->hold()->deleteToneOfString(0);
  const std::string text = QBSongToXML(song, "3/4").buildXML()->toString();
  EXPECT_EQ(countOf(text, "<note>"), 225 * 5 - 1 + 225 - 2);
  EXPECT_EQ(countOf(text, "<chord/>"), 225 * 4 - 1);
  // The silenced chord counts towards the measure, the one without tones does not.
  EXPECT_EQ(countOf(text, "<measure "), 1 + (900 - 3) / 12);
  EXPECT_EQ(countOf(text, "<rest/>"), 0);
  EXPECT_THROW(QBSongToXML(songOf(449), "4/4").buildXML(), std::out_of_range);
}

TEST_F(QBSongToXMLTest, knowsFourMetrics) {
  QBSong* song = songOf(450);
  for (const auto& [metric, divisions] :
       {std::pair("4/4", 4), std::pair("3/4", 4), std::pair("6/8", 2), std::pair("12/8", 2)})
    EXPECT_NE(QBSongToXML(song, metric)
                  .buildXML()
                  ->toString()
                  .find("<divisions>" + std::to_string(divisions)),
              std::string::npos)
        << metric;
  EXPECT_THROW(QBSongToXML(song, "5/4").buildXML(), std::domain_error);
}

TEST_F(QBSongToXMLTest, entitiesHaveTagsOfTheirOwn) {
  QBSong* song = songOf(2);
  const auto chord = toXML(*song->allChords()[1]);
  EXPECT_EQ(chord->open() + chord->value() + chord->close(), "<Chord>2</Chord>");
  ASSERT_EQ(chord->tags().size(), 5U);
  const auto& tone = *chord->tags()[1];
  EXPECT_EQ(tone.title() + tone.tags()[0]->title() + tone.tags()[0]->value() +
                tone.tags()[1]->title() + tone.tags()[1]->value(),
            "ToneFret2String2");
  EXPECT_EQ(toXML(*song)->value(), "Long");
  EXPECT_TRUE(toXML(*song)->tags().empty());
}

}  // namespace
}  // namespace korvel
