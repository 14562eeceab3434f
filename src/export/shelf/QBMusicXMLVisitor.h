// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace korvel {

class QBMusicXMLTag;

/// What `QBMusicXMLTag::iterate` walks over a tree of tags. For each tag `pre` comes first, then
/// the tags below it one level deeper, then `execute` and `post`, whose false ends the walk.
class QBMusicXMLVisitor {
 public:
  QBMusicXMLVisitor() = default;
  QBMusicXMLVisitor(const QBMusicXMLVisitor&) = delete;
  QBMusicXMLVisitor& operator=(const QBMusicXMLVisitor&) = delete;
  virtual ~QBMusicXMLVisitor() = default;

  virtual bool pre(const QBMusicXMLTag& tag) = 0;
  virtual bool execute(const QBMusicXMLTag& tag) = 0;
  virtual bool post(const QBMusicXMLTag& tag) = 0;

  void increaseDepth() { ++m_depth; }
  void decreaseDepth() { --m_depth; }
  /// The indentation of this depth.
  std::string shift() const;

 protected:
  int m_depth = 0;
  std::vector<const QBMusicXMLTag*> m_computed;  ///< For visitors that collect tags.
};

}  // namespace korvel
