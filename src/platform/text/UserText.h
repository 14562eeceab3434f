// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <concepts>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace korvel::platform {

/// A line of the program's own, as it is written in English. %1, %2, ... stand for what is put into
/// it. Made by `phrase`, so that translators get it.
struct Phrase {
  const char* context = "";  ///< Under which translators find it.
  const char* english = "";

  constexpr bool empty() const { return *english == '\0'; }
};

/// Marks a line for translation where it is written: scripts/translate collects what this is called
/// with. Both have to be literals.
consteval Phrase phrase(const char* context, const char* english) { return {context, english}; }

/// What a user is told, as a value: a phrase and what is put into it, which may be texts
/// themselves. Lower layers make it, and a front end joins it in the user's language.
class UserText {
 public:
  /// Nothing to tell.
  UserText() = default;
  /// As many arguments as the phrase has places: texts, phrases, names and whole numbers.
  template <class... Arguments>
  UserText(const Phrase& phrase, const Arguments&... arguments)
      : m_phrase(phrase), m_arguments{argument(arguments)...} {
    requirePlaces();
  }

  /// A name, a list of names or a message of the system: the same in every language.
  static UserText verbatim(std::string text);

  bool empty() const { return m_phrase.empty() && m_verbatim.empty(); }
  std::string english() const;
  /// The whole text, with its phrases in the words of `translate`.
  std::string in(const std::function<std::string(const Phrase&)>& translate) const;

 private:
  static const UserText& argument(const UserText& text) { return text; }
  static UserText argument(std::string_view name) { return verbatim(std::string(name)); }
  static UserText argument(std::integral auto number) { return verbatim(std::to_string(number)); }
  void requirePlaces() const;

  Phrase m_phrase{};  ///< None of a text that is verbatim.
  std::vector<UserText> m_arguments;
  std::string m_verbatim;
};

}  // namespace korvel::platform
