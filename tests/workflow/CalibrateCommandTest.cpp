// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/hearing/CalibrateCommand.h"

#include <gtest/gtest.h>

#include "audio/MonoTrack.h"
#include "model/instruments/QBOvertone.h"
#include "model/instruments/QBSpectrum.h"
#include "platform/loop/PlainRunLoop.h"
#include "platform/persistence/UndoManager.h"
#include "support/Guitar.h"
#include "support/RecordingViews.h"
#include "support/StandardStore.h"
#include "workflow/library/LibraryEdits.h"
#include "workflow/library/TuningEdits.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

using test::Strum;

class CalibrateCommandTest : public testing::Test {
 protected:
  CalibrateCommandTest() {
    QBTabMgr::db().createInstrument(m_store.standard(), "Old", true, true, 0.5F, 1);
    QBTabMgr::db().save();
  }

  /// With silence between, in a file of two channels.
  std::string record(const std::vector<int>& notes) const {
    std::vector<Strum> strums;
    for (const int note : notes) strums.insert(strums.end(), {{{}, 0.5}, {{note}, 1.5}});
    std::vector<std::int16_t> stereo;
    for (const std::int16_t sample : test::play(strums)) stereo.insert(stereo.end(), 2, sample);
    const std::string file = m_store.folder().file("notes.wav");
    test::writeWav(file, stereo, 44100, 2);
    return file;
  }
  std::unique_ptr<CalibrateCommand> hear(const std::string& file) {
    auto job = std::make_unique<CalibrateCommand>(std::make_shared<MonoTrack>(file), "notes.wav");
    job->runInBackground();
    platform::PlainRunLoop::ofProcess().runUntil([&] { return !job->isRunning(); });
    return job;
  }
  static std::vector<int> asked() {
    std::vector<int> notes;
    for (const CalibrationNote& note : notesToCalibrate()) notes.push_back(note.midi);
    return notes;
  }

  test::StandardStore m_store;
  test::RecordingViews m_views;
};

TEST_F(CalibrateCommandTest, instrumentOfPlayedNotesIsKeptExportedAndUndone) {
  const std::vector<int> played = asked();
  ASSERT_EQ(played.size(), 12U);
  const auto job = hear(record(played));
  EXPECT_EQ(job->fullTitle(), "Calibration: notes.wav");
  EXPECT_EQ(job->m_percent, 100);
  EXPECT_EQ(job->problem(), std::nullopt);
  std::vector<int> heard;
  for (const auto& note : job->notes()) heard.push_back(note.midi);
  EXPECT_EQ(heard, played);
  EXPECT_NEAR(job->notes()[1].seconds, 2.5, 0.1);
  EXPECT_NEAR(job->notes()[1].decibels, -21, 3);
  EXPECT_FALSE(QBTabMgr::db().context().hasChanges()) << "hearing stores nothing";

  EXPECT_THROW(addInstrument("Old", job->calibration()), EditRefused);
  EXPECT_THROW(addInstrument(" ", job->calibration()), EditRefused);
  QBInstrument* mine = addInstrument("Mine", job->calibration());
  EXPECT_EQ(QBTabMgr::db().selectedInstrument(), mine);
  EXPECT_TRUE(mine->isCalibrated());
  EXPECT_FALSE(QBTabMgr::db().context().hasChanges());

  const std::string file = m_store.folder().file("mine.xml");
  test::writeFile(file, definitionOf(*mine));
  QBInstrument* copy = importInstrument(file);
  for (int string = 0; string < kStrings; ++string) {
    const auto& measured = mine->findSpectrumByString(string)->readSortedTones();
    const auto& read = copy->findSpectrumByString(string)->readSortedTones();
    ASSERT_EQ(read.size(), measured.size()) << string;
    EXPECT_NE(mine->findSpectrumByString(string)->findOvertone(string, 0), nullptr)
        << "every string is heard itself";
    for (const auto& [place, overtone] : measured)
      EXPECT_EQ(read.at(place)->hits(), overtone->hits());
  }
  mine->setName("Pete's");
  EXPECT_THROW(definitionOf(*mine), EditRefused) << "its reader would stop there";
  mine->setName("Mine");
  QBTabMgr::db().save();

  EXPECT_EQ(QBTabMgr::db().context().undoManager().undoActionName(), "Import Instrument");
  QBSession::session().undo();
  EXPECT_EQ(QBTabMgr::db().context().undoManager().undoActionName(), "Calibrate Instrument");
  QBSession::session().undo();
  ASSERT_EQ(QBTabMgr::db().instruments().size(), 1U);
  EXPECT_EQ(QBTabMgr::db().selectedInstrument()->name(), "Old");
}

TEST_F(CalibrateCommandTest, saysWhichStringIsMissingOrWhatIsWrong) {
  auto notes = asked();
  notes.resize(6);
  const auto lower = hear(record(notes));
  EXPECT_FALSE(lower->isComplete());
  EXPECT_NE(lower->problem()->find("String 2 was not heard"), std::string::npos)
      << *lower->problem();
  EXPECT_NE(hear(record({}))->problem()->find("Nothing is heard"), std::string::npos);
  const std::string chords = m_store.folder().file("chords.wav");
  test::writeWav(chords, test::fewChords());
  EXPECT_NE(hear(chords)->problem()->find("No single note"), std::string::npos);
  selectTuning(*newTuning(KnownTuning::openG));
  EXPECT_THROW(notesToCalibrate(), EditRefused);
}

TEST_F(CalibrateCommandTest, endsEarlyWithWhatItHasOrWithoutATrace) {
  const std::string file = record(asked());
  CalibrateCommand job(std::make_shared<MonoTrack>(file), "notes.wav");
  job.runInBackground();
  job.nextStep();
  job.stopAndKeep();
  platform::PlainRunLoop::ofProcess().runUntil([&] { return !job.isRunning(); });
  EXPECT_LT(job.notes().size(), 12U);
  CalibrateCommand dropped(std::make_shared<MonoTrack>(file), "notes.wav");
  dropped.onFinished([] { ADD_FAILURE() << "nobody waits for it"; });
  dropped.runInBackground();
  dropped.nextStep();
  dropped.cancelAndDrop();
  EXPECT_FALSE(dropped.isRunning());
}

}  // namespace
}  // namespace korvel
