// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCollator>
#include <QSortFilterProxyModel>
#include <cstdint>
#include <map>

#include "ui/desktop/SongOrder.h"

namespace korvel {
class TreeNode;
}

namespace korvel::ui {

class TreeModel;

/// The library in an order of its own, and as much of it as a search has found.
class TreeOrder final : public QSortFilterProxyModel {
  Q_OBJECT

 public:
  /// The model outlives this.
  explicit TreeOrder(TreeModel& model, QObject* parent = nullptr);

  void setOrder(SongOrder order);
  SongOrder order() const { return m_order; }
  /// To be called before the model follows the store: lengths may have changed.
  void measure();

 protected:
  bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

 private:
  std::int64_t lengthOf(const TreeNode& song) const;

  TreeModel& m_model;
  SongOrder m_order = SongOrder::asStored;
  QCollator m_collator;
  std::map<std::int64_t, std::int64_t> m_lengths;  ///< Chords, by the song's id.
};

}  // namespace korvel::ui
