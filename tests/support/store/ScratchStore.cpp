// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/store/ScratchStore.h"

#include "model/store/KorvelModel.h"
#include "model/store/QBTabMgr.h"

namespace korvel::test {

ScratchStore::ScratchStore(Content content) {
  if (content == Content::none) storeFile(m_path).create();
  QBTabMgr::clearDb();
  QBTabMgr::setStorePath(m_path);
}

ScratchStore::~ScratchStore() {
  QBTabMgr::clearDb();
  QBTabMgr::setStorePath({});
}

}  // namespace korvel::test
