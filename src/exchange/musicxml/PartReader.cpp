// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/musicxml/PartReader.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "exchange/musicxml/HarmonyName.h"
#include "music/Pitch.h"
#include "platform/text/UserError.h"

namespace korvel::exchange {

namespace {

using Element = platform::XmlDocument::Element;

constexpr double kMostDivisions = 1'000'000;
constexpr double kLongestInQuarters = 4096;
constexpr int kMostStaves = 16;
constexpr int kMostStaffLines = 12;
constexpr int kMostFrets = 48;

/// Of elements of one name the first one counts.
void takeFirst(Element& first, const Element& each) {
  if (!first) first = each;
}

/// A MIDI number; none where it says no note. prefix: such as "display-".
std::optional<int> pitchOf(const Element& element, std::string_view prefix) {
  constexpr int kSteps[] = {9, 11, 0, 2, 4, 5, 7};  // from A on
  Element stepThere;
  Element octaveThere;
  Element alterThere;
  for (const Element& each : element.children()) {
    std::string_view name = each.name();
    if (!name.starts_with(prefix)) continue;
    name.remove_prefix(prefix.size());
    if (name == "step") takeFirst(stepThere, each);
    if (name == "octave") takeFirst(octaveThere, each);
    if (name == "alter") takeFirst(alterThere, each);
  }
  const std::string_view step = stepThere.text();
  const auto octave = octaveThere.integer();
  if (step.size() != 1 || step[0] < 'A' || step[0] > 'G' || !octave || *octave < -1 || *octave > 10)
    return std::nullopt;
  const double alter = std::clamp(alterThere.number().value_or(0), -3.0, 3.0);
  return (*octave + 1) * kNotesPerOctave + kSteps[step[0] - 'A'] +
         static_cast<int>(std::lround(alter));
}

/// What says whether and where a note sounds.
struct NoteKind {
  explicit NoteKind(const Element& note) {
    for (const Element& each : note.children()) {
      if (each.is("duration")) takeFirst(duration, each);
      isGrace = isGrace || each.is("grace");
      isChord = isChord || each.is("chord");
      isRest = isRest || each.is("rest");
      isCue = isCue || each.is("cue");
    }
  }

  Element duration;
  bool isGrace = false;
  bool isChord = false;  ///< Begins with the note before.
  bool isRest = false;
  bool isCue = false;
};

int numberOf(const Element& element, int most) {
  return std::clamp(element.integerAttribute("number").value_or(1), 1, most);
}

bool isOf(const Element& element, std::string_view type) {
  return element.attribute("type") == type;
}

/// What is not kept of a note, by the element that says it.
const char* leftOf(std::string_view element) {
  static const std::map<std::string_view, const char*> kLeft{
      {"bend", "bends"},
      {"hammer-on", "hammer-ons and pull-offs"},
      {"pull-off", "hammer-ons and pull-offs"},
      {"slide", "slides"},
      {"glissando", "slides"},
      {"harmonic", "harmonics"},
      {"tap", "tapped notes"},
      {"ornaments", "ornaments"},
      {"arpeggiate", "arpeggios"},
  };
  const auto found = kLeft.find(element);
  return found == kLeft.end() ? nullptr : found->second;
}

}  // namespace

PartReader::PartReader(WrittenScore& score, Track track, DrumPitches drums)
    : m_score(score), m_track(std::move(track)), m_drums(std::move(drums)), m_signs(score) {}

void PartReader::read(const Element& measure, const Element& content) {
  m_signs.beginMeasure(measure);
  m_measures.emplace_back();
  m_from = 0;
  m_divisionsOn = 0;
  m_chordAt = 0;
  std::int64_t end = 0;
  for (const Element& each : content.children()) {
    if (each.is("note"))
      readNote(each);
    else if (each.is("backup"))
      move(-durationOf(each, each.child("duration")));
    else if (each.is("forward"))
      move(durationOf(each, each.child("duration")));
    else if (each.is("attributes"))
      readAttributes(each);
    else if (each.is("harmony"))
      readHarmony(each);
    else if (each.is("direction"))
      m_signs.readDirection(each, placeOf(each));
    else if (each.is("sound"))
      m_signs.readSound(each, placeOf(each));
    else if (each.is("barline"))
      m_signs.readBarline(each);
    end = std::max(end, now());
  }
  m_signs.endMeasure(end);
}

WrittenPart PartReader::finish() {
  // Only what has no pitches is sure to be drums.
  if (m_hasUnpitched && !m_hasPitch) m_track.isDrums = true;
  return partOf(std::move(m_track), m_staves, std::move(m_measures));
}

void PartReader::readAttributes(const Element& attributes) {
  for (const Element& each : attributes.children()) {
    if (each.is("divisions")) {
      m_from = now();
      m_divisionsOn = 0;
      m_divisions = each.number().value_or(0);
      if (!(m_divisions > 0 && m_divisions <= kMostDivisions))
        throw platform::UserError(
            platform::phrase("Exchange", "its divisions in line %1 cannot be read"), each.line());
    }
    if (each.is("time")) m_signs.readTime(each);
    if (each.is("key")) m_signs.readKey(each);
    if (each.is("staff-details")) readStaffDetails(each);
    if (each.is("transpose")) readTranspose(each);
  }
}

void PartReader::readStaffDetails(const Element& details) {
  constexpr int kHighestCapo = 24;
  TabStaff& staff = m_staves[numberOf(details, kMostStaves)];
  for (const Element& each : details.children()) {
    if (each.is("staff-lines"))
      staff.lines = std::clamp(each.integer().value_or(0), 0, kMostStaffLines);
    if (each.is("capo")) staff.capo = std::clamp(each.integer().value_or(0), 0, kHighestCapo);
    const int line = each.integerAttribute("line").value_or(0);
    if (!each.is("staff-tuning") || line < 1 || line > kMostStaffLines) continue;
    if (const auto pitch = pitchOf(each, "tuning-")) staff.tuning[line] = *pitch;
  }
}

void PartReader::readTranspose(const Element& transpose) {
  constexpr int kMost = 60;
  const int octaves = std::clamp(transpose.child("octave-change").integer().value_or(0), -5, 5);
  const int chromatic =
      std::clamp(transpose.child("chromatic").integer().value_or(0), -kMost, kMost);
  const int halfTones = octaves * kNotesPerOctave + chromatic;
  const bool isOfAll = transpose.attribute("number").empty();
  m_transpositions[isOfAll ? 0 : numberOf(transpose, kMostStaves)] = halfTones;
}

std::int64_t PartReader::grainsOf(double divisions) const {
  return std::llround(divisions * static_cast<double>(kGrainsOfQuarter) / m_divisions);
}

/// Signs may stand before or after the place that they count for.
std::int64_t PartReader::placeOf(const Element& element) const {
  const double most = kLongestInQuarters * m_divisions;
  const double offset = std::clamp(element.child("offset").number().value_or(0), -most, most);
  return std::max<std::int64_t>(now() + grainsOf(offset), 0);
}

double PartReader::durationOf(const Element& element, const Element& duration) const {
  const double divisions = duration.number().value_or(0);
  if (divisions >= 0 && divisions <= kLongestInQuarters * m_divisions) return divisions;
  throw platform::UserError(platform::phrase("Exchange", "its duration in line %1 cannot be read"),
                            element.line());
}

void PartReader::move(double divisions) {
  m_divisionsOn += divisions;
  if (now() < 0) m_from = 0, m_divisionsOn = 0;
  if (now() > static_cast<std::int64_t>(kLongestInQuarters) * kGrainsOfQuarter)
    throw platform::UserError(
        platform::phrase("Exchange", "one of its bars is longer than any music"));
}

void PartReader::readNote(const Element& note) {
  const NoteKind kind(note);
  if (kind.isGrace) return leave("grace notes");
  const double divisions = durationOf(note, kind.duration);
  const std::int64_t at = kind.isChord ? m_chordAt : now();
  const double before = m_divisionsOn;
  if (!kind.isChord) {
    m_chordAt = at;
    move(divisions);
  }
  if (kind.isRest) return;
  if (kind.isCue) return leave("cue notes");
  StaffNote read = staffNote(note);
  Note& written = read.written.note;
  written.at = at;
  written.length = kind.isChord ? grainsOf(divisions) : m_from + grainsOf(before + divisions) - at;
  if (written.pitch >= 0 && written.length > 0) m_measures.back().notes.push_back(read);
}

/// All of a note but its place in the bar; its pitch is below 0 where it says none.
StaffNote PartReader::staffNote(const Element& note) {
  StaffNote read;
  Note& tone = read.written.note;
  tone.pitch = -1;
  tone.velocity = m_signs.velocity();
  if (const auto percent = note.numberAttribute("dynamics"))
    tone.velocity = ScoreSigns::velocityOf(*percent);
  Element pitch;
  for (const Element& each : note.children()) {
    if (each.is("pitch")) {
      pitch = each;
    } else if (each.is("unpitched")) {
      readUnpitched(note, each, read);
    } else if (each.is("staff")) {
      read.staff = std::clamp(each.integer().value_or(1), 1, kMostStaves);
    } else if (each.is("tie")) {
      read.written.tiedBefore = read.written.tiedBefore || isOf(each, "stop");
      read.written.tiedOn = read.written.tiedOn || isOf(each, "start");
    } else if (each.is("notations")) {
      readNotations(each, read);
    } else if (each.is("notehead")) {
      read.isDead = each.text() == "x";
    } else if (each.is("lyric")) {
      leave("lyrics");
    }
  }
  if (pitch) readPitch(pitch, read);
  return read;
}

void PartReader::readPitch(const Element& pitch, StaffNote& note) {
  const auto written = pitchOf(pitch, "");
  if (!written) return;
  m_hasPitch = true;
  auto transposition = m_transpositions.find(note.staff);
  if (transposition == m_transpositions.end()) transposition = m_transpositions.find(0);
  const int up = transposition == m_transpositions.end() ? 0 : transposition->second;
  note.written.note.pitch = std::max(*written + up, 0);
}

/// The instrument of the note says what sounds; else the line that it is written on.
void PartReader::readUnpitched(const Element& note, const Element& unpitched, StaffNote& read) {
  m_hasUnpitched = true;
  const auto drum = m_drums.find(note.child("instrument").attribute("id"));
  const auto shown = pitchOf(unpitched, "display-");
  if (drum != m_drums.end())
    read.written.note.pitch = drum->second;
  else
    read.written.note.pitch = shown.value_or(-1);
}

void PartReader::readNotations(const Element& notations, StaffNote& note) {
  for (const Element& each : notations.children()) {
    if (each.is("technical")) {
      readTechnical(each, note);
    } else if (each.is("tied")) {
      note.written.tiedBefore = note.written.tiedBefore || isOf(each, "stop");
      note.written.tiedOn = note.written.tiedOn || isOf(each, "start");
    } else if (const char* what = leftOf(each.name())) {
      if (!isOf(each, "stop")) leave(what);
    }
  }
}

void PartReader::readTechnical(const Element& technical, StaffNote& note) {
  for (const Element& each : technical.children()) {
    if (each.is("string")) {
      note.string = std::clamp(each.integer().value_or(0), 0, kMostStaffLines + 1);
    } else if (each.is("fret")) {
      note.fret = std::clamp(each.integer().value_or(-1), -1, kMostFrets);
    } else if (const char* what = leftOf(each.name())) {
      if (!isOf(each, "stop")) leave(what);
    }
  }
}

void PartReader::readHarmony(const Element& harmony) {
  if (auto name = harmonyName(harmony))
    m_measures.back().names.push_back({placeOf(harmony), std::move(*name)});
  else
    leave("chord names");
}

}  // namespace korvel::exchange
