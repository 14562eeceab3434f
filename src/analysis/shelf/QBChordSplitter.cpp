// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/shelf/QBChordSplitter.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <optional>

#include "matrix/QBMatrix.h"
#include "model/instruments/QBInstrument.h"
#include "model/instruments/QBTuning.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBHold.h"
#include "model/songs/QBSong.h"
#include "model/songs/QBTone.h"
#include "model/store/QBTabMgr.h"
#include "music/Neck.h"

namespace korvel {
namespace {

std::optional<int> fretOf(const QBChord& chord, int string) {
  const QBTone* tone = chord.hold() ? chord.hold()->findToneByString(string) : nullptr;
  return tone ? std::optional(tone->fret()) : std::nullopt;
}

int endOf(const QBToneGroup& group) { return group.m_pos + group.m_dur; }

}  // namespace

QBChordSplitter::QBChordSplitter(QBSong* song, int from, int to)
    : m_from(from), m_to(to), m_source(song) {}

QBChordSplitter::~QBChordSplitter() = default;

QBSong* QBChordSplitter::split() {
  buildGroups();
  fillUp();
  return generateSong();
}

const QBMatrix* QBChordSplitter::toMatrix() {
  QBTabMgr::db().deleteSong(split());
  m_song = nullptr;
  return nullptr;
}

// Intended, and what `fillUp` goes on from: a change of fret passes over that chord and the one
// after it, and only a chord that the scan begins at and finds silent ends the current group. Until
// then every run, on the next string too, lengthens that one.
void QBChordSplitter::buildGroups() {
  const auto& chords = m_source->allChords();
  const int count = static_cast<int>(chords.size());
  const auto fretAt = [&](int i, int string) {
    return fretOf(*chords[static_cast<std::size_t>(i)], string);
  };
  Group current;
  for (int string = 0; string < kStrings; ++string) {
    for (int i = 0; i < count;) {
      const auto fret = fretAt(i, string);
      if (!fret) {
        current = nullptr;
        ++i;
        continue;
      }
      if (!current) {
        current = std::make_shared<QBToneGroup>(string, i, *fret);
        m_groups[buildKey(string, i)] = current;
      }
      for (++i; i < count && fretAt(i, string) == fret; ++i) current->increaseDur();
      i += i < count && fretAt(i, string) ? 2 : 1;
    }
  }
}

void QBChordSplitter::fillUp() {
  const int count = static_cast<int>(m_source->allChords().size());
  for (int string = 0; string < kStrings; ++string) {
    for (int position = 0; position < count;) {
      const Group group = groupAt(string, position);
      const int dependentsEnd = group ? computeMaximum(collectDependentGroups(*group)) : -1;
      position = std::max(position, dependentsEnd) + 1;
    }
  }
  rebuildGroups();
}

QBChordSplitter::Groups QBChordSplitter::collectDependentGroups(const QBToneGroup& group) const {
  Groups dependents;
  for (int string = 0; string < kStrings; ++string) {
    if (string == group.m_string) continue;
    for (int position = group.m_pos; position <= endOf(group); ++position)
      if (const Group dependent = groupAt(string, position)) dependents.push_back(dependent);
  }
  return dependents;
}

int QBChordSplitter::computeMaximum(const Groups& groups) {
  int maximum = -1;
  for (const Group& group : groups) maximum = std::max(maximum, endOf(*group));
  return maximum;
}

void QBChordSplitter::rebuildGroups() {
  std::map<std::string, Group> covered;
  for (const auto& [key, group] : m_groups)
    for (int position = group->m_pos; position < endOf(*group); ++position)
      covered[buildKey(group->m_string, position)] = group;
  m_groups = std::move(covered);
}

QBSong* QBChordSplitter::generateSong() {
  QBTabMgr& db = QBTabMgr::db();
  m_song = db.createSong("Splitted", db.selectedTuning(), db.selectedInstrument(), nullptr);
  return m_song;
}

void QBChordSplitter::fillUpLeft(Groups& groups) {
  const auto start = [](const Group& group) { return group->m_pos; };
  for (;;) {
    std::ranges::stable_sort(groups, std::greater(), start);
    const auto later = std::ranges::adjacent_find(
        groups, [&](const Group& a, const Group& b) { return start(a) - start(b) == 1; });
    if (later == groups.end()) return;
    --(*later)->m_pos;
    (*later)->increaseDur();
  }
}

void QBChordSplitter::fillUpRight(Groups& groups) {
  const auto end = [](const Group& group) { return endOf(*group); };
  for (;;) {
    std::ranges::stable_sort(groups, std::less(), end);
    const auto shorter = std::ranges::adjacent_find(
        groups, [&](const Group& a, const Group& b) { return end(b) - end(a) == 1; });
    if (shorter == groups.end()) return;
    (*shorter)->increaseDur();
  }
}

std::string QBChordSplitter::buildKey(int string, int position) {
  std::array<char, 32> key{};
  std::snprintf(key.data(), key.size(), "%2d,%4d", string, position);
  return key.data();
}

QBChordSplitter::Group QBChordSplitter::groupAt(int string, int position) const {
  const auto found = m_groups.find(buildKey(string, position));
  return found == m_groups.end() ? nullptr : found->second;
}

}  // namespace korvel
