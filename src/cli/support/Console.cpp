// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/support/Console.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>

#include "cli/support/CliError.h"
#include "platform/files/Files.h"
#include "platform/text/UserError.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/QBSession.h"

namespace korvel::cli {
namespace {

constexpr int kBarWidth = 40;

/// Messages are one line each, whatever they quote.
std::string oneLine(std::string_view text) {
  std::string line;
  bool broken = false;
  for (const char c : text) {
    const bool lineBreak = c == '\r' || c == '\n';
    if (!lineBreak) {
      if (broken) line += ' ';
      line += c;
    }
    broken = lineBreak;
  }
  return line;
}

/// Whether a terminal takes what stands there for an order. In UTF-8 those from U+0080 to U+009F
/// have two bytes.
bool isControl(std::string_view text, std::size_t at) {
  const auto code = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  if (code(at) < 0x20 || code(at) == 0x7f) return true;
  const bool isSecond = at > 0 && code(at - 1) == 0xc2;
  const bool isFirst = code(at) == 0xc2 && at + 1 < text.size();
  return (isSecond && code(at) < 0xa0) || (isFirst && code(at + 1) < 0xa0);
}

std::string written(char c) {
  constexpr std::string_view kHex = "0123456789abcdef";
  const auto code = static_cast<unsigned char>(c);
  if (c == '\n') return "\\n";
  if (c == '\r') return "\\r";
  if (c == '\t') return "\\t";
  return std::string("\\x") + kHex[code / 16] + kHex[code % 16];
}

/// kept: what is left as it is of that which a terminal takes for an order.
std::string visible(std::string_view text, std::string_view kept = {}) {
  std::string shown;
  for (std::size_t i = 0; i < text.size(); ++i)
    if (isControl(text, i) && kept.find(text[i]) == std::string_view::npos)
      shown += written(text[i]);
    else
      shown += text[i];
  return shown;
}

constexpr std::string_view kOfLines = "\r\n\t";

bool isTerminal() {
  static const bool terminal = isatty(STDERR_FILENO) != 0;
  return terminal;
}

}  // namespace

Console& Console::attached() {
  static Console* console = [] {
    auto* made = new Console;
    SessionViews views;
    views.output = made;
    views.savePanel = made;
    views.alert = made;
    QBSession::session().attach(views);
    return made;
  }();
  return *console;
}

void Console::addLogText(const platform::UserText& text) { note(text.english()); }

void Console::note(std::string_view text) {
  clearProgress();
  std::cerr << visible(text, kOfLines) << std::endl;
}

std::optional<std::string> Console::chooseFile(const std::string& proposedName) {
  std::string file = proposedName;
  std::ranges::replace(file, '/', '_');
  if (platform::isThere(file))
    throw EditRefused(platform::UserText::verbatim(
        file + ": there is a file of that name already; move it away first"));
  return file;
}

void Console::show(const platform::UserText& text) { error(text.english()); }

int Console::exitStatus() const { return EXIT_FAILURE; }

void Console::progress(double share) {
  const bool terminal = isTerminal();
  const int percent = static_cast<int>(share * 100.0);
  if (share >= 1) clearProgress();
  if (!terminal || share >= 1 || percent == m_drawnPercent) return;
  m_drawnPercent = percent;
  const int filled = percent * kBarWidth / 100;
  std::cerr << "\r[" << std::string(static_cast<std::size_t>(filled), '#')
            << std::string(static_cast<std::size_t>(kBarWidth - filled), ' ') << "] " << percent
            << " %" << std::flush;
}

void Console::status(const std::string& text) {
  if (text == m_status) return;
  m_status = text;
  if (isTerminal())
    std::cerr << '\r' << text << std::flush;
  else
    std::cerr << text << std::endl;
}

void Console::endStatus() {
  if (isTerminal() && !m_status.empty()) std::cerr << std::endl;
  m_status.clear();
}

void Console::clearProgress() {
  if (m_drawnPercent < 0) return;
  m_drawnPercent = -1;
  std::cerr << "\r\033[K";
}

void Console::error(std::string_view text) {
  clearProgress();
  std::cerr << "korvel-cli: " << visible(oneLine(text), "\t") << std::endl;
}

void Console::errorOf(const std::string& file, std::string_view outcome,
                      const std::exception& exception) {
  const std::string what = platform::textOf(exception).english();
  error(what.starts_with(file) ? what : file + std::string(outcome) + ": " + what);
}

void Console::print(std::string_view text) {
  clearProgress();
  std::cout << text << std::flush;
  if (!std::cout) throw CliError("cannot write to the standard output; check where it leads");
}

void Console::printText(std::string_view text) { print(visible(text, kOfLines)); }

void Console::printLine(std::string_view names) { print(visible(names) + '\n'); }

}  // namespace korvel::cli
