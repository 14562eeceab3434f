// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/score/ScoreWriter.h"

#include <cmath>

#include "export/score/HarmonyKind.h"
#include "export/score/NoteValues.h"
#include "export/score/Spelling.h"
#include "music/ChordStep.h"
#include "platform/text/XmlWriter.h"

namespace korvel {
namespace {

constexpr const char* kPart = "P1";
constexpr const char* kInstrument = "P1-I1";
constexpr int kMidiProgram = 26;  // counted from 1: acoustic guitar with steel strings
constexpr int kGuitarVoice = 1;

/// With two decimals, whatever the user's locale.
std::string textOf(double tempo) {
  const long hundredths = std::lround(tempo * 100);
  const long rest = hundredths % 100;
  return std::to_string(hundredths / 100) + (rest < 10 ? ".0" : ".") + std::to_string(rest);
}

void addRoot(platform::XmlWriter& xml, int pitchClass) {
  const auto root = xml.open("root");
  const SpelledNote name = spelled(pitchClass);
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
  {
    const auto part = m_xml->open("part");
    m_xml->attribute("id", kPart);
    for (const WrittenBar& bar : writtenBars(m_score)) writeBar(bar);
  }
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

void ScoreWriter::writeBar(const WrittenBar& bar) {
  const auto measure = m_xml->open("measure");
  m_xml->attribute("number", std::to_string(++m_bar));
  if (m_meter != bar.meter) writeAttributes(bar.meter);
  if (m_bar == 1) writeTempo();
  for (const ScoreNote& note : bar.notes) writeSign(note);
}

void ScoreWriter::writeAttributes(const Meter& meter) {
  const auto attributes = m_xml->open("attributes");
  const bool start = !m_meter;
  m_meter = meter;
  if (start) {
    m_xml->add("divisions", kSixteenthsOfQuarter);
    const auto key = m_xml->open("key");
    m_xml->add("fifths", 0);
  }
  {
    const auto time = m_xml->open("time");
    m_xml->add("beats", meter.beats);
    m_xml->add("beat-type", meter.beatType);
  }
  if (start) writeStaff();
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
}

void ScoreWriter::writeTempo() {
  const std::string tempo = textOf(m_score.tempo);
  const auto direction = m_xml->open("direction");
  m_xml->attribute("placement", "above");
  {
    const auto type = m_xml->open("direction-type");
    const auto metronome = m_xml->open("metronome");
    m_xml->add("beat-unit", "quarter");
    m_xml->add("per-minute", tempo);
  }
  const auto sound = m_xml->open("sound");
  m_xml->attribute("tempo", tempo);
}

// A name counts until the next one; a chord without a name ends it.
void ScoreWriter::writeHarmony(const ScoreEvent& event) {
  if (event.tones.empty() || event.harmony == m_harmony) return;
  m_harmony = event.harmony;
  if (!m_harmony) return;
  const HarmonyKind known = harmonyKindOf(m_harmony->type);
  const auto harmony = m_xml->open("harmony");
  addRoot(*m_xml, m_harmony->root);
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
  if (note.first) writeHarmony(*note.event);
  if (tones.empty()) writeNote(note, nullptr, true);
  for (const ScoreTone& tone : tones) writeNote(note, &tone, &tone == &tones.front());
}

void ScoreWriter::writeNote(const ScoreNote& note, const ScoreTone* tone, bool first) {
  const auto element = m_xml->open("note");
  if (!first) m_xml->add("chord");
  if (tone)
    writePitch(spelled(tone->pitch, note.event->harmony ? &*note.event->harmony : nullptr));
  else
    m_xml->add("rest");
  m_xml->add("duration", note.value->sixteenths);
  if (tone) writeTies("tie", note);
  writeValue(note);
  if (tone) writeNotations(note, *tone);
}

void ScoreWriter::writeTies(const char* name, const ScoreNote& note) {
  const auto writeTie = [&](const char* type) {
    const auto tie = m_xml->open(name);
    m_xml->attribute("type", type);
  };
  if (!note.first) writeTie("stop");
  if (!note.last) writeTie("start");
}

void ScoreWriter::writePitch(const SpelledNote& pitch) {
  const auto element = m_xml->open("pitch");
  m_xml->add("step", std::string_view(&pitch.step, 1));
  if (pitch.alter) m_xml->add("alter", pitch.alter);
  m_xml->add("octave", pitch.octave);
}

void ScoreWriter::writeValue(const ScoreNote& note) {
  m_xml->add("voice", kGuitarVoice);
  m_xml->add("type", note.value->type);
  if (note.value->dotted) m_xml->add("dot");
}

void ScoreWriter::writeNotations(const ScoreNote& note, const ScoreTone& tone) {
  const auto notations = m_xml->open("notations");
  writeTies("tied", note);
  const auto technical = m_xml->open("technical");
  m_xml->add("string", static_cast<int>(m_score.openStrings.size()) - tone.string);  // from the top
  m_xml->add("fret", tone.fret);
}

}  // namespace korvel
