// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>

#include "support/Process.h"
#include "support/store/ScratchFolder.h"

namespace korvel::test {

/// Sets a variable of the environment for as long as it lives.
class EnvironmentVariable {
 public:
  EnvironmentVariable(std::string name, const std::string& value);
  EnvironmentVariable(const EnvironmentVariable&) = delete;
  EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;
  ~EnvironmentVariable();

 private:
  const std::string m_name;
  std::optional<std::string> m_before;
};

/// A sound server of the test's own, which everything that the test starts plays on: with the card
/// "Card" and those that are plugged in. What a card plays is recorded from its "Monitor of Card".
class VirtualSoundCard {
 public:
  VirtualSoundCard();
  VirtualSoundCard(const VirtualSoundCard&) = delete;
  VirtualSoundCard& operator=(const VirtualSoundCard&) = delete;
  ~VirtualSoundCard();

  /// A second card of some name; its id is what it is unplugged by.
  void plug(const std::string& id, const std::string& name);
  void unplug(const std::string& id);
  void killServer();
  /// Any program plays on a card of the server.
  bool isPlaying() const;

 private:
  const ScratchFolder m_folder;
  EnvironmentVariable m_server;
  EnvironmentVariable m_runtime;
  Running m_daemon;
  std::map<std::string, std::string> m_modules;
  bool m_alive = true;
};

/// Whether that became so within a minute.
bool eventually(const std::function<bool()>& condition);

}  // namespace korvel::test
