// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/guitarpro/GuitarPro.h"

#include <gtest/gtest.h>

#include <random>

#include "export/score/Score.h"
#include "platform/files/ZipArchive.h"
#include "platform/text/UserError.h"

namespace korvel::exchange {
namespace {

constexpr std::int64_t kGrainsOfUnit = kGrainsOfQuarter / kUnitsOfQuarter;

/// Scores with two voices, ties, triplets, rests, names and tempi, and what a reader has to find.
class RandomScore {
 public:
  explicit RandomScore(unsigned seed) : m_random(seed) {
    score.title = "Größe & <Maß>";
    score.openStrings = {38, 45, 50, 55, 59, 64};
    score.capo = seed % 3 == 0 ? 2 : 0;
    score.key = ScoreKey{below(2) ? 4 : 9, true};
    const Meter meters[] = {{4, 4}, {3, 4}, {6, 8}, {7, 8}};
    const Meter meter = meters[below(4)];
    const int bars = 1 + below(12);
    for (int bar = 0; bar < bars; ++bar) addBar(meter);
  }

  Score score;
  Track track;
  std::vector<Tempo> tempos{{0, 120}};

 private:
  int below(int end) { return static_cast<int>(m_random() % static_cast<unsigned>(end)); }

  void addBar(const Meter& meter) {
    ScoreBar bar{.meter = meter, .events = {}};
    if (m_at > 0 && below(4) == 0) {
      bar.tempo = 60 + below(100);
      if (tempos.back().quartersAMinute != *bar.tempo) tempos.push_back({m_at, *bar.tempo});
    }
    addVoice(bar.events, meter.units(), 2, 6);
    if (below(3) == 0) addVoice(bar.lower, meter.units(), 0, 2);
    score.bars.push_back(std::move(bar));
    m_at += meter.units() * kGrainsOfUnit;
  }

  void addVoice(std::vector<ScoreEvent>& events, int units, int from, int to) {
    constexpr int kLengths[] = {3, 6, 8, 8, 12, 12, 18, 24, 36, 48};
    for (int place = 0; place < units;) {
      const int length = std::min(kLengths[below(10)], units - place);
      addEvent(events, place, length, from, to);
      place += length;
    }
  }

  void addEvent(std::vector<ScoreEvent>& events, int place, int length, int from, int to) {
    const bool goesOn = !events.empty() && below(3) == 0;
    ScoreEvent event{length, {}, from > 0 ? m_harmony : std::nullopt};
    if (goesOn) {
      for (ScoreTone& tone : events.back().tones) {
        tone.tiedOn = true;
        event.tones.push_back({tone.string, tone.fret, tone.pitch, true, false});
        lengthen(tone.string, length);
      }
    } else if (below(5) > 0) {
      const std::int64_t at = m_at + place * kGrainsOfUnit;
      if (from > 0 && below(4) == 0) event.harmony = newName(at);
      for (int string = from; string < to; ++string)
        if (below(2)) event.tones.push_back(struck(string, at, length));
    }
    events.push_back(std::move(event));
  }

  ScoreTone struck(int string, std::int64_t at, int length) {
    const int fret = below(20);
    const int fromNut = fret + score.capo;
    const int pitch = score.openStrings[static_cast<std::size_t>(string)] + fromNut;
    track.notes.push_back({at, length * kGrainsOfUnit, pitch, string, fret, 0});
    return {string, fromNut, pitch};
  }

  void lengthen(int string, int length) {
    const auto last = std::find_if(track.notes.rbegin(), track.notes.rend(),
                                   [&](const Note& note) { return note.string == string; });
    last->length += length * kGrainsOfUnit;
  }

  std::optional<ScoreHarmony> newName(std::int64_t at) {
    m_harmony = ScoreHarmony{below(2) ? 9 : 2, below(2) ? "m7" : ""};
    std::string name = (m_harmony->root == 9 ? "A" : "D") + m_harmony->type;
    if (track.names.empty() || track.names.back().text != name)
      track.names.push_back({at, std::move(name)});
    return m_harmony;
  }

  std::mt19937 m_random;
  std::int64_t m_at = 0;
  std::optional<ScoreHarmony> m_harmony;
};

using Placed = std::tuple<std::int64_t, int, std::int64_t, int, int>;

std::vector<Placed> placed(const Track& track) {
  std::vector<Placed> notes;
  for (const Note& note : track.notes)
    notes.emplace_back(note.at, note.string, note.length, note.fret, note.pitch);
  std::ranges::sort(notes);
  return notes;
}

/// Names are compared apart: they stand above what sounds only.
void expectRead(const std::string& bytes, const RandomScore& made) {
  const Piece piece = readGuitarPro(bytes);
  ASSERT_EQ(piece.tracks.size(), 1U);
  EXPECT_EQ(placed(piece.tracks[0]), placed(made.track));
  EXPECT_EQ(piece.tracks[0].open, made.score.openStrings);
  EXPECT_EQ(piece.tracks[0].capo, made.score.capo);
  EXPECT_EQ(piece.tempos, made.tempos);
  EXPECT_EQ(piece.bars.size(), made.score.bars.size());
  EXPECT_EQ(piece.bars[0].beats, made.score.bars[0].meter.beats);
  EXPECT_EQ(piece.title, made.score.title);
  EXPECT_EQ(piece.key, (Key{made.score.key->tonic, true}));
  EXPECT_TRUE(piece.left.empty() && piece.tracks[0].left.empty());
}

/// The same music in the packed container of version 6.
std::string gpxOf(const std::string& archive) {
  std::string xml = *platform::ZipArchive(archive).read("Content/score.gpif");
  constexpr std::size_t kSector = 0x1000;
  const std::size_t sectors = xml.size() / kSector + 1;
  const auto numberOf = [](std::size_t value) {
    std::string bytes;
    for (int i = 0; i < 4; ++i) bytes += static_cast<char>(value >> 8 * i & 0xFF);
    return bytes;
  };
  std::string head = numberOf(2) + "score.gpif";
  head.resize(0x8C, '\0');
  head += numberOf(xml.size()) + numberOf(0);
  for (std::size_t i = 0; i < sectors; ++i) head += numberOf(2 + i);
  head.resize(kSector, '\0');
  xml.resize(sectors * kSector, '\0');
  const std::string plain = "BCFS" + std::string(kSector, '\0') + head + xml;

  std::string bits;
  const auto push = [&](std::size_t value, unsigned count, bool isReversed) {
    for (unsigned i = 0; i < count; ++i)
      bits += value >> (isReversed ? i : count - 1 - i) & 1 ? '1' : '0';
  };
  for (std::size_t at = 0; at < plain.size();) {
    const bool isRun = at > 9 && plain.compare(at, 9, plain, at - 9, 9) == 0;
    const std::size_t size = isRun ? 9 : std::min<std::size_t>(3, plain.size() - at);
    push(isRun, 1, false);
    push(isRun ? 4 : size, isRun ? 4 : 2, !isRun);
    if (isRun) push(9, 4, true), push(9, 4, true);
    for (std::size_t i = 0; !isRun && i < size; ++i)
      push(static_cast<unsigned char>(plain[at + i]), 8, false);
    at += size;
  }
  std::string packed = "BCFZ" + numberOf(plain.size());
  for (std::size_t i = 0; i < bits.size(); i += 8)
    packed +=
        static_cast<char>(std::stoi((bits.substr(i, 8) + "0000000").substr(0, 8), nullptr, 2));
  return packed;
}

TEST(GuitarPro, readsWhatItWrites) {
  for (unsigned seed = 0; seed < 100; ++seed) {
    const RandomScore made(seed);
    SCOPED_TRACE(seed);
    expectRead(guitarPro5(made.score), made);
    expectRead(guitarPro7(made.score), made);
    if (seed < 3) expectRead(gpxOf(guitarPro7(made.score)), made);
    if (HasFailure()) return;
  }
}

TEST(GuitarPro, keepsPickUps) {
  RandomScore made(1);
  const Meter meter = made.score.bars.front().meter;
  const ScoreEvent note{kUnitsOfEighth, {{5, 3, 67}}, {}};
  made.score.bars.insert(made.score.bars.begin(),
                         ScoreBar{.meter = meter, .events = {note}, .pickUp = kUnitsOfEighth});
  const Piece whole = readGuitarPro(guitarPro5(made.score));
  EXPECT_EQ(whole.bars[0].length, meter.units() * kGrainsOfUnit);
  EXPECT_EQ(whole.tracks[0].notes[0].at, (meter.units() - kUnitsOfEighth) * kGrainsOfUnit);
  const Piece piece = readGuitarPro(guitarPro7(made.score));
  EXPECT_EQ(piece.bars[0].length, kUnitsOfEighth * kGrainsOfUnit);
  EXPECT_EQ(piece.tracks[0].notes[0].at, 0);
}

/// A file of version 3 or 4 as its fields follow each other: one track, bars of two quarters.
class OldFile {
 public:
  explicit OldFile(int version) : m_version(version) {
    text(version == 3 ? "FICHIER GUITAR PRO v3.00" : "FICHIER GUITAR PRO v4.06", 30);
    sized("Old");
    sized("");
    sized("Band");
    for (int i = 0; i < 5; ++i) sized("");
    number(0);
    byte(1);  // triplet feel
    if (version == 4) zeros(44);
    number(90);
    zeros(version == 4 ? 5 : 4);
    for (int channel = 0; channel < 64; ++channel) {
      number(27);
      zeros(8);
    }
  }

  void track() {
    byte(0);
    text("Lead", 40);
    number(6);
    for (const int open : {64, 59, 55, 50, 45, 40, -1}) number(open);
    for (const int each : {1, 1, 2, 24, 2, 0}) number(each);  // with a capo at the second fret
  }

  /// What bends, grace notes and slides have: all flags of a note.
  void noteWithEffects(int fret) {
    for (const int each : {0x28, 1, fret}) byte(each);
    byte(0x17);
    if (m_version == 4) byte(0x7F);
    byte(1);
    number(100);
    number(1);
    zeros(9);  // one point
    zeros(4);  // the grace note
    if (m_version == 4) zeros(1 + 1 + 1 + 2);
  }

  void chord(const std::string& name) {
    if (m_version == 3) {
      byte(0);
      sized(name);
      number(1);
      for (int i = 0; i < 6; ++i) number(0);
      return;
    }
    byte(1);
    zeros(16);
    text(name, 22);
    zeros(67);
  }

  void mix(int tempo) {
    for (int i = 0; i < 7; ++i) byte(i == 1 ? 5 : -1);
    number(tempo);
    byte(0);
    byte(0);
    if (m_version == 4) byte(0);
  }

  /// All that a beat may have beside its notes.
  void beatEffects() {
    if (m_version == 3) {
      bytes({0x7F, 0});
      number(100);  // how far the bar goes
      zeros(2);     // strokes
      return;
    }
    bytes({0x72, 0x07, 1, 0});  // slapped; the bend of a bar
    number(100);
    number(1);
    zeros(9);
    zeros(2 + 1);  // strokes
  }

  void bytes(std::initializer_list<int> values) {
    for (const int value : values) byte(value);
  }
  void number(int value) {
    for (unsigned shift = 0; shift < 32; shift += 8)
      byte(static_cast<int>(static_cast<unsigned>(value) >> shift & 0xFFU));
  }
  const std::string& bytes() const { return m_bytes; }

 private:
  void byte(int value) { m_bytes += static_cast<char>(value); }
  void zeros(std::size_t count) { m_bytes.append(count, '\0'); }
  void text(const std::string& value, std::size_t room) {
    byte(static_cast<int>(value.size()));
    m_bytes += value;
    zeros(room - value.size());
  }
  void sized(const std::string& value) {
    number(static_cast<int>(value.size()) + 1);
    text(value, value.size());
  }

  int m_version;
  std::string m_bytes;
};

std::string oldFile(int version) {
  OldFile file(version);
  file.number(3);
  file.number(1);
  file.bytes({0x07, 2, 4});  // the repeat opens
  file.bytes({0x18, 1, 1});  // first ending, repeated once
  file.bytes({0x10, 2});     // second ending
  file.track();
  file.number(2);  // first bar: a quarter with a name on two strings
  file.bytes({0x02, 0});
  file.chord("Am7");
  file.bytes({0x60, 0x34, 1, 8, 3, 0x20, 1, 0});  // a ghost note, very loud
  file.bytes({0x00, 0, 0x40, 0x20, 3, 0});        // a dead note
  file.number(5);                                 // first ending: triplets and a rest of an eighth
  for (const int type : {1, 2, 1}) {
    file.bytes({0x20, 1});
    file.number(3);
    file.bytes({0x40, 0x20, type, 5});
  }
  file.bytes({0x40, 2, 1, 0});
  file.bytes({0x18, 1});
  file.beatEffects();
  file.mix(60);
  file.bytes({0x40});
  file.noteWithEffects(7);
  file.number(1);  // second ending: too long
  file.bytes({0x01, -1, 0x20, 0x20, 1, 1});
  return file.bytes();
}

TEST(GuitarPro, readsOlderVersionsAndPlaysRepeatsOut) {
  for (const int version : {3, 4}) {
    SCOPED_TRACE(version);
    const Piece piece = readGuitarPro(oldFile(version));
    EXPECT_EQ(piece.title + piece.artist, "OldBand");
    EXPECT_TRUE(piece.swing);
    ASSERT_EQ(piece.bars.size(), 4U);
    const Track& track = piece.tracks.at(0);
    EXPECT_EQ(track.program, 27);
    EXPECT_EQ(track.open, (std::vector<int>{40, 45, 50, 55, 59, 64}));
    constexpr std::int64_t quarter = kGrainsOfQuarter;
    const std::vector<Placed> expected{{0, 4, quarter, 0, 61},
                                       {0, 5, quarter, 3, 69},
                                       {2 * quarter, 5, quarter * 2 / 3, 5, 71},
                                       {2 * quarter + quarter * 2 / 3, 5, quarter / 3, 5, 71},
                                       {2 * quarter + quarter * 3 / 2, 5, quarter / 2, 7, 73},
                                       {4 * quarter, 4, quarter, 0, 61},
                                       {4 * quarter, 5, quarter, 3, 69},
                                       {6 * quarter, 4, 2 * quarter, 1, 62}};
    EXPECT_EQ(placed(track), expected);
    EXPECT_EQ(track.notes[1].velocity, 84);
    EXPECT_EQ(track.names, (std::vector<ChordName>{{0, "Am7"}}));
    const std::vector<Tempo> tempos{
        {0, 90}, {2 * quarter + quarter * 3 / 2, 60}, {4 * quarter, 90}, {6 * quarter, 60}};
    EXPECT_EQ(piece.tempos, tempos);
    std::string left;
    for (const auto& [what, count] : track.left) left += what + '=' + std::to_string(count) + ' ';
    EXPECT_EQ(left, std::string("bends=1 dead notes=1 fades=1 grace notes=1 hammer-ons and "
                                "pull-offs=1 harmonics=1 ") +
                        (version == 3
                             ? "slides=1 strokes=1 tremolo bars=1 vibratos=1 "
                             : "palm mutes=1 slides=1 staccatos=1 strokes=1 taps, slaps and pops=1 "
                               "tremolo bars=1 tremolo picking=1 trills=1 vibratos=2 "));
  }
}

/// A file of version 7 with a bar for each of these, in whose head they stand: the n-th one has the
/// n-th fret. The first beat has more in it, too.
std::string newerFile(const std::vector<std::string>& signs, const std::string& beat = "",
                      const std::string& note = "") {
  Score score;
  score.openStrings = {40, 45, 50, 55, 59, 64};
  for (int fret = 0; fret < std::ssize(signs); ++fret)
    score.bars.push_back(
        {.meter = {2, 4}, .events = {{2 * kUnitsOfQuarter, {{5, fret, 64 + fret}}, {}}}});
  std::string xml = *platform::ZipArchive(guitarPro7(score)).read("Content/score.gpif");
  std::size_t at = 0;
  const auto insert = [&](const std::string& behind, const std::string& more) {
    at = xml.find(behind, at) + behind.size();
    xml.insert(at, more);
  };
  for (const std::string& each : signs) insert("<MasterBar>", each);
  insert("<Dynamic>F</Dynamic>", beat);
  insert("<Note id=\"0\">", note);
  return platform::zipped(
      std::vector<platform::ZipEntry>{{"VERSION", "7.0", true}, {"Content/score.gpif", xml}});
}

TEST(GuitarPro, playsTheSignsOfNewerVersions) {
  const auto played = [](const std::vector<std::string>& signs) {
    const Piece piece = readGuitarPro(newerFile(signs));
    std::string frets;
    for (const Note& note : piece.tracks.at(0).notes) frets += std::to_string(note.fret);
    return frets + (piece.left.contains("directions") ? " and more" : "");
  };
  const auto sign = [](const std::string& kind, const std::string& name) {
    return "<Directions><" + kind + ">" + name + "</" + kind + "></Directions>";
  };
  const std::string opens = "<Repeat start=\"true\" end=\"false\" count=\"0\"/>";
  const std::string closes = "<Repeat start=\"false\" end=\"true\" count=\"3\"/>";
  const auto ending = [](const std::string& rounds) {
    return "<AlternateEndings>" + rounds + "</AlternateEndings>";
  };
  EXPECT_EQ(played({opens, ending("1 2") + closes, ending("3"), ""}),
            "01010"
            "23");
  EXPECT_EQ(played({"", sign("Target", "Segno"), sign("Jump", "DaCoda"),
                    sign("Jump", "DaSegnoAlCoda"), sign("Target", "Coda")}),
            "0123124");
  EXPECT_EQ(played({"", sign("Target", "Fine"), sign("Jump", "DaCapoAlFine"), ""}), "01201");
  EXPECT_EQ(played({"", sign("Jump", "DaCapo"), ""}), "01012");
  EXPECT_EQ(played({"", sign("Target", "DoubleCoda"), ""}), "012 and more");
}

TEST(GuitarPro, countsWhatItLeavesOfNewerVersions) {
  const auto left = [](const std::string& beat, const std::string& note) {
    const Piece piece = readGuitarPro(newerFile({"", ""}, beat, note));
    std::string text = std::to_string(piece.tracks.at(0).notes.size());
    for (const auto& [what, count] : piece.tracks[0].left)
      text += ' ' + what + '=' + std::to_string(count);
    return text;
  };
  EXPECT_EQ(left("<GraceNotes>OnBeat</GraceNotes>", ""), "1 grace notes=1");
  EXPECT_EQ(
      left("<FreeText>Oh</FreeText><Properties><Property name=\"Slapped\"><Enable/></Property>"
           "<Property name=\"Brush\"><Direction>Down</Direction></Property></Properties>",
           "<LetRing/><Accent>1</Accent>"),
      "2 let ring=1 staccatos=1 strokes=1 taps, slaps and pops=1 texts=1");
  EXPECT_EQ(left("", "<Properties><Property name=\"Muted\"><Enable/></Property></Properties>"),
            "1 notes without strings=1");
}

TEST(GuitarPro, saysWhatIsWrongWithDamagedFiles) {
  const Score score = RandomScore(1).score;
  for (const std::string& whole : {guitarPro5(score), guitarPro7(score), gpxOf(guitarPro7(score))})
    for (std::size_t size = 0; 10 * size < 9 * whole.size(); size += 1 + whole.size() / 200)
      EXPECT_THROW(readGuitarPro(whole.substr(0, size)), platform::UserError) << size;
  std::string older = guitarPro5(score);
  older[older.find("v5") + 1] = '2';
  EXPECT_THROW(readGuitarPro(older), platform::UserError);
}

}  // namespace
}  // namespace korvel::exchange
