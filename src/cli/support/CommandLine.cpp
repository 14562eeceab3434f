// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/support/CommandLine.h"

#include <CLI/CLI.hpp>

#include "cli/support/UsageError.h"

namespace korvel::cli {
namespace {

constexpr int kWrongUsage = 2;

/// The parser reads "[a,b]" as a list; marked, such a name stays what it is.
constexpr char kMark = '\x01';

std::vector<std::string> markedArguments(int argc, char** argv) {
  std::vector<std::string> words;
  for (int i = argc - 1; i > 0; --i) {  // the parser takes them from the back
    const std::string word = argv[i];
    words.push_back(word.starts_with('[') ? kMark + word : word);
  }
  return words;
}

void unmark(std::string& word) {
  if (word.starts_with(kMark)) word.erase(0, 1);
}

template <class Action>
void translatingErrors(const Action& action) {
  try {
    action();
  } catch (const UsageError& error) {
    throw CLI::ValidationError(error.about(), error.what());
  }
}

/// `CLI::Range` alone lets "nan" pass, which is within no range.
CLI::Validator numbersWithin(double least, double most) {
  const CLI::Validator isNumber(
      [](const std::string& word) {
        return word.find_first_of("nN") == std::string::npos ? std::string()
                                                             : word + " is not a number";
      },
      "");
  return CLI::Range(least, most) & isNumber;
}

}  // namespace

// ---- Option

Option& Option::required() {
  m_option->required();
  return *this;
}

Option& Option::shownAs(const std::string& type) {
  m_option->type_name(type);
  return *this;
}

Option& Option::words(int count) {
  m_option->expected(count);
  return *this;
}

Option& Option::within(double least, double most) {
  m_option->check(numbersWithin(least, most));
  return *this;
}

Option& Option::wholeWithin(int least, int most) {
  m_option->check(CLI::Range(least, most));
  return *this;
}

Option& Option::oneOf(const std::vector<std::string>& words) {
  m_option->check(CLI::IsMember(words));
  return *this;
}

Option& Option::needs(const Option& other) {
  m_option->needs(other.m_option);
  return *this;
}

Option& Option::excludes(const Option& other) {
  m_option->excludes(other.m_option);
  return *this;
}

bool Option::isGiven() const { return !m_option->empty(); }

// ---- Command

Command::Command(CLI::App& app, const Command*& chosen) : m_app(app), m_chosen(chosen) {
  m_app.callback([this] {
    if (!m_action || !m_app.get_subcommands().empty()) return;
    if (m_check) translatingErrors(m_check);
    m_chosen = this;
  });
}

Command::~Command() = default;

Command& Command::command(const std::string& name, const std::string& description) {
  const bool isTool = m_app.get_parent() == nullptr;
  m_app.require_subcommand(isTool ? 1 : 0, 1);
  m_below.push_back(std::make_unique<Command>(*m_app.add_subcommand(name, description), m_chosen));
  return *m_below.back();
}

Option Command::option(const std::string& name, std::string& word, const std::string& help) {
  m_unmarks.emplace_back([&word] { cli::unmark(word); });
  return Option(m_app.add_option(name, word, help));
}

Option Command::option(const std::string& name, std::optional<std::string>& word,
                       const std::string& help) {
  m_unmarks.emplace_back([&word] {
    if (word) cli::unmark(*word);
  });
  return Option(m_app.add_option(name, word, help));
}

Option Command::option(const std::string& name, std::vector<std::string>& words,
                       const std::string& help) {
  m_unmarks.emplace_back([&words] {
    for (std::string& word : words) cli::unmark(word);
  });
  return Option(m_app.add_option(name, words, help));
}

Option Command::option(const std::string& name, int& number, const std::string& help) {
  return Option(m_app.add_option(name, number, help));
}

Option Command::option(const std::string& name, double& number, const std::string& help) {
  return Option(m_app.add_option(name, number, help));
}

Option Command::option(const std::string& name, std::optional<double>& number,
                       const std::string& help) {
  return Option(m_app.add_option(name, number, help));
}

Option Command::option(const std::string& name, std::vector<int>& numbers,
                       const std::string& help) {
  return Option(m_app.add_option(name, numbers, help));
}

Option Command::option(const std::string& name, const Reader& reader, const std::string& help) {
  const auto read = [reader](const std::string& word) { translatingErrors([&] { reader(word); }); };
  return Option(m_app.add_option_function<std::string>(name, read, help));
}

Option Command::flag(const std::string& name, bool& set, const std::string& help) {
  return Option(m_app.add_flag(name, set, help));
}

Option Command::flag(const std::string& name, const std::function<void()>& given,
                     const std::string& help) {
  return Option(m_app.add_flag_callback(name, given, help));
}

bool Command::isGiven(const std::string& name) const { return m_app.count(name) > 0; }

void Command::checkAtOnce(const Check& check) {
  m_app.parse_complete_callback([check] { translatingErrors(check); });
}

void Command::unmark() {
  for (const auto& each : m_unmarks) each();
  for (const auto& command : m_below) command->unmark();
}

// ---- CommandLine

CommandLine::CommandLine(const std::string& description, const std::string& name)
    : m_app(std::make_unique<CLI::App>(description, name)), m_root(*m_app, m_chosen) {}

CommandLine::~CommandLine() = default;

void CommandLine::setFooter(const std::string& footer) { m_app->footer(footer); }

std::optional<int> CommandLine::read(int argc, char** argv) {
  try {
    m_app->parse(markedArguments(argc, argv));
  } catch (const CLI::ParseError& error) {
    return m_app->exit(error) == 0 ? EXIT_SUCCESS : kWrongUsage;
  }
  m_root.unmark();
  return std::nullopt;
}

}  // namespace korvel::cli
