// SPDX-License-Identifier: GPL-3.0-or-later
#include "tab/chordpro/ReadNames.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "arrange/harmony/ChordName.h"
#include "fingering/FingeringOptions.h"
#include "model/book/QBHarmony.h"
#include "model/store/QBTabMgr.h"
#include "music/Pitch.h"
#include "platform/text/Blanks.h"

namespace korvel {
namespace {

bool isNoChord(std::string_view name) {
  std::string letters;
  for (const char letter : name)
    if (letter != '.')
      letters += static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
  return letters.empty() || letters == "nc" || letters == "-";
}

std::optional<ChordName> parsed(const QBTabMgr& db, const std::string& name) {
  try {
    return parseChordName(db, name);
  } catch (const NoChordName&) {
    return std::nullopt;
  }
}

/// Roots are written in capitals; H is what B is called in some countries.
bool beginsWithNote(std::string_view name) {
  return !name.empty() && name.front() >= 'A' && name.front() <= 'H';
}

std::string withB(std::string_view name) {
  std::string text(name);
  if (text.starts_with('H')) text.front() = 'B';
  return text;
}

PageSource::Chord chordNamed(const ChordName& name) {
  PageSource::Chord chord;
  chord.root = name.baseTone;
  chord.type = name.harmony->type();
  for (int note = 0; note < kNotesPerOctave; ++note)
    if (name.harmony->includesNote(name.baseTone, note)) chord.pitchClasses |= 1U << note;
  return chord;
}

}  // namespace

std::optional<int> noteOfName(std::string_view name) {
  constexpr std::array kNotes{9, 11, 0, 2, 4, 5, 7};
  if (!beginsWithNote(name)) return std::nullopt;
  const char letter = withB(name).front();
  const std::string_view sign = name.substr(1);
  const int shift = sign == "#" || sign == "\u266F" ? 1 : sign == "b" || sign == "\u266D" ? -1 : 0;
  if (!sign.empty() && shift == 0) return std::nullopt;
  return pitchClass(kNotes.at(static_cast<std::size_t>(letter - 'A')) + shift);
}

std::optional<PageSource::Chord> ReadNames::chordOf(std::string_view name) {
  name = platform::trimmed(name);
  const auto [known, isNew] = m_known.try_emplace(std::string(name));
  if (isNew) known->second = read(name);
  std::optional<PageSource::Chord> chord = known->second;
  if (const auto shape = m_shapes.find(name); chord && shape != m_shapes.end())
    chord->shape = shape->second;
  return chord;
}

bool isOnNeck(const ChordShape& shape) {
  return std::ranges::max(shape) <= fingering::FingeringOptions::kMostFrets;
}

void ReadNames::define(std::string_view name, const ChordShape& shape) {
  if (isOnNeck(shape)) m_shapes.insert_or_assign(std::string(platform::trimmed(name)), shape);
}

std::optional<PageSource::Chord> ReadNames::read(std::string_view name) {
  if (isNoChord(name)) return PageSource::Chord{};
  const auto slash = name.rfind('/');
  const auto bass =
      slash == std::string_view::npos ? std::nullopt : noteOfName(name.substr(slash + 1));
  auto chord = nearest(bass ? name.substr(0, slash) : name);
  if (chord && bass && *bass != chord->root) chord->bass = *bass;
  return chord;
}

std::optional<PageSource::Chord> ReadNames::nearest(std::string_view name) {
  if (beginsWithNote(name))
    for (std::string text = withB(name); !text.empty(); text.pop_back())
      if (const auto found = parsed(m_db, text)) {
        if (text.size() < name.size()) m_unknown.emplace_back(name);
        return chordNamed(*found);
      }
  m_unknown.emplace_back(name);
  return std::nullopt;
}

}  // namespace korvel
