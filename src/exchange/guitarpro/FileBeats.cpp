// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/guitarpro/FileBeats.h"

#include <algorithm>
#include <utility>

namespace korvel::exchange::guitarpro {
namespace {

constexpr int kMostBeatsOfVoice = 10'000;  ///< In a bar.
constexpr int kMostPointsOfBend = 1000;
constexpr std::size_t kChordNameRoom = 22;

/// How many notes are played in the time of how many.
struct Tuplet {
  int played;
  int written;
};
constexpr Tuplet kTuplets[] = {{1, 1}, {2, 2}, {3, 2},  {4, 4},  {5, 4},  {6, 4}, {7, 4},
                               {8, 8}, {9, 8}, {10, 8}, {11, 8}, {12, 8}, {13, 8}};

constexpr int kTieNote = 2;
constexpr int kDeadNote = 3;

}  // namespace

double requiredTempo(const FileBytes& bytes, int tempo) {
  constexpr int kFastest = 2000;
  if (tempo < 1 || tempo > kFastest) bytes.damaged();
  return tempo;
}

FileBeats::FileBeats(FileBytes& bytes, int version) : m_bytes(bytes), m_version(version) {}

void FileBeats::readBar(MasterBar& bar, SheetTrack& track) {
  const int strings = static_cast<int>(track.head.open.size());
  m_left = &track.head.left;
  SheetBar voices(m_version >= 500 ? 2 : 1);
  for (SheetVoice& voice : voices) readVoice(voice, bar, strings);
  track.bars.push_back(std::move(voices));
  // Where lines break; some programs leave it out after the last bar.
  if (m_version >= 500 && !m_bytes.atEnd()) m_bytes.byte();
}

void FileBeats::readVoice(SheetVoice& voice, MasterBar& bar, int strings) {
  double place = 0;
  for (int i = m_bytes.count(0, kMostBeatsOfVoice); i > 0; --i) {
    auto beat = readBeat(bar, place, strings);
    if (!beat) continue;
    place += beat->grains;
    voice.push_back(*std::move(beat));
  }
}

std::optional<SheetBeat> FileBeats::readBeat(MasterBar& bar, double place, int strings) {
  const auto flags = static_cast<unsigned>(m_bytes.byte());
  const bool isEmpty = flags & 0x40U && m_bytes.byte() == 0;
  SheetBeat beat;
  beat.grains = readLength(flags & 0x01U, flags & 0x20U);
  if (flags & 0x02U) {
    std::string name = readChord(strings);
    if (!name.empty()) beat.chord = chordNameOf(std::move(name));
  }
  if (flags & 0x04U && !m_bytes.sizedText().empty()) leave(kTexts);
  if (flags & 0x08U) readBeatEffects();
  if (flags & 0x10U) readMix(bar, place);
  readNotes(beat, strings);
  if (m_version >= 500) {
    constexpr unsigned kPartsBeams = 0x0800;
    if (static_cast<unsigned>(m_bytes.shortNumber()) & kPartsBeams) m_bytes.byte();
  }
  if (isEmpty && beat.notes.empty()) return std::nullopt;
  return beat;
}

double FileBeats::readLength(bool isDotted, bool isTuplet) {
  constexpr int kShortest = 6;  // a 256th; a quarter is 0
  const int value = m_bytes.signedByte();
  if (value < -2 || value > kShortest) m_bytes.damaged();
  auto grains = static_cast<double>(4 * kGrainsOfQuarter) / (1 << (value + 2));
  if (isDotted) grains *= 1.5;
  if (!isTuplet) return grains;
  const auto* tuplet = std::ranges::find(kTuplets, m_bytes.number(), &Tuplet::played);
  if (tuplet == std::end(kTuplets)) m_bytes.damaged();
  return grains * tuplet->written / tuplet->played;
}

std::string FileBeats::readChord(int strings) {
  const bool isNew = m_bytes.byte() != 0;
  if (!isNew) return readOldChord(strings);
  // Before the name: the sharp, root, type, extension, bass, tonality and whether it is an "add"
  // chord; behind it the tones, the frets, what lies across, the fingers.
  const bool isWide = m_version < 400;
  m_bytes.skip(isWide ? 25 : 16);
  std::string name = m_bytes.text(kChordNameRoom);
  m_bytes.skip(isWide ? 76 : 67);
  return name;
}

std::string FileBeats::readOldChord(int strings) {
  constexpr int kFewestFrets = 6;
  std::string name = m_bytes.sizedText();
  const int firstFret = m_bytes.number();
  if (firstFret != 0)
    for (int i = std::max(strings, kFewestFrets); i > 0; --i) m_bytes.number();
  return name;
}

void FileBeats::readBeatEffects() {
  const auto flags = static_cast<unsigned>(m_bytes.byte());
  const bool isOld = m_version < 400;
  const unsigned more = isOld ? 0 : static_cast<unsigned>(m_bytes.byte());
  leaveIf(flags & (isOld ? 0x03U : 0x02U), kVibratos);
  leaveIf(isOld && flags & 0x0CU, kHarmonics);
  leaveIf(flags & 0x10U, kFades);
  if (flags & 0x20U) {
    const bool isBar = m_bytes.byte() == 0;
    leave(isOld && isBar ? kTremoloBars : kSlaps);
    if (isOld) m_bytes.number();
  }
  if (more & 0x04U) {
    leave(kTremoloBars);
    readBend();
  }
  leaveIf(flags & 0x40U || more & 0x03U, kStrokes);
  if (flags & 0x40U) m_bytes.skip(2);
  if (more & 0x02U) m_bytes.byte();
}

/// How much the sounds change from here on; all but the tempo is passed over.
void FileBeats::readMix(MasterBar& bar, double place) {
  constexpr std::size_t kOwnSound = 16;
  constexpr int kVolumes = 6;
  m_bytes.signedByte();  // the program
  if (m_version >= 500) m_bytes.skip(kOwnSound);
  int changes = 0;
  for (int i = 0; i < kVolumes; ++i)
    if (m_bytes.signedByte() >= 0) ++changes;
  if (m_version >= 500) m_bytes.sizedText();
  const int tempo = m_bytes.number();
  m_bytes.skip(static_cast<std::size_t>(changes));  // how long each takes
  if (tempo >= 0) {
    m_bytes.skip(m_version > 500 ? 2 : 1);
    if (tempo > 0) bar.tempos.push_back({place, requiredTempo(m_bytes, tempo)});
  }
  if (m_version >= 400) m_bytes.byte();  // which of them are of all tracks
  if (m_version >= 500) m_bytes.byte();
  if (m_version <= 500) return;
  m_bytes.sizedText();
  m_bytes.sizedText();
}

void FileBeats::readNotes(SheetBeat& beat, int strings) {
  const auto played = static_cast<unsigned>(m_bytes.byte());
  // From the highest string, bit 6, to the lowest one.
  for (int i = 0; i < 7; ++i) {
    if (!(played >> (6 - i) & 1U)) continue;
    if (i >= strings) m_bytes.damaged();
    if (auto note = readNote(strings - 1 - i)) beat.notes.push_back(*note);
  }
  std::ranges::reverse(beat.notes);
}

std::optional<SheetNote> FileBeats::readNote(int string) {
  const auto flags = static_cast<unsigned>(m_bytes.byte());
  SheetNote note{.string = string};
  const int type = flags & 0x20U ? m_bytes.byte() : 0;
  if (m_version < 500 && flags & 0x01U) m_bytes.skip(2);  // a duration of its own
  if (flags & 0x10U) note.velocity = velocityOf(std::clamp(m_bytes.signedByte(), 1, 8));
  if (flags & 0x20U) note.fret = std::clamp(m_bytes.signedByte(), 0, kHighestFret);
  if (flags & 0x80U) m_bytes.skip(2);  // the fingers
  if (m_version >= 500) {
    if (flags & 0x01U) m_bytes.skip(8);  // the share of its length that it sounds
    m_bytes.byte();
  }
  if (flags & 0x08U) readNoteEffects();
  if (flags & 0x04U) note.velocity = ghostly(note.velocity);
  note.isTied = type == kTieNote;
  if (type != kDeadNote) return note;
  leave(kDeadNotes);
  return std::nullopt;
}

void FileBeats::readNoteEffects() {
  const auto flags = static_cast<unsigned>(m_bytes.byte());
  const unsigned more = m_version < 400 ? 0 : static_cast<unsigned>(m_bytes.byte());
  leaveIf(flags & 0x02U, kLegatos);
  leaveIf(flags & 0x08U, kLetRing);
  if (flags & 0x01U) {
    leave(kBends);
    readBend();
  }
  if (flags & 0x10U) readGrace();
  leaveIf((m_version < 400 && flags & 0x04U) || more & 0x08U, kSlides);
  leaveIf(more & 0x01U, kStaccatos);
  leaveIf(more & 0x02U, kPalmMutes);
  leaveIf(more & 0x04U, kTremoloPicking);
  leaveIf(more & 0x20U, kTrills);
  leaveIf(more & 0x40U, kVibratos);
  if (more & 0x04U) m_bytes.byte();
  if (more & 0x08U) m_bytes.byte();
  if (more & 0x10U) readHarmonic();
  if (more & 0x20U) m_bytes.skip(2);
}

/// Fret, loudness, length and how it goes over.
void FileBeats::readGrace() {
  m_bytes.skip(m_version >= 500 ? 5 : 4);
  leave(kGraceNotes);
}

void FileBeats::readHarmonic() {
  constexpr int kArtificial = 2;
  constexpr int kTapped = 3;
  const int type = m_bytes.signedByte();
  leave(kHarmonics);
  if (m_version < 500) return;
  if (type == kArtificial) m_bytes.skip(3);
  if (type == kTapped) m_bytes.byte();
}

void FileBeats::readBend() {
  constexpr std::size_t kPoint = 9;
  m_bytes.byte();    // its kind
  m_bytes.number();  // how far it goes
  const int points = m_bytes.count(0, kMostPointsOfBend);
  m_bytes.skip(static_cast<std::size_t>(points) * kPoint);
}

}  // namespace korvel::exchange::guitarpro
