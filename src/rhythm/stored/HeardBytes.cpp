// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/stored/HeardBytes.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "music/Neck.h"
#include "platform/sound/SampleRate.h"
#include "rhythm/stored/ByteStream.h"

namespace korvel::rhythm {
namespace {

using fingering::Note;

constexpr std::uint64_t kNotesVersion = 1;
/// The first version has no probabilities and basses of chords. It is still written where there
/// are none, so that there is one way to write each reading.
constexpr std::uint64_t kRhythmVersion = 2;
constexpr std::uint64_t kPlainRhythm = 1;
constexpr double kShareUnits = 10000;  ///< Of probabilities and strengths.
constexpr std::uint64_t kMostStrength = 10000000;
constexpr std::uint64_t kMostProbability = 10000;
constexpr double kLoudnessUnits = 100;  ///< Of the logarithm of an amplitude.
constexpr int kSoftest = -2072;
constexpr int kLoudest = 3000;
constexpr int kLongestNote = 1 << 30;  ///< In samples.
constexpr int kLongestTick = 1 << 24;  ///< Of more than a day.
constexpr std::int64_t kLongestSample = std::int64_t{1} << 40;
constexpr int kHighestPitch = 127;
constexpr int kHighestFret = 36;
constexpr int kMostBeats = 12;
constexpr int kFinest = 64;
/// At least so many bytes are taken by each.
constexpr std::size_t kFieldsOfNote = 8;
constexpr std::size_t kFieldsOfSpan = 4;
constexpr std::size_t kBytesOfReal = 8;

std::int64_t sampleOfTime(double seconds) { return std::llround(seconds * platform::kSampleRate); }
double timeOfSample(std::int64_t sample) {
  if (sample < -kLongestSample || sample > kLongestSample) throw OddBytes();
  return static_cast<double>(sample) / platform::kSampleRate;
}

std::uint64_t sharesOf(double value, std::uint64_t most) {
  return static_cast<std::uint64_t>(
      std::llround(std::clamp(value * kShareUnits, 0.0, static_cast<double>(most))));
}
float ofShares(std::uint64_t shares) {
  return static_cast<float>(static_cast<double>(shares) / kShareUnits);
}

std::int64_t loudnessOf(double amplitude) {
  return std::llround(std::clamp<double>(std::log(amplitude) * kLoudnessUnits, kSoftest, kLoudest));
}
float ofLoudness(int loudness) { return static_cast<float>(std::exp(loudness / kLoudnessUnits)); }

void write(ByteWriter& out, const std::vector<Note>& notes) {
  out.whole(notes.size());
  std::int64_t before = 0;
  for (const Note& note : notes) {
    const std::int64_t onset = sampleOfTime(note.onset);
    out.withSign(onset - std::exchange(before, onset));
    out.withSign(std::clamp<std::int64_t>(sampleOfTime(note.end) - onset, 1, kLongestNote));
    out.withSign(note.pitch);
    out.withSign(note.string);
    out.withSign(note.fret);
    out.whole(sharesOf(note.strength, kMostStrength));
    out.whole(sharesOf(note.probability, kMostProbability));
    out.withSign(loudnessOf(note.amplitude));
  }
}

std::vector<Note> readNotes(ByteReader& in) {
  std::vector<Note> notes(in.count(kFieldsOfNote));
  std::int64_t onset = 0;
  for (Note& note : notes) {
    onset += in.withSign();
    note.onset = timeOfSample(onset);
    note.end = timeOfSample(onset + in.within(1, kLongestNote));
    note.pitch = in.within(0, kHighestPitch);
    note.string = in.within(-1, kStrings - 1);
    note.fret = in.within(-1, kHighestFret);
    note.strength = ofShares(in.atMost(kMostStrength));
    note.probability = ofShares(in.atMost(kMostProbability));
    note.amplitude = ofLoudness(in.within(kSoftest, kLoudest));
  }
  if (!std::ranges::is_sorted(notes, {}, &Note::onset)) throw OddBytes();
  return notes;
}

void write(ByteWriter& out, const Metre& metre) {
  out.withSign(metre.beats);
  out.flag(metre.compound);
}

Metre readMetre(ByteReader& in) {
  Metre metre;
  metre.beats = in.within(1, kMostBeats);
  metre.compound = in.flag();
  return metre;
}

void write(ByteWriter& out, Feel feel) { out.withSign(static_cast<int>(feel)); }

Feel readFeel(ByteReader& in) {
  return static_cast<Feel>(in.within(0, static_cast<int>(Feel::triplets)));
}

void writeTimes(ByteWriter& out, const std::vector<double>& seconds) {
  out.whole(seconds.size());
  std::int64_t before = 0;
  for (const double each : seconds) {
    const std::int64_t sample = sampleOfTime(each);
    out.withSign(sample - std::exchange(before, sample));
  }
}

std::vector<double> readTimes(ByteReader& in) {
  std::vector<double> seconds(in.count(1));
  std::int64_t sample = 0;
  for (double& each : seconds) each = timeOfSample(sample += in.withSign());
  const auto falls = [](double before, double after) { return before >= after; };
  if (std::ranges::adjacent_find(seconds, falls) != seconds.end()) throw OddBytes();
  return seconds;
}

/// A value that may be missing.
template <class T, class Write>
void writeIfAny(ByteWriter& out, const std::optional<T>& value, const Write& write) {
  out.flag(value.has_value());
  if (value) write(*value);
}

template <class Read>
auto readIfAny(ByteReader& in, const Read& read) -> std::optional<decltype(read())> {
  if (!in.flag()) return {};
  return read();
}

void write(ByteWriter& out, const ChordSpan& span) {
  out.withSign(span.from);
  out.withSign(span.to);
  out.withSign(span.root);
  out.withSign(static_cast<int>(span.quality));
}

ChordSpan readSpan(ByteReader& in) {
  ChordSpan span;
  span.from = in.within(-kLongestTick, kLongestTick);
  span.to = in.within(-kLongestTick, kLongestTick);
  span.root = in.within(-1, 11);
  span.quality = static_cast<Quality>(in.within(0, static_cast<int>(Quality::majorSeventh)));
  if (span.to <= span.from) throw OddBytes();
  return span;
}

void write(ByteWriter& out, const Reading& reading) {
  writeTimes(out, reading.beats);
  out.whole(reading.firstBar);
  write(out, reading.metre);
  write(out, reading.feel);
  out.real(reading.swingRatio);
  writeIfAny(out, reading.key,
             [&](const Key& key) { out.withSign(key.tonic + (key.minor ? 12 : 0)); });
  out.whole(reading.chords.size());
  for (const ChordSpan& span : reading.chords) write(out, span);
}

bool isPlain(const Reading& reading) {
  return std::ranges::all_of(reading.chords, [](const ChordSpan& span) {
    return sharesOf(span.probability, kMostProbability) == kMostProbability && span.bass < 0;
  });
}

void writeSureness(ByteWriter& out, const Reading& reading) {
  for (const ChordSpan& span : reading.chords) {
    out.whole(sharesOf(span.probability, kMostProbability));
    out.withSign(span.bass);
  }
}

void readSureness(ByteReader& in, Reading& reading) {
  for (ChordSpan& span : reading.chords) {
    span.probability = static_cast<double>(in.atMost(kMostProbability)) / kShareUnits;
    span.bass = in.within(-1, 11);
  }
  if (isPlain(reading)) throw OddBytes();
}

double readShare(ByteReader& in) {
  const double value = in.real();
  if (!(value >= 0 && value <= 1)) throw OddBytes();
  return value;
}

double readFinite(ByteReader& in) {
  const double value = in.real();
  if (!std::isfinite(value)) throw OddBytes();
  return value;
}

Reading readReading(ByteReader& in) {
  Reading reading;
  reading.beats = readTimes(in);
  reading.firstBar = in.whole();
  reading.metre = readMetre(in);
  reading.feel = readFeel(in);
  reading.swingRatio = readShare(in);
  reading.key = readIfAny(in, [&] {
    const int key = in.within(0, 23);
    return Key{key % 12, key >= 12};
  });
  reading.chords.resize(in.count(kFieldsOfSpan));
  for (ChordSpan& span : reading.chords) span = readSpan(in);
  const bool fits = reading.beats.empty()
                        ? reading.firstBar == 0
                        : reading.beats.size() > 1 && reading.firstBar < reading.beats.size();
  if (!fits) throw OddBytes();
  return reading;
}

void write(ByteWriter& out, const Wishes& wishes) {
  const auto real = [&](double value) { out.real(value); };
  writeIfAny(out, wishes.tempo, real);
  writeIfAny(out, wishes.metre, [&](const Metre& metre) { write(out, metre); });
  writeIfAny(out, wishes.feel, [&](Feel feel) { write(out, feel); });
  out.withSign(wishes.finest);
  writeIfAny(out, wishes.barLine, real);
  writeTimes(out, wishes.taps);
  writeTimes(out, wishes.fixedBeats);
}

Wishes readWishes(ByteReader& in) {
  const auto real = [&] { return readFinite(in); };
  Wishes wishes;
  wishes.tempo = readIfAny(in, real);
  wishes.metre = readIfAny(in, [&] { return readMetre(in); });
  wishes.feel = readIfAny(in, [&] { return readFeel(in); });
  wishes.finest = in.within(1, kFinest);
  wishes.barLine = readIfAny(in, real);
  wishes.taps = readTimes(in);
  wishes.fixedBeats = readTimes(in);
  return wishes;
}

void write(ByteWriter& out, const Alternative& other) {
  out.real(other.tempo);
  write(out, other.metre);
  write(out, other.feel);
  out.real(other.behind);
}

Alternative readAlternative(ByteReader& in) {
  Alternative other;
  other.tempo = readFinite(in);
  other.metre = readMetre(in);
  other.feel = readFeel(in);
  other.behind = readFinite(in);
  return other;
}

template <class T>
std::optional<T> read(std::span<const std::byte> bytes, std::uint64_t oldest, std::uint64_t newest,
                      T (*content)(ByteReader&, std::uint64_t version)) try {
  ByteReader in(bytes);
  const std::uint64_t version = in.whole();
  if (version < oldest || version > newest) return {};
  T all = content(in, version);
  if (!in.isAtEnd()) return {};
  return all;
} catch (const OddBytes&) {
  return {};
}

}  // namespace

Bytes bytesOf(const HeardNotes& notes) {
  ByteWriter out;
  out.whole(kNotesVersion);
  write(out, notes.taken);
  write(out, notes.doubtful);
  return out.take();
}

std::optional<HeardNotes> heardNotes(std::span<const std::byte> bytes) {
  return read<HeardNotes>(bytes, kNotesVersion, kNotesVersion, [](ByteReader& in, std::uint64_t) {
    HeardNotes notes;
    notes.taken = readNotes(in);
    notes.doubtful = readNotes(in);
    return notes;
  });
}

Bytes bytesOf(const Rhythm& rhythm, const Wishes& wishes) {
  ByteWriter out;
  const bool plain = isPlain(rhythm.reading);
  out.whole(plain ? kPlainRhythm : kRhythmVersion);
  write(out, rhythm.reading);
  if (!plain) writeSureness(out, rhythm.reading);
  out.flag(rhythm.isFree);
  out.whole(rhythm.others.size());
  for (const Alternative& other : rhythm.others) write(out, other);
  write(out, wishes);
  return out.take();
}

std::optional<StoredRhythm> storedRhythm(std::span<const std::byte> bytes) {
  const auto content = [](ByteReader& in, std::uint64_t version) {
    StoredRhythm stored;
    stored.rhythm.reading = readReading(in);
    if (version > kPlainRhythm) readSureness(in, stored.rhythm.reading);
    stored.rhythm.isFree = in.flag();
    stored.rhythm.others.resize(in.count(2 * kBytesOfReal));
    for (Alternative& other : stored.rhythm.others) other = readAlternative(in);
    stored.wishes = readWishes(in);
    return stored;
  };
  return read<StoredRhythm>(bytes, kPlainRhythm, kRhythmVersion, content);
}

}  // namespace korvel::rhythm
