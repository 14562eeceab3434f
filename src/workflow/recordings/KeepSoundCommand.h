// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/loop/Slices.h"
#include "platform/persistence/Ref.h"
#include "platform/text/UserText.h"
#include "workflow/session/QBCommand.h"

namespace korvel {

class QBSong;
class SongRecording;

/// Keeps a copy of a song's recording beside the store, once its file is proven to be the
/// recording: a part at each step. The copy appears when it is complete; one that is cancelled, or
/// that the program ends in, leaves nothing. What goes wrong is told in the log.
class KeepSoundCommand final : public QBCommand {
 public:
  /// The song has a recording.
  explicit KeepSoundCommand(const QBSong& song);
  ~KeepSoundCommand() override;

  void prepare() override;
  void execute() override;
  void nextStep() override;
  void tearDown() override;
  /// A part of a copy is of no use.
  void stopAndKeep() override { cancelAndDrop(); }
  void cancelAndDrop() override;
  platform::UserText fullTitle() const override { return typeAndName(); }

  /// Called at its end, unless it is cancelled, with what went wrong; empty for nothing.
  void onEnded(std::function<void(const platform::UserText&)> listener) {
    m_ended = std::move(listener);
  }

 private:
  platform::Slices keeping();
  void end(const platform::UserText& problem);

  platform::Ref<const SongRecording> m_recording;
  std::string m_title;
  platform::Slices m_work;
  std::function<void(const platform::UserText&)> m_ended;
};

}  // namespace korvel
