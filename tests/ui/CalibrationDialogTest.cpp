// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/dialogs/CalibrationDialog.h"

#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QSettings>
#include <QTest>
#include <QTreeWidget>

#include "support/Testing.h"
#include "support/sound/Guitar.h"
#include "support/sound/HandFedMicrophone.h"
#include "support/store/StandardStore.h"
#include "ui/desktop/QtRunLoop.h"
#include "workflow/session/QBSession.h"

namespace korvel::ui {
namespace {

struct CalibrationDialogTest : testing::Test {
  CalibrationDialogTest() {
    ::setenv("XDG_DATA_HOME", m_store.folder().path().c_str(), 1);
    QSettings().clear();
    platform::RunLoop::install(&m_loop);
    QBTabMgr::db().createInstrument(m_store.standard(), "Old", true, true, 0.5F, 1);
    QBTabMgr::db().save();
  }
  ~CalibrationDialogTest() override {
    platform::RunLoop::install(nullptr);
    ::unsetenv("XDG_DATA_HOME");
  }

  std::vector<std::int16_t> notes(std::size_t count) const {
    std::vector<int> notes;
    for (const CalibrationNote& note : notesToCalibrate(*m_store.standard()))
      notes.push_back(note.midi);
    notes.resize(count);
    return test::separateNotes(notes);
  }
  static QPushButton* button(const CalibrationDialog& dialog, const QString& text) {
    for (auto* each : dialog.findChildren<QPushButton*>())
      if (each->text().remove('&') == text) return each;
    return nullptr;
  }
  static QString status(const CalibrationDialog& dialog) {
    QString last;
    for (const auto* each : dialog.findChildren<QLabel*>())
      if (!each->accessibleName().isEmpty()) last = each->text();
    return last;
  }
  /// The results of the notes in their order: "x" for one that is missing.
  static QString results(const CalibrationDialog& dialog) {
    const auto* list = dialog.findChild<QTreeWidget*>();
    QString text;
    for (int i = 0; i < list->topLevelItemCount(); ++i)
      text += list->topLevelItem(i)->text(1).startsWith("✓") ? '!' : 'x';
    return text;
  }
  static bool isHeard(const CalibrationDialog& dialog) {
    return QTest::qWaitFor([&] { return button(dialog, "Record")->isEnabled(); }, 20000);
  }

  test::StandardStore m_store;
  QtRunLoop m_loop{[](const std::exception& error) { FAIL() << error.what(); }};
};

TEST_F(CalibrationDialogTest, makesAnInstrumentOfAFile) {
  const std::string file = m_store.folder().file("notes.wav");
  test::writeWav(file, notes(12));
  CalibrationDialog dialog;
  dialog.show();
  QPushButton* create = button(dialog, "Create Instrument");
  EXPECT_FALSE(create->isEnabled());
  dialog.hearFile(m_store.folder().path().c_str());
  EXPECT_TRUE(status(dialog).endsWith("is a folder; name a sound file"));
  dialog.hearFile(file.c_str());
  EXPECT_FALSE(button(dialog, "Record")->isEnabled());
  ASSERT_TRUE(isHeard(dialog));
  EXPECT_EQ(results(dialog), QString(12, '!'));
  auto* name = dialog.findChild<QLineEdit*>();
  EXPECT_EQ(name->text(), "My Guitar");
  name->setText("Old");
  create->click();
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_TRUE(status(dialog).startsWith("Old: there is an instrument of that name already"));
  name->setText(" ");
  EXPECT_FALSE(create->isEnabled());
  name->setText("Mine");
  create->click();
  EXPECT_FALSE(dialog.isVisible());
  EXPECT_EQ(QBTabMgr::db().selectedInstrument()->name(), "Mine");
}

TEST_F(CalibrationDialogTest, hearsWhatIsRecordedAndSaysWhatIsMissing) {
  test::HandFedMicrophone microphone;
  CalibrationDialog dialog;
  dialog.show();
  QPushButton* record = button(dialog, "Record");
  record->click();
  EXPECT_EQ(record->text().remove('&'), "Stop");
  EXPECT_FALSE(button(dialog, "Choose File ...")->isEnabled());
  const auto stereo = test::stereo(notes(2));
  for (std::size_t begin = 0; begin + 16384 <= stereo.size(); begin += 16384) {
    ASSERT_TRUE(microphone.hear(std::span(stereo).subspan(begin, 16384)));
    QTest::qWait(1);
  }
  record->click();
  ASSERT_TRUE(QTest::qWaitFor([&] { return results(dialog).contains('!'); }, 20000));
  EXPECT_EQ(results(dialog), "!!xxxxxxxxxx");
  ASSERT_TRUE(isHeard(dialog));
  EXPECT_TRUE(status(dialog).contains("was not heard long enough")) << status(dialog).toStdString();
  EXPECT_FALSE(button(dialog, "Create Instrument")->isEnabled());
  EXPECT_EQ(QBTabMgr::db().instruments().size(), 1U);
}

}  // namespace
}  // namespace korvel::ui
