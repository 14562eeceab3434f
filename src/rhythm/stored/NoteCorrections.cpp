// SPDX-License-Identifier: GPL-3.0-or-later
#include "rhythm/stored/NoteCorrections.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

#include "music/Neck.h"
#include "platform/sound/SampleRate.h"
#include "rhythm/stored/ByteStream.h"

namespace korvel::rhythm {
namespace {

using fingering::Note;

constexpr std::uint64_t kCorrectionsVersion = 1;
/// At least so many bytes are taken by each.
constexpr std::size_t kBytesOfVerdict = 5;
constexpr std::size_t kBytesOfPart = 17;
constexpr int kHighestPitchOfVerdict = 127;
constexpr int kHighestFretOfVerdict = 36;
constexpr std::int64_t kLastOnset = std::int64_t{1} << 40;
constexpr std::uint64_t kIn = 1;
constexpr std::uint64_t kLocked = 2;

auto placeOf(const NoteVerdict& verdict) { return std::tuple(verdict.onset, verdict.pitch); }

void write(ByteWriter& out, const std::vector<NoteVerdict>& verdicts) {
  out.whole(verdicts.size());
  std::int64_t before = 0;
  for (const NoteVerdict& verdict : verdicts) {
    out.withSign(verdict.onset - std::exchange(before, verdict.onset));
    out.withSign(verdict.pitch);
    out.whole((verdict.isIn ? kIn : 0) | (verdict.isLocked ? kLocked : 0));
    out.withSign(verdict.string);
    out.withSign(verdict.fret);
  }
}

std::vector<NoteVerdict> readVerdicts(ByteReader& in) {
  std::vector<NoteVerdict> verdicts(in.count(kBytesOfVerdict));
  std::int64_t onset = 0;
  for (NoteVerdict& verdict : verdicts) {
    const std::int64_t by = in.withSign();
    if (by < -kLastOnset || by > kLastOnset) throw OddBytes();
    onset += by;
    if (onset < -kLastOnset || onset > kLastOnset) throw OddBytes();
    verdict.onset = onset;
    verdict.pitch = in.within(0, kHighestPitchOfVerdict);
    const std::uint64_t flags = in.atMost(kIn | kLocked);
    verdict.isIn = (flags & kIn) != 0;
    verdict.isLocked = (flags & kLocked) != 0;
    verdict.string = in.within(-1, kStrings - 1);
    verdict.fret = in.within(-1, kHighestFretOfVerdict);
  }
  const auto falls = [](const NoteVerdict& before, const NoteVerdict& after) {
    return placeOf(before) >= placeOf(after);
  };
  if (std::ranges::adjacent_find(verdicts, falls) != verdicts.end()) throw OddBytes();
  return verdicts;
}

void write(ByteWriter& out, const std::vector<HeardAgain>& again) {
  out.whole(again.size());
  for (const HeardAgain& part : again) {
    out.real(part.from);
    out.real(part.to);
    out.block(bytesOf(part.notes));
  }
}

std::vector<HeardAgain> readAgain(ByteReader& in) {
  std::vector<HeardAgain> again(in.count(kBytesOfPart));
  double end = 0;
  for (HeardAgain& part : again) {
    part.from = in.real();
    part.to = in.real();
    auto notes = heardNotes(in.block());
    if (!notes || !(part.from >= end && part.to > part.from) || !std::isfinite(part.to))
      throw OddBytes();
    part.notes = std::move(*notes);
    end = part.to;
  }
  return again;
}

void replaceIn(std::vector<Note>& notes, const HeardAgain& part, const std::vector<Note>& by) {
  std::erase_if(
      notes, [&part](const Note& note) { return note.onset >= part.from && note.onset < part.to; });
  notes.insert(notes.end(), by.begin(), by.end());
  std::ranges::stable_sort(notes, {}, &Note::onset);
}

}  // namespace

std::int64_t sampleOfOnset(const Note& note) {
  return std::llround(note.onset * platform::kSampleRate);
}

Bytes bytesOf(const NoteCorrections& corrections) {
  ByteWriter out;
  out.whole(kCorrectionsVersion);
  write(out, corrections.verdicts);
  write(out, corrections.again);
  return out.take();
}

std::optional<NoteCorrections> noteCorrections(std::span<const std::byte> bytes) try {
  ByteReader in(bytes);
  if (in.whole() != kCorrectionsVersion) return {};
  NoteCorrections corrections;
  corrections.verdicts = readVerdicts(in);
  corrections.again = readAgain(in);
  if (!in.isAtEnd()) return {};
  return corrections;
} catch (const OddBytes&) {
  return {};
}

HeardNotes withHeardAgain(HeardNotes notes, const std::vector<HeardAgain>& again) {
  for (const HeardAgain& part : again) {
    replaceIn(notes.taken, part, part.notes.taken);
    replaceIn(notes.doubtful, part, part.notes.doubtful);
  }
  return notes;
}

const NoteVerdict* verdictOn(const NoteCorrections& corrections, const Note& note) {
  const std::tuple place(sampleOfOnset(note), note.pitch);
  const auto found = std::ranges::lower_bound(corrections.verdicts, place, {}, placeOf);
  const bool isIt = found != corrections.verdicts.end() && placeOf(*found) == place;
  return isIt ? &*found : nullptr;
}

std::vector<Note> notesBy(const HeardNotes& heard, const NoteCorrections& corrections) {
  std::vector<Note> notes;
  const auto add = [&](const std::vector<Note>& from, bool areTaken) {
    for (const Note& note : from) {
      const NoteVerdict* verdict = verdictOn(corrections, note);
      if (!(verdict ? verdict->isIn : areTaken)) continue;
      notes.push_back(note);
      if (!verdict || verdict->string < 0) continue;
      notes.back().string = verdict->string;
      notes.back().fret = verdict->fret;
    }
  };
  const HeardNotes all = withHeardAgain(heard, corrections.again);
  add(all.taken, true);
  add(all.doubtful, false);
  std::ranges::stable_sort(notes, {},
                           [](const Note& note) { return std::tuple(note.onset, note.pitch); });
  return notes;
}

}  // namespace korvel::rhythm
