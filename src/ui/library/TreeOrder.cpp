// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/library/TreeOrder.h"

#include "model/songs/QBAlbum.h"
#include "model/songs/QBSong.h"
#include "model/store/QBTabMgr.h"
#include "model/store/SongLengths.h"
#include "ui/desktop/Text.h"
#include "ui/library/TreeModel.h"
#include "workflow/session/TreeNode.h"

namespace korvel::ui {
namespace {

/// Ids grow with every object that is made.
std::int64_t madeAt(const TreeNode& node) {
  return node.song() ? node.song()->objectId() : node.album()->objectId();
}

/// The one of no language knows nothing of numbers.
QLocale localeOfTitles() {
  const QLocale users;
  return users.language() == QLocale::C ? QLocale(QLocale::English) : users;
}

bool isSorted(const TreeNode* node) { return node && (node->song() || node->album()); }

}  // namespace

TreeOrder::TreeOrder(TreeModel& model, QObject* parent)
    : QSortFilterProxyModel(parent), m_model(model), m_collator(localeOfTitles()) {
  m_collator.setNumericMode(true);
  m_collator.setCaseSensitivity(Qt::CaseInsensitive);
  setSourceModel(&model);
}

void TreeOrder::setOrder(SongOrder order) {
  m_order = order;
  measure();
  sort(order == SongOrder::asStored ? -1 : 0);
  invalidate();  // to sort again by the same column would do nothing
}

void TreeOrder::measure() {
  if (m_order == SongOrder::byLength) m_lengths = chordCounts(QBTabMgr::db());
}

bool TreeOrder::lessThan(const QModelIndex& left, const QModelIndex& right) const {
  const auto one = m_model.nodeOf(left);
  const auto other = m_model.nodeOf(right);
  const bool isStored = m_order == SongOrder::byLength && one && one->album();
  if (isStored || !isSorted(one.get()) || !isSorted(other.get())) return left.row() < right.row();
  if (m_order == SongOrder::newestFirst) return madeAt(*one) > madeAt(*other);
  if (m_order == SongOrder::byLength) return lengthOf(*one) < lengthOf(*other);
  return m_collator.compare(toText(one->title()), toText(other->title())) < 0;
}

std::int64_t TreeOrder::lengthOf(const TreeNode& song) const {
  const auto found = m_lengths.find(song.song()->objectId());
  return found == m_lengths.end() ? 0 : found->second;
}

}  // namespace korvel::ui
