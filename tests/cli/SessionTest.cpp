// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ToolFixture.h"
#include "support/Approved.h"
#include "support/sound/SoundFont.h"

namespace korvel {
namespace {

/// What the shell knows in front of each command; the README beside the sessions explains it.
constexpr const char* kPrelude = R"sh(
cd "$1" && export KORVEL="$0" DATA="$2" FONT="$3" XDG_DATA_HOME="$1"
DEMO="$DATA/../../resources/demo/First Steps.ogg"
korvel() { "$KORVEL" --store "${STORE:-Korvel.sqlite}" "$@"; }
has() { grep -F -e "$1" > /dev/null; }
longer() { test "$(wc -c < "$1")" -gt $(($2 * 65536)); }
shapes() { python3 "$DATA/shell/shapes.py"; }
drawn() { python3 "$DATA/shell/drawn.py" "$@"; }
sql() { python3 "$DATA/shell/sql.py" "$@"; }
signalled() { python3 "$DATA/shell/signalled.py" "$@"; }
)sh";

/// A shell session of `data/sessions`; what was printed in it must be printed again.
struct SessionTest : test::ToolFixture, testing::WithParamInterface<std::string> {
  SessionTest() {
    test::writeWav(file("silence.wav"), std::vector<std::int16_t>(100000));
    test::writeWav(file("notes.wav"), test::separateNotes(test::notesOf("000000")));
    // Two chords and four notes; the last are lower and higher than the guitar.
    test::writeWav(file("take.wav"), test::play({{{}, 0.5},
                                                 {test::notesOf("x32010"), 1.5},
                                                 {test::notesOf("xx0232"), 1.5},
                                                 {{60}, 0.5},
                                                 {{62}, 0.5},
                                                 {{38}, 0.5},
                                                 {{78}, 0.5}}));
  }

  std::string performed(const std::string& line) const {
    const test::Outcome outcome =
        test::runProgram({"/bin/sh", "-c", kPrelude + line, KORVEL_CLI, m_folder.path(),
                          KORVEL_TEST_DATA, test::kSoundFont});
    std::string text = "$ " + line + '\n' + outcome.out;
    std::istringstream complaints(outcome.err);
    for (std::string each; std::getline(complaints, each); text += "! " + each + '\n')
      std::erase(each, '\r');
    return outcome.status == 0 ? text : text + '[' + std::to_string(outcome.status) + "]\n";
  }
};

TEST_P(SessionTest, goesAsWritten) {
  const std::string name = "sessions/" + GetParam() + ".txt";
  std::istringstream script(test::readFile(KORVEL_TEST_DATA "/" + name));
  std::string received;
  for (std::string line; std::getline(script, line);)
    if (line.starts_with("$ "))
      received += performed(line.substr(2));
    else if (line.starts_with('#'))
      received += line + '\n';
  EXPECT_FALSE(received.empty());
  test::expectApproved(received, name);
}

std::vector<std::string> sessions() {
  std::vector<std::string> names;
  for (const auto& file : std::filesystem::directory_iterator(KORVEL_TEST_DATA "/sessions"))
    if (file.path().extension() == ".txt") names.push_back(file.path().stem());
  return names;
}

INSTANTIATE_TEST_SUITE_P(, SessionTest, testing::ValuesIn(sessions()),
                         [](const auto& session) { return session.param; });

}  // namespace
}  // namespace korvel
