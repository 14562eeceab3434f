// SPDX-License-Identifier: GPL-3.0-or-later
#include "export/MidiFile.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <optional>
#include <tuple>

#include "export/score/Spelling.h"
#include "platform/text/Utf8.h"

namespace korvel {
namespace {

constexpr int kProgram = 25;  // counted from 0: acoustic guitar with steel strings
constexpr int kTracks = 2;
constexpr int kPitches = 128;
constexpr std::int64_t kLongestPause = 0x0FFFFFFF;

constexpr std::uint8_t kNoteOff = 0x80;
constexpr std::uint8_t kNoteOn = 0x90;
constexpr std::uint8_t kProgramChange = 0xC0;
constexpr std::uint8_t kMeta = 0xFF;
constexpr std::uint8_t kTrackName = 0x03;
constexpr std::uint8_t kEndOfTrack = 0x2F;
constexpr std::uint8_t kTempo = 0x51;
constexpr std::uint8_t kTimeSignature = 0x58;
constexpr std::uint8_t kKeySignature = 0x59;

char byteOf(std::int64_t value) { return static_cast<char>(value & 0xFF); }

/// The highest byte first.
std::string bigEndian(std::int64_t value, int bytes) {
  std::string text;
  while (bytes-- > 0) text += byteOf(value >> 8 * bytes);
  return text;
}

/// Seven bits a byte, the highest first, all but the last marked.
std::string variableLength(std::int64_t value) {
  std::string text(1, byteOf(value & 0x7F));
  while (value >>= 7) text.insert(text.begin(), byteOf((value & 0x7F) | 0x80));
  return text;
}

/// The events of one track, in order of time.
class Track {
 public:
  void meta(std::uint8_t type, const std::string& data) { meta(m_time, type, data); }

  void meta(std::int64_t time, std::uint8_t type, const std::string& data) {
    pauseUntil(time);
    m_events += std::string() + byteOf(kMeta) + byteOf(type) +
                variableLength(static_cast<std::int64_t>(data.size())) + data;
  }

  void channel(std::int64_t time, std::initializer_list<int> bytes) {
    pauseUntil(time);
    for (const int byte : bytes) m_events += byteOf(byte);
  }

  std::string chunk() {
    meta(kEndOfTrack, {});
    return "MTrk" + bigEndian(static_cast<std::int64_t>(m_events.size()), 4) + m_events;
  }

 private:
  void pauseUntil(std::int64_t time) {
    m_events += variableLength(std::min(time - m_time, kLongestPause));
    m_time = time;
  }

  std::string m_events;
  std::int64_t m_time = 0;
};

std::string timeSignature(const Meter& meter) {
  constexpr int kClocksOfClick = 24;  // of a quarter
  constexpr int kThirtySecondsOfQuarter = 8;
  const int exponent = std::countr_zero(static_cast<unsigned>(meter.beatType));
  return {byteOf(meter.beats), byteOf(exponent), byteOf(kClocksOfClick),
          byteOf(kThirtySecondsOfQuarter)};
}

std::string keySignature(const ScoreKey& key) { return {byteOf(fifthsOf(key)), byteOf(key.minor)}; }

std::string tempoOf(double quarterSeconds) {
  constexpr std::int64_t kLongest = 0xFFFFFF;
  const std::int64_t microseconds = std::llround(quarterSeconds * 1e6);
  return bigEndian(std::clamp<std::int64_t>(microseconds, 1, kLongest), 3);
}

/// Metres before tempi where both change.
void addChanges(Track& track, const MidiSequence& sequence) {
  auto change = sequence.tempi.begin();
  const auto addTempiBefore = [&](std::int64_t time) {
    for (; change != sequence.tempi.end() && change->start < time; ++change)
      track.meta(change->start, kTempo, tempoOf(change->quarterSeconds));
  };
  for (const auto& [start, meter] : sequence.meters) {
    addTempiBefore(start);
    track.meta(start, kTimeSignature, timeSignature(meter));
  }
  addTempiBefore(std::numeric_limits<std::int64_t>::max());
}

std::string conductorTrack(const MidiSequence& sequence) {
  Track track;
  track.meta(kTrackName, platform::printable(sequence.title));
  track.meta(kTempo, tempoOf(sequence.quarterSeconds));
  track.meta(kTimeSignature, timeSignature(sequence.meter));
  if (sequence.key) track.meta(kKeySignature, keySignature(*sequence.key));
  addChanges(track, sequence);
  return track.chunk();
}

struct Edge {
  std::int64_t time;
  bool on;
  const MidiNote* note;
};

/// Starts and ends by time; what ends comes before what starts.
std::vector<Edge> edgesOf(const std::vector<MidiNote>& notes) {
  std::vector<Edge> edges;
  for (const MidiNote& note : notes) {
    edges.push_back({note.start, true, &note});
    edges.push_back({note.start + note.length, false, &note});
  }
  std::ranges::stable_sort(edges, {},
                           [](const Edge& edge) { return std::tuple(edge.time, edge.on); });
  return edges;
}

std::string notesTrack(const MidiSequence& sequence) {
  Track track;
  track.meta(kTrackName, platform::printable(sequence.instrument));
  track.channel(0, {kProgramChange, kProgram});
  const std::vector<MidiNote> notes = playableNotes(sequence.notes);
  for (const auto& [time, on, note] : edgesOf(notes))
    if (on)
      track.channel(time, {kNoteOn, note->pitch, note->velocity});
    else
      track.channel(time, {kNoteOff, note->pitch, note->release});
  return track.chunk();
}

}  // namespace

std::vector<MidiNote> playableNotes(std::vector<MidiNote> notes) {
  std::erase_if(notes, [](const MidiNote& note) {
    return note.pitch < 0 || note.pitch >= kPitches || note.start < 0 || note.length < 1;
  });
  std::ranges::stable_sort(notes, {}, [](const MidiNote& note) {
    return std::tuple(note.start, note.pitch, -note.length);
  });
  std::array<std::optional<std::size_t>, kPitches> sounding;
  std::vector<MidiNote> playable;
  for (const MidiNote& note : notes) {
    auto& before = sounding.at(static_cast<std::size_t>(note.pitch));
    if (before) {
      MidiNote& earlier = playable[*before];
      if (earlier.start == note.start) continue;
      earlier.length = std::min(earlier.length, note.start - earlier.start);
    }
    before = playable.size();
    playable.push_back(note);
  }
  return playable;
}

std::string midiFile(const MidiSequence& sequence) {
  constexpr int kHeaderLength = 6;
  constexpr int kFormat = 1;
  return "MThd" + bigEndian(kHeaderLength, 4) + bigEndian(kFormat, 2) + bigEndian(kTracks, 2) +
         bigEndian(sequence.division, 2) + conductorTrack(sequence) + notesTrack(sequence);
}

}  // namespace korvel
