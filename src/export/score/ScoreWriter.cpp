// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/score/ScoreWriter.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "export/score/HarmonyKind.h"
#include "export/score/NoteValues.h"
#include "export/score/Spelling.h"
#include "platform/text/XmlWriter.h"

namespace korvel {
namespace {

constexpr const char* kPart = "P1";
constexpr const char* kInstrument = "P1-I1";
constexpr int kMidiProgram = 26;  // counted from 1: acoustic guitar with steel strings

/// With two decimals, whatever the user's locale.
std::string textOf(double tempo) {
  const long hundredths = std::lround(tempo * 100);
  const long rest = hundredths % 100;
  return std::to_string(hundredths / 100) + (rest < 10 ? ".0" : ".") + std::to_string(rest);
}

void addRoot(platform::XmlWriter& xml, const SpelledNote& name) {
  const auto root = xml.open("root");
  xml.add("root-step", std::string_view(&name.step, 1));
  if (name.alter) xml.add("root-alter", name.alter);
}

void addDegree(platform::XmlWriter& xml, const HarmonyDegree& degree, bool printed) {
  const auto element = xml.open("degree");
  if (!printed) xml.attribute("print-object", "no");
  xml.add("degree-value", degree.value);
  xml.add("degree-alter", degree.alter);
  const auto type = xml.open("degree-type");
  xml.attribute("text", degree.text);
  xml.text(degree.type);
}

/// All lengths are whole in divisions of the quarter, of which there are four if that is enough.
int unitsOfDivision(const std::vector<WrittenBar>& bars) {
  const auto isInSixteenths = [](const ScoreNote& note) {
    return note.value->units % kUnitsOfSixteenth == 0;
  };
  const auto areInSixteenths = [&](const WrittenBar& bar) {
    return std::ranges::all_of(bar.notes, isInSixteenths) &&
           std::ranges::all_of(bar.lower, isInSixteenths);
  };
  return std::ranges::all_of(bars, areInSixteenths) ? kUnitsOfSixteenth : 1;
}

/// The ratio of small numbers that is within a hundredth of a share, such as 2 to 1 for 0.66.
std::pair<int, int> ratioOf(double share) {
  constexpr double kNear = 0.01;
  for (int whole = 2; whole < 50; ++whole) {
    const int first = static_cast<int>(std::lround(share * whole));
    if (first < whole && std::abs(share - static_cast<double>(first) / whole) <= kNear)
      return {first, whole - first};
  }
  return {1, 1};
}

}  // namespace

ScoreWriter::ScoreWriter(const Score& score)
    : m_score(score),
      m_xml(std::make_unique<platform::XmlWriter>("score-partwise",
                                                  "-//Recordare//DTD MusicXML 4.0 Partwise//EN",
                                                  "http://www.musicxml.org/dtds/partwise.dtd")) {}

ScoreWriter::~ScoreWriter() = default;

std::string ScoreWriter::write() {
  m_xml->attribute("version", "4.0");
  writeHead();
  writePartList();
  writePart();
  return m_xml->finish();
}

void ScoreWriter::writeHead() {
  {
    const auto work = m_xml->open("work");
    m_xml->add("work-title", m_score.title);
  }
  const auto identification = m_xml->open("identification");
  const auto encoding = m_xml->open("encoding");
  m_xml->add("software", m_score.program);
  m_xml->add("encoding-date", m_score.date);
}

void ScoreWriter::writePartList() {
  const auto list = m_xml->open("part-list");
  const auto part = m_xml->open("score-part");
  m_xml->attribute("id", kPart);
  m_xml->add("part-name", m_score.instrument);
  {
    const auto instrument = m_xml->open("score-instrument");
    m_xml->attribute("id", kInstrument);
    m_xml->add("instrument-name", m_score.instrument);
    m_xml->add("instrument-sound", "pluck.guitar.steel-string");
  }
  const auto midi = m_xml->open("midi-instrument");
  m_xml->attribute("id", kInstrument);
  m_xml->add("midi-channel", 1);
  m_xml->add("midi-program", kMidiProgram);
}

void ScoreWriter::writePart() {
  const auto part = m_xml->open("part");
  m_xml->attribute("id", kPart);
  const std::vector<WrittenBar> bars = writtenBars(m_score);
  m_unitsOfDivision = unitsOfDivision(bars);
  for (const WrittenBar& bar : bars) writeBar(bar);
}

void ScoreWriter::writeBar(const WrittenBar& bar) {
  const auto measure = m_xml->open("measure");
  m_xml->attribute("number", std::to_string(bar.pickUp ? m_bar : ++m_bar));
  if (bar.pickUp) m_xml->attribute("implicit", "yes");
  const bool start = !m_meter;
  if (m_meter != bar.meter) writeAttributes(bar.meter);
  if (start)
    writeTempo(bar.tempo.value_or(m_score.tempo));
  else if (bar.tempo)
    writeTempoChange(*bar.tempo);
  if (start && m_score.swing) writeSwing();
  if (start && bar.pickUp) m_beginOfBar = -bar.pickUp;
  m_unit = m_beginOfBar;
  m_beginOfBar += bar.pickUp ? bar.pickUp : bar.meter.units();
  for (const ScoreNote& note : bar.notes) {
    writeSign(note);
    m_unit += note.value->units;
  }
  if (!bar.lower.empty()) writeLower(bar);
}

void ScoreWriter::writeLower(const WrittenBar& bar) {
  {
    const auto backup = m_xml->open("backup");
    m_xml->add("duration", (bar.pickUp ? bar.pickUp : bar.meter.units()) / m_unitsOfDivision);
  }
  m_voice = Voice::lower;
  for (const ScoreNote& note : bar.lower) writeSign(note);
  m_voice = Voice::upper;
}

void ScoreWriter::writeAttributes(const Meter& meter) {
  const auto attributes = m_xml->open("attributes");
  const bool start = !m_meter;
  m_meter = meter;
  if (start) {
    m_xml->add("divisions", kUnitsOfQuarter / m_unitsOfDivision);
    writeKey();
  }
  {
    const auto time = m_xml->open("time");
    m_xml->add("beats", meter.beats);
    m_xml->add("beat-type", meter.beatType);
  }
  if (start) writeStaff();
}

void ScoreWriter::writeKey() {
  const auto key = m_xml->open("key");
  m_xml->add("fifths", m_score.key ? fifthsOf(*m_score.key) : 0);
  if (m_score.key) m_xml->add("mode", m_score.key->minor ? "minor" : "major");
}

void ScoreWriter::writeStaff() {
  {
    const auto clef = m_xml->open("clef");
    m_xml->add("sign", "TAB");
    m_xml->add("line", 5);
  }
  const auto details = m_xml->open("staff-details");
  m_xml->add("staff-lines", static_cast<int>(m_score.openStrings.size()));
  int line = 0;  // from the bottom, where the lowest string is
  for (const int pitch : m_score.openStrings) {
    const SpelledNote open = spelled(pitch);
    const auto tuning = m_xml->open("staff-tuning");
    m_xml->attribute("line", std::to_string(++line));
    m_xml->add("tuning-step", std::string_view(&open.step, 1));
    if (open.alter) m_xml->add("tuning-alter", open.alter);
    m_xml->add("tuning-octave", open.octave);
  }
  if (m_score.capo > 0) m_xml->add("capo", m_score.capo);
}

void ScoreWriter::writeTempo(double tempo) {
  constexpr double kQuartersOfDottedOne = 1.5;
  const bool dotted = m_score.countsBeats && m_meter->isCompound();
  const auto direction = m_xml->open("direction");
  m_xml->attribute("placement", "above");
  {
    const auto type = m_xml->open("direction-type");
    const auto metronome = m_xml->open("metronome");
    m_xml->add("beat-unit", "quarter");
    if (dotted) m_xml->add("beat-unit-dot");
    const double beats = dotted ? tempo / kQuartersOfDottedOne : tempo;
    m_xml->add("per-minute", std::to_string(std::lround(beats)));
  }
  writeSound(tempo);
}

/// What is played but not printed: a direction, as some programs misread a sound without one.
void ScoreWriter::writeTempoChange(double tempo) {
  const auto direction = m_xml->open("direction");
  {
    const auto type = m_xml->open("direction-type");
    m_xml->add("words");
  }
  writeSound(tempo);
}

void ScoreWriter::writeSound(double tempo) {
  const auto sound = m_xml->open("sound");
  m_xml->attribute("tempo", textOf(tempo));
}

void ScoreWriter::writeSwing() {
  const auto direction = m_xml->open("direction");
  m_xml->attribute("placement", "above");
  {
    const auto type = m_xml->open("direction-type");
    m_xml->add("words", "Swing");
  }
  const auto sound = m_xml->open("sound");
  const auto swing = m_xml->open("swing");
  const auto [first, second] = ratioOf(*m_score.swing);
  m_xml->add("first", first);
  m_xml->add("second", second);
  m_xml->add("swing-type", "eighth");
}

SpelledNote ScoreWriter::spelledIn(int pitch, const std::optional<ScoreHarmony>& harmony) const {
  return spelled(pitch, harmony ? &*harmony : nullptr, m_score.key ? &*m_score.key : nullptr);
}

// A name counts until the next one; a chord without a name ends it.
void ScoreWriter::writeHarmony(const ScoreEvent& event) {
  if ((event.tones.empty() && !event.harmony) || event.harmony == m_harmony) return;
  m_harmony = event.harmony;
  if (!m_harmony) return;
  const HarmonyKind known = harmonyKindOf(m_harmony->type);
  const auto harmony = m_xml->open("harmony");
  addRoot(*m_xml, spelledIn(m_harmony->root, std::nullopt));
  {
    const auto kind = m_xml->open("kind");
    if (!known.text.empty()) m_xml->attribute("text", known.text);
    m_xml->text(known.kind);
  }
  for (const HarmonyDegree& degree : known.degrees)
    addDegree(*m_xml, degree, known.text != m_harmony->type);
}

void ScoreWriter::writeSign(const ScoreNote& note) {
  const auto& tones = note.event->tones;
  if (note.first && m_voice == Voice::upper) writeHarmony(*note.event);
  if (tones.empty()) writeNote(note, nullptr, true);
  for (const ScoreTone& tone : tones) writeNote(note, &tone, &tone == &tones.front());
}

void ScoreWriter::writeNote(const ScoreNote& note, const ScoreTone* tone, bool first) {
  const auto element = m_xml->open("note");
  if (!tone && m_voice == Voice::lower) m_xml->attribute("print-object", "no");
  if (!first) m_xml->add("chord");
  if (tone)
    writePitch(spelledIn(tone->pitch, note.event->harmony));
  else
    m_xml->add("rest");
  m_xml->add("duration", note.value->units / m_unitsOfDivision);
  if (tone) writeTies("tie", note, *tone);
  writeValue(note);
  writeNotations(note, tone, first);
  if (tone && first && m_voice == Voice::upper) writeWords(note, *tone);
}

void ScoreWriter::writeTies(const char* name, const ScoreNote& note, const ScoreTone& tone) {
  const auto writeTie = [&](const char* type) {
    const auto tie = m_xml->open(name);
    m_xml->attribute("type", type);
  };
  if (!note.first || tone.tiedBefore) writeTie("stop");
  if (!note.last || tone.tiedOn) writeTie("start");
}

void ScoreWriter::writePitch(const SpelledNote& pitch) {
  const auto element = m_xml->open("pitch");
  m_xml->add("step", std::string_view(&pitch.step, 1));
  if (pitch.alter) m_xml->add("alter", pitch.alter);
  m_xml->add("octave", pitch.octave);
}

void ScoreWriter::writeValue(const ScoreNote& note) {
  m_xml->add("voice", static_cast<int>(m_voice));
  m_xml->add("type", note.value->type);
  if (note.value->dotted) m_xml->add("dot");
  if (!note.tripletOf) return;
  const auto time = m_xml->open("time-modification");
  m_xml->add("actual-notes", 3);
  m_xml->add("normal-notes", 2);
  m_xml->add("normal-type", note.tripletOf);
}

void ScoreWriter::writeNotations(const ScoreNote& note, const ScoreTone* tone, bool first) {
  const bool bounds = first && (note.opensTriplet || note.closesTriplet);
  if (!tone && !bounds) return;
  const auto notations = m_xml->open("notations");
  if (tone) writeTies("tied", note, *tone);
  if (first && note.opensTriplet) writeTriplet("start");
  if (first && note.closesTriplet) writeTriplet("stop");
  if (!tone) return;
  const auto technical = m_xml->open("technical");
  const int strings = static_cast<int>(m_score.openStrings.size());
  m_xml->add("string", strings - tone->string);  // from the top
  m_xml->add("fret", m_score.fretBehindCapo(*tone));
}

void ScoreWriter::writeWords(const ScoreNote& note, const ScoreTone& tone) {
  if (!note.first || tone.tiedBefore) return;
  std::string text;
  const int end = m_unit + note.event->duration;
  for (; m_words < m_score.words.size() && m_score.words[m_words].unit < end; ++m_words)
    text += (text.empty() ? "" : " ") + m_score.words[m_words].text;
  if (text.empty()) return;
  const bool goesOn = text.size() > 1 && text.ends_with('-') && text[text.size() - 2] != ' ';
  if (goesOn) text.pop_back();
  const bool wentOn = std::exchange(m_isInWord, goesOn);
  const auto lyric = m_xml->open("lyric");
  m_xml->add("syllabic", wentOn ? (goesOn ? "middle" : "end") : (goesOn ? "begin" : "single"));
  m_xml->add("text", text);
}

void ScoreWriter::writeTriplet(const char* type) {
  const auto tuplet = m_xml->open("tuplet");
  m_xml->attribute("type", type);
  m_xml->attribute("number", std::to_string(static_cast<int>(m_voice)));
}

}  // namespace korvel
