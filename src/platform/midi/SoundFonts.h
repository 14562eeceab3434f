// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "platform/midi/SoundFontFile.h"

namespace korvel::platform {

/// Finds a SoundFont to play with, among those that the user and the system have.
class SoundFonts {
 public:
  /// Folders of shared data, such as /usr/share; those that come first are preferred.
  struct Folders {
    std::vector<std::filesystem::path> user;
    std::vector<std::filesystem::path> system;

    /// $XDG_DATA_HOME, and $XDG_DATA_DIRS with /usr/share.
    static Folders ofMachine();
  };

  explicit SoundFonts(Folders folders) : m_folders(std::move(folders)) {}

  /// The chosen file, as it is, if the user chose one; otherwise the first that can play the
  /// program: of the user's own, then what the system has as its default, then any other. What was
  /// found is not the user's choice, so do not keep it as such. Throws SoundFontError when there is
  /// none.
  std::filesystem::path find(const std::optional<std::filesystem::path>& chosen, int program) const;

 private:
  std::vector<std::filesystem::path> candidates() const;

  Folders m_folders;
};

}  // namespace korvel::platform
