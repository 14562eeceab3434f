// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace korvel::test {

/// What stands behind the name of a command.
class Words {
 public:
  explicit Words(std::vector<std::string> words) : m_words(std::move(words)) {}

  /// Empty beyond the last one.
  std::string operator[](std::size_t at) const { return at < size() ? m_words[at] : ""; }
  int number(std::size_t at) const { return std::stoi((*this)[at]); }
  double real(std::size_t at) const { return std::stod((*this)[at]); }
  bool has(const std::string& word) const;
  std::size_t size() const { return m_words.size(); }
  /// All from there on; joined with blanks where a text is wanted.
  std::vector<std::string> from(std::size_t at) const;
  std::string textFrom(std::size_t at) const;
  auto begin() const { return m_words.begin(); }
  auto end() const { return m_words.end(); }

 private:
  std::vector<std::string> m_words;
};

/// By their names; each answers what is to be read behind it.
using Commands = std::map<std::string, std::function<std::string(const Words&)>>;

/// Has a file of `data/` performed: of its lines those behind "$ ", whose answers must stand behind
/// them again. Lines behind "# " say why. An exception is answered with "! " and what it says, or
/// the type of one of the standard library.
void expectScript(const std::string& name, const Commands& commands);

}  // namespace korvel::test
