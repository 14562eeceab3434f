// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace korvel::cli {

/// Accepts numbers from the least to the most. `CLI::Range` alone lets "nan" pass, which is within
/// no range.
inline CLI::Validator numbersWithin(double least, double most) {
  const CLI::Validator isNumber(
      [](const std::string& word) {
        return word.find_first_of("nN") == std::string::npos ? std::string()
                                                             : word + " is not a number";
      },
      "");
  return CLI::Range(least, most) & isNumber;
}

}  // namespace korvel::cli
