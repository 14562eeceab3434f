// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/shelf/QBMusicXML.h"

#include <stdexcept>
#include <utility>

#include "export/shelf/QBMusicXMLVisitorFile.h"
#include "model/book/QBHarmony.h"
#include "model/instruments/QBInstrument.h"
#include "music/ChordStep.h"
#include "music/Neck.h"
#include "music/Pitch.h"

namespace korvel {
namespace {

constexpr const char* kDocumentType =
    "<!DOCTYPE score-partwise PUBLIC \"-//Recordare//DTD MusicXML 3.0 Partwise//EN\" "
    "\"http://www.musicxml.org/dtds/partwise.dtd\">";

constexpr const char* kPartList =
    "<part-list><score-part id=\"P1\"><part-name>Guitar</part-name>"
    "<score-instrument id=\"P1-I1\"><instrument-name>Ac. Gtr. Steel</instrument-name>"
    "</score-instrument><midi-instrument id=\"P1-I1\"><midi-channel>1</midi-channel>"
    "<midi-program>26</midi-program><volume>0</volume><pan>0</pan></midi-instrument>"
    "</score-part></part-list>";

constexpr int kOctaveOfLargeToneZero = 2;

struct OpenString {
  const char* step;
  int octave;
};

constexpr OpenString kStandardTuning[] = {{"E", 2}, {"A", 2}, {"D", 3},
                                          {"G", 3}, {"B", 3}, {"E", 4}};

std::string attribute(const char* name, const std::string& value) {
  return std::string(name) + "=\"" + value + '"';
}

/// Standard tuning whatever tuning a song is in, as intended.
void addStaffDetails(QBMusicXMLTag& attributes) {
  QBMusicXMLTag& details = attributes.addTag("staff-details", "");
  details.addTag("staff-lines", std::to_string(kStrings));
  int line = 0;
  for (const OpenString& open : kStandardTuning)
    QBMusicXML::addTuning(details, ++line, open.step, open.octave);
}

void addAttributes(QBMusicXMLTag& measure, int beats, int beattype) {
  QBMusicXMLTag& attributes = measure.addTag("attributes", "");
  attributes.addTag("divisions", std::to_string(kSixteenthsOfWhole / beattype));
  QBMusicXMLTag& key = attributes.addTag("key", "");
  key.addTag("fifths", "0");
  key.addTag("mode", "major");
  QBMusicXMLTag& time = attributes.addTag("time", "");
  time.addTag("beats", std::to_string(beats));
  time.addTag("beat-type", std::to_string(beattype));
  QBMusicXMLTag& clef = attributes.addTag("clef", "");
  clef.addTag("sign", "none");
  clef.addTag("line", "5");
  addStaffDetails(attributes);
}

bool isDotted(int duration) { return duration == 3 || duration == 6 || duration == 12; }

void addPitch(QBMusicXMLTag& note, int pitch, int octave) {
  static constexpr const char* kSharps[] = {"C",  "C#", "D",  "D#", "E",  "F",
                                            "F#", "G",  "G#", "A",  "A#", "B"};
  const std::string name = kSharps[pitch];
  QBMusicXMLTag& tag = note.addTag("pitch", "");
  tag.addTag("step", name.substr(0, 1));
  if (name.size() > 1) tag.addTag("alter", "1");
  tag.addTag("octave", std::to_string(octave));
}

}  // namespace

// The part list stands as raw markup behind the root's start tag: it is no part of the tree.
QBMusicXML::QBMusicXML(std::string file) : QBMusicXMLTag("?xml", ""), m_file(std::move(file)) {
  addAttr(attribute("version", "1.0") + ' ' + attribute("encoding", "UTF-8") + '?');
  addRaw(kDocumentType);
  m_root = &addTag("score-partwise", "");
  m_root->addRaw(kPartList);
  m_root->addAttr(attribute("version", "3.0"));
  m_part = &m_root->addTag("part", "");
  m_part->addAttr(attribute("id", "P1"));
}

QBMusicXMLTag& QBMusicXML::addMeasure(int beats, int beattype) {
  if (beattype == 0) throw std::domain_error("a measure without a beat type cannot be divided");
  m_messure = &m_part->addTag("measure", "");
  m_messure->addAttr(attribute("number", std::to_string(m_position++)));
  addAttributes(*m_messure, beats, beattype);
  return *m_messure;
}

QBMusicXMLTag& QBMusicXML::addTuning(QBMusicXMLTag& staffDetails, int line, const std::string& step,
                                     int octave) {
  QBMusicXMLTag& tuning = staffDetails.addTag("staff-tuning", "");
  tuning.addAttr(attribute("line", std::to_string(line)));
  tuning.addTag("tuning-step", step);
  tuning.addTag("tuning-octave", std::to_string(octave));
  return tuning;
}

QBMusicXMLTag& QBMusicXML::addNote(int voice, int duration) {
  if (!m_messure) throw std::logic_error("a note needs a measure");
  QBMusicXMLTag& note = m_messure->addTag("note", "");
  note.addTag("duration", std::to_string(duration));
  note.addTag("voice", std::to_string(voice));
  note.addTag("type", computeTypeByDuration(duration));
  if (isDotted(duration)) note.addTag("dot", "");
  return note;
}

QBMusicXMLTag& QBMusicXML::addNoteAsChord(int voice, int duration) {
  QBMusicXMLTag& note = addNote(voice, duration);
  note.addRaw("<chord/>");
  return note;
}

QBMusicXMLTag& QBMusicXML::addNoteAsRest(int voice, int duration) {
  QBMusicXMLTag& note = addNote(voice, duration);
  note.addRaw("<rest/>");
  return note;
}

QBMusicXMLTag& QBMusicXML::addNotations(QBMusicXMLTag& note) {
  return note.addTag("notations", "");
}

void QBMusicXML::addTone(QBMusicXMLTag& note, QBMusicXMLTag& notations, int string, int fret) {
  const int pitch = pitchClass(addNotes(QBHarmony::toneOfString(string), fret));
  addPitch(note, pitch, computeOctave(string, fret));
  addTabulature(notations, string, fret);
}

void QBMusicXML::addTabulature(QBMusicXMLTag& notations, int string, int fret) {
  QBMusicXMLTag& technical = notations.addTag("technical", "");
  technical.addTag("string", std::to_string(kStrings - string));
  technical.addTag("fret", std::to_string(fret));
}

// A half note, of eight sixteenths, is called "whole" as intended: readers go by the duration.
std::string QBMusicXML::computeTypeByDuration(int duration) {
  if (duration == 1) return "16th";
  if (duration == 2 || duration == 3) return "eighth";
  if (duration >= 4 && duration <= 7) return "quarter";
  if (duration >= 8 && duration <= kSixteenthsOfWhole) return "whole";
  return "undef";
}

int QBMusicXML::computeOctave(int string, int fret) {
  return addNotes(QBInstrument::largeToneOfStringS(string), fret) / kNotesPerOctave +
         kOctaveOfLargeToneZero;
}

std::string QBMusicXML::toString() const {
  QBMusicXMLVisitorFile visitor(m_file);
  m_root->iterate(visitor);
  return visitor.content();
}

bool QBMusicXML::toFile(const std::string& path) const {
  QBMusicXMLVisitorFile visitor(path);
  iterate(visitor);
  return visitor.write();
}

}  // namespace korvel
