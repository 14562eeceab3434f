// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/musicxml/MusicXmlReader.h"

#include <gtest/gtest.h>

#include <random>

#include "exchange/PieceText.h"
#include "exchange/musicxml/CompressedMusicXml.h"
#include "export/score/ScoreWriter.h"
#include "platform/files/ZipArchive.h"
#include "platform/text/UserError.h"

namespace korvel::exchange {
namespace {

/// Notes such as "E4 2", a pitch and its divisions, of which a quarter has two; a rest is "r 2".
/// More of a note stands behind a colon: "E4 2:<chord/>".
std::string notes(std::string_view line) {
  std::string xml;
  while (!line.empty()) {
    const std::string_view note = line.substr(0, line.find(", "));
    line.remove_prefix(std::min(note.size() + 2, line.size()));
    const std::size_t blank = note.find(' ');
    const std::size_t colon = std::min(note.find(':'), note.size());
    const std::string_view pitch = note.substr(0, blank);
    const std::string more(note.substr(std::min(colon + 1, note.size())));
    xml += "<note>" + more;
    if (pitch == "r")
      xml += "<rest/>";
    else
      xml.append("<pitch><step>").append(pitch.substr(0, 1)).append("</step><octave>") +=
          std::string(pitch.substr(1)) + "</octave></pitch>";
    xml.append("<duration>").append(note.substr(blank + 1, colon - blank - 1)) +=
        "</duration></note>";
  }
  return xml;
}

std::string measures(std::initializer_list<std::string> all) {
  std::string xml;
  for (const std::string& each : all) {
    const bool isImplicit = each.starts_with("implicit ");
    xml += isImplicit ? "<measure implicit='yes'>" + each.substr(9) : "<measure>" + each;
    xml += "</measure>";
  }
  return xml;
}

std::string document(const std::string& content, const std::string& head = "") {
  return "<score-partwise>" + head +
         "<part-list><score-part id='P'><part-name>Gt</part-name></score-part></part-list>"
         "<part id='P'>" +
         content + "</part></score-partwise>";
}

std::string attributes(const std::string& more = "") {
  return "<attributes><divisions>2</divisions><time><beats>2</beats><beat-type>4</beat-type></"
         "time>" +
         more + "</attributes>";
}

std::string repeat(const std::string& direction) {
  return "<barline><repeat direction='" + direction + "'/></barline>";
}

std::string ending(const std::string& number, const std::string& type) {
  return "<barline><ending number='" + number + "' type='" + type + "'/></barline>";
}

std::string place(int string, int fret) {
  return "<notations><technical><string>" + std::to_string(string) + "</string><fret>" +
         std::to_string(fret) + "</fret></technical></notations>";
}

std::string read(const std::string& xml) {
  try {
    return test::textOf(readMusicXml(xml));
  } catch (const platform::UserError& error) {
    return error.what();
  }
}

TEST(MusicXmlReaderTest, readsNotesOfVoicesChordsAndTies) {
  const std::string tie = ":<tie type='start'/>";
  EXPECT_EQ(
      read(document(
          measures({"implicit " + attributes("<key><fifths>-1</fifths><mode>minor</mode></key>") +
                        "<sound tempo='90'/>" + notes("C4 1"),
                    notes("E4 1, r 1, G4 2" + tie) + "<backup><duration>4</duration></backup>" +
                        notes("C3 4, E3 4:<chord/>, A4 1:<grace/>"),
                    notes("G4 1:<tie type='stop'/>, C5 0.5, C5 0.5, B4 2:<chord/>") +
                        "<direction><sound tempo='60'/></direction>" + notes("D4 2:<cue/>")}),
          "<work><work-title> Air </work-title></work><identification><creator type='composer'>X"
          "</creator></identification>")),
      "Air by X key 2m | 0+0.5 2/4 0.5+2 2/4 2.5+2 2/4 | 0=90 3.5=60\n"
      "Gt p-1 | 0+0.5 60 0.5+2 48 0.5+2 52 0.5+0.5 64 1.5+1.5 67 3+0.25 72 3.25+1 71 "
      "3.25+0.25 72 | left 1 cue notes | left 1 grace notes\n");
}

TEST(MusicXmlReaderTest, playsRepeatsEndingsAndJumps) {
  const auto played = [](std::initializer_list<std::string> all) {
    const Piece piece = readMusicXml(document(measures(all)));
    std::string letters;
    for (const Note& note : piece.tracks.at(0).notes) letters += "C.D.EF.G.A.B"[note.pitch % 12];
    return letters + " " + std::to_string(piece.bars.size());
  };
  const std::string sound = "<direction><direction-type><words>";
  EXPECT_EQ(
      played({attributes() + notes("C4 4"), repeat("forward") + notes("D4 4"),
              ending("1, 2", "start") + notes("E4 4") + repeat("backward") + ending("1, 2", "stop"),
              ending("3", "start") + notes("F4 4") + ending("3", "discontinue"), notes("G4 4")}),
      "CDEDEDFG 8");
  EXPECT_EQ(played({attributes() + notes("C4 4"), "<sound segno='s'/>" + notes("D4 4"),
                    notes("E4 4") + "<sound tocoda='c'/>", notes("F4 4") + "<sound dalsegno='s'/>",
                    "<sound coda='c'/>" + notes("G4 4")}),
            "CDEFDEG 7");
  EXPECT_EQ(played({attributes() + notes("C4 4") + "<sound fine='yes'/>", notes("D4 4"),
                    notes("E4 4") + sound +
                        "D.C. al Fine</words></direction-type>"
                        "<sound dacapo='yes'/></direction>"}),
            "CDEC 4");
  // A repeat from the middle of a bar to the middle of one: halves make whole bars.
  EXPECT_EQ(
      played({"implicit " + attributes() + repeat("forward") + notes("C4 2"), notes("D4 4"),
              notes("E4 2") + repeat("backward"), "implicit " + notes("F4 2"), notes("G4 4")}),
      "CDECDEFG 6");
}

/// A metronome's sign counts where no sound says more.
TEST(MusicXmlReaderTest, readsTempoSwingAndLoudnessAsProgramsTellThem) {
  const auto metronome = [](const std::string& sign, const std::string& number) {
    return "<direction><direction-type><metronome>" + sign + "<per-minute>" + number +
           "</per-minute></metronome></direction-type></direction>";
  };
  const std::string swing =
      "<sound><swing><first>2</first><second>1</second><swing-type>eighth"
      "</swing-type></swing></sound>";
  EXPECT_EQ(
      read(document(measures(
          {attributes() + metronome("<beat-unit>quarter</beat-unit><beat-unit-dot/>", "ca. 60") +
               swing + notes("C4 2"),
           metronome("<beat-unit>eighth</beat-unit>", "100") + "<sound tempo='70' dynamics='50'/>" +
               notes("D4 2") + metronome("<beat-unit>breve</beat-unit>", "100") +
               "<forward><duration>1</duration></forward><note dynamics='100'><pitch><step>E</step>"
               "<octave>4</octave></pitch><duration>1</duration></note>"}))),
      " swing 0.666667 | 0+1 2/4 1+2 2/4 | 0=90 1=70\n"
      "Gt p-1 | 0+1 60 1+1 62 v45 2.5+0.5 64 v90\n");
  const std::string other =
      "<sound><swing><first>3</first><second>1</second></swing></sound><attributes><key><fifths>2"
      "</fifths><mode>major</mode></key></attributes>";
  EXPECT_EQ(read(document(measures({attributes("<key><fifths>1</fifths><mode>major</mode></key>") +
                                        swing + notes("C4 4"),
                                    other + notes("C4 4:<notehead>x</notehead>")}))),
            " key 7 swing 0.666667 | 0+2 2/4 2+2 2/4 | 0=120 | left 1 changes of key | left 1 "
            "changes of swing\nGt p-1 | 0+2 60 | left 1 dead notes\n");
}

TEST(MusicXmlReaderTest, readsDrumsAndPartsBarByBar) {
  const std::string list =
      "<part-list><score-part id='P'><part-name>Kit</part-name><score-instrument id='I'/>"
      "<midi-instrument id='I'><midi-channel>10</midi-channel><midi-unpitched>39</midi-unpitched>"
      "</midi-instrument></score-part><score-part id='Q'><part-name>Gt</part-name></score-part>"
      "</part-list>";
  const std::string drums =
      "<note><unpitched><display-step>F</display-step><display-octave>4</display-octave>"
      "</unpitched><duration>2</duration><instrument id='I'/></note><note><unpitched><display-step>"
      "F</display-step><display-octave>4</display-octave></unpitched><duration>2</duration></note>";
  const std::string first = attributes() + drums;
  const std::string guitar = attributes() + notes("E4 4");
  const std::string byPart = "<score-partwise>" + list + "<part id='P'>" +
                             measures({first, drums}) + "</part><part id='Q'>" +
                             measures({guitar, notes("G4 4")}) + "</part></score-partwise>";
  const std::string byBar =
      "<score-timewise>" + list + "<measure><part id='P'>" + first + "</part><part id='Q'>" +
      guitar + "</part></measure><measure><part id='P'>" + drums + "</part><part id='Q'>" +
      notes("G4 4") + "</part></measure></score-timewise>";
  EXPECT_EQ(read(byPart),
            " | 0+2 2/4 2+2 2/4 | 0=120\nKit p-1 drums | 0+1 38 1+1 65 2+1 38 3+1 65\n"
            "Gt p-1 | 0+2 64 2+2 67\n");
  EXPECT_EQ(read(byBar), read(byPart));
}

TEST(MusicXmlReaderTest, takesPlacesOnTheNeckFromTheStaffThatHasThem) {
  const auto staff = [](int number) { return "<staff>" + std::to_string(number) + "</staff>"; };
  const std::string tuning = [] {
    std::string xml = "<staff-details number='2'><staff-lines>6</staff-lines>";
    const char* kOpen[] = {"D2", "A2", "D3", "G3", "B3", "E4"};
    for (int line = 1; line <= 6; ++line)
      xml += "<staff-tuning line='" + std::to_string(line) + "'><tuning-step>" +
             kOpen[line - 1][0] + "</tuning-step><tuning-octave>" + kOpen[line - 1][1] +
             "</tuning-octave></staff-tuning>";
    return xml + "<capo>2</capo></staff-details>";
  }();
  // Written an octave higher than it sounds; the tablature says where.
  const std::string octave =
      "<transpose><chromatic>0</chromatic><octave-change>-1</octave-change>"
      "</transpose>";
  EXPECT_EQ(read(document(measures(
                {attributes(octave + tuning) + notes("E3 2:" + staff(1) + ", B4 2:" + staff(1)) +
                 "<backup><duration>4</duration></backup>" +
                 notes("E3 2:" + staff(2) + place(6, 0) + ", B4 2:" + staff(2) + place(3, 2))}))),
            " | 0+2 2/4 | 0=120\nGt p-1 open 38 45 50 55 59 64 capo 2 | 0+1 40:0/0 1+1 59:3/2\n");
  // The end of a tie may be written on another string.
  EXPECT_EQ(
      read(document(measures({attributes() + notes("A2 2:<tie type='start'/>" + place(6, 5) +
                                                   ", A2 2:<tie type='stop'/>" + place(5, 0))}))),
      " | 0+2 2/4 | 0=120\nGt p-1 open 40 45 50 55 59 64 capo 0 | 0+2 45:0/5\n");
  // Without a tuning the notes tell it.
  EXPECT_EQ(read(document(
                measures({attributes() + notes("D2 2:" + place(6, 0) + ", C3 2:" + place(5, 3))}))),
            " | 0+2 2/4 | 0=120\nGt p-1 open 38 45 50 55 59 64 capo 0 | 0+1 38:0/0 1+1 48:1/3\n");
}

TEST(MusicXmlReaderTest, namesChordsAsPlayersDo) {
  const auto nameOf = [](const std::string& harmony) {
    const Piece piece = readMusicXml(
        document(measures({attributes() + "<harmony>" + harmony + "</harmony>" + notes("C4 4")})));
    const auto& names = piece.tracks.at(0).names;
    return names.empty() ? "none" : names[0].text;
  };
  const std::string root = "<root><root-step>F</root-step><root-alter>1</root-alter></root>";
  const auto degree = [](const std::string& value, const std::string& alter,
                         const std::string& type) {
    return "<degree><degree-value>" + value + "</degree-value><degree-alter>" + alter +
           "</degree-alter><degree-type>" + type + "</degree-type></degree>";
  };
  EXPECT_EQ(nameOf(root + "<kind>minor-seventh</kind><bass><bass-step>C</bass-step><bass-alter>1"
                          "</bass-alter></bass>"),
            "F#m7/C#");
  EXPECT_EQ(nameOf(root + "<kind>major</kind>" + degree("5", "-1", "alter")), "F#(b5)");
  EXPECT_EQ(nameOf(root + "<kind>dominant</kind>" + degree("9", "1", "add")), "F#7#9");
  EXPECT_EQ(nameOf(root + "<kind>suspended-fourth</kind>" + degree("7", "0", "add") +
                   degree("9", "0", "add")),
            "F#9sus4");
  EXPECT_EQ(nameOf(root + "<kind text='6/9'>other</kind>"), "F#6/9");
  EXPECT_EQ(nameOf("<kind>none</kind>"), "");
  EXPECT_EQ(nameOf("<function>V</function><kind>dominant</kind>"), "none");
}

TEST(MusicXmlReaderTest, readsTheScoreThatAnArchiveNames) {
  const std::string score = document(measures({attributes() + notes("C4 4")}));
  EXPECT_EQ(test::textOf(readCompressedMusicXml(compressedMusicXml(score))), read(score));
  const auto readArchive = [](const std::vector<platform::ZipEntry>& entries) {
    try {
      return test::textOf(readCompressedMusicXml(platform::zipped(entries)));
    } catch (const platform::UserError& error) {
      return std::string(error.what());
    }
  };
  EXPECT_EQ(readArchive({{"a.png", "picture"}, {"b.xml", score}}), read(score));
  EXPECT_EQ(
      readArchive({{"META-INF/container.xml",
                    "<container><rootfiles><rootfile full-path='c'/></rootfiles></container>"},
                   {"b.xml", score}}),
      "there is no score in its archive");
}

TEST(MusicXmlReaderTest, refusesWhatIsNoMusic) {
  EXPECT_EQ(read("<opus/>"), "it is no MusicXML score");
  EXPECT_EQ(read("<score-partwise/>"), " | | 0=120\n");
  EXPECT_EQ(read(document(measures({attributes() + notes("C4 99999999999")}))),
            "its duration in line 1 cannot be read");
  EXPECT_EQ(read(document(measures({"<attributes><divisions>0</divisions></attributes>"}))),
            "its divisions in line 1 cannot be read");
  EXPECT_EQ(read(document(measures({attributes("<time><beats>4</beats><beat-type>5</beat-type>"
                                               "</time>")}))),
            "its time signature in line 1 cannot be read");
}

/// A score of bars that are full of signs, triplets, ties and names, another one for each seed.
class RandomScore {
 public:
  explicit RandomScore(unsigned seed) : m_random(seed) {
    static const Meter kMeters[] = {{4, 4}, {3, 4}, {6, 8}, {12, 8}, {5, 4}};
    score.title = "Song " + std::to_string(seed);
    score.openStrings = seed % 3 == 0 ? std::vector<int>{38, 45, 50, 55, 57, 62}
                                      : std::vector<int>{40, 45, 50, 55, 59, 64};
    score.capo = seed % 4 == 1 ? 2 : 0;
    score.tempo = 60 + below(120);
    if (below(2)) score.key = ScoreKey{7 * below(2), false};
    const Meter meter = kMeters[seed % std::size(kMeters)];
    for (int i = 0; i < 12; ++i) addBar(meter, i == 0 && below(2) ? kUnitsOfEighth : 0);
  }

  Score score{};
  std::vector<Note> notes{};
  std::vector<ChordName> names{};

 private:
  static constexpr std::int64_t kGrainsOfUnit = kGrainsOfQuarter / kUnitsOfQuarter;

  int below(int most) { return static_cast<int>(m_random() % static_cast<unsigned>(most)); }

  void addBar(const Meter& meter, int pickUp) {
    ScoreBar bar{meter, {}, {}, pickUp, {}};
    const int length = pickUp ? pickUp : meter.units();
    for (int at = 0; at < length;) {
      const bool isTriplet = !meter.isCompound() && at % kUnitsOfQuarter == 0 &&
                             at + kUnitsOfQuarter <= length && below(4) == 0;
      for (int i = 0; i < (isTriplet ? 3 : 1); ++i) {
        const int some = isTriplet ? 8 : std::min(3 * (1 + below(12)), length - at);
        addEvent(bar, some);
        at += some;
      }
    }
    score.bars.push_back(std::move(bar));
  }

  void addEvent(ScoreBar& bar, int duration) {
    ScoreEvent event{duration, {}, {}};
    for (int string = 0; string < 6; ++string) {
      if (below(3)) continue;
      const int fret = below(13);
      const int fromNut = fret + score.capo;
      const int pitch = score.openStrings[static_cast<std::size_t>(string)] + fromNut;
      event.tones.push_back({string, fromNut, pitch});
      notes.push_back({m_at, duration * kGrainsOfUnit, pitch, string, fret, 0});
    }
    if (!event.tones.empty() && below(2)) addName(event);
    if (!event.tones.empty() && !event.harmony) event.harmony = m_last;
    m_at += duration * kGrainsOfUnit;
    bar.events.push_back(std::move(event));
  }

  void addName(ScoreEvent& event) {
    static const char* const kTypes[] = {"",     "m",    "7",     "m7",  "maj7", "7sus4", "add9",
                                         "m7b5", "dim7", "madd9", "7b5", "9",    "7b9",   "13"};
    static const char* const kRoots[] = {"C", "G", "D", "A", "E"};
    constexpr int kPitches[] = {0, 7, 2, 9, 4};
    const int root = below(5);
    const char* type = kTypes[below(std::size(kTypes))];
    event.harmony = ScoreHarmony{kPitches[root], type};
    if (event.harmony != m_last) names.push_back({m_at, std::string(kRoots[root]) + type});
    m_last = event.harmony;
  }

  std::mt19937 m_random;
  std::int64_t m_at = 0;
  std::optional<ScoreHarmony> m_last{};
};

TEST(MusicXmlReaderTest, readsBackWhatIsWritten) {
  for (unsigned seed = 0; seed < 300; ++seed) {
    RandomScore random(seed);
    const Piece piece = readMusicXml(ScoreWriter(random.score).write());
    const Track& track = piece.tracks.at(0);
    std::ranges::stable_sort(random.notes, {},
                             [](const Note& note) { return std::pair(note.at, note.pitch); });
    ASSERT_EQ(track.notes, random.notes) << seed;
    ASSERT_EQ(track.names, random.names) << seed;
    ASSERT_EQ(track.open, random.score.openStrings);
    ASSERT_EQ(track.capo, random.score.capo);
    ASSERT_EQ(piece.bars.size(), random.score.bars.size());
    ASSERT_EQ(
        piece.bars.front().length<piece.bars.back().length, random.score.bars.front().pickUp> 0);
    ASSERT_EQ(piece.key.has_value(), random.score.key.has_value());
    ASSERT_EQ(piece.tempos, std::vector<Tempo>({{0, random.score.tempo}}));
  }
}

}  // namespace
}  // namespace korvel::exchange
