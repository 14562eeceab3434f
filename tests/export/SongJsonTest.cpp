// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/SongJson.h"

#include "support/Testing.h"
#include "support/songs/BeatSong.h"
#include "support/store/StandardStore.h"

namespace korvel {
namespace {

std::string onOneLine(std::string text) {
  std::erase_if(text, [](char c) { return c == '\n' || c == ' '; });
  return text;
}

TEST(SongJson, tellsTheTicksOfASongOnBeatsOnly) {
  const test::StandardStore store;
  EXPECT_EQ(songAsJson(*store.song("Slices")).find("tempo\""), std::string::npos);
  QBSong* song = store.song("Song");
  test::beatSong(song, "tempo=90 key=14 6/8 3xxxxx t4 | x3xxxx t24_1t30");
  const std::string text = onOneLine(songAsJson(*song));
  for (const char* part :
       {R"("tempo":90.0,"swing":false,"key":"D:minor","chords")",
        R"("ticks":4}],"tick":-4,"ticks":4})", R"("ticks":30}],"tick":0,"ticks":24})"})
    EXPECT_NE(text.find(part), std::string::npos) << part << text;
}

TEST(SongJson, tellsHowTheRhythmOfNotesWasRead) {
  rhythm::Rhythm rhythm;
  rhythm::Reading& reading = rhythm.reading;
  reading.beats = {0.5, 1, 1.5, 2, 2.5};
  reading.firstBar = 1;
  reading.metre = {3, false};
  reading.feel = rhythm::Feel::swing;
  reading.key = rhythm::Key{5, false};
  reading.notes = {{-6, 6}};
  reading.chords = {{-12, 0, -1, {}}, {0, 36, 10, rhythm::Quality::majorSeventh}};
  reading.chords[1].probability = 0.75;
  rhythm.others = {{60, {2, true}, rhythm::Feel::straight, std::log(4)}};
  const std::string text =
      onOneLine(notesAsJson(std::vector<fingering::Note>{{0.75, 1, 40, 0, 0, 1}}, rhythm));
  EXPECT_TRUE(text.ends_with(
      R"("tick":-6,"ticks":6}],"beats":[0.5,1.0,1.5,2.0,2.5],"downbeats":[1.0,2.5],"tempo":120.0,)"
      R"("beatsPerBar":3,"compound":false,"swing":true,"key":"F:major",)"
      R"("chords":[[0.5,1.0,"N"],[1.0,2.5,"Bb:maj7"]],"chordProbabilities":[null,0.75],)"
      R"("readingProbability":0.8,"free":false,"others":[{"tempo":60.0,"beatsPerBar":2,)"
      R"("compound":true,"feel":"straight","readingProbability":0.2}]})"))
      << text;
}

}  // namespace
}  // namespace korvel
