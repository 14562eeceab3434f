// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/harmony/HarmonyOfChord.h"
#include "export/SongMidi.h"
#include "export/score/SongScore.h"
#include "model/songs/ToneOrder.h"
#include "model/store/KorvelModel.h"
#include "platform/sqlite/Sqlite.h"
#include "playback/MidiNote.h"
#include "support/Testing.h"
#include "support/songs/SongDesk.h"
#include "support/store/StandardStore.h"
#include "tab/text/SongDrawing.h"
#include "workflow/arranging/CombinedSongs.h"
#include "workflow/arranging/SongFingering.h"
#include "workflow/arranging/shelf/SongOperations.h"

namespace korvel {
namespace {

constexpr int kHighestNote = 39;  // fret 11 of the highest string

using test::linesOf;
using Places = std::set<std::pair<int, int>>;  // string, fret
using Notes = std::set<int>;
using Names = std::vector<std::string>;

Places placesOf(const QBChord& chord) {
  Places places;
  for (const QBTone* tone : chord.hold()->tones()) places.emplace(tone->string(), tone->fret());
  return places;
}

Notes notesOf(const QBChord& chord) {
  Notes notes;
  for (const auto& tone : tonesOf(chord)) notes.insert(largeToneOf(*tone));
  return notes;
}

template <class Property>
auto ofEach(const QBSong& song, Property property) {
  std::vector<decltype(property(*song.chords().at(0)))> all;
  for (const QBChord* chord : song.chords()) all.push_back(property(*chord));
  return all;
}

/// Songs of grips that may ring on: crossed strings, several tones on one, equal amplitudes,
/// silenced tones, empty chords.
class RandomSongs {
 public:
  explicit RandomSongs(unsigned seed) : m_random(seed) {}

  int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
  bool oneIn(int count) { return below(count) == 0; }

  QBSong* make(QBAlbum& album) {
    QBSong* song = album.createSong("Song");
    QBChord* previous = nullptr;
    for (int count = 1 + below(9); count > 0; --count) {
      QBChord* chord = song->createChord();
      chord->setDuration(below(17));
      if (previous && oneIn(3))
        ringOn(*previous, *chord);
      else if (!oneIn(8))
        strike(*chord);
      if (!oneIn(4)) readHarmony(*chord);
      previous = chord;
    }
    buildTab(*song);
    return song;
  }

 private:
  void strike(QBChord& chord) {
    for (int string = 0; string < 6; ++string)
      for (int more = below(5); more > 1; more -= 2) {
        const int fret = below(oneIn(3) ? 25 : 5);
        QBTone* tone = chord.hold()->addTone(string, fret, 1e5 * below(20));
        if (oneIn(8)) tone->setActive(false);
      }
  }
  void ringOn(const QBChord& from, QBChord& chord) {
    for (const auto& tone : tonesOf(from))
      if (!oneIn(4)) chord.hold()->addTone(tone->string(), tone->fret(), 0.8 * tone->amp());
  }

  std::mt19937 m_random;
};

struct SongPropertiesTest : testing::Test {
  static constexpr unsigned kSongs = 60;

  /// Tries a claim on random songs, and deletes what it made.
  template <class Claim>
  void ofRandomSongs(unsigned count, Claim claim) {
    for (unsigned seed = 1; seed <= count && !HasFailure(); ++seed) {
      RandomSongs random(seed);
      QBSong* song = random.make(*m_desk.album());
      const testing::ScopedTrace trace(__FILE__, __LINE__, std::to_string(seed) + linesOf(*song));
      claim(*song, random);
      m_desk.deleteSongs(m_desk.album()->songs().snapshot());
    }
  }
  /// All rows that songs are made of, as they are stored, but for one column.
  static std::set<std::string> storedRows(std::string_view but) {
    std::set<std::string> rows;
    for (const char* entity : {"QBAlbum", "QBSong", "QBMeasure", "QBChord", "QBHold", "QBTone"}) {
      std::string columns = std::string("'") + entity + " '||id";
      const auto& description = korvelModel().entity(entity);
      const auto add = [&](const std::string& name) {
        if (name != but) columns += "||' '||quote(" + platform::sqlName(name) + ')';
      };
      for (const auto& attribute : description.attributes) add(attribute.name);
      for (const auto& toOne : description.toOnes) add(toOne.name);
      rows.merge(asSet(QBTabMgr::db().context().store().column("SELECT " + columns + " FROM " +
                                                               platform::sqlName(entity))));
    }
    return rows;
  }
  static std::set<std::string> asSet(const Names& values) { return {values.begin(), values.end()}; }

  test::SongDesk m_desk;
  const Names m_commands = test::songCommands();
};

TEST_F(SongPropertiesTest, voicesJoinedAgainAreTheSong) {
  ofRandomSongs(kSongs, [](QBSong& song, RandomSongs&) {
    QBSong* joined = toVoice(song, 0);
    std::size_t voices = 1;
    for (const QBChord* chord : song.chords())
      voices = std::max(voices, chord->hold()->tones().size());
    for (int voice = 1; voice < static_cast<int>(voices); ++voice)
      joined = mergeWithSong(*joined, *toVoice(song, voice));
    EXPECT_EQ(ofEach(*joined, placesOf), ofEach(song, placesOf));
  });
}

TEST_F(SongPropertiesTest, whatIsTransposedUpAndDownAgainSoundsTheSame) {
  ofRandomSongs(kSongs, [](QBSong& song, RandomSongs& random) {
    const int steps = 1 + random.below(11);
    const auto inRange = [&](const QBChord& chord) {
      Notes notes;
      for (const auto& tone : tonesOf(chord))
        if (tone->isActive() && largeToneOf(*tone) + steps <= kHighestNote)
          notes.insert(largeToneOf(*tone));
      return notes;
    };
    const QBSong* back = transformDown(*transformUp(song, steps), steps);
    EXPECT_EQ(ofEach(*back, notesOf), ofEach(song, inRange)) << steps;
  });
}

TEST_F(SongPropertiesTest, melodyIsTheHighestTone) {
  ofRandomSongs(kSongs, [](QBSong& song, RandomSongs&) {
    const auto highest = [](const QBChord& chord) {
      const Notes notes = notesOf(chord);
      return notes.empty() ? notes : Notes{*notes.rbegin()};
    };
    EXPECT_EQ(ofEach(*toMelody(song), notesOf), ofEach(song, highest));
  });
}

TEST_F(SongPropertiesTest, movingTonesKeepsTheirPitches) {
  ofRandomSongs(kSongs, [](QBSong& song, RandomSongs&) {
    EXPECT_EQ(ofEach(*pushDownStrings(song), notesOf), ofEach(song, notesOf));
    EXPECT_EQ(ofEach(*findBestFingering(song), notesOf), ofEach(song, notesOf));
  });
}

/// Chords of MIDI numbers: Am, G7, a ninth chord and one with a tone that is foreign to it.
const std::vector<std::vector<int>> kMusic{
    {45, 52, 57, 60, 64}, {43, 47, 53, 59, 62}, {48, 52, 55, 58, 62}, {50, 54, 57, 58, 62}};

/// Written on strings that sound these MIDI numbers: each tone on the highest string that is free.
void write(QBSong& song, const OpenPitches& open) {
  for (const std::vector<int>& pitches : kMusic) {
    QBChord* chord = song.createChord();
    chord->setDuration(2);
    std::size_t string = open.size();
    for (auto pitch = pitches.rbegin(); pitch != pitches.rend(); ++pitch) {
      while (open.at(--string) > *pitch) continue;
      chord->hold()->addTone(static_cast<int>(string), *pitch - open[string], 1e4 * (*pitch % 7));
    }
    readHarmony(*chord);
  }
}

Notes pitchesOf(const QBChord& chord, const OpenPitches& open) {
  Notes pitches;
  for (const auto& [string, fret] : placesOf(chord))
    pitches.insert(open.at(static_cast<std::size_t>(string)) + fret);
  return pitches;
}

/// Whether all of it is heard in some chord of the music, so many half tones higher. What would lie
/// below the lowest string is an octave higher.
bool isOfMusic(const Notes& pitches, int shift, int lowest) {
  return std::ranges::any_of(kMusic, [&](const std::vector<int>& chord) {
    Notes moved;
    for (const int pitch : chord)
      moved.insert(pitch + shift < lowest ? pitch + shift + 12 : pitch + shift);
    return std::ranges::includes(moved, pitches);
  });
}

/// What is played, written to a MIDI file and noted in a score.
std::vector<Notes> exported(QBSong& song) {
  Notes played;
  Notes sequenced;
  Notes noted;
  for (const QBChord* chord : song.chords())
    for (const auto& tone : tonesOf(*chord)) played.insert(toMIDI(*tone));
  const MidiSequence sequence = midiOf(song, {});
  const Score score = scoreOf(song);
  for (const MidiNote& note : sequence.notes) sequenced.insert(note.pitch);
  for (const ScoreEvent& event : score.bars.at(0).events)
    for (const ScoreTone& tone : event.tones) noted.insert(tone.pitch);
  return {played, sequenced, noted};
}

/// The half tones that a command transposes by, such as 3 for "transposeUpBy3"; 0 for the others.
int shiftOf(const std::string& command) {
  if (!command.starts_with("transpose")) return 0;
  const int steps = std::stoi(command.substr(command.find("By") + 2));
  return command.starts_with("transposeUp") ? steps : -steps;
}

/// Not for hands, whose answers depend on the strings.
bool asksForVoices(const std::string& command) {
  static constexpr std::array kStarts{"remove",   "apply",    "extractM", "extractB",
                                      "extractT", "extractF", "extractS", "copy"};
  return std::ranges::any_of(kStarts, [&](auto start) { return command.starts_with(start); });
}

TEST_F(SongPropertiesTest, commandsKeepOrMoveWhatSoundsInEveryTuning) {
  const std::pair<const char*, OpenPitches> tunings[] = {
      {"Standard", kStandardPitches},          {"Drop D", kDropDPitches},
      {"Open G", {31, 47, 50, 55, 59, 62}},    {"DADGAD", {38, 45, 50, 55, 57, 62}},
      {"Half down", {39, 44, 49, 54, 58, 63}}, {"Baritone", {35, 40, 45, 50, 54, 59}}};
  Notes written;
  for (const std::vector<int>& chord : kMusic) written.insert(chord.begin(), chord.end());
  std::map<std::string, std::vector<Notes>> inStandard;
  for (const auto& [name, open] : tunings) {
    QBSong* song = m_desk.album()->createSong(name);
    song->setTuning(test::addTuning(name, open));
    write(*song, open);
    EXPECT_EQ(song->chords().at(0)->fullHarmonyName() + song->chords().at(1)->fullHarmonyName(),
              "AmG7")
        << name;
    EXPECT_EQ(exported(*song), std::vector(3, written)) << name;
    for (const std::string& command : m_commands) {
      if (command == "deleteSong") continue;
      const int shift = shiftOf(command);
      std::vector<Notes> sounding;
      const auto made = m_desk.perform(song, command).songs;
      for (const auto& each : made)
        for (const QBChord* chord : each->chords()) {
          sounding.push_back(pitchesOf(*chord, open));
          EXPECT_TRUE(isOfMusic(sounding.back(), shift, open[0]))
              << name << ' ' << command << linesOf(*each);
        }
      const auto& before = inStandard.try_emplace(command, sounding).first->second;
      EXPECT_TRUE(!asksForVoices(command) || sounding == before) << name << ' ' << command;
      m_desk.deleteSongs(made);
    }
  }
}

TEST_F(SongPropertiesTest, handsHaveOneToneAString) {
  ofRandomSongs(kSongs, [](QBSong& song, RandomSongs& random) {
    const auto crowded = [](const QBChord& chord) {
      std::set<int> strings;
      for (const auto& tone : tonesOf(chord)) strings.insert(tone->string());
      return strings.size() < chord.hold()->tones().size();
    };
    for (QBSong* made : {transposedForHand(song, random.below(23) - 11, "Moved"),
                         fingeredForHand(song, "Fingered")})
      EXPECT_EQ(std::ranges::count(ofEach(*made, crowded), true), 0) << linesOf(*made);
  });
}

TEST_F(SongPropertiesTest, noCommandChangesItsSource) {
  ofRandomSongs(4, [this](QBSong& song, RandomSongs&) {
    for (const std::string& command : m_commands) {
      if (command == "deleteSong") continue;
      // The choice of right-hand patterns is kept with the chords that it was made for.
      const std::string_view but = command == "toRightHand" ? "pattern" : "";
      QBTabMgr::db().save();
      const auto before = storedRows(but);
      const auto made = m_desk.perform(&song, command).songs;
      QBTabMgr::db().save();
      EXPECT_TRUE(std::ranges::includes(storedRows(but), before)) << command;
      m_desk.deleteSongs(made);
    }
  });
}

TEST_F(SongPropertiesTest, whatCannotBeDrawnIsReported) {
  const auto failed = [this](const std::vector<const char*>& chords) {
    std::vector<std::string> commands;
    for (const std::string& command : m_commands) {
      QBSong* song = m_desk.album()->createSong("Song");
      for (const char* frets : chords) test::addChord(song, frets);
      const test::Performance performance = m_desk.perform(song, command);
      const std::string last = performance.log.back();
      const bool reported = last.starts_with("EXCEPTION OCCURED IN CONTEXT: " + command + "\r\n") &&
                            last.find("EXCEPTION NAME: std::out_of_range") != std::string::npos;
      EXPECT_NE(reported, performance.succeeded) << last;
      if (reported) commands.push_back(command);
      m_desk.deleteSongs(m_desk.album()->songs().snapshot());
    }
    return commands;
  };
  EXPECT_EQ(failed({}).size(), m_commands.size() - 1) << "only deleting needs no chords";
  // No voicing is seen four times, and no chord is left after cleaning.
  EXPECT_EQ(failed({"xxxxxx", "xxxxxx", "xxxxxx"}), (Names{"extractVoicings", "cleanChords"}));
  EXPECT_EQ(failed({"x02210"}), Names{"extractVoicings"});
}

}  // namespace
}  // namespace korvel
