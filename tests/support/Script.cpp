// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Script.h"

#include <cxxabi.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <typeinfo>

#include "support/Approved.h"
#include "support/store/ScratchFolder.h"

namespace korvel::test {
namespace {

std::string typeOf(const std::exception& problem) {
  const std::unique_ptr<char, decltype(&std::free)> name(
      abi::__cxa_demangle(typeid(problem).name(), nullptr, nullptr, nullptr), &std::free);
  return name.get();
}

std::string answerTo(const std::string& line, const Commands& commands) {
  std::istringstream text(line);
  std::string name;
  text >> name;
  std::vector<std::string> words;
  for (std::string word; text >> word;) words.push_back(word);
  const auto command = commands.find(name);
  if (command == commands.end()) return "no command " + name;
  try {
    return command->second(Words(words));
  } catch (const std::exception& problem) {
    const std::string type = typeOf(problem);
    return "! " + (type.starts_with("std::") ? type : problem.what());
  }
}

}  // namespace

bool Words::has(const std::string& word) const {
  return std::ranges::find(m_words, word) != m_words.end();
}

std::vector<std::string> Words::from(std::size_t at) const {
  return {m_words.begin() + static_cast<std::ptrdiff_t>(std::min(at, size())), m_words.end()};
}

std::string Words::textFrom(std::size_t at) const {
  std::string text;
  for (const std::string& word : from(at)) text += (text.empty() ? "" : " ") + word;
  return text;
}

void expectScript(const std::string& name, const Commands& commands) {
  std::istringstream script(readFile(KORVEL_TEST_DATA "/" + name));
  std::string received;
  for (std::string line; std::getline(script, line);) {
    if (line.starts_with('#')) received += line + '\n';
    if (!line.starts_with("$ ")) continue;
    std::string answer = answerTo(line.substr(2), commands);
    while (answer.ends_with('\n') || answer.ends_with(' ')) answer.pop_back();
    received += line + '\n' + answer + (answer.empty() ? "" : "\n");
  }
  EXPECT_FALSE(received.empty()) << name;
  expectApproved(received, name);
}

}  // namespace korvel::test
