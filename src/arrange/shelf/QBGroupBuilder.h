// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "arrange/shelf/QBGroupIndex.h"
#include "model/songs/QBChordVisitor.h"

namespace korvel {

class QBGroup;
class QBSong;

/// Finds the runs of chords whose harmonies recur later in the song.
///
/// A run starts at every named chord that is in none yet and grows chord by chord for as long as
/// any later occurrence of its first harmony has gone on in the same way; once one has, it grows on
/// to the end of the search, taking only the chords that match.
class QBGroupBuilder final : public QBChordVisitor {
 public:
  using Groups = std::vector<std::shared_ptr<QBGroup>>;

  QBGroupBuilder(QBAlbum* target, QBSong* song);
  ~QBGroupBuilder() override;

  /// Leaves the groups of three chords or more in `m_groups`, numbered from 1. The chords know
  /// their group for as long as the builder lives; those that start one keep its first number in
  /// the attribute `groupNumber`.
  void build();
  /// Notes where the harmony of the chord occurs.
  void execute(QBChord* previous, QBChord* current, QBChord* next) override;
  const Groups& m_groups() const { return m_found; }

 private:
  void scanGroups();
  void scan(int start, QBGroupIndex& index, const std::shared_ptr<QBGroup>& group);
  bool extend(int start, int at, QBGroupIndex& index, const std::shared_ptr<QBGroup>& group,
              bool& matched);
  void cleanUp();

  platform::Ref<QBAlbum> m_trgAlbum;
  platform::Ref<QBSong> m_song;
  std::map<std::string, QBGroupIndex> m_indizes;
  Groups m_found;
};

}  // namespace korvel
