// SPDX-License-Identifier: GPL-3.0-or-later
#include "workflow/hearing/CalibrateCommand.h"

#include "audio/MonoTrack.h"
#include "model/instruments/QBOvertone.h"
#include "model/instruments/QBSpectrum.h"
#include "platform/loop/PlainRunLoop.h"
#include "platform/persistence/UndoManager.h"
#include "support/RecordingViews.h"
#include "support/Testing.h"
#include "support/sound/Guitar.h"
#include "support/store/StandardStore.h"
#include "workflow/library/LibraryEdits.h"
#include "workflow/library/TuningEdits.h"
#include "workflow/session/EditRefused.h"
#include "workflow/session/QBSession.h"

namespace korvel {
namespace {

struct CalibrateCommandTest : testing::Test {
  CalibrateCommandTest() {
    QBTabMgr::db().createInstrument(m_store.standard(), "Old", true, true, 0.5F, 1);
    QBTabMgr::db().save();
  }

  /// With silence between, in a file of two channels.
  std::string record(const std::vector<int>& notes) const {
    const std::string file = m_store.folder().file("notes.wav");
    test::writeWav(file, test::stereo(test::separateNotes(notes)), 44100, 2);
    return file;
  }
  std::unique_ptr<CalibrateCommand> hear(const std::string& file) {
    auto job = std::make_unique<CalibrateCommand>(std::make_shared<MonoTrack>(file), "notes.wav",
                                                  *m_store.standard());
    job->runInBackground();
    platform::PlainRunLoop::ofProcess().runUntil([&] { return !job->isRunning(); });
    return job;
  }
  std::vector<int> asked() const {
    std::vector<int> notes;
    for (const CalibrationNote& note : notesToCalibrate(*m_store.standard()))
      notes.push_back(note.midi);
    return notes;
  }

  test::StandardStore m_store;
  test::RecordingViews m_views;
};

TEST_F(CalibrateCommandTest, instrumentOfPlayedNotesIsKeptAndUndone) {
  const std::vector<int> played = asked();
  ASSERT_EQ(played.size(), 12U);
  const auto job = hear(record(played));
  EXPECT_EQ(job->fullTitle().english(), "Calibration: notes.wav");
  EXPECT_EQ(job->m_percent, 100);
  EXPECT_FALSE(job->problem());
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

  for (int string = 0; string < kStrings; ++string)
    EXPECT_NE(mine->findSpectrumByString(string)->findOvertone(string, 0), nullptr)
        << "every string is heard itself";
  mine->setName("Pete's");
  EXPECT_THROW(definitionOf(*mine), EditRefused) << "its reader would stop there";
  mine->setName("Mine");
  QBTabMgr::db().save();

  EXPECT_EQ(QBTabMgr::db().context().undoManager().undoActionName().english(),
            "Calibrate Instrument");
  QBSession::session().undo();
  ASSERT_EQ(QBTabMgr::db().instruments().size(), 1U);
  EXPECT_EQ(QBTabMgr::db().selectedInstrument()->name(), "Old");
}

TEST_F(CalibrateCommandTest, endsEarlyWithWhatItHasOrWithoutATrace) {
  const std::string file = record(asked());
  CalibrateCommand job(std::make_shared<MonoTrack>(file), "notes.wav", *m_store.standard());
  job.runInBackground();
  job.stopAndKeep();
  platform::PlainRunLoop::ofProcess().runUntil([&] { return !job.isRunning(); });
  EXPECT_LT(job.notes().size(), 12U);
  CalibrateCommand dropped(std::make_shared<MonoTrack>(file), "notes.wav", *m_store.standard());
  dropped.onFinished([] { ADD_FAILURE() << "nobody waits for it"; });
  dropped.runInBackground();
  dropped.nextStep();
  dropped.cancelAndDrop();
  EXPECT_FALSE(dropped.isRunning());
}

}  // namespace
}  // namespace korvel
