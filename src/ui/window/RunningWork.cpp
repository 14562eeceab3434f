// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/window/RunningWork.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "ui/desktop/Preferences.h"
#include "ui/sound/PlayerBar.h"
#include "ui/sound/RecordPanel.h"
#include "workflow/hearing/ImportDesk.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {

bool RunningWork::isBusy() const {
  return m_player.song() || m_record.isBusy() || QBSession::session().hasRunningJobs();
}

void RunningWork::remember() const {
  if (!m_isOver) Preferences().setRunningImports(ImportDesk::running());
}

Quitting RunningWork::askBeforeQuitting() const {
  if (m_record.isRecording() && !mayEndRecording(&m_window)) return Quitting::notNow;
  const auto imports = ImportDesk::running();
  return imports.empty() ? Quitting::keepHeard : askAboutImports(&m_window, imports);
}

void RunningWork::end(Quitting quitting) {
  m_player.stop();
  m_player.setSong(nullptr);
  remember();
  std::vector<ImportUnderWay> left;
  if (quitting == Quitting::goOnLater) left = ImportDesk::leaveAll();
  if (const auto take = m_record.finish()) left.push_back(*take);
  ImportDesk::stopAll();
  if (!ImportDesk::running().empty()) waitForImports(&m_window);
  std::ranges::copy(ImportDesk::endAll(), std::back_inserter(left));
  Preferences().setRunningImports(left);
  m_isOver = true;  // the panel of jobs still notices that none runs any more
}

}  // namespace korvel::ui
