// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "arrange/shelf/QBToneGroup.h"
#include "platform/persistence/Ref.h"

namespace korvel {

class QBMatrix;
class QBSong;

/// Looks at a finished song string by string for runs of the same fret, for one song and one use.
class QBChordSplitter {
 public:
  using Group = std::shared_ptr<QBToneGroup>;
  using Groups = std::vector<Group>;

  /// The chords of index [from, to) are those that a regrouped song is asked of.
  QBChordSplitter(QBSong* song, int from, int to);
  ~QBChordSplitter();

  /// Builds and fills up the groups, then generates the song.
  QBSong* split();
  /// Splits and deletes the song again; there is no matrix, the answer is null.
  const QBMatrix* toMatrix();

  // Steps.
  void buildGroups();
  void fillUp();
  /// The groups that begin on other strings while the group lasts or right after it; one that is
  /// filed under several positions comes several times.
  Groups collectDependentGroups(const QBToneGroup& group) const;
  /// The largest end, position and length added; -1 without groups.
  static int computeMaximum(const Groups& groups);
  /// Files every group under each position that it covers.
  void rebuildGroups();
  /// An empty song "Splitted" in no album: chords are not regrouped.
  QBSong* generateSong();

  // Draw together groups that begin, or end, one chord apart, until none do. The list is sorted.
  static void fillUpLeft(Groups& groups);
  static void fillUpRight(Groups& groups);

  /// "%2d,%4d" of the string and the position of the chord.
  static std::string buildKey(int string, int position);

  int m_from;
  int m_to;
  std::map<std::string, Group> m_groups;  ///< By `buildKey`.

 private:
  Group groupAt(int string, int position) const;

  platform::Ref<QBSong> m_source;
  platform::Ref<QBSong> m_song;
};

}  // namespace korvel
