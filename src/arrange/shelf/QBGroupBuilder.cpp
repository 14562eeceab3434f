// SPDX-License-Identifier: GPL-3.0-or-later
#include "arrange/shelf/QBGroupBuilder.h"

#include "arrange/shelf/QBGroup.h"
#include "model/songs/QBAlbum.h"
#include "model/songs/QBChord.h"
#include "model/songs/QBSong.h"

namespace korvel {
namespace {

constexpr std::size_t kFewestChords = 3;
constexpr const char* kNameOfIndex = "A";

bool sameKey(QBChord& a, QBChord& b) { return a.toKey() && a.toKey() == b.toKey(); }

}  // namespace

QBGroupBuilder::QBGroupBuilder(QBAlbum* target, QBSong* song) : m_trgAlbum(target), m_song(song) {}

QBGroupBuilder::~QBGroupBuilder() = default;

void QBGroupBuilder::build() {
  m_song->iterate(*this);
  scanGroups();
  cleanUp();
}

void QBGroupBuilder::execute(QBChord*, QBChord* current, QBChord*) {
  if (const auto& key = current->toKey())
    m_indizes.try_emplace(*key, kNameOfIndex).first->second.addPosition(m_index());
}

void QBGroupBuilder::scanGroups() {
  const auto& chords = m_song->allChords();
  for (std::size_t i = 0; i < chords.size(); ++i) {
    QBChord& chord = *chords[i];
    if (!chord.m_group.expired() || !chord.toKey()) continue;
    auto group = std::make_shared<QBGroup>(static_cast<int>(m_found.size()) + 1);
    chord.setGroupNumber(group->m_counter);
    chord.m_group = group;
    group->addChord(&chord);
    m_found.push_back(group);
    QBGroupIndex& index = m_indizes.at(*chord.toKey());
    scan(static_cast<int>(i), index, group);
    // The first position may be that of an older chord which another group took; it goes all the
    // same, so that the next start of this harmony meets one occurrence less.
    index.removeFirstPosition();
  }
}

void QBGroupBuilder::scan(int start, QBGroupIndex& index, const std::shared_ptr<QBGroup>& group) {
  const int last = static_cast<int>(m_song->allChords().size()) - 1;
  // The flag stays set once a chord has matched: later chords are then looked at even if they
  // match nothing, up to the second-to-last one.
  bool matched = false;
  for (int at = start + 1; at < last; ++at)
    if (!extend(start, at, index, group, matched) || !matched) return;
}

/// Compares the chord at an index with those as far behind the later occurrences of the start's
/// harmony; false when one of those lies beyond the end.
bool QBGroupBuilder::extend(int start, int at, QBGroupIndex& index,
                            const std::shared_ptr<QBGroup>& group, bool& matched) {
  const auto& chords = m_song->allChords();
  const auto chordAt = [&](int i) -> QBChord& { return *chords[static_cast<std::size_t>(i)]; };
  index.firstPosition();
  for (int p = index.nextPosition(); p != QBGroupIndex::kNoPosition; p = index.nextPosition()) {
    const int other = p + (at - start);
    if (other >= static_cast<int>(chords.size())) return false;
    if (!sameKey(chordAt(at), chordAt(other))) continue;
    group->addChord(&chordAt(at));
    for (const int member : {at, p, other}) chordAt(member).m_group = group;
    matched = true;
  }
  return true;
}

/// The groups are numbered in the order of their starts, which is the order of the list.
void QBGroupBuilder::cleanUp() {
  std::erase_if(m_found,
                [](const auto& group) { return group->m_chords().size() < kFewestChords; });
  int number = 0;
  for (const auto& group : m_found) group->m_counter = ++number;
}

}  // namespace korvel
