// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace korvel::cli {

/// What has to be ready before a command's action.
enum class Store {
  filled,    ///< The store, which is made and filled when there is none.
  existing,  ///< A store that is there; an empty one would not help.
  none
};

/// An option of a command, to say more about it. Only for as long as commands are described.
class Option {
 public:
  explicit Option(CLI::Option* option) : m_option(option) {}

  Option& required();
  /// How its word is called in the help; a positional's name says enough with "".
  Option& shownAs(const std::string& type);
  Option& words(int count);
  /// Numbers from the least to the most; the help tells them.
  Option& within(double least, double most);
  Option& wholeWithin(int least, int most);
  Option& oneOf(const std::vector<std::string>& words);
  Option& needs(const Option& other);
  Option& excludes(const Option& other);
  /// Whether it stands on the line; for checks, as they run.
  bool isGiven() const;

 private:
  CLI::Option* m_option;
};

/// One command of the tool: its options, its checks and its action.
///
/// An option is bound to a variable that lives as long as the command (`own`) and keeps its value
/// when the option is not given. "FILE" names a positional, "--file" an option. Help, messages and
/// order are those of the parser behind it, which no other file knows.
class Command {
 public:
  using Check = std::function<void()>;
  using Action = std::function<int()>;
  using Reader = std::function<void(const std::string&)>;

  /// chosen is where a command that is on the line leaves itself.
  Command(CLI::App& app, const Command*& chosen);
  Command(const Command&) = delete;
  Command& operator=(const Command&) = delete;
  ~Command();

  /// A command below this. This itself is then run only when the line names none of those below.
  Command& command(const std::string& name, const std::string& description);

  /// Makes a variable, or a group of them, for options to be bound to.
  template <class Variables>
  Variables& own() {
    auto made = std::make_shared<Variables>();
    m_owned.push_back(made);
    return *made;
  }

  Option option(const std::string& name, std::string& word, const std::string& help);
  Option option(const std::string& name, std::optional<std::string>& word, const std::string& help);
  Option option(const std::string& name, std::vector<std::string>& words, const std::string& help);
  Option option(const std::string& name, int& number, const std::string& help);
  Option option(const std::string& name, double& number, const std::string& help);
  Option option(const std::string& name, std::optional<double>& number, const std::string& help);
  Option option(const std::string& name, std::vector<int>& numbers, const std::string& help);
  /// The reader may throw UsageError.
  Option option(const std::string& name, const Reader& reader, const std::string& help);
  Option flag(const std::string& name, bool& set, const std::string& help);
  Option flag(const std::string& name, const std::function<void()>& given, const std::string& help);
  bool isGiven(const std::string& name) const;

  /// Has the words of this command looked at as soon as they are read, ahead of what is wrong
  /// elsewhere on the line, and by the check too, which may throw UsageError. Once: the last call
  /// counts.
  void checkAtOnce(const Check& check = [] {});
  /// A check of this command, if it is the one to be run, when all else on the line is right.
  void checkLast(Check check) { m_check = std::move(check); }

  /// The action answers the exit status, or nothing when an exception is all that can go wrong.
  template <class Answering>
  void does(Answering action) {
    if constexpr (std::is_void_v<std::invoke_result_t<Answering>>)
      m_action = [action] {
        action();
        return EXIT_SUCCESS;
      };
    else
      m_action = std::move(action);
  }
  int run() const { return m_action(); }

  void uses(Store store) { m_store = store; }
  Store store() const { return m_store; }

  /// Takes the marks off (`CommandLine::read`) which kept words from being read as lists.
  void unmark();

 private:
  CLI::App& m_app;
  const Command*& m_chosen;
  Check m_check;
  Action m_action;
  Store m_store = Store::filled;
  std::vector<std::function<void()>> m_unmarks;
  std::vector<std::shared_ptr<void>> m_owned;
  std::vector<std::unique_ptr<Command>> m_below;
};

}  // namespace korvel::cli
