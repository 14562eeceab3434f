// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

#include "platform/text/UserText.h"

namespace korvel {

/// One part of the program that can be tried out on the user's own machine.
struct SelfCheck {
  platform::Phrase title;
  /// Says what works. Throws an exception that says what is wrong and what to do. Main
  /// thread; some tenths of a second, for a large store or SoundFont more.
  std::function<platform::UserText()> run;
  /// The same in another thread, for not holding a window; empty where only the main thread may
  /// try. What fails here has to be run again, as a store that is saved meanwhile looks damaged.
  std::function<platform::UserText()> runBeside = {};
};

/// The parts in the order in which a recording meets them: store, decoding, transform, synthesiser,
/// sound devices. soundFont: the user's own, if one was chosen. Main thread.
std::vector<SelfCheck> selfChecks(const std::optional<std::filesystem::path>& soundFont = {});

}  // namespace korvel
