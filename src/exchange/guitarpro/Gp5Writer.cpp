// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/guitarpro/Gp5Writer.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

#include "export/score/Spelling.h"
#include "music/Pitch.h"
#include "platform/text/Utf8.h"

namespace korvel::exchange::guitarpro {
namespace {

constexpr std::size_t kFileStrings = 7;
constexpr std::size_t kFileNameRoom = 40;
constexpr std::size_t kFileChordRoom = 22;
constexpr std::size_t kLongestText = 250;
constexpr int kSteelStrings = 25;
constexpr int kUnchanged = -1;

/// The sign of a length as the file counts them: 0 is a quarter, 1 an eighth.
int signOf(std::string_view type) {
  constexpr std::string_view kSigns[] = {"whole", "half", "quarter", "eighth",
                                         "16th",  "32nd", "64th"};
  return static_cast<int>(std::ranges::find(kSigns, type) - std::begin(kSigns)) - 2;
}

int wholeTempo(double tempo) { return std::clamp(static_cast<int>(std::lround(tempo)), 1, 2000); }

/// As much of a text as a field has room for, in whole characters.
std::string fitted(std::string_view text, std::size_t room) {
  std::string fit;
  for (const std::string& letter : platform::characters(platform::printable(text)))
    if (fit.size() + letter.size() > room)
      break;
    else
      fit += letter;
  return fit;
}

/// The format knows no shorter first bar.
Score withWholePickUp(Score score) {
  for (ScoreBar& bar : score.bars) {
    if (bar.pickUp == 0) continue;
    const ScoreEvent rest{bar.meter.units() - bar.pickUp, {}, {}};
    bar.events.insert(bar.events.begin(), rest);
    if (!bar.lower.empty()) bar.lower.insert(bar.lower.begin(), rest);
    bar.pickUp = 0;
  }
  return score;
}

template <class Act>
void forEachPlace(std::span<const ScoreNote> notes, const Act& act) {
  int place = 0;
  for (const ScoreNote& note : notes) {
    act(place, note);
    place += note.value->units;
  }
}

bool isStruckAt(int wanted, std::span<const ScoreNote> notes) {
  bool isStruck = false;
  forEachPlace(notes, [&](int place, const ScoreNote& note) {
    isStruck = isStruck || (place == wanted && note.first && !note.event->tones.empty());
  });
  return isStruck;
}

}  // namespace

Gp5Writer::Gp5Writer(const Score& score) : m_score(score), m_names(score, score.capo) {
  if (score.openStrings.empty() || score.openStrings.size() > kFileStrings)
    throw std::invalid_argument("the format has one to seven strings");
}

std::string Gp5Writer::write() {
  const Score whole = withWholePickUp(m_score);
  const std::vector<WrittenBar> bars = writtenBars(whole);
  text("FICHIER GUITAR PRO v5.10", 30);
  writeInformation();
  writePage();
  writeTempo();
  writeChannels();
  bytes(std::size_t{2} * 19, 0xFF);  // no directions
  number(0);                         // no reverb
  number(static_cast<int>(bars.size()));
  number(1);  // one track
  writeBarHeads(bars);
  writeTrack();
  for (const WrittenBar& bar : bars) writeBar(bar);
  return std::move(m_out);
}

void Gp5Writer::writeInformation() {
  sizedText(m_score.title);
  // Subtitle, artist, album, words, music, copyright.
  for (int i = 0; i < 6; ++i) sizedText("");
  sizedText(m_score.program);
  sizedText("");  // instructions
  number(0);      // no notices
  number(0);      // lyrics are of no track
  for (int line = 0; line < 5; ++line) {
    number(1);
    number(0);
  }
}

void Gp5Writer::writePage() {
  constexpr int kLoudnessOfAll = 100;
  number(kLoudnessOfAll);
  number(0);
  bytes(11, 0);  // the equaliser
  for (const int millimetres : {210, 297, 10, 10, 15, 10}) number(millimetres);
  number(100);  // the size of signs
  byte(0xFF);   // all lines of the head are shown
  byte(0x01);
  for (const char* line : {"%TITLE%", "%SUBTITLE%", "%ARTIST%", "%ALBUM%", "Words by %WORDS%",
                           "Music by %MUSIC%", "Words & Music by %WORDSMUSIC%",
                           "Copyright %COPYRIGHT%", "All Rights Reserved", "Page %N%/%P%"})
    sizedText(line);
}

void Gp5Writer::writeTempo() {
  sizedText("");
  number(wholeTempo(m_score.tempo));
  byte(0);  // it is shown
  byte(m_score.key ? fifthsOf(*m_score.key) : 0);
  number(0);
}

void Gp5Writer::writeChannels() {
  for (int channel = 0; channel < 64; ++channel) {
    constexpr int kDrums = 9;
    number(channel % 16 == kDrums ? 0 : kSteelStrings);
    byte(13);  // loudness, and the middle between left and right
    byte(8);
    bytes(6, 0);
  }
}

void Gp5Writer::writeBarHeads(std::span<const WrittenBar> bars) {
  for (const WrittenBar& bar : bars) writeBarHead(bar);
}

void Gp5Writer::writeBarHead(const WrittenBar& bar) {
  const bool isFirst = !m_meter;
  const bool isNew = m_meter != bar.meter;
  m_meter = bar.meter;
  if (!isFirst) byte(0);
  byte((isNew ? 0x03 : 0) | (isFirst ? 0x40 : 0));
  if (isNew) {
    byte(bar.meter.beats);
    byte(bar.meter.beatType);
  }
  if (isFirst) {
    byte(m_score.key ? fifthsOf(*m_score.key) : 0);
    byte(m_score.key && m_score.key->minor ? 1 : 0);
  }
  if (isNew) bytes(4, bar.meter.isCompound() ? 3 : 2);  // eighths that have a beam
  byte(0);                                              // no ending
  byte(m_score.swing ? 1 : 0);
}

void Gp5Writer::writeTrack() {
  byte(0);
  byte(0x08);  // it is visible
  text(m_score.instrument, kFileNameRoom);
  const auto& open = m_score.openStrings;
  number(static_cast<int>(open.size()));
  for (std::size_t i = 0; i < kFileStrings; ++i)
    number(i < open.size() ? open[open.size() - 1 - i] : -1);
  number(1);  // port and channels
  number(1);
  number(2);
  number(24);  // frets
  number(m_score.capo);
  number(0xFF);
  byte(0x03);  // tablature and notation are shown
  bytes(4, 0);
  for (const int each : {0, 0, 100}) number(each);
  for (const int each : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 0xFF, 3}) byte(each);
  for (const int each : {-1, 0, -1, -1}) number(each);  // no sound of its own
  bytes(4, 0);
  sizedText("");
  sizedText("");
  byte(0);
}

void Gp5Writer::writeBar(const WrittenBar& bar) {
  NamesOfBar above = namesOf(bar);
  // Some programs lose the name of a rest: it goes to what is struck below.
  NamesOfBar below;
  forEachPlace(bar.notes, [&](int place, const ScoreNote& rest) {
    const bool isRest = rest.event->tones.empty();
    if (isRest && above.contains(place) && isStruckAt(place, bar.lower))
      below.insert(above.extract(place));
  });
  // Some programs miss the tempo of a single bar unless it stands in that, too.
  const bool isFirst = std::exchange(m_isFirstBar, false);
  writeVoice(bar.notes, isFirst ? bar.tempo.value_or(m_score.tempo) : bar.tempo, above);
  writeVoice(bar.lower, std::nullopt, below);
  byte(0);  // no line break
}

Gp5Writer::NamesOfBar Gp5Writer::namesOf(const WrittenBar& bar) {
  NamesOfBar names;
  forEachPlace(bar.notes, [&](int place, const ScoreNote& note) {
    if (!note.first) return;
    if (auto name = m_names.above(*note.event)) names.emplace(place, *std::move(name));
  });
  return names;
}

void Gp5Writer::writeVoice(std::span<const ScoreNote> notes, std::optional<double> tempo,
                           const NamesOfBar& names) {
  const std::vector<NumberedSign> beats = numberedSigns(notes);
  number(std::max(static_cast<int>(beats.size()), 1));
  int place = 0;
  for (const NumberedSign& beat : beats) {
    const auto name = names.find(place);
    writeBeat(beat, tempo, name == names.end() ? nullptr : &name->second);
    tempo.reset();
    place += beat.sign.value->units;
  }
  if (!beats.empty()) return;
  byte(0x40);   // a silent voice has one beat that is empty
  bytes(3, 0);  // which it is as a quarter, on no string
  bytes(2, 0);
}

void Gp5Writer::writeBeat(const NumberedSign& beat, std::optional<double> tempo,
                          const std::string* name) {
  const ScoreNote& note = beat.sign;
  const ScoreEvent& event = *note.event;
  const bool isRest = event.tones.empty();
  byte((note.value->dotted ? 0x01 : 0) | (name ? 0x02 : 0) | (tempo ? 0x10 : 0) |
       (beat.tuplet ? 0x20 : 0) | (isRest ? 0x40 : 0));
  if (isRest) byte(2);
  byte(signOf(note.value->type));
  if (beat.tuplet) number(beat.tuplet);
  if (name) writeChord(*name, event);
  if (tempo) writeMix(*tempo);
  writeNotes(note);
  bytes(2, 0);
}

/// A diagram with the tones that are struck below the name: some programs drop a name without one.
void Gp5Writer::writeChord(const std::string& name, const ScoreEvent& event) {
  byte(1);  // of the newer kind
  byte(1);  // with sharps
  bytes(3, 0);
  byte(event.harmony ? pitchClass(event.harmony->root - m_score.capo) : 0);
  bytes(2, 0);  // type and extension
  number(-1);   // the bass
  number(0);    // pure tones
  byte(0);      // none is added
  text(name, kFileChordRoom);
  bytes(3, 0);
  number(1);  // the fret at the top
  std::array<int, kFileStrings> frets;
  frets.fill(-1);
  for (const ScoreTone& tone : event.tones)
    frets[m_score.openStrings.size() - 1 - static_cast<std::size_t>(tone.string)] =
        m_score.fretBehindCapo(tone);
  for (const int fret : frets) number(fret);
  bytes(16, 0);  // nothing lies across
  bytes(7, 1);   // no tone is left out
  byte(0);
  bytes(7, -2);  // fingers are not known
  byte(0);
}

void Gp5Writer::writeMix(double tempo) {
  byte(kUnchanged);
  for (int i = 0; i < 4; ++i) number(kUnchanged);
  bytes(6, kUnchanged);
  sizedText("");
  number(wholeTempo(tempo));
  byte(0);  // at once
  byte(1);  // not printed
  byte(0);
  byte(kUnchanged);
  sizedText("");
  sizedText("");
}

void Gp5Writer::writeNotes(const ScoreNote& note) {
  const auto& tones = note.event->tones;
  const int strings = static_cast<int>(m_score.openStrings.size());
  unsigned played = 0;
  for (const ScoreTone& tone : tones)
    played |= 1U << static_cast<unsigned>(7 - strings + tone.string);
  byte(static_cast<int>(played));
  // The highest string comes first.
  for (auto tone = tones.rbegin(); tone != tones.rend(); ++tone) {
    byte(0x20);
    byte(!note.first || tone->tiedBefore ? 2 : 1);
    byte(m_score.fretBehindCapo(*tone));
    byte(0);
  }
}

void Gp5Writer::number(int value) {
  for (unsigned shift = 0; shift < 32; shift += 8)
    byte(static_cast<int>(static_cast<unsigned>(value) >> shift & 0xFFU));
}

void Gp5Writer::text(std::string_view value, std::size_t room) {
  const std::string fit = fitted(value, room);
  byte(static_cast<int>(fit.size()));
  m_out += fit;
  bytes(room - fit.size(), 0);
}

void Gp5Writer::sizedText(std::string_view value) {
  const std::string fit = fitted(value, kLongestText);
  number(static_cast<int>(fit.size()) + 1);
  byte(static_cast<int>(fit.size()));
  m_out += fit;
}

}  // namespace korvel::exchange::guitarpro
