// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/guitarpro/GpifReader.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <span>
#include <utility>

#include "exchange/guitarpro/Tonic.h"
#include "platform/text/UserError.h"

namespace korvel::exchange::guitarpro {
namespace {

using platform::phrase;
using Element = platform::XmlDocument::Element;

/// More references than any music has: few bytes can make as many as one likes.
constexpr std::size_t kMostNumbers = 3'000'000;
constexpr std::size_t kMostMasterBars = 10'000;
constexpr int kGuitarCapo = 60;

struct NoteLength {
  std::string_view name;
  double quarters;
};
constexpr NoteLength kNoteLengths[] = {{"Long", 16},       {"DoubleWhole", 8}, {"Whole", 4},
                                       {"Half", 2},        {"Quarter", 1},     {"Eighth", 0.5},
                                       {"16th", 0.25},     {"32nd", 0.125},    {"64th", 0.0625},
                                       {"128th", 0.03125}, {"256th", 0.015625}};

constexpr std::string_view kDynamics[] = {"PPP", "PP", "P", "MP", "MF", "F", "FF", "FFF"};

/// Signs of a note or beat that are not kept, by the element or property that says so.
struct LeftSign {
  std::string_view name;
  const char* what;
};
constexpr LeftSign kBeatElements[] = {{"Arpeggio", kStrokes},
                                      {"Fadding", kFades},
                                      {"FreeText", kTexts},
                                      {"Tremolo", kTremoloPicking},
                                      {"Whammy", kTremoloBars}};
constexpr LeftSign kBeatProperties[] = {{"Brush", kStrokes},
                                        {"Popped", kSlaps},
                                        {"Rasgueado", kStrokes},
                                        {"Slapped", kSlaps},
                                        {"VibratoWTremBar", kVibratos},
                                        {"WhammyBar", kTremoloBars}};
constexpr LeftSign kNoteElements[] = {
    {"LetRing", kLetRing}, {"Trill", kTrills}, {"Vibrato", kVibratos}};
constexpr LeftSign kNoteProperties[] = {{"Bended", kBends},        {"HarmonicType", kHarmonics},
                                        {"HopoOrigin", kLegatos},  {"LeftHandTapped", kSlaps},
                                        {"PalmMuted", kPalmMutes}, {"Slide", kSlides},
                                        {"Tapped", kSlaps}};

const char* leftFor(std::span<const LeftSign> signs, std::string_view name) {
  const auto found = std::ranges::find(signs, name, &LeftSign::name);
  return found == signs.end() ? nullptr : found->what;
}

Element property(const Element& element, std::string_view name) {
  for (const Element each : element.child("Properties").children())
    if (each.attribute("name") == name) return each;
  return {};
}

bool isEnabled(const Element& element, std::string_view name) {
  return property(element, name).has("Enable");
}

/// "3/4" and such.
std::optional<std::pair<int, int>> fractionOf(std::string_view text) {
  std::pair<int, int> fraction;
  const char* const end = text.data() + text.size();
  const auto first = std::from_chars(text.data(), end, fraction.first);
  if (first.ec != std::errc() || first.ptr == end || *first.ptr != '/') return std::nullopt;
  const auto second = std::from_chars(first.ptr + 1, end, fraction.second);
  if (second.ec != std::errc() || second.ptr != end) return std::nullopt;
  return fraction;
}

bool isMeter(int beats, int beatType) {
  return beats >= 1 && beats <= 64 && beatType >= 1 && beatType <= 64 &&
         (beatType & (beatType - 1)) == 0;
}

/// Beats a minute and what they are: 1 an eighth, 2 a quarter and so on.
std::optional<double> tempoOf(std::string_view text) {
  constexpr double kQuarters[] = {1, 0.5, 1, 1.5, 2, 3};
  constexpr double kFastest = 2000;
  double beats = 0;
  const char* const end = text.data() + text.size();
  const auto first = std::from_chars(text.data(), end, beats);
  std::size_t unit = 2;
  if (first.ec == std::errc() && first.ptr != end) std::from_chars(first.ptr + 1, end, unit);
  const double tempo = beats * kQuarters[std::min<std::size_t>(unit, 5)];
  if (first.ec != std::errc() || !(tempo >= 1 && tempo <= kFastest)) return std::nullopt;
  return tempo;
}

int velocityFor(const Element& beat) {
  const auto* const found = std::ranges::find(kDynamics, beat.child("Dynamic").text());
  return found == std::end(kDynamics)
             ? kUsualVelocity
             : velocityOf(static_cast<int>(found - std::begin(kDynamics)) + 1);
}

/// Tracks of versions 7 and 8 have their strings and bars by staff.
std::vector<Element> stavesOf(const Element& track) {
  std::vector<Element> staves;
  for (const Element staff : track.child("Staves").children())
    if (staff.is("Staff")) staves.push_back(staff);
  if (staves.empty()) staves.push_back(track);
  return staves;
}

int programOf(const Element& track) {
  const Element older = track.child("GeneralMidi").child("Program");
  const Element newer = track.child("Sounds").child("Sound").child("MIDI").child("Program");
  const int program = older.integer().value_or(newer.integer().value_or(-1));
  return program >= 0 && program <= 127 ? program : -1;
}

bool isDrums(const Element& track) {
  return track.child("InstrumentSet").child("Type").text() == "drumKit" ||
         track.child("GeneralMidi").attribute("table") == "Percussion";
}

BarSigns::Until untilOf(std::string_view jump) {
  if (jump.ends_with("AlFine")) return BarSigns::Until::fine;
  return jump.ends_with("AlCoda") ? BarSigns::Until::coda : BarSigns::Until::end;
}

}  // namespace

GpifReader::GpifReader(std::string_view xml)
    : m_document(xml),
      m_root(m_document.root()),
      m_barList(listOf("Bars")),
      m_voiceList(listOf("Voices")),
      m_beatList(listOf("Beats")),
      m_noteList(listOf("Notes")),
      m_rhythmList(listOf("Rhythms")) {}

GpifReader::List GpifReader::listOf(const char* name) const {
  List list;
  for (const Element each : m_root.child(name).children())
    if (const auto id = each.integerAttribute("id")) list.emplace(*id, each);
  return list;
}

std::vector<int> GpifReader::numbersOf(const Element& element) {
  std::vector<int> numbers;
  const std::string_view text = element.text();
  const char* place = text.data();
  const char* const end = place + text.size();
  while (place != end) {
    int number = 0;
    const auto read = std::from_chars(place, end, number);
    if (read.ec == std::errc()) numbers.push_back(number);
    place = read.ec == std::errc() ? read.ptr : place + 1;
    if (++m_numbers > kMostNumbers)
      throw platform::UserError(
          phrase("Exchange", "it has more notes than any music; nothing was read"));
  }
  return numbers;
}

TabSheet GpifReader::read() {
  if (!m_root.is("GPIF"))
    throw platform::UserError(phrase("Exchange", "it is no file of Guitar Pro"));
  readHead();
  readTracks();
  readBars();
  readTempos();
  return std::move(m_sheet);
}

void GpifReader::readHead() {
  const Element score = m_root.child("Score");
  m_sheet.head.title = score.child("Title").text();
  m_sheet.head.artist = score.child("Artist").text();
}

void GpifReader::readTracks() {
  const Element tracks = m_root.child("Tracks");
  List byNumber = listOf("Tracks");
  std::vector<Element> ordered;
  for (const int id : numbersOf(m_root.child("MasterTrack").child("Tracks")))
    if (const auto found = byNumber.find(id); found != byNumber.end()) {
      ordered.push_back(found->second);
      byNumber.erase(found);
    }
  if (ordered.empty())
    for (const Element track : tracks.children()) ordered.push_back(track);
  for (const Element& track : ordered) readTrack(track);
  if (m_sheet.tracks.empty()) throw platform::UserError(phrase("Exchange", "it has no tracks"));
}

void GpifReader::readTrack(const Element& element) {
  for (const Element& staff : stavesOf(element)) {
    if (m_sheet.tracks.size() >= kMostTracks)
      throw platform::UserError(phrase("Exchange", "it has more tracks than any music"));
    SheetTrack track;
    track.head.name = element.child("Name").text();
    track.head.program = programOf(element);
    track.head.isDrums = isDrums(element);
    ChordNames names;
    readProperties(element.child("Properties"), track.head, names);
    readProperties(staff.child("Properties"), track.head, names);
    m_sheet.tracks.push_back(std::move(track));
    m_names.push_back(std::move(names));
  }
}

void GpifReader::readProperties(const Element& properties, Track& head, ChordNames& names) {
  for (const Element each : properties.children()) {
    const std::string_view name = each.attribute("name");
    if (name == "Tuning") {
      head.open.clear();
      for (const int pitch : numbersOf(each.child("Pitches")))
        if (head.open.size() < kMostStrings) head.open.push_back(std::clamp(pitch, 0, 127));
    } else if (name == "CapoFret") {
      head.capo = std::clamp(each.child("Fret").integer().value_or(0), 0, kGuitarCapo);
      head.namesAreShapes = true;
    } else if (name == "DiagramCollection" || name == "ChordCollection") {
      for (const Element item : each.child("Items").children())
        if (const auto id = item.integerAttribute("id"))
          names.emplace(*id, chordNameOf(std::string(item.attribute("name"))));
    }
  }
}

void GpifReader::readBars() {
  for (const Element element : m_root.child("MasterBars").children()) {
    if (m_sheet.bars.size() >= kMostMasterBars)
      throw platform::UserError(
          phrase("Exchange", "it is larger than any music; nothing was read"));
    m_sheet.bars.push_back(masterBarOf(element));
    const std::vector<int> bars = numbersOf(element.child("Bars"));
    for (std::size_t i = 0; i < m_sheet.tracks.size(); ++i) {
      SheetTrack& track = m_sheet.tracks[i];
      m_left = &track.head.left;
      track.bars.push_back(sheetBarOf(i < bars.size() ? bars[i] : -1, m_names[i]));
    }
    m_left = &m_sheet.head.left;
  }
  if (m_sheet.bars.empty()) throw platform::UserError(phrase("Exchange", "it has no bars"));
  m_sheet.bars.front().isPickUp = m_root.child("MasterTrack").has("Anacrusis");
}

MasterBar GpifReader::masterBarOf(const Element& element) {
  MasterBar bar;
  if (!m_sheet.bars.empty()) {
    bar.beats = m_sheet.bars.back().beats;
    bar.beatType = m_sheet.bars.back().beatType;
  }
  const auto meter = fractionOf(element.child("Time").text());
  if (meter && isMeter(meter->first, meter->second))
    std::tie(bar.beats, bar.beatType) = *meter;
  else if (meter)
    throw platform::UserError(phrase("Exchange", "it is damaged: line %1 makes no sense"),
                              element.line());
  readSigns(element, bar.signs);
  if (!m_sheet.bars.empty()) return bar;
  const Element key = element.child("Key");
  const bool minor = key.child("Mode").text() == "Minor";
  if (const auto sharps = key.child("AccidentalCount").integer())
    m_sheet.head.key = keyOf(*sharps, minor);
  if (element.child("TripletFeel").text() == "Triplet8th") m_sheet.head.swing = 2.0 / 3;
  return bar;
}

void GpifReader::readSigns(const Element& element, BarSigns& signs) {
  const Element repeat = element.child("Repeat");
  signs.opensRepeat = repeat.attribute("start") == "true";
  if (repeat.attribute("end") == "true")
    signs.timesPlayed = std::clamp(repeat.integerAttribute("count").value_or(2), 2, 255);
  for (const int round : numbersOf(element.child("AlternateEndings")))
    if (round >= 1 && round <= 32) signs.endings |= 1U << static_cast<unsigned>(round - 1);
  readDirections(element.child("Directions"), signs);
}

void GpifReader::readDirections(const Element& directions, BarSigns& signs) {
  for (const Element each : directions.children()) {
    const std::string_view name = each.text();
    if (name == "Coda")
      signs.isCoda = true;
    else if (name == "Segno")
      signs.isSegno = true;
    else if (name == "Fine")
      signs.isFine = true;
    else if (name == "DaCoda")
      signs.isToCoda = true;
    else if (name.find("Double") != name.npos || name.find("SegnoSegno") != name.npos)
      leave(kDirections);
    else if (each.is("Jump")) {
      signs.jump = name.starts_with("DaSegno") ? BarSigns::Jump::dalSegno : BarSigns::Jump::daCapo;
      signs.until = untilOf(name);
    }
  }
}

void GpifReader::readTempos() {
  for (const Element each : m_root.child("MasterTrack").child("Automations").children()) {
    if (each.child("Type").text() != "Tempo") continue;
    const int number = each.child("Bar").integer().value_or(-1);
    const double place = each.child("Position").number().value_or(0);
    const auto tempo = tempoOf(each.child("Value").text());
    if (!tempo || number < 0 || number >= std::ssize(m_sheet.bars)) continue;
    MasterBar& bar = m_sheet.bars[static_cast<std::size_t>(number)];
    const bool isFirst = number == 0 && !(place > 0);
    if (isFirst) m_sheet.quartersAMinute = *tempo;
    if (!isFirst && place < 1) bar.tempos.push_back({std::max(place, 0.0) * bar.grains(), *tempo});
  }
}

SheetBar GpifReader::sheetBarOf(int bar, const ChordNames& names) {
  SheetBar voices;
  const auto found = m_barList.find(bar);
  if (found == m_barList.end()) return voices;
  for (const int voice : numbersOf(found->second.child("Voices")))
    if (voice >= 0 && voices.size() < kMostVoices) voices.push_back(sheetVoiceOf(voice, names));
  return voices;
}

SheetVoice GpifReader::sheetVoiceOf(int voice, const ChordNames& names) {
  SheetVoice beats;
  const auto found = m_voiceList.find(voice);
  if (found == m_voiceList.end()) return beats;
  for (const int number : numbersOf(found->second.child("Beats")))
    if (const auto beat = m_beatList.find(number); beat != m_beatList.end())
      readBeat(beat->second, names, beats);
  return beats;
}

void GpifReader::readBeat(const Element& element, const ChordNames& names, SheetVoice& voice) {
  const std::vector<int> notes = numbersOf(element.child("Notes"));
  if (element.has("GraceNotes")) {
    return leave(kGraceNotes, static_cast<int>(notes.size()));
  }
  SheetBeat beat;
  beat.grains = grainsOf(element.child("Rhythm"));
  if (const auto chord = element.child("Chord").integer())
    if (const auto name = names.find(*chord); name != names.end()) beat.chord = name->second;
  leaveOfBeat(element);
  const int velocity = velocityFor(element);
  for (const int number : notes)
    if (const auto note = m_noteList.find(number); note != m_noteList.end())
      readNote(note->second, velocity, beat);
  voice.push_back(std::move(beat));
}

double GpifReader::grainsOf(const Element& rhythm) const {
  constexpr int kMostOfTuplet = 64;
  constexpr int kMostDots = 4;
  const auto found = m_rhythmList.find(rhythm.integerAttribute("ref").value_or(-1));
  const Element sign = found == m_rhythmList.end() ? Element() : found->second;
  const auto* const length =
      std::ranges::find(kNoteLengths, sign.child("NoteValue").text(), &NoteLength::name);
  if (length == std::end(kNoteLengths))
    throw platform::UserError(phrase("Exchange", "it is damaged: a note has no length"));
  double grains = length->quarters * static_cast<double>(kGrainsOfQuarter);
  const int dots = sign.child("AugmentationDot").integerAttribute("count").value_or(0);
  double dotted = grains;
  for (int i = 0; i < std::min(dots, kMostDots); ++i) grains += dotted /= 2;
  for (const char* name : {"PrimaryTuplet", "SecondaryTuplet"}) {
    const Element tuplet = sign.child(name);
    const int played = tuplet.integerAttribute("num").value_or(1);
    const int written = tuplet.integerAttribute("den").value_or(1);
    if (played >= 1 && played <= kMostOfTuplet && written >= 1 && written <= kMostOfTuplet)
      grains = grains * written / played;
  }
  return grains;
}

void GpifReader::leaveOfBeat(const Element& element) {
  for (const Element each : element.children())
    if (const char* what = leftFor(kBeatElements, each.name())) leave(what);
  for (const Element each : element.child("Properties").children())
    if (const char* what = leftFor(kBeatProperties, each.attribute("name"))) leave(what);
}

void GpifReader::readNote(const Element& element, int velocity, SheetBeat& beat) {
  const auto string = property(element, "String").child("String").integer();
  const auto fret = property(element, "Fret").child("Fret").integer();
  if (!string || !fret || *string < 0 || *string >= kMostStrings)
    return leave(kNotesWithoutStrings);
  leaveOfNote(element);
  if (isEnabled(element, "Muted")) return leave(kDeadNotes);
  beat.notes.push_back({.string = *string,
                        .fret = std::clamp(*fret, 0, kHighestFret),
                        .velocity = element.has("AntiAccent") ? ghostly(velocity) : velocity,
                        .isTied = element.child("Tie").attribute("destination") == "true"});
}

void GpifReader::leaveOfNote(const Element& element) {
  for (const Element each : element.children())
    if (const char* what = leftFor(kNoteElements, each.name())) leave(what);
  for (const Element each : element.child("Properties").children())
    if (const char* what = leftFor(kNoteProperties, each.attribute("name"))) leave(what);
  constexpr int kShort = 1;
  if (element.child("Accent").integer().value_or(0) & kShort) leave(kStaccatos);
}

}  // namespace korvel::exchange::guitarpro
