// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvel {

class AlbumNode;
class InstrumentNode;
class QBSongNode;
class TuningNode;

/// Does something else with each kind of node (`TreeNode::accept`).
class NodeVisitor {
 public:
  virtual ~NodeVisitor() = default;
  virtual void visit(QBSongNode& node) = 0;
  virtual void visit(AlbumNode& node) = 0;
  virtual void visit(TuningNode& node) = 0;
  virtual void visit(InstrumentNode& node) = 0;
};

}  // namespace korvel
