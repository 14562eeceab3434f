// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/exporting/RenderSongCommand.h"

#include "platform/files/FileError.h"
#include "platform/midi/FluidSynthesizer.h"
#include "playback/QBMIDIPlayer.h"
#include "support/RecordingViews.h"
#include "support/Testing.h"
#include "support/sound/SoundFont.h"
#include "support/store/FileSizeLimit.h"
#include "support/store/StandardStore.h"
#include "workflow/session/EditRefused.h"

namespace korvel {
namespace {

namespace fs = std::filesystem;

struct RenderSongCommandTest : testing::Test {
  std::unique_ptr<RenderSongCommand> command(QBSong* song, RenderedPart part = RenderedPart::song) {
    return std::make_unique<RenderSongCommand>(
        song, part, m_file,
        std::make_unique<platform::FluidSynthesizer>(m_font, std::vector{QBMIDIPlayer::kProgram}));
  }

  std::size_t filesInFolder() const {
    const fs::directory_iterator files(m_store.folder().path());
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
  }

  test::StandardStore m_store;
  test::RecordingViews m_views;
  const std::string m_file = m_store.folder().file("song.wav");
  const fs::path m_font = test::kSoundFont;
};

TEST_F(RenderSongCommandTest, loopIsWrittenOnlyWhenItIsAskedFor) {
  QBSong* song = m_store.song("S");
  for (int i = 0; i < 20; ++i) test::addChord(song, "x02210");
  song->setFromChord(song->chords().at(18));
  command(song)->run();
  EXPECT_EQ(m_views.log, std::vector{m_file});
  const auto whole = fs::file_size(m_file);
  command(song, RenderedPart::loop)->run();
  EXPECT_LT(fs::file_size(m_file), whole - std::uintmax_t{17} * 16000 * 4);
}

TEST_F(RenderSongCommandTest, nothingIsWrittenThatIsCancelledOrSilent) {
  EXPECT_THROW(command(m_store.song("Empty"))->runInBackground(), EditRefused);
  QBSong* silent = m_store.song("Rests");
  test::addChord(silent, "xxxxxx");
  EXPECT_THROW(command(silent)->runInBackground(), EditRefused);
  QBSong* song = m_store.song("S");
  for (int i = 0; i < 20; ++i) test::addChord(song, "x02210");
  const auto render = command(song);
  render->runInBackground();
  render->nextStep();
  render->cancelAndDrop();
  EXPECT_FALSE(render->isRunning());
  EXPECT_FALSE(fs::exists(m_file));

  const std::size_t files = filesInFolder();
  for (const rlim_t bytes : {rlim_t{0}, rlim_t{30000}}) {
    const test::FileSizeLimit disk(bytes);
    const auto onFullDisk = command(song);
    try {
      onFullDisk->runInBackground();
      while (onFullDisk->isRunning()) onFullDisk->nextStep();
      EXPECT_NE(m_views.log.back().find("cannot write"), std::string::npos) << m_views.log.back();
    } catch (const platform::FileError& error) {
      EXPECT_FALSE(onFullDisk->isRunning());
    }
  }
  EXPECT_EQ(filesInFolder(), files);
}

}  // namespace
}  // namespace korvel
