// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace korvel {

/// A node of the tree of albums, songs and tunings.
class TreeNode {
 public:
  enum class Type { other = 0, song = 1, album = 2 };

  virtual ~TreeNode() = default;
  virtual Type type() const { return Type::other; }
  virtual std::string title() const { return ""; }
};

}  // namespace korvel
