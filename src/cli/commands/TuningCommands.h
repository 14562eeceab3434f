// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace korvel::cli {

/// A tuning to add: what it begins as, by name, or its open strings.
struct NewTuning {
  std::string like{};
  std::vector<std::string> notes{};  ///< Such as "D2", the lowest string first; six or none.
  std::optional<std::string> name{};
};

/// The tuning of new songs from now on.
void selectTuningNamed(const std::string& name);
/// Prints its name. Throws CliError, and EditRefused for strings that cannot be.
void addTuning(const NewTuning& tuning);

}  // namespace korvel::cli
