// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "workflow/session/SessionViews.h"

namespace korvel::cli {

/// The session's views on a terminal: log lines and a progress bar on stderr, tablature and
/// answers on stdout. Stays attached to the session until the process ends.
class Console final : public OutputView, public SavePanel, public FatalAlert {
 public:
  static Console& attached();

  void addLogText(const platform::UserText& text) override;
  /// The proposed name in the current folder; throws CliError when there is such a file already.
  std::optional<std::string> chooseFile(const std::string& proposedName) override;
  void show(const platform::UserText& text) override;
  int exitStatus() const override;

  /// A log line of the tool's own, which speaks English.
  void note(std::string_view text);
  /// share: 0..1, where 1 takes the bar away. Draws nothing unless stderr is a terminal.
  void progress(double share);
  /// Something that changes: rewritten on a line of stderr when that is a terminal, else a line for
  /// each change.
  void status(const std::string& text);
  void endStatus();
  void error(std::string_view text);
  /// One that names the file, whatever went wrong with it. outcome: " was not imported", or "".
  void errorOf(const std::string& file, std::string_view outcome, const std::exception& exception);
  /// Writes to stdout; throws CliError when that fails.
  void print(std::string_view text);
  /// Writes lines of a song, in which other signs that a terminal would obey are seen as "\x1b".
  void printText(std::string_view text);
  /// Writes names as one line to stdout, in which line breaks and the like are seen as "\n".
  void printLine(std::string_view names);

 private:
  Console() = default;
  void clearProgress();
  int m_drawnPercent = -1;
  std::string m_status;
};

}  // namespace korvel::cli
