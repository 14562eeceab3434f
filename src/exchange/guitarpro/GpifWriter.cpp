// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/guitarpro/GpifWriter.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "export/score/Spelling.h"
#include "platform/text/XmlWriter.h"

namespace korvel::exchange::guitarpro {
namespace {

constexpr const char* kSteelGuitar = "Steel Guitar";

/// The format's own name of a sign.
std::string noteValueOf(std::string_view type) {
  std::string name(type);
  if (name.front() >= 'a') name.front() = static_cast<char>(name.front() - 'a' + 'A');
  return name;
}

std::string tempoText(double tempo) {
  constexpr double kHundredths = 100;
  std::array<char, 32> text{};
  const double rounded = std::round(tempo * kHundredths) / kHundredths;
  const auto written = std::to_chars(text.data(), text.data() + text.size(), rounded);
  return std::string(text.data(), written.ptr) + " 2";
}

const char* accidentalOf(int alter) { return alter == 0 ? "" : alter < 0 ? "b" : "#"; }

/// Numbers one after the other, as the lists name their parts.
class Counted {
 public:
  std::string next(std::size_t count) {
    std::string numbers;
    for (std::size_t i = 0; i < count; ++i) {
      if (i > 0) numbers += ' ';
      numbers += std::to_string(m_next++);
    }
    return numbers;
  }

 private:
  std::size_t m_next = 0;
};

}  // namespace

GpifWriter::GpifWriter(const Score& score)
    : m_score(score),
      m_xml(std::make_unique<platform::XmlWriter>("GPIF")),
      m_names(score, score.capo) {}

GpifWriter::~GpifWriter() = default;

std::string GpifWriter::write() {
  const std::vector<WrittenBar> bars = writtenBars(m_score);
  for (const WrittenBar& bar : bars) gather(bar);
  writeHead();
  writeMasterTrack(bars);
  writeTrack();
  writeMasterBars(bars);
  writeBars();
  writeVoices();
  writeBeats();
  writeNotes();
  writeRhythms();
  return m_xml->finish();
}

void GpifWriter::gather(const WrittenBar& bar) {
  Bar voices{voiceOf(bar.notes, true)};
  if (!bar.lower.empty()) voices.push_back(voiceOf(bar.lower, false));
  m_bars.push_back(std::move(voices));
}

GpifWriter::Voice GpifWriter::voiceOf(const std::vector<ScoreNote>& notes, bool isUpper) {
  Voice voice;
  for (const ScoreNote& note : notes) {
    Beat beat{rhythmOf(note), {}, {}};
    if (const auto name = note.first && isUpper ? m_names.above(*note.event) : std::nullopt)
      beat.chord = diagramOf(*name, *note.event);
    for (const ScoreTone& tone : note.event->tones)
      beat.heads.push_back({&tone, !note.first || tone.tiedBefore, !note.last || tone.tiedOn});
    voice.push_back(std::move(beat));
  }
  return voice;
}

std::size_t GpifWriter::rhythmOf(const ScoreNote& note) {
  Rhythm rhythm{noteValueOf(note.value->type), note.value->dotted, note.tripletOf != nullptr};
  const auto found = std::ranges::find(m_rhythms, rhythm);
  const auto index = static_cast<std::size_t>(found - m_rhythms.begin());
  if (found == m_rhythms.end()) m_rhythms.push_back(std::move(rhythm));
  return index;
}

std::size_t GpifWriter::diagramOf(const std::string& name, const ScoreEvent& event) {
  const auto found = std::ranges::find(m_diagrams, name, &Diagram::name);
  const auto index = static_cast<std::size_t>(found - m_diagrams.begin());
  if (found == m_diagrams.end()) m_diagrams.push_back({name, &event});
  return index;
}

void GpifWriter::writeHead() {
  m_xml->add("GPVersion", 7);
  m_xml->add("GPRevision", 12021);
  {
    const auto encoding = m_xml->open("Encoding");
    m_xml->add("EncodingDescription", "GP7");
  }
  const auto score = m_xml->open("Score");
  m_xml->add("Title", m_score.title);
  for (const char* name :
       {"SubTitle", "Artist", "Album", "Words", "Music", "WordsAndMusic", "Copyright"})
    m_xml->add(name);
  m_xml->add("Tabber", m_score.program);
  for (const char* name : {"Instructions", "Notices", "FirstPageHeader", "FirstPageFooter",
                           "PageHeader", "PageFooter"})
    m_xml->add(name);
  m_xml->add("ScoreSystemsDefaultLayout", 4);
  m_xml->add("ScoreSystemsLayout", 4);
  m_xml->add("ScoreZoomPolicy", "Value");
  m_xml->add("ScoreZoom", 1);
  m_xml->add("MultiVoice", 1);
}

void GpifWriter::writeMasterTrack(const std::vector<WrittenBar>& bars) {
  const auto track = m_xml->open("MasterTrack");
  m_xml->add("Tracks", 0);
  {
    const auto automations = m_xml->open("Automations");
    writeTempo(0, bars.front().tempo.value_or(m_score.tempo));
    for (std::size_t i = 1; i < bars.size(); ++i)
      if (bars[i].tempo) writeTempo(i, *bars[i].tempo);
  }
  if (bars.front().pickUp > 0) m_xml->add("Anacrusis");
}

void GpifWriter::writeTempo(std::size_t bar, double tempo) {
  const auto automation = m_xml->open("Automation");
  m_xml->add("Type", "Tempo");
  m_xml->add("Linear", "false");
  m_xml->add("Bar", static_cast<int>(bar));
  m_xml->add("Position", 0);
  m_xml->add("Visible", bar == 0 ? "true" : "false");
  m_xml->add("Value", tempoText(tempo));
}

void GpifWriter::writeTrack() {
  const auto tracks = m_xml->open("Tracks");
  const auto track = m_xml->open("Track");
  m_xml->attribute("id", "0");
  m_xml->add("Name", m_score.instrument);
  m_xml->add("ShortName", "s.guit.");
  m_xml->add("Color", "235 152 125");
  m_xml->add("SystemsDefautLayout", 3);  // the format spells it like this
  m_xml->add("SystemsLayout", 1);
  m_xml->add("PalmMute", 0);
  m_xml->add("AutoAccentuation", 0);
  m_xml->add("PlayingStyle", "StringedPick");
  m_xml->add("UseOneChannelPerString");
  m_xml->add("IconId", 1);
  writeSound();
  const auto staves = m_xml->open("Staves");
  const auto staff = m_xml->open("Staff");
  writeStaff();
}

void GpifWriter::writeSound() {
  {
    const auto set = m_xml->open("InstrumentSet");
    m_xml->add("Name", kSteelGuitar);
    m_xml->add("Type", "steelGuitar");
    m_xml->add("LineCount", 5);
  }
  {
    const auto transpose = m_xml->open("Transpose");
    m_xml->add("Chromatic", 0);
    m_xml->add("Octave", -1);
  }
  m_xml->add("ForcedSound", -1);
  {
    const auto sounds = m_xml->open("Sounds");
    const auto sound = m_xml->open("Sound");
    m_xml->add("Name", kSteelGuitar);
    m_xml->add("Label", kSteelGuitar);
    m_xml->add("Path", "Stringed/Acoustic Guitars/Steel Guitar");
    m_xml->add("Role", "Factory");
    const auto midi = m_xml->open("MIDI");
    m_xml->add("LSB", 0);
    m_xml->add("MSB", 0);
    m_xml->add("Program", 25);
  }
  {
    const auto connection = m_xml->open("MidiConnection");
    m_xml->add("Port", 0);
    m_xml->add("PrimaryChannel", 0);
    m_xml->add("SecondaryChannel", 1);
    m_xml->add("ForeOneChannelPerString", "false");  // likewise
  }
  m_xml->add("PlaybackState", "Default");
  m_xml->add("AudioEngineState", "MIDI");
}

void GpifWriter::writeStaff() {
  const auto properties = m_xml->open("Properties");
  writeNumber("CapoFret", "Fret", m_score.capo);
  writeNumber("FretCount", "Number", 24);
  {
    const auto tuning = m_xml->open("Property");
    m_xml->attribute("name", "Tuning");
    std::string pitches;
    for (const int pitch : m_score.openStrings)
      pitches += (pitches.empty() ? "" : " ") + std::to_string(pitch);
    m_xml->add("Pitches", pitches);
    m_xml->add("Instrument", "Guitar");
    m_xml->add("Label");
    m_xml->add("LabelVisible", "true");
  }
  writeDiagrams();
}

void GpifWriter::writeDiagrams() {
  for (const char* name : {"ChordCollection", "ChordWorkingSet", "DiagramWorkingSet"}) {
    const auto property = m_xml->open("Property");
    m_xml->attribute("name", name);
    m_xml->add("Items");
  }
  const auto property = m_xml->open("Property");
  m_xml->attribute("name", "DiagramCollection");
  const auto items = m_xml->open("Items");
  for (std::size_t id = 0; id < m_diagrams.size(); ++id) writeDiagram(id, m_diagrams[id]);
}

/// With the tones of the chord, where there are enough to be a diagram.
void GpifWriter::writeDiagram(std::size_t id, const Diagram& diagram) {
  constexpr std::size_t kFewestTones = 3;
  const auto& tones = diagram.event->tones;
  const auto item = m_xml->open("Item");
  m_xml->attribute("id", std::to_string(id));
  m_xml->attribute("name", diagram.name);
  const auto shape = m_xml->open("Diagram");
  m_xml->attribute("stringCount", std::to_string(m_score.openStrings.size()));
  m_xml->attribute("fretCount", "5");
  m_xml->attribute("baseFret", "0");
  m_xml->attribute("barsStates", "1 1 1 1 1");
  if (tones.size() < kFewestTones) return;
  for (const ScoreTone& tone : tones) {
    const auto fret = m_xml->open("Fret");
    m_xml->attribute("string", std::to_string(tone.string));
    m_xml->attribute("fret", std::to_string(m_score.fretBehindCapo(tone)));
  }
}

void GpifWriter::writeMasterBars(const std::vector<WrittenBar>& bars) {
  const auto masterBars = m_xml->open("MasterBars");
  int number = 0;
  for (const WrittenBar& bar : bars) {
    const auto masterBar = m_xml->open("MasterBar");
    {
      const auto key = m_xml->open("Key");
      m_xml->add("AccidentalCount", m_score.key ? fifthsOf(*m_score.key) : 0);
      m_xml->add("Mode", m_score.key && m_score.key->minor ? "Minor" : "Major");
      m_xml->add("TransposeAs", "Sharps");
    }
    m_xml->add("Time", std::to_string(bar.meter.beats) + "/" + std::to_string(bar.meter.beatType));
    if (m_score.swing) m_xml->add("TripletFeel", "Triplet8th");
    m_xml->add("Bars", number++);
  }
}

void GpifWriter::writeBars() {
  constexpr std::size_t kVoices = 4;
  const auto bars = m_xml->open("Bars");
  Counted voices;
  for (std::size_t id = 0; id < m_bars.size(); ++id) {
    const auto bar = m_xml->open("Bar");
    m_xml->attribute("id", std::to_string(id));
    m_xml->add("Clef", "G2");
    std::string numbers = voices.next(m_bars[id].size());
    for (std::size_t i = m_bars[id].size(); i < kVoices; ++i) numbers += " -1";
    m_xml->add("Voices", numbers);
  }
}

void GpifWriter::writeVoices() {
  const auto voices = m_xml->open("Voices");
  Counted beats;
  int id = 0;
  for (const Bar& bar : m_bars)
    for (const Voice& each : bar) {
      const auto voice = m_xml->open("Voice");
      m_xml->attribute("id", std::to_string(id++));
      m_xml->add("Beats", beats.next(each.size()));
    }
}

void GpifWriter::writeBeats() {
  const auto beats = m_xml->open("Beats");
  Counted notes;
  int id = 0;
  for (const Bar& bar : m_bars)
    for (const Voice& voice : bar)
      for (const Beat& each : voice) {
        const auto beat = m_xml->open("Beat");
        m_xml->attribute("id", std::to_string(id++));
        m_xml->add("Dynamic", "F");
        {
          const auto rhythm = m_xml->open("Rhythm");
          m_xml->attribute("ref", std::to_string(each.rhythm));
        }
        if (each.chord) m_xml->add("Chord", static_cast<int>(*each.chord));
        if (!each.heads.empty()) m_xml->add("Notes", notes.next(each.heads.size()));
      }
}

void GpifWriter::writeNotes() {
  const auto notes = m_xml->open("Notes");
  std::size_t id = 0;
  for (const Bar& bar : m_bars)
    for (const Voice& voice : bar)
      for (const Beat& beat : voice)
        for (const Head& head : beat.heads) writeNote(id++, head);
}

void GpifWriter::writeNote(std::size_t id, const Head& head) {
  constexpr int kOctave = 12;  // guitars are notated that much higher
  const auto note = m_xml->open("Note");
  m_xml->attribute("id", std::to_string(id));
  m_xml->add("InstrumentArticulation", 0);
  if (head.isTiedBefore || head.isTiedOn) {
    const auto tie = m_xml->open("Tie");
    m_xml->attribute("origin", head.isTiedOn ? "true" : "false");
    m_xml->attribute("destination", head.isTiedBefore ? "true" : "false");
  }
  const auto properties = m_xml->open("Properties");
  writePitch("ConcertPitch", head.tone->pitch);
  writeNumber("Fret", "Fret", m_score.fretBehindCapo(*head.tone));
  writeNumber("Midi", "Number", head.tone->pitch);
  writeNumber("String", "String", head.tone->string);
  writePitch("TransposedPitch", head.tone->pitch + kOctave);
}

void GpifWriter::writePitch(const char* name, int pitch) {
  const SpelledNote note = spelled(pitch, nullptr, m_score.key ? &*m_score.key : nullptr);
  const auto property = m_xml->open("Property");
  m_xml->attribute("name", name);
  const auto element = m_xml->open("Pitch");
  m_xml->add("Step", std::string_view(&note.step, 1));
  m_xml->add("Accidental", accidentalOf(note.alter));
  m_xml->add("Octave", note.octave);
}

void GpifWriter::writeRhythms() {
  const auto rhythms = m_xml->open("Rhythms");
  int id = 0;
  for (const auto& [value, isDotted, isTriplet] : m_rhythms) {
    const auto rhythm = m_xml->open("Rhythm");
    m_xml->attribute("id", std::to_string(id++));
    m_xml->add("NoteValue", value);
    if (isDotted) {
      const auto dot = m_xml->open("AugmentationDot");
      m_xml->attribute("count", "1");
    }
    if (!isTriplet) continue;
    const auto tuplet = m_xml->open("PrimaryTuplet");
    m_xml->attribute("num", "3");
    m_xml->attribute("den", "2");
  }
}

void GpifWriter::writeNumber(const char* property, const char* element, int number) {
  const auto opened = m_xml->open("Property");
  m_xml->attribute("name", property);
  m_xml->add(element, number);
}

}  // namespace korvel::exchange::guitarpro
